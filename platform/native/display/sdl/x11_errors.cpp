#include "native/display/sdl/x11_errors.h"

#include <SDL_loadso.h>
#include <X11/Xlib.h>
#include <X11/Xproto.h>

namespace qvui::native {
namespace {

enum Layer { kUnderSdl, kOverSdl };

decltype(&XSetErrorHandler) g_setHandler = nullptr;
XErrorHandler g_next[2]{};  // for each layer, the handler that other errors are passed to

template <Layer layer>
int OnError(::Display* display, XErrorEvent* error)
{
    if (error->error_code == BadWindow && error->request_code == X_SendEvent)
        return 0;
    return g_next[layer] ? g_next[layer](display, error) : 0;
}

}  // namespace

LateWakeUpGuard::LateWakeUpGuard()
{
    // SDL loads the same library itself, so it must not be unloaded.
    if (void* const library = SDL_LoadObject("libX11.so.6"))
        if (void* const set = SDL_LoadFunction(library, "XSetErrorHandler"))
            g_setHandler = reinterpret_cast<decltype(g_setHandler)>(set);
    if (g_setHandler)
        g_next[kUnderSdl] = g_setHandler(&OnError<kUnderSdl>);
}

void LateWakeUpGuard::CoverSdl()
{
    if (g_setHandler)
        g_next[kOverSdl] = g_setHandler(&OnError<kOverSdl>);
}

LateWakeUpGuard::~LateWakeUpGuard()
{
    if (!g_setHandler)
        return;
    // A handler that the application has installed over ours is kept.
    const XErrorHandler current = g_setHandler(g_next[kUnderSdl]);
    if (current != &OnError<kUnderSdl> && current != &OnError<kOverSdl>)
        g_setHandler(current);
}

}  // namespace qvui::native
