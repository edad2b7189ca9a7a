#pragma once

#include <SDL.h>

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "native/display/display.h"
#include "native/display/sdl/x11_errors.h"

namespace qvui::native {

/// A display with real windows, through SDL. SDL types are not used outside this folder.
class SdlDisplay final : public Display {
public:
    /// Requires SDL's video to be started. The display ends it and destroys the guard afterwards.
    explicit SdlDisplay(std::unique_ptr<LateWakeUpGuard> guard);
    SdlDisplay(const SdlDisplay&) = delete;
    SdlDisplay& operator=(const SdlDisplay&) = delete;
    ~SdlDisplay() override;

    void Open(HWND window, const RECT& screen, const SurfaceOptions& options) override;
    void Close(HWND window) override;
    void Move(HWND window, const RECT& screen) override;
    void Show(HWND window, bool isShown) override;
    void Minimise(HWND window, bool isMinimised) override;
    void Raise(HWND window) override;
    void Activate(HWND window) override;
    void SetTitle(HWND window, const std::string& utf8) override;
    void SetShape(HWND window, const Region* shape) override;
    void SetOpacity(HWND window, std::uint8_t alpha) override;
    void Present(HWND window, const Surface& surface, const RECT& damage) override;
    void SetCursorShape(int systemCursor) override;
    void SetCursorImage(const Surface& pixels, POINT hotSpot) override;
    POINT Pointer() override;
    void SetPointer(POINT screen) override;
    void Capture(bool isCaptured) override;
    std::string ClipboardText() override;
    void SetClipboardText(const std::string& utf8) override;
    void SetTextArea(HWND window, const RECT& area) override;
    void DropComposition() override { SDL_ClearComposition(); }
    void Wait(int milliseconds, InputSink& sink) override;
    SIZE ScreenSize() override;
    std::vector<Screen> Screens() override;

private:
    struct Shown {
        SDL_Window* native = nullptr;
        SurfaceOptions options;
    };

    SDL_Window* Find(HWND window) const;
    HWND Named(Uint32 id) const;
    void Report(const SDL_Event& event, InputSink& sink);
    /// Returns the screen coordinates of a pointer event, whose own are relative to a window.
    POINT ToScreen(Uint32 id, int x, int y);
    void ReportText(const char* utf8, InputSink& sink) const;
    void ReportWindow(const SDL_WindowEvent& event, InputSink& sink);
    void ReportPlace(HWND window, InputSink& sink) const;
    void ReportKeyboardLoss(InputSink& sink);

    const std::unique_ptr<LateWakeUpGuard> m_guard;
    std::map<HWND, Shown> m_windows;
    std::map<int, SDL_Cursor*> m_cursors;
    SDL_Cursor* m_ownCursor = nullptr;
    std::string m_alphaVisual;
    SDL_Keycode m_lastKey = SDLK_UNKNOWN;
    std::optional<POINT> m_pointerOfEvent;  // screen position for the next pointer event
    bool m_mayHaveLostKeyboard = false;
};

}  // namespace qvui::native
