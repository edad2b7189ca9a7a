// Window classes: the exported functions.

#include "native/user/classes.h"
#include "native/user/desktop.h"

using namespace qvui::native;

namespace {

constexpr UINT kFirstAtom = 0xC000;

bool HasWindows(const WindowClass& windowClass)
{
    bool has = false;
    TheDesktop().windows.ForEach(
        [&](const void*, const Window& window) { has = has || window.windowClass.get() == &windowClass; });
    return has;
}

}  // namespace

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
    added->atom = ++TheDesktop().lastClassAtom;
    added->definition = *windowClass;
    added->definition.lpszClassName = added->name.c_str();
    TheDesktop().classes.push_back(added);
    return added->atom;
}

BOOL UnregisterClassA(LPCSTR name, HINSTANCE)
{
    const auto found = FindClass(name);
    return found && !HasWindows(*found) && std::erase(TheDesktop().classes, found) > 0;
}

BOOL GetClassInfoExA(HINSTANCE, LPCSTR name, WNDCLASSEXA* windowClass)
{
    const auto found = FindClass(name);
    if (found)
        *windowClass = found->definition;
    return found != nullptr;
}

int GetClassNameA(HWND handle, LPSTR text, int capacity)
{
    const Window* window = LookUpWindow(handle);
    if (!window || capacity <= 0)
        return 0;
    const std::string& name = window->windowClass->name;
    const std::size_t length = std::min(name.size(), static_cast<std::size_t>(capacity) - 1);
    std::memcpy(text, name.data(), length);
    text[length] = '\0';
    return static_cast<int>(length);
}

UINT RegisterWindowMessageA(LPCSTR name)
{
    std::vector<std::string>& names = TheDesktop().registeredMessages;
    for (std::size_t i = 0; i < names.size(); ++i)
        if (EqualNoCase(names[i], name))
            return kFirstAtom + static_cast<UINT>(i);
    names.emplace_back(name);
    return kFirstAtom + static_cast<UINT>(names.size()) - 1;
}
