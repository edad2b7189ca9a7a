// Device contexts: selected objects, saved states, clipping and attributes.

#include "native/gdi/device_context.h"

using namespace qvui::native;

HDC CreateCompatibleDC(HDC)
{
    // A memory context holds a single pixel until a bitmap is selected.
    const HDC dc = OpenDeviceContext(Surface::Create(1, 1, 32, false), {0, 0}, Region(RECT{0, 0, 1, 1}));
    LookUpContext(dc)->isMemory = true;
    return dc;
}

BOOL DeleteDC(HDC dc)
{
    const DeviceContext* context = LookUpContext(dc);
    if (!context || !context->isMemory)
        return FALSE;
    CloseDeviceContext(dc);
    return TRUE;
}

int SaveDC(HDC dc)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context)
        return 0;
    context->saved.push_back(context->state);
    return static_cast<int>(context->saved.size());
}

BOOL RestoreDC(HDC dc, int level)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context)
        return FALSE;
    const int depth = static_cast<int>(context->saved.size());
    const int target = level < 0 ? depth + level : level - 1;
    if (target < 0 || target >= depth)
        return FALSE;
    const HBITMAP bitmap = context->saved[static_cast<std::size_t>(target)].bitmap;
    if (bitmap != context->state.bitmap)
        SelectObject(dc, bitmap);
    context->state = context->saved[static_cast<std::size_t>(target)];
    context->saved.resize(static_cast<std::size_t>(target));
    context->SetClip(context->state.clip);
    return TRUE;
}

namespace {

HGDIOBJ SelectBitmap(HDC dc, DeviceContext& context, HBITMAP handle, std::shared_ptr<BitmapObject> bitmap)
{
    // A bitmap can be selected into only one memory context at a time.
    if (!context.isMemory ||
        (bitmap->selectedInto && bitmap->selectedInto != dc && LookUpContext(bitmap->selectedInto)))
        return nullptr;
    const HBITMAP previous = context.state.bitmap ? context.state.bitmap : StockBitmap();
    if (context.bitmapObject)
        context.bitmapObject->selectedInto = nullptr;
    if (bitmap->isStock) {
        context.bitmapObject.reset();
        context.state.bitmap = nullptr;
        context.Retarget(Surface::Create(1, 1, 32, false));
        return previous;
    }
    bitmap->selectedInto = dc;
    context.state.bitmap = handle;
    context.Retarget(bitmap->surface);
    context.bitmapObject = std::move(bitmap);
    return previous;
}

}  // namespace

HGDIOBJ SelectObject(HDC dc, HGDIOBJ object)
{
    DeviceContext* context = LookUpContext(dc);
    const std::shared_ptr<GdiObject> found = GdiObjects().Find(object);
    if (!context || !found)
        return nullptr;
    switch (found->kind) {
        case GdiKind::Bitmap:
            return SelectBitmap(dc, *context, static_cast<HBITMAP>(object),
                                std::static_pointer_cast<BitmapObject>(found));
        case GdiKind::Brush:
            context->state.brushObject = std::static_pointer_cast<BrushObject>(found);
            return std::exchange(context->state.brush, static_cast<HBRUSH>(object));
        case GdiKind::Pen:
            context->state.penObject = std::static_pointer_cast<PenObject>(found);
            return std::exchange(context->state.pen, static_cast<HPEN>(object));
        case GdiKind::Font:
            context->state.fontObject = found;
            return std::exchange(context->state.font, static_cast<HFONT>(object));
        case GdiKind::Region:
            return reinterpret_cast<HGDIOBJ>(
                static_cast<INT_PTR>(SelectClipRgn(dc, static_cast<HRGN>(object))));
    }
    return nullptr;
}

int GetDeviceCaps(HDC, int index)
{
    switch (index) {
        case BITSPIXEL:
            return 32;
        case LOGPIXELSX:
        case LOGPIXELSY:
            return 96;
        default:
            return 0;
    }
}

BOOL GdiFlush()
{
    return TRUE;
}

// --- clipping ------------------------------------------------------------------------------------

int SelectClipRgn(HDC dc, HRGN region)
{
    return ExtSelectClipRgn(dc, region, RGN_COPY);
}

int ExtSelectClipRgn(HDC dc, HRGN region, int mode)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context)
        return ERROR;
    const auto shape = FindGdiObject<RegionObject>(region);
    if (!shape) {
        if (region || mode != RGN_COPY)
            return ERROR;
        context->SetClip(std::nullopt);
        return SIMPLEREGION;
    }
    Region clip = shape->region;
    if (mode != RGN_COPY) {
        Region old = context->state.clip.value_or(Region(context->VisibleBounds()));
        switch (mode) {
            case RGN_AND:
                if (context->state.clip)
                    clip.Intersect(old);
                break;
            case RGN_OR:
                clip.Unite(old);
                break;
            case RGN_XOR:
                clip.ExclusiveOr(old);
                break;
            case RGN_DIFF:
                old.Subtract(clip);
                clip = old;
                break;
            default:
                return ERROR;
        }
    }
    const int complexity = clip.Complexity();
    context->SetClip(std::move(clip));
    return complexity;
}

int SetMetaRgn(HDC dc)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context)
        return ERROR;
    if (std::optional<Region> limit = context->state.clip) {
        if (context->state.meta)
            limit->Intersect(*context->state.meta);
        context->state.meta = std::move(limit);
        context->SetClip(std::nullopt);
    }
    return context->Drawable().Complexity();
}

namespace {

int CombineClip(HDC dc, const RECT& logical, int mode)
{
    const DeviceContext* context = LookUpContext(dc);
    if (!context)
        return ERROR;
    RECT rect = Normalised(logical);
    OffsetRect(&rect, context->state.viewport.x, context->state.viewport.y);
    const HRGN region = CreateRectRgnIndirect(&rect);
    const int result = ExtSelectClipRgn(dc, region, mode);
    DeleteObject(region);
    return result;
}

}  // namespace

int IntersectClipRect(HDC dc, int left, int top, int right, int bottom)
{
    return CombineClip(dc, {left, top, right, bottom}, RGN_AND);
}

int ExcludeClipRect(HDC dc, int left, int top, int right, int bottom)
{
    return CombineClip(dc, {left, top, right, bottom}, RGN_DIFF);
}

int GetClipBox(HDC dc, RECT* box)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context)
        return ERROR;
    const Region& drawable = context->Drawable();
    *box = drawable.Bounds();
    if (!drawable.IsEmpty())
        OffsetRect(box, -context->Origin().x - context->state.viewport.x,
                   -context->Origin().y - context->state.viewport.y);
    return drawable.Complexity();
}

int GetClipRgn(HDC dc, HRGN region)
{
    const DeviceContext* context = LookUpContext(dc);
    const auto target = FindGdiObject<RegionObject>(region);
    if (!context || !target)
        return -1;
    if (!context->state.clip)
        return 0;
    target->region = *context->state.clip;
    return 1;
}

BOOL RectVisible(HDC dc, const RECT* rect)
{
    DeviceContext* context = LookUpContext(dc);
    return context && context->Drawable().Meets(context->ToSurface(*rect));
}

// --- attributes ----------------------------------------------------------------------------------

namespace {

template <class Value>
Value Exchange(HDC dc, Value ContextState::*field, Value value, Value failure)
{
    DeviceContext* context = LookUpContext(dc);
    return context ? std::exchange(context->state.*field, value) : failure;
}

template <class Value>
Value Read(HDC dc, Value ContextState::*field, Value failure)
{
    const DeviceContext* context = LookUpContext(dc);
    return context ? context->state.*field : failure;
}

BOOL ExchangePoint(HDC dc, POINT ContextState::*field, POINT value, POINT* previous)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context)
        return FALSE;
    const POINT old = std::exchange(context->state.*field, value);
    if (previous)
        *previous = old;
    return TRUE;
}

}  // namespace

COLORREF SetBkColor(HDC dc, COLORREF colour)
{
    return Exchange(dc, &ContextState::backColour, colour, CLR_INVALID);
}
COLORREF GetBkColor(HDC dc)
{
    return Read(dc, &ContextState::backColour, CLR_INVALID);
}
int SetBkMode(HDC dc, int mode)
{
    return Exchange(dc, &ContextState::backMode, mode, 0);
}
int GetBkMode(HDC dc)
{
    return Read(dc, &ContextState::backMode, 0);
}
COLORREF SetTextColor(HDC dc, COLORREF colour)
{
    return Exchange(dc, &ContextState::textColour, colour, CLR_INVALID);
}
COLORREF GetTextColor(HDC dc)
{
    return Read(dc, &ContextState::textColour, CLR_INVALID);
}
int SetStretchBltMode(HDC dc, int mode)
{
    return Exchange(dc, &ContextState::stretchMode, mode, 0);
}
int GetStretchBltMode(HDC dc)
{
    return Read(dc, &ContextState::stretchMode, 0);
}
BOOL SetBrushOrgEx(HDC dc, int x, int y, POINT* previous)
{
    return ExchangePoint(dc, &ContextState::brushOrigin, {x, y}, previous);
}
BOOL SetViewportOrgEx(HDC dc, int x, int y, POINT* previous)
{
    return ExchangePoint(dc, &ContextState::viewport, {x, y}, previous);
}
BOOL MoveToEx(HDC dc, int x, int y, POINT* previous)
{
    if (DeviceContext* context = LookUpContext(dc))
        context->state.dashPhase = 0;
    return ExchangePoint(dc, &ContextState::position, {x, y}, previous);
}
