// Window classes and registered messages.

#include <algorithm>
#include <cstring>

#include <qvui/platform/cstring.h>

#include "native/user/window.h"

namespace qvui::native {
namespace {

constexpr UINT kFirstAtom = 0xC000;

std::vector<std::shared_ptr<WindowClass>>& Classes()
{
    static auto& classes = *new std::vector<std::shared_ptr<WindowClass>>();
    return classes;
}

bool HasWindows(const WindowClass& windowClass)
{
    bool has = false;
    Windows().ForEach(
        [&](const void*, const Window& window) { has = has || window.windowClass.get() == &windowClass; });
    return has;
}

}  // namespace

std::shared_ptr<WindowClass> FindClass(LPCSTR name)
{
    const bool isAtom = IS_INTRESOURCE(name);
    const auto atom = static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(name));
    for (const auto& known : Classes())
        if (isAtom ? known->atom == atom : EqualNoCase(known->name, name))
            return known;
    return nullptr;
}

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
    static ATOM lastAtom = kFirstAtom;
    auto added = std::make_shared<WindowClass>();
    added->name = windowClass->lpszClassName;
    added->atom = ++lastAtom;
    added->definition = *windowClass;
    added->definition.lpszClassName = added->name.c_str();
    Classes().push_back(added);
    return added->atom;
}

BOOL UnregisterClassA(LPCSTR name, HINSTANCE)
{
    const auto found = FindClass(name);
    return found && !HasWindows(*found) && std::erase(Classes(), found) > 0;
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
    static std::vector<std::string> names;
    for (std::size_t i = 0; i < names.size(); ++i)
        if (EqualNoCase(names[i], name))
            return kFirstAtom + static_cast<UINT>(i);
    names.emplace_back(name);
    return kFirstAtom + static_cast<UINT>(names.size()) - 1;
}
