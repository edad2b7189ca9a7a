#include "native/gdi/text_layout.h"

#include <algorithm>

namespace qvui::native {
namespace {

constexpr std::string_view kDots = "...";

std::size_t NextCharacter(std::string_view text, std::size_t at)
{
    ++at;
    while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80)
        ++at;
    return at;
}

// Ideographs, kana and hangul: a line may break on either side of them.
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

// "&x" underlines x, "&&" is one ampersand; of several mnemonics the last counts.
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
    LineBreaker(UINT format, int width, int maxLines, const TextMeasure& measure)
        : m_format(format), m_width(width), m_maxLines(maxLines), m_measure(measure)
    {
    }

    std::vector<TextLine> Run(std::string_view text)
    {
        if (m_format & DT_SINGLELINE) {
            Add(text, true);
            return std::move(m_lines);
        }
        while (!text.empty() && !IsFull()) {
            const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
            AddParagraph(text.substr(0, end), end == text.size());
            std::size_t next = end;
            if (next < text.size()) {
                ++next;
                if (next < text.size() && text[next] != text[end] && (text[next] == '\r' || text[next] == '\n'))
                    ++next;
            }
            text.remove_prefix(next);
        }
        return std::move(m_lines);
    }

private:
    bool IsFull() const { return m_maxLines > 0 && static_cast<int>(m_lines.size()) >= m_maxLines; }

    void AddParagraph(std::string_view text, bool isLast)
    {
        if (!(m_format & DT_WORDBREAK)) {
            Add(text, isLast);
            return;
        }
        do {
            const std::size_t end = BreakPosition(text);
            // The last line that there is room for shows by its dots that text is missing.
            const bool overflows = m_maxLines > 0 && static_cast<int>(m_lines.size()) + 1 == m_maxLines &&
                                   (m_format & DT_END_ELLIPSIS) && end < text.size();
            Add(overflows ? text : text.substr(0, end), isLast && (overflows || end == text.size()), end < text.size());
            text.remove_prefix(end);
            if (m_droppedSpace && !text.empty() && text.front() == ' ')
                text.remove_prefix(1);
        } while (!text.empty() && !IsFull());
    }

    // Where the line that starts here ends: at the last break inside the longest prefix that fits.
    std::size_t BreakPosition(std::string_view text)
    {
        m_droppedSpace = false;
        const std::vector<int>& widths = m_measure.widths(text);
        if (widths.back() <= m_width)
            return text.size();
        std::size_t fit = 0;
        for (std::size_t next = NextCharacter(text, 0); next <= text.size() && widths[next] <= m_width;
             next = NextCharacter(text, next)) {
            fit = next;
            if (fit == text.size())
                break;
        }
        std::size_t best = 0;
        for (std::size_t at = 0; at < fit; at = NextCharacter(text, at)) {
            if (text[at] == ' ')
                best = at + 1;
            else if (at > 0 && (IsIdeograph(text, at) || IsIdeograph(text, Previous(text, at))))
                best = at;
        }
        if (best > 0)
            return best;
        if (m_format & DT_EDITCONTROL)
            return std::max(fit, NextCharacter(text, 0));
        // A first word that does not fit stays whole, and the space after it is dropped.
        const std::size_t space = text.find(' ');
        std::size_t end = std::min(space, text.size());
        for (std::size_t at = NextCharacter(text, 0); at < end; at = NextCharacter(text, at))
            if (IsIdeograph(text, at)) {
                end = at;
                break;
            }
        m_droppedSpace = true;
        return end;
    }

    static std::size_t Previous(std::string_view text, std::size_t at)
    {
        do
            --at;
        while (at > 0 && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80);
        return at;
    }

    void Add(std::string_view text, bool isLast, bool isBroken = false)
    {
        Piece piece = ResolvePrefix(text, m_format);
        TextLine line;
        line.text = std::move(piece.text);
        line.underline = piece.underline;
        const bool endDots = (m_format & DT_END_ELLIPSIS) && isLast;
        const bool wordDots = (m_format & DT_WORD_ELLIPSIS) != 0;
        if ((m_format & DT_PATH_ELLIPSIS) && Width(line.text) > m_width)
            ShortenPath(line);
        else if ((endDots || wordDots) && Width(line.text) > m_width)
            Shorten(line);
        line.width = Width(line.text);
        line.inkWidth = line.width;
        if (isBroken && !line.text.empty() && line.text.back() == ' ')
            line.inkWidth = Width(std::string_view(line.text).substr(0, line.text.size() - 1));
        m_lines.push_back(std::move(line));
    }

    int Width(std::string_view text) const { return text.empty() ? 0 : m_measure.widths(text).back(); }

    // The longest prefix that still leaves room for the dots.
    void Shorten(TextLine& line)
    {
        const int dots = Width(kDots);
        const std::vector<int>& widths = m_measure.widths(line.text);
        std::size_t keep = 0;
        for (std::size_t next = line.text.empty() ? 1 : NextCharacter(line.text, 0);
             next <= line.text.size() && widths[next] + dots <= m_width; next = NextCharacter(line.text, next)) {
            keep = next;
            if (keep == line.text.size())
                break;
        }
        line.text.resize(keep);
        line.text += kDots;
        if (line.underline >= static_cast<int>(keep))
            line.underline = -1;
    }

    // The part after the last separator stays; the head is shortened.
    void ShortenPath(TextLine& line)
    {
        const std::size_t separator = line.text.find_last_of("\\/");
        if (separator == std::string::npos) {
            Shorten(line);
            return;
        }
        const std::string tail = line.text.substr(separator);
        const std::string head = line.text.substr(0, separator);
        const int rest = Width(tail) + Width(kDots);
        const std::vector<int> widths = head.empty() ? std::vector<int>{0} : m_measure.widths(head);
        std::size_t keep = 0;
        for (std::size_t next = 0; next < head.size();) {
            next = NextCharacter(head, next);
            if (widths[next] + rest > m_width)
                break;
            keep = next;
        }
        line.text = head.substr(0, keep) + std::string(kDots) + tail;
        line.underline = -1;
    }

    UINT m_format;
    int m_width;
    int m_maxLines;
    const TextMeasure& m_measure;
    bool m_droppedSpace = false;
    std::vector<TextLine> m_lines;
};

}  // namespace

std::vector<TextLine> LayOutText(std::string_view utf8, UINT format, int width, int maxLines,
                                 const TextMeasure& measure)
{
    std::string expanded;
    if (utf8.find('\t') != std::string_view::npos) {
        // Tabs reach the next multiple of eight characters when asked for, else they are a space.
        for (const char character : utf8) {
            if (character != '\t') {
                expanded += character;
                continue;
            }
            expanded += ' ';
            if (!(format & DT_EXPANDTABS))
                continue;
            const std::size_t lineStart = expanded.find_last_of('\n') + 1;
            const int stop = std::max(1, 8 * measure.averageWidth);
            const auto current = [&] { return measure.widths(std::string_view(expanded).substr(lineStart)).back(); };
            const int target = (current() / stop + 1) * stop;
            for (int i = 0; i < 64 && current() < target; ++i)
                expanded += ' ';
        }
        utf8 = expanded;
    }
    return LineBreaker(format, width, maxLines, measure).Run(utf8);
}

}  // namespace qvui::native
