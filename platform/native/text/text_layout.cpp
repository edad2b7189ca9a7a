#include "native/text/text_layout.h"

#include <algorithm>

namespace qvui::native {
namespace {

constexpr std::string_view kDots = "...";
// Text is measured in pieces of at least this size, so that wrapping a long text does not measure its whole
// remainder for every line.
constexpr std::size_t kShortestPiece = 256;

bool IsContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

std::size_t PreviousCharacter(std::string_view text, std::size_t at)
{
    do
        --at;
    while (at > 0 && IsContinuation(text[at]));
    return at;
}

// Ideographs, kana and hangul: a line may break before and after each of them.
bool IsIdeograph(std::string_view text, std::size_t at)
{
    if (at + 2 >= text.size() || (static_cast<unsigned char>(text[at]) & 0xF0) != 0xE0)
        return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xF8) == 0xF0;
    const int code = ((text[at] & 0x0F) << 12) | ((text[at + 1] & 0x3F) << 6) | (text[at + 2] & 0x3F);
    return (code >= 0x2E80 && code <= 0xA4CF) || (code >= 0xAC00 && code <= 0xD7A3) ||
           (code >= 0xF900 && code <= 0xFAFF) || (code >= 0xFF00 && code <= 0xFFEF);
}

struct Piece {
    std::string text;
    int underline = -1;
};

// "&x" underlines x, "&&" is a literal ampersand; of several mnemonics the last one applies.
Piece ResolvePrefix(std::string_view text, UINT format)
{
    Piece piece;
    if (format & DT_NOPREFIX) {
        piece.text = text;
        return piece;
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '&' && i + 1 < text.size()) {
            ++i;
            if (text[i] != '&')
                piece.underline = static_cast<int>(piece.text.size());
        }
        piece.text += text[i];
    }
    if (format & DT_HIDEPREFIX)
        piece.underline = -1;
    return piece;
}

class LineBreaker {
public:
    LineBreaker(UINT format, int width, int maxLines, LineMeasure& measure)
        : m_format(format),
          m_width(width),
          m_maxLines(maxLines),
          m_measure(measure)
    {
    }

    std::vector<TextLine> Run(std::string_view text)
    {
        if (m_format & DT_SINGLELINE) {
            Add(text, {});
            return std::move(m_lines);
        }
        while (!text.empty() && !IsFull()) {
            const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
            std::size_t next = end;
            if (next < text.size()) {
                ++next;
                if (next < text.size() && text[next] != text[end] &&
                    (text[next] == '\r' || text[next] == '\n'))
                    ++next;
            }
            AddParagraph(text.substr(0, end), text.substr(next));
            text.remove_prefix(next);
        }
        return std::move(m_lines);
    }

private:
    bool IsFull() const { return m_maxLines > 0 && static_cast<int>(m_lines.size()) >= m_maxLines; }

    void AddParagraph(std::string_view text, std::string_view rest)
    {
        if (!(m_format & DT_WORDBREAK)) {
            Add(text, rest);
            return;
        }
        do {
            const Break end = FindBreak(text);
            const std::string_view left = text.substr(end.next);
            Add(text.substr(0, end.end), left.empty() ? rest : left, !left.empty());
            text = left;
        } while (!text.empty() && !IsFull());
    }

    // The end of a line and the start of the next one.
    struct Break {
        std::size_t end;
        std::size_t next;
    };

    // The first line of `text` ends at the last break opportunity inside the longest prefix that fits.
    Break FindBreak(std::string_view text)
    {
        const std::size_t fit = FittingPrefix(text);
        if (fit == text.size())
            return {fit, fit};
        for (std::size_t at = fit; at > 0; at = PreviousCharacter(text, at))
            if (text[at - 1] == ' ' || MayBreakBefore(text, at))
                return {at, at};
        if (m_format & DT_EDITCONTROL) {
            const std::size_t end = std::max(fit, NextCharacter(text, 0));
            return {end, end};
        }
        // A first word that does not fit is not split; the space after it is dropped.
        std::size_t end = std::min(text.find(' '), text.size());
        for (std::size_t at = NextCharacter(text, 0); at < end; at = NextCharacter(text, at))
            if (MayBreakBefore(text, at))
                end = at;
        return {end, end < text.size() && text[end] == ' ' ? end + 1 : end};
    }

    static bool MayBreakBefore(std::string_view text, std::size_t at)
    {
        return text[at] != ' ' && (IsIdeograph(text, at) || IsIdeograph(text, PreviousCharacter(text, at)));
    }

    std::size_t FittingPrefix(std::string_view text)
    {
        for (std::size_t size = kShortestPiece;; size *= 2) {
            while (size < text.size() && IsContinuation(text[size]))
                ++size;
            const std::string_view piece = text.substr(0, size);
            const std::size_t fit = LongestPrefix(piece, m_width);
            if (fit < piece.size() || piece.size() == text.size())
                return fit;
        }
    }

    // Returns the length of the longest prefix of whole characters that is at most `room` wide.
    std::size_t LongestPrefix(std::string_view text, int room)
    {
        const std::vector<int>& widths = m_measure.Widths(text);
        std::size_t fit = 0;
        while (fit < text.size()) {
            const std::size_t next = NextCharacter(text, fit);
            if (widths[next] > room)
                break;
            fit = next;
        }
        return fit;
    }

    // Adds one line. `rest` is the text after it; `isWrapped` says that `rest` continues the same paragraph.
    void Add(std::string_view text, std::string_view rest, bool isWrapped = false)
    {
        Piece piece = ResolvePrefix(text, m_format);
        TextLine line;
        line.text = std::move(piece.text);
        line.underline = piece.underline;
        const bool runsOut =
            m_maxLines > 0 && static_cast<int>(m_lines.size()) + 1 == m_maxLines && !rest.empty();
        const bool endDots = (m_format & DT_END_ELLIPSIS) && (rest.empty() || runsOut);
        if ((m_format & DT_PATH_ELLIPSIS) && m_measure.Width(line.text) > m_width)
            ShortenPath(line);
        if ((endDots && runsOut) ||
            ((endDots || (m_format & DT_WORD_ELLIPSIS)) && m_measure.Width(line.text) > m_width))
            Shorten(line);
        line.width = m_measure.Width(line.text);
        line.inkWidth = line.width;
        if (isWrapped && !line.text.empty() && line.text.back() == ' ')
            line.inkWidth = m_measure.Width(std::string_view(line.text).substr(0, line.text.size() - 1));
        m_lines.push_back(std::move(line));
    }

    // Keeps the longest prefix that leaves room for the ellipsis.
    void Shorten(TextLine& line)
    {
        const std::size_t keep = LongestPrefix(line.text, m_width - m_measure.Width(kDots));
        Replace(line, line.text.substr(0, keep).append(kDots), keep);
    }

    // Keeps the part after the last separator and shortens the part before it.
    void ShortenPath(TextLine& line)
    {
        const std::size_t separator = line.text.find_last_of("\\/");
        if (separator == std::string::npos) {
            Shorten(line);
            return;
        }
        const std::string tail = std::string(kDots) + line.text.substr(separator);
        const std::string head = line.text.substr(0, separator);
        const std::size_t keep = LongestPrefix(head, m_width - m_measure.Width(tail));
        Replace(line, head.substr(0, keep) + tail, keep);
    }

    // A mnemonic after the first `kept` bytes is dropped.
    static void Replace(TextLine& line, std::string text, std::size_t kept)
    {
        line.text = std::move(text);
        line.isShortened = true;
        if (line.underline >= static_cast<int>(kept))
            line.underline = -1;
    }

    UINT m_format;
    int m_width;
    int m_maxLines;
    LineMeasure& m_measure;
    std::vector<TextLine> m_lines;
};

}  // namespace

std::size_t NextCharacter(std::string_view utf8, std::size_t at)
{
    ++at;
    while (at < utf8.size() && IsContinuation(utf8[at]))
        ++at;
    return at;
}

std::vector<LineMeasure::Part> LineMeasure::Parts(std::string_view line)
{
    std::vector<Part> parts;
    int left = 0;
    for (;;) {
        const std::size_t tab = line.find('\t');
        parts.push_back({line.substr(0, tab), left});
        if (tab == std::string_view::npos)
            return parts;
        left = ((left + m_text(parts.back().text).back()) / m_tabStop + 1) * m_tabStop;
        line.remove_prefix(tab + 1);
    }
}

const std::vector<int>& LineMeasure::Widths(std::string_view line)
{
    if (line.find('\t') == std::string_view::npos)
        return m_text(line);
    m_widths.clear();
    for (const Part& part : Parts(line))
        for (const int width : m_text(part.text))
            m_widths.push_back(part.left + width);
    return m_widths;
}

std::vector<TextLine> LayOutText(std::string_view utf8, UINT format, int width, int maxLines,
                                 LineMeasure& measure)
{
    if (format & DT_EXPANDTABS)
        return LineBreaker(format, width, maxLines, measure).Run(utf8);
    // An unexpanded tab has no glyph; it is replaced by a space that does not allow a line break.
    constexpr std::string_view kNoBreakSpace = "\xC2\xA0";
    std::string plain;
    for (const char character : utf8)
        plain.append(character == '\t' ? kNoBreakSpace : std::string_view(&character, 1));
    return LineBreaker(format, width, maxLines, measure).Run(plain);
}

}  // namespace qvui::native
