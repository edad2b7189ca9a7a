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

/// One line of text, shaped once. Positions are byte offsets into the UTF-8 text, widths pixels.
struct ShapedLine {
    std::unique_ptr<PangoLayout, UnrefObject> layout;
    /// The width of the text before each byte offset, one more entry than bytes.
    std::vector<int> widths;

    int Width() const { return widths.back(); }
};

/// A font: its description, its metrics, and the lines shaped with it lately.
class FontObject : public GdiObject {
public:
    static constexpr GdiKind kKind = GdiKind::Font;

    explicit FontObject(const LOGFONTA& description);
    ~FontObject() override;
    int Describe(int size, void* buffer) const override;

    const LOGFONTA& Description() const { return m_description; }
    const TEXTMETRICA& Metrics();
    /// The font as the shaper names it; valid as long as this object.
    const PangoFontDescription* Face();
    /// The width of printable ASCII text when each of its characters takes the same space in any company; -1
    /// otherwise.
    int PlainWidth(std::string_view ascii);
    /// The shaped line of a UTF-8 text without line breaks; valid until the next call on this font.
    const ShapedLine& Shape(std::string_view utf8);
    /// The widths of the shaped line, added up from its characters' where those don't depend on one another;
    /// valid until the next call on this font.
    const std::vector<int>& Widths(std::string_view utf8);

private:
    enum : int { kUnknown = -1, kDependsOnNeighbours = -2 };

    /// The pixels that a printable ASCII character takes in any company, or kDependsOnNeighbours.
    int AdvanceOf(char character);
    void Load();
    /// Makes room for one more line: lets go of the oldest, or of the last one when it was too long to keep.
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

/// The contexts in which text is shaped, one for each base direction; they live as long as the process.
PangoContext* TextContext(bool isRightToLeft = false);

/// The font selected into a context; never null.
std::shared_ptr<FontObject> FontOf(const ContextState& state);

}  // namespace qvui::native
