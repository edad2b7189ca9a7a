#include <qvui/layout/linear_layout.h>

#include "layout/linear_placing.h"

namespace DUI {
namespace {

using namespace layout;

template <class Layout>
const AttributeTable<Layout>& Attributes()
{
    static const AttributeTable<Layout> table{
        {"enable_scroll",
         {AttributeKind::Boolean, "false"},
         "Whether content that is too long scrolls.",
         [](Layout& layout, const CString& value) { layout.SetEnableScroll(IsTrue(value)); }},
    };
    return table;
}

template <class Axis>
void CreateScrollBar(CDUICanvas& layout, CRefPtr<typename Axis::ScrollBar>& bar, bool isWanted)
{
    if (isWanted && bar.IsNull()) {
        bar = owned_scroll_bar::Create<typename Axis::ScrollBar>();
        if (!bar.IsNull())
            bar->SetAttribute("control_style", Axis::kScrollBarStyle);
    }
    owned_scroll_bar::Attach(bar, layout);
}

}  // namespace

const ControlClass& CDUIHorizontalLayout::Class()
{
    static const ControlClass info("CDUIHorizontalLayout", &CDUICanvas::Class(),
                                   "Lines up its children from left to right.", {"horz_layout"},
                                   &Attributes<CDUIHorizontalLayout>());
    return info;
}

CDUIHorizontalLayout::CDUIHorizontalLayout()
{
    ModifyStyle(0, DUISTYLE_TRANSPARENT);
}

CDUIHorizontalLayout::CDUIHorizontalLayout(const CDUIHorizontalLayout& other)
    : ControlOf(other),
      m_pScrollBar(owned_scroll_bar::Clone(other.m_pScrollBar)),
      m_nEnableScroll(other.m_nEnableScroll)
{
    ModifyStyle(0, DUISTYLE_TRANSPARENT);
}

void CDUIHorizontalLayout::SetControlRect(const RECT& rect)
{
    StoreControlRect(rect);
    LayOutLine<axis::Horizontal>(*this, Leftover::ToLastChild);
}

void CDUIHorizontalLayout::OnCreate()
{
    CreateScrollBar<axis::Horizontal>(*this, m_pScrollBar, m_nEnableScroll != 0);
}

void CDUIHorizontalLayout::OnDestroy()
{
    owned_scroll_bar::Release(m_pScrollBar);
    CDUICanvas::OnDestroy();
}

const ControlClass& CDUIVerticalLayout::Class()
{
    static const ControlClass info("CDUIVerticalLayout", &CDUICanvas::Class(),
                                   "Lines up its children from top to bottom.", {"vert_layout"},
                                   &Attributes<CDUIVerticalLayout>());
    return info;
}

CDUIVerticalLayout::CDUIVerticalLayout()
{
    ModifyStyle(0, DUISTYLE_TRANSPARENT);
}

CDUIVerticalLayout::CDUIVerticalLayout(const CDUIVerticalLayout& other)
    : ControlOf(other),
      m_pScrollBar(owned_scroll_bar::Clone(other.m_pScrollBar)),
      m_nEnableScroll(other.m_nEnableScroll)
{
    ModifyStyle(0, DUISTYLE_TRANSPARENT);
}

void CDUIVerticalLayout::SetControlRect(const RECT& rect)
{
    StoreControlRect(rect);
    LayOutLine<axis::Vertical>(*this, Leftover::ToLastChild);
}

void CDUIVerticalLayout::OnCreate()
{
    CreateScrollBar<axis::Vertical>(*this, m_pScrollBar, m_nEnableScroll != 0);
}

void CDUIVerticalLayout::OnDestroy()
{
    owned_scroll_bar::Release(m_pScrollBar);
    CDUICanvas::OnDestroy();
}

}  // namespace DUI
