#pragma once

#include <optional>
#include <vector>

#include <qvui/skin/attribute_kind.h>
#include <qvui/skin/document_words.h>

namespace DUI {

/// What a package gives names to.
enum class NameKind { String, Color, Font, Image, Cursor, TextStyle, FrameStyle, ControlStyle };
constexpr int kNameKinds = 8;

/// The documents of a package: the entry, and those that it lists.
enum class DocumentKind { Entry, Strings, Resources, Styles, Templates };
constexpr int kDocumentKinds = 5;

/// One attribute of an entry or of a set.
struct EntryAttribute {
    const char* name;
    AttributeKind kind;
    const char* description;
    DocumentWords (*words)() = nullptr;  // of a choice or flags
    IntegerRange range = {};             // of an integer: the library takes no other as it is written
    AttributeRules rules = {};
};

/// What else an entry's attributes and children may be.
enum class EntryContent {
    Plain,         // the attributes listed, and nothing more
    String,        // the same, and its content is the text
    Window,        // a window template: the window manager's attributes, and controls
    ControlStyle,  // the attributes of controls
    Free,          // anything
};

struct SetSchema {
    const char* set;    // null: entries stand right under the root
    const char* entry;  // null: the set has none
    const char* description;
    std::optional<NameKind> names;  // what the entries define
    EntryContent content = EntryContent::Plain;
    std::vector<EntryAttribute> attributes;      // of an entry
    std::vector<EntryAttribute> setAttributes;   // of the set itself
    std::optional<DocumentKind> documents = {};  // what the entries name
};

/// One kind of document: its sets in the order in which they must stand.
struct DocumentSchema {
    const char* title;
    const char* description;
    bool isFirstOfEachKind;  // the first set of each kind is read, and no further one
    std::vector<SetSchema> sets;
};

/// What the library reads from a document besides controls. Lives until the process ends.
QVUI_API const DocumentSchema& SchemaOf(DocumentKind kind);

}  // namespace DUI
