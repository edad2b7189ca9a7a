#include <qvui/controls/check_button.h>

#include "framework/control_guard.h"
#include "skin/skin_access.h"

namespace DUI {

namespace {

// The image of one check state; it is the icon too while that state lasts.
void SetStateImage(CDUICheckButton& button, CDUIImageListPtr CButtonUIData::*which, bool isIcon,
                   const CString& name)
{
    CButtonUIData data = button.GetButtonUIData();
    data.*which = skin::Image(name);
    if (isIcon)
        data.m_pIcon = data.*which;
    button.SetButtonUIData(data);
}

const AttributeTable<CDUICheckButton>& Attributes()
{
    static const AttributeTable<CDUICheckButton> attributes{
        {"checked_image", AttributeKind::Image, "Icon strip while checked: normal, hot, pushed, disabled.",
         [](CDUICheckButton& button, const CString& value) {
             SetStateImage(button, &CButtonUIData::m_pCheckedImage, button.GetCheck() != 0, value);
         }},
        {"unchecked_image",
         {AttributeKind::Image, "", "", {.resets = "icon"}},
         "Icon strip while not checked, with the same states.",
         [](CDUICheckButton& button, const CString& value) {
             SetStateImage(button, &CButtonUIData::m_pUncheckedImage, button.GetCheck() == 0, value);
         }},
        {"toolbar_style", AttributeKind::Ignored, "Check buttons have check states of their own."},
    };
    return attributes;
}

}  // namespace

const ControlClass& CDUICheckButton::Class()
{
    static const ControlClass theClass("CDUICheckButton", &CDUIButton::Class(),
                                       "What radio buttons and check boxes share.", {}, &Attributes());
    return theClass;
}

CDUICheckButton::CDUICheckButton()
{
    SetButtonStyle(BTNSTYLE_LEFT_ICON);
    SetPaddingWidth(5);
}

CDUICheckButton::~CDUICheckButton() = default;

void CDUICheckButton::PaintForgnd(HDC hdc)
{
    const CButtonUIData& images = GetButtonUIData();
    if (const CDUIImageListPtr image = GetCheck() ? images.m_pCheckedImage : images.m_pUncheckedImage)
        UIData().m_pIcon = image;
    CDUIButton::PaintForgnd(hdc);
}

const ControlClass& CDUIRadioButton::Class()
{
    static const ControlClass theClass(
        "CDUIRadioButton", &CDUICheckButton::Class(),
        "One choice of several; the application unchecks the others of its group.", {}, nullptr,
        {{"DUINOTIFY_CLICK", "The button was activated; it is checked right after."}});
    return theClass;
}

BOOL CDUIRadioButton::Activate()
{
    const ControlGuard keep(this);
    if (!CDUICheckButton::Activate())
        return FALSE;
    SetCheck(TRUE);
    return TRUE;
}

const ControlClass& CDUICheckBox::Class()
{
    static const ControlClass theClass(
        "CDUICheckBox", &CDUICheckButton::Class(), "An option that is on or off.", {}, nullptr,
        {{"DUINOTIFY_CLICK", "The box was activated; its check state turns over right after."}});
    return theClass;
}

BOOL CDUICheckBox::Activate()
{
    const ControlGuard keep(this);
    if (!CDUICheckButton::Activate())
        return FALSE;
    SetCheck(!GetCheck());
    return TRUE;
}

LRESULT CDUICheckBox::ProcessEvent(const tagDUIEvent& event, BOOL& bHandled)
{
    const ControlGuard keep(this);
    const char turns = GetCheck() ? '-' : '+';
    if (event.Type == DUIEVENT_CHAR && event.chKey == turns)
        Activate();
    return CDUICheckButton::ProcessEvent(event, bHandled);
}

}  // namespace DUI
