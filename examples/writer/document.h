#pragma once

#include <string>

#include <qvui/qvui.h>

#include "writer/line_counter.h"
#include "writer/text_codec.h"

namespace writer {

enum class SaveResult { Saved, SavedAsUtf8, Failed };

/// One file that is being edited, in a rich edit of the window, which is not owned and outlives this.
class Document {
public:
    explicit Document(DUI::CDUIRichEdit& editor);

    /// Reads a file; false, with nothing changed, when it cannot be read or the editor cannot hold it. The
    /// path is in the system code page; a name that ends in .rtf is formatted text.
    bool Load(const std::string& path);
    /// Writes the file and takes its name. On failure the document stays modified and the file as it was.
    /// Text that the document's encoding cannot hold makes it UTF-8.
    SaveResult Save(const std::string& path);

    DUI::CDUIRichEdit& Editor() const { return m_editor; }
    const std::string& Path() const { return m_path; }
    /// The file's name without its folder; empty for a new document.
    std::string Name() const;
    bool IsModified() const { return m_editor.GetModify() != FALSE; }
    /// Whether it is saved with its formats.
    bool IsRich() const { return m_isRich; }
    /// Whether the file has line ends of several kinds, of which saving keeps the first alone.
    bool HasMixedLineEnds() const { return m_isMixed; }
    /// Whether saving under the name would lose formats.
    bool LosesFormats(const std::string& path) const;
    void ApplyFormat(CHARFORMAT2A& format);
    void ApplyAlignment(WORD alignment);
    /// The line and column of the selection's end.
    LineCounter::Place CaretPlace();
    /// "UTF-8  LF", or "RTF".
    std::string Description() const;

private:
    bool StreamIn(std::string_view bytes, int format);
    std::string StreamOut(int format) const;

    DUI::CDUIRichEdit& m_editor;
    LineCounter m_lines;
    std::string m_path;
    Encoding m_encoding = Encoding::Utf8;
    LineEnd m_lineEnd = LineEnd::Lf;
    bool m_isRich = true;  // a new document may get formats
    bool m_hasFormats = false;
    bool m_isMixed = false;
};

}  // namespace writer
