#pragma once

#include <qvui/platform/platform.h>

/// The system's edit menu, for controls that hold text.
namespace DUI::edit_menu {

inline constexpr UINT kCut = 768;
inline constexpr UINT kCopy = 769;
inline constexpr UINT kPaste = 770;
inline constexpr UINT kDelete = 771;
inline constexpr UINT kUndo = 772;
inline constexpr UINT kUndoToo = 199;  // as older menus number it
inline constexpr UINT kSelectAll = 177;

struct Commands {
    bool canUndo = false;
    bool canCut = false;
    bool canCopy = false;
    bool canPaste = false;
    bool canSelectAll = false;
};

/// Shows the menu and waits until the user has chosen; the command, or 0.
UINT Choose(const Commands& commands, HWND owner, POINT screen);

}  // namespace DUI::edit_menu
