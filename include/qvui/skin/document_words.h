#pragma once

#include <string_view>

#include <qvui/platform/cstring.h>

namespace DUI {

/// A word that a skin document may hold, and the number that it stands for.
struct DocumentWord {
    const char* word;
    int value;
};

/// The words of one attribute, in the order in which they are looked for.
struct DocumentWords {
    const DocumentWord* first = nullptr;
    const DocumentWord* last = nullptr;

    const DocumentWord* begin() const { return first; }
    const DocumentWord* end() const { return last; }
    /// The number of the word that the whole text is, in any letter case.
    int Find(std::string_view text, int otherwise) const
    {
        for (const DocumentWord& entry : *this)
            if (EqualNoCase(text, entry.word))
                return entry.value;
        return otherwise;
    }
};

/// Where a document, picture or cursor comes from.
enum class DocumentSource { None, File, Dll, Exe };

/// "config_type" of every entry that names a file or resource: DocumentSource.
QVUI_API DocumentWords SourceWords();
inline DocumentSource SourceOf(std::string_view configType)
{
    return static_cast<DocumentSource>(
        SourceWords().Find(configType, static_cast<int>(DocumentSource::None)));
}
/// "drawstyle" of an image: IMAGE_DRAW_STYLE.
QVUI_API DocumentWords DrawStyleWords();
/// "direction" of an image: whether its icons stand one above the other.
QVUI_API DocumentWords DirectionWords();
/// "back_image_pos" of a frame style: CFrameBKImagePos::kind. The first that occurs in the value counts.
QVUI_API DocumentWords ImagePositionWords();
/// "format" of a text style: bits of DrawTextA. All that occur in the value count; none occurs inside
/// another.
QVUI_API DocumentWords TextFormatWords();

}  // namespace DUI
