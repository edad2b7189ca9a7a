// Opening, selecting, saving and clipping device contexts.

#include "native/gdi/device_context.h"

#include <algorithm>

#include "native/core/live_counts.h"

namespace qvui::native {
namespace {

HandleTable<DeviceContext, 5>& Contexts()
{
    static auto& contexts = *new HandleTable<DeviceContext, 5>();
    return contexts;
}

[[maybe_unused]] const bool g_counted =
    RegisterLiveCount(&LiveCounts::deviceContexts, [] { return Contexts().LiveCount(); });

}  // namespace

DeviceContext::DeviceContext(std::shared_ptr<Surface> target, POINT originInSurface, Region visibleRegion)
    : m_target(std::move(target)),
      m_origin(originInSurface),
      m_visible(std::move(visibleRegion))
{
    state.brush = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    state.brushObject = FindGdiObject<BrushObject>(state.brush);
    state.pen = static_cast<HPEN>(GetStockObject(BLACK_PEN));
    state.penObject = FindGdiObject<PenObject>(state.pen);
    state.font = static_cast<HFONT>(GetStockObject(SYSTEM_FONT));
    state.fontObject = GdiObjects().Find(state.font);
}

void DeviceContext::Retarget(std::shared_ptr<Surface> target)
{
    m_target = std::move(target);
    m_visible = Region(m_target->Bounds());
    m_drawable.reset();
}

const Region& DeviceContext::Drawable()
{
    if (!m_drawable) {
        m_drawable = m_visible;
        for (const auto* limit : {&state.clip, &state.meta})
            if (*limit)
                m_drawable->Intersect(**limit);
        m_drawable->Offset(m_origin.x, m_origin.y);
        m_drawable->Intersect(Region(m_target->Bounds()));
    }
    return *m_drawable;
}

RECT DeviceContext::VisibleBounds() const
{
    return m_visible.Bounds();
}

void DeviceContext::SetClip(std::optional<Region> clip)
{
    state.clip = std::move(clip);
    m_drawable.reset();
}

RECT DeviceContext::ToSurface(const RECT& rect) const
{
    const POINT first = ToSurface(rect.left, rect.top);
    const POINT last = ToSurface(rect.right, rect.bottom);
    return {first.x, first.y, last.x, last.y};
}

HDC OpenDeviceContext(std::shared_ptr<Surface> target, POINT origin, Region visible)
{
    return static_cast<HDC>(
        Contexts().Insert(std::make_shared<DeviceContext>(std::move(target), origin, std::move(visible))));
}

void CloseDeviceContext(HDC dc)
{
    if (const auto context = Contexts().Remove(dc); context && context->bitmapObject)
        context->bitmapObject->selectedInto = nullptr;
}

DeviceContext* LookUpContext(HDC dc)
{
    return Contexts().Peek(dc);
}

}  // namespace qvui::native
