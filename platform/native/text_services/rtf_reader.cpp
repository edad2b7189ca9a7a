#include "native/text_services/rtf_reader.h"

#include <algorithm>
#include <climits>

#include "native/kernel/code_pages.h"

namespace qvui::native {
namespace {

constexpr std::size_t kMostStates = 2048;
constexpr std::size_t kLongestWord = 32;
constexpr std::size_t kMostFonts = 4096;
constexpr std::size_t kMostColours = 4096;
constexpr std::size_t kLongestFontName = 256;
constexpr std::string_view kSignatures[] = {"{\\rtf", "{\\urtf"};

struct CharSet {
    int charSet;
    UINT codePage;
};
// By the charset of a font.
constexpr CharSet kCharSets[] = {{0, 1252},   {128, 932},  {129, 949},  {130, 1361}, {134, 936},  {136, 950},
                                 {161, 1253}, {162, 1254}, {163, 1258}, {177, 1255}, {178, 1256}, {186, 1257},
                                 {204, 1251}, {222, 874},  {238, 1250}, {255, 437}};

UINT CodePageOf(int charSet)
{
    for (const CharSet& entry : kCharSets)
        if (entry.charSet == charSet)
            return entry.codePage;
    return 0;
}

constexpr WORD kAlignments[] = {PFA_LEFT, PFA_RIGHT, PFA_CENTER, PFA_LEFT};

bool IsLetter(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

bool IsDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

int HexDigit(char byte)
{
    if (IsDigit(byte))
        return byte - '0';
    const char small = static_cast<char>(byte | 0x20);
    return small >= 'a' && small <= 'f' ? small - 'a' + 10 : -1;
}

}  // namespace

struct RtfReader::WordEntry {
    enum Kind {
        Skip,        // a destination whose text is not shown
        ShowResult,  // a group whose own text is shown although what holds it is skipped
        Fonts,
        Colours,
        Effect,  // `value`: the bits
        Script,  // the same, and the other script off
        Break,
        Unit,       // `value`: the character
        Alignment,  // `value`: index
        Indent,     // `value`: which
        Plain,
        ParagraphReset,
        Size,
        Font,
        Colour,
        Highlight,
        Charset,
        FontCodePage,
        Red,
        Green,
        Blue,
        AnsiCodePage,
        DefaultFont,
        UnicodeUnit,
        FallbackUnits,
        Binary,
        Tab,
        RightToLeft,
        LeftToRight,
    };
    Kind kind;
    DWORD value = 0;
};

const std::map<std::string_view, RtfReader::WordEntry>& RtfReader::Words()
{
    enum : DWORD { Start, Right, First, Before, After };
    static const std::map<std::string_view, WordEntry> words{
        {"fonttbl", {WordEntry::Fonts}},
        {"colortbl", {WordEntry::Colours}},
        {"stylesheet", {WordEntry::Skip}},
        {"info", {WordEntry::Skip}},
        {"header", {WordEntry::Skip}},
        {"headerl", {WordEntry::Skip}},
        {"headerr", {WordEntry::Skip}},
        {"headerf", {WordEntry::Skip}},
        {"footer", {WordEntry::Skip}},
        {"footerl", {WordEntry::Skip}},
        {"footerr", {WordEntry::Skip}},
        {"footerf", {WordEntry::Skip}},
        {"footnote", {WordEntry::Skip}},
        {"pict", {WordEntry::Skip}},
        {"object", {WordEntry::Skip}},
        {"result", {WordEntry::ShowResult}},
        {"fldinst", {WordEntry::Skip}},
        {"fldrslt", {WordEntry::ShowResult}},
        {"shp", {WordEntry::Skip}},
        {"bkmkstart", {WordEntry::Skip}},
        {"bkmkend", {WordEntry::Skip}},
        {"xe", {WordEntry::Skip}},
        {"tc", {WordEntry::Skip}},
        {"pntext", {WordEntry::Skip}},
        {"listtext", {WordEntry::Skip}},
        {"upr", {WordEntry::Skip}},
        {"b", {WordEntry::Effect, CFE_BOLD}},
        {"i", {WordEntry::Effect, CFE_ITALIC}},
        {"ul", {WordEntry::Effect, CFE_UNDERLINE}},
        {"uld", {WordEntry::Effect, CFE_UNDERLINE}},
        {"ulw", {WordEntry::Effect, CFE_UNDERLINE}},
        {"uldb", {WordEntry::Effect, CFE_UNDERLINE}},
        {"ulnone", {WordEntry::Effect, 0}},
        {"strike", {WordEntry::Effect, CFE_STRIKEOUT}},
        {"v", {WordEntry::Effect, CFE_HIDDEN}},
        {"super", {WordEntry::Script, CFE_SUPERSCRIPT}},
        {"sub", {WordEntry::Script, CFE_SUBSCRIPT}},
        {"nosupersub", {WordEntry::Script, 0}},
        {"par", {WordEntry::Break}},
        {"page", {WordEntry::Break}},
        {"sect", {WordEntry::Break}},
        {"tab", {WordEntry::Unit, u'\t'}},
        {"line", {WordEntry::Unit, u'\v'}},
        {"emdash", {WordEntry::Unit, 0x2014}},
        {"endash", {WordEntry::Unit, 0x2013}},
        {"bullet", {WordEntry::Unit, 0x2022}},
        {"lquote", {WordEntry::Unit, 0x2018}},
        {"rquote", {WordEntry::Unit, 0x2019}},
        {"ldblquote", {WordEntry::Unit, 0x201C}},
        {"rdblquote", {WordEntry::Unit, 0x201D}},
        {"enspace", {WordEntry::Unit, 0x2002}},
        {"emspace", {WordEntry::Unit, 0x2003}},
        {"zwj", {WordEntry::Unit, 0x200D}},
        {"zwnj", {WordEntry::Unit, 0x200C}},
        {"ltrmark", {WordEntry::Unit, 0x200E}},
        {"rtlmark", {WordEntry::Unit, 0x200F}},
        {"ql", {WordEntry::Alignment, 0}},
        {"qr", {WordEntry::Alignment, 1}},
        {"qc", {WordEntry::Alignment, 2}},
        {"qj", {WordEntry::Alignment, 3}},
        {"li", {WordEntry::Indent, Start}},
        {"ri", {WordEntry::Indent, Right}},
        {"fi", {WordEntry::Indent, First}},
        {"sb", {WordEntry::Indent, Before}},
        {"sa", {WordEntry::Indent, After}},
        {"tx", {WordEntry::Tab}},
        {"rtlpar", {WordEntry::RightToLeft}},
        {"ltrpar", {WordEntry::LeftToRight}},
        {"plain", {WordEntry::Plain}},
        {"pard", {WordEntry::ParagraphReset}},
        {"fs", {WordEntry::Size}},
        {"f", {WordEntry::Font}},
        {"cf", {WordEntry::Colour}},
        {"highlight", {WordEntry::Highlight}},
        {"fcharset", {WordEntry::Charset}},
        {"cpg", {WordEntry::FontCodePage}},
        {"red", {WordEntry::Red}},
        {"green", {WordEntry::Green}},
        {"blue", {WordEntry::Blue}},
        {"ansicpg", {WordEntry::AnsiCodePage}},
        {"deff", {WordEntry::DefaultFont}},
        {"u", {WordEntry::UnicodeUnit}},
        {"uc", {WordEntry::FallbackUnits}},
        {"bin", {WordEntry::Binary}},
    };
    return words;
}

RtfReader::RtfReader(FormatPool<CharFormat>& characters, FormatPool<ParaFormat>& paragraphs,
                     const CharFormat& base, int most)
    : m_characters(characters),
      m_paragraphs(paragraphs),
      m_base(base),
      m_most(most),
      m_states(1)
{
    Top().character = m_base;
}

bool RtfReader::Feed(std::string_view bytes)
{
    for (const char byte : bytes) {
        if (m_status != Status::Reading)
            return false;
        Byte(byte);
    }
    return m_status == Status::Reading;
}

void RtfReader::Byte(char byte)
{
    if (m_start.size() < kSignatures[1].size()) {
        // The signature stands at the very start; until it is complete nothing is read.
        m_start += byte;
        const bool isFirst = kSignatures[0].starts_with(m_start) || m_start.starts_with(kSignatures[0]);
        const bool isSecond = kSignatures[1].starts_with(m_start);
        if (!isFirst && !isSecond) {
            m_status = Status::NotRtf;
            return;
        }
    }
    switch (m_mode) {
        case Mode::Plain:
            PlainByte(byte);
            return;
        case Mode::Escape:
            EscapeByte(byte);
            return;
        case Mode::Word:
            if (IsLetter(byte)) {
                if (m_word.size() < kLongestWord)
                    m_word += byte;
                return;
            }
            if (IsDigit(byte) || byte == '-') {
                m_mode = Mode::Number;
                m_isNegative = byte == '-';
                m_hasNumber = !m_isNegative;
                m_number = m_isNegative ? 0 : byte - '0';
                return;
            }
            break;
        case Mode::Number:
            if (IsDigit(byte)) {
                m_hasNumber = true;
                m_number = std::min<long long>(m_number * 10 + (byte - '0'), INT_MAX);
                return;
            }
            break;
        case Mode::Hex: {
            const int digit = HexDigit(byte);
            if (digit < 0) {
                m_status = Status::BadHex;
                return;
            }
            m_hex = m_hex * 16 + digit;
            if (++m_hexDigits == 2) {
                m_mode = Mode::Plain;
                if (!Skips())
                    EncodedByte(static_cast<char>(m_hex));
            }
            return;
        }
        case Mode::Binary:
            if (--m_binaryLeft <= 0)
                m_mode = Mode::Plain;
            return;
    }
    // A word ended. A space after it belongs to it.
    m_mode = Mode::Plain;
    EndWord();
    if (m_mode == Mode::Binary && byte != ' ') {
        Byte(byte);
        return;
    }
    if (byte != ' ')
        PlainByte(byte);
}

void RtfReader::PlainByte(char byte)
{
    switch (byte) {
        case '{':
            OpenGroup();
            return;
        case '}':
            CloseGroup();
            return;
        case '\\':
            m_mode = Mode::Escape;
            return;
        case '\r':
        case '\n':
            return;
        default:
            break;
    }
    if (m_deeper > 0 || Top().destination == Destination::Skip)
        return;
    if (Top().destination == Destination::Fonts) {
        FontByte(byte);
    } else if (Top().destination == Destination::Colours) {
        if (byte != ';')
            return;
        if (m_colours.size() < kMostColours) {
            m_colours.push_back(m_colour);
            m_isColourSet.push_back(m_hasColour);
        }
        m_colour = 0;
        m_hasColour = false;
    } else if (!Skips()) {
        EncodedByte(byte);
    }
}

void RtfReader::EscapeByte(char byte)
{
    m_mode = Mode::Plain;
    if (IsLetter(byte)) {
        m_mode = Mode::Word;
        m_word.assign(1, byte);
        m_number = 0;
        m_hasNumber = m_isNegative = false;
        return;
    }
    switch (byte) {
        case '\'':
            m_mode = Mode::Hex;
            m_hex = m_hexDigits = 0;
            return;
        case '*':
            Top().isUnknown = m_deeper == 0;
            return;
        case '~':
            Symbol(0x00A0);
            return;
        case '_':
            Symbol(0x2011);
            return;
        case '\r':
        case '\n':
            if (!Skips())
                Break();
            return;
        case '{':
        case '}':
        case '\\':
            if (m_deeper == 0 && Top().destination == Destination::Fonts)
                FontByte(byte);
            else if (!Skips())
                EncodedByte(byte);
            return;
        default:
            return;
    }
}

void RtfReader::OpenGroup()
{
    FlushBytes();
    m_toSkip = 0;
    if (m_states.size() >= kMostStates) {
        ++m_deeper;
        return;
    }
    State_ inner = Top();
    inner.isUnknown = false;
    m_states.push_back(std::move(inner));
}

void RtfReader::CloseGroup()
{
    FlushBytes();
    m_toSkip = 0;
    if (m_deeper > 0) {
        --m_deeper;
        return;
    }
    if (m_states.size() > 1) {
        m_states.pop_back();
        m_isCharacterKnown = m_isParagraphKnown = false;
    }
    if (m_states.size() == 1)
        m_status = Status::Finished;
}

void RtfReader::EndWord()
{
    const int number = static_cast<int>(m_isNegative ? -m_number : m_number);
    const auto& words = Words();
    const auto word = words.find(m_word);
    if (m_deeper > 0) {
        if (word != words.end() && word->second.kind == WordEntry::Binary)
            Apply(word->second, number, m_hasNumber);
        return;
    }
    const bool isUnknown = std::exchange(Top().isUnknown, false);
    if (word == words.end()) {
        if (isUnknown)
            Top().destination = Destination::Skip;
        return;
    }
    if (word->second.kind != WordEntry::UnicodeUnit && word->second.kind != WordEntry::Binary &&
        m_toSkip > 0) {
        // A word within a fallback counts as one of its units.
        --m_toSkip;
        return;
    }
    Apply(word->second, number, m_hasNumber);
}

void RtfReader::Apply(const WordEntry& word, int number, bool hasNumber)
{
    State_& state = Top();
    const bool isText = state.destination == Destination::Text;
    const auto set = [&](DWORD bits) {
        FlushBytes();
        const bool isOn = !hasNumber || number != 0;
        state.character.effects = (state.character.effects & ~bits) | (isOn ? bits : 0);
        if (bits & CFE_BOLD)
            state.character.weight = isOn ? FW_BOLD : FW_NORMAL;
        m_isCharacterKnown = false;
    };
    const auto alter = [&](auto& field, auto value) {
        FlushBytes();
        field = value;
        m_isCharacterKnown = m_isParagraphKnown = false;
    };
    switch (word.kind) {
        case WordEntry::Skip:
            state.destination = Destination::Skip;
            break;
        case WordEntry::ShowResult:
            state.destination = Destination::Text;
            break;
        case WordEntry::Fonts:
            state.destination = Destination::Fonts;
            break;
        case WordEntry::Colours:
            state.destination = Destination::Colours;
            break;
        case WordEntry::Effect:
            if (word.value == 0) {
                hasNumber = true;
                number = 0;
                set(CFE_UNDERLINE);
            } else {
                set(word.value);
            }
            break;
        case WordEntry::Script:
            alter(state.character.effects,
                  (state.character.effects & ~CFM_SUBSCRIPT) | (hasNumber && number == 0 ? 0 : word.value));
            break;
        case WordEntry::Break:
            if (isText && !Skips())
                Break();
            break;
        case WordEntry::Unit:
            Symbol(static_cast<char16_t>(word.value));
            break;
        case WordEntry::Alignment:
            alter(state.paragraph.alignment, kAlignments[word.value]);
            break;
        case WordEntry::Indent: {
            // The format's start indent is the first line's; the file gives that of all and what the first
            // adds.
            ParaFormat& paragraph = state.paragraph;
            const LONG twips = std::clamp(number, -31680, 31680);
            switch (word.value) {
                case 0:
                    alter(paragraph.startIndent, twips - paragraph.offset);
                    break;
                case 1:
                    alter(paragraph.rightIndent, twips);
                    break;
                case 2: {
                    const LONG left = paragraph.startIndent + paragraph.offset;
                    alter(paragraph.startIndent, left + twips);
                    alter(paragraph.offset, -twips);
                    break;
                }
                case 3:
                    alter(paragraph.spaceBefore, std::max(twips, 0));
                    break;
                default:
                    alter(paragraph.spaceAfter, std::max(twips, 0));
                    break;
            }
            break;
        }
        case WordEntry::Tab:
            if (number > 0 && state.paragraph.tabs.size() < static_cast<std::size_t>(MAX_TAB_STOPS)) {
                FlushBytes();
                state.paragraph.tabs.push_back(std::min(number, 31680));
                m_isParagraphKnown = false;
            }
            break;
        case WordEntry::RightToLeft:
        case WordEntry::LeftToRight:
            alter(state.paragraph.effects, word.kind == WordEntry::RightToLeft ? PFE_RTLPARA : WORD{0});
            break;
        case WordEntry::Plain:
            FlushBytes();
            ResetCharacter();
            break;
        case WordEntry::ParagraphReset:
            FlushBytes();
            state.paragraph = {};
            m_isParagraphKnown = false;
            break;
        case WordEntry::Size:
            alter(state.character.height, std::clamp(hasNumber ? number : 24, 1, 3276) * 10);
            break;
        case WordEntry::Font:
            FlushBytes();
            if (state.destination == Destination::Fonts) {
                m_font = number;
                if (m_fonts.size() < kMostFonts)
                    m_fonts[m_font] = {};
            } else {
                SelectFont(number);
            }
            break;
        case WordEntry::Colour:
        case WordEntry::Highlight: {
            const bool isText_ = word.kind == WordEntry::Colour;
            const DWORD automatic = isText_ ? CFE_AUTOCOLOR : CFE_AUTOBACKCOLOR;
            bool isAutomatic = false;
            const COLORREF colour = Colour(number, isAutomatic);
            alter(isText_ ? state.character.textColour : state.character.backColour,
                  isAutomatic ? 0 : colour);
            state.character.effects =
                isAutomatic ? state.character.effects | automatic : state.character.effects & ~automatic;
            break;
        }
        case WordEntry::Charset:
            if (const auto font = m_fonts.find(m_font); font != m_fonts.end()) {
                font->second.charSet = static_cast<BYTE>(std::clamp(number, 0, 255));
                font->second.codePage = CodePageOf(number);
            }
            break;
        case WordEntry::FontCodePage:
            if (const auto font = m_fonts.find(m_font); font != m_fonts.end() && number > 0)
                font->second.codePage = static_cast<UINT>(number);
            break;
        case WordEntry::Red:
        case WordEntry::Green:
        case WordEntry::Blue: {
            const int shift = 8 * (word.kind - WordEntry::Red);
            m_colour =
                (m_colour & ~(0xFFU << shift)) | (static_cast<COLORREF>(std::clamp(number, 0, 255)) << shift);
            m_hasColour = true;
            break;
        }
        case WordEntry::AnsiCodePage:
            if (number > 0 && IsValidCodePage(static_cast<UINT>(number)))
                m_ansiCodePage = static_cast<UINT>(number);
            for (State_& open : m_states)
                open.codePage = m_ansiCodePage;
            break;
        case WordEntry::DefaultFont:
            m_defaultFont = number;
            break;
        case WordEntry::UnicodeUnit:
            if (isText)
                Unicode(number);
            break;
        case WordEntry::FallbackUnits:
            state.fallbackUnits = std::clamp(hasNumber ? number : 1, 0, 64);
            break;
        case WordEntry::Binary:
            if (number > 0) {
                m_binaryLeft = number;
                m_mode = Mode::Binary;
            }
            break;
    }
}

bool RtfReader::Skips(int units)
{
    if (m_toSkip <= 0)
        return false;
    m_toSkip -= units;
    return true;
}

void RtfReader::Symbol(char16_t unit)
{
    if (m_deeper > 0 || Top().destination != Destination::Text || Skips())
        return;
    FlushBytes();
    Emit({&unit, 1});
}

void RtfReader::EncodedByte(char byte)
{
    if (m_deeper == 0 && Top().destination == Destination::Text)
        m_encoded += byte;
    else if (m_deeper == 0 && Top().destination == Destination::Fonts)
        FontByte(byte);
}

// Bytes are decoded together, since a character can take two of them, which may be written in different ways.
void RtfReader::FlushBytes()
{
    if (m_encoded.empty())
        return;
    const std::string bytes = std::exchange(m_encoded, {});
    const UINT codePage = IsValidCodePage(Top().codePage) ? Top().codePage : m_ansiCodePage;
    std::u16string text(bytes.size(), u'\0');
    const int units = MultiByteToWideChar(codePage, 0, bytes.data(), static_cast<int>(bytes.size()),
                                          text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(std::max(units, 0)));
    Emit(text);
}

void RtfReader::Unicode(int number)
{
    FlushBytes();
    const auto unit = static_cast<char16_t>(number & 0xFFFF);
    m_toSkip = Top().fallbackUnits;
    // A break or an end in disguise is none.
    if (unit != 0 && unit != u'\r' && unit != u'\n')
        Emit({&unit, 1});
}

void RtfReader::Emit(std::u16string_view text)
{
    const int room = m_most - m_builder.Units();
    if (room <= 0 || text.empty())
        return;
    m_endsInBreak = false;
    m_builder.Add(text.substr(0, static_cast<std::size_t>(room)), CharacterId(), ParagraphId());
}

void RtfReader::Break()
{
    FlushBytes();
    if (m_builder.Units() >= m_most)
        return;
    m_builder.Break(CharacterId(), ParagraphId());
    m_endsInBreak = true;
}

void RtfReader::FontByte(char byte)
{
    const auto font = m_fonts.find(m_font);
    if (font == m_fonts.end() || byte == ';')
        return;
    if (font->second.name.size() < kLongestFontName)
        font->second.name += byte;
}

void RtfReader::SelectFont(int index)
{
    State_& state = Top();
    const auto font = m_fonts.find(index);
    if (font == m_fonts.end())
        return;
    state.codePage = font->second.codePage ? font->second.codePage : m_ansiCodePage;
    state.character.charSet = font->second.charSet;
    m_isCharacterKnown = false;
    if (font->second.name.empty())
        return;
    std::u16string name(font->second.name.size(), u'\0');
    const int units = MultiByteToWideChar(state.codePage, 0, font->second.name.data(),
                                          static_cast<int>(font->second.name.size()), name.data(),
                                          static_cast<int>(name.size()));
    name.resize(static_cast<std::size_t>(std::clamp(units, 0, LF_FACESIZE - 1)));
    state.character.face = {};
    std::copy(name.begin(), name.end(), state.character.face.begin());
}

void RtfReader::ResetCharacter()
{
    State_& state = Top();
    state.character = m_base;
    state.character.effects = CFE_AUTOCOLOR | CFE_AUTOBACKCOLOR;
    state.character.weight = FW_NORMAL;
    state.character.height = 240;
    state.character.offset = 0;
    state.codePage = m_ansiCodePage;
    SelectFont(m_defaultFont);
    m_isCharacterKnown = false;
}

COLORREF RtfReader::Colour(int index, bool& isAutomatic) const
{
    const bool isKnown = index >= 0 && index < static_cast<int>(m_colours.size()) &&
                         m_isColourSet[static_cast<std::size_t>(index)];
    isAutomatic = !isKnown;
    return isKnown ? m_colours[static_cast<std::size_t>(index)] : 0;
}

FormatId RtfReader::CharacterId()
{
    if (!std::exchange(m_isCharacterKnown, true))
        m_characterId = m_characters.Intern(Top().character);
    return m_characterId;
}

FormatId RtfReader::ParagraphId()
{
    if (!std::exchange(m_isParagraphKnown, true))
        m_paragraphId = m_paragraphs.Intern(Top().paragraph);
    return m_paragraphId;
}

Fragment RtfReader::Finish(bool dropsLastBreak)
{
    if (m_status == Status::NotRtf)
        return {};
    FlushBytes();
    Fragment fragment = m_builder.Finish();
    if (dropsLastBreak && m_endsInBreak && !fragment.IsEmpty()) {
        Segment& last = fragment.segments.back();
        if (last.text.Length() == 0) {
            fragment.segments.pop_back();
        } else {
            last.formats.Erase(last.text.Length(), 1);
            last.endsParagraph = false;
        }
    }
    return fragment;
}

}  // namespace qvui::native
