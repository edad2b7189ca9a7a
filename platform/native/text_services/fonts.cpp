#include "native/text_services/fonts.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <type_traits>

namespace qvui::native {
namespace {

constexpr double kPixelsPerTwip = 96.0 / 1440.0;
constexpr int kSmallestFont = 1;
constexpr int kLargestFont = 1000;
// Of the height of the text, as the platform draws them.
constexpr double kScriptScale = 2.0 / 3.0;
constexpr double kSuperscriptRise = 0.4;
constexpr double kSubscriptDrop = 0.12;

// Documents with the same format share its font: measuring one takes longer than all else that a new document
// does.
std::shared_ptr<FontObject> SharedFont(const LOGFONTA& description)
{
    static_assert(std::has_unique_object_representations_v<LOGFONTA>);
    static std::unordered_map<std::string, std::weak_ptr<FontObject>> fonts;
    std::weak_ptr<FontObject>& known =
        fonts[std::string(reinterpret_cast<const char*>(&description), sizeof description)];
    std::shared_ptr<FontObject> font = known.lock();
    if (!font) {
        known = font = std::make_shared<FontObject>(description);
        std::erase_if(fonts, [](const auto& entry) { return entry.second.expired(); });
    }
    return font;
}

}  // namespace

int PixelsOfTwips(LONG twips)
{
    return static_cast<int>(std::lround(std::clamp(twips, -1000000, 1000000) * kPixelsPerTwip));
}

void FormatFonts::SetZoom(double zoom)
{
    m_zoom = zoom;
    Forget();
}

const FormatFont& FormatFonts::operator[](FormatId id)
{
    const auto [place, isNew] = m_fonts.try_emplace(id);
    FormatFont& made = place->second;
    if (!isNew)
        return made;
    const CharFormat& format = m_formats[id];
    const double height = format.height * kPixelsPerTwip * m_zoom;
    const bool isScript = (format.effects & CFM_SUBSCRIPT) != 0;
    LOGFONTA description{};
    description.lfHeight = -std::clamp(static_cast<int>(std::lround(height * (isScript ? kScriptScale : 1))),
                                       kSmallestFont, kLargestFont);
    description.lfWeight = format.effects & CFE_BOLD ? std::max<LONG>(format.weight, FW_BOLD) : format.weight;
    description.lfItalic = format.effects & CFE_ITALIC ? 1 : 0;
    description.lfCharSet = format.charSet;
    description.lfPitchAndFamily = format.pitchAndFamily;
    WideCharToMultiByte(CP_ACP, 0, format.face.data(), -1, description.lfFaceName, LF_FACESIZE, nullptr,
                        nullptr);
    made.font = SharedFont(description);
    const TEXTMETRICA& metrics = made.font->Metrics();
    double rise = format.offset * kPixelsPerTwip * m_zoom;
    if (format.effects & CFE_SUPERSCRIPT)
        rise += height * kSuperscriptRise;
    else if (format.effects & CFE_SUBSCRIPT)
        rise -= height * kSubscriptDrop;
    made.rise = static_cast<int>(std::lround(rise));
    made.ascent = metrics.tmAscent + made.rise;
    made.descent = metrics.tmDescent - made.rise;
    return made;
}

}  // namespace qvui::native
