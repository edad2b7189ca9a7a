#pragma once

#include "writer/commands.h"
#include "writer/document.h"

namespace writer {

/// The formatting tools: applies their commands to a document and shows the formats of its selection.
class FormatBar {
public:
    /// The window outlives this.
    explicit FormatBar(DUI::CDUIWindowMgr& window) : m_window(window) {}

    /// False when the command is no format.
    bool Apply(Document& document, Command command);
    /// Sets the size of the selection from the size box, in points.
    void ApplySize(Document& document);
    /// Shows the formats of the selection; formats that the document cannot have are disabled.
    void Show(Document& document);

private:
    DUI::CDUIWindowMgr& m_window;
    bool m_isShowing = false;
};

}  // namespace writer
