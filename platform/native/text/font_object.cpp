#include "native/text/font_object.h"

#include <pango/pangoft2.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "native/kernel/code_pages.h"

namespace qvui::native {
namespace {

constexpr double kScreenResolution = 96.0;
// Enough for a screen full of labels.
constexpr std::size_t kMostLines = 2048;
constexpr std::size_t kLongestCachedLine = 4096;
constexpr int kDefaultHeight = -12;

PangoFontMap* FontMap()
{
    static PangoFontMap* const map = [] {
        PangoFontMap* created = pango_ft2_font_map_new();
        pango_ft2_font_map_set_resolution(PANGO_FT2_FONT_MAP(created), kScreenResolution, kScreenResolution);
        return created;
    }();
    return map;
}

PangoContext* MakeContext(PangoDirection direction)
{
    PangoContext* context = pango_font_map_create_context(FontMap());
    pango_context_set_round_glyph_positions(context, TRUE);
    pango_context_set_base_dir(context, direction);
    return context;
}

// Layout units are added in 64 bits, because a megabyte of text exceeds 32 bits of them.
int Pixels(long long units)
{
    return static_cast<int>(std::lround(static_cast<double>(units) / PANGO_SCALE));
}

PangoAttrList* MakeFeatures(const char* features)
{
    PangoAttrList* list = pango_attr_list_new();
    pango_attr_list_insert(list, pango_attr_font_features_new(features));
    return list;
}

constexpr bool IsPrintableAscii(char character)
{
    return character >= ' ' && character <= '~';
}

bool IsPrintableAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char character) { return IsPrintableAscii(character); });
}

// The platform places each glyph separately: the width of a text is the sum of its characters' widths,
// without kerning or ligatures. Only scripts that need contextual forms get them.
PangoAttrList* PlainGlyphs(std::string_view text)
{
    static PangoAttrList* const anyScript = MakeFeatures("kern=0, liga=0, clig=0");
    static PangoAttrList* const ascii = MakeFeatures("kern=0, liga=0, clig=0, calt=0");
    return IsPrintableAscii(text) ? ascii : anyScript;
}

// Returns the width of the text before each byte; all bytes of a character have the position of its start.
// Runs are added in logical order, even where their visual order differs.
std::vector<int> WidthsOf(PangoLayoutLine* line, const std::string& text)
{
    std::vector<PangoGlyphItem*> runs;
    for (GSList* item = line->runs; item; item = item->next)
        runs.push_back(static_cast<PangoGlyphItem*>(item->data));
    std::sort(runs.begin(), runs.end(), [](const PangoGlyphItem* a, const PangoGlyphItem* b) {
        return a->item->offset < b->item->offset;
    });
    std::vector<int> widths(text.size() + 1, 0);
    long long passed = 0;
    for (PangoGlyphItem* run : runs) {
        std::vector<int> logical(static_cast<std::size_t>(run->item->num_chars));
        pango_glyph_item_get_logical_widths(run, text.c_str(), logical.data());
        const char* at = text.c_str() + run->item->offset;
        for (const int width : logical) {
            const char* next = g_utf8_next_char(at);
            for (const char* byte = at + 1; byte < next; ++byte)
                widths[static_cast<std::size_t>(byte - text.c_str())] = Pixels(passed);
            passed += width;
            widths[static_cast<std::size_t>(next - text.c_str())] = Pixels(passed);
            at = next;
        }
    }
    widths.back() = std::max(Pixels(passed), widths.back());
    return widths;
}

struct Heights {
    int ascent;
    int descent;
    int average;
};

Heights Measure(const PangoFontDescription* font)
{
    PangoFontMetrics* metrics = pango_context_get_metrics(TextContext(), font, nullptr);
    const Heights heights{Pixels(pango_font_metrics_get_ascent(metrics)),
                          Pixels(pango_font_metrics_get_descent(metrics)),
                          Pixels(pango_font_metrics_get_approximate_char_width(metrics))};
    pango_font_metrics_unref(metrics);
    return heights;
}

LOGFONTA DefaultDescription()
{
    LOGFONTA description{};
    description.lfHeight = kDefaultHeight;
    description.lfWeight = FW_NORMAL;
    description.lfCharSet = DEFAULT_CHARSET;
    std::strcpy(description.lfFaceName, "DejaVu Sans");
    return description;
}

}  // namespace

PangoContext* TextContext(bool isRightToLeft)
{
    static PangoContext* const leftToRight = MakeContext(PANGO_DIRECTION_LTR);
    static PangoContext* const rightToLeft = MakeContext(PANGO_DIRECTION_RTL);
    return isRightToLeft ? rightToLeft : leftToRight;
}

FontObject::FontObject(const LOGFONTA& description) : GdiObject(kKind), m_description(description)
{
    m_advances.fill(kUnknown);
    m_description.lfFaceName[LF_FACESIZE - 1] = '\0';
}

FontObject::~FontObject() = default;

int FontObject::Describe(int size, void* buffer) const
{
    if (!buffer)
        return static_cast<int>(sizeof m_description);
    const int count = std::clamp(size, 0, static_cast<int>(sizeof m_description));
    std::memcpy(buffer, &m_description, static_cast<std::size_t>(count));
    return count;
}

void FontObject::Load()
{
    m_isLoaded = true;
    m_font.reset(pango_font_description_new());
    const std::string face = SystemToUtf8(m_description.lfFaceName);
    pango_font_description_set_family(m_font.get(), face.empty() ? "Sans" : face.c_str());
    pango_font_description_set_weight(
        m_font.get(),
        static_cast<PangoWeight>(m_description.lfWeight > 0 ? m_description.lfWeight : FW_NORMAL));
    if (m_description.lfItalic)
        pango_font_description_set_style(m_font.get(), PANGO_STYLE_ITALIC);
    const int height =
        std::clamp(m_description.lfHeight == 0 ? kDefaultHeight : m_description.lfHeight, -2000, 2000);
    double em = std::abs(height);
    if (height > 0) {
        // A positive height is that of a character cell: the em size is scaled from the cell of the same face
        // at a size large enough for rounding errors not to matter.
        constexpr int kProbe = 200;
        pango_font_description_set_absolute_size(m_font.get(), kProbe * PANGO_SCALE);
        const Heights probe = Measure(m_font.get());
        em = static_cast<double>(height) * kProbe / std::max(probe.ascent + probe.descent, 1);
    }
    pango_font_description_set_absolute_size(m_font.get(), em * PANGO_SCALE);
    const Heights heights = Measure(m_font.get());
    m_metrics.tmAscent = heights.ascent;
    m_metrics.tmDescent = heights.descent;
    m_metrics.tmHeight = heights.ascent + heights.descent;
    m_metrics.tmInternalLeading = std::max(0, m_metrics.tmHeight - static_cast<int>(std::lround(em)));
    m_metrics.tmAveCharWidth = heights.average;
    m_metrics.tmMaxCharWidth = 2 * m_metrics.tmHeight;
    m_metrics.tmWeight = m_description.lfWeight > 0 ? m_description.lfWeight : FW_NORMAL;
    m_metrics.tmItalic = m_description.lfItalic;
    m_metrics.tmUnderlined = m_description.lfUnderline;
    m_metrics.tmStruckOut = m_description.lfStrikeOut;
    m_metrics.tmCharSet = m_description.lfCharSet;
    m_metrics.tmDigitizedAspectX = m_metrics.tmDigitizedAspectY = static_cast<LONG>(kScreenResolution);
}

const TEXTMETRICA& FontObject::Metrics()
{
    if (!m_isLoaded)
        Load();
    return m_metrics;
}

const PangoFontDescription* FontObject::Face()
{
    if (!m_isLoaded)
        Load();
    return m_font.get();
}

int FontObject::PlainWidth(std::string_view ascii)
{
    int width = 0;
    for (const char character : ascii) {
        const int advance = IsPrintableAscii(character) ? AdvanceOf(character) : kDependsOnNeighbours;
        if (advance < 0)
            return -1;
        width += advance;
    }
    return width;
}

const ShapedLine& FontObject::Shape(std::string_view utf8)
{
    if (!m_isLoaded)
        Load();
    if (const auto known = m_index.find(utf8); known != m_index.end()) {
        m_lines.splice(m_lines.begin(), m_lines, known->second);
        return m_lines.front().line;
    }
    ForgetLine();
    Entry& entry = m_lines.emplace_front();
    entry.text = utf8;
    m_index[entry.text] = m_lines.begin();
    PangoLayout* layout = pango_layout_new(TextContext());
    entry.line.layout.reset(layout);
    pango_layout_set_single_paragraph_mode(layout, TRUE);
    pango_layout_set_font_description(layout, m_font.get());
    pango_layout_set_attributes(layout, PlainGlyphs(entry.text));
    pango_layout_set_text(layout, entry.text.data(), static_cast<int>(entry.text.size()));
    entry.line.widths = WidthsOf(pango_layout_get_line_readonly(layout, 0), entry.text);
    return entry.line;
}

int FontObject::AdvanceOf(char character)
{
    int& advance = m_advances[static_cast<std::size_t>(character - ' ')];
    if (advance == kUnknown) {
        const int alone = Shape({&character, 1}).Width();
        const char amongLetters[] = {'a', character, 'a'};
        const std::vector<int>& widths = Shape({amongLetters, sizeof amongLetters}).widths;
        const bool isSame = widths[2] - widths[1] == alone && widths[3] - widths[2] == widths[1];
        advance = isSame ? alone : kDependsOnNeighbours;
    }
    return advance;
}

const std::vector<int>& FontObject::Widths(std::string_view utf8)
{
    if (!IsPrintableAscii(utf8))
        return Shape(utf8).widths;
    m_widths.clear();
    m_widths.reserve(utf8.size() + 1);
    int passed = 0;
    m_widths.push_back(passed);
    for (const char character : utf8) {
        const int advance = AdvanceOf(character);
        if (advance == kDependsOnNeighbours)
            return Shape(utf8).widths;
        passed += advance;
        m_widths.push_back(passed);
    }
    return m_widths;
}

void FontObject::ForgetLine()
{
    const bool isFull = m_lines.size() >= kMostLines;
    const bool isHuge = !m_lines.empty() && m_lines.front().text.size() > kLongestCachedLine;
    if (!isFull && !isHuge)
        return;
    const auto victim = isFull ? std::prev(m_lines.end()) : m_lines.begin();
    m_index.erase(victim->text);
    m_lines.erase(victim);
}

HGDIOBJ StockFont(int index)
{
    constexpr int kFirstFont = 10;
    constexpr int kLastFont = 17;
    if (index < kFirstFont || index > kLastFont)
        return nullptr;
    static const HGDIOBJ font = AddStockObject(std::make_shared<FontObject>(DefaultDescription()));
    return font;
}

std::shared_ptr<FontObject> FontOf(const ContextState& state)
{
    if (auto font = std::dynamic_pointer_cast<FontObject>(state.fontObject))
        return font;
    return FindGdiObject<FontObject>(GetStockObject(SYSTEM_FONT));
}

}  // namespace qvui::native
