#pragma once

#include <qvui/controls/button.h>

namespace DUI {

/// The base of buttons whose icon shows a check state, drawn at the left of their text. They draw no focus
/// rectangle.
///
/// Skin attributes: checked_image, unchecked_image.
class QVUI_API CDUICheckButton : public ControlOf<CDUICheckButton, CDUIButton> {
    friend ControlOf;

public:
    CDUICheckButton();
    ~CDUICheckButton() override;
    static const ControlClass& Class();

protected:
    void PaintForgnd(HDC hdc) override;
    void PaintBorder(HDC) override {}

    CDUICheckButton(const CDUICheckButton& other) = default;
};

/// A choice: activating it checks it, and never unchecks it. The application unchecks the others of a group.
///
/// Notifications: DUINOTIFY_CLICK when it is activated, while the check state is still the old one.
class QVUI_API CDUIRadioButton : public ControlOf<CDUIRadioButton, CDUICheckButton> {
    friend ControlOf;

public:
    CDUIRadioButton() = default;
    static const ControlClass& Class();

    BOOL Activate() override;

protected:
    CDUIRadioButton(const CDUIRadioButton& other) = default;
};

/// An option: activating it turns the check state over, "+" checks it and "-" unchecks it.
///
/// Notifications: DUINOTIFY_CLICK when it is activated, while the check state is still the old one.
class QVUI_API CDUICheckBox : public ControlOf<CDUICheckBox, CDUICheckButton> {
    friend ControlOf;

public:
    CDUICheckBox() = default;
    static const ControlClass& Class();

    BOOL Activate() override;

protected:
    LRESULT ProcessEvent(const tagDUIEvent& event, BOOL& bHandled) override;

    CDUICheckBox(const CDUICheckBox& other) = default;
};

}  // namespace DUI
