#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "native/display/display.h"

namespace qvui::native {

/// A display in memory. It shows nothing, remembers everything, and does exactly what it is told, so tests
/// and programs without a screen run on it alike.
class QVUI_API HeadlessDisplay : public Display {
public:
    HeadlessDisplay();
    ~HeadlessDisplay() override;

    /// Replaces the machine's clock by one that moves only when told, or when somebody waits for a timer.
    void UseManualClock();
    void UseMachineClock();
    void Advance(std::int64_t milliseconds);

    void MovePointer(POINT screen);
    void Button(int button, bool isDown);
    void Wheel(int delta);
    void Key(int virtualKey, bool isDown);
    void Type(const std::string& utf8);

    struct Shown {
        HWND window = nullptr;
        RECT screen{};
        bool isShown = false;
        std::uint8_t opacity = 255;
        std::string title;
        std::shared_ptr<Surface> pixels;  // what was presented, window coordinates
    };
    /// The windows on the display, oldest first.
    const std::vector<Shown>& Windows() const { return m_windows; }
    /// What CursorShape answers for a cursor of its own pixels.
    static constexpr int kOwnCursor = -1;
    /// The system cursor that is shown now (IDC_* number).
    int CursorShape() const { return m_cursor; }
    bool IsCaptured() const { return m_isCaptured; }

    void Open(HWND window, const RECT& screen, const SurfaceOptions& options) override;
    void Close(HWND window) override;
    void Move(HWND window, const RECT& screen) override;
    void Show(HWND window, bool isShown) override;
    void Activate(HWND window) override;
    void SetTitle(HWND window, const std::string& utf8) override;
    void SetShape(HWND window, const Region* shape) override;
    void SetOpacity(HWND window, std::uint8_t alpha) override;
    void Present(HWND window, const Surface& surface, const RECT& damage) override;
    void SetCursorShape(int systemCursor) override { m_cursor = systemCursor; }
    void SetCursorImage(const Surface&, POINT) override { m_cursor = kOwnCursor; }
    void SetPointer(POINT screen) override { MovePointer(screen); }
    void Capture(bool isCaptured) override { m_isCaptured = isCaptured; }
    std::string ClipboardText() override { return m_clipboard; }
    void SetClipboardText(const std::string& utf8) override { m_clipboard = utf8; }
    void Wait(int milliseconds, InputSink& sink) override;
    SIZE ScreenSize() override { return {1920, 1080}; }
    std::vector<Screen> Screens() override { return m_screens.empty() ? Display::Screens() : m_screens; }
    /// Spans the desktop over these screens; none for the one that is there otherwise.
    void UseScreens(std::vector<Screen> screens) { m_screens = std::move(screens); }

private:
    Shown* Find(HWND window);

    std::vector<Shown> m_windows;
    std::vector<Screen> m_screens;
    std::string m_clipboard;
    int m_cursor = 32512;
    bool m_isCaptured = false;
};

/// The headless display in use; null when another driver is.
QVUI_API HeadlessDisplay* TheHeadlessDisplay();

}  // namespace qvui::native
