#pragma once

#include <string>

#include <qvui/qvui.h>

namespace writer {

/// What the bar below the tools asks for.
enum class Prompt { None, Open, SaveAs, SaveChanges, DropFormats, Overwrite, Notice };

/// The bar below the tools ("prompt_bar"): a path to type, a question before something is lost, or a notice.
class PromptBar {
public:
    /// The window outlives this.
    explicit PromptBar(DUI::CDUIWindowMgr& window) : m_window(window) {}

    /// Shows the text; for Open and SaveAs with a field that holds the path.
    void Show(Prompt prompt, const CString& text, const std::string& path = {});
    void Hide();
    Prompt Current() const { return m_prompt; }
    std::string Path() const { return m_window.GetContrlText("prompt_path").GetString(); }

private:
    DUI::CDUIWindowMgr& m_window;
    Prompt m_prompt = Prompt::None;
};

}  // namespace writer
