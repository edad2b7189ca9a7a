#pragma once

#include <memory>
#include <string>
#include <vector>

#include <qvui/platform/native/user.h>

namespace qvui::native {

/// A menu: a list of commands, separators and submenus.
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
    HMENU handle = nullptr;  // allocated on first request
};

/// Returns the menu of a handle, or null.
Menu* LookUpMenu(HMENU menu);

/// Shows a menu with a corner at a screen position, kept inside the screen that contains it, and lets the
/// user choose with pointer and keys. Returns the command, or 0. Also closes when `owner` is destroyed or
/// loses the mouse capture.
UINT ChooseFromMenu(const Menu& menu, POINT screen, HWND owner);

}  // namespace qvui::native
