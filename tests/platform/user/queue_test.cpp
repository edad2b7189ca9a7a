// The message queue: order, filters, quitting, nesting, and what happens to messages of windows that are gone.

#include "platform/user/window_test.h"
#include "support/input_source.h"

using namespace qvui::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class Queue : public WindowTest {
protected:
    PlatformWindow window{Popup("w")};

    /// The number of the next pending message, WM_NULL for none; dispatches it.
    UINT Take()
    {
        MSG message{};
        if (!PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
            return WM_NULL;
        DispatchMessageA(&message);
        return message.message;
    }
};

}  // namespace

TEST_F(Queue, TakesPostedThenInputAndQuitThenPaint)
{
    const POINT inside{150, 150};
    InjectMove(inside);
    Settle();
    InvalidateRect(window.Handle(), nullptr, FALSE);
    PostQuitMessage(3);
    InjectButton(VK_LBUTTON, true);
    InjectButton(VK_LBUTTON, false);
    PostMessageA(window.Handle(), WM_APP, 0, 0);
    PostMessageA(nullptr, WM_APP + 1, 0, 0);
    PostMessageA(window.Handle(), WM_APP + 2, 0, 0);
    std::vector<UINT> taken;
    while (const UINT number = Take())
        taken.push_back(number);
    // Between input and WM_QUIT the order is the platform's own business.
    std::erase(taken, WM_QUIT);
    EXPECT_THAT(taken, ElementsAre(WM_APP, WM_APP + 1, WM_APP + 2, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_PAINT));
}

TEST_F(Queue, PostedMessagesOfAllWindowsAndTheThreadAreOneLine)
{
    const PlatformWindow other(Popup("other", {400, 100, 500, 200}));
    Settle();
    PostMessageA(other.Handle(), WM_APP + 1, 1, 2);
    PostMessageA(window.Handle(), WM_APP + 2, 0, 0);
    PostMessageA(nullptr, WM_APP + 3, 5, 6);
    MSG message{};
    ASSERT_TRUE(GetMessageA(&message, nullptr, 0, 0));
    EXPECT_EQ(message.hwnd, other.Handle());
    EXPECT_EQ(message.wParam, 1U);
    EXPECT_EQ(message.lParam, 2);
    ASSERT_TRUE(GetMessageA(&message, nullptr, 0, 0));
    EXPECT_EQ(message.message, WM_APP + 2);
    ASSERT_TRUE(GetMessageA(&message, nullptr, 0, 0));
    EXPECT_EQ(message.hwnd, nullptr);
    EXPECT_EQ(message.lParam, 6);
    EXPECT_EQ(DispatchMessageA(&message), 0);
}

TEST_F(Queue, FiltersByWindowAndNumber)
{
    const PlatformWindow other(Popup("other", {400, 100, 500, 200}));
    const PlatformWindow child(Child("child", window, {0, 0, 10, 10}));
    Settle();
    PostMessageA(other.Handle(), WM_APP + 1, 0, 0);
    PostMessageA(child.Handle(), WM_APP + 2, 0, 0);
    PostMessageA(window.Handle(), WM_APP + 3, 0, 0);
    MSG message{};
    ASSERT_TRUE(PeekMessageA(&message, nullptr, WM_APP + 3, WM_APP + 4, PM_NOREMOVE));
    EXPECT_EQ(message.message, WM_APP + 3);
    ASSERT_TRUE(PeekMessageA(&message, window.Handle(), 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, WM_APP + 2) << "children belong to the window";
    ASSERT_TRUE(PeekMessageA(&message, window.Handle(), 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, WM_APP + 3);
    EXPECT_FALSE(PeekMessageA(&message, window.Handle(), WM_APP, WM_APP + 9, PM_REMOVE));
    EXPECT_EQ(Take(), WM_APP + 1);
}

TEST_F(Queue, LookingAtAMessageLeavesItInItsPlace)
{
    Settle();
    InjectMove({150, 150});
    MSG message{};
    ASSERT_TRUE(PeekMessageA(&message, nullptr, WM_MOUSEMOVE, WM_MOUSEMOVE, PM_NOREMOVE));
    PostMessageA(window.Handle(), WM_APP, 0, 0);
    EXPECT_EQ(Take(), WM_APP);
    EXPECT_EQ(Take(), WM_MOUSEMOVE);
}

TEST_F(Queue, QuitComesOnceWithTheLastCode)
{
    Settle();
    PostQuitMessage(3);
    PostQuitMessage(5);
    PostMessageA(window.Handle(), WM_APP, 0, 0);
    MSG message{};
    EXPECT_TRUE(GetMessageA(&message, nullptr, 0, 0));
    EXPECT_EQ(message.message, WM_APP);
    EXPECT_FALSE(GetMessageA(&message, nullptr, 0, 0));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 5U);
    EXPECT_FALSE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
}

TEST_F(Queue, SendMessageCallsDirectlyNestsAndPumpsNothing)
{
    Settle();
    int depth = 0;
    int deepest = 0;
    bool sawPosted = false;
    const ScopedHandler handler(window, [&](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message == WM_APP)
            sawPosted = true;
        if (message.message != WM_APP + 1)
            return std::nullopt;
        deepest = std::max(deepest, ++depth);
        const LRESULT below = message.wParam > 0 ? SendMessageA(message.handle, WM_APP + 1, message.wParam - 1, 0) : 0;
        --depth;
        return below + 1;
    });
    PostMessageA(window.Handle(), WM_APP, 0, 0);
    EXPECT_EQ(SendMessageA(window.Handle(), WM_APP + 1, 20, 0), 21);
    EXPECT_EQ(deepest, 21);
    EXPECT_FALSE(sawPosted);
    Pump();
    EXPECT_TRUE(sawPosted);
}

TEST_F(Queue, MessagesOfADestroyedWindowVanish)
{
    PlatformWindow gone(Popup("gone", {400, 100, 500, 200}));
    const HWND handle = gone.Handle();
    Settle();
    PostMessageA(handle, WM_APP, 0, 0);
    PostMessageA(window.Handle(), WM_APP + 1, 0, 0);
    gone.Destroy();
    Settle();
    EXPECT_THAT(log.Lines({WM_APP}), IsEmpty());
    SetLastError(0);
    EXPECT_FALSE(PostMessageA(handle, WM_APP, 0, 0));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
    EXPECT_EQ(SendMessageA(handle, WM_APP, 0, 0), 0);
}

TEST_F(Queue, HandlersMayPostAndTheLoopGoesOn)
{
    int count = 0;
    const ScopedHandler handler(window, [&](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message != WM_APP)
            return std::nullopt;
        if (++count < 50)
            PostMessageA(message.handle, WM_APP, 0, 0);
        return 0;
    });
    PostMessageA(window.Handle(), WM_APP, 0, 0);
    Pump();
    EXPECT_EQ(count, 50);
}

TEST_F(Queue, RegisteredMessagesAreTheSameForTheSameName)
{
    const UINT first = RegisterWindowMessageA("qvui test message");
    EXPECT_GE(first, 0xC000U);
    EXPECT_EQ(RegisterWindowMessageA("QVUI TEST MESSAGE"), first);
    EXPECT_NE(RegisterWindowMessageA("qvui other test message"), first);
}
