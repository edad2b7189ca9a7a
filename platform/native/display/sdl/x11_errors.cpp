#include "native/display/sdl/x11_errors.h"

#include <cstring>

#include <SDL_loadso.h>
#include <SDL_video.h>
#include <X11/Xlib.h>
#include <X11/Xproto.h>

namespace qvui::native {
namespace {

XErrorHandler g_previous = nullptr;

int OnError(::Display* display, XErrorEvent* error)
{
    if (error->error_code == BadWindow && error->request_code == X_SendEvent)
        return 0;
    return g_previous ? g_previous(display, error) : 0;
}

}  // namespace

void ForgiveLateWakeUps()
{
    const char* const driver = SDL_GetCurrentVideoDriver();
    if (g_previous || !driver || std::strcmp(driver, "x11") != 0)
        return;
    // SDL has loaded the library by itself, so it is there, and it must stay.
    void* const library = SDL_LoadObject("libX11.so.6");
    if (!library)
        return;
    if (void* const set = SDL_LoadFunction(library, "XSetErrorHandler"))
        g_previous = reinterpret_cast<decltype(&XSetErrorHandler)>(set)(&OnError);
}

}  // namespace qvui::native
