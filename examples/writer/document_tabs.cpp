#include "writer/document_tabs.h"

#include <algorithm>

#include "writer/strings.h"

namespace writer {

DocumentTabs::TabBar* DocumentTabs::Bar() const
{
    return dynamic_cast<TabBar*>(m_window.GetControlByName("tabs", FALSE));
}

DUI::IDUIControl* DocumentTabs::Pages() const
{
    return m_window.GetControlByName("pages", FALSE);
}

Document* DocumentTabs::Add()
{
    DUI::CDUIControlBuilder builder(nullptr);
    const DUI::CRefPtr<DUI::IDUIControl> tab = builder.CreateFromResource("tab");
    const DUI::CRefPtr<DUI::IDUIControl> page = builder.CreateFromResource("page");
    TabBar* const bar = Bar();
    DUI::IDUIControl* const pages = Pages();
    if (tab.IsNull() || page.IsNull() || !bar || !pages)
        return nullptr;
    auto* const editor = dynamic_cast<DUI::CDUIRichEdit*>(page->GetControlByIndex(0));
    if (!editor || !pages->AddControl(page) || !bar->AddControl(tab))
        return nullptr;
    m_documents.push_back(std::make_unique<Document>(*editor));
    bar->SetSelectIndex(static_cast<int>(m_documents.size()) - 1, FALSE);
    bar->UpdateLayout(TRUE, nullptr);
    return m_documents.back().get();
}

void DocumentTabs::Close(Document& document)
{
    const auto index = static_cast<int>(IndexOf(document));
    if (m_documents.size() == 1)
        Add();
    m_documents.erase(m_documents.begin() + index);
    Bar()->RemoveControlAt(index);
    Pages()->RemoveControlAt(index);
    Bar()->UpdateLayout(TRUE, nullptr);
}

void DocumentTabs::Select(const Document& document)
{
    Bar()->SetSelectIndex(static_cast<int>(IndexOf(document)), FALSE);
}

Document* DocumentTabs::Current() const
{
    const TabBar* const bar = Bar();
    const int index = bar ? bar->GetSelectIndex() : -1;
    return index >= 0 && index < static_cast<int>(m_documents.size())
               ? m_documents[static_cast<std::size_t>(index)].get()
               : nullptr;
}

Document* DocumentTabs::Find(const std::string& path) const
{
    const auto found = std::find_if(m_documents.begin(), m_documents.end(),
                                    [&path](const auto& document) { return document->Path() == path; });
    return found == m_documents.end() ? nullptr : found->get();
}

Document* DocumentTabs::FindModified() const
{
    const auto found = std::find_if(m_documents.begin(), m_documents.end(),
                                    [](const auto& document) { return document->IsModified(); });
    return found == m_documents.end() ? nullptr : found->get();
}

void DocumentTabs::UpdateNames()
{
    for (std::size_t i = 0; i < m_documents.size(); ++i) {
        const Document& document = *m_documents[i];
        DUI::IDUIControl* const tab = Bar()->GetControlByIndex(static_cast<int>(i));
        CString name = document.Path().empty() ? Text("untitled") : CString(document.Name().c_str());
        if (document.IsModified())
            name += " *";
        if (!tab || tab->GetText() == name)
            continue;
        tab->SetText(name);
        tab->SetTooltip(document.Path().c_str());
    }
}

std::size_t DocumentTabs::IndexOf(const Document& document) const
{
    const auto found = std::find_if(m_documents.begin(), m_documents.end(),
                                    [&document](const auto& entry) { return entry.get() == &document; });
    return static_cast<std::size_t>(found - m_documents.begin());
}

}  // namespace writer
