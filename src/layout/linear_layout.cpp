#include <qvui/layout/linear_layout.h>

#include "controls/owned_scroll_bar.h"
#include "layout/axis.h"
#include "layout/children.h"
#include "layout/linear_spans.h"

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
LinearSpans Measure(const RECT& content, int position, int gap, const Children& children)
{
    const Line line{LONGLONG{Axis::Start(content)} - position, Axis::Length(content), gap};
    LinearSpans spans = DivideLine(line, children.size(), [&](std::size_t child, LONG available) {
        return Axis::Along(AskSize(*children[child].GetPtr(), Axis::Across(content, available)));
    });
    FillLine(line, spans);
    return spans;
}

template <class Axis>
void Place(const RECT& content, const Children& children, const LinearSpans& spans)
{
    for (std::size_t i = 0; i < children.size(); ++i)
        children[i]->SetControlRect(Axis::Part(content, spans.spans[i].start, spans.spans[i].length));
}

template <class Axis>
void LayOut(CDUICanvas& layout)
{
    if (layout.GetControlCount() == 0)
        return;
    RECT content = layout.GetContentRect();
    const int position = owned_scroll_bar::Reserve(Axis::ScrollBarOf(layout), content);
    if (IsRectEmpty(&content)) {
        PlaceAll(layout, content);
        return;
    }
    const Children children = VisibleChildren(layout);
    const LinearSpans spans = Measure<Axis>(content, position, layout.GetPaddingWidth(), children);
    Place<Axis>(content, children, spans);
    Axis::ReportContent(layout, content, spans.content);
    layout.UpdateLayout(FALSE, nullptr);
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
    : CDUICanvas(other),
      m_pScrollBar(owned_scroll_bar::Clone(other.m_pScrollBar)),
      m_nEnableScroll(other.m_nEnableScroll)
{
    ModifyStyle(0, DUISTYLE_TRANSPARENT);
}

void* CDUIHorizontalLayout::GetInterface(const CString& name)
{
    return Class().Answers(name) ? this : nullptr;
}

CRefPtr<IDUIControl> CDUIHorizontalLayout::Clone()
{
    return new CDUIHorizontalLayout(*this);
}

void CDUIHorizontalLayout::SetControlRect(const RECT& rect)
{
    StoreControlRect(rect);
    LayOut<axis::Horizontal>(*this);
}

void CDUIHorizontalLayout::SetAttribute(const CString& name, const CString& value)
{
    if (!Attributes<CDUIHorizontalLayout>().Apply(*this, name, value))
        CDUICanvas::SetAttribute(name, value);
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
    : CDUICanvas(other),
      m_pScrollBar(owned_scroll_bar::Clone(other.m_pScrollBar)),
      m_nEnableScroll(other.m_nEnableScroll)
{
    ModifyStyle(0, DUISTYLE_TRANSPARENT);
}

void* CDUIVerticalLayout::GetInterface(const CString& name)
{
    return Class().Answers(name) ? this : nullptr;
}

CRefPtr<IDUIControl> CDUIVerticalLayout::Clone()
{
    return new CDUIVerticalLayout(*this);
}

void CDUIVerticalLayout::SetControlRect(const RECT& rect)
{
    StoreControlRect(rect);
    LayOut<axis::Vertical>(*this);
}

void CDUIVerticalLayout::SetAttribute(const CString& name, const CString& value)
{
    if (!Attributes<CDUIVerticalLayout>().Apply(*this, name, value))
        CDUICanvas::SetAttribute(name, value);
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
