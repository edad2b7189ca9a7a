#pragma once

#include <qvui/controls/text/edit_window.h>
#include <qvui/framework/control_of.h>
#include <qvui/framework/message_loop.h>

namespace DUI {

/// A text field of one line with a native window of its own, which is as visible, enabled and focused as the
/// control. The window covers the control rectangle and is clipped by the containers around it; "inset" keeps
/// its text off the edges. The text is in the system code page.
///
/// The host window gets the child window's WM_COMMAND messages. What must be typed or pressed reaches the
/// window through the window manager's message loop, so that the manager has to be a filter of the loop that
/// runs. A list of colours with fewer names than colours leaves the others as they are.
///
/// Skin attributes: readonly, password, inset, limit_text, default_text, back_image, leftmargin, back_color,
/// text_color, border_color, id, uppercase.
class QVUI_API CDUIEdit : public ControlOf<CDUIEdit, CDUIControlBase>,
                          public CQVEdit,
                          public IDUIMessageFilter {
    friend ControlOf;

public:
    CDUIEdit();
    static const ControlClass& Class();

    // IDUIControl
    void SetAttribute(const CString& name, const CString& value) override;
    void ModifyStatus(DWORD remove, DWORD add) override;
    void ModifyStyle(DWORD remove, DWORD add) override;
    void OnParentVisibleStatusChange(BOOL bVisible) override;
    void SetFocus(BOOL bFocus) override;
    const CString& GetText() override;
    void SetText(const CString& text) override;
    void SetControlRect(const RECT& rect) override;
    void SetTextStyle(CRefPtr<CTextStyle> style) override;

    // What applications do with a text field.
    virtual void SetDefaultText(const CString& text);
    virtual const CString& GetDefaultText() const { return m_strDefaultText; }
    virtual BOOL IsReadOnly() const { return IsWindowReadOnly(); }
    virtual void SetReadOnly(BOOL readOnly) { SetWindowReadOnly(readOnly != FALSE); }

    // CWnd, IDUIMessageFilter
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    BOOL PreTranslateMessage(MSG* pMsg) override { return CQVEdit::PreTranslateMessage(pMsg); }

protected:
    CDUIEdit(const CDUIEdit& other);
    void OnCreate() override;
    void OnDestroy() override;
    LRESULT ProcessEvent(const tagDUIEvent& event, BOOL& bHandled) override;

private:
    static const AttributeTable<CDUIEdit>& Attributes();
    template <class Change>
    void ChangeLook(Change change);
    void SetColors(const CString& names, std::initializer_list<COLORREF EditLook::*> colors);
    void TakeFont();
    void ShowOrHide();
    void ClipToContainers();
    void TakeNativeFocus();
    void GiveNativeFocusBack();

    CString m_strDefaultText;
    CString m_strShownText;
    int m_nWindowId = 0;
    bool m_isMovingFocus = false;
    bool m_isClipped = false;  // by a container around it
};

}  // namespace DUI
