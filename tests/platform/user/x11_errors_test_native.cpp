// Which errors of the X server reach whoever handled them before, while SDL runs and while it ends.

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

struct Reached {
    int sdl;
    int application;

    friend bool operator==(const Reached& a, const Reached& b)
    {
        return a.sdl == b.sdl && a.application == b.application;
    }
};

class LateWakeUps : public testing::Test {
protected:
    LateWakeUps() : m_before(Set(&Application)) {}
    ~LateWakeUps() override { Set(m_before); }

    static XErrorHandler Set(XErrorHandler handler)
    {
        static const auto set = reinterpret_cast<decltype(&XSetErrorHandler)>(
            SDL_LoadFunction(SDL_LoadObject("libX11.so.6"), "XSetErrorHandler"));
        return set(handler);
    }

    /// Who sees an error that the server reports now.
    static Reached Report(unsigned char code, unsigned char request)
    {
        g_toApplication = g_toSdl = 0;
        const XErrorHandler current = Set(nullptr);
        Set(current);
        XErrorEvent error{};
        error.error_code = code;
        error.request_code = request;
        current(nullptr, &error);
        return {g_toSdl, g_toApplication};
    }

private:
    XErrorHandler m_before;
};

constexpr Reached kNobody{0, 0};
constexpr Reached kApplication{0, 1};
constexpr Reached kBoth{1, 1};

}  // namespace

TEST_F(LateWakeUps, AreForgivenWhileSdlRunsAndWhileItEnds)
{
    {
        native::LateWakeUpGuard guard;
        g_underSdl = Set(&Sdl);
        guard.CoverSdl();
        EXPECT_EQ(Report(BadWindow, X_SendEvent), kNobody);
        EXPECT_EQ(Report(BadWindow, X_MapWindow), kBoth);
        EXPECT_EQ(Report(BadValue, X_SendEvent), kBoth);
        Set(g_underSdl);
        EXPECT_EQ(Report(BadWindow, X_SendEvent), kNobody);
        EXPECT_EQ(Report(BadWindow, X_MapWindow), kApplication);
    }
    EXPECT_EQ(Report(BadWindow, X_SendEvent), kApplication);
}

TEST_F(LateWakeUps, LeaveALaterHandlerInItsPlace)
{
    {
        native::LateWakeUpGuard guard;
        g_underSdl = Set(&Sdl);
    }
    EXPECT_EQ(Report(BadWindow, X_MapWindow), kBoth);
}
