#pragma once

#include <qvui/qvui.h>

namespace writer {

/// The bar with a search text ("find_bar", with "find_text", "find_case" and "find_result" in it).
class FindBar {
public:
    /// The window outlives this.
    explicit FindBar(DUI::CDUIWindowMgr& window) : m_window(window) {}

    void Show();
    void Hide();
    bool IsShown() const;
    /// Selects the next match after the selection, or the one before it; goes on at the other end.
    void Find(DUI::CDUIRichEdit& editor, bool isForward);

private:
    DUI::CDUIWindowMgr& m_window;
};

}  // namespace writer
