#include "dump.h"

#include <cstdio>

#include <nlohmann/json.hpp>

#include <qvui/skin/document_words.h>
#include <qvui/skin/text_style.h>

#include "resolved.h"

namespace qvui::skin_tool {
namespace {

using Json = nlohmann::ordered_json;

std::string ColorText(const DUI::CARGB& color)
{
    char text[16];
    std::snprintf(text, sizeof text, "#%02X%02X%02X%02X", color.GetA(), color.GetR(), color.GetG(),
                  color.GetB());
    return text;
}

Json FontValue(const DUI::CRefPtr<DUI::CFontObject>& font)
{
    if (font.IsNull())
        return nullptr;
    Json value{
        {"face", ToUtf8(font->GetFaceName())}, {"height", font->GetHeight()}, {"weight", font->GetWeight()}};
    if (font->GetItalic())
        value["italic"] = true;
    if (font->GetUnderline())
        value["underline"] = true;
    if (font->GetStrikeout())
        value["strikeout"] = true;
    return value;
}

std::string DrawStyleName(DUI::IMAGE_DRAW_STYLE style)
{
    for (const DUI::DocumentWord& entry : DUI::DrawStyleWords())
        if (entry.value == style)
            return entry.word;
    return "normal";
}

// Where a picture or cursor comes from.
Json SourceValue(const Element& record)
{
    const auto text = [&record](const char* attribute) { return ToUtf8(record.Value(attribute)); };
    switch (DUI::SourceOf(record.Value("config_type"))) {
        case DUI::DocumentSource::Dll:
            return {{"module", text("file_name")},
                    {"resource_id", text("resource_id")},
                    {"resource_type", text("resource_type")}};
        case DUI::DocumentSource::Exe:
            return {{"resource_id", text("resource_id")}, {"resource_type", text("resource_type")}};
        default:
            return {{"file", text("file_name")}};
    }
}

Json ImageValue(ResolvedSkin& skin, const std::string& name)
{
    Json value = SourceValue(*skin.Find(NameKind::Image, name));
    const DUI::CDUIImageListPtr image = skin.Manager().GetImage(name.c_str(), 1);
    if (!image || image->IsNull()) {
        value["loads"] = false;
        return value;
    }
    value["size"] = {image->GetWidth(), image->GetHeight()};
    value["icons"] = image->GetItemCount();
    value["icon_size"] = {image->GetIconWidth(), image->GetIconHeight()};
    value["drawstyle"] = DrawStyleName(image->GetDrawStyle());
    value["corner"] = {image->GetCornerWidth(), image->GetCornerHeight()};
    return value;
}

Json CursorValue(ResolvedSkin& skin, const std::string& name)
{
    const auto cursor = skin.Manager().GetCursor(name.c_str(), 1);
    Json value = SourceValue(*skin.Find(NameKind::Cursor, name));
    value["loads"] = !cursor.IsNull() && !cursor->IsNull();
    return value;
}

// The words of a text style's format; those without a bit of their own are left out.
std::string FormatText(DWORD format)
{
    std::string text;
    for (const DUI::DocumentWord& entry : DUI::TextFormatWords()) {
        const auto bits = static_cast<DWORD>(entry.value);
        if (bits != 0 && (format & bits) == bits)
            text.append(text.empty() ? "" : "|").append(entry.word);
    }
    return text;
}

Json TextStyleValue(ResolvedSkin& skin, const std::string& name)
{
    const DUI::CRefPtr<DUI::CTextStyle> style = skin.Manager().GetTextStyle(name.c_str());
    return {
        {"format", FormatText(style->GetTextFormat())},
        {"normal",
         {{"font", FontValue(style->GetNormalFont())}, {"color", ColorText(style->GetNormalColor())}}},
        {"hover", {{"font", FontValue(style->GetHoverFont())}, {"color", ColorText(style->GetHoverColor())}}},
        {"select",
         {{"font", FontValue(style->GetSelectFont())}, {"color", ColorText(style->GetSelectColor())}}},
        {"disable",
         {{"font", FontValue(style->GetDisableFont())}, {"color", ColorText(style->GetDisableColor())}}}};
}

Json ColorsOf(const DUI::CDUIFrameBK& frame)
{
    DUI::CARGB start;
    DUI::CARGB end;
    DUI::CARGB middle;
    double separator = 0;
    int isVertical = 0;
    frame.GetBKCOlor(start, end, middle, separator, isVertical);
    Json value;
    if (!frame.IsTreeColorEmpty())
        value = {{"start", ColorText(start)},
                 {"middle", ColorText(middle)},
                 {"end", ColorText(end)},
                 {"separator", separator},
                 {"vertical", isVertical != 0}};
    else if (!frame.IsTwoColorEmpty())
        value = {{"start", ColorText(start)}, {"end", ColorText(end)}, {"vertical", isVertical != 0}};
    else if (!frame.IsOneColorEmpty())
        value = ColorText(frame.GetBKColor());
    return value;
}

Json FrameStyleValue(ResolvedSkin& skin, const std::string& name)
{
    const DUI::CRefPtr<DUI::CDUIFrameBK> frame = skin.Manager().GetFrameBK(name.c_str());
    const Element& element = *skin.Find(NameKind::FrameStyle, name);
    Json value = Json::object();
    if (const Json colors = ColorsOf(*frame.GetPtr()); !colors.is_null())
        value["colors"] = colors;
    for (const char* const image : {"back_image", "border_image"})
        if (element.Find(image))
            value[image] = ToUtf8(element.Value(image));
    const RECT border = frame->GetFrameBorder();
    int width = 0;
    int height = 0;
    frame->GetFrameRound(width, height);
    value["border"] = {border.left, border.top, border.right, border.bottom};
    value["round"] = {width, height};
    if (!frame->GetFrameColor().IsEmpty())
        value["border_color"] = ColorText(frame->GetFrameColor());
    return value;
}

Json ControlStyleValue(ResolvedSkin& skin, const std::string& name)
{
    Json value = Json::object();
    for (const Attribute& attribute : skin.Find(NameKind::ControlStyle, name)->attributes)
        if (attribute.name != "name")
            value[ToUtf8(attribute.name)] = ToUtf8(attribute.value);
    return value;
}

struct Section {
    const char* title;
    NameKind kind;
    Json (*value)(ResolvedSkin&, const std::string&);
};
const Section kSections[] = {
    {"colors", NameKind::Color,
     [](ResolvedSkin& skin, const std::string& name) {
         return Json(ColorText(skin.Manager().GetColor(name.c_str())));
     }},
    {"fonts", NameKind::Font,
     [](ResolvedSkin& skin, const std::string& name) {
         return FontValue(skin.Manager().GetFont(name.c_str(), 1));
     }},
    {"cursors", NameKind::Cursor, CursorValue},
    {"images", NameKind::Image, ImageValue},
    {"text_styles", NameKind::TextStyle, TextStyleValue},
    {"frame_styles", NameKind::FrameStyle, FrameStyleValue},
    {"control_styles", NameKind::ControlStyle, ControlStyleValue},
};

Json SkinValue(const Package& package, const std::string& name)
{
    ResolvedSkin skin(package, name, "");
    Json value = Json::object();
    for (const Section& section : kSections) {
        Json entries = Json::object();
        for (const std::string& entry : skin.Names(section.kind))
            entries[ToUtf8(entry)] = section.value(skin, entry);
        if (!entries.empty())
            value[section.title] = std::move(entries);
    }
    return value;
}

Json LanguageValue(const Package& package, const std::string& language)
{
    ResolvedSkin skin(package, "", language);
    Json value = Json::object();
    for (const std::string& id : skin.Names(NameKind::String)) {
        CString text;
        skin.Manager().GetString(id.c_str(), text);
        value[ToUtf8(id)] = ToUtf8(text.View());
    }
    return value;
}

Json TemplatesValue(const Package& package)
{
    Json value = Json::object();
    Report ignored;
    for (const PackageDocument* part : package.OfKind(DocumentKind::Templates))
        if (part->IsUsable())
            for (const SeenEntry& seen : SeenEntries(*part->document, part->kind, ignored))
                if (seen.entryElement >= 0)
                    value[seen.set->entry].push_back(
                        ToUtf8(part->document->At(seen.entryElement).Value("name")));
    return value;
}

std::string ScalarText(const Json& value)
{
    return value.is_string() ? value.get<std::string>()
                             : value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

// A value that holds no object stands on its name's line; another one is indented below it.
void Write(const Json& value, int depth, std::string& text)
{
    for (const auto& [name, entry] : value.items()) {
        text.append(static_cast<std::size_t>(depth) * 2, ' ').append(name);
        if (entry.is_object() && !entry.empty()) {
            text += ":\n";
            Write(entry, depth + 1, text);
        } else {
            text.append(": ").append(ScalarText(entry)).append("\n");
        }
    }
}

}  // namespace

std::string Dump(const Package& package, bool isJson)
{
    Json dump{{"skins", Json::object()}, {"languages", Json::object()}};
    for (const PackageDocument* skin : package.OfKind(DocumentKind::Resources))
        dump["skins"][ToUtf8(skin->name)] = SkinValue(package, skin->name);
    for (const PackageDocument* language : package.OfKind(DocumentKind::Strings))
        dump["languages"][ToUtf8(language->name)] = LanguageValue(package, language->name);
    dump["templates"] = TemplatesValue(package);
    if (isJson)
        return dump.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
    std::string text;
    Write(dump, 0, text);
    return std::string(CString::FromUtf8(text).View());
}

}  // namespace qvui::skin_tool
