#include "native/user/composition.h"

#include <algorithm>

#include <qvui/platform/native/text.h>

#include "native/display/display.h"
#include "native/kernel/code_pages.h"
#include "native/user/composition_overlay.h"
#include "native/user/desktop.h"
#include "native/user/painting.h"

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

}  // namespace qvui::native
