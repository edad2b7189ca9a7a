#include "native/text_services/segment_layout.h"

#include <algorithm>
#include <climits>

#include "native/text_services/document.h"

namespace qvui::native {
namespace {

constexpr int kDefaultTab = 720;  // twips
constexpr int kGridTabs =
    48;  // after the last stop of the paragraph; the shaper repeats the last distance itself
constexpr char16_t kLineSeparator = 0x2028;
constexpr char16_t kReplacement = 0xFFFD;
constexpr char16_t kZeroWidthSpace = 0x200B;

int Pixels(int units)
{
    return PANGO_PIXELS(units);
}

// What is shown for a unit that has no glyph of its own: a soft break starts a line, other control characters
// take no space.
char16_t Shown(char16_t unit)
{
    if (unit == u'\v')
        return kLineSeparator;
    if ((unit < u' ' && unit != u'\t') || unit == 0x7F || unit == 0x2029)
        return kZeroWidthSpace;
    return unit;
}

struct AttributeDeleter {
    void operator()(PangoAttrList* list) const { pango_attr_list_unref(list); }
};
struct TabsDeleter {
    void operator()(PangoTabArray* tabs) const { pango_tab_array_free(tabs); }
};

std::unique_ptr<PangoTabArray, TabsDeleter> MakeTabs(const ParaFormat& paragraph, int left, double zoom)
{
    std::unique_ptr<PangoTabArray, TabsDeleter> tabs(pango_tab_array_new(0, TRUE));
    int count = 0;
    const auto add = [&](LONG twips) {
        const int at = static_cast<int>(PixelsOfTwips(twips) * zoom) - left;
        if (at > 0)
            pango_tab_array_set_tab(tabs.get(), count++, PANGO_TAB_LEFT, at);
    };
    LONG last = 0;
    for (const LONG tab : paragraph.tabs) {
        const LONG stop = tab & 0x00FFFFFF;  // the upper bits say how it aligns and leads
        if (stop <= last)
            continue;
        add(stop);
        last = stop;
    }
    const LONG grid = (last / kDefaultTab + 1) * kDefaultTab;
    for (int i = 0; i < kGridTabs; ++i)
        add(grid + i * kDefaultTab);
    return tabs;
}

bool IsRightToLeftScript(GUnicodeScript script)
{
    switch (script) {
        case G_UNICODE_SCRIPT_HEBREW:
        case G_UNICODE_SCRIPT_ARABIC:
        case G_UNICODE_SCRIPT_SYRIAC:
        case G_UNICODE_SCRIPT_THAANA:
        case G_UNICODE_SCRIPT_NKO:
        case G_UNICODE_SCRIPT_SAMARITAN:
        case G_UNICODE_SCRIPT_MANDAIC:
        case G_UNICODE_SCRIPT_ADLAM:
        case G_UNICODE_SCRIPT_HANIFI_ROHINGYA:
            return true;
        default:
            return false;
    }
}

int SpacedHeight(const ParaFormat& paragraph, int height, double zoom)
{
    const int wanted = static_cast<int>(PixelsOfTwips(paragraph.lineSpacing) * zoom);
    switch (paragraph.lineSpacingRule) {
        case 1:
            return height * 3 / 2;
        case 2:
            return height * 2;
        case 3:
            return std::max(height, wanted);
        case 4:
            return std::max(1, wanted);
        case 5:
            return std::max(height, static_cast<int>(static_cast<std::int64_t>(height) *
                                                     std::clamp(paragraph.lineSpacing, 20, 2000) / 20));
        default:
            return height;
    }
}

}  // namespace

Direction FirstStrong(std::u16string_view text)
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        gunichar character = text[i];
        if (IsLeadSurrogate(text[i]) && i + 1 < text.size() && IsTrailSurrogate(text[i + 1])) {
            character = 0x10000 + ((text[i] & 0x3FFU) << 10) + (text[i + 1] & 0x3FFU);
            ++i;
        }
        if (g_unichar_isalpha(character))
            return IsRightToLeftScript(g_unichar_get_script(character)) ? Direction::RightToLeft
                                                                        : Direction::LeftToRight;
    }
    return Direction::Neutral;
}

SegmentLayout::SegmentLayout(const Segment& segment, const SegmentPlace& place,
                             const LayoutSettings& settings, const ParaFormat& paragraph, FormatFonts& fonts)
    : m_layout(pango_layout_new(TextContext(place.isRightToLeft))),
      m_length(segment.text.Length()),
      m_isRightToLeft(place.isRightToLeft)
{
    PangoLayout* layout = m_layout.get();
    pango_layout_set_auto_dir(layout, FALSE);
    MakeText(segment.text.View(), settings.password);
    pango_layout_set_font_description(layout, fonts[kDefaultFormat].font->Face());
    pango_layout_set_text(layout, m_utf8.data(), static_cast<int>(m_utf8.size()));

    const std::unique_ptr<PangoAttrList, AttributeDeleter> attributes(pango_attr_list_new());
    // As in the rest of the platform glyphs stand side by side, without kerning; scripts keep the forms that
    // they need.
    pango_attr_list_insert(attributes.get(),
                           pango_attr_font_features_new(m_bytes.empty() ? "kern=0, liga=0, clig=0, calt=0"
                                                                        : "kern=0, liga=0, clig=0"));
    pango_attr_list_insert(attributes.get(), pango_attr_insert_hyphens_new(FALSE));
    segment.formats.ForEach(segment.Units(), [&](int first, int last, FormatId format) {
        if (format == kDefaultFormat)
            return;
        PangoAttribute* face = pango_attr_font_desc_new(fonts[format].font->Face());
        face->start_index = static_cast<guint>(ByteOf(std::min(first, m_length)));
        face->end_index = static_cast<guint>(ByteOf(std::min(last, m_length)));
        pango_attr_list_insert(attributes.get(), face);
    });
    pango_layout_set_attributes(layout, attributes.get());
    MakeLines(segment, place, settings, paragraph, fonts);
}

void SegmentLayout::MakeText(std::u16string_view text, char16_t password)
{
    m_utf8.reserve(text.size() + text.size() / 2);
    const bool isAscii = !password && std::all_of(text.begin(), text.end(), [](char16_t unit) {
        return (unit >= u' ' && unit < 0x7F) || unit == u'\t';
    });
    if (isAscii) {
        m_utf8.assign(text.begin(), text.end());
        return;
    }
    m_bytes.reserve(text.size() + 1);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const int at = static_cast<int>(m_utf8.size());
        m_bytes.push_back(at);
        gunichar character = password ? password : Shown(text[i]);
        if (IsLeadSurrogate(text[i]) && i + 1 < text.size() && IsTrailSurrogate(text[i + 1])) {
            if (!password)
                character = 0x10000 + ((text[i] & 0x3FFU) << 10) + (text[i + 1] & 0x3FFU);
            m_bytes.push_back(at);
            ++i;
        } else if (!password && (text[i] & 0xF800) == 0xD800) {
            character = kReplacement;
        }
        char utf8[6];
        m_utf8.append(utf8, static_cast<std::size_t>(g_unichar_to_utf8(character, utf8)));
    }
    m_bytes.push_back(static_cast<int>(m_utf8.size()));
}

void SegmentLayout::MakeLines(const Segment& segment, const SegmentPlace& place,
                              const LayoutSettings& settings, const ParaFormat& paragraph, FormatFonts& fonts)
{
    PangoLayout* layout = m_layout.get();
    const auto zoomed = [&](LONG twips) { return static_cast<int>(PixelsOfTwips(twips) * fonts.Zoom()); };
    // The first line is indented by the start indent, the others by the offset beyond it.
    const int firstIndent = zoomed(paragraph.startIndent);
    const int otherIndent = firstIndent + zoomed(paragraph.offset);
    const int leading = std::max(0, place.startsParagraph ? std::min(firstIndent, otherIndent) : otherIndent);
    const int trailing = zoomed(paragraph.rightIndent);
    const int room = std::max(1, settings.width - leading - trailing);
    pango_layout_set_tabs(layout, MakeTabs(paragraph, leading, fonts.Zoom()).get());
    if (place.startsParagraph)
        pango_layout_set_indent(layout, (firstIndent - otherIndent) * PANGO_SCALE);
    if (settings.wraps) {
        pango_layout_set_wrap(layout, PANGO_WRAP_WORD_CHAR);
        pango_layout_set_width(layout, room > INT_MAX / PANGO_SCALE ? -1 : room * PANGO_SCALE);
    }

    const FormatFont& fixed = fonts[kDefaultFormat];
    int y = place.startsParagraph ? zoomed(paragraph.spaceBefore) : 0;
    const GSList* next = pango_layout_get_lines_readonly(layout);
    for (bool isFirst = true; next; next = next->next, isFirst = false) {
        auto* line = static_cast<PangoLayoutLine*>(next->data);
        LineBox box{};
        box.line = line;
        box.first = UnitOf(line->start_index);
        box.last = UnitOf(line->start_index + line->length);
        PangoRectangle extents;
        pango_layout_line_get_pixel_extents(line, nullptr, &extents);
        box.width = extents.x + extents.width;
        int descent = fixed.descent;
        box.ascent = fixed.ascent;
        if (!settings.hasFixedLineHeight) {
            box.ascent = descent = 0;
            const int last = std::max(box.first + 1, box.last);
            segment.formats.ForEach(segment.Units(), [&](int from, int to, FormatId format) {
                if (from >= last || (to <= box.first && to < segment.Units()))
                    return;
                box.ascent = std::max(box.ascent, fonts[format].ascent);
                descent = std::max(descent, fonts[format].descent);
            });
            if (line->length > 0) {
                box.ascent = std::max(box.ascent, -extents.y);
                descent = std::max(descent, extents.y + extents.height);
            }
        }
        box.y = y;
        box.height = std::max(1, SpacedHeight(paragraph, box.ascent + descent, fonts.Zoom()));
        box.ascent += box.height - box.ascent - descent;
        y += box.height;

        int indent = std::max(0, isFirst && place.startsParagraph ? firstIndent : otherIndent);
        if (!place.isAligned && !place.startsParagraph)
            indent = 0;
        const int space = settings.width - indent - trailing - box.width;
        // An alignment to the left is one to where the line starts, which is the right in text that runs that
        // way.
        WORD alignment = paragraph.alignment;
        if (m_isRightToLeft && alignment != PFA_CENTER)
            alignment = alignment == PFA_RIGHT ? PFA_LEFT : PFA_RIGHT;
        const int start = m_isRightToLeft ? trailing : indent;
        box.x = start;
        if (space <= 0 || !place.isAligned)
            alignment = PFA_LEFT;
        if (alignment == PFA_CENTER)
            box.x += space / 2;
        else if (alignment == PFA_RIGHT)
            box.x += space;
        m_width = std::max(m_width, box.x + box.width);
        m_lines.push_back(box);
    }
    if (segment.endsParagraph)
        y += zoomed(paragraph.spaceAfter);
    m_height = y;
}

void SegmentLayout::DropLastLine()
{
    m_height = m_lines.back().y;
    m_length = m_lines.back().first;
    m_lines.pop_back();
}

int SegmentLayout::ByteOf(int position) const
{
    return m_bytes.empty() ? position : m_bytes[static_cast<std::size_t>(position)];
}

int SegmentLayout::UnitOf(int byte) const
{
    if (m_bytes.empty())
        return byte;
    return static_cast<int>(std::lower_bound(m_bytes.begin(), m_bytes.end(), byte) - m_bytes.begin());
}

const LineBox& SegmentLayout::LineAt(int position, bool atEndOfLine) const
{
    auto next = std::upper_bound(m_lines.begin(), m_lines.end(), position,
                                 [](int at, const LineBox& line) { return at < line.first; });
    if (next != m_lines.begin())
        --next;
    if (atEndOfLine && next != m_lines.begin() && next->first == position)
        --next;
    return *next;
}

const LineBox& SegmentLayout::LineAtHeight(int y) const
{
    auto next = std::upper_bound(m_lines.begin(), m_lines.end(), y,
                                 [](int at, const LineBox& line) { return at < line.y; });
    if (next != m_lines.begin())
        --next;
    return *next;
}

int SegmentLayout::CaretX(const LineBox& line, int position) const
{
    int x = 0;
    pango_layout_line_index_to_x(line.line, ByteOf(std::clamp(position, line.first, line.last)), FALSE, &x);
    return line.x + Pixels(x);
}

int SegmentLayout::Hit(const LineBox& line, int x) const
{
    int index = 0;
    int trailing = 0;
    pango_layout_line_x_to_index(line.line, std::clamp(x - line.x, -(1 << 20), 1 << 20) * PANGO_SCALE, &index,
                                 &trailing);
    const char* at = m_utf8.c_str() + index;
    while (trailing-- > 0 && *at)
        at = g_utf8_next_char(at);
    return std::clamp(UnitOf(static_cast<int>(at - m_utf8.c_str())), line.first, line.last);
}

int SegmentLayout::CharacterAt(const LineBox& line, int x) const
{
    int index = 0;
    int trailing = 0;
    if (!pango_layout_line_x_to_index(line.line, std::clamp(x - line.x, -(1 << 20), 1 << 20) * PANGO_SCALE,
                                      &index, &trailing))
        return -1;
    return UnitOf(index);
}

int SegmentLayout::CharacterIndex(int byte) const
{
    if (m_bytes.empty())
        return byte;
    if (m_characters.empty()) {
        int character = -1;
        m_characters.reserve(m_utf8.size() + 1);
        for (const char unit : m_utf8) {
            if ((static_cast<unsigned char>(unit) & 0xC0) != 0x80)
                ++character;
            m_characters.push_back(character);
        }
        m_characters.push_back(character + 1);
    }
    return m_characters[static_cast<std::size_t>(byte)];
}

const PangoLogAttr& SegmentLayout::AttributesAt(int position) const
{
    int count = 0;
    const PangoLogAttr* attributes = pango_layout_get_log_attrs_readonly(m_layout.get(), &count);
    return attributes[std::min(CharacterIndex(ByteOf(position)), count - 1)];
}

bool SegmentLayout::IsCaretPosition(int position) const
{
    if (position <= 0 || position >= m_length)
        return true;
    const bool isInsidePair = !m_bytes.empty() && ByteOf(position) == ByteOf(position - 1);
    return !isInsidePair && AttributesAt(position).is_cursor_position;
}

bool SegmentLayout::IsWordBoundary(int position) const
{
    return position <= 0 || position >= m_length || AttributesAt(position).is_word_boundary;
}

int SegmentLayout::Next(int position) const
{
    do
        ++position;
    while (position < m_length && !IsCaretPosition(position));
    return std::min(position, m_length);
}

int SegmentLayout::Previous(int position) const
{
    do
        --position;
    while (position > 0 && !IsCaretPosition(position));
    return std::max(position, 0);
}

int SegmentLayout::Backspace(int position) const
{
    if (!AttributesAt(position).backspace_deletes_character)
        return Previous(position);
    do
        --position;
    while (position > 0 && !m_bytes.empty() && ByteOf(position) == ByteOf(position - 1));
    return std::max(position, 0);
}

int SegmentLayout::MoveVisually(int position, bool toRight) const
{
    // Where all text runs one way the order of the text is that on the screen.
    if (m_bytes.empty() && !m_isRightToLeft) {
        const int next = position + (toRight ? 1 : -1);
        return next > m_length ? m_length + 1 : next;
    }
    int index = 0;
    int trailing = 0;
    pango_layout_move_cursor_visually(m_layout.get(), TRUE, ByteOf(position), 0, toRight ? 1 : -1, &index,
                                      &trailing);
    if (index < 0)
        return -1;
    if (index == G_MAXINT)
        return m_length + 1;
    const char* at = m_utf8.c_str() + index;
    while (trailing-- > 0 && *at)
        at = g_utf8_next_char(at);
    return UnitOf(static_cast<int>(at - m_utf8.c_str()));
}

std::vector<SegmentLayout::Extent> SegmentLayout::Extents(const LineBox& line, int first, int last) const
{
    std::vector<Extent> extents;
    const int from = ByteOf(std::clamp(first, line.first, line.last));
    const int to = ByteOf(std::clamp(last, line.first, line.last));
    int passed = 0;
    for (const GSList* next = line.line->runs; next && from < to; next = next->next) {
        auto* run = static_cast<PangoGlyphItem*>(next->data);
        PangoItem& item = *run->item;
        const int begin = std::max(from, item.offset) - item.offset;
        const int end = std::min(to, item.offset + item.length) - item.offset;
        if (begin < end) {
            const char* text = pango_layout_get_text(m_layout.get()) + item.offset;
            const auto xOf = [&](int byte) {
                int x = 0;
                pango_glyph_string_index_to_x(run->glyphs, text, item.length, &item.analysis, byte, FALSE,
                                              &x);
                return line.x + Pixels(passed + x);
            };
            const auto [left, right] = std::minmax({xOf(begin), xOf(end)});
            if (!extents.empty() && extents.back().right == left)
                extents.back().right = right;
            else
                extents.push_back({left, right});
        }
        passed += pango_glyph_string_get_width(run->glyphs);
    }
    return extents;
}

}  // namespace qvui::native
