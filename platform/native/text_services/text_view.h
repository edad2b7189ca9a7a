#pragma once

#include <list>
#include <memory>
#include <optional>
#include <unordered_map>

#include "native/gdi/device_context.h"
#include "native/text_services/document.h"
#include "native/text_services/segment_layout.h"

namespace qvui::native {

/// A place between two characters. Where a wrapped line goes on in the next one a position is on both of
/// them.
struct Caret {
    Document::Position position = 0;
    bool atEndOfLine = false;  // on the first of the two lines

    bool operator==(const Caret&) const = default;
};

/// The colours of a view besides those of the text's formats.
struct ViewColours {
    COLORREF text;
    COLORREF selectedText;
    COLORREF selection;
    COLORREF link;
};

/// A document laid out in lines: only what is near the view is laid out, the rest is measured by estimates
/// that later layouts correct. Coordinates are pixels from the top left of the document; the part at the top
/// of the view stays where it is while what is above it is measured.
class TextView {
public:
    using Position = Document::Position;

    explicit TextView(Document& document);

    const LayoutSettings& Settings() const { return m_settings; }
    /// Other settings make all measures estimates again.
    void Configure(const LayoutSettings& settings);
    double Zoom() const { return m_fonts.Zoom(); }
    void SetZoom(double zoom);
    /// To be called when the value of the default character or paragraph format has changed.
    void DefaultsChanged();
    /// To be called after [first, first + removed) became `inserted` units.
    void Replaced(Position first, int removed, int inserted);

    std::int64_t Height() const { return m_document.Segments().Total().height; }
    /// The right end of the widest line as far as it is known.
    std::int64_t Width() const;
    int LineHeight();
    std::int64_t Top() const;
    void SetTop(std::int64_t y);

    struct Box {
        std::int64_t x;
        std::int64_t y;
        int height;
    };
    Box Locate(Caret caret);
    Caret Hit(std::int64_t x, std::int64_t y);
    /// The character under a point; nothing beside the text.
    std::optional<Position> CharacterAt(std::int64_t x, std::int64_t y);

    /// Lines count from 0. These lay out all that stands before their answer.
    int LineCount();
    int LineOf(Caret caret);
    struct LineSpan {
        Position first;
        Position last;   // without a break
        bool isWrapped;  // the paragraph goes on in the next line
    };
    LineSpan LineAt(int line);
    /// The line around a caret; lays out no more than its segment.
    LineSpan LineAround(Caret caret);

    /// Caret movements, which go over the borders of paragraphs and stay within the document.
    Position Left(Position position) { return MoveVisually(position, false); }
    Position Right(Position position) { return MoveVisually(position, true); }
    Position Next(Position position);
    Position Previous(Position position);
    Position Backspace(Position position);
    bool IsCaretPosition(Position position);
    bool IsWordBoundary(Position position);

    /// Lays out what a view of this height shows, and keeps what stands at its top.
    void MeasureView(int height);
    /// Lays out up to `most` segments that are not measured yet, those after the view's top first; false when
    /// none is left.
    bool MeasureMore(int most);
    /// Lays out everything before a position.
    void MeasureThrough(Position position);

    /// Draws the part of the document that lies in `update` (surface coordinates); its top left would be
    /// drawn at (x, y), which may be far outside.
    void Draw(DeviceContext& context, std::int64_t x, std::int64_t y, const RECT& update,
              Position selectionFirst, Position selectionLast, const ViewColours& colours);

private:
    struct Cached {
        std::uint32_t key;
        int cost;
        std::unique_ptr<SegmentLayout> layout;
    };
    struct Spot {
        SegmentTree::Index index;
        Position start;  // of the segment
        const SegmentLayout* layout;
    };

    void Estimate(Segment& segment);
    const SegmentLayout& Lay(SegmentTree::Index index);
    std::unique_ptr<SegmentLayout> Make(SegmentTree::Index index);
    bool IsRightToLeft(SegmentTree::Index index) const;
    void Keep(SegmentTree::Index index, std::unique_ptr<SegmentLayout> layout);
    Spot SpotOf(Caret caret);
    std::int64_t XOf(SegmentTree::Index index) const;
    Position MoveVisually(Position position, bool toRight);
    void DrawLine(DeviceContext& context, const SegmentLayout& layout, const LineBox& line,
                  const Segment& segment, POINT origin, int selectionFirst, int selectionLast,
                  bool isBreakSelected, const ViewColours& colours);

    Document& m_document;
    FormatFonts m_fonts;
    LayoutSettings m_settings;
    // Most recently used first.
    std::list<Cached> m_layouts;
    std::unordered_map<std::uint32_t, std::list<Cached>::iterator> m_index;
    std::uint32_t m_lastKey = 0;
    int m_cost = 0;
    Position m_anchor = 0;  // the start of the segment at the top of the view
    std::int64_t m_offset = 0;
};

}  // namespace qvui::native
