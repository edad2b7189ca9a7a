#include <algorithm>

#include "check.h"
#include "colors.h"

namespace qvui::skin_tool {
namespace {

using DUI::CARGB;

constexpr int kOpaque = 255;

bool IsTranslucent(const CARGB& color)
{
    return color.GetA() > 0 && color.GetA() < kOpaque;
}

int Brightest(const CARGB& color)
{
    return std::max({color.GetR(), color.GetG(), color.GetB()});
}

// A fill adds color * a to ground * (1 - a * a), with a from 0 to 1: the brightest ground whose sum fits.
int BrightestGround(const CARGB& color)
{
    const double alpha = color.GetA() / double{kOpaque};
    return static_cast<int>((kOpaque - Brightest(color) * alpha) / (1 - alpha * alpha));
}

// The channels that the alpha leaves of a colour.
CARGB Weighted(const CARGB& color)
{
    const auto weigh = [&](int channel) {
        return static_cast<unsigned char>(channel * color.GetA() / kOpaque);
    };
    return {weigh(color.GetR()), weigh(color.GetG()), weigh(color.GetB()), color.GetA()};
}

bool IsColorKind(ValueKind kind)
{
    return kind == ValueKind::Color || kind == ValueKind::LiteralColor || kind == ValueKind::ColorPair ||
           kind == ValueKind::Colors;
}

}  // namespace

void Checker::CheckDigits(const Place& place, const Attribute& attribute, ValueKind kind)
{
    if (!IsColorKind(kind))
        return;
    for (const std::string& part : Split(attribute.value, ','))
        if (LacksAlpha(part))
            m_report.Add(
                Severity::Note, place.document, attribute.valueOffset,
                attribute.name + ": \"" + part +
                    "\" has the alpha 0: fills are opaque all the same, gradients blend, and black is "
                    "no colour; write " +
                    Opaque(part));
}

void Checker::CheckColors(const Place& place, const Attribute& attribute, const DUI::AttributeRules& rules)
{
    if (!rules.isFill && !rules.emptyIsNone)
        return;
    for (const NameScope& skin : m_names.Scopes(NameKind::Color)) {
        if (!place.skin.empty() && place.skin != skin.label)
            continue;
        if (rules.emptyIsNone)
            CheckEmptyColors(place, attribute, skin.label);
        // A gradient is blended another way.
        const auto counted = CountedColors(m_names, attribute.value, skin.label);
        if (rules.isFill && counted.size() == 1)
            CheckFill(place, attribute, counted.front(), skin.label);
    }
}

// Eight digits of 0 are written on purpose.
void Checker::CheckEmptyColors(const Place& place, const Attribute& attribute, const std::string& skin)
{
    for (const std::string& part : Split(attribute.value, ','))
        if (const auto shown = ColorOf(m_names, part, skin);
            shown && shown->color.IsEmpty() && LacksAlpha(shown->literal))
            m_report.Add(Severity::Warning, place.document, attribute.valueOffset,
                         attribute.name + ": \"" + shown->literal +
                             "\" is no colour, and nothing is painted with it; write " +
                             Opaque(shown->literal));
}

void Checker::CheckFill(const Place& place, const Attribute& attribute, const std::string& text,
                        const std::string& skin)
{
    const auto shown = ColorOf(m_names, text, skin);
    if (!shown || !IsTranslucent(shown->color) || Brightest(shown->color) <= shown->color.GetA())
        return;
    m_report.Add(Severity::Note, place.document, attribute.valueOffset,
                 attribute.name + ": " + HexText(shown->color) +
                     " overflows into a wrong colour where the ground is brighter than " +
                     std::to_string(BrightestGround(shown->color)) +
                     " of 255, since a channel is above the alpha; write " + HexText(Weighted(shown->color)));
}

}  // namespace qvui::skin_tool
