#pragma once

#include <optional>
#include <vector>

#include <qvui/skin/attribute_kind.h>
#include <qvui/skin/document_words.h>

namespace DUI {

/// The kinds of objects that a package names.
enum class NameKind { String, Color, Font, Image, Cursor, TextStyle, FrameStyle, ControlStyle };
constexpr int kNameKinds = 8;

/// The documents of a package: the entry document and those that it lists.
enum class DocumentKind { Entry, Strings, Resources, Styles, Templates };
constexpr int kDocumentKinds = 5;

/// An attribute of an entry or of a set.
struct EntryAttribute {
    const char* name;
    AttributeKind kind;
    const char* description;
    DocumentWords (*words)() = nullptr;  // the allowed words of a choice or flags
    IntegerRange range = {};             // of an integer: other values are not used as written
    AttributeRules rules = {};
};

/// What the attributes and children of an entry may be.
enum class EntryContent {
    Plain,         // only the listed attributes
    String,        // the listed attributes; the element content is the text
    Window,        // a window template: attributes of the window manager, and controls
    ControlStyle,  // attributes of controls
    Free,          // anything
};

struct SetSchema {
    const char* set;    // null: entries are direct children of the root
    const char* entry;  // null: the set has no entries
    const char* description;
    std::optional<NameKind> names;  // what the entries define
    EntryContent content = EntryContent::Plain;
    std::vector<EntryAttribute> attributes;      // of an entry
    std::vector<EntryAttribute> setAttributes;   // of the set itself
    std::optional<DocumentKind> documents = {};  // which documents the entries refer to
};

/// One kind of document, with its sets in the required order.
struct DocumentSchema {
    const char* title;
    const char* description;
    bool isFirstOfEachKind;  // only the first set of each kind is read
    std::vector<SetSchema> sets;
};

/// Describes what the library reads from a document, except controls. Lives until the process ends.
QVUI_API const DocumentSchema& SchemaOf(DocumentKind kind);

}  // namespace DUI
