#include <qvui/controls/picture_box.h>

#include <qvui/render/render_engine.h>

#include "foundation/rect.h"
#include "render/dc_scopes.h"
#include "skin/skin_access.h"

namespace DUI {
namespace {

using namespace geometry;

const AttributeTable<CDUIPictureBox>& Attributes()
{
    static const AttributeTable<CDUIPictureBox> attributes{
        {"icon", AttributeKind::Image,
         "The picture, or a strip of which one icon shows. A single picture without a drawstyle is not "
         "scaled.",
         [](CDUIPictureBox& box, const CString& value) {
             box.SetImage(skin::Image(value));
             box.UpdateLayout(FALSE, nullptr);
         }},
    };
    return attributes;
}

}  // namespace

const ControlClass& CDUIPictureBox::Class()
{
    static const ControlClass theClass("CDUIPictureBox", &CDUIControlBase::Class(),
                                       "A picture, or one icon of a strip.", {"picturebox"}, &Attributes());
    return theClass;
}

CDUIPictureBox::~CDUIPictureBox() = default;

BOOL CDUIPictureBox::EstimateSize(SIZE, SIZE& size)
{
    const SIZE icon = skin::IconSize(m_pImage);
    size = OuterSize(icon.cx, icon.cy);
    return TRUE;
}

void CDUIPictureBox::PaintBkgnd(HDC hdc)
{
    if (!skin::IsLoaded(m_pImage))
        return;
    const RECT content = GetContentRect();
    const CDUIRenderClip clip(hdc, content);
    const StretchModeScope smooth(hdc, HALFTONE);
    if (m_pImage->GetItemCount() != 1 || m_pImage->GetDrawStyle() != DRAW_STYLE_NORMAL) {
        m_pImage->DrawImage(hdc, content, skin::IconIndex(m_pImage, m_nIconIndex));
        return;
    }
    // The middle is the control's, whatever its margins.
    const RECT rect = GetControlRect();
    const LONGLONG left = Centred(rect.left, rect.right, m_pImage->GetWidth());
    const LONGLONG top = Centred(rect.top, rect.bottom, m_pImage->GetHeight());
    m_pImage->DrawImage(hdc, MakeRect(left, top, left + m_pImage->GetWidth(), top + m_pImage->GetHeight()));
}

void CDUIPictureBox::SetImage(CDUIImageListPtr image)
{
    m_pImage = std::move(image);
}

CDUIImageListPtr CDUIPictureBox::GetImage()
{
    return m_pImage;
}

int CDUIPictureBox::GetIconCount()
{
    return skin::IsLoaded(m_pImage) ? m_pImage->GetItemCount() : 0;
}

void CDUIPictureBox::SetCurrentIconIndex(int index)
{
    if (index >= 0 && index < GetIconCount())
        m_nIconIndex = index;
}

int CDUIPictureBox::GetCurrentIconIndex() const
{
    return m_nIconIndex;
}

}  // namespace DUI
