#include "native/display/headless/headless.h"

#include <algorithm>
#include <cstring>

#include "native/kernel/clock.h"

namespace qvui::native {
namespace {

std::int64_t g_manualNow = 0;
HeadlessDisplay* g_display = nullptr;

std::int64_t ManualNow() { return g_manualNow; }

void ManualSleep(std::int64_t nanoseconds) { g_manualNow += nanoseconds; }

}  // namespace

HeadlessDisplay::HeadlessDisplay() { g_display = this; }

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

std::unique_ptr<Display> MakeHeadlessDisplay() { return std::make_unique<HeadlessDisplay>(); }

void HeadlessDisplay::UseManualClock()
{
    // Time never goes back, whichever clock tells it.
    g_manualNow = std::max(g_manualNow, Now());
    SetClock(ManualNow);
    SetSleep(ManualSleep);
}

void HeadlessDisplay::UseMachineClock()
{
    SetClock(nullptr);
    SetSleep(nullptr);
}

void HeadlessDisplay::Advance(std::int64_t milliseconds) { g_manualNow += milliseconds * 1'000'000; }

void HeadlessDisplay::MovePointer(POINT screen) { TheInputSink().OnPointer(screen); }
void HeadlessDisplay::Button(int button, bool isDown) { TheInputSink().OnButton(button, isDown); }
void HeadlessDisplay::Wheel(int delta) { TheInputSink().OnWheel(delta); }
void HeadlessDisplay::Key(int virtualKey, bool isDown) { TheInputSink().OnKey(virtualKey, isDown, false); }
void HeadlessDisplay::Type(const std::string& utf8) { TheInputSink().OnText(utf8); }

HeadlessDisplay::Shown* HeadlessDisplay::Find(HWND window)
{
    const auto found = std::find_if(m_windows.begin(), m_windows.end(),
                                    [window](const Shown& shown) { return shown.window == window; });
    return found == m_windows.end() ? nullptr : &*found;
}

void HeadlessDisplay::Open(HWND window, const RECT& screen, const SurfaceOptions& options)
{
    m_windows.push_back({window, screen, false, 255, options.title, nullptr});
}

void HeadlessDisplay::Close(HWND window)
{
    std::erase_if(m_windows, [window](const Shown& shown) { return shown.window == window; });
}

void HeadlessDisplay::Move(HWND window, const RECT& screen)
{
    if (Shown* shown = Find(window))
        shown->screen = screen;
}

void HeadlessDisplay::Show(HWND window, bool isShown)
{
    if (Shown* shown = Find(window))
        shown->isShown = isShown;
}

void HeadlessDisplay::Activate(HWND) {}

void HeadlessDisplay::SetTitle(HWND window, const std::string& utf8)
{
    if (Shown* shown = Find(window))
        shown->title = utf8;
}

void HeadlessDisplay::SetShape(HWND, const Region*) {}

void HeadlessDisplay::SetOpacity(HWND window, std::uint8_t alpha)
{
    if (Shown* shown = Find(window))
        shown->opacity = alpha;
}

void HeadlessDisplay::Present(HWND window, const Surface& surface, const RECT& damage)
{
    Shown* shown = Find(window);
    const RECT part = Intersection(damage, {0, 0, surface.width, surface.height});
    if (!shown || IsEmptyRect(part))
        return;
    if (!shown->pixels || shown->pixels->width != surface.width || shown->pixels->height != surface.height)
        shown->pixels = Surface::Create(surface.width, surface.height, 32, false);
    for (int y = part.top; y < part.bottom; ++y)
        std::memcpy(shown->pixels->Row32(y) + part.left, surface.Row32(y) + part.left,
                    static_cast<std::size_t>(part.right - part.left) * 4);
}

void HeadlessDisplay::Wait(int milliseconds, InputSink&)
{
    // Nothing arrives by itself: only time can pass.
    constexpr int kIdle = 20;
    ::Sleep(static_cast<DWORD>(milliseconds < 0 ? kIdle : milliseconds));
}

}  // namespace qvui::native
