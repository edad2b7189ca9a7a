#include "writer/prompt_bar.h"

#include "writer/strings.h"

namespace writer {

void PromptBar::Show(Prompt prompt, const CString& text, const std::string& path)
{
    constexpr int kShort = 90;  // pixels for the text: beside the field, or alone
    constexpr int kLong = 540;
    m_prompt = prompt;
    const bool hasPath = prompt == Prompt::Open || prompt == Prompt::SaveAs;
    m_window.SetContrlText("prompt_text", text);
    m_window.SetContrlText("prompt_accept", Text(prompt == Prompt::Open ? "open" : "save"));
    if (DUI::IDUIControl* const label = m_window.GetControlByName("prompt_text", FALSE))
        label->SetFixedWidth(hasPath ? kShort : kLong);
    m_window.ShowControl("prompt_path", hasPath);
    m_window.ShowControl("prompt_space", !hasPath);
    m_window.ShowControl("prompt_accept", prompt != Prompt::Notice);
    m_window.ShowControl("prompt_discard", prompt == Prompt::SaveChanges);
    m_window.ShowControl("prompt_bar", TRUE);
    m_window.LayoutRootControl();
    m_window.Invalidate(TRUE);
    auto* const field = dynamic_cast<DUI::CDUIRichEdit*>(m_window.GetControlByName("prompt_path", FALSE));
    if (hasPath && field) {
        field->SetText(path.c_str());
        field->SetFocus(TRUE);
        field->SetSelAll();
    } else if (field) {
        field->SetFocus(FALSE);  // a second Return must not answer a question
    }
}

void PromptBar::Hide()
{
    m_prompt = Prompt::None;
    m_window.ShowControl("prompt_bar", FALSE);
    m_window.LayoutRootControl();
    m_window.Invalidate(TRUE);
}

}  // namespace writer
