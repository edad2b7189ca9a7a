// RTF: the reader gives the same text whatever pieces the file comes in, and reads back what the writer makes
// of it. The first byte is the size of the pieces.

#include <cstdlib>

#include "native/text_services/editor.h"
#include "native/text_services/rtf_reader.h"
#include "native/text_services/rtf_writer.h"

using namespace qvui::native;

namespace {

constexpr int kMostUnits = 100000;

std::u16string Load(Editor& editor, std::string_view rtf, std::size_t piece)
{
    RtfReader reader(editor.CharFormats(), editor.ParaFormats(), editor.DefaultFormat(), kMostUnits);
    for (std::size_t at = 0; at < rtf.size(); at += piece)
        if (!reader.Feed(rtf.substr(at, piece)))
            break;
    editor.SetText({});
    editor.ReplaceSelection(reader.Finish(true));
    return editor.Text().Text(0, editor.Text().Length());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::string_view rtf(reinterpret_cast<const char*>(data + 1), size - 1);
    Editor editor;
    const std::u16string text = Load(editor, rtf, rtf.size() + 1);
    if (Load(editor, rtf, data[0] % 16 + 1U) != text)
        std::abort();
    std::string written;
    const Document& document = editor.Text();
    WriteRtf(document, 0, document.Length() + 1, 1252, [&](std::string_view part) {
        written += part;
        return true;
    });
    Editor again;
    const std::u16string back = Load(again, written, written.size());
    // A character that no text can hold is left out.
    const bool isWhole = text.find(u'\0') == std::u16string::npos && text.size() < kMostUnits;
    if (isWhole && back != text)
        std::abort();
    again.View().Configure({200, true, false, 0});
    again.View().MeasureView(400);
    return 0;
}
