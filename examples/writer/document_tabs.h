#pragma once

#include <memory>
#include <string>
#include <vector>

#include "writer/document.h"

namespace writer {

/// The open documents, each with a tab in "tabs" and a page in "pages". One is always open after the first
/// Add.
class DocumentTabs {
public:
    /// The window outlives this.
    explicit DocumentTabs(DUI::CDUIWindowMgr& window) : m_window(window) {}

    /// Opens a new document in a tab of its own and selects it; null when the skin has no templates for it.
    Document* Add();
    /// Closes the document without asking; a new one takes the place of the last.
    void Close(Document& document);
    void Select(const Document& document);
    /// The document of the selected tab; null when there is none.
    Document* Current() const;
    /// The document of that file; null when it is not open.
    Document* Find(const std::string& path) const;
    Document* FindModified() const;
    /// Shows the documents' names, with a mark on those that are modified.
    void UpdateNames();

private:
    using TabBar = DUI::CDUITabBar<DUI::CDUIHorizontalLayout>;
    TabBar* Bar() const;
    DUI::IDUIControl* Pages() const;
    std::size_t IndexOf(const Document& document) const;

    DUI::CDUIWindowMgr& m_window;
    std::vector<std::unique_ptr<Document>> m_documents;  // in the order of the tabs
};

}  // namespace writer
