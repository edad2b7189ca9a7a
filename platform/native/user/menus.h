#pragma once

#include <memory>
#include <string>
#include <vector>

#include <qvui/platform/native/user.h>

namespace qvui::native {

/// A menu: a list of commands, separators and further menus.
struct Menu {
    struct Item {
        UINT id = 0;
        std::string text;  // UTF-8 with "&" before the mnemonic; empty for a separator
        bool isEnabled = true;
        std::shared_ptr<Menu> submenu;

        bool IsSeparator() const { return text.empty(); }
        bool IsChoosable() const { return isEnabled && !IsSeparator() && !submenu; }
    };
    std::vector<Item> items;
    HMENU handle = nullptr;  // once somebody asked for it
};

/// The menu of a handle, or null.
Menu* LookUpMenu(HMENU menu);

/// Shows a menu with a corner at a point of the screen, inside of the screen that the point is on, and lets
/// the user choose with pointer and keys. The command, or 0. Closes also when `owner` goes or loses the
/// mouse.
UINT ChooseFromMenu(const Menu& menu, POINT screen, HWND owner);

}  // namespace qvui::native
