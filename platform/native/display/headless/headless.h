#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "native/display/display.h"

namespace qvui::native {

/// A display in memory. It shows nothing, records everything presented, and takes input only from its caller,
/// so tests and programs without a screen behave alike.
class QVUI_API HeadlessDisplay : public Display {
public:
    HeadlessDisplay();
    ~HeadlessDisplay() override;

    /// Replaces the system clock by one that advances only by Advance or while the caller waits.
    void UseManualClock();
    void UseMachineClock();
    void Advance(std::int64_t milliseconds);

    /// Simulates the pointer, buttons, wheel and a US keyboard.
    void MovePointer(POINT screen);
    /// Moves the pointer to a part of the screen that belongs to none of our windows.
    void LeaveWindows();
    void Button(int button, bool isDown);
    void Wheel(int delta);
    void Key(int virtualKey, bool isDown);
    /// Simulates text from an input method, UTF-8.
    void Type(const std::string& utf8);

    /// Simulates an input method at work; an empty text ends its composition.
    void Compose(const std::string& utf8, int caret);
    /// Returns the area where text is being entered, in coordinates of its window.
    const RECT& TextArea() const { return m_textArea; }
    /// Whether the input method was told to end its composition since the last call of Compose.
    bool IsCompositionDropped() const { return m_isCompositionDropped; }

    struct Shown {
        HWND window = nullptr;
        RECT screen{};
        SurfaceOptions options;
        bool isShown = false;
        bool isMinimised = false;
        std::uint8_t opacity = 255;
        std::optional<Region> shape;
        std::shared_ptr<Surface> pixels;  // the pixels presented last, window coordinates
        int presented = 0;                // number of Present calls

        const std::string& Title() const { return options.title; }
    };
    /// Returns the windows on the display, from the bottom to the top.
    const std::vector<Shown>& Windows() const { return m_windows; }
    /// Returns one window, or null.
    const Shown* Find(HWND window) const;
    /// Returns the colour visible at a point, 0xRRGGBB: windows blended over a black screen.
    std::uint32_t PixelAt(POINT screen) const;

    /// Sets the screens of the desktop; an empty list restores the default screen.
    void UseScreens(std::vector<Screen> screens) { m_screens = std::move(screens); }

    /// CursorShape's result for an application-defined cursor.
    static constexpr int kOwnCursor = -1;
    /// Returns the system cursor shown (IDC_* number).
    int CursorShape() const { return m_cursor; }
    bool IsCaptured() const { return m_isCaptured; }
    /// Returns the window with the keyboard focus.
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
    void SetTextArea(HWND, const RECT& area) override { m_textArea = area; }
    void DropComposition() override { m_isCompositionDropped = true; }
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
    RECT m_textArea{};
    int m_cursor = 32512;
    bool m_isCompositionDropped = false;
    bool m_isCaptured = false;
    bool m_isShiftDown = false;
    bool m_isCommandDown = false;  // Ctrl or Alt is down, with which keys type nothing
};

/// Returns the headless display in use, or null if another driver is in use.
QVUI_API HeadlessDisplay* TheHeadlessDisplay();

}  // namespace qvui::native
