#include "native/display/sdl/x11_window.h"

#include <SDL_syswm.h>

#include <vector>

#if defined(SDL_VIDEO_DRIVER_X11)

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/shape.h>

namespace qvui::native {
namespace {

struct XWindow {
    ::Display* display = nullptr;
    ::Window window = 0;
};

// Returns null handles if the window is not on an X server.
XWindow Find(SDL_Window* window)
{
    SDL_SysWMinfo info;
    SDL_VERSION(&info.version);
    if (!window || !SDL_GetWindowWMInfo(window, &info) || info.subsystem != SDL_SYSWM_X11)
        return {};
    return {info.info.x11.display, info.info.x11.window};
}

}  // namespace

void SetX11Shape(SDL_Window* window, const Region* shape)
{
    const XWindow found = Find(window);
    if (!found.display)
        return;
    if (!shape) {
        XShapeCombineMask(found.display, found.window, ShapeBounding, 0, 0, 0, ShapeSet);
        return;
    }
    std::vector<XRectangle> rectangles;
    for (const pixman_box32_t& box : shape->Boxes())
        rectangles.push_back({static_cast<short>(box.x1), static_cast<short>(box.y1),
                              static_cast<unsigned short>(box.x2 - box.x1),
                              static_cast<unsigned short>(box.y2 - box.y1)});
    XShapeCombineRectangles(found.display, found.window, ShapeBounding, 0, 0, rectangles.data(),
                            static_cast<int>(rectangles.size()), ShapeSet, YXBanded);
    XFlush(found.display);
}

std::optional<POINT> X11PointerOf(const SDL_SysWMEvent& event)
{
    if (!event.msg || event.msg->subsystem != SDL_SYSWM_X11)
        return std::nullopt;
    const XEvent& native = event.msg->msg.x11.event;
    switch (native.type) {
        case MotionNotify:
            return POINT{native.xmotion.x_root, native.xmotion.y_root};
        case ButtonPress:
        case ButtonRelease:
            return POINT{native.xbutton.x_root, native.xbutton.y_root};
        case EnterNotify:
        case LeaveNotify:
            return POINT{native.xcrossing.x_root, native.xcrossing.y_root};
        case GenericEvent: {
            // A move reported by the XInput extension, whose data has been freed by now. The current position
            // is close enough.
            POINT now{};
            SDL_GetGlobalMouseState(&now.x, &now.y);
            return now;
        }
        default:
            return std::nullopt;
    }
}

void RaiseX11Window(SDL_Window* window)
{
    const XWindow found = Find(window);
    if (!found.display)
        return;
    XRaiseWindow(found.display, found.window);
    XFlush(found.display);
}

void SetX11Owner(SDL_Window* window, SDL_Window* owner)
{
    const XWindow found = Find(window);
    const XWindow above = Find(owner);
    if (found.display && above.display)
        XSetTransientForHint(found.display, found.window, above.window);
}

std::string X11AlphaVisual()
{
    const char* driver = SDL_GetCurrentVideoDriver();
    ::Display* display = driver && std::string(driver) == "x11" ? XOpenDisplay(nullptr) : nullptr;
    if (!display)
        return {};
    XVisualInfo visual{};
    const bool hasAlpha = XMatchVisualInfo(display, DefaultScreen(display), 32, TrueColor, &visual) != 0;
    std::string id = hasAlpha ? std::to_string(visual.visualid) : std::string();
    XCloseDisplay(display);
    return id;
}

}  // namespace qvui::native

#else

namespace qvui::native {

void SetX11Shape(SDL_Window*, const Region*)
{
}
std::optional<POINT> X11PointerOf(const SDL_SysWMEvent&)
{
    return std::nullopt;
}
void RaiseX11Window(SDL_Window* window)
{
    SDL_RaiseWindow(window);
}
void SetX11Owner(SDL_Window*, SDL_Window*)
{
}
std::string X11AlphaVisual()
{
    return {};
}

}  // namespace qvui::native

#endif
