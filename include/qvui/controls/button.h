#pragma once

#include <memory>

#include <qvui/framework/control_of.h>
#include <qvui/render/image_list.h>

namespace DUI {

/// Button styles; the low byte places the icon, and its lowest bit counts.
enum BTNSTYLE : DWORD {
    BTNSTYLE_CENTER_ICON = 0x001,
    BTNSTYLE_LEFT_ICON = 0x002,
    BTNSTYLE_RIGHT_ICON = 0x004,
    BTNSTYLE_TOP_ICON = 0x008,
    BTNSTYLE_BOTTOM_ICON = 0x010,
    BTNSTYLE_NO_TEXT = 0x100,         // the text is neither painted nor measured
    BTNSTYLE_AUTO_FIT = 0x200,        // the size is that of the back image's icons
    BTNSTYLE_VER_TEXT = 0x400,        // characters stand one below the other
    BTNSTYLE_NO_DRAW_FOCUS = 0x1000,  // no focus rectangle
};

/// The look of a button: which icon of its strips it shows, and which colour and font of its text style.
enum BTN_IMAGE_STATUS : int {
    BTN_STATUS_NORMAL = 0,
    BTN_STATUS_HOT = 1,
    BTN_STATUS_PUSHED = 2,
    BTN_STATUS_DISABLED = 3,
};

/// The images of a button. Copies share them; each may be null.
struct CButtonUIData {
    CDUIImageListPtr m_pBackImage;       // strip of the states' backgrounds
    CDUIImageListPtr m_pIcon;            // strip of the states' icons; of a check button the one in use
    CDUIImageListPtr m_pCheckedImage;    // check buttons: the icon while checked
    CDUIImageListPtr m_pUncheckedImage;  // check buttons: the icon while not checked
};

class CDUIButton;

/// A parent that looks after the buttons on it, as bars do that make one of them their tab stop. A control
/// that does so gives it for the interface name "button_host".
class QVUI_API IDUIButtonHost {
public:
    /// A press, a double press, a key or the focus on its way to the button: after what subclasses the button
    /// and before the button itself. To set `bHandled` keeps the event from the button.
    virtual void OnButtonEvent(CDUIButton& button, const tagDUIEvent& event, BOOL& bHandled) = 0;
    /// A button was shown, hidden, enabled or disabled.
    virtual void OnButtonChanged() = 0;

protected:
    ~IDUIButtonHost() = default;
};

/// A push button, and the base of every clickable control with images for its states.
///
/// A press and release inside it, or Space, activates it. Strips hold icons for normal, hot, pushed (also
/// checked) and disabled; a strip that is too short shows its first icon instead. A disabled button becomes
/// neither hot nor pushed, but the pointer's leaving and the release end both: one that disables itself in
/// its click is not hot when it is enabled again.
///
/// With toolbar_style "check", as on a tool bar, each click turns the check state over, after its
/// notification.
///
/// Skin attributes: back_image, icon, button_style, focus, want_return, toolbar_style.
/// Notifications: DUINOTIFY_CLICK when it is activated.
class QVUI_API CDUIButton : public ControlOf<CDUIButton, CDUIControlBase> {
    friend ControlOf;

public:
    CDUIButton();
    ~CDUIButton() override;
    static const ControlClass& Class();

    BOOL Activate() override;
    /// Text and icon beside or over each other, and the margin; with BTNSTYLE_AUTO_FIT the back image's icon.
    BOOL EstimateSize(SIZE available, SIZE& size) override;
    void ModifyStatus(DWORD remove, DWORD add) override;
    void ModifyStyle(DWORD remove, DWORD add) override;

protected:
    LRESULT PreTranslateEvent(const tagDUIEvent& event, BOOL& bHandled) override;
    LRESULT ProcessEvent(const tagDUIEvent& event, BOOL& bHandled) override;
    void PaintBkgnd(HDC hdc) override;
    void PaintForgnd(HDC hdc) override;
    void PaintText(HDC hdc) override;
    void PaintBorder(HDC hdc) override;

public:
    /// Unchecking releases the button too.
    virtual void SetCheck(BOOL bCheck);
    /// DUISTATUS_CHECKED or 0.
    virtual BOOL GetCheck();
    /// Asks for no repaint.
    virtual void SetButtonUIData(const CButtonUIData& data);
    virtual const CButtonUIData& GetButtonUIData();
    virtual void SetButtonStyle(DWORD style);
    virtual DWORD GetButtonStyle();

    /// Whether a click turns the check state over.
    void SetToolCheck(bool isToolCheck) { m_isToolCheck = isToolCheck; }
    bool IsToolCheck() const { return m_isToolCheck; }

    BOOL IsHoverd() const { return (GetStatus() & DUISTATUS_HOT) != 0; }
    BTN_IMAGE_STATUS GetImageStatus() const;
    /// Where icon and text were last painted; empty when they were not.
    const RECT& GetIconRect() const { return m_rcIcon; }
    const RECT& GetTextRect() const { return m_rcText; }

protected:
    CDUIButton(const CDUIButton& other);

    /// Colour and font of the text style for a look; 4 counts as normal and 5 as pushed. A font that the
    /// style lacks is its normal one. Black and null without a text style.
    COLORREF GetTextColorByStatus(int status);
    HFONT GetFontByStatus(int status);
    CButtonUIData& UIData();

private:
    void TellHost();
    /// For a button with an icon or of its image's size; `text` is the extent of the text.
    SIZE EstimateWithImages(SIZE text);
    DWORD GetIconPlacement() const;
    RECT GetIconPlace();
    RECT GetTextPlace();

    const CButtonUIData& Images() const { return m_pUIData ? *m_pUIData : kNoImages; }

    static const CButtonUIData kNoImages;
    std::unique_ptr<CButtonUIData> m_pUIData;  // null while there are no images
    RECT m_rcIcon{0, 0, 0, 0};
    RECT m_rcText{0, 0, 0, 0};
    bool m_isToolCheck = false;
};

}  // namespace DUI
