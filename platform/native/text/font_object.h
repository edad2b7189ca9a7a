#pragma once

#include <pango/pango.h>

#include <array>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include <qvui/platform/native/text.h>

#include "native/gdi/device_context.h"

namespace qvui::native {

struct UnrefObject {
    void operator()(void* object) const { g_object_unref(object); }
};
struct FreeDescription {
    void operator()(PangoFontDescription* description) const { pango_font_description_free(description); }
};

/// One line of text, shaped once. Positions are byte offsets into the UTF-8 text; widths are in pixels.
struct ShapedLine {
    std::unique_ptr<PangoLayout, UnrefObject> layout;
    /// The width of the text before each byte offset; has one more entry than the text has bytes.
    std::vector<int> widths;

    int Width() const { return widths.back(); }
};

/// A font: its description, metrics, and a cache of lines shaped with it.
class FontObject : public GdiObject {
public:
    static constexpr GdiKind kKind = GdiKind::Font;

    explicit FontObject(const LOGFONTA& description);
    ~FontObject() override;
    int Describe(int size, void* buffer) const override;

    const LOGFONTA& Description() const { return m_description; }
    const TEXTMETRICA& Metrics();
    /// Returns the font as a Pango description. Not owned; valid as long as this object.
    const PangoFontDescription* Face();
    /// Returns the width of printable ASCII text if the advance of each character is independent of its
    /// neighbours, otherwise -1.
    int PlainWidth(std::string_view ascii);
    /// Returns the shaped line of a UTF-8 text without line breaks, valid until the next call on this font.
    const ShapedLine& Shape(std::string_view utf8);
    /// Returns the widths of the shaped line, summed from single characters where they do not depend on their
    /// neighbours. Valid until the next call on this font.
    const std::vector<int>& Widths(std::string_view utf8);

private:
    enum : int { kUnknown = -1, kDependsOnNeighbours = -2 };

    /// Returns the advance in pixels of a printable ASCII character, or kDependsOnNeighbours.
    int AdvanceOf(char character);
    void Load();
    /// Evicts one line from the cache: the last one if it was too long to keep, otherwise the least recently
    /// used.
    void ForgetLine();

    LOGFONTA m_description;
    TEXTMETRICA m_metrics{};
    bool m_isLoaded = false;
    std::unique_ptr<PangoFontDescription, FreeDescription> m_font;
    // Least recently shaped last; the map's keys point into the list.
    struct Entry {
        std::string text;
        ShapedLine line;
    };
    std::list<Entry> m_lines;
    std::map<std::string_view, std::list<Entry>::iterator> m_index;
    std::array<int, '~' - ' ' + 1> m_advances;
    std::vector<int> m_widths;
};

/// Returns the Pango context for a base direction; it lives as long as the process.
PangoContext* TextContext(bool isRightToLeft = false);

/// Returns the font selected into a context; never null.
std::shared_ptr<FontObject> FontOf(const ContextState& state);

}  // namespace qvui::native
