#include "framework/scroll_bar_access.h"

namespace DUI {
namespace {

const ScrollBarAccess* g_access = nullptr;

}  // namespace

void SetScrollBarAccess(const ScrollBarAccess& access)
{
    g_access = &access;
}

CDUIControlBase* VerticalScrollBarOf(CDUIControlBase& container)
{
    return g_access ? g_access->vertical(container) : nullptr;
}

CDUIControlBase* HorizontalScrollBarOf(CDUIControlBase& container)
{
    return g_access ? g_access->horizontal(container) : nullptr;
}

void GetScrollInfo(CDUIControlBase& bar, SCROLLINFO& info)
{
    g_access->getInfo(bar, info);
}

int GetScrollPosition(CDUIControlBase& bar)
{
    SCROLLINFO info{};
    GetScrollInfo(bar, info);
    return info.nPos;
}

void SetScrollInfo(CDUIControlBase& bar, SCROLLINFO& info)
{
    g_access->setInfo(bar, info);
}

}  // namespace DUI
