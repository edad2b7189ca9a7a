#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "native/gdi/gdi_object.h"

namespace qvui::native {

/// Skins and applications can pass any coordinates. Nothing beyond this coordinate is visible, and up to it
/// the product of two coordinates fits in 64 bits.
constexpr int kFarthest = 1 << 28;
constexpr int Saturated(std::int64_t coordinate)
{
    return static_cast<int>(std::clamp<std::int64_t>(coordinate, -kFarthest, kFarthest));
}

/// The selected objects and attributes of a device context; SaveDC copies them.
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
    std::optional<Region> meta;  // set by SetMetaRgn; limits drawing like the clip; device coordinates
};

/// A drawing target: a surface, the part of it that may be drawn on, and a state. The origin of device
/// coordinates is at `origin` in the surface; the origin of logical coordinates is the viewport origin in
/// device coordinates.
class DeviceContext {
public:
    DeviceContext(std::shared_ptr<Surface> target, POINT originInSurface, Region visibleRegion);

    Surface& Target() const { return *m_target; }
    const std::shared_ptr<Surface>& TargetShare() const { return m_target; }
    /// Replaces the surface; for memory contexts.
    void Retarget(std::shared_ptr<Surface> target);

    /// The region that may be drawn on, in surface coordinates: the visible region inside the surface, the
    /// clip and the meta region.
    const Region& Drawable();
    /// The bounds of the visible region, ignoring the clip, in device coordinates.
    RECT VisibleBounds() const;
    const Region& Visible() const { return m_visible; }
    void SetClip(std::optional<Region> clip);

    /// Converts logical coordinates to surface coordinates, saturated.
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

/// Opens a context on a surface, for BeginPaint and GetDC. `visible` is in device coordinates.
HDC OpenDeviceContext(std::shared_ptr<Surface> target, POINT origin, Region visible);
void CloseDeviceContext(HDC dc);
/// Returns the context of a handle, or null if the handle is invalid.
DeviceContext* LookUpContext(HDC dc);

/// Calls `draw(box)` for each drawable part of `rect` (surface coordinates).
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
