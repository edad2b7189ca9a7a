#include <qvui/layout/canvas.h>

#include "skin/skin_access.h"

namespace DUI {
namespace {

const AttributeTable<CDUICanvas>& Attributes()
{
    static const AttributeTable<CDUICanvas> table{
        {"frame_style", AttributeKind::FrameStyle, "The frame behind the children, within the margin.",
         &CDUICanvas::SetFrameBK},
    };
    return table;
}

}  // namespace

const ControlClass& CDUICanvas::Class()
{
    static const ControlClass info("CDUICanvas", &CDUIControlBase::Class(),
                                   "A container with a frame; its first child fills it.", {"canvas"},
                                   &Attributes());
    return info;
}

void CDUICanvas::PaintBkgnd(HDC hdc)
{
    if (!m_pFrameBK.IsNull() && !m_pFrameBK->IsEmpty())
        m_pFrameBK->DrawBK(hdc, GetContentRect());
}

}  // namespace DUI
