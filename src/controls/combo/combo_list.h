#pragma once

#include <qvui/controls/combo/combo_box.h>
#include <qvui/framework/window/window_mgr.h>

#include "tooltip/popup_window.h"

namespace DUI {

/// The popup window that a combo box drops down: it hosts the combo box's list, never takes the activation,
/// and is hidden, not destroyed, while the list is closed.
class CDUIComboList : public CDUIWindowMgr, public PopupWindow {
public:
    /// The owner outlives its window.
    explicit CDUIComboList(CDUIComboBox& owner) : m_pOwner(&owner) {}
    ~CDUIComboList() override;

    /// Makes the hidden window.
    bool Create(HWND owner);
    void Destroy();
    bool IsShown() const { return m_isShown; }
    /// On the screen.
    void Show(CRefPtr<IDUIControl> list, const RECT& place);
    /// Hides the window and takes the list back; it stays attached to nothing. The owner hears of it later.
    void Close();
    /// The same without telling the owner.
    void Dismiss();
    /// The owner has gone.
    void Forget() { m_pOwner = nullptr; }

    // CDUIWindowMgr
    void OnDUINotify(const tagDUINotify& notify, BOOL& bHandled) override;
    BOOL PreTranslateMessage(MSG* pMsg) override;

private:
    // PopupWindow
    bool OnPopupMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void ClosePopup() override;
    void OnPopupDestroyed() override;

    void Hide();
    void TakeBackList();

    CDUIComboBox* m_pOwner;  // null once it has gone
    bool m_isShown = false;
    bool m_hostsList = false;
};

}  // namespace DUI
