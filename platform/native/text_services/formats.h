#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <map>
#include <vector>

#include <qvui/platform/native/text_services.h>

namespace qvui::native {

/// The format of a run of characters, a value. Lengths are twips.
struct CharFormat {
    DWORD effects = CFE_AUTOCOLOR | CFE_AUTOBACKCOLOR;
    LONG height = 240;
    LONG offset = 0;
    COLORREF textColour = 0;
    COLORREF backColour = 0;
    LCID language = 0;
    WORD weight = FW_NORMAL;
    WORD kerning = 0;
    SHORT spacing = 0;
    BYTE charSet = DEFAULT_CHARSET;
    BYTE pitchAndFamily = 0;
    BYTE underlineType = 1;
    std::array<WCHAR, LF_FACESIZE> face{};

    auto operator<=>(const CharFormat&) const = default;

    /// Takes over what the mask of `format` names: cbSize is that of any of the four structures. False, and
    /// unchanged, for another size.
    bool Apply(const void* format);
    /// Writes itself and `mask` into a structure of one of the four sizes, whose cbSize stays. Returns the
    /// mask as written, of which the first version knows fewer bits; 0 for another size.
    DWORD Describe(void* format, DWORD mask) const;
    /// The bits of CFM_ALL2 whose properties differ from those of `other`.
    DWORD Differences(const CharFormat& other) const;
};

/// The format of a paragraph, a value. Lengths are twips.
struct ParaFormat {
    WORD numbering = 0;
    WORD effects = 0;
    LONG startIndent = 0;
    LONG rightIndent = 0;
    LONG offset = 0;
    WORD alignment = PFA_LEFT;
    std::vector<LONG> tabs;
    LONG spaceBefore = 0;
    LONG spaceAfter = 0;
    LONG lineSpacing = 0;
    BYTE lineSpacingRule = 0;

    auto operator<=>(const ParaFormat&) const = default;

    /// As CharFormat's, for the two versions of the paragraph format.
    bool Apply(const PARAFORMAT* format);
    DWORD Describe(PARAFORMAT* format, DWORD mask) const;
    DWORD Differences(const ParaFormat& other) const;
};

using FormatId = std::uint32_t;
/// The default format. Its value can change, and text that has it changes with it.
inline constexpr FormatId kDefaultFormat = 0;

/// The formats that a document uses, each stored once: equal formats have equal ids. Ids stay valid.
template <class Format>
class FormatPool {
public:
    FormatPool() : m_formats(1) {}

    const Format& operator[](FormatId id) const { return m_formats[id]; }
    void SetDefault(Format format) { m_formats[kDefaultFormat] = std::move(format); }
    /// The id of a format; one that equals the default is the default.
    FormatId Intern(const Format& format)
    {
        if (format == m_formats[kDefaultFormat])
            return kDefaultFormat;
        const auto [place, isNew] = m_ids.try_emplace(format, static_cast<FormatId>(m_formats.size()));
        if (isNew)
            m_formats.push_back(format);
        return place->second;
    }

private:
    std::vector<Format> m_formats;
    std::map<Format, FormatId> m_ids;
};

}  // namespace qvui::native
