#include "native/user/composition.h"

#include <algorithm>

#include <qvui/platform/native/text.h>

#include "native/display/display.h"
#include "native/kernel/code_pages.h"
#include "native/user/desktop.h"
#include "native/user/painting.h"
#include "native/user/window_tree.h"

namespace qvui::native {
namespace {

constexpr int kPadding = 1;

// A memory context with a white bitmap, and what it holds.
class Canvas {
public:
    Canvas(int width, int height) : m_dc(CreateCompatibleDC(nullptr))
    {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        m_bitmap = CreateDIBSection(m_dc, &info, DIB_RGB_COLORS, &m_bits, nullptr, 0);
        m_old = SelectObject(m_dc, m_bitmap);
        PatBlt(m_dc, 0, 0, width, height, WHITENESS);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas()
    {
        SelectObject(m_dc, m_old);
        DeleteObject(m_bitmap);
        DeleteDC(m_dc);
    }

    HDC Get() const { return m_dc; }
    const std::uint32_t* Pixels() const { return static_cast<const std::uint32_t*>(m_bits); }

private:
    HDC m_dc;
    HBITMAP m_bitmap;
    HGDIOBJ m_old;
    void* m_bits = nullptr;
};

int Width(HDC dc, const std::string& text)
{
    SIZE size{};
    GetTextExtentPoint32A(dc, text.c_str(), static_cast<int>(text.size()), &size);
    return static_cast<int>(size.cx);
}

std::string FirstCharacters(const std::string& utf8, int count)
{
    std::size_t end = 0;
    for (; end < utf8.size(); ++end)
        if ((static_cast<unsigned char>(utf8[end]) & 0xC0) != 0x80 && count-- == 0)
            break;
    return utf8.substr(0, end);
}

CompositionState Draw(const std::string& utf8, int caret, int height)
{
    const std::string text = Utf8ToSystem(utf8);
    LOGFONTA description{};
    description.lfHeight = -std::max(1, height * 3 / 4);
    description.lfUnderline = TRUE;
    description.lfCharSet = DEFAULT_CHARSET;
    const HFONT font = CreateFontIndirectA(&description);
    CompositionState result;
    result.height = height;
    {
        const Canvas measure(1, 1);
        const HGDIOBJ old = SelectObject(measure.Get(), font);
        result.width = Width(measure.Get(), text) + 2 * kPadding;
        SelectObject(measure.Get(), old);
    }
    const Canvas canvas(result.width, height);
    const HGDIOBJ old = SelectObject(canvas.Get(), font);
    TextOutA(canvas.Get(), kPadding, 0, text.c_str(), static_cast<int>(text.size()));
    const int at = Width(canvas.Get(), Utf8ToSystem(FirstCharacters(utf8, caret)));
    PatBlt(canvas.Get(), kPadding + at, 0, 1, height, BLACKNESS);
    SelectObject(canvas.Get(), old);
    DeleteObject(font);
    result.pixels.assign(canvas.Pixels(), canvas.Pixels() + result.width * height);
    return result;
}

}  // namespace

RECT CompositionRect()
{
    const CompositionState& composition = TheDesktop().composition;
    const CaretState& caret = TheDesktop().caret;
    RECT client{};
    if (composition.pixels.empty() || !GetClientRect(caret.window, &client))
        return {};
    // A long one moves to the left as far as it can, so that its end stays in sight.
    const LONG left = std::max<LONG>(0, std::min(caret.rect.left, client.right - composition.width));
    return {left, caret.rect.top, left + composition.width, caret.rect.top + composition.height};
}

void ShowComposition(const std::string& utf8, int caret)
{
    Window* const window = LookUpWindow(TheDesktop().caret.window);
    const RECT before = CompositionRect();
    const RECT& place = TheDesktop().caret.rect;
    TheDesktop().composition = utf8.empty() || !window
                                   ? CompositionState()
                                   : Draw(utf8, caret, static_cast<int>(place.bottom - place.top));
    if (!window)
        return;
    PresentDamage(*window, before);
    PresentDamage(*window, CompositionRect());
}

void DropComposition()
{
    if (TheDesktop().composition.pixels.empty())
        return;
    ShowComposition({}, 0);
    TheDisplay().DropComposition();
}

CompositionOverlay::CompositionOverlay(Window& root, const RECT& damage) : m_root(root)
{
    const CompositionState& composition = TheDesktop().composition;
    Window* const window = LookUpWindow(TheDesktop().caret.window);
    if (composition.pixels.empty() || !window || RootOf(*window)->handle != root.handle)
        return;
    RECT place = CompositionRect();
    m_area = VisibleRegion(*window, Extent::Own);
    m_area.Intersect(Region(place));
    const POINT origin = OriginInRoot(*window);
    OffsetRect(&place, origin.x, origin.y);
    m_area.Offset(origin.x, origin.y);
    m_area.Intersect(Region(Intersection(damage, root.surface->Bounds())));
    for (const pixman_box32_t& box : m_area.Boxes())
        for (int y = box.y1; y < box.y2; ++y) {
            const auto count = static_cast<std::size_t>(box.x2 - box.x1);
            m_covered.resize(m_covered.size() + count);
            root.surface->Load(box.x1, y, box.x2 - box.x1, &m_covered[m_covered.size() - count]);
            const auto first = (y - place.top) * composition.width + box.x1 - place.left;
            root.surface->Store(box.x1, y, box.x2 - box.x1,
                                &composition.pixels[static_cast<std::size_t>(first)]);
        }
}

CompositionOverlay::~CompositionOverlay()
{
    std::size_t next = 0;
    for (const pixman_box32_t& box : m_area.Boxes())
        for (int y = box.y1; y < box.y2; ++y) {
            m_root.surface->Store(box.x1, y, box.x2 - box.x1, &m_covered[next]);
            next += static_cast<std::size_t>(box.x2 - box.x1);
        }
}

}  // namespace qvui::native
