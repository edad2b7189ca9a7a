#include <qvui/layout/frame_panel.h>

#include <qvui/render/render_engine.h>

#include "foundation/rect.h"
#include "skin/skin_access.h"

namespace DUI {
namespace {

using namespace geometry;

// In order of precedence.
constexpr WordBit kDrawModes[] = {{"use_color", FRAMEPANEL_USE_COLOR}, {"use_image", FRAMEPANEL_USE_IMAGE}};

template <CDUIImageListPtr CFrameUIData::*Image>
void SetBorderImage(CDUIFramePanel& panel, const CString& value)
{
    if (!skin::Manager())
        return;
    CFrameUIData frame = panel.GetFrameUIData();
    frame.*Image = skin::Image(value);
    panel.SetFrameUIData(frame);
}

void SetBorderColor(CDUIFramePanel& panel, const CString& value)
{
    if (!skin::Manager())
        return;
    CFrameUIData frame = panel.GetFrameUIData();
    frame.m_strBorderColor = value;
    frame.m_borderColor = skin::Color(value);
    panel.SetFrameUIData(frame);
}

const AttributeTable<CDUIFramePanel>& Attributes()
{
    static const AttributeTable<CDUIFramePanel> table{
        {"frame_type",
         {AttributeKind::Choice, "use_image", "use_color|use_image"},
         "Whether the border is drawn in a colour or with images.",
         [](CDUIFramePanel& panel, const CString& value) {
             panel.SetDrawMode(FindFirstWord(value, kDrawModes));
         }},
        {"border_color",
         {AttributeKind::Color, "", "", {.isFill = true}},
         "The border's colour.",
         SetBorderColor},
        {"left_border_image", AttributeKind::Image, "The image of the border's left side.",
         SetBorderImage<&CFrameUIData::m_pLeftImage>},
        {"right_border_image", AttributeKind::Image, "The image of the border's right side.",
         SetBorderImage<&CFrameUIData::m_pRightImage>},
        {"top_border_image", AttributeKind::Image, "The image of the border's top side.",
         SetBorderImage<&CFrameUIData::m_pTopImage>},
        {"bottom_border_image", AttributeKind::Image, "The image of the border's bottom side.",
         SetBorderImage<&CFrameUIData::m_pBottomImage>},
        {"border_rect",
         {AttributeKind::Rect, "0,0,0,0"},
         "The thicknesses of the coloured border: left, top, right, bottom. Images bring their own.",
         &CDUIFramePanel::SetFrameRect},
        {"back_image", AttributeKind::Image, "The image behind the image border, over the whole panel.",
         [](CDUIFramePanel& panel, const CString& value) {
             if (skin::Manager())
                 panel.SetBackImage(skin::Image(value));
         }},
    };
    return table;
}

}  // namespace

const ControlClass& CDUIFramePanel::Class()
{
    static const ControlClass info("CDUIFramePanel", &CDUIControlBase::Class(),
                                   "Draws a border around its first child.", {"frame_panel"}, &Attributes());
    return info;
}

CDUIFramePanel::CDUIFramePanel()
{
    ModifyStyle(0, DUISTYLE_TRANSPARENT);
}

void CDUIFramePanel::SetControlRect(const RECT& rect)
{
    StoreControlRect(rect);
    if (m_nDrawMode != FRAMEPANEL_USE_COLOR)
        CalculateImageFrame();
    const CRefPtr<IDUIControl> child = GetControlByIndex(0);
    if (child.IsNull())
        return;
    RECT inside = Shrink(GetContentRect(), m_rcFrame);
    if (IsRectEmpty(&inside))
        inside = {inside.left, inside.top, inside.left, inside.top};
    child->SetControlRect(inside);
}

void CDUIFramePanel::PaintBkgnd(HDC hdc)
{
    if (m_nDrawMode & FRAMEPANEL_USE_COLOR)
        DrawFrameWithColor(hdc);
    else
        DrawFrameWithImage(hdc);
}

void CDUIFramePanel::GetDrawFrame(RECT& left, RECT& right, RECT& top, RECT& bottom)
{
    const RECT content = GetContentRect();
    top = bottom = content;
    top.bottom = Narrow(Wide(content.top) + m_rcFrame.top);
    bottom.top = Narrow(Wide(content.bottom) - m_rcFrame.bottom);
    left = {content.left, top.bottom, Narrow(Wide(content.left) + m_rcFrame.left), bottom.top};
    right = {Narrow(Wide(content.right) - m_rcFrame.right), top.bottom, content.right, bottom.top};
}

void CDUIFramePanel::DrawFrameWithColor(HDC hdc)
{
    if (skin::Manager() && !m_frame.m_strBorderColor.IsEmpty())
        m_frame.m_borderColor = skin::Color(m_frame.m_strBorderColor);
    RECT strips[4];
    GetDrawFrame(strips[0], strips[1], strips[2], strips[3]);
    for (const RECT& strip : strips)
        CDUIRenderEngine::FillRect(hdc, strip, m_frame.m_borderColor);
}

void CDUIFramePanel::CalculateImageFrame()
{
    m_rcFrame = {skin::IconSize(m_frame.m_pLeftImage).cx, skin::IconSize(m_frame.m_pTopImage).cy,
                 skin::IconSize(m_frame.m_pRightImage).cx, skin::IconSize(m_frame.m_pBottomImage).cy};
}

void CDUIFramePanel::DrawFrameWithImage(HDC hdc)
{
    CalculateImageFrame();
    if (skin::IsLoaded(m_pBackImage))
        m_pBackImage->DrawImage(hdc, GetControlRect(), 0);
    RECT left;
    RECT right;
    RECT top;
    RECT bottom;
    GetDrawFrame(left, right, top, bottom);
    const struct {
        const CDUIImageListPtr& image;
        const RECT& strip;
    } sides[] = {{m_frame.m_pLeftImage, left},
                 {m_frame.m_pRightImage, right},
                 {m_frame.m_pBottomImage, bottom},
                 {m_frame.m_pTopImage, top}};
    for (const auto& side : sides)
        if (skin::IsLoaded(side.image))
            side.image->DrawImage(hdc, side.strip, skin::IconIndex(side.image, std::max(0, m_nImageIndex)));
}

}  // namespace DUI
