#pragma once

#include <string>

#include <qvui/controls/rows/list_box.h>

#include "controls/text/wide_text.h"

namespace DUI {

/// Finds items of a list by what is typed.
class TypeAhead {
public:
    /// The item that a byte of a typed character leads to, from the one after `current` on; -1 for none yet.
    /// `now` is in milliseconds: after a second's pause a new word begins.
    int Type(char byte, CDUIListBox& list, int current, DWORD now);

private:
    int Find(CDUIListBox& list, int from) const;

    wide_text::CharacterAssembler m_assembler;
    CString m_typed;
    DWORD m_last = 0;
};

}  // namespace DUI
