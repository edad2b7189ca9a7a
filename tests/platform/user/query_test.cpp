// Questions about the window tree, and handles that are stale.

#include "platform/user/window_test.h"

using namespace qvui::test;
using testing::ElementsAre;

namespace {

class Query : public WindowTest {
protected:
    PlatformWindow top{Popup("top")};
};

}  // namespace

TEST_F(Query, ParentIsParentOrOwnerOfAPopup)
{
    const PlatformWindow child(Child("child", top, {0, 0, 10, 10}));
    const PlatformWindow grandchild(Child("grandchild", child, {0, 0, 10, 10}));
    struct Case {
        const char* name;
        DWORD style;
        HWND given;
        HWND parent;
        HWND owner;
    };
    const std::vector<Case> cases{
        {"child", WS_CHILD, child.Handle(), child.Handle(), nullptr},
        {"owned popup", WS_POPUP, top.Handle(), top.Handle(), top.Handle()},
        {"unowned popup", WS_POPUP, nullptr, nullptr, nullptr},
        {"owned overlapped", WS_OVERLAPPED, top.Handle(), nullptr, top.Handle()},
        {"a child given as owner", WS_POPUP, grandchild.Handle(), top.Handle(), top.Handle()},
    };
    for (const Case& c : cases) {
        PlatformWindowOptions options = Hidden(Popup("w"));
        options.style = c.style;
        options.parent = c.given;
        const PlatformWindow window(options);
        EXPECT_EQ(GetParent(window.Handle()), c.parent) << c.name;
        EXPECT_EQ(GetWindow(window.Handle(), GW_OWNER), c.owner) << c.name;
    }
    EXPECT_EQ(GetAncestor(grandchild.Handle(), GA_ROOT), top.Handle());
    EXPECT_EQ(GetAncestor(grandchild.Handle(), GA_PARENT), child.Handle());
    EXPECT_TRUE(IsChild(top.Handle(), grandchild.Handle()));
    EXPECT_FALSE(IsChild(grandchild.Handle(), top.Handle()));
    EXPECT_FALSE(IsChild(top.Handle(), top.Handle()));
}

TEST_F(Query, RootOwnerGoesThroughOwners)
{
    PlatformWindowOptions options = Hidden(Popup("owned"));
    options.parent = top.Handle();
    const PlatformWindow owned(options);
    const PlatformWindow child(Child("child", owned, {0, 0, 10, 10}));
    EXPECT_EQ(GetAncestor(child.Handle(), GA_ROOT), owned.Handle());
    EXPECT_EQ(GetAncestor(child.Handle(), GA_ROOTOWNER), top.Handle());
}

TEST_F(Query, TabItemsGoRoundAndSkipWhatCannotTakeTheFocus)
{
    EXPECT_EQ(GetNextDlgTabItem(top.Handle(), nullptr, FALSE), nullptr);
    PlatformWindowOptions plain = Child("plain", top, {0, 0, 10, 10});
    const PlatformWindow still(plain);
    EXPECT_EQ(GetNextDlgTabItem(top.Handle(), still.Handle(), FALSE), still.Handle());
    const auto stop = [&](const char* name, DWORD more, DWORD less = 0) {
        PlatformWindowOptions options = Child(name, top, {0, 0, 10, 10});
        options.style = (options.style | WS_TABSTOP | more) & ~less;
        return std::make_unique<PlatformWindow>(options);
    };
    const auto first = stop("first", 0);
    const auto disabled = stop("disabled", WS_DISABLED);
    const auto hidden = stop("hidden", 0, WS_VISIBLE);
    const auto second = stop("second", 0);
    const auto third = stop("third", 0);
    const auto next = [&](HWND from, BOOL previous) { return GetNextDlgTabItem(top.Handle(), from, previous); };
    EXPECT_EQ(next(nullptr, FALSE), first->Handle());
    EXPECT_EQ(next(first->Handle(), FALSE), second->Handle());
    EXPECT_EQ(next(third->Handle(), FALSE), first->Handle());
    EXPECT_EQ(next(first->Handle(), TRUE), third->Handle());
    EXPECT_EQ(next(third->Handle(), TRUE), second->Handle());
}

TEST_F(Query, StaleHandlesAnswerNothing)
{
    PlatformWindow gone(Popup("gone", {400, 100, 500, 200}));
    const HWND handle = gone.Handle();
    gone.Destroy();
    const PlatformWindow successor(Popup("successor", {400, 100, 500, 200}));
    for (const HWND stale : {handle, reinterpret_cast<HWND>(INT_PTR{0x1234568}), HWND{nullptr}}) {
        RECT rect{};
        POINT point{};
        EXPECT_FALSE(IsWindow(stale));
        EXPECT_EQ(GetParent(stale), nullptr);
        EXPECT_FALSE(GetClientRect(stale, &rect));
        EXPECT_FALSE(GetWindowRect(stale, &rect));
        EXPECT_FALSE(ShowWindow(stale, SW_SHOW));
        EXPECT_FALSE(IsWindowVisible(stale));
        EXPECT_FALSE(IsWindowEnabled(stale));
        EXPECT_EQ(GetWindowLongPtrA(stale, GWLP_USERDATA), 0);
        EXPECT_FALSE(DestroyWindow(stale));
        EXPECT_FALSE(SetWindowTextA(stale, "text"));
        EXPECT_EQ(GetDlgCtrlID(stale), 0);
        if (stale) {
            EXPECT_FALSE(ClientToScreen(stale, &point));
            EXPECT_EQ(GetDC(stale), nullptr);
            EXPECT_FALSE(InvalidateRect(stale, nullptr, FALSE));
        }
    }
    EXPECT_TRUE(IsWindow(successor.Handle()));
}

TEST_F(Query, ValuesBelongToTheWindow)
{
    const HWND handle = top.Handle();
    EXPECT_EQ(SetWindowLongPtrA(handle, GWLP_USERDATA, 1234), 0);
    EXPECT_EQ(SetWindowLongPtrA(handle, GWLP_USERDATA, 5678), 1234);
    EXPECT_EQ(GetWindowLongPtrA(handle, GWLP_USERDATA), 5678);
    EXPECT_TRUE(GetWindowLongA(handle, GWL_STYLE) & WS_VISIBLE);
    PlatformWindowOptions options = Hidden(Popup("long title"));
    const PlatformWindow other(options);
    EXPECT_FALSE(GetWindowLongA(other.Handle(), GWL_STYLE) & WS_VISIBLE);
    EXPECT_TRUE(SetWindowTextA(handle, "new title"));
    char text[20] = "";
    EXPECT_EQ(GetWindowTextA(handle, text, sizeof text), 9);
    EXPECT_STREQ(text, "new title");
    EXPECT_EQ(GetWindowTextLengthA(handle), 9);
}

TEST_F(Query, TheProcedureCanBeReplacedAndCalled)
{
    static WNDPROC original = nullptr;
    const auto replacement = [](HWND handle, UINT message, WPARAM wParam, LPARAM lParam) CALLBACK -> LRESULT {
        if (message == WM_APP)
            return 99;
        return CallWindowProcA(original, handle, message, wParam, lParam);
    };
    top.SetHandler([](const LoggedMessage& message) -> std::optional<LRESULT> {
        return message.message >= WM_APP ? std::optional<LRESULT>(7) : std::nullopt;
    });
    original = reinterpret_cast<WNDPROC>(SetWindowLongPtrA(top.Handle(), GWLP_WNDPROC,
                                                           reinterpret_cast<LONG_PTR>(static_cast<WNDPROC>(replacement))));
    EXPECT_EQ(SendMessageA(top.Handle(), WM_APP, 0, 0), 99);
    EXPECT_EQ(SendMessageA(top.Handle(), WM_APP + 1, 0, 0), 7);
    SetWindowLongPtrA(top.Handle(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(original));
    EXPECT_EQ(SendMessageA(top.Handle(), WM_APP, 0, 0), 7);
}

TEST_F(Query, ClassesAreFoundByName)
{
    WNDCLASSEXA definition{};
    definition.cbSize = sizeof definition;
    definition.lpfnWndProc = DefWindowProcA;
    definition.hInstance = GetModuleHandleA(nullptr);
    definition.lpszClassName = "qvui query class";
    definition.style = CS_DBLCLKS;
    const ATOM atom = RegisterClassExA(&definition);
    EXPECT_NE(atom, 0);
    EXPECT_EQ(RegisterClassExA(&definition), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_CLASS_ALREADY_EXISTS));
    WNDCLASSEXA found{};
    found.cbSize = sizeof found;
    EXPECT_TRUE(GetClassInfoExA(definition.hInstance, "QVUI QUERY CLASS", &found));
    EXPECT_EQ(found.style, static_cast<UINT>(CS_DBLCLKS));
    const HWND byAtom = CreateWindowExA(0, MAKEINTRESOURCEA(atom), "", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                        definition.hInstance, nullptr);
    EXPECT_NE(byAtom, nullptr);
    char name[32] = "";
    EXPECT_EQ(GetClassNameA(byAtom, name, sizeof name), 16);
    EXPECT_STREQ(name, "qvui query class");
    EXPECT_FALSE(UnregisterClassA("qvui query class", definition.hInstance)) << "in use";
    DestroyWindow(byAtom);
    EXPECT_TRUE(UnregisterClassA("qvui query class", definition.hInstance));
    EXPECT_FALSE(GetClassInfoExA(definition.hInstance, "qvui query class", &found));
}
