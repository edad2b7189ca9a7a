#pragma once

#include <optional>
#include <string>
#include <vector>

#include "values.h"

namespace qvui::skin_tool {

/// One attribute of an entry or of a set.
struct EntryAttribute {
    const char* name;
    ValueKind kind;
    const char* description;
    std::string keywords = {};
};

/// What else an entry's attributes and children may be.
enum class EntryContent {
    Plain,         // the attributes listed, and nothing more
    String,        // the same, and its content is the text
    Window,        // a window template: the window manager's attributes, and controls
    ControlStyle,  // the attributes of controls
    Free,          // anything
};

enum class DocumentKind { Entry, Strings, Resources, Styles, Templates };
constexpr int kDocumentKinds = 5;

struct SetSchema {
    const char* set;    // null: entries stand right under the root
    const char* entry;  // null: the set has none
    const char* description;
    std::optional<NameKind> names;  // what the entries define
    EntryContent content = EntryContent::Plain;
    std::vector<EntryAttribute> attributes;     // of an entry
    std::vector<EntryAttribute> setAttributes;  // of the set itself
    std::optional<DocumentKind> documents = {};  // what the entries name
};

/// One kind of document: its sets in the order in which they must stand.
struct DocumentSchema {
    const char* title;
    const char* description;
    bool isFirstOfEachKind;  // the first set of each kind is read, and no further one
    std::vector<SetSchema> sets;
};

/// What a document of a package may hold besides controls.
const DocumentSchema& SchemaOf(DocumentKind kind);

}  // namespace qvui::skin_tool
