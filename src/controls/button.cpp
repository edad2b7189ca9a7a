#include <qvui/controls/button.h>

#include <qvui/framework/window/window_mgr.h>
#include <qvui/render/render_engine.h>

#include "controls/pointer_state.h"
#include "controls/state_text.h"
#include "foundation/rect.h"
#include "framework/control_guard.h"
#include "render/dc_scopes.h"
#include "skin/skin_access.h"

namespace DUI {
namespace {

using namespace geometry;

constexpr DWORD kIconBits = 0xFF;

DWORD ParseButtonStyle(const CString& value)
{
    static constexpr WordBit kPlacements[] = {
        {"center_icon", BTNSTYLE_CENTER_ICON}, {"left_icon", BTNSTYLE_LEFT_ICON},
        {"right_icon", BTNSTYLE_RIGHT_ICON},   {"top_icon", BTNSTYLE_TOP_ICON},
        {"bottom_icon", BTNSTYLE_BOTTOM_ICON},
    };
    static constexpr WordBit kFlags[] = {
        {"no_text", BTNSTYLE_NO_TEXT},
        {"auto_fit", BTNSTYLE_AUTO_FIT},
        {"no_draw_focus", BTNSTYLE_NO_DRAW_FOCUS},
        {"ver_text", BTNSTYLE_VER_TEXT},
    };
    return FindFirstWord(value, kPlacements) | FindWords(value, kFlags);
}

TextState TextStateOf(int status)
{
    switch (status) {
        case BTN_STATUS_HOT:
            return TextState::Hover;
        case BTN_STATUS_PUSHED:
        case 5:
            return TextState::Select;
        case BTN_STATUS_DISABLED:
            return TextState::Disable;
        default:
            return TextState::Normal;
    }
}

void SetImage(CDUIButton& button, CDUIImageListPtr CButtonUIData::*which, const CString& name)
{
    CButtonUIData data = button.GetButtonUIData();
    data.*which = skin::Image(name);
    button.SetButtonUIData(data);
}

const AttributeTable<CDUIButton>& Attributes()
{
    static const AttributeTable<CDUIButton> attributes{
        {"back_image", AttributeKind::Image, "Background strip: normal, hot, pushed or checked, disabled.",
         [](CDUIButton& button, const CString& value) {
             SetImage(button, &CButtonUIData::m_pBackImage, value);
         }},
        {"icon", AttributeKind::Image, "Icon strip with the same states; button_style says where it stands.",
         [](CDUIButton& button, const CString& value) { SetImage(button, &CButtonUIData::m_pIcon, value); }},
        {"button_style",
         {AttributeKind::Keywords, "",
          "center_icon|left_icon|right_icon|top_icon|bottom_icon|no_text|auto_fit|no_draw_focus|ver_text"},
         "Where the icon stands (the first of the five placements counts), whether the text is left out or "
         "runs downwards, whether the button takes its back image's size, and whether it shows the focus.",
         [](CDUIButton& button, const CString& value) { button.SetButtonStyle(ParseButtonStyle(value)); }},
        {"focus",
         {AttributeKind::Boolean, "false"},
         "Takes the focus, or gives it up, when the window exists.",
         &CDUIButton::SetFocus},
        {"want_return",
         {AttributeKind::Boolean, "false", "", {.needsControl = "ok"}},
         "Enter does not activate the window's \"ok\" button while this one has the focus.",
         [](CDUIButton& button, const CString& value) {
             button.ModifyStyle(DUISTYLE_WANTRETURN, IsTrue(value) ? DWORD{DUISTYLE_WANTRETURN} : 0);
         }},
        {"toolbar_style",
         {AttributeKind::Choice, "", "check"},
         "\"check\": each click checks or unchecks the button, as on a tool bar.",
         [](CDUIButton& button, const CString& value) { button.SetToolCheck(HasWord(value, "check")); }},
    };
    return attributes;
}

}  // namespace

const ControlClass& CDUIButton::Class()
{
    static const ControlClass theClass(
        "CDUIButton", &CDUIControlBase::Class(),
        "A push button with a background, an icon and a text for each state.", {"button"}, &Attributes(),
        {{"DUINOTIFY_CLICK", "The button was clicked, or Space was released on it."}});
    return theClass;
}

CDUIButton::CDUIButton()
{
    ModifyStyle(0, DUISTYLE_TABSTOP | DUISTYLE_TOOLTIP);
}

CDUIButton::CDUIButton(const CDUIButton& other)
    : ControlOf(other),
      m_pUIData(other.m_pUIData ? std::make_unique<CButtonUIData>(*other.m_pUIData) : nullptr),
      m_rcIcon(other.m_rcIcon),
      m_rcText(other.m_rcText),
      m_isToolCheck(other.m_isToolCheck)
{
}

CDUIButton::~CDUIButton() = default;

const CButtonUIData CDUIButton::kNoImages;

BOOL CDUIButton::Activate()
{
    if (!CDUIControlBase::Activate())
        return FALSE;
    const ControlGuard keep(this);
    SendNotify(DUINOTIFY_CLICK, 0, 0);
    if (m_isToolCheck)
        SetCheck(!GetCheck());
    return TRUE;
}

BOOL CDUIButton::EstimateSize(SIZE, SIZE& size)
{
    const DWORD style = GetClassStyle();
    const SIZE text = (style & BTNSTYLE_NO_TEXT) ? SIZE{0, 0} : MeasureText(DT_SINGLELINE);
    size = (style & (BTNSTYLE_AUTO_FIT | kIconBits)) ? EstimateWithImages(text) : OuterSize(text.cx, text.cy);
    return TRUE;
}

SIZE CDUIButton::EstimateWithImages(SIZE text)
{
    if ((GetClassStyle() & BTNSTYLE_AUTO_FIT) && skin::IsLoaded(Images().m_pBackImage))
        return skin::IconSize(Images().m_pBackImage);
    LONGLONG width = text.cx;
    LONGLONG height = text.cy;
    const DWORD placement = GetIconPlacement();
    const SIZE icon = placement ? skin::IconSize(Images().m_pIcon) : SIZE{0, 0};
    if (icon.cx > 0 && icon.cy > 0) {
        const bool isBeside = (placement & (BTNSTYLE_LEFT_ICON | BTNSTYLE_RIGHT_ICON)) != 0;
        const bool isAboveOrBelow = (placement & (BTNSTYLE_TOP_ICON | BTNSTYLE_BOTTOM_ICON)) != 0;
        width = isBeside ? width + GetPaddingWidth() + icon.cx : std::max<LONGLONG>(width, icon.cx);
        height = isAboveOrBelow ? height + GetPaddingWidth() + icon.cy : std::max<LONGLONG>(height, icon.cy);
    }
    return OuterSize(width, height);
}

// --- events and states -------------------------------------------------------------------------------------

void CDUIButton::ModifyStatus(DWORD remove, DWORD add)
{
    const BOOL wasEnabled = IsEnabled();
    const ControlGuard keep(this);
    CDUIControlBase::ModifyStatus(remove, add);
    if (IsEnabled() != wasEnabled)
        TellHost();
}

void CDUIButton::ModifyStyle(DWORD remove, DWORD add)
{
    const BOOL wasVisible = IsVisible(FALSE);
    const ControlGuard keep(this);
    CDUIControlBase::ModifyStyle(remove, add);
    if (IsVisible(FALSE) != wasVisible)
        TellHost();
}

void CDUIButton::TellHost()
{
    if (auto* const host = InterfaceOf<IDUIButtonHost>(GetParent(), "button_host"))
        host->OnButtonChanged();
}

LRESULT CDUIButton::PreTranslateEvent(const tagDUIEvent& event, BOOL& bHandled)
{
    const ControlGuard keep(this);
    const LRESULT result = CDUIControlBase::PreTranslateEvent(event, bHandled);
    switch (bHandled ? 0 : event.Type) {
        case DUIEVENT_LBUTTONDOWN:
        case DUIEVENT_LBUTTONDBLCLK:
        case DUIEVENT_KEYDOWN:
        case DUIEVENT_SETFOCUS:
            if (auto* const host = InterfaceOf<IDUIButtonHost>(GetParent(), "button_host"))
                host->OnButtonEvent(*this, event, bHandled);
            break;
        default:
            break;
    }
    return result;
}

LRESULT CDUIButton::ProcessEvent(const tagDUIEvent& event, BOOL& bHandled)
{
    const ControlGuard keep(this);
    if (event.Type != DUIEVENT_MOUSELEAVE || IsHoverd())
        pointer_state::Follow(*this, event.Type, DUISTATUS_HOT | DUISTATUS_PUSHED);
    if (IsEnabled()) {
        const bool isSpace = event.wParam == VK_SPACE;
        switch (event.Type) {
            case DUIEVENT_LBUTTONUP: {
                const RECT rect = GetControlRect();
                if (PtInRect(&rect, event.ptMouse))
                    Activate();
                break;
            }
            case DUIEVENT_KEYDOWN:
                if (isSpace)
                    ModifyStatus(0, DUISTATUS_PUSHED);
                break;
            case DUIEVENT_KEYUP:
                if (isSpace) {
                    ModifyStatus(DUISTATUS_PUSHED, 0);
                    Activate();
                }
                break;
            default:
                break;
        }
    }
    return CDUIControlBase::ProcessEvent(event, bHandled);
}

// --- painting ----------------------------------------------------------------------------------------------

void CDUIButton::PaintBkgnd(HDC hdc)
{
    const CDUIImageListPtr& image = Images().m_pBackImage;
    if (skin::IsLoaded(image))
        image->DrawImage(hdc, GetControlRect(), skin::IconIndex(image, GetImageStatus()));
}

void CDUIButton::PaintForgnd(HDC hdc)
{
    const CDUIImageListPtr& icon = Images().m_pIcon;
    m_rcIcon = {0, 0, 0, 0};
    if (!skin::IsLoaded(icon) || !(GetClassStyle() & kIconBits))
        return;
    m_rcIcon = Intersection(GetIconPlace(), GetControlRect());
    if (!IsRectEmpty(&m_rcIcon))
        icon->DrawImage(hdc, m_rcIcon, skin::IconIndex(icon, GetImageStatus()));
}

void CDUIButton::PaintText(HDC hdc)
{
    m_rcText = {0, 0, 0, 0};
    const CString& text = GetText();
    const CRefPtr<CTextStyle> style = GetTextStyle();
    if (text.IsEmpty() || (GetClassStyle() & BTNSTYLE_NO_TEXT) || style.IsNull())
        return;
    RECT place = Intersection(GetTextPlace(), GetControlRect());
    if (IsRectEmpty(&place))
        return;
    const BTN_IMAGE_STATUS status = GetImageStatus();
    const auto draw =
        (GetClassStyle() & BTNSTYLE_VER_TEXT) ? &CDUIRenderEngine::DrawVText : &CDUIRenderEngine::DrawTextA;
    SetBkMode(hdc, TRANSPARENT);
    SetTextColor(hdc, GetTextColorByStatus(status));
    const SelectScope font(hdc, GetFontByStatus(status));
    draw(hdc, text, text.GetLength(), &place, style->GetTextFormat());
    m_rcText = place;
}

void CDUIButton::PaintBorder(HDC hdc)
{
    if (!GetFocus() || (GetClassStyle() & BTNSTYLE_NO_DRAW_FOCUS))
        return;
    const RECT inset = Shrink(GetControlRect(), {2, 2, 2, 2});
    if (IsRectEmpty(&inset))
        return;
    const SelectScope brush(hdc, GetStockObject(NULL_BRUSH));
    const SelectScope pen(hdc, GetStockObject(NULL_PEN));
    DrawFocusRect(hdc, &inset);
}

void CDUIButton::SetCheck(BOOL bCheck)
{
    if (bCheck)
        ModifyStatus(0, DUISTATUS_CHECKED);
    else
        ModifyStatus(DUISTATUS_CHECKED | DUISTATUS_PUSHED, 0);
}

BOOL CDUIWindowMgr::SetButtonChecked(const CString& name, BOOL bCheck)
{
    auto* const button = InterfaceOf<CDUIButton>(GetControlByName(name, FALSE), "button");
    if (button)
        button->SetCheck(bCheck);
    return button != nullptr;
}

BOOL CDUIButton::GetCheck()
{
    return static_cast<BOOL>(GetStatus() & DUISTATUS_CHECKED);
}

CButtonUIData& CDUIButton::UIData()
{
    if (!m_pUIData)
        m_pUIData = std::make_unique<CButtonUIData>();
    return *m_pUIData;
}

void CDUIButton::SetButtonUIData(const CButtonUIData& data)
{
    UIData() = data;
}

const CButtonUIData& CDUIButton::GetButtonUIData()
{
    return Images();
}

void CDUIButton::SetButtonStyle(DWORD style)
{
    if (style == GetClassStyle())
        return;
    SetClassStyle(style);
    UpdateLayout(FALSE, nullptr);
}

DWORD CDUIButton::GetButtonStyle()
{
    return GetClassStyle();
}

BTN_IMAGE_STATUS CDUIButton::GetImageStatus() const
{
    const DWORD status = GetStatus();
    if (status & DUISTATUS_DISABLED)
        return BTN_STATUS_DISABLED;
    if (status & DUISTATUS_PUSHED)
        return (status & DUISTATUS_HOT) ? BTN_STATUS_PUSHED : BTN_STATUS_HOT;
    if (status & DUISTATUS_HOT)
        return BTN_STATUS_HOT;
    return (status & DUISTATUS_CHECKED) ? BTN_STATUS_PUSHED : BTN_STATUS_NORMAL;
}

COLORREF CDUIButton::GetTextColorByStatus(int status)
{
    return StateColor(GetTextStyle().GetPtr(), TextStateOf(status));
}

HFONT CDUIButton::GetFontByStatus(int status)
{
    return StateFont(GetTextStyle().GetPtr(), TextStateOf(status));
}

DWORD CDUIButton::GetIconPlacement() const
{
    // The bits stand in the order in which they count, so the lowest one wins.
    const DWORD bits = GetClassStyle() & kIconBits;
    return bits & (~bits + 1);
}

RECT CDUIButton::GetIconPlace()
{
    const RECT rect = GetControlRect();
    const RECT margin = GetMargin();
    const SIZE icon = skin::IconSize(Images().m_pIcon);
    LONGLONG left = Centred(rect.left, rect.right, icon.cx);
    LONGLONG top = Centred(rect.top, rect.bottom, icon.cy);
    switch (GetIconPlacement()) {
        case BTNSTYLE_CENTER_ICON:
            break;
        case BTNSTYLE_LEFT_ICON:
            left = Wide(rect.left) + margin.left;
            break;
        case BTNSTYLE_RIGHT_ICON:
            left = Wide(rect.right) - margin.right - icon.cx;
            break;
        case BTNSTYLE_TOP_ICON:
            top = Wide(rect.top) + margin.top;
            break;
        case BTNSTYLE_BOTTOM_ICON:
            top = Wide(rect.bottom) - margin.bottom - icon.cy;
            break;
        default:
            return {0, 0, 0, 0};
    }
    return MakeRect(left, top, left + icon.cx, top + icon.cy);
}

RECT CDUIButton::GetTextPlace()
{
    RECT place = Shrink(GetControlRect(), GetMargin());
    if (IsRectEmpty(&m_rcIcon))
        return place;
    const LONGLONG padding = GetPaddingWidth();
    switch (GetIconPlacement()) {
        case BTNSTYLE_LEFT_ICON:
            place.left = Narrow(m_rcIcon.right + padding);
            break;
        case BTNSTYLE_RIGHT_ICON:
            place.right = Narrow(m_rcIcon.left - padding);
            break;
        case BTNSTYLE_TOP_ICON:
            place.top = Narrow(m_rcIcon.bottom + padding);
            break;
        case BTNSTYLE_BOTTOM_ICON:
            place.bottom = Narrow(m_rcIcon.top - padding);
            break;
        default:
            break;
    }
    return place;
}

}  // namespace DUI
