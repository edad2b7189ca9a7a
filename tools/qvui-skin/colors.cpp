#include "colors.h"

#include <cstdio>

#include <qvui/skin/resource_manager.h>

namespace qvui::skin_tool {
namespace {

std::optional<ShownColor> Literal(const std::string& text)
{
    ShownColor shown{{}, text};
    if (CheckForm(ValueKind::LiteralColor, text, {}) ||
        !DUI::CResMgr().GetColorFromString(text.c_str(), shown.color))
        return {};
    return shown;
}

}  // namespace

std::optional<ShownColor> ColorOf(const Names& names, const std::string& text, const std::string& skin)
{
    if (const std::optional<ShownColor> literal = Literal(text))
        return literal;
    const NameScope::Place* const place = names.Find(NameKind::Color, skin, text);
    return place ? Literal(place->element->Value("value")) : std::nullopt;
}

std::vector<std::string> CountedColors(const Names& names, const std::string& value, const std::string& skin)
{
    std::vector<std::string> counted;
    for (const std::string& part : Split(value, ',')) {
        const std::optional<ShownColor> shown = ColorOf(names, part, skin);
        if (part.empty() || (shown && shown->color.IsEmpty()))
            break;
        counted.push_back(part);
    }
    return counted;
}

bool LacksAlpha(const std::string& literal)
{
    constexpr std::size_t kWithAlpha = 8;  // "#" and one digit of the alpha, at least
    return literal.size() > 1 && literal[0] == '#' && literal.size() < kWithAlpha;
}

std::string HexText(const DUI::CARGB& color)
{
    char text[10];
    std::snprintf(text, sizeof text, "#%02X%02X%02X%02X", unsigned{color.GetA()}, unsigned{color.GetR()},
                  unsigned{color.GetG()}, unsigned{color.GetB()});
    return text;
}

std::string Opaque(const std::string& literal)
{
    return "#FF" + std::string(7 - literal.size(), '0') + literal.substr(1);
}

}  // namespace qvui::skin_tool
