#pragma once

#include <qvui/platform/platform.h>

namespace writer {

/// What a user can ask for: by a button of the name, or by a key.
enum class Command {
    New,
    Open,
    Save,
    SaveAs,
    Close,
    Undo,
    Redo,
    Bold,
    Italic,
    Underline,
    Left,
    Centre,
    Right,
    Black,
    Blue,
    Red,
    Green,
    Find,
    FindNext,
    FindPrevious,
    Dismiss,
    Accept,
    Discard,
    Language
};

struct CommandEntry {
    Command command;
    const char* control;  // empty for none
    WPARAM key;           // virtual key; 0 for none
    bool isCtrl;
    bool isShift;
};

/// Null when no command has the button's name, or the key with these modifiers.
const CommandEntry* FindCommand(const char* control);
const CommandEntry* FindCommand(WPARAM key, bool isCtrl, bool isShift);

}  // namespace writer
