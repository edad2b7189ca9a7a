// The system's edit menu over a rich edit.

#include "controls/text/edit_menu.h"

#include <initializer_list>

namespace DUI::edit_menu {
namespace {

constexpr UINT kReadingOrder = 32768;
constexpr UINT kShowControlCharacters = 32769;
constexpr UINT kInsertCharacterAt = 11;
constexpr UINT kSeparatorAt = 8;
constexpr int kEditMenu = 1;

}  // namespace

UINT Choose(const Commands& commands, HWND owner, POINT screen)
{
    const HMENU bar = LoadMenuA(GetModuleHandleA("user32.dll"), MAKEINTRESOURCEA(kEditMenu));
    const HMENU menu = GetSubMenu(bar, 0);
    if (!menu) {
        DestroyMenu(bar);
        return 0;
    }
    struct State {
        UINT command;
        bool isEnabled;
    };
    const State states[] = {{kUndo, commands.canUndo},  {kCut, commands.canCut},
                            {kCopy, commands.canCopy},  {kPaste, commands.canPaste},
                            {kDelete, commands.canCut}, {kSelectAll, commands.canSelectAll}};
    for (const State& state : states)
        EnableMenuItem(menu, state.command, MF_BYCOMMAND | (state.isEnabled ? MF_ENABLED : MF_GRAYED));
    RemoveMenu(menu, kInsertCharacterAt, MF_BYPOSITION);
    RemoveMenu(menu, kSeparatorAt, MF_BYPOSITION);
    RemoveMenu(menu, kShowControlCharacters, MF_BYCOMMAND);
    RemoveMenu(menu, kReadingOrder, MF_BYCOMMAND);
    const BOOL chosen =
        TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON, screen.x, screen.y, 0, owner, nullptr);
    DestroyMenu(bar);
    return static_cast<UINT>(chosen);
}

}  // namespace DUI::edit_menu
