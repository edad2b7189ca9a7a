#include "schema.h"

#include <qvui/skin/document_words.h>

namespace qvui::skin_tool {
namespace {

using Attributes = std::vector<EntryAttribute>;

std::string Joined(const DUI::DocumentWords& words)
{
    std::string text;
    for (const DUI::DocumentWord& entry : words)
        text.append(text.empty() ? "" : "|").append(entry.word);
    return text;
}

// Where a document, image or cursor comes from.
Attributes Source(const char* nameDescription, const Attributes& more = {})
{
    Attributes attributes{
        {"name", ValueKind::Text, nameDescription},
        {"config_type", ValueKind::ChoiceAny, "Where it comes from.", Joined(DUI::SourceWords())},
        {"file_name", ValueKind::FileName,
         "For file: the file, relative to the program's directory; for dll: the module that holds it."},
        {"resource_id", ValueKind::Integer, "For dll and exe: the resource's id."},
        {"resource_type", ValueKind::Text, "For dll and exe: the resource's type."},
    };
    attributes.insert(attributes.end(), more.begin(), more.end());
    return attributes;
}

DocumentSchema EntrySchema()
{
    return {"Entry document",
            "Lists the other documents of the package.",
            true,
            {
                {"language_set", "language", "The string tables, one for each language.", {},
                 EntryContent::Plain, Source("The language."),
                 {{"default", ValueKind::Text, "The language at the start."}}, DocumentKind::Strings},
                {"skin_set", "skin", "The resource documents, one for each skin.", {},
                 EntryContent::Plain, Source("The skin."),
                 {{"default", ValueKind::Text, "The skin at the start."}}, DocumentKind::Resources},
                {"style_set", "style", "The style documents, one for each skin.", {},
                 EntryContent::Plain, Source("The skin whose styles these are."), {}, DocumentKind::Styles},
                {"template_set", "template", "The template documents; all of them are loaded.", {},
                 EntryContent::Plain, Source("Free."), {}, DocumentKind::Templates},
                {"skin_package", nullptr, "Accepted; nothing is loaded from it.", {},
                 EntryContent::Plain, {}, {{"file", ValueKind::Text, "A package file."}}},
            }};
}

DocumentSchema StringsSchema()
{
    return {"String table",
            "The texts of one language. When an id stands twice, the first one counts.",
            false,
            {{nullptr, "string", "One text, the element's content.", NameKind::String, EntryContent::String,
              {{"id", ValueKind::Text, "What controls call the text."}}, {}}}};
}

SetSchema ImageSet()
{
    return {"image_set", "image", "Pictures, each a strip of equally large icons.", NameKind::Image,
            EntryContent::Plain,
            Source("What controls and styles call the image.",
                   {{"count", ValueKind::Integer, "How many icons the picture holds; 1 without it."},
                    {"direction", ValueKind::ChoiceAny,
                     "vert: the icons stand one above the other, not side by side.", "vert|horz"},
                    {"drawstyle", ValueKind::ChoiceAny,
                     "How an icon fills a larger rectangle; without it, it is stretched.",
                     Joined(DUI::DrawStyleWords())},
                    {"corner", ValueKind::IntPair,
                     "Width and height of the corners that keep their size in stretch_horz, stretch_vert and "
                     "squard; the first number alone counts in stretch_vert."},
                    {"alpha", ValueKind::Text, "Kept, but without effect."},
                    {"mask_color", ValueKind::Text, "Kept, but without effect."}}),
            {}};
}

DocumentSchema ResourcesSchema()
{
    return {"Resource document",
            "What a skin looks like.",
            false,
            {
                {"color_set", "color", "Named colours.", NameKind::Color, EntryContent::Plain,
                 {{"name", ValueKind::Text, "What controls and styles call the colour."},
                  {"value", ValueKind::LiteralColor, "The colour."}}, {}},
                {"cursor_set", "cursor", "Pointers.", NameKind::Cursor, EntryContent::Plain,
                 Source("What controls call the cursor."), {}},
                {"font_set", "font", "Fonts.", NameKind::Font, EntryContent::Plain,
                 {{"name", ValueKind::Text, "What text styles call the font."},
                  {"facename", ValueKind::StringId, "The typeface."},
                  {"height", ValueKind::Integer, "The cell height in pixels; negative: the em size."},
                  {"weight", ValueKind::Integer, "0 to 999; 400 is normal, 700 bold."},
                  {"italic", ValueKind::Boolean, "Whether it is italic."},
                  {"underline", ValueKind::Boolean, "Whether it is underlined."},
                  {"strikeout", ValueKind::Boolean, "Whether it is struck out."},
                  {"default", ValueKind::Boolean, "true: the font where none is named."}}, {}},
                ImageSet(),
            }};
}

DocumentSchema StylesSchema()
{
    return {"Style document",
            "Named styles of one skin.",
            false,
            {
                {"text_style_set", "text_style", "How text is drawn.", NameKind::TextStyle, EntryContent::Plain,
                 {{"name", ValueKind::Text, "What controls call the style."},
                  {"format", ValueKind::Flags, "Alignment and line breaks.", Joined(DUI::TextFormatWords())},
                  {"font", ValueKind::Font, "The font."},
                  {"font_hover", ValueKind::Font, "Below the pointer; without it, as font."},
                  {"font_select", ValueKind::Font, "Selected or pressed; without it, as font."},
                  {"font_disable", ValueKind::Font, "Disabled; without it, as font."},
                  {"normal_color", ValueKind::Color, "The text's colour."},
                  {"hover_color", ValueKind::Color, "Below the pointer."},
                  {"select_color", ValueKind::Color, "Selected or pressed."},
                  {"disable_color", ValueKind::Color, "Disabled."},
                  {"default", ValueKind::Boolean, "true: the style where none is named."}}, {}},
                {"frame_style_set", "frame_style", "Backgrounds and borders.", NameKind::FrameStyle,
                 EntryContent::Plain,
                 {{"name", ValueKind::Text, "What controls call the style."},
                  {"back_color", ValueKind::Colors, "One colour, or a gradient: start, end, middle."},
                  {"back_sep", ValueKind::Number,
                   "Where the middle colour stands: up to 1 a share of the length, above it pixels."},
                  {"back_vertical", ValueKind::Boolean, "Whether the gradient runs from top to bottom."},
                  {"back_image", ValueKind::Image, "The image over the colours."},
                  {"back_image_pos", ValueKind::Choice, "Where that image stands.",
                   Joined(DUI::ImagePositionWords())},
                  {"border_image", ValueKind::Image, "The image that the border is cut from."},
                  {"border_color", ValueKind::Color, "The border's colour."},
                  {"border_rect", ValueKind::Rect, "The border's thickness on each side."},
                  {"border_round", ValueKind::IntPair, "Width and height of the ellipse that rounds the corners."}},
                 {}},
                {"control_style_set", "control_style",
                 "Attributes that controls take over by control_style: any of theirs.",
                 NameKind::ControlStyle, EntryContent::ControlStyle,
                 {{"name", ValueKind::Text, "What controls call the style."}}, {}},
            }};
}

DocumentSchema TemplatesSchema()
{
    return {"Template document",
            "What windows hold. A later entry of the same name replaces an earlier one.",
            false,
            {
                {"menu_template", "menu", "Menus, for the application to read.", {}, EntryContent::Free,
                 {{"name", ValueKind::Text, "What the application calls the menu."}}, {}},
                {"window_template", "window", "Windows: one root control, and controls in it.", {},
                 EntryContent::Window, {}, {}},
                {"plugin_set", "plugin", "Plug-ins, for the application to read.", {}, EntryContent::Free,
                 {{"name", ValueKind::Text, "What the application calls the plug-in."},
                  {"file_name", ValueKind::FileName, "The module."},
                  {"entry_function", ValueKind::Text, "Its entry point."}}, {}},
            }};
}

}  // namespace

const DocumentSchema& SchemaOf(DocumentKind kind)
{
    static const DocumentSchema schemas[kDocumentKinds] = {EntrySchema(), StringsSchema(), ResourcesSchema(),
                                                           StylesSchema(), TemplatesSchema()};
    return schemas[static_cast<int>(kind)];
}

}  // namespace qvui::skin_tool
