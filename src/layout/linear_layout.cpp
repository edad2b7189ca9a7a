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
         &Layout::SetEnableScroll},
    };
    return table;
}

}  // namespace

template <class Layout, class ScrollBar>
CDUILinearLayout<Layout, ScrollBar>::CDUILinearLayout()
{
    this->ModifyStyle(0, DUISTYLE_TRANSPARENT);
}

template <class Layout, class ScrollBar>
CDUILinearLayout<Layout, ScrollBar>::CDUILinearLayout(const CDUILinearLayout& other)
    : ControlOf<Layout, CDUICanvas>(other),
      m_pScrollBar(owned_scroll_bar::Clone(other.m_pScrollBar, this)),
      m_nEnableScroll(other.m_nEnableScroll)
{
    this->ModifyStyle(0, DUISTYLE_TRANSPARENT);
}

template <class Layout, class ScrollBar>
CDUILinearLayout<Layout, ScrollBar>::~CDUILinearLayout()
{
    owned_scroll_bar::ReportTo(m_pScrollBar, nullptr);
}

template <class Layout, class ScrollBar>
void CDUILinearLayout<Layout, ScrollBar>::SetControlRect(const RECT& rect)
{
    this->StoreControlRect(rect);
    LayOutLine<axis::Of<Layout>>(*this, Leftover::ToLastChild);
}

template <class Layout, class ScrollBar>
void CDUILinearLayout<Layout, ScrollBar>::OnCreate()
{
    if (m_nEnableScroll && m_pScrollBar.IsNull()) {
        m_pScrollBar = owned_scroll_bar::Create<ScrollBar>();
        owned_scroll_bar::ApplyStyle(m_pScrollBar, owned_scroll_bar::kPlainBreadth);
    }
    owned_scroll_bar::Attach(m_pScrollBar, *this);
}

template <class Layout, class ScrollBar>
void CDUILinearLayout<Layout, ScrollBar>::OnDestroy()
{
    owned_scroll_bar::Release(m_pScrollBar);
    CDUICanvas::OnDestroy();
}

template class CDUILinearLayout<CDUIHorizontalLayout, CDUIHorizontalSB>;
template class CDUILinearLayout<CDUIVerticalLayout, CDUIVerticalSB>;

const ControlClass& CDUIHorizontalLayout::Class()
{
    static const ControlClass info("CDUIHorizontalLayout", &CDUICanvas::Class(),
                                   "Lines up its children from left to right.", {"horz_layout"},
                                   &Attributes<CDUIHorizontalLayout>());
    return info;
}

const ControlClass& CDUIVerticalLayout::Class()
{
    static const ControlClass info("CDUIVerticalLayout", &CDUICanvas::Class(),
                                   "Lines up its children from top to bottom.", {"vert_layout"},
                                   &Attributes<CDUIVerticalLayout>());
    return info;
}

}  // namespace DUI
