#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "native/gdi/gdi_object.h"

namespace qvui::native {

/// Coordinates may be absurd: skins and applications give them. Beyond this one nothing shows, and up to it
/// products of two fit in 64 bits.
constexpr int kFarthest = 1 << 28;
constexpr int Saturated(std::int64_t coordinate)
{
    return static_cast<int>(std::clamp<std::int64_t>(coordinate, -kFarthest, kFarthest));
}

/// What a device context selects and remembers; SaveDC copies it.
struct ContextState {
    HBITMAP bitmap = nullptr;
    HBRUSH brush = nullptr;
    HPEN pen = nullptr;
    HFONT font = nullptr;
    std::shared_ptr<BrushObject> brushObject;
    std::shared_ptr<PenObject> penObject;
    std::shared_ptr<GdiObject> fontObject;
    COLORREF textColour = RGB(0, 0, 0);
    COLORREF backColour = RGB(255, 255, 255);
    int backMode = OPAQUE;
    UINT textAlign = 0;
    int stretchMode = BLACKONWHITE;
    POINT brushOrigin{0, 0};
    POINT position{0, 0};
    int dashPhase = 0;
    POINT viewport{0, 0};
    std::optional<Region> clip;  // device coordinates
    std::optional<Region> meta;  // SetMetaRgn: limits drawing as the clip does; device coordinates
};

/// A place to draw: a surface, the part of it that may be touched, and a state. Device coordinates start at
/// `origin` in the surface; logical ones at the viewport origin in those.
class DeviceContext {
public:
    DeviceContext(std::shared_ptr<Surface> target, POINT originInSurface, Region visibleRegion);

    Surface& Target() const { return *m_target; }
    const std::shared_ptr<Surface>& TargetShare() const { return m_target; }
    /// For memory contexts: draws on another bitmap from now on.
    void Retarget(std::shared_ptr<Surface> target);

    /// What may be touched, in surface coordinates: visible, inside the surface, inside clip and meta region.
    const Region& Drawable();
    /// The visible part's bounds without the clip, in device coordinates.
    RECT VisibleBounds() const;
    const Region& Visible() const { return m_visible; }
    void SetClip(std::optional<Region> clip);

    /// A logical point or rectangle in surface coordinates.
    POINT ToSurface(int x, int y) const
    {
        return {Saturated(static_cast<std::int64_t>(x) + state.viewport.x + m_origin.x),
                Saturated(static_cast<std::int64_t>(y) + state.viewport.y + m_origin.y)};
    }
    RECT ToSurface(const RECT& rect) const;
    /// The same for a corner and extents, which may be negative.
    RECT ToSurface(int x, int y, int width, int height) const
    {
        const POINT at = ToSurface(x, y);
        return {at.x, at.y, Saturated(static_cast<std::int64_t>(at.x) + width),
                Saturated(static_cast<std::int64_t>(at.y) + height)};
    }
    POINT Origin() const { return m_origin; }

    ContextState state;
    std::vector<ContextState> saved;
    std::shared_ptr<BitmapObject> bitmapObject;  // memory contexts
    bool isMemory = false;

private:
    std::shared_ptr<Surface> m_target;
    POINT m_origin;
    Region m_visible;  // device coordinates
    std::optional<Region> m_drawable;
};

/// Opens a context on a surface, as BeginPaint and GetDC do; `visible` in device coordinates.
HDC OpenDeviceContext(std::shared_ptr<Surface> target, POINT origin, Region visible);
void CloseDeviceContext(HDC dc);
/// The context of a handle, or null.
DeviceContext* LookUpContext(HDC dc);

/// Calls `draw(box)` for each part of `rect` (surface coordinates) that may be touched.
template <class Draw>
void ForEachDrawable(DeviceContext& context, const RECT& rect, Draw draw)
{
    for (const pixman_box32_t& box : context.Drawable().Boxes()) {
        if (box.y1 >= rect.bottom)
            break;
        const RECT part = Intersection({box.x1, box.y1, box.x2, box.y2}, rect);
        if (!IsEmptyRect(part))
            draw(part);
    }
}

}  // namespace qvui::native
