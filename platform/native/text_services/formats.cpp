#include "native/text_services/formats.h"

#include <algorithm>
#include <cstring>

#include "native/kernel/code_pages.h"

namespace qvui::native {
namespace {

constexpr DWORD kFirstVersionMask = 0xF800003F;
// The effects that a mask bit of the same value names, and those that one bit decides together.
constexpr DWORD kPlainEffects = 0x0000FFFF;
constexpr DWORD kHeavyWeight = 550;

bool IsSecondVersion(UINT size)
{
    return size == sizeof(CHARFORMAT2A) || size == sizeof(CHARFORMAT2W);
}

bool IsCharFormatSize(UINT size)
{
    return IsSecondVersion(size) || size == sizeof(CHARFORMATA) || size == sizeof(CHARFORMATW);
}

bool HasWideFace(UINT size)
{
    return size == sizeof(CHARFORMATW) || size == sizeof(CHARFORMAT2W);
}

std::array<WCHAR, LF_FACESIZE> WideFace(const CHAR* face)
{
    std::array<WCHAR, LF_FACESIZE> wide{};
    const int length = static_cast<int>(strnlen(face, LF_FACESIZE - 1));
    MultiByteToWideChar(CP_ACP, 0, face, length, wide.data(), LF_FACESIZE - 1);
    return wide;
}

// The first version's members, whose face is the only one that comes in two widths.
template <class Format>
void ApplyFirst(CharFormat& to, const Format& from)
{
    const DWORD mask = from.dwMask;
    const DWORD plain = mask & kPlainEffects;
    to.effects = (to.effects & ~plain) | (from.dwEffects & plain);
    if (mask & CFM_SUBSCRIPT) {
        // Of the two the later one wins; they exclude each other.
        const DWORD chosen = from.dwEffects & CFM_SUBSCRIPT;
        to.effects = (to.effects & ~CFM_SUBSCRIPT) | (chosen == CFM_SUBSCRIPT ? CFE_SUBSCRIPT : chosen);
    }
    if (mask & CFM_COLOR) {
        to.effects = (to.effects & ~CFE_AUTOCOLOR) | (from.dwEffects & CFE_AUTOCOLOR);
        to.textColour = from.crTextColor;
    }
    if (mask & CFM_BOLD)
        to.weight = from.dwEffects & CFE_BOLD ? FW_BOLD : FW_NORMAL;
    if (mask & CFM_SIZE)
        to.height = from.yHeight;
    if (mask & CFM_OFFSET)
        to.offset = from.yOffset;
    if (mask & CFM_CHARSET)
        to.charSet = from.bCharSet;
    if (mask & CFM_FACE)
        to.pitchAndFamily = from.bPitchAndFamily;
}

template <class Format>
void ApplySecond(CharFormat& to, const Format& from)
{
    const DWORD mask = from.dwMask;
    if (mask & CFM_WEIGHT) {
        to.weight = from.wWeight;
        to.effects = (to.effects & ~CFE_BOLD) | (from.wWeight > kHeavyWeight ? CFE_BOLD : 0);
    }
    if (mask & CFM_SPACING)
        to.spacing = from.sSpacing;
    if (mask & CFM_BACKCOLOR) {
        to.effects = (to.effects & ~CFE_AUTOBACKCOLOR) | (from.dwEffects & CFE_AUTOBACKCOLOR);
        to.backColour = from.crBackColor;
    }
    if (mask & CFM_LCID)
        to.language = from.lcid;
    if (mask & CFM_KERNING)
        to.kerning = from.wKerning;
    if (mask & CFM_UNDERLINETYPE)
        to.underlineType = from.bUnderlineType;
}

template <class Format>
void DescribeFirst(Format& to, const CharFormat& from, DWORD mask)
{
    to.dwMask = mask;
    to.dwEffects = from.effects;
    to.yHeight = from.height;
    to.yOffset = from.offset;
    to.crTextColor = from.textColour;
    to.bCharSet = from.charSet;
    to.bPitchAndFamily = from.pitchAndFamily;
}

template <class Format>
void DescribeSecond(Format& to, const CharFormat& from)
{
    to.wWeight = from.weight;
    to.sSpacing = from.spacing;
    to.crBackColor = from.backColour;
    to.lcid = from.language;
    to.wKerning = from.kerning;
    to.bUnderlineType = from.underlineType;
}

}  // namespace

bool CharFormat::Apply(const void* format)
{
    const UINT size = *static_cast<const UINT*>(format);
    if (!IsCharFormatSize(size))
        return false;
    if (HasWideFace(size)) {
        const auto& wide = *static_cast<const CHARFORMATW*>(format);
        ApplyFirst(*this, wide);
        if (wide.dwMask & CFM_FACE) {
            std::copy(std::begin(wide.szFaceName), std::end(wide.szFaceName), face.begin());
            face.back() = 0;
            // What stands after the terminator does not tell two faces apart.
            std::fill(std::find(face.begin(), face.end(), u'\0'), face.end(), u'\0');
        }
        if (IsSecondVersion(size))
            ApplySecond(*this, *static_cast<const CHARFORMAT2W*>(format));
    } else {
        const auto& narrow = *static_cast<const CHARFORMATA*>(format);
        ApplyFirst(*this, narrow);
        if (narrow.dwMask & CFM_FACE)
            face = WideFace(narrow.szFaceName);
        if (IsSecondVersion(size))
            ApplySecond(*this, *static_cast<const CHARFORMAT2A*>(format));
    }
    return true;
}

DWORD CharFormat::Describe(void* format, DWORD mask) const
{
    const UINT size = *static_cast<const UINT*>(format);
    if (!IsCharFormatSize(size))
        return 0;
    if (!IsSecondVersion(size))
        mask &= kFirstVersionMask;
    if (HasWideFace(size)) {
        auto& wide = *static_cast<CHARFORMATW*>(format);
        DescribeFirst(wide, *this, mask);
        std::copy(face.begin(), face.end(), wide.szFaceName);
        if (IsSecondVersion(size))
            DescribeSecond(*static_cast<CHARFORMAT2W*>(format), *this);
    } else {
        auto& narrow = *static_cast<CHARFORMATA*>(format);
        DescribeFirst(narrow, *this, mask);
        std::memset(narrow.szFaceName, 0, sizeof narrow.szFaceName);
        WideCharToMultiByte(CP_ACP, 0, face.data(), -1, narrow.szFaceName, LF_FACESIZE, nullptr, nullptr);
        narrow.szFaceName[LF_FACESIZE - 1] = '\0';
        if (IsSecondVersion(size))
            DescribeSecond(*static_cast<CHARFORMAT2A*>(format), *this);
    }
    return mask;
}

DWORD CharFormat::Differences(const CharFormat& other) const
{
    DWORD bits = (effects ^ other.effects) & (kPlainEffects | CFE_AUTOCOLOR | CFE_AUTOBACKCOLOR);
    if ((effects ^ other.effects) & CFM_SUBSCRIPT)
        bits |= CFM_SUBSCRIPT;
    const auto note = [&](bool differs, DWORD bit) { bits |= differs ? bit : 0; };
    note(height != other.height, CFM_SIZE);
    note(offset != other.offset, CFM_OFFSET);
    note(textColour != other.textColour, CFM_COLOR);
    note(backColour != other.backColour, CFM_BACKCOLOR);
    note(language != other.language, CFM_LCID);
    note(weight != other.weight, CFM_WEIGHT);
    note(kerning != other.kerning, CFM_KERNING);
    note(spacing != other.spacing, CFM_SPACING);
    note(charSet != other.charSet, CFM_CHARSET);
    note(underlineType != other.underlineType, CFM_UNDERLINETYPE);
    note(face != other.face || pitchAndFamily != other.pitchAndFamily, CFM_FACE);
    return bits;
}

bool ParaFormat::Apply(const PARAFORMAT* format)
{
    if (format->cbSize != sizeof(PARAFORMAT) && format->cbSize != sizeof(PARAFORMAT2))
        return false;
    const DWORD mask = format->dwMask;
    if (mask & PFM_NUMBERING)
        numbering = format->wNumbering;
    const WORD effectBits = static_cast<WORD>(mask >> 16) & 0x01FF;
    effects = static_cast<WORD>((effects & ~effectBits) | (format->wEffects & effectBits));
    if (mask & PFM_OFFSETINDENT)
        startIndent += format->dxStartIndent;
    else if (mask & PFM_STARTINDENT)
        startIndent = format->dxStartIndent;
    if (mask & PFM_RIGHTINDENT)
        rightIndent = format->dxRightIndent;
    if (mask & PFM_OFFSET)
        offset = format->dxOffset;
    if (mask & PFM_ALIGNMENT)
        alignment = format->wAlignment;
    if (mask & PFM_TABSTOPS)
        tabs.assign(format->rgxTabs, format->rgxTabs + std::clamp<int>(format->cTabCount, 0, MAX_TAB_STOPS));
    if (format->cbSize == sizeof(PARAFORMAT2)) {
        const auto& second = static_cast<const PARAFORMAT2&>(*format);
        if (mask & PFM_SPACEBEFORE)
            spaceBefore = second.dySpaceBefore;
        if (mask & PFM_SPACEAFTER)
            spaceAfter = second.dySpaceAfter;
        if (mask & PFM_LINESPACING) {
            lineSpacing = second.dyLineSpacing;
            lineSpacingRule = second.bLineSpacingRule;
        }
    }
    return true;
}

DWORD ParaFormat::Describe(PARAFORMAT* format, DWORD mask) const
{
    const UINT size = format->cbSize;
    if (size != sizeof(PARAFORMAT) && size != sizeof(PARAFORMAT2))
        return 0;
    std::memset(static_cast<void*>(format), 0, size);
    format->cbSize = size;
    format->dwMask = mask;
    format->wNumbering = numbering;
    format->wEffects = effects;
    format->dxStartIndent = startIndent;
    format->dxRightIndent = rightIndent;
    format->dxOffset = offset;
    format->wAlignment = alignment;
    format->cTabCount = static_cast<SHORT>(tabs.size());
    std::copy(tabs.begin(), tabs.end(), format->rgxTabs);
    if (size == sizeof(PARAFORMAT2)) {
        auto& second = static_cast<PARAFORMAT2&>(*format);
        second.dySpaceBefore = spaceBefore;
        second.dySpaceAfter = spaceAfter;
        second.dyLineSpacing = lineSpacing;
        second.bLineSpacingRule = lineSpacingRule;
    }
    return mask;
}

DWORD ParaFormat::Differences(const ParaFormat& other) const
{
    DWORD bits = static_cast<DWORD>(effects ^ other.effects) << 16;
    const auto note = [&](bool differs, DWORD bit) { bits |= differs ? bit : 0; };
    note(numbering != other.numbering, PFM_NUMBERING);
    note(startIndent != other.startIndent, PFM_STARTINDENT);
    note(rightIndent != other.rightIndent, PFM_RIGHTINDENT);
    note(offset != other.offset, PFM_OFFSET);
    note(alignment != other.alignment, PFM_ALIGNMENT);
    note(tabs != other.tabs, PFM_TABSTOPS);
    note(spaceBefore != other.spaceBefore, PFM_SPACEBEFORE);
    note(spaceAfter != other.spaceAfter, PFM_SPACEAFTER);
    note(lineSpacing != other.lineSpacing || lineSpacingRule != other.lineSpacingRule, PFM_LINESPACING);
    return bits;
}

}  // namespace qvui::native
