#include "layout/children.h"

namespace DUI::layout {

Children AllChildren(const IDUIControl& container)
{
    const int count = container.GetControlCount();
    Children children;
    children.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        children.emplace_back(container.GetControlByIndex(i));
    return children;
}

Children VisibleChildren(const IDUIControl& container)
{
    const int count = container.GetControlCount();
    Children children;
    children.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        if (IDUIControl* const child = container.GetControlByIndex(i); child->IsVisible(FALSE))
            children.emplace_back(child);
    return children;
}

void PlaceAll(const IDUIControl& container, const RECT& rect)
{
    for (const CRefPtr<IDUIControl>& child : AllChildren(container))
        child->SetControlRect(rect);
}

}  // namespace DUI::layout
