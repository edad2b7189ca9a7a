#include <gtest/gtest.h>

#include "support/controls/control_test.h"

namespace qvui::test {
namespace {

class ActiveXHost : public ControlTest {};

TEST_F(ActiveXHost, HasAWindowClassOnceTheApplicationIsInitialised)
{
    WNDCLASSEXA host{};
    host.cbSize = sizeof host;
    EXPECT_TRUE(GetClassInfoExA(GetModuleHandleA(nullptr), "AtlAxWin90", &host));
    const HWND window = CreateWindowExA(0, "AtlAxWin90", "", WS_POPUP, 0, 0, 8, 8, nullptr, nullptr,
                                        GetModuleHandleA(nullptr), nullptr);
    EXPECT_NE(window, nullptr);
    DestroyWindow(window);
}

}  // namespace
}  // namespace qvui::test
