#pragma once

#include <cstdint>
#include <memory>
#include <optional>
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

    /// The pointer, the buttons, the wheel and a US keyboard, as a person would use them.
    void MovePointer(POINT screen);
    /// The pointer goes where none of our windows is, on a part of the screen that belongs to others.
    void LeaveWindows();
    void Button(int button, bool isDown);
    void Wheel(int delta);
    void Key(int virtualKey, bool isDown);
    /// Text from an input method, UTF-8.
    void Type(const std::string& utf8);

    struct Shown {
        HWND window = nullptr;
        RECT screen{};
        SurfaceOptions options;
        bool isShown = false;
        bool isMinimised = false;
        std::uint8_t opacity = 255;
        std::optional<Region> shape;
        std::shared_ptr<Surface> pixels;  // what was presented, window coordinates
        int presented = 0;                // how many times

        const std::string& Title() const { return options.title; }
    };
    /// The windows on the display, the lowest first.
    const std::vector<Shown>& Windows() const { return m_windows; }
    /// One of them, or null.
    const Shown* Find(HWND window) const;
    /// What a person would see at a point: 0xRRGGBB, windows blended over a black screen.
    std::uint32_t PixelAt(POINT screen) const;

    /// Spans the desktop over these screens; none for the one that is there otherwise.
    void UseScreens(std::vector<Screen> screens) { m_screens = std::move(screens); }

    /// What CursorShape answers for a cursor of its own pixels.
    static constexpr int kOwnCursor = -1;
    /// The system cursor that is shown now (IDC_* number).
    int CursorShape() const { return m_cursor; }
    bool IsCaptured() const { return m_isCaptured; }
    /// The window with the keyboard.
    HWND Active() const { return m_active; }

    void Open(HWND window, const RECT& screen, const SurfaceOptions& options) override;
    void Close(HWND window) override;
    void Move(HWND window, const RECT& screen) override;
    void Show(HWND window, bool isShown) override;
    void Minimise(HWND window, bool isMinimised) override;
    void Raise(HWND window) override;
    void Activate(HWND window) override { m_active = window; }
    void SetTitle(HWND window, const std::string& utf8) override;
    void SetShape(HWND window, const Region* shape) override;
    void SetOpacity(HWND window, std::uint8_t alpha) override;
    void Present(HWND window, const Surface& surface, const RECT& damage) override;
    void SetCursorShape(int systemCursor) override { m_cursor = systemCursor; }
    void SetCursorImage(const Surface&, POINT) override { m_cursor = kOwnCursor; }
    POINT Pointer() override { return m_pointer; }
    void SetPointer(POINT screen) override { m_pointer = screen; }
    void Capture(bool isCaptured) override { m_isCaptured = isCaptured; }
    std::string ClipboardText() override { return m_clipboard; }
    void SetClipboardText(const std::string& utf8) override { m_clipboard = utf8; }
    void Wait(int milliseconds, InputSink& sink) override;
    SIZE ScreenSize() override { return {1920, 1080}; }
    std::vector<Screen> Screens() override { return m_screens.empty() ? Display::Screens() : m_screens; }

private:
    Shown* Entry(HWND window);

    std::vector<Shown> m_windows;
    std::vector<Screen> m_screens;
    std::string m_clipboard;
    POINT m_pointer{0, 0};
    HWND m_active = nullptr;
    int m_cursor = 32512;
    bool m_isCaptured = false;
    bool m_isShiftDown = false;
    bool m_isCommandDown = false;  // Ctrl or Alt, with which keys type nothing
};

/// The headless display in use; null when another driver is.
QVUI_API HeadlessDisplay* TheHeadlessDisplay();

}  // namespace qvui::native
