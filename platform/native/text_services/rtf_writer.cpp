#include "native/text_services/rtf_writer.h"

#include <algorithm>
#include <map>
#include <string>

namespace qvui::native {
namespace {

constexpr std::size_t kUsualPiece = 1 << 16;

struct FontKey {
    std::array<WCHAR, LF_FACESIZE> face;
    BYTE charSet;

    auto operator<=>(const FontKey&) const = default;
};

class Writer {
public:
    Writer(const Document& document, Document::Position first, Document::Position last, UINT codePage,
           const std::function<bool(std::string_view)>& write)
        : m_document(document),
          m_first(first),
          m_last(last),
          m_codePage(codePage),
          m_write(write)
    {
    }

    void Run()
    {
        m_spans = m_document.Formats(m_first, m_last);
        Header();
        Document::Position at = m_first;
        for (const Document::FormatSpan& paragraph :
             m_document.ParagraphFormats(m_first, std::max(m_first + 1, m_last))) {
            if (at >= m_last || !m_goesOn)
                break;
            Paragraph(paragraph.format);
            const Document::Position end = std::min(paragraph.last, m_last);
            Text(at, end);
            at = end;
        }
        m_out += "}";
        Flush();
    }

private:
    void Header()
    {
        m_out = "{\\rtf1\\ansi\\ansicpg" + std::to_string(m_codePage) + "\\uc1\\deff0{\\fonttbl";
        AddFont(m_document.CharFormats()[kDefaultFormat]);
        for (const Document::FormatSpan& span : m_spans)
            AddFont(m_document.CharFormats()[span.format]);
        m_out += "}\r\n{\\colortbl ;";
        for (const Document::FormatSpan& span : m_spans) {
            const CharFormat& format = m_document.CharFormats()[span.format];
            if (!(format.effects & CFE_AUTOCOLOR))
                AddColour(format.textColour);
            if (!(format.effects & CFE_AUTOBACKCOLOR))
                AddColour(format.backColour);
        }
        m_out += "}\r\n{\\*\\generator qvui;}";
    }

    void AddFont(const CharFormat& format)
    {
        const auto [place, isNew] =
            m_fonts.try_emplace({format.face, format.charSet}, static_cast<int>(m_fonts.size()));
        if (!isNew)
            return;
        m_out += "{\\f" + std::to_string(place->second) + "\\fcharset" + std::to_string(format.charSet) + " ";
        for (const WCHAR unit : format.face)
            if (unit)
                Unit(unit);
        m_out += ";}";
    }

    void AddColour(COLORREF colour)
    {
        if (!m_colours.try_emplace(colour, static_cast<int>(m_colours.size()) + 1).second)
            return;
        m_out += "\\red" + std::to_string(GetRValue(colour)) + "\\green" + std::to_string(GetGValue(colour)) +
                 "\\blue" + std::to_string(GetBValue(colour)) + ";";
    }

    void Word(std::string_view word, LONG number)
    {
        m_out.append("\\").append(word).append(std::to_string(number));
        m_isWordOpen = true;
    }
    void Word(std::string_view word)
    {
        m_out.append("\\").append(word);
        m_isWordOpen = true;
    }

    void Paragraph(FormatId id)
    {
        if (m_hasParagraph && id == m_paragraph)
            return;
        m_hasParagraph = true;
        m_paragraph = id;
        const ParaFormat& format = m_document.ParaFormats()[id];
        Word("pard");
        if (format.effects & PFE_RTLPARA)
            Word("rtlpar");
        if (format.startIndent + format.offset != 0)
            Word("li", format.startIndent + format.offset);
        if (format.offset != 0)
            Word("fi", -format.offset);
        if (format.rightIndent)
            Word("ri", format.rightIndent);
        if (format.spaceBefore)
            Word("sb", format.spaceBefore);
        if (format.spaceAfter)
            Word("sa", format.spaceAfter);
        for (const LONG tab : format.tabs)
            Word("tx", tab);
        if (format.alignment == PFA_RIGHT)
            Word("qr");
        else if (format.alignment == PFA_CENTER)
            Word("qc");
    }

    // The words that turn the last format into this one.
    void Format(const CharFormat& format)
    {
        const auto toggle = [&](DWORD bit, std::string_view on, std::string_view off) {
            if (!m_hasFormat ? (format.effects & bit) != 0 : ((format.effects ^ m_format.effects) & bit) != 0)
                Word(format.effects & bit ? on : off);
        };
        toggle(CFE_BOLD, "b", "b0");
        toggle(CFE_ITALIC, "i", "i0");
        toggle(CFE_UNDERLINE, "ul", "ulnone");
        toggle(CFE_STRIKEOUT, "strike", "strike0");
        toggle(CFE_HIDDEN, "v", "v0");
        const DWORD script = format.effects & CFM_SUBSCRIPT;
        if (script != (m_hasFormat ? m_format.effects & CFM_SUBSCRIPT : 0))
            Word(script == CFE_SUPERSCRIPT ? "super" : script ? "sub" : "nosupersub");
        if (!m_hasFormat || format.face != m_format.face || format.charSet != m_format.charSet)
            Word("f", m_fonts[{format.face, format.charSet}]);
        if (!m_hasFormat || format.height != m_format.height)
            Word("fs", format.height / 10);
        const auto colour = [&](DWORD automatic, COLORREF CharFormat::*field, std::string_view word) {
            const int index = format.effects & automatic ? 0 : m_colours[format.*field];
            const int last = !m_hasFormat || m_format.effects & automatic ? 0 : m_colours[m_format.*field];
            if (index != last)
                Word(word, index);
        };
        colour(CFE_AUTOCOLOR, &CharFormat::textColour, "cf");
        colour(CFE_AUTOBACKCOLOR, &CharFormat::backColour, "highlight");
        m_format = format;
        m_hasFormat = true;
    }

    void Text(Document::Position first, Document::Position last)
    {
        while (first < last && m_goesOn) {
            while (m_span + 1 < m_spans.size() && m_spans[m_span].last <= first)
                ++m_span;
            Format(m_document.CharFormats()[m_spans[m_span].format]);
            const Document::Position end = std::min(last, m_spans[m_span].last);
            m_document.ForEachPiece(first, end, [&](std::u16string_view piece, bool isBreakAfter) {
                for (const char16_t unit : piece)
                    Unit(unit);
                if (isBreakAfter) {
                    m_out += "\\par\r\n";
                    m_isWordOpen = false;
                }
                if (m_out.size() >= kUsualPiece)
                    Flush();
                return m_goesOn;
            });
            first = end;
        }
    }

    void Unit(char16_t unit)
    {
        switch (unit) {
            case u'\\':
            case u'{':
            case u'}':
                m_out += '\\';
                m_out += static_cast<char>(unit);
                m_isWordOpen = false;
                return;
            case u'\t':
                Word("tab");
                return;
            case u'\v':
                Word("line");
                return;
            default:
                break;
        }
        if (unit >= u' ' && unit < 0x7F) {
            if (m_isWordOpen)
                m_out += ' ';
            m_out += static_cast<char>(unit);
        } else if (unit != 0) {
            m_out.append("\\u").append(std::to_string(static_cast<SHORT>(unit))).append("?");
        }
        m_isWordOpen = false;
    }

    void Flush()
    {
        if (m_goesOn && !m_out.empty())
            m_goesOn = m_write(m_out);
        m_out.clear();
    }

    const Document& m_document;
    Document::Position m_first;
    Document::Position m_last;
    UINT m_codePage;
    const std::function<bool(std::string_view)>& m_write;
    std::string m_out;
    std::vector<Document::FormatSpan> m_spans;
    std::size_t m_span = 0;
    std::map<FontKey, int> m_fonts;
    std::map<COLORREF, int> m_colours;
    CharFormat m_format;
    FormatId m_paragraph = kDefaultFormat;
    bool m_hasFormat = false;
    bool m_hasParagraph = false;
    bool m_isWordOpen = false;  // a letter or digit after it would go on with it
    bool m_goesOn = true;
};

}  // namespace

void WriteRtf(const Document& document, Document::Position first, Document::Position last, UINT codePage,
              const std::function<bool(std::string_view)>& write)
{
    Writer(document, first, last, codePage, write).Run();
}

}  // namespace qvui::native
