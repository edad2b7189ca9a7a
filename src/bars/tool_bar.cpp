#include <qvui/bars/tool_bar.h>

#include <qvui/render/render_engine.h>

#include "bars/tool_bar_colors.h"
#include "bars/tool_bar_items.h"
#include "framework/control_guard.h"
#include "layout/linear_placing.h"
#include "skin/skin_access.h"

namespace DUI {
namespace {

constexpr int kSeparatorSpace = 9;
// The thin line leaves this fraction of the bar's breadth free at each end (a divisor).
constexpr int kLineInset = 5;

CDUIToolBarSeparator* AsSeparator(IDUIControl* control)
{
    return InterfaceOf<CDUIToolBarSeparator>(control, "toolbar_separator");
}

template <class Layout>
const AttributeTable<CDUIToolBar<Layout>>& Attributes()
{
    using Bar = CDUIToolBar<Layout>;
    static const AttributeTable<Bar> table{
        {"separator_image", AttributeKind::Image,
         "The image of the bar's separators; without one, a thin line.", &Bar::SetSeparatorImage},
        {"overflow_image", AttributeKind::Image,
         "Strip for the button that lists what does not fit: normal, hot, pushed, disabled; without one, an "
         "arrowhead.",
         &Bar::SetOverflowImage},
        {"overflow_frame", AttributeKind::FrameStyle, "The frame of that list.", &Bar::SetOverflowFrame},
        {"overflow_item_style", AttributeKind::ControlStyle,
         "The style of that list's entries, which are buttons; without one they look like the items "
         "themselves.",
         &Bar::SetOverflowItemStyle},
        {"enable_scroll", AttributeKind::Ignored, "A tool bar lists what does not fit instead of scrolling."},
    };
    return table;
}

// Also passes the bar's look to the separators.
template <class Axis>
std::vector<layout::ToolItem> Measure(const layout::Children& children, const RECT& content,
                                      const CDUIImageListPtr& separatorImage)
{
    std::vector<layout::ToolItem> items;
    items.reserve(children.size());
    const SIZE available = Axis::Across(content, geometry::Narrow(Axis::Length(content)));
    for (const CRefPtr<IDUIControl>& child : children) {
        CDUIToolBarSeparator* const separator = AsSeparator(child.GetPtr());
        if (separator)
            separator->SetLook(separatorImage, Axis::kIsVertical);
        items.push_back({std::max<LONG>(0, Axis::Along(layout::AskSize(*child.GetPtr(), available))),
                         separator != nullptr});
    }
    return items;
}

template <class Axis>
void LayOutTools(CDUICanvas& bar, ToolBarItems& tools)
{
    const RECT content = bar.GetContentRect();
    const layout::Children children = layout::VisibleChildren(bar);
    const layout::Line line{Axis::Start(content), Axis::Length(content), bar.GetPaddingWidth()};
    SIZE button{0, 0};
    tools.OverflowButton().EstimateSize({0, 0}, button);
    const layout::ToolBarPlan plan = layout::PlanToolBar(
        line, Measure<Axis>(children, content, tools.GetLook().separator), Axis::Along(button));
    for (std::size_t i = 0; i < children.size(); ++i)
        children[i]->SetControlRect(Axis::Part(content, plan.items[i].start, plan.items[i].length));
    tools.SetOverflow(plan.overflows, plan.overflows ? Axis::Part(content, plan.overflowButton.start,
                                                                  plan.overflowButton.length)
                                                     : RECT{0, 0, 0, 0});
    bar.UpdateLayout(FALSE, nullptr);
}

template <class Layout>
std::unique_ptr<ToolBarItems> MakeItems(CDUIToolBar<Layout>& bar)
{
    using Axis = axis::Of<Layout>;
    return std::make_unique<ToolBarItems>(bar, Axis::kIsVertical,
                                          ToolBarItems::Keys{Axis::kBackwardKey, Axis::kForwardKey});
}

}  // namespace

// --- separators --------------------------------------------------------------------------------------------

const ControlClass& CDUIToolBarSeparator::Class()
{
    static const ControlClass info("CDUIToolBarSeparator", &CDUIControlBase::Class(),
                                   "A line between the items of a tool bar.", {"toolbar_separator"});
    return info;
}

CDUIToolBarSeparator::CDUIToolBarSeparator()
{
    ModifyStyle(0, DUISTYLE_TRANSPARENT);
}

void CDUIToolBarSeparator::SetLook(CDUIImageListPtr image, bool isBarVertical)
{
    m_pImage = std::move(image);
    m_isBarVertical = isBarVertical;
}

BOOL CDUIToolBarSeparator::EstimateSize(SIZE, SIZE& size)
{
    const SIZE image =
        skin::IsLoaded(m_pImage) ? skin::IconSize(m_pImage) : SIZE{kSeparatorSpace, kSeparatorSpace};
    size = OuterSize(image.cx, image.cy);
    return TRUE;
}

void CDUIToolBarSeparator::PaintForgnd(HDC hdc)
{
    using namespace geometry;
    const RECT rect = GetContentRect();
    if (skin::IsLoaded(m_pImage)) {
        const SIZE size = skin::IconSize(m_pImage);
        const LONGLONG left = Centred(rect.left, rect.right, size.cx);
        const LONGLONG top = Centred(rect.top, rect.bottom, size.cy);
        const RECT place = Intersection(rect, MakeRect(left, top, left + size.cx, top + size.cy));
        m_pImage->DrawImage(hdc, place, 0);
        return;
    }
    RECT line = rect;
    if (m_isBarVertical) {
        line.top = Narrow(Centred(rect.top, rect.bottom, 1));
        line.bottom = line.top + 1;
        InflateRect(&line, -Narrow(Width(rect) / kLineInset), 0);
    } else {
        line.left = Narrow(Centred(rect.left, rect.right, 1));
        line.right = line.left + 1;
        InflateRect(&line, 0, -Narrow(Height(rect) / kLineInset));
    }
    CDUIRenderEngine::FillRect(hdc, line, LineColor());
}

// --- the bar -----------------------------------------------------------------------------------------------

template <class Layout>
const ControlClass& CDUIToolBar<Layout>::Class()
{
    static const ControlClass info(axis::Of<Layout>::kIsVertical ? "CDUIToolBar<CDUIVerticalLayout>"
                                                                 : "CDUIToolBar<CDUIHorizontalLayout>",
                                   &Layout::Class(), "Tools in a line; a list shows those that do not fit.",
                                   {}, &Attributes<Layout>());
    return info;
}

template <class Layout>
CDUIToolBar<Layout>::CDUIToolBar() : m_pItems(MakeItems(*this))
{
}

template <class Layout>
CDUIToolBar<Layout>::CDUIToolBar(const CDUIToolBar& other)
    : ControlOf<CDUIToolBar, Layout>(other),
      m_pItems(MakeItems(*this))
{
    m_pItems->SetLook(other.m_pItems->GetLook());
    m_pItems->CopyTabStops(*other.m_pItems);
}

template <class Layout>
CDUIToolBar<Layout>::~CDUIToolBar() = default;

template <class Layout>
void CDUIToolBar<Layout>::SetControlRect(const RECT& rect)
{
    this->StoreControlRect(rect);
    LayOutTools<axis::Of<Layout>>(*this, *m_pItems);
}

template <class Layout>
void CDUIToolBar<Layout>::DoPaint(HDC hdc, const RECT& rcPaint)
{
    Layout::DoPaint(hdc, rcPaint);
    ToolBarOverflow& button = m_pItems->OverflowButton();
    const RECT place = button.GetControlRect();
    RECT common;
    if (!IntersectRect(&common, &place, &rcPaint))
        return;
    const CDUIRenderClip clip(hdc, this->GetContentRect());
    button.DoPaint(hdc, rcPaint);
}

template <class Layout>
void* CDUIToolBar<Layout>::GetInterface(const CString& name)
{
    if (EqualNoCase(name.View(), "button_host"))
        return static_cast<IDUIButtonHost*>(m_pItems.get());
    return Layout::GetInterface(name);
}

// Finds the overflow button after all items.
template <class Layout>
IDUIControl* CDUIToolBar<Layout>::FindControl(FindControlProc proc, void* pData, UINT flags)
{
    if (IDUIControl* const found = Layout::FindControl(proc, pData, flags))
        return found;
    const bool isSkipped = ((flags & DUIFIND_VISIBLE) && !this->IsVisible(FALSE)) ||
                           ((flags & DUIFIND_ENABLED) && !this->IsEnabled());
    return isSkipped || !m_pItems->IsOverflowing()
               ? nullptr
               : m_pItems->OverflowButton().FindControl(proc, pData, flags);
}

template <class Layout>
void CDUIToolBar<Layout>::RemoveAllControl()
{
    m_pItems->ReleaseChildren();
    Layout::RemoveAllControl();
}

template <class Layout>
void CDUIToolBar<Layout>::OnCreate()
{
    Layout::OnCreate();
    m_pItems->OnCreate();
}

template <class Layout>
void CDUIToolBar<Layout>::OnDestroy()
{
    m_pItems->OnDestroy();
    Layout::OnDestroy();
}

template <class Layout>
LRESULT CDUIToolBar<Layout>::ProcessEvent(const tagDUIEvent& event, BOOL& bHandled)
{
    if (event.Type == DUIEVENT_WINDOWSIZE || event.Type == DUIEVENT_WINDOWMOVE)
        m_pItems->CloseMenu();
    return Layout::ProcessEvent(event, bHandled);
}

template <class Layout>
void CDUIToolBar<Layout>::AfterAddControl(CRefPtr<IDUIControl> child)
{
    const ControlGuard keep(this);
    Layout::AfterAddControl(child);
    if (!child.IsNull() && child->GetParent() == this)
        m_pItems->OnAdded(*child.GetPtr());
}

template <class Layout>
void CDUIToolBar<Layout>::AfterRemoveControl(CRefPtr<IDUIControl> child)
{
    const ControlGuard keep(this);
    if (!child.IsNull() && child->GetParent() == this)
        m_pItems->OnRemoved(*child.GetPtr());
    Layout::AfterRemoveControl(child);
}

// --- its look ----------------------------------------------------------------------------------------------

template <class Layout>
void CDUIToolBar<Layout>::SetSeparatorImage(CDUIImageListPtr image)
{
    ToolBarItems::Look look = m_pItems->GetLook();
    look.separator = std::move(image);
    m_pItems->SetLook(look);
}

template <class Layout>
void CDUIToolBar<Layout>::SetOverflowImage(CDUIImageListPtr image)
{
    ToolBarItems::Look look = m_pItems->GetLook();
    look.overflow = std::move(image);
    m_pItems->SetLook(look);
}

template <class Layout>
void CDUIToolBar<Layout>::SetOverflowFrame(CRefPtr<CDUIFrameBK> frame)
{
    ToolBarItems::Look look = m_pItems->GetLook();
    look.frame = std::move(frame);
    m_pItems->SetLook(look);
}

template <class Layout>
void CDUIToolBar<Layout>::SetOverflowItemStyle(const CString& style)
{
    ToolBarItems::Look look = m_pItems->GetLook();
    look.itemStyle = style;
    m_pItems->SetLook(look);
}

template <class Layout>
BOOL CDUIToolBar<Layout>::IsOverflowing() const
{
    return m_pItems->IsOverflowing();
}

template <class Layout>
BOOL CDUIToolBar<Layout>::OpenOverflow()
{
    return m_pItems->OpenMenu();
}

template <class Layout>
void CDUIToolBar<Layout>::CloseOverflow()
{
    m_pItems->CloseMenu();
}

template class CDUIToolBar<CDUIHorizontalLayout>;
template class CDUIToolBar<CDUIVerticalLayout>;

}  // namespace DUI
