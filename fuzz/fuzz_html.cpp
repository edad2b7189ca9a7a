// The markup of tooltips and its lines. The first byte is the width; the rest is the text.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include <qvui/platform/cstring.h>

#include "tooltip/markup/line_layout.h"

namespace {

using namespace DUI::html;

/// Characters of the code page are 10 pixels wide, or as wide as their style's size says.
class CellRuler : public Ruler {
public:
    explicit CellRuler(const Document& document) : m_document(document) {}

    int Width(int style, std::string_view text) override
    {
        int count = 0;
        for (const char* at = text.data(); at < text.data() + text.size(); ++count)
            at += CharacterLength(at, text.data() + text.size());
        return count * Size(style);
    }
    LineMetrics Metrics(int style) override { return {Size(style), Size(style) / 2}; }
    SIZE Image(const std::string& name, int index) override
    {
        return {static_cast<LONG>(name.size()), index % 50};
    }

private:
    int Size(int style) const
    {
        const int size = m_document.styles.at(static_cast<std::size_t>(style)).size;
        return size ? size : 10;
    }

    const Document& m_document;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const Document document =
        ParseMarkup(std::string_view(reinterpret_cast<const char*>(data + 1), size - 1));
    CellRuler ruler(document);
    const Layout layout = LayOut(document, ruler, data[0], 5000);
    int bottom = 0;
    for (const Line& line : layout.lines) {
        if (line.top != bottom || line.height <= 0)
            std::abort();
        bottom += line.height;
    }
    if (layout.size.cy != bottom)
        std::abort();
    return 0;
}
