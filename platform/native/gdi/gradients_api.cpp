// Gradients.

#include <array>
#include <vector>

#include "native/gdi/fills.h"

using namespace qvui::native;

namespace {

struct GradientEnd {
    int position;
    std::array<int, 4> components;  // blue, green, red, alpha, 16 bits each
};

GradientEnd EndOf(const TRIVERTEX& vertex, bool vertical)
{
    return {vertical ? vertex.y : vertex.x, {vertex.Blue, vertex.Green, vertex.Red, vertex.Alpha}};
}

// Generates the pixels of a gradient in order. Each component is interpolated in 16 bits and truncated to its
// high byte; the end colour is not reached. Quotients are advanced incrementally, which avoids a division per
// pixel.
class GradientSteps {
public:
    GradientSteps(const GradientEnd& first, const GradientEnd& last, int position)
        : m_length(last.position - first.position)
    {
        const std::int64_t step = position - first.position;
        for (std::size_t i = 0; i < m_components.size(); ++i) {
            const std::int64_t difference = last.components[i] - first.components[i];
            const std::int64_t sum = first.components[i] * m_length + difference * step;
            const std::int64_t rest = difference % m_length;
            m_components[i] = {sum / m_length, sum % m_length, difference / m_length - (rest < 0),
                               rest < 0 ? rest + m_length : rest};
        }
    }
    std::uint32_t Next()
    {
        std::uint32_t pixel = 0;
        for (std::size_t i = 0; i < m_components.size(); ++i) {
            Component& component = m_components[i];
            pixel |= static_cast<std::uint32_t>((component.value >> 8) & 0xFF) << (8 * i);
            component.rest += component.restStep;
            const bool carries = component.rest >= m_length;
            component.rest -= carries ? m_length : 0;
            component.value += component.step + carries;
        }
        return pixel;
    }

private:
    struct Component {
        std::int64_t value;
        std::int64_t rest;
        std::int64_t step;
        std::int64_t restStep;
    };
    std::int64_t m_length;
    std::array<Component, 4> m_components;
};

void DrawGradient(DeviceContext& context, const TRIVERTEX& a, const TRIVERTEX& b, bool vertical)
{
    const POINT corner = context.ToSurface(a.x, a.y);
    const POINT opposite = context.ToSurface(b.x, b.y);
    const RECT rect = Normalised({corner.x, corner.y, opposite.x, opposite.y});
    GradientEnd first = EndOf(a, vertical);
    GradientEnd last = EndOf(b, vertical);
    first.position = vertical ? corner.y : corner.x;
    last.position = vertical ? opposite.y : opposite.x;
    if (last.position < first.position)
        std::swap(first, last);
    std::vector<std::uint32_t> row;
    ForEachDrawable(context, rect, [&](const RECT& part) {
        const int count = part.right - part.left;
        if (!vertical) {
            row.resize(static_cast<std::size_t>(count));
            GradientSteps steps(first, last, part.left);
            for (std::uint32_t& pixel : row)
                pixel = steps.Next();
        }
        GradientSteps steps(first, last, vertical ? part.top : first.position);
        for (int y = part.top; y < part.bottom; ++y) {
            if (vertical)
                FillPart(context.Target(), {part.left, y, part.right, y + 1}, steps.Next());
            else
                context.Target().Store(part.left, y, count, row.data());
        }
    });
}

}  // namespace

BOOL GradientFill(HDC dc, TRIVERTEX* vertices, ULONG vertexCount, void* mesh, ULONG meshCount, ULONG mode)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context || !vertices || !mesh || mode > GRADIENT_FILL_RECT_V)
        return FALSE;
    const auto* rects = static_cast<const GRADIENT_RECT*>(mesh);
    for (ULONG i = 0; i < meshCount; ++i)
        if (rects[i].UpperLeft >= vertexCount || rects[i].LowerRight >= vertexCount)
            return FALSE;
    for (ULONG i = 0; i < meshCount; ++i)
        DrawGradient(*context, vertices[rects[i].UpperLeft], vertices[rects[i].LowerRight],
                     mode == GRADIENT_FILL_RECT_V);
    return TRUE;
}
