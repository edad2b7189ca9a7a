#include "writer/find_bar.h"

#include "writer/strings.h"

namespace writer {

void FindBar::Show()
{
    m_window.ShowControl("find_bar", TRUE);
    if (auto* const text = dynamic_cast<DUI::CDUIRichEdit*>(m_window.GetControlByName("find_text", FALSE))) {
        text->SetFocus(TRUE);
        text->SetSelAll();
    }
}

void FindBar::Hide()
{
    m_window.ShowControl("find_bar", FALSE);
}

bool FindBar::IsShown() const
{
    const DUI::IDUIControl* const bar = m_window.GetControlByName("find_bar", FALSE);
    return bar && bar->IsVisible(FALSE);
}

void FindBar::Find(DUI::CDUIRichEdit& editor, bool isForward)
{
    const auto wanted = m_window.GetContrlText("find_text").ToWide();
    if (wanted.empty())
        return;
    const DUI::IDUIControl* const match = m_window.GetControlByName("find_case", FALSE);
    const bool isCase = match && (match->GetStatus() & DUI::DUISTATUS_CHECKED);
    CHARRANGE selection{};
    editor.GetSel(selection);
    const LONG length = editor.GetTextLength(GTL_PRECISE | GTL_NUMCHARS);
    const auto search = [&](LONG from, LONG to) {
        FINDTEXTEXW query{};
        query.chrg = {from, to};
        query.lpstrText = wanted.c_str();
        LRESULT at = -1;
        const WPARAM flags = (isForward ? FR_DOWN : 0) | (isCase ? FR_MATCHCASE : 0);
        editor.TxSendMessage(EM_FINDTEXTEXW, flags, reinterpret_cast<LPARAM>(&query), &at);
        if (at >= 0) {
            editor.SetSel(query.chrgText);
            editor.HideSelection(FALSE);
            editor.ScrollCaret();
        }
        return at >= 0;
    };
    const char* result = "";
    if (!(isForward ? search(selection.cpMax, length) : search(selection.cpMin, 0)))
        result = (isForward ? search(0, length) : search(length, 0)) ? "find_wrapped" : "find_none";
    m_window.SetContrlText("find_result", *result ? Text(result) : CString());
}

}  // namespace writer
