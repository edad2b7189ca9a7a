#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <qvui/controls/button.h>
#include <qvui/framework/window/window_mgr.h>

#include "tooltip/popup_window.h"

namespace DUI {

/// The list of the items that a tool bar has no room for: a popup window of its own, owned by the bar's
/// window. It closes on a choice, on Escape and on Tab, too.
class ToolBarMenu : public CDUIWindowMgr, public PopupWindow {
public:
    using Items = std::vector<CRefPtr<IDUIControl>>;

    struct Request {
        HWND owner = nullptr;
        RECT anchor{};               // on the screen; the menu opens beside it
        bool opensSideways = false;  // and not below
        bool isByKeyboard = false;   // the first entry has the focus
        Items items;                 // each answers "button"
        CRefPtr<CDUIFrameBK> frame;  // null: plain, light or dark as the skin's text needs it
        CString itemStyle;  // the control style of the entries; empty: the look of the items themselves
    };

    /// Called once after the menu has closed: with the chosen item, or null; `isDismissed` says that the user
    /// closed it by the keyboard.
    using Closed = std::function<void(const CRefPtr<IDUIControl>& chosen, bool isDismissed)>;

    ~ToolBarMenu() override;

    /// False when it is open already, and when no window can be made.
    bool Open(const Request& request, Closed closed);
    bool IsOpen() const { return PopupHandle() != nullptr; }
    void Close();

    // CDUIWindowMgr
    void OnDUINotify(const tagDUINotify& notify, BOOL& bHandled) override;
    BOOL PreTranslateMessage(MSG* pMsg) override;

private:
    // PopupWindow
    bool OnPopupMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void ClosePopup() override { Close(); }
    void OnPopupDestroyed() override { LeaveWindow(); }
    void AfterPopupDestroyed() override;

    CRefPtr<IDUIControl> MakeEntries(const Request& request);
    /// On the screen.
    RECT PlaceFor(const Request& request);
    bool HandleKey(WPARAM key);
    void MoveFocus(int from, int step);
    int FocusedEntry() const;
    void Choose(int entry);
    void LeaveWindow();
    void Report();

    std::vector<CRefPtr<CDUIButton>> m_entries;
    Items m_items;  // what the entries stand for
    SIZE m_entriesSize{0, 0};
    Closed m_closed;
    CRefPtr<IDUIControl> m_chosen;
    bool m_isDismissed = false;
    bool m_isClosing = false;
};

}  // namespace DUI
