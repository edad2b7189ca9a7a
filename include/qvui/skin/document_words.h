#pragma once

#include <string_view>

#include <qvui/platform/cstring.h>

namespace DUI {

/// A keyword of skin documents and its value.
struct DocumentWord {
    const char* word;
    int value;
};

/// The keywords of one attribute, in search order.
struct DocumentWords {
    const DocumentWord* first = nullptr;
    const DocumentWord* last = nullptr;

    const DocumentWord* begin() const { return first; }
    const DocumentWord* end() const { return last; }
    /// Returns the value of the word that equals `text`, ignoring case, or `otherwise` if there is none.
    int Find(std::string_view text, int otherwise) const
    {
        for (const DocumentWord& entry : *this)
            if (EqualNoCase(text, entry.word))
                return entry.value;
        return otherwise;
    }
};

/// The source of a document, picture or cursor.
enum class DocumentSource { None, File, Dll, Exe };

/// "config_type" of entries that name a file or resource: DocumentSource.
QVUI_API DocumentWords SourceWords();
inline DocumentSource SourceOf(std::string_view configType)
{
    return static_cast<DocumentSource>(
        SourceWords().Find(configType, static_cast<int>(DocumentSource::None)));
}
/// "drawstyle" of an image: IMAGE_DRAW_STYLE.
QVUI_API DocumentWords DrawStyleWords();
/// "direction" of an image: whether its icons are arranged vertically.
QVUI_API DocumentWords DirectionWords();
/// "back_image_pos" of a frame style: CFrameBKImagePos::kind. The first word that occurs in the value is
/// used.
QVUI_API DocumentWords ImagePositionWords();
/// "format" of a text style: flags of DrawTextA. All words that occur in the value are combined; no word
/// contains another one.
QVUI_API DocumentWords TextFormatWords();

}  // namespace DUI
