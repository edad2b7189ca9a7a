#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "native/text_services/fragment_builder.h"

namespace qvui::native {

/// Reads RTF, byte by byte, so that it does not matter how the bytes are divided; any depth of groups, in
/// bounded memory apart from the text. Nothing that a file names is opened. What the reader does not know is
/// left out or, outside of a
/// `\*` group, shown as the text that it holds.
class RtfReader {
public:
    enum class Status {
        Reading,   // the outermost group is open
        Finished,  // it has ended; what follows is ignored
        NotRtf,    // the signature is missing
        BadHex,    // `\'` without two hexadecimal digits: the text up to there
    };

    /// `base` is the format that plain text gets; `most` units of text are read at most.
    RtfReader(FormatPool<CharFormat>& characters, FormatPool<ParaFormat>& paragraphs, const CharFormat& base,
              int most);

    /// Takes the next bytes; false when the rest of the file does not matter.
    bool Feed(std::string_view bytes);
    Status State() const { return m_status; }
    /// The text so far. `dropsLastBreak`: the break of the last paragraph is not part of it.
    Fragment Finish(bool dropsLastBreak);

private:
    enum class Destination : std::uint8_t { Text, Skip, Fonts, Colours };
    struct State_ {
        CharFormat character;
        ParaFormat paragraph;
        Destination destination = Destination::Text;
        bool isUnknown = false;  // `\*` was read, and no word yet
        int fallbackUnits = 1;   // that follow a `\u`
        UINT codePage = 1252;
    };
    struct Font {
        std::string name;
        BYTE charSet = ANSI_CHARSET;
        UINT codePage = 0;  // 0: that of the file
    };
    enum class Mode : std::uint8_t { Plain, Escape, Word, Number, Hex, Binary };
    struct WordEntry;

    static const std::map<std::string_view, WordEntry>& Words();
    void Byte(char byte);
    void PlainByte(char byte);
    void EscapeByte(char byte);
    void OpenGroup();
    void CloseGroup();
    void EndWord();
    void Apply(const WordEntry& word, int number, bool hasNumber);
    void Symbol(char16_t unit);
    void EncodedByte(char byte);
    void FlushBytes();
    void Unicode(int number);
    void Emit(std::u16string_view text);
    void Break();
    bool Skips(int units = 1);
    void FontByte(char byte);
    void SelectFont(int index);
    void ResetCharacter();
    COLORREF Colour(int index, bool& isAutomatic) const;
    FormatId CharacterId();
    FormatId ParagraphId();
    State_& Top() { return m_states.back(); }

    FormatPool<CharFormat>& m_characters;
    FormatPool<ParaFormat>& m_paragraphs;
    CharFormat m_base;
    int m_most;
    Status m_status = Status::Reading;
    Mode m_mode = Mode::Plain;
    std::vector<State_> m_states;
    std::size_t m_deeper = 0;  // groups open beyond those that have a state
    std::string m_start;       // the first bytes, until they are known to be the signature
    std::string m_word;
    long long m_number = 0;
    bool m_isNegative = false;
    bool m_hasNumber = false;
    int m_hexDigits = 0;
    int m_hex = 0;
    std::int64_t m_binaryLeft = 0;
    int m_toSkip = 0;       // units of the fallback of a `\u` that are still to come
    std::string m_encoded;  // bytes of the present code page
    UINT m_ansiCodePage = 1252;
    std::map<int, Font> m_fonts;
    int m_font = 0;  // whose entry is being read
    int m_defaultFont = 0;
    std::vector<COLORREF> m_colours;
    std::vector<bool> m_isColourSet;
    COLORREF m_colour = 0;
    bool m_hasColour = false;
    bool m_isCharacterKnown = false;
    bool m_isParagraphKnown = false;
    FormatId m_characterId = kDefaultFormat;
    FormatId m_paragraphId = kDefaultFormat;
    FragmentBuilder m_builder;
    bool m_endsInBreak = false;
};

}  // namespace qvui::native
