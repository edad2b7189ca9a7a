#include <qvui/skin/document_schema.h>

#include "skin/entry_fields.h"
#include "skin/source_fields.h"

namespace DUI {
namespace {

// Formatted by hand, because the sets are easier to read as a table.
// clang-format off
DocumentSchema EntrySchema()
{
    const auto start = [](const char* description) {
        return EntryAttributes{{"default", AttributeKind::Text, description}};
    };
    return {"Entry document",
            "Lists the other documents of the package.",
            true,
            {
                {"language_set", "language", "The string tables, one for each language.", {},
                 EntryContent::Plain, SourceAttributes("The language."), start("The language at the start."),
                 DocumentKind::Strings},
                {"skin_set", "skin", "The resource documents, one for each skin.", {}, EntryContent::Plain,
                 SourceAttributes("The skin."), start("The skin at the start."), DocumentKind::Resources},
                {"style_set", "style", "The style documents, one for each skin.", {}, EntryContent::Plain,
                 SourceAttributes("The skin whose styles these are."), {}, DocumentKind::Styles},
                {"template_set", "template", "The template documents; all of them are loaded.", {},
                 EntryContent::Plain, SourceAttributes("Free."), {}, DocumentKind::Templates},
                {"skin_package", nullptr, "Accepted; nothing is loaded from it.", {}, EntryContent::Plain, {},
                 {{"file", AttributeKind::Text, "A package file."}}},
            }};
}

DocumentSchema StringsSchema()
{
    return {"String table",
            "The texts of one language. When an id stands twice, the first one counts.",
            false,
            {{nullptr, "string", "One text, the element's content.", NameKind::String, EntryContent::String,
              StringAttributes(), {}}}};
}

DocumentSchema ResourcesSchema()
{
    return {"Resource document",
            "What a skin looks like.",
            false,
            {
                {"color_set", "color", "Named colours.", NameKind::Color, EntryContent::Plain,
                 ColorAttributes(), {}},
                {"cursor_set", "cursor", "Pointers.", NameKind::Cursor, EntryContent::Plain,
                 CursorAttributes(), {}},
                {"font_set", "font", "Fonts.", NameKind::Font, EntryContent::Plain, FontAttributes(), {}},
                {"image_set", "image", "Pictures, each a strip of equally large icons.", NameKind::Image,
                 EntryContent::Plain, ImageAttributes(), {}},
            }};
}

DocumentSchema StylesSchema()
{
    return {"Style document",
            "Named styles of one skin.",
            false,
            {
                {"text_style_set", "text_style", "How text is drawn.", NameKind::TextStyle,
                 EntryContent::Plain, TextStyleAttributes(), {}},
                {"frame_style_set", "frame_style", "Backgrounds and borders.", NameKind::FrameStyle,
                 EntryContent::Plain, FrameStyleAttributes(), {}},
                {"control_style_set", "control_style",
                 "Attributes that controls take over by control_style: any of theirs.",
                 NameKind::ControlStyle, EntryContent::ControlStyle,
                 {{"name", AttributeKind::Text, "What controls call the style."}}, {}},
            }};
}

DocumentSchema TemplatesSchema()
{
    return {"Template document",
            "What windows hold. A later entry of the same name replaces an earlier one.",
            false,
            {
                {"menu_template", "menu", "Menus, for the application to read.", {}, EntryContent::Free,
                 {{"name", AttributeKind::Text, "What the application calls the menu."}}, {}},
                {"window_template", "window", "Windows: one root control, and controls in it.", {},
                 EntryContent::Window, {}, {}},
                {"plugin_set", "plugin", "Plug-ins, for the application to read.", {}, EntryContent::Free,
                 {{"name", AttributeKind::Text, "What the application calls the plug-in."},
                  {"file_name", AttributeKind::FileName, "The module."},
                  {"entry_function", AttributeKind::Text, "Its entry point."}}, {}},
            }};
}
// clang-format on

}  // namespace

const DocumentSchema& SchemaOf(DocumentKind kind)
{
    static const DocumentSchema schemas[kDocumentKinds] = {EntrySchema(), StringsSchema(), ResourcesSchema(),
                                                           StylesSchema(), TemplatesSchema()};
    return schemas[static_cast<int>(kind)];
}

}  // namespace DUI
