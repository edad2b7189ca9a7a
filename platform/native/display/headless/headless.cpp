#include "native/display/headless/headless.h"

#include <algorithm>
#include <cstring>

#include "native/display/keyboard_layout.h"
#include "native/kernel/clock.h"

namespace qvui::native {
namespace {

std::int64_t g_manualNow = 0;
HeadlessDisplay* g_display = nullptr;

std::int64_t ManualNow()
{
    return g_manualNow;
}

void ManualSleep(std::int64_t nanoseconds)
{
    g_manualNow += nanoseconds;
}

}  // namespace

HeadlessDisplay::HeadlessDisplay()
{
    g_display = this;
}

HeadlessDisplay::~HeadlessDisplay()
{
    g_display = nullptr;
    UseMachineClock();
}

HeadlessDisplay* TheHeadlessDisplay()
{
    TheDisplay();
    return g_display;
}

std::unique_ptr<Display> MakeHeadlessDisplay()
{
    return std::make_unique<HeadlessDisplay>();
}

void HeadlessDisplay::UseManualClock()
{
    // Time must not go back when the clocks are switched.
    g_manualNow = std::max(g_manualNow, Now());
    SetClock(ManualNow);
    SetSleep(ManualSleep);
}

void HeadlessDisplay::UseMachineClock()
{
    SetClock(nullptr);
    SetSleep(nullptr);
}

void HeadlessDisplay::Advance(std::int64_t milliseconds)
{
    g_manualNow += milliseconds * 1'000'000;
}

void HeadlessDisplay::MovePointer(POINT screen)
{
    m_pointer = screen;
    TheInputSink().OnPointer(screen);
}

void HeadlessDisplay::LeaveWindows()
{
    m_pointer = {-1, -1};
    TheInputSink().OnPointerLeft();
}

void HeadlessDisplay::Button(int button, bool isDown)
{
    TheInputSink().OnButton(button, isDown);
}

void HeadlessDisplay::Wheel(int delta)
{
    TheInputSink().OnWheel(delta);
}

void HeadlessDisplay::Key(int virtualKey, bool isDown)
{
    TheInputSink().OnKey(virtualKey, isDown);
    switch (virtualKey) {
        case VK_SHIFT:
        case VK_LSHIFT:
        case VK_RSHIFT:
            m_isShiftDown = isDown;
            break;
        case VK_CONTROL:
        case VK_LCONTROL:
        case VK_RCONTROL:
        case VK_MENU:
        case VK_LMENU:
        case VK_RMENU:
            m_isCommandDown = isDown;
            break;
        default:
            if (const char typed = UsCharacter(virtualKey, m_isShiftDown);
                typed && isDown && !m_isCommandDown)
                TheInputSink().OnText(std::string(1, typed));
    }
}

void HeadlessDisplay::Type(const std::string& utf8)
{
    TheInputSink().OnText(utf8);
}

void HeadlessDisplay::Compose(const std::string& utf8, int caret)
{
    m_isCompositionDropped = false;
    TheInputSink().OnComposition(utf8, caret);
}

HeadlessDisplay::Shown* HeadlessDisplay::Entry(HWND window)
{
    const auto found = std::find_if(m_windows.begin(), m_windows.end(),
                                    [window](const Shown& shown) { return shown.window == window; });
    return found == m_windows.end() ? nullptr : &*found;
}

const HeadlessDisplay::Shown* HeadlessDisplay::Find(HWND window) const
{
    return const_cast<HeadlessDisplay*>(this)->Entry(window);
}

void HeadlessDisplay::Open(HWND window, const RECT& screen, const SurfaceOptions& options)
{
    Shown shown;
    shown.window = window;
    shown.screen = screen;
    shown.options = options;
    m_windows.push_back(std::move(shown));
}

void HeadlessDisplay::Close(HWND window)
{
    std::erase_if(m_windows, [window](const Shown& shown) { return shown.window == window; });
    if (m_active == window)
        m_active = nullptr;
}

void HeadlessDisplay::Move(HWND window, const RECT& screen)
{
    if (Shown* shown = Entry(window))
        shown->screen = screen;
}

void HeadlessDisplay::Show(HWND window, bool isShown)
{
    if (Shown* shown = Entry(window))
        shown->isShown = isShown;
}

void HeadlessDisplay::Minimise(HWND window, bool isMinimised)
{
    if (Shown* shown = Entry(window))
        shown->isMinimised = isMinimised;
}

void HeadlessDisplay::Raise(HWND window)
{
    const auto isOther = [window](const Shown& shown) { return shown.window != window; };
    std::stable_partition(m_windows.begin(), m_windows.end(), isOther);
}

void HeadlessDisplay::SetTitle(HWND window, const std::string& utf8)
{
    if (Shown* shown = Entry(window))
        shown->options.title = utf8;
}

void HeadlessDisplay::SetShape(HWND window, const Region* shape)
{
    if (Shown* shown = Entry(window))
        shown->shape = shape ? std::optional(*shape) : std::nullopt;
}

void HeadlessDisplay::SetOpacity(HWND window, std::uint8_t alpha)
{
    if (Shown* shown = Entry(window))
        shown->opacity = alpha;
}

std::uint32_t HeadlessDisplay::PixelAt(POINT screen) const
{
    std::uint32_t seen = 0;
    for (const Shown& shown : m_windows) {
        const int x = screen.x - shown.screen.left;
        const int y = screen.y - shown.screen.top;
        if (!shown.isShown || shown.isMinimised || !shown.pixels || x < 0 || y < 0 ||
            x >= shown.pixels->width || y >= shown.pixels->height ||
            (shown.shape && !shown.shape->Contains(x, y)))
            continue;
        const std::uint32_t pixel = shown.pixels->Get(x, y);
        const std::uint32_t alpha = (shown.options.isLayered ? pixel >> 24 : 255U) * shown.opacity / 255;
        std::uint32_t blended = 0;
        for (int shift = 0; shift < 24; shift += 8) {
            const std::uint32_t above = ((pixel >> shift) & 0xFF) * shown.opacity / 255;
            const std::uint32_t below = ((seen >> shift) & 0xFF) * (255 - alpha) / 255;
            blended |= std::min(above + below, 255U) << shift;
        }
        seen = blended;
    }
    return seen;
}

void HeadlessDisplay::Present(HWND window, const Surface& surface, const RECT& damage)
{
    Shown* shown = Entry(window);
    const RECT part = Intersection(damage, {0, 0, surface.width, surface.height});
    if (!shown || IsEmptyRect(part))
        return;
    if (!shown->pixels || shown->pixels->width != surface.width || shown->pixels->height != surface.height)
        shown->pixels = Surface::Create(surface.width, surface.height, 32, false);
    for (int y = part.top; y < part.bottom; ++y)
        std::memcpy(shown->pixels->Row32(y) + part.left, surface.Row32(y) + part.left,
                    static_cast<std::size_t>(part.right - part.left) * 4);
    ++shown->presented;
}

void HeadlessDisplay::Wait(int milliseconds, InputSink&)
{
    // No input arrives on its own; only time can pass.
    constexpr int kIdle = 20;
    if (milliseconds != 0)
        ::Sleep(static_cast<DWORD>(milliseconds < 0 ? kIdle : milliseconds));
}

}  // namespace qvui::native
