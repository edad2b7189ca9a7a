#include "native/text_services/text_view.h"

#include <algorithm>
#include <climits>

#include "native/gdi/fills.h"
#include "native/text/text_drawing.h"

namespace qvui::native {
namespace {

// What is kept of layouts: more than a large screen shows.
constexpr int kMostCost = 1 << 19;  // units, with a charge for each layout
constexpr int kCostOfLayout = 64;
// A segment takes over so much of the next one to see how its last line ends.
constexpr int kLookAhead = 512;
constexpr int kSegmentsForDirection = 4;

bool IsPlainAscii(std::u16string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit >= u' ' && unit < 0x7F; });
}

int Clamped(std::int64_t value)
{
    return static_cast<int>(std::clamp<std::int64_t>(value, INT_MIN / 2, INT_MAX / 2));
}

}  // namespace

TextView::TextView(Document& document) : m_document(document), m_fonts(document.CharFormats())
{
    m_document.SetEstimator([this](Segment& segment) { Estimate(segment); });
    m_document.TouchAll();
}

void TextView::Configure(const LayoutSettings& settings)
{
    if (settings == m_settings)
        return;
    const bool isOnlyAlignment = !settings.wraps && !m_settings.wraps &&
                                 settings.hasFixedLineHeight == m_settings.hasFixedLineHeight &&
                                 settings.password == m_settings.password;
    m_settings = settings;
    m_layouts.clear();
    m_index.clear();
    m_cost = 0;
    if (!isOnlyAlignment)
        m_document.TouchAll();
}

void TextView::SetZoom(double zoom)
{
    m_fonts.SetZoom(zoom);
    DefaultsChanged();
}

void TextView::DefaultsChanged()
{
    m_fonts.Forget(kDefaultFormat);
    m_layouts.clear();
    m_index.clear();
    m_cost = 0;
    m_document.TouchAll();
}

void TextView::Replaced(Position first, int removed, int inserted)
{
    if (m_anchor >= first + removed)
        m_anchor += inserted - removed;
    else if (m_anchor > first)
        m_anchor = first;
    m_anchor = std::clamp(m_anchor, 0, m_document.Length());
}

int TextView::LineHeight()
{
    const FormatFont& font = m_fonts[kDefaultFormat];
    return font.ascent + font.descent;
}

// Printable ASCII in the default format that fits into a line is measured by that; all other text is guessed
// at.
void TextView::Estimate(Segment& segment)
{
    const FormatFont& font = m_fonts[kDefaultFormat];
    const ParaFormat& paragraph = m_document.ParaFormats()[segment.paragraph];
    const int length = segment.text.Length();
    const int average = std::max<int>(1, font.font->Metrics().tmAveCharWidth);
    const int line = font.ascent + font.descent;
    int width = length * average;
    const bool isPlain = paragraph == ParaFormat{} && segment.formats.IsUniform() &&
                         segment.formats.At(0) == kDefaultFormat && !m_settings.password;
    segment.isMeasured = false;
    if (isPlain && length * (average / 2) <= std::max(m_settings.width, 1) &&
        IsPlainAscii(segment.text.View())) {
        char ascii[512];
        if (length <= static_cast<int>(sizeof ascii)) {
            std::copy(segment.text.View().begin(), segment.text.View().end(), ascii);
            const int exact = font.font->PlainWidth({ascii, static_cast<std::size_t>(length)});
            width = exact >= 0 ? exact : width;
            segment.isMeasured =
                exact >= 0 && segment.endsParagraph && (!m_settings.wraps || width <= m_settings.width);
        }
    }
    if (m_settings.wraps) {
        segment.lines = std::max(1, (width + m_settings.width - 1) / std::max(1, m_settings.width));
        segment.width = std::min(width, m_settings.width);
    } else {
        segment.lines = segment.endsParagraph ? 1 : 0;
        segment.width = width;
    }
    segment.height = segment.lines * line;
}

bool TextView::IsRightToLeft(SegmentTree::Index index) const
{
    const SegmentTree& segments = m_document.Segments();
    if (m_document.ParaFormats()[segments[index].paragraph].effects & PFE_RTLPARA)
        return true;
    index = m_document.FirstSegment(index);
    for (int i = 0; i < kSegmentsForDirection; ++i, ++index) {
        const Direction direction = FirstStrong(segments[index].text.View());
        if (direction != Direction::Neutral)
            return direction == Direction::RightToLeft;
        if (segments[index].endsParagraph)
            break;
    }
    return false;
}

std::unique_ptr<SegmentLayout> TextView::Make(SegmentTree::Index index)
{
    const Segment& segment = m_document.Segments()[index];
    SegmentPlace place;
    place.startsParagraph = m_document.StartsParagraph(index);
    place.isRightToLeft = IsRightToLeft(index);
    place.isAligned = m_settings.wraps || (place.startsParagraph && segment.endsParagraph);
    return std::make_unique<SegmentLayout>(segment, place, m_settings,
                                           m_document.ParaFormats()[segment.paragraph], m_fonts);
}

// The layout is valid until the next call. The segment's end may move: to where a line ends.
const SegmentLayout& TextView::Lay(SegmentTree::Index index)
{
    const Segment& known = m_document.Segments()[index];
    if (known.isMeasured && known.layout)
        if (const auto cached = m_index.find(known.layout); cached != m_index.end()) {
            m_layouts.splice(m_layouts.begin(), m_layouts, cached->second);
            return *m_layouts.front().layout;
        }
    const bool settles = m_settings.wraps && !known.endsParagraph && !known.endsLine;
    if (settles)
        m_document.MoveBorder(index, known.text.Length() + kLookAhead);
    std::unique_ptr<SegmentLayout> layout = Make(index);
    if (settles && !m_document.Segments()[index].endsParagraph && layout->Lines().size() > 1) {
        layout->DropLastLine();
        m_document.MoveBorder(index, layout->Length());
    }
    Keep(index, std::move(layout));
    return *m_layouts.front().layout;
}

void TextView::Keep(SegmentTree::Index index, std::unique_ptr<SegmentLayout> layout)
{
    const std::uint32_t key = ++m_lastKey ? m_lastKey : ++m_lastKey;
    int height = layout->Height();
    bool raisesEnd = false;
    m_document.UpdateMeasures(index, [&](Segment& segment) {
        segment.layout = key;
        segment.isMeasured = true;
        segment.endsLine = m_settings.wraps && !segment.endsParagraph;
        segment.width = layout->Width();
        if (m_settings.wraps || segment.endsParagraph) {
            segment.lines = static_cast<int>(layout->Lines().size());
            segment.height = height;
        } else {
            segment.lines = 0;
            segment.height = 0;
            raisesEnd = true;
        }
    });
    if (raisesEnd) {
        // The parts of a line that is not wrapped stand side by side: its last segment has the height of all.
        const std::int64_t ended = m_document.Segments().Before(index).paragraphs;
        const SegmentTree::Index last = m_document.Segments().Find(&SegmentSums::paragraphs, ended).index;
        if (m_document.Segments()[last].height < height)
            m_document.UpdateMeasures(last, [&](Segment& segment) { segment.height = height; });
    }
    const int cost = layout->Length() + kCostOfLayout;
    m_layouts.push_front({key, cost, std::move(layout)});
    m_index[key] = m_layouts.begin();
    m_cost += cost;
    while (m_cost > kMostCost && m_layouts.size() > 1) {
        m_cost -= m_layouts.back().cost;
        m_index.erase(m_layouts.back().key);
        m_layouts.pop_back();
    }
}

// The segment that a caret stands in, laid out.
TextView::Spot TextView::SpotOf(Caret caret)
{
    const SegmentTree& segments = m_document.Segments();
    for (;;) {
        SegmentTree::Place place = m_document.PlaceOf(caret.position);
        if (caret.atEndOfLine && place.offset == 0 && m_settings.wraps &&
            !m_document.StartsParagraph(place.index)) {
            --place.index;
            place.offset = segments[place.index].Units();
        }
        const SegmentLayout& layout = Lay(place.index);
        // Layout may have moved the segment's end before the position.
        if (place.offset <= layout.Length() || segments[place.index].endsParagraph)
            return {place.index, caret.position - static_cast<Position>(place.offset), &layout};
    }
}

std::int64_t TextView::XOf(SegmentTree::Index index) const
{
    if (m_settings.wraps || m_document.StartsParagraph(index))
        return 0;
    const SegmentTree& segments = m_document.Segments();
    return segments.Before(index).width - segments.Before(m_document.FirstSegment(index)).width;
}

std::int64_t TextView::Width() const
{
    return m_document.Segments().Total().Widest();
}

std::int64_t TextView::Top() const
{
    const SegmentTree::Place place = m_document.PlaceOf(m_anchor);
    return m_document.Segments().Before(place.index).height + m_offset;
}

void TextView::SetTop(std::int64_t y)
{
    const SegmentTree& segments = m_document.Segments();
    y = std::max<std::int64_t>(y, 0);
    SegmentTree::Place place = segments.Find(&SegmentSums::height, y);
    if (place.index >= segments.Size()) {
        place.index = segments.Size() - 1;
        place.offset = y - segments.Before(place.index).height;
    }
    m_anchor = static_cast<Position>(segments.Before(place.index).units);
    m_offset = place.offset;
}

TextView::Box TextView::Locate(Caret caret)
{
    const Spot spot = SpotOf(caret);
    const int offset = caret.position - spot.start;
    const LineBox& line = spot.layout->LineAt(offset, caret.atEndOfLine);
    return {XOf(spot.index) + spot.layout->CaretX(line, offset),
            m_document.Segments().Before(spot.index).height + line.y, line.height};
}

Caret TextView::Hit(std::int64_t x, std::int64_t y)
{
    const SegmentTree& segments = m_document.Segments();
    for (;;) {
        SegmentTree::Place place = segments.Find(&SegmentSums::height, std::max<std::int64_t>(y, 0));
        if (place.index >= segments.Size()) {
            place.index = segments.Size() - 1;
            place.offset = INT_MAX;
        } else if (y < 0) {
            place.offset = INT_MIN;
        }
        std::int64_t left = 0;
        if (!m_settings.wraps && !m_document.StartsParagraph(place.index)) {
            const SegmentTree::Index first = m_document.FirstSegment(place.index);
            const std::int64_t before = segments.Before(first).width;
            place.index =
                std::clamp(segments.Find(&SegmentSums::width, before + std::max<std::int64_t>(x, 0)).index,
                           first, place.index);
            left = segments.Before(place.index).width - before;
        }
        const std::int64_t height = segments[place.index].height;
        const SegmentLayout& layout = Lay(place.index);
        // An estimate that was too high or too low by more than a line may point at another segment.
        if (m_settings.wraps && place.offset != INT_MAX && place.offset >= layout.Height() &&
            height != layout.Height())
            continue;
        const LineBox& line = layout.LineAtHeight(Clamped(place.offset));
        const int offset = layout.Hit(line, Clamped(x - left));
        const bool isAtWrap =
            offset == line.last && line.first < line.last &&
            (&line != &layout.Lines().back() ? (&line)[1].first == offset
                                             : m_settings.wraps && !segments[place.index].endsParagraph);
        return {static_cast<Position>(segments.Before(place.index).units) + offset, isAtWrap};
    }
}

std::optional<TextView::Position> TextView::CharacterAt(std::int64_t x, std::int64_t y)
{
    if (y < 0 || y >= Height())
        return std::nullopt;
    const Spot spot = SpotOf(Hit(x, y));
    const std::int64_t top = m_document.Segments().Before(spot.index).height;
    const LineBox& line = spot.layout->LineAtHeight(Clamped(y - top));
    const int offset = spot.layout->CharacterAt(line, Clamped(x - XOf(spot.index)));
    if (offset < 0 || offset >= line.last)
        return std::nullopt;
    return spot.start + offset;
}

int TextView::LineCount()
{
    if (m_settings.wraps || !m_settings.hasFixedLineHeight)
        MeasureThrough(m_document.Length());
    return static_cast<int>(m_document.Segments().Total().lines);
}

int TextView::LineOf(Caret caret)
{
    MeasureThrough(caret.position);
    const Spot spot = SpotOf(caret);
    const LineBox& line = spot.layout->LineAt(caret.position - spot.start, caret.atEndOfLine);
    return static_cast<int>(m_document.Segments().Before(spot.index).lines +
                            (&line - spot.layout->Lines().data()));
}

TextView::LineSpan TextView::LineAt(int line)
{
    const SegmentTree& segments = m_document.Segments();
    for (;;) {
        const SegmentTree::Place unmeasured = segments.Find(&SegmentSums::unmeasured, 0);
        SegmentTree::Place place = segments.Find(&SegmentSums::lines, line);
        if (unmeasured.index <= place.index && unmeasured.index < segments.Size()) {
            Lay(unmeasured.index);
            continue;
        }
        if (place.index >= segments.Size())
            return {-1, -1, false};
        const auto start = static_cast<Position>(segments.Before(place.index).units);
        const SegmentLayout& layout = Lay(place.index);
        const LineBox& box = layout.Lines()[static_cast<std::size_t>(place.offset)];
        return LineAround({start + box.first, false});
    }
}

TextView::LineSpan TextView::LineAround(Caret caret)
{
    const Spot spot = SpotOf(caret);
    const LineBox& line = spot.layout->LineAt(caret.position - spot.start, caret.atEndOfLine);
    LineSpan span{spot.start + line.first, spot.start + line.last, false};
    const bool isLast = &line == &spot.layout->Lines().back();
    const bool endsParagraph = m_document.Segments()[spot.index].endsParagraph;
    if (m_settings.wraps) {
        span.isWrapped = isLast ? !endsParagraph : (&line)[1].first == line.last;
    } else if (spot.layout->Lines().size() == 1) {
        span.first = m_document.ParagraphStart(caret.position);
        span.last = m_document.ParagraphEnd(caret.position);
    }
    return span;
}

TextView::Position TextView::Next(Position position)
{
    if (position >= m_document.Length())
        return m_document.Length();
    const Spot spot = SpotOf({position, false});
    const int offset = position - spot.start;
    return offset >= spot.layout->Length() ? position + 1 : spot.start + spot.layout->Next(offset);
}

TextView::Position TextView::Previous(Position position)
{
    if (position <= 0)
        return 0;
    const Spot spot = SpotOf({position - 1, false});
    const int offset = position - spot.start;
    return offset > spot.layout->Length() ? position - 1 : spot.start + spot.layout->Previous(offset);
}

TextView::Position TextView::Backspace(Position position)
{
    if (position <= 0)
        return 0;
    const Spot spot = SpotOf({position - 1, false});
    const int offset = position - spot.start;
    return offset > spot.layout->Length() ? position - 1 : spot.start + spot.layout->Backspace(offset);
}

bool TextView::IsCaretPosition(Position position)
{
    const Spot spot = SpotOf({position, false});
    return spot.layout->IsCaretPosition(position - spot.start);
}

bool TextView::IsWordBoundary(Position position)
{
    const Spot spot = SpotOf({position, false});
    return spot.layout->IsWordBoundary(position - spot.start);
}

TextView::Position TextView::MoveVisually(Position position, bool toRight)
{
    const Spot spot = SpotOf({position, false});
    const int next = spot.layout->MoveVisually(position - spot.start, toRight);
    if (next >= 0 && next <= spot.layout->Length())
        return spot.start + next;
    // Past the segment's end: on in the order of the text, which a paragraph from right to left turns round.
    return toRight != spot.layout->IsRightToLeft() ? Next(spot.start + spot.layout->Length())
                                                   : Previous(spot.start);
}

void TextView::MeasureView(int height)
{
    const SegmentTree& segments = m_document.Segments();
    SegmentTree::Index index = m_document.PlaceOf(m_anchor).index;
    std::int64_t shown = -m_offset;
    for (; index < segments.Size() && shown < height; ++index) {
        if (!segments[index].isMeasured)
            Lay(index);
        shown += segments[index].height;
    }
}

bool TextView::MeasureMore(int most)
{
    const SegmentTree& segments = m_document.Segments();
    const std::int64_t before = segments.Before(m_document.PlaceOf(m_anchor).index).unmeasured;
    for (; most > 0 && segments.Total().unmeasured > 0; --most) {
        const bool isAfter = segments.Total().unmeasured > before;
        Lay(segments.Find(&SegmentSums::unmeasured, isAfter ? before : 0).index);
    }
    return segments.Total().unmeasured > 0;
}

void TextView::MeasureThrough(Position position)
{
    const SegmentTree& segments = m_document.Segments();
    for (;;) {
        const SegmentTree::Index next = segments.Find(&SegmentSums::unmeasured, 0).index;
        if (next >= segments.Size() || next > m_document.PlaceOf(position).index)
            return;
        Lay(next);
    }
}

void TextView::Draw(DeviceContext& context, std::int64_t x, std::int64_t y, const RECT& update,
                    Position selectionFirst, Position selectionLast, const ViewColours& colours)
{
    const SegmentTree& segments = m_document.Segments();
    const std::int64_t from = std::max<std::int64_t>(0, update.top - y);
    SegmentTree::Index index = segments.Find(&SegmentSums::height, from).index;
    if (index < segments.Size())
        index = m_settings.wraps ? index : m_document.FirstSegment(index);
    std::int64_t top = y + segments.Before(index).height;
    for (; index < segments.Size() && top < update.bottom; ++index) {
        const std::int64_t left = x + XOf(index);
        // What is beside the view in a line that is not wrapped need not be laid out.
        if (!m_settings.wraps && (left >= update.right || left + segments[index].width < update.left) &&
            !(m_document.StartsParagraph(index) && segments[index].endsParagraph)) {
            top += segments[index].height;
            continue;
        }
        const SegmentLayout& layout = Lay(index);
        const auto start = static_cast<Position>(segments.Before(index).units);
        const Segment& segment = segments[index];
        for (const LineBox& line : layout.Lines()) {
            if (top + line.y + line.height <= update.top || top + line.y >= update.bottom)
                continue;
            const bool isBreakSelected = &line == &layout.Lines().back() && segment.endsParagraph &&
                                         selectionFirst <= start + line.last &&
                                         selectionLast > start + line.last;
            DrawLine(context, layout, line, segment, {Clamped(left), Clamped(top)}, selectionFirst - start,
                     selectionLast - start, isBreakSelected, colours);
        }
        top += segment.height;
    }
}

void TextView::DrawLine(DeviceContext& context, const SegmentLayout& layout, const LineBox& line,
                        const Segment& segment, POINT origin, int selectionFirst, int selectionLast,
                        bool isBreakSelected, const ViewColours& colours)
{
    const int top = origin.y + line.y;
    const int bottom = top + line.height;
    const int baseline = top + line.ascent;
    const auto fill = [&](const SegmentLayout::Extent& extent, COLORREF colour) {
        FillPixels(context, {origin.x + extent.left, top, origin.x + extent.right, bottom}, PixelOf(colour));
    };
    segment.formats.ForEach(segment.Units(), [&](int first, int last, FormatId format) {
        const CharFormat& value = m_document.CharFormats()[format];
        if (!(value.effects & CFE_AUTOBACKCOLOR))
            for (const SegmentLayout::Extent& extent : layout.Extents(line, first, last))
                fill(extent, value.backColour);
    });
    std::vector<SegmentLayout::Extent> selected = layout.Extents(line, selectionFirst, selectionLast);
    if (isBreakSelected) {
        // A selected break shows as a block as wide as a space or so.
        const int end = layout.CaretX(line, line.last);
        const int width = std::max(2, line.height / 4);
        selected.push_back(layout.IsRightToLeft() ? SegmentLayout::Extent{end - width, end}
                                                  : SegmentLayout::Extent{end, end + width});
    }
    const auto drawText = [&](std::optional<COLORREF> only) {
        int passed = 0;
        for (const GSList* next = line.line->runs; next; next = next->next) {
            auto* run = static_cast<PangoGlyphItem*>(next->data);
            const FormatId id = segment.formats.At(layout.UnitOf(run->item->offset));
            const CharFormat& format = m_document.CharFormats()[id];
            const FormatFont& font = m_fonts[id];
            COLORREF colour = format.effects & CFE_AUTOCOLOR ? colours.text : format.textColour;
            if (format.effects & CFE_LINK)
                colour = colours.link;
            const std::uint32_t pixel = PixelOf(only.value_or(colour));
            const int left = origin.x + line.x + PANGO_PIXELS(passed);
            const int width = pango_glyph_string_get_width(run->glyphs);
            DrawGlyphRun(context, run->item->analysis.font, run->glyphs, {left, baseline - font.rise}, pixel);
            passed += width;
            const int right = origin.x + line.x + PANGO_PIXELS(passed);
            const auto rule = [&](int y) { FillPixels(context, {left, y, right, y + 1}, pixel); };
            if (format.effects & (CFE_UNDERLINE | CFE_LINK))
                rule(baseline - font.rise + 1);
            if (format.effects & CFE_STRIKEOUT)
                rule(baseline - font.rise - font.font->Metrics().tmAscent / 3);
        }
    };
    drawText(std::nullopt);
    for (const SegmentLayout::Extent& extent : selected) {
        // Only there the text is drawn again, in the colour of selected text.
        const POINT surface = context.ToSurface(0, 0);
        const ScopedClip clip(context, {origin.x + extent.left - surface.x, top - surface.y,
                                        origin.x + extent.right - surface.x, bottom - surface.y});
        fill(extent, colours.selection);
        drawText(colours.selectedText);
    }
}

}  // namespace qvui::native
