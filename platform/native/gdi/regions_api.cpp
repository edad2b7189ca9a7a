// Region objects and rectangle functions.

#include <algorithm>
#include <cstring>

#include "native/gdi/device_context.h"
#include "native/gdi/fills.h"

using namespace qvui::native;

namespace {

HRGN AddRegion(Region region)
{
    return static_cast<HRGN>(AddGdiObject(std::make_shared<RegionObject>(std::move(region))));
}

}  // namespace

HRGN CreateRectRgn(int left, int top, int right, int bottom)
{
    return AddRegion(Region(Normalised({left, top, right, bottom})));
}

HRGN CreateRectRgnIndirect(const RECT* rect)
{
    return AddRegion(Region(Normalised(*rect)));
}

HRGN CreateRoundRectRgn(int left, int top, int right, int bottom, int width, int height)
{
    // The platform's function excludes the last row and column.
    RECT rect = Normalised({left, top, right, bottom});
    --rect.right;
    --rect.bottom;
    return AddRegion(Region::RoundRect(rect, width, height));
}

HRGN ExtCreateRegion(const XFORM* transform, DWORD size, const RGNDATA* data)
{
    if (transform || !data || size < sizeof(RGNDATAHEADER) || data->rdh.iType != RDH_RECTANGLES ||
        data->rdh.nCount > (size - sizeof(RGNDATAHEADER)) / sizeof(RECT))
        return nullptr;
    const auto* rects = reinterpret_cast<const RECT*>(data->Buffer);
    return AddRegion(Region::Of({rects, data->rdh.nCount}));
}

DWORD GetRegionData(HRGN region, DWORD size, RGNDATA* data)
{
    const auto shape = FindGdiObject<RegionObject>(region);
    if (!shape)
        return 0;
    const auto boxes = shape->region.Boxes();
    const auto needed = static_cast<DWORD>(sizeof(RGNDATAHEADER) + boxes.size() * sizeof(RECT));
    if (!data || size < needed)
        return data ? 0 : needed;
    data->rdh = {sizeof(RGNDATAHEADER), RDH_RECTANGLES, static_cast<DWORD>(boxes.size()),
                 static_cast<DWORD>(boxes.size() * sizeof(RECT)), shape->region.Bounds()};
    std::memcpy(data->Buffer, boxes.data(), boxes.size() * sizeof(RECT));
    return needed;
}

int CombineRgn(HRGN target, HRGN first, HRGN second, int mode)
{
    const auto into = FindGdiObject<RegionObject>(target);
    const auto left = FindGdiObject<RegionObject>(first);
    const auto right = FindGdiObject<RegionObject>(second);
    if (!into || !left || (mode != RGN_COPY && !right))
        return ERROR;
    Region result = left->region;
    switch (mode) {
        case RGN_AND:
            result.Intersect(right->region);
            break;
        case RGN_OR:
            result.Unite(right->region);
            break;
        case RGN_XOR:
            result.ExclusiveOr(right->region);
            break;
        case RGN_DIFF:
            result.Subtract(right->region);
            break;
        case RGN_COPY:
            break;
        default:
            return ERROR;
    }
    into->region = std::move(result);
    return into->region.Complexity();
}

BOOL EqualRgn(HRGN first, HRGN second)
{
    const auto left = FindGdiObject<RegionObject>(first);
    const auto right = FindGdiObject<RegionObject>(second);
    return left && right && left->region == right->region;
}

int OffsetRgn(HRGN region, int x, int y)
{
    const auto shape = FindGdiObject<RegionObject>(region);
    if (!shape)
        return ERROR;
    shape->region.Offset(x, y);
    return shape->region.Complexity();
}

BOOL PtInRegion(HRGN region, int x, int y)
{
    const auto shape = FindGdiObject<RegionObject>(region);
    return shape && shape->region.Contains(x, y);
}

BOOL RectInRegion(HRGN region, const RECT* rect)
{
    const auto shape = FindGdiObject<RegionObject>(region);
    return shape && shape->region.Meets(Normalised(*rect));
}

int GetRgnBox(HRGN region, RECT* box)
{
    const auto shape = FindGdiObject<RegionObject>(region);
    if (!shape)
        return ERROR;
    *box = shape->region.Bounds();
    return shape->region.Complexity();
}

BOOL SetRectRgn(HRGN region, int left, int top, int right, int bottom)
{
    const auto shape = FindGdiObject<RegionObject>(region);
    if (!shape)
        return FALSE;
    shape->region = Region(Normalised({left, top, right, bottom}));
    return TRUE;
}

BOOL FillRgn(HDC dc, HRGN region, HBRUSH brush)
{
    DeviceContext* context = LookUpContext(dc);
    const auto shape = FindGdiObject<RegionObject>(region);
    const auto fill = FindGdiObject<BrushObject>(brush);
    if (!context || !shape || !fill)
        return FALSE;
    Region area = shape->region;
    const POINT offset = context->ToSurface(0, 0);
    area.Offset(offset.x, offset.y);
    FillRegion(*context, area, *fill);
    return TRUE;
}

// --- rectangles ----------------------------------------------------------------------------------

BOOL SetRect(RECT* rect, int left, int top, int right, int bottom)
{
    *rect = {left, top, right, bottom};
    return TRUE;
}

BOOL SetRectEmpty(RECT* rect)
{
    return SetRect(rect, 0, 0, 0, 0);
}

BOOL CopyRect(RECT* target, const RECT* source)
{
    *target = *source;
    return TRUE;
}

BOOL IsRectEmpty(const RECT* rect)
{
    return !rect || IsEmptyRect(*rect);
}

BOOL IntersectRect(RECT* target, const RECT* first, const RECT* second)
{
    const bool meets = !IsEmptyRect(*first) && !IsEmptyRect(*second);
    *target = meets ? Intersection(*first, *second) : RECT{0, 0, 0, 0};
    return !IsEmptyRect(*target);
}

BOOL UnionRect(RECT* target, const RECT* first, const RECT* second)
{
    if (IsEmptyRect(*first) || IsEmptyRect(*second)) {
        const RECT other = IsEmptyRect(*first) ? *second : *first;
        *target = IsEmptyRect(other) ? RECT{0, 0, 0, 0} : other;
    } else {
        *target = {std::min(first->left, second->left), std::min(first->top, second->top),
                   std::max(first->right, second->right), std::max(first->bottom, second->bottom)};
    }
    return !IsEmptyRect(*target);
}

namespace {

// Skins can pass any coordinates; sums wrap around as on the platform.
LONG Add(LONG a, LONG b)
{
    return static_cast<LONG>(static_cast<DWORD>(a) + static_cast<DWORD>(b));
}

}  // namespace

BOOL OffsetRect(RECT* rect, int x, int y)
{
    *rect = {Add(rect->left, x), Add(rect->top, y), Add(rect->right, x), Add(rect->bottom, y)};
    return TRUE;
}

BOOL InflateRect(RECT* rect, int x, int y)
{
    *rect = {Add(rect->left, -x), Add(rect->top, -y), Add(rect->right, x), Add(rect->bottom, y)};
    return TRUE;
}

BOOL PtInRect(const RECT* rect, POINT point)
{
    return rect && point.x >= rect->left && point.x < rect->right && point.y >= rect->top &&
           point.y < rect->bottom;
}

BOOL EqualRect(const RECT* first, const RECT* second)
{
    return std::memcmp(first, second, sizeof(RECT)) == 0;
}
