#include "layout/children.h"

namespace DUI::layout {

Children VisibleChildren(const CDUIControlBase& container)
{
    const Children& all = container.GetChildren();
    Children children;
    children.reserve(all.size());
    for (const CRefPtr<IDUIControl>& child : all)
        if (child->IsVisible(FALSE))
            children.push_back(child);
    return children;
}

void PlaceAll(const CDUIControlBase& container, const RECT& rect)
{
    for (const CRefPtr<IDUIControl>& child : AllChildren(container))
        child->SetControlRect(rect);
}

}  // namespace DUI::layout
