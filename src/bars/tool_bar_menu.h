#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <qvui/controls/button.h>
#include <qvui/framework/window/window_mgr.h>

#include "tooltip/popup_window.h"

namespace DUI {

/// The overflow menu of a tool bar: a popup window owned by the bar's window. Also closes on a choice, on
/// Escape and on Tab.
class ToolBarMenu : public CDUIWindowMgr, public PopupWindow {
public:
    using Items = std::vector<CRefPtr<IDUIControl>>;

    struct Request {
        HWND owner = nullptr;
        RECT anchor{};               // screen coordinates; the menu opens beside it
        bool opensSideways = false;  // instead of below
        bool isByKeyboard = false;   // the first entry gets the focus
        Items items;                 // each supports the interface "button"
        CRefPtr<CDUIFrameBK> frame;  // null: plain, light or dark to suit the skin's text
        CString itemStyle;           // the control style of the entries; empty: the look of the items
    };

    /// Called once after the menu has closed, with the chosen item or null. `isDismissed`: the user closed it
    /// by the keyboard.
    using Closed = std::function<void(const CRefPtr<IDUIControl>& chosen, bool isDismissed)>;

    ~ToolBarMenu() override;

    /// Returns false if the menu is already open or no window can be created.
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
    /// Returns the menu's rectangle in screen coordinates.
    RECT PlaceFor(const Request& request);
    bool HandleKey(WPARAM key);
    void MoveFocus(int from, int step);
    int FocusedEntry() const;
    void Choose(int entry);
    void LeaveWindow();
    void Report();

    std::vector<CRefPtr<CDUIButton>> m_entries;
    Items m_items;  // the items of the entries
    SIZE m_entriesSize{0, 0};
    Closed m_closed;
    CRefPtr<IDUIControl> m_chosen;
    bool m_isDismissed = false;
    bool m_isClosing = false;
};

}  // namespace DUI
