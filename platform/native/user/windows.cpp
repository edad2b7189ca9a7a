// Classes, creation and destruction, the window tree.

#include <algorithm>
#include <cstring>

#include <qvui/platform/cstring.h>

#include "native/core/live_counts.h"
#include "native/kernel/code_pages.h"
#include "native/kernel/modules.h"
#include "native/user/window.h"

namespace qvui::native {
namespace {

[[maybe_unused]] const bool g_counted = RegisterLiveCount(&LiveCounts::windows, [] { return Windows().LiveCount(); });

std::vector<std::shared_ptr<WindowClass>>& Classes()
{
    static std::vector<std::shared_ptr<WindowClass>> classes;
    return classes;
}

std::shared_ptr<WindowClass> FindClass(LPCSTR name)
{
    for (const auto& known : Classes())
        if (!IS_INTRESOURCE(name) ? EqualNoCase(known->name, name)
                                  : &known == &Classes()[reinterpret_cast<ULONG_PTR>(name) - 1])
            return known;
    return nullptr;
}

}  // namespace

HandleTable<Window, 6>& Windows()
{
    static HandleTable<Window, 6> windows;
    return windows;
}

Window* LookUpWindow(HWND window) { return Windows().Peek(window); }

std::vector<HWND>& TopLevelWindows()
{
    static std::vector<HWND> windows;
    return windows;
}

std::vector<HWND>& SiblingsOf(const Window& window)
{
    Window* parent = window.IsChild() ? LookUpWindow(window.parent) : nullptr;
    return parent ? parent->children : TopLevelWindows();
}

Window* RootOf(Window& window)
{
    Window* root = &window;
    while (root->IsChild()) {
        Window* parent = LookUpWindow(root->parent);
        if (!parent)
            break;
        root = parent;
    }
    return root;
}

POINT ScreenOrigin(const Window& window)
{
    POINT origin{window.rect.left, window.rect.top};
    for (const Window* at = &window; at->IsChild();) {
        at = LookUpWindow(at->parent);
        if (!at)
            break;
        origin.x += at->rect.left;
        origin.y += at->rect.top;
    }
    return origin;
}

bool IsShown(const Window& window)
{
    for (const Window* at = &window; at; at = at->IsChild() ? LookUpWindow(at->parent) : nullptr)
        if (!(at->style & WS_VISIBLE) || (at->style & WS_MINIMIZE))
            return false;
    return true;
}

Region VisibleRegion(const Window& window)
{
    if (!IsShown(window))
        return Region();
    RECT area{0, 0, window.Width(), window.Height()};
    POINT offset{0, 0};
    for (const Window* at = &window; at->IsChild();) {
        const Window* parent = LookUpWindow(at->parent);
        if (!parent)
            break;
        offset.x += at->rect.left;
        offset.y += at->rect.top;
        area = Intersection(area, {-offset.x, -offset.y, parent->Width() - offset.x, parent->Height() - offset.y});
        at = parent;
    }
    Region visible(area);
    if (window.style & WS_CLIPCHILDREN)
        for (const HWND child : window.children)
            if (const Window* covering = LookUpWindow(child); covering && (covering->style & WS_VISIBLE))
                visible.Subtract(Region(covering->rect));
    if (window.IsChild() && (window.style & WS_CLIPSIBLINGS))
        for (const HWND sibling : SiblingsOf(window)) {
            if (sibling == window.handle)
                break;
            const Window* covering = LookUpWindow(sibling);
            if (!covering || !(covering->style & WS_VISIBLE))
                continue;
            Region covered(covering->rect);
            covered.Offset(-window.rect.left, -window.rect.top);
            visible.Subtract(covered);
        }
    return visible;
}

LRESULT CallProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const Window* found = LookUpWindow(window);
    return found && found->procedure ? found->procedure(window, message, wParam, lParam) : 0;
}

namespace {

struct Creation {
    HWND handle;
    CREATESTRUCTA parameters;
};

HWND AddWindow(const std::shared_ptr<WindowClass>& windowClass, const CREATESTRUCTA& parameters)
{
    auto window = std::make_shared<Window>();
    window->windowClass = windowClass;
    window->procedure = windowClass->definition.lpfnWndProc;
    window->style = static_cast<DWORD>(parameters.style) & ~WS_VISIBLE;
    window->exStyle = parameters.dwExStyle;
    window->title = parameters.lpszName ? parameters.lpszName : "";
    window->rect = {parameters.x, parameters.y, parameters.x + parameters.cx, parameters.y + parameters.cy};
    if (window->IsChild()) {
        window->parent = parameters.hwndParent;
        window->id = reinterpret_cast<LONG_PTR>(parameters.hMenu);
    } else if (Window* owner = LookUpWindow(parameters.hwndParent)) {
        window->owner = RootOf(*owner)->handle;
    }
    Window& created = *window;
    created.handle = static_cast<HWND>(Windows().Insert(std::move(window)));
    SiblingsOf(created).insert(SiblingsOf(created).begin(), created.handle);
    return created.handle;
}

void OpenOnDisplay(Window& window)
{
    window.surface = Surface::Create(std::max(window.Width(), 1), std::max(window.Height(), 1), 32, false);
    SurfaceOptions options;
    options.isDecorated = (window.style & WS_CAPTION) == WS_CAPTION;
    options.isSizable = (window.style & WS_THICKFRAME) != 0;
    options.isPopup = (window.exStyle & (WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE)) != 0;
    options.isPassive = (window.exStyle & WS_EX_NOACTIVATE) != 0;
    options.title = SystemToUtf8(window.title);
    TheDisplay().Open(window.handle, window.rect, options);
}

void NotifyParent(HWND child, UINT what)
{
    const Window* window = LookUpWindow(child);
    if (window && window->IsChild())
        SendMessageA(window->parent, WM_PARENTNOTIFY, MAKEWPARAM(what, static_cast<DWORD_PTR>(window->id)),
                     reinterpret_cast<LPARAM>(child));
}

void Erase(HWND handle)
{
    RemoveTimersOf(handle);
    RemoveMessagesOf(handle);
    ForgetWindow(handle);
    const Window* window = LookUpWindow(handle);
    if (!window)
        return;
    std::erase(SiblingsOf(*window), handle);
    if (!window->IsChild())
        TheDisplay().Close(handle);
    Windows().Remove(handle);
}

void DestroyTree(HWND handle)
{
    SendMessageA(handle, WM_DESTROY, 0, 0);
    Window* window = LookUpWindow(handle);
    if (!window)
        return;
    const std::vector<HWND> children = window->children;
    for (const HWND child : children)
        DestroyTree(child);
    SendMessageA(handle, WM_NCDESTROY, 0, 0);
    Erase(handle);
}

}  // namespace
}  // namespace qvui::native

using namespace qvui::native;

ATOM RegisterClassExA(const WNDCLASSEXA* windowClass)
{
    if (!windowClass || !windowClass->lpszClassName)
        return 0;
    if (FindClass(windowClass->lpszClassName)) {
        SetLastError(ERROR_CLASS_ALREADY_EXISTS);
        return 0;
    }
    auto added = std::make_shared<WindowClass>();
    added->name = windowClass->lpszClassName;
    added->definition = *windowClass;
    Classes().push_back(std::move(added));
    return static_cast<ATOM>(0xC000 + Classes().size());
}

BOOL UnregisterClassA(LPCSTR name, HINSTANCE)
{
    const auto found = FindClass(name);
    return found && std::erase(Classes(), found) > 0;
}

BOOL GetClassInfoExA(HINSTANCE, LPCSTR name, WNDCLASSEXA* windowClass)
{
    const auto found = FindClass(name);
    if (found)
        *windowClass = found->definition;
    return found != nullptr;
}

UINT RegisterWindowMessageA(LPCSTR name)
{
    constexpr UINT kFirst = 0xC000;
    static std::vector<std::string> names;
    for (std::size_t i = 0; i < names.size(); ++i)
        if (EqualNoCase(names[i], name))
            return kFirst + static_cast<UINT>(i);
    names.emplace_back(name);
    return kFirst + static_cast<UINT>(names.size()) - 1;
}

HWND CreateWindowExA(DWORD exStyle, LPCSTR className, LPCSTR title, DWORD style, int x, int y, int width, int height,
                     HWND parent, HMENU menu, HINSTANCE instance, LPVOID parameter)
{
    const std::shared_ptr<WindowClass> windowClass = className ? FindClass(className) : nullptr;
    if (!windowClass) {
        SetLastError(ERROR_CANNOT_FIND_WND_CLASS);
        return nullptr;
    }
    if ((style & WS_CHILD) && !LookUpWindow(parent)) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return nullptr;
    }
    const SIZE screen = style & WS_CHILD ? SIZE{0, 0} : TheDisplay().ScreenSize();
    if (width == CW_USEDEFAULT) {
        width = screen.cx * 3 / 4;
        height = screen.cy * 3 / 4;
    }
    if (x == CW_USEDEFAULT) {
        x = (screen.cx - width) / 2;
        y = (screen.cy - height) / 2;
    }
    CREATESTRUCTA parameters{parameter, instance,         menu, parent, std::max(height, 0), std::max(width, 0), y, x,
                             static_cast<LONG>(style), title, className, exStyle};
    const HWND handle = AddWindow(windowClass, parameters);
    const bool isChild = (style & WS_CHILD) != 0;
    if (!isChild)
        OpenOnDisplay(*LookUpWindow(handle));
    const auto lParam = reinterpret_cast<LPARAM>(&parameters);
    if (!SendMessageA(handle, WM_NCCREATE, 0, lParam)) {
        Erase(handle);
        return nullptr;
    }
    if (const Window* window = LookUpWindow(handle)) {
        RECT rect = window->rect;
        SendMessageA(handle, WM_NCCALCSIZE, FALSE, reinterpret_cast<LPARAM>(&rect));
    }
    if (SendMessageA(handle, WM_CREATE, 0, lParam) == -1) {
        DestroyWindow(handle);
        return nullptr;
    }
    if (isChild || (style & WS_POPUP)) {
        SendMessageA(handle, WM_SIZE, SIZE_RESTORED, MAKELPARAM(parameters.cx, parameters.cy));
        SendMessageA(handle, WM_MOVE, 0, MAKELPARAM(x, y));
    }
    NotifyParent(handle, WM_CREATE);
    if ((style & WS_VISIBLE) && LookUpWindow(handle))
        ShowWindow(handle, style & WS_MAXIMIZE ? SW_SHOWMAXIMIZED : SW_SHOW);
    return LookUpWindow(handle) ? handle : nullptr;
}

BOOL DestroyWindow(HWND handle)
{
    Window* window = LookUpWindow(handle);
    if (!window || window->isBeingDestroyed) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return FALSE;
    }
    window->isBeingDestroyed = true;
    NotifyParent(handle, WM_DESTROY);
    if (!window->IsChild()) {
        const std::vector<HWND> others = TopLevelWindows();
        for (const HWND other : others)
            if (const Window* owned = LookUpWindow(other); owned && owned->owner == handle)
                DestroyWindow(other);
    }
    if ((window = LookUpWindow(handle)) != nullptr && (window->style & WS_VISIBLE))
        SetWindowPos(handle, nullptr, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_HIDEWINDOW);
    FocusLeaves(handle);
    DestroyTree(handle);
    return TRUE;
}

BOOL IsWindow(HWND window) { return LookUpWindow(window) != nullptr; }

HWND GetParent(HWND handle)
{
    const Window* window = LookUpWindow(handle);
    if (!window)
        return nullptr;
    return window->IsChild() ? window->parent : window->style & WS_POPUP ? window->owner : nullptr;
}

HWND GetDesktopWindow() { return nullptr; }

HWND GetAncestor(HWND handle, UINT which)
{
    Window* window = LookUpWindow(handle);
    if (!window)
        return nullptr;
    if (which == GA_PARENT)
        return window->IsChild() ? window->parent : nullptr;
    Window* root = RootOf(*window);
    while (which == GA_ROOTOWNER && LookUpWindow(root->owner))
        root = RootOf(*LookUpWindow(root->owner));
    return root->handle;
}

HWND GetWindow(HWND handle, UINT relation)
{
    const Window* window = LookUpWindow(handle);
    if (!window)
        return nullptr;
    if (relation == GW_OWNER)
        return window->owner;
    if (relation == GW_CHILD)
        return window->children.empty() ? nullptr : window->children.front();
    const std::vector<HWND>& siblings = SiblingsOf(*window);
    const auto at = std::find(siblings.begin(), siblings.end(), handle);
    switch (relation) {
    case GW_HWNDFIRST:
        return siblings.front();
    case GW_HWNDLAST:
        return siblings.back();
    case GW_HWNDNEXT:
        return at + 1 == siblings.end() ? nullptr : *(at + 1);
    case GW_HWNDPREV:
        return at == siblings.begin() ? nullptr : *(at - 1);
    default:
        return nullptr;
    }
}

BOOL IsChild(HWND parent, HWND handle)
{
    for (const Window* window = LookUpWindow(handle); window && window->IsChild(); window = LookUpWindow(window->parent))
        if (window->parent == parent)
            return TRUE;
    return FALSE;
}

LONG_PTR GetWindowLongPtrA(HWND handle, int index)
{
    const Window* window = LookUpWindow(handle);
    if (!window)
        return 0;
    switch (index) {
    case GWLP_WNDPROC:
        return reinterpret_cast<LONG_PTR>(window->procedure);
    case GWL_STYLE:
        return static_cast<LONG>(window->style);
    case GWL_EXSTYLE:
        return static_cast<LONG>(window->exStyle);
    case GWLP_ID:
        return window->id;
    case GWLP_USERDATA:
        return window->userData;
    case GWLP_HWNDPARENT:
        return reinterpret_cast<LONG_PTR>(window->IsChild() ? window->parent : window->owner);
    default:
        const auto extra = window->extra.find(index);
        return extra == window->extra.end() ? 0 : extra->second;
    }
}

LONG_PTR SetWindowLongPtrA(HWND handle, int index, LONG_PTR value)
{
    Window* window = LookUpWindow(handle);
    if (!window)
        return 0;
    const LONG_PTR previous = GetWindowLongPtrA(handle, index);
    switch (index) {
    case GWLP_WNDPROC:
        window->procedure = reinterpret_cast<WNDPROC>(value);
        break;
    case GWL_STYLE:
        window->style = static_cast<DWORD>(value);
        break;
    case GWL_EXSTYLE:
        window->exStyle = static_cast<DWORD>(value);
        break;
    case GWLP_ID:
        window->id = value;
        break;
    case GWLP_USERDATA:
        window->userData = value;
        break;
    case GWLP_HWNDPARENT:
        (window->IsChild() ? window->parent : window->owner) = reinterpret_cast<HWND>(value);
        break;
    default:
        window->extra[index] = value;
    }
    return previous;
}

LONG GetWindowLongA(HWND window, int index) { return static_cast<LONG>(GetWindowLongPtrA(window, index)); }

LONG SetWindowLongA(HWND window, int index, LONG value)
{
    return static_cast<LONG>(SetWindowLongPtrA(window, index, value));
}

BOOL SetWindowTextA(HWND window, LPCSTR text)
{
    return LookUpWindow(window) && SendMessageA(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) != 0;
}

int GetWindowTextA(HWND window, LPSTR text, int capacity)
{
    if (!LookUpWindow(window) || capacity <= 0)
        return 0;
    return static_cast<int>(
        SendMessageA(window, WM_GETTEXT, static_cast<WPARAM>(capacity), reinterpret_cast<LPARAM>(text)));
}

int GetDlgCtrlID(HWND window) { return static_cast<int>(GetWindowLongPtrA(window, GWLP_ID)); }

BOOL EnableWindow(HWND handle, BOOL enable)
{
    Window* window = LookUpWindow(handle);
    if (!window)
        return FALSE;
    const bool wasDisabled = (window->style & WS_DISABLED) != 0;
    if (wasDisabled == !enable)
        return wasDisabled;
    if (!enable)
        SendMessageA(handle, WM_CANCELMODE, 0, 0);
    if ((window = LookUpWindow(handle)) == nullptr)
        return wasDisabled;
    window->style = enable ? window->style & ~WS_DISABLED : window->style | WS_DISABLED;
    if (!enable && GetFocus() == handle)
        SetFocus(nullptr);
    SendMessageA(handle, WM_ENABLE, static_cast<WPARAM>(enable != FALSE), 0);
    return wasDisabled;
}

BOOL IsWindowEnabled(HWND handle)
{
    const Window* window = LookUpWindow(handle);
    return window && !(window->style & WS_DISABLED);
}

BOOL IsWindowVisible(HWND handle)
{
    for (const Window* window = LookUpWindow(handle); window;) {
        if (!(window->style & WS_VISIBLE))
            return FALSE;
        if (!window->IsChild())
            return TRUE;
        window = LookUpWindow(window->parent);
    }
    return FALSE;
}

BOOL IsIconic(HWND handle) { return (GetWindowLongA(handle, GWL_STYLE) & static_cast<LONG>(WS_MINIMIZE)) != 0; }

BOOL IsZoomed(HWND handle) { return (GetWindowLongA(handle, GWL_STYLE) & static_cast<LONG>(WS_MAXIMIZE)) != 0; }

HWND GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous)
{
    const Window* parent = LookUpWindow(dialog);
    if (!parent)
        return nullptr;
    // Children in the order in which they were made; the list runs from the topmost, which is the newest.
    std::vector<HWND> stops(parent->children.rbegin(), parent->children.rend());
    std::erase_if(stops, [](HWND child) {
        const Window* window = LookUpWindow(child);
        return !window || !(window->style & WS_TABSTOP) || !(window->style & WS_VISIBLE) ||
               (window->style & WS_DISABLED);
    });
    if (stops.empty())
        return control;
    if (previous)
        std::reverse(stops.begin(), stops.end());
    const auto at = std::find(stops.begin(), stops.end(), control);
    return at == stops.end() || at + 1 == stops.end() ? stops.front() : *(at + 1);
}
