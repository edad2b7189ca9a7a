// Which errors of the X server reach whoever handled them before, while SDL runs and while it ends.

#include <string>

#include <gtest/gtest.h>

// After the test library, whose words the X headers define away.
#include <SDL_loadso.h>
#include <X11/Xlib.h>
#include <X11/Xproto.h>

#include "native/display/sdl/x11_errors.h"

using namespace qvui;

namespace {

int g_toApplication = 0;
int g_toSdl = 0;
XErrorHandler g_underSdl = nullptr;

int Application(::Display*, XErrorEvent*)
{
    return ++g_toApplication;
}

// As SDL's, which passes on what it sees.
int Sdl(::Display* display, XErrorEvent* error)
{
    ++g_toSdl;
    return g_underSdl(display, error);
}

XErrorHandler Set(XErrorHandler handler)
{
    static const auto set = reinterpret_cast<decltype(&XSetErrorHandler)>(
        SDL_LoadFunction(SDL_LoadObject("libX11.so.6"), "XSetErrorHandler"));
    return set(handler);
}

// Who sees an error that the server reports now.
std::string Report(unsigned char code, unsigned char request)
{
    g_toApplication = g_toSdl = 0;
    const XErrorHandler current = Set(nullptr);
    Set(current);
    XErrorEvent error{};
    error.error_code = code;
    error.request_code = request;
    current(nullptr, &error);
    return std::string(g_toSdl ? "SDL " : "") + (g_toApplication ? "application" : "");
}

}  // namespace

TEST(LateWakeUps, AreForgivenWhileSdlRunsAndWhileItEnds)
{
    const XErrorHandler before = Set(&Application);
    {
        native::LateWakeUpGuard guard;
        g_underSdl = Set(&Sdl);
        guard.CoverSdl();
        EXPECT_EQ(Report(BadWindow, X_SendEvent), "");
        EXPECT_EQ(Report(BadWindow, X_MapWindow), "SDL application");
        EXPECT_EQ(Report(BadValue, X_SendEvent), "SDL application");
        Set(g_underSdl);
        EXPECT_EQ(Report(BadWindow, X_SendEvent), "");
        EXPECT_EQ(Report(BadWindow, X_MapWindow), "application");
    }
    EXPECT_EQ(Report(BadWindow, X_SendEvent), "application");
    {
        native::LateWakeUpGuard guard;
        g_underSdl = Set(&Sdl);
    }
    EXPECT_EQ(Report(BadWindow, X_MapWindow), "SDL application") << "a later handler stays in its place";
    Set(before);
}
