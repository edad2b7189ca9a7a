#pragma once

#include <limits>

namespace DUI {

/// What kind of value an attribute of a control or of a document's entry takes; tools check values by it.
enum class AttributeKind {
    Text,          // any text
    Character,     // the first character counts
    StringId,      // a string id, or "#" and literal text
    Boolean,       // "true" or anything else
    Integer,       // decimal
    Number,        // decimal, with a fraction
    IntPair,       // two decimals, one separator between
    Rect,          // four decimals: left, top, right, bottom
    Keywords,      // any of the keywords, searched as case-sensitive substrings
    Choice,        // one of the keywords
    ChoiceAny,     // one of the keywords, in any letter case
    Flags,         // any of the keywords, in any letter case
    Color,         // a literal colour or the name of one
    LiteralColor,  // a literal colour alone
    ColorPair,     // two colours with a comma between
    Colors,        // one to three colours with commas between
    Image,         // names of the skin's entries
    Cursor,
    Font,
    TextStyle,
    FrameStyle,
    ControlStyle,
    ControlName,  // the name of a control of the same window
    FileName,     // a file of the package
    Ignored,      // accepted without effect
};

/// The whole numbers that an Integer may be, both ends among them.
struct IntegerRange {
    int least = std::numeric_limits<int>::min();
    int most = std::numeric_limits<int>::max();

    constexpr bool Holds(long long number) const { return number >= least && number <= most; }
};

/// What an attribute does besides taking its value. Tools warn by it, and the reference page says it.
struct AttributeRules {
    // Of controls. Lists of names have "|" between.
    const char* resets = "";        // attributes that lose their value when this one is written after them
    bool appliesStyle = false;      // so do all attributes that the control style named here holds
    bool accumulates = false;       // a later value adds to an earlier one, and undoes nothing of it
    bool isUnique = false;          // a search of the window finds one control that has the value, no other
    const char* needsControl = "";  // the name of a control without which the attribute has no effect
    // Of colours.
    bool isFill = false;       // blended into what is below, by alpha, without a bound for sums beyond 255
    bool emptyIsNone = false;  // a colour whose four bytes are 0 paints nothing
    // Of entries that a switch of skins changes in place: the value before any skin sets one. A skin without
    // the attribute shows the value of the skin before. Null: such a skin has the value anew.
    const char* stays = nullptr;
    const char* shownBy = "";  // the attribute that must be set, and not as before any skin, to show this one
    const char* lostBySwitch = "";  // values whose picture a switch cannot load again
};

}  // namespace DUI
