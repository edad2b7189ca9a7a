#pragma once

#include <memory>

#include <qvui/platform/cwnd.h>

namespace DUI {

/// A small native window with a shadow that pops up over others: a tooltip, a menu. It is owned by another
/// window, with which it goes. One that can be activated closes when it is no longer the active window, which
/// a press elsewhere does.
///
/// The object is held by a shared_ptr and holds itself while it handles a message, so its owner may let go of
/// it at any time.
class PopupWindow : public CWnd, public std::enable_shared_from_this<PopupWindow> {
public:
    HWND PopupHandle() const { return m_hWnd; }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    /// Makes the hidden window, of a class that is registered at first; false when there is one already, when
    /// the owner is no window, and when none can be made.
    bool CreatePopup(const char* className, DWORD exStyle, HWND owner);
    /// Places the window on the screen and shows it.
    void ShowPopup(const RECT& place, bool activates);
    void DestroyPopup();

    /// A message that PopupWindow has no use for. False: the default procedure handles it.
    virtual bool OnPopupMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) = 0;
    /// The user or the system wants the window to close.
    virtual void ClosePopup() { DestroyPopup(); }
    /// The window is being destroyed, by DestroyPopup or with its owner; it is the popup's no more after
    /// this.
    virtual void OnPopupDestroyed() {}
    /// The window is the popup's no more.
    virtual void AfterPopupDestroyed() {}

private:
    bool m_isMade = false;  // what comes while the window is made is none of the derived class's business
};

}  // namespace DUI
