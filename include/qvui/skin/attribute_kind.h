#pragma once

#include <limits>

namespace DUI {

/// The kind of value that an attribute of a control or document entry takes; tools validate values by it.
enum class AttributeKind {
    Text,          // any text
    Character,     // only the first character is used
    StringId,      // a string id, or "#" and literal text
    Boolean,       // "true", or anything else for false
    Integer,       // decimal
    Number,        // decimal, with a fraction
    IntPair,       // two decimal numbers with one separator
    Rect,          // four decimal numbers: left, top, right, bottom
    Keywords,      // any of the keywords, matched as case-sensitive substrings
    Choice,        // one of the keywords
    ChoiceAny,     // one of the keywords, in any letter case
    Flags,         // any of the keywords, in any letter case
    Color,         // a literal colour or the name of one
    LiteralColor,  // a literal colour only
    ColorPair,     // two colours separated by a comma
    Colors,        // one to three colours separated by commas
    Image,         // the name of an entry of the skin, like the kinds below
    Cursor,
    Font,
    TextStyle,
    FrameStyle,
    ControlStyle,
    ControlName,  // the name of a control of the same window
    FileName,     // a file of the package
    Ignored,      // accepted without effect
};

/// The inclusive range of values of an Integer.
struct IntegerRange {
    int least = std::numeric_limits<int>::min();
    int most = std::numeric_limits<int>::max();

    constexpr bool Holds(long long number) const { return number >= least && number <= most; }
};

/// Effects of an attribute beyond its value. Tools warn by them, and the reference page lists them.
struct AttributeRules {
    // For controls. Lists of names are separated by "|".
    const char* resets = "";        // attributes that this one resets when it is written after them
    bool appliesStyle = false;      // also applies all attributes of the control style named by the value
    bool accumulates = false;       // a later value is added to earlier ones instead of replacing them
    bool isUnique = false;          // the value should be unique in a window: lookup finds only one control
                                    // with it
    const char* needsControl = "";  // name of a control without which the attribute has no effect
    // For colours.
    bool isFill = false;       // blended by alpha without clamping sums to 255
    bool emptyIsNone = false;  // a colour whose four bytes are all 0 paints nothing
    // For entries that a skin switch changes in place: the initial value. If the new skin omits the
    // attribute, the value of the previous skin remains. Null: the attribute is reset instead.
    const char* stays = nullptr;
    const char* shownBy = "";  // this attribute is visible only if the named one is set to another value than
                               // its initial one
    const char* lostBySwitch = "";  // values whose picture a skin switch cannot reload
};

}  // namespace DUI
