// Exported functions for menus.

#include <algorithm>
#include <cstring>

#include "native/kernel/modules.h"
#include "native/user/desktop.h"
#include "native/user/menus.h"

using namespace qvui::native;

namespace {

constexpr int kEditMenu = 1;
constexpr UINT kSelectAll = 177;
constexpr UINT kReadingOrder = 0x8000;
constexpr UINT kShowControlCharacters = 0x8001;

HMENU HandleOf(const std::shared_ptr<Menu>& menu)
{
    if (!menu->handle)
        menu->handle = static_cast<HMENU>(TheDesktop().menus.Insert(menu));
    return menu->handle;
}

// The system's context menu of text fields.
std::shared_ptr<Menu> MakeEditMenu()
{
    auto commands = std::make_shared<Menu>();
    auto characters = std::make_shared<Menu>();
    commands->items = {{WM_UNDO, "&Undo", true, nullptr},
                       {},
                       {WM_CUT, "Cu&t", true, nullptr},
                       {WM_COPY, "&Copy", true, nullptr},
                       {WM_PASTE, "&Paste", true, nullptr},
                       {WM_CLEAR, "&Delete", true, nullptr},
                       {},
                       {kSelectAll, "Select &All", true, nullptr},
                       {},
                       {kReadingOrder, "&Right to left Reading order", true, nullptr},
                       {kShowControlCharacters, "&Show Unicode control characters", true, nullptr},
                       {0, "&Insert Unicode control character", true, characters}};
    auto bar = std::make_shared<Menu>();
    bar->items = {{0, "Edit", true, commands}};
    return bar;
}

Menu::Item* FindItem(Menu& menu, UINT item, UINT flags)
{
    if (flags & MF_BYPOSITION)
        return item < menu.items.size() ? &menu.items[item] : nullptr;
    const auto found = std::find_if(menu.items.begin(), menu.items.end(), [item](const Menu::Item& one) {
        return !one.IsSeparator() && one.id == item;
    });
    return found == menu.items.end() ? nullptr : &*found;
}

void Forget(Menu& menu)
{
    for (Menu::Item& item : menu.items)
        if (item.submenu)
            Forget(*item.submenu);
    if (menu.handle)
        TheDesktop().menus.Remove(menu.handle);
}

}  // namespace

Menu* qvui::native::LookUpMenu(HMENU menu)
{
    return TheDesktop().menus.Peek(menu);
}

HMENU LoadMenuA(HINSTANCE module, LPCSTR name)
{
    // Only the system's edit menu can be loaded.
    if (module != GetModuleHandleA("user32.dll") || name != MAKEINTRESOURCEA(kEditMenu)) {
        SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return nullptr;
    }
    return HandleOf(MakeEditMenu());
}

HMENU GetSubMenu(HMENU handle, int position)
{
    Menu* menu = LookUpMenu(handle);
    Menu::Item* item =
        menu && position >= 0 ? FindItem(*menu, static_cast<UINT>(position), MF_BYPOSITION) : nullptr;
    return item && item->submenu ? HandleOf(item->submenu) : nullptr;
}

int GetMenuItemCount(HMENU handle)
{
    const Menu* menu = LookUpMenu(handle);
    return menu ? static_cast<int>(menu->items.size()) : -1;
}

UINT GetMenuItemID(HMENU handle, int position)
{
    const Menu* menu = LookUpMenu(handle);
    if (!menu || position < 0 || position >= static_cast<int>(menu->items.size()))
        return static_cast<UINT>(-1);
    const Menu::Item& item = menu->items[static_cast<std::size_t>(position)];
    return item.submenu ? static_cast<UINT>(-1) : item.id;
}

UINT GetMenuState(HMENU handle, UINT item, UINT flags)
{
    Menu* menu = LookUpMenu(handle);
    const Menu::Item* found = menu ? FindItem(*menu, item, flags) : nullptr;
    if (!found)
        return static_cast<UINT>(-1);
    return (found->isEnabled ? MF_ENABLED : MF_GRAYED) | (found->IsSeparator() ? MF_SEPARATOR : 0U);
}

BOOL EnableMenuItem(HMENU handle, UINT item, UINT flags)
{
    Menu* menu = LookUpMenu(handle);
    Menu::Item* found = menu ? FindItem(*menu, item, flags) : nullptr;
    if (!found)
        return -1;
    const bool wasEnabled = std::exchange(found->isEnabled, (flags & (MF_GRAYED | MF_DISABLED)) == 0);
    return wasEnabled ? MF_ENABLED : MF_GRAYED;
}

BOOL RemoveMenu(HMENU handle, UINT item, UINT flags)
{
    Menu* menu = LookUpMenu(handle);
    const Menu::Item* found = menu ? FindItem(*menu, item, flags) : nullptr;
    if (!found)
        return FALSE;
    menu->items.erase(menu->items.begin() + (found - menu->items.data()));
    return TRUE;
}

BOOL DestroyMenu(HMENU handle)
{
    Menu* menu = LookUpMenu(handle);
    if (!menu)
        return FALSE;
    const std::shared_ptr<Menu> keep = TheDesktop().menus.Find(handle);
    Forget(*menu);
    return TRUE;
}

BOOL TrackPopupMenu(HMENU handle, UINT flags, int x, int y, int, HWND owner, const RECT*)
{
    const std::shared_ptr<Menu> menu = TheDesktop().menus.Find(handle);
    if (!menu)
        return FALSE;
    const UINT command = ChooseFromMenu(*menu, {x, y}, owner);
    if (flags & TPM_RETURNCMD)
        return static_cast<BOOL>(command);
    if (command)
        PostMessageA(owner, WM_COMMAND, command, 0);
    return TRUE;
}
