#include "tooltip/markup/line_layout.h"

#include <algorithm>
#include <span>
#include <utility>

#include <qvui/platform/cstring.h>

#include "tooltip/markup/breaks.h"

namespace DUI::html {
namespace {

constexpr std::size_t kLongestAtom = 64;   // characters measured at a time
constexpr std::size_t kLongestBox = 1024;  // bytes drawn at a time
constexpr int kRuleHeight = 9;

/// A unit that is not split unless it is longer than a line.
struct Atom {
    const Piece* piece = nullptr;
    std::string_view text;
    bool isSpace = false;
    bool mayBreakBefore = false;
    int x = 0;
    int width = 0;
};

std::size_t LengthOfFirst(std::string_view text)
{
    return static_cast<std::size_t>(CharacterLength(text.data(), text.data() + text.size()));
}

/// Splits the text of successive pieces into atoms; a word may continue in the next piece.
class AtomCutter {
public:
    /// Returns the first atom of a piece's remaining text.
    Atom Cut(const Piece& piece, std::string_view rest)
    {
        Atom atom;
        atom.piece = &piece;
        atom.isSpace = rest.front() == ' ';
        std::size_t length = 0;
        for (std::size_t count = 0; length < rest.size() && count < kLongestAtom; ++count) {
            const std::size_t next = LengthOfFirst(rest.substr(length));
            const char32_t character = CodePointOf(rest.substr(length, next));
            const bool mayBreak = m_last != 0 && MayBreakBetween(m_last, character);
            if (count == 0)
                atom.mayBreakBefore = mayBreak;
            else if (mayBreak || (character == U' ') != atom.isSpace)
                break;
            m_last = character;
            length += next;
        }
        atom.text = rest.substr(0, length);
        return atom;
    }

    /// Call after an element that is not text, or at the start of a line.
    void Restart(char32_t last) { m_last = last; }
    char32_t Last() const { return m_last; }

private:
    char32_t m_last = 0;
};

class Filler {
public:
    Filler(const Document& document, Ruler& ruler, int maxWidth, int maxHeight)
        : m_document(document),
          m_ruler(ruler),
          m_maxWidth(maxWidth),
          m_maxHeight(maxHeight)
    {
    }

    Layout Fill()
    {
        int lastStyle = 0;
        for (const Piece& piece : m_document.pieces) {
            if (IsFull())
                break;
            lastStyle = piece.style;
            AddPiece(piece);
        }
        if (!m_line.empty() && !IsFull())
            EndLine(lastStyle);
        m_layout.size.cy = m_top;
        return std::move(m_layout);
    }

private:
    bool IsFull() const { return m_top >= m_maxHeight; }

    void AddPiece(const Piece& piece)
    {
        switch (piece.kind) {
            case PieceKind::Text:
                for (std::string_view rest = piece.text; !rest.empty() && !IsFull();) {
                    Atom atom = m_cutter.Cut(piece, rest);
                    rest.remove_prefix(atom.text.size());
                    atom.width = WidthOf(piece.style, atom.text);
                    AddAtom(atom);
                }
                break;
            case PieceKind::LineBreak:
                BreakLine(piece.style);
                break;
            case PieceKind::BlockBreak:
                if (!m_line.empty())
                    BreakLine(piece.style);
                m_indent = m_x = 0;
                break;
            case PieceKind::Indent:
                m_indent = std::min(piece.number, m_maxWidth / 2);
                m_x = std::max(m_x, m_indent);
                m_cutter.Restart(U' ');
                break;
            case PieceKind::Image:
            case PieceKind::Rule:
                AddObject(piece);
                break;
        }
    }

    void AddObject(const Piece& piece)
    {
        Atom atom;
        atom.piece = &piece;
        atom.mayBreakBefore = m_cutter.Last() != 0;
        if (piece.kind == PieceKind::Image)
            atom.width = m_ruler.Image(piece.text, piece.number).cx;
        // A line may break after an image as after an ideograph.
        m_cutter.Restart(U'\u4E00');
        AddAtom(atom);
    }

    int WidthOf(int style, std::string_view text)
    {
        if (text.find(kNoBreakSpace) == std::string_view::npos)
            return m_ruler.Width(style, text);
        return m_ruler.Width(style, Spaced(text));
    }

    static std::string Spaced(std::string_view text)
    {
        std::string spaced(text);
        std::replace(spaced.begin(), spaced.end(), kNoBreakSpace, ' ');
        return spaced;
    }

    void AddAtom(Atom atom)
    {
        while (!atom.isSpace && m_x + atom.width > m_maxWidth && !IsFull()) {
            if (atom.mayBreakBefore && !m_line.empty()) {
                WrapLine(m_line.size());
            } else if (m_lastBreak > 0) {
                WrapLine(m_lastBreak);
            } else if (!AddPart(atom)) {
                break;
            }
        }
        if (!IsFull())
            Append(atom);
    }

    /// Places as much of a word that is longer than a line as fits, and leaves the rest in `atom`. Returns
    /// false if the whole atom must be placed on this line, even if it does not fit.
    bool AddPart(Atom& atom)
    {
        std::size_t fitting = FittingPart(atom);
        if (fitting == 0 && !m_line.empty()) {
            WrapLine(m_line.size());
            return true;
        }
        if (fitting == 0 && !atom.text.empty())
            fitting = LengthOfFirst(atom.text);
        if (fitting == atom.text.size())
            return false;
        Atom part = atom;
        part.text = atom.text.substr(0, fitting);
        part.width = WidthOf(atom.piece->style, part.text);
        Append(part);
        WrapLine(m_line.size());
        atom.text.remove_prefix(fitting);
        atom.mayBreakBefore = false;
        atom.width = WidthOf(atom.piece->style, atom.text);
        return true;
    }

    /// Returns the length in bytes of the characters that fit on the line.
    std::size_t FittingPart(const Atom& atom)
    {
        std::vector<std::size_t> ends{0};
        while (ends.back() < atom.text.size())
            ends.push_back(ends.back() + LengthOfFirst(atom.text.substr(ends.back())));
        const auto overflowing = std::partition_point(ends.begin() + 1, ends.end(), [&](std::size_t length) {
            return m_x + WidthOf(atom.piece->style, atom.text.substr(0, length)) <= m_maxWidth;
        });
        return *(overflowing - 1);
    }

    void Append(Atom atom)
    {
        if (atom.mayBreakBefore)
            m_lastBreak = m_line.size();
        atom.x = m_x;
        m_x += atom.width;
        m_line.push_back(atom);
    }

    void BreakLine(int style)
    {
        EndLine(style);
        m_indent = m_x = 0;
        m_cutter.Restart(0);
    }

    /// Ends the line before one of its atoms; that atom and the following ones begin the next line.
    void WrapLine(std::size_t count)
    {
        std::vector<Atom> carried(m_line.begin() + static_cast<std::ptrdiff_t>(count), m_line.end());
        m_line.resize(count);
        EndLine(m_line.back().piece->style);
        m_x = m_indent;
        for (Atom& atom : carried) {
            atom.mayBreakBefore = atom.mayBreakBefore && !m_line.empty();
            Append(atom);
        }
    }

    void EndLine(int style)
    {
        while (!m_line.empty() && m_line.back().isSpace)
            m_line.pop_back();
        if (!m_line.empty())
            style = m_line.front().piece->style;
        Line line;
        line.firstBox = static_cast<int>(m_layout.boxes.size());
        line.top = m_top;
        line.isCentered = m_document.styles[static_cast<std::size_t>(style)].isCentered;
        JoinAtoms();
        line.boxCount = static_cast<int>(m_layout.boxes.size()) - line.firstBox;
        PlaceAcross(line);
        PlaceDown(line, style);
        m_layout.lines.push_back(line);
        m_layout.size.cx = std::max<LONG>(m_layout.size.cx, line.width);
        m_top += line.height;
        m_line.clear();
        m_lastBreak = 0;
    }

    /// Combines adjacent atoms of one style into a box, so that they are shaped and drawn as one text. Until
    /// the boxes are placed, a box's rectangle holds the gap before it and the width of its atoms.
    void JoinAtoms()
    {
        int end = 0;
        Box* joint = nullptr;
        for (const Atom& atom : m_line) {
            const Piece& piece = *atom.piece;
            const bool isText = piece.kind == PieceKind::Text;
            const LONG gap = atom.x - std::exchange(end, atom.x + atom.width);
            if (isText && joint && gap == 0 && joint->style == piece.style &&
                joint->text.size() < kLongestBox) {
                joint->text += Spaced(atom.text);
                continue;
            }
            m_layout.boxes.push_back({piece.kind, piece.style, isText ? Spaced(atom.text) : piece.text,
                                      piece.number, RECT{gap, 0, gap + atom.width, 0}});
            joint = isText ? &m_layout.boxes.back() : nullptr;
        }
    }

    void PlaceAcross(Line& line)
    {
        for (Box& box : m_layout.BoxesOf(line)) {
            // The width of a combined text may differ from the sum of its atoms' widths.
            const LONG width = box.kind == PieceKind::Text ? m_ruler.Width(box.style, box.text)
                                                           : box.rect.right - box.rect.left;
            box.rect.left += line.width;
            box.rect.right = box.rect.left + width;
            line.width = box.rect.right;
        }
    }

    void PlaceDown(Line& line, int style)
    {
        LineMetrics text = line.boxCount == 0 ? m_ruler.Metrics(style) : LineMetrics{};
        int descent = text.height - text.ascent;
        int tallest = 0;
        for (Box& box : m_layout.BoxesOf(line)) {
            if (box.kind == PieceKind::Text) {
                const LineMetrics metrics = m_ruler.Metrics(box.style);
                text.ascent = std::max(text.ascent, metrics.ascent);
                descent = std::max(descent, metrics.height - metrics.ascent);
                box.rect.top = -metrics.ascent;
                box.rect.bottom = metrics.height - metrics.ascent;
            } else {
                box.rect.bottom =
                    box.kind == PieceKind::Rule ? kRuleHeight : m_ruler.Image(box.text, box.number).cy;
                tallest = std::max(tallest, static_cast<int>(box.rect.bottom));
            }
        }
        text.height = text.ascent + descent;
        line.height = std::max({text.height, tallest, 1});
        for (Box& box : m_layout.BoxesOf(line)) {
            const int top = box.kind == PieceKind::Text
                                ? (line.height - text.height) / 2 + text.ascent
                                : (line.height - static_cast<int>(box.rect.bottom)) / 2;
            OffsetRect(&box.rect, 0, line.top + top);
        }
    }

    const Document& m_document;
    Ruler& m_ruler;
    const int m_maxWidth;
    const int m_maxHeight;
    Layout m_layout;
    AtomCutter m_cutter;
    std::vector<Atom> m_line;
    std::size_t m_lastBreak = 0;  // index of the last atom of the line that may begin the next one, 0: none
    int m_x = 0;
    int m_top = 0;
    int m_indent = 0;
};

}  // namespace

Layout LayOut(const Document& document, Ruler& ruler, int maxWidth, int maxHeight)
{
    return Filler(document, ruler, std::max(maxWidth, 1), maxHeight).Fill();
}

}  // namespace DUI::html
