#include <qvui/layout/dock_layout.h>

#include "foundation/rect.h"
#include "layout/children.h"
#include "layout/placement/dock_rect.h"

namespace DUI {
namespace {

const AttributeTable<CDUIDockLayout>& Attributes()
{
    static const AttributeTable<CDUIDockLayout> table{
        {"fill_last",
         {AttributeKind::Boolean, "false"},
         "Whether the last child takes all the space that is left.",
         &CDUIDockLayout::SetLastFill},
    };
    return table;
}

}  // namespace

const ControlClass& CDUIDockLayout::Class()
{
    static const ControlClass info("CDUIDockLayout", &CDUICanvas::Class(),
                                   "Docks its children at the edges of the space that is left.",
                                   {"dock_layout"}, &Attributes());
    return info;
}

CDUIDockLayout::CDUIDockLayout()
{
    ModifyStyle(0, DUISTYLE_TRANSPARENT);
}

void CDUIDockLayout::SetControlRect(const RECT& rect)
{
    StoreControlRect(rect);
    RECT free = GetContentRect();
    const layout::Children children = layout::AllChildren(*this);
    for (std::size_t i = 0; i < children.size(); ++i)
        DockControl(children[i], free, i + 1 == children.size());
}

void CDUIDockLayout::DockControl(CRefPtr<IDUIControl> child, RECT& free, int isLast)
{
    const SIZE available{geometry::Narrow(geometry::Width(free)), geometry::Narrow(geometry::Height(free))};
    const SIZE wanted = layout::AskSize(*child.GetPtr(), available);
    child->SetControlRect(isLast && m_nLastFill ? layout::CutAll(free)
                                                : layout::CutDocked(free, child->GetExStyle(), wanted));
}

}  // namespace DUI
