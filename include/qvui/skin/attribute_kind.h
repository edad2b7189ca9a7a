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

}  // namespace DUI
