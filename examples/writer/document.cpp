#include "writer/document.h"

#include <algorithm>

#include "writer/file_store.h"

namespace writer {
namespace {

constexpr int kLongestText = 0x7FFFFFFE;
constexpr int kUtf16Text = static_cast<int>(SF_TEXT | SF_UNICODE);

bool IsRichName(const std::string& path)
{
    return path.size() >= 4 && EqualNoCase(std::string_view(path).substr(path.size() - 4), ".rtf");
}

DWORD CALLBACK ReadSome(DWORD_PTR cookie, LPBYTE buffer, LONG size, LONG* moved)
{
    auto& rest = *reinterpret_cast<std::string_view*>(cookie);
    const std::size_t count = std::min(rest.size(), static_cast<std::size_t>(size));
    std::copy_n(rest.begin(), count, buffer);
    rest.remove_prefix(count);
    *moved = static_cast<LONG>(count);
    return 0;
}

DWORD CALLBACK WriteSome(DWORD_PTR cookie, LPBYTE buffer, LONG size, LONG* moved)
{
    reinterpret_cast<std::string*>(cookie)->append(reinterpret_cast<const char*>(buffer),
                                                   static_cast<std::size_t>(size));
    *moved = size;
    return 0;
}

std::string_view BytesOf(std::u16string_view text)
{
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)};
}

}  // namespace

Document::Document(DUI::CDUIRichEdit& editor) : m_editor(editor)
{
    m_editor.SetLimitText(kLongestText);
    m_editor.SetEventMask(ENM_CHANGE | ENM_SELCHANGE);
}

bool Document::Load(const std::string& path)
{
    const std::optional<std::string> bytes = ReadWholeFile(path);
    if (!bytes)
        return false;
    bool isRead = false;
    const bool isRich = IsRichName(path) && bytes->compare(0, 5, "{\\rtf") == 0;
    DecodedText decoded;
    if (isRich) {
        isRead = StreamIn(*bytes, static_cast<int>(SF_RTF));
    } else {
        decoded = Decode(*bytes);
        m_editor.SetWordWrap(FALSE);
        // The editor may drop characters that no text holds: such a file would be damaged when it is saved.
        isRead = StreamIn(BytesOf(decoded.text), kUtf16Text) &&
                 m_editor.GetTextLength(GTL_PRECISE | GTL_NUMCHARS) == static_cast<int>(decoded.text.size());
    }
    if (!isRead)
        return false;
    m_isRich = m_hasFormats = isRich;
    m_encoding = decoded.encoding;
    m_lineEnd = decoded.lineEnd;
    m_isMixed = !decoded.isExact;
    m_path = path;
    m_editor.EmptyUndoBuffer();
    m_editor.SetModify(FALSE);
    m_lines = {};
    m_editor.SetSel(0, 0);
    return true;
}

SaveResult Document::Save(const std::string& path)
{
    const bool isRich = IsRichName(path) && m_isRich;
    std::optional<std::string> bytes;
    Encoding encoding = m_encoding;
    if (isRich) {
        bytes = StreamOut(static_cast<int>(SF_RTF));
    } else {
        const std::string units = StreamOut(kUtf16Text);
        std::u16string text(units.size() / sizeof(char16_t), u'\0');
        std::copy_n(units.data(), text.size() * sizeof(char16_t), reinterpret_cast<char*>(text.data()));
        bytes = Encode(text, encoding, m_lineEnd);
        if (!bytes) {
            encoding = Encoding::Utf8;
            bytes = Encode(text, encoding, m_lineEnd);
        }
    }
    if (!bytes || !ReplaceFile(path, *bytes))
        return SaveResult::Failed;
    const bool isOtherEncoding = encoding != m_encoding;
    m_encoding = encoding;
    m_isMixed = false;
    m_isRich = isRich;
    m_path = path;
    m_editor.SetModify(FALSE);
    return isOtherEncoding ? SaveResult::SavedAsUtf8 : SaveResult::Saved;
}

std::string Document::Name() const
{
    const std::size_t folder = m_path.find_last_of("/\\");
    return folder == std::string::npos ? m_path : m_path.substr(folder + 1);
}

bool Document::LosesFormats(const std::string& path) const
{
    return m_isRich && m_hasFormats && !IsRichName(path);
}

void Document::ApplyFormat(CHARFORMAT2A& format)
{
    if (!m_isRich)
        return;
    m_hasFormats = true;
    m_editor.SetSelectionCharFormat(format);
}

void Document::ApplyAlignment(WORD alignment)
{
    if (!m_isRich)
        return;
    m_hasFormats = true;
    PARAFORMAT2 format{};
    format.dwMask = PFM_ALIGNMENT;
    format.wAlignment = alignment;
    m_editor.SetParaFormat(format);
}

LineCounter::Place Document::CaretPlace()
{
    CHARRANGE selection{};
    m_editor.GetSel(selection);
    return m_lines.Locate(m_editor, selection.cpMax);
}

std::string Document::Description() const
{
    return IsRichName(m_path) && m_isRich ? "RTF"
                                          : std::string(NameOf(m_encoding)) + "   " + NameOf(m_lineEnd);
}

bool Document::StreamIn(std::string_view bytes, int format)
{
    EDITSTREAM stream{};
    stream.dwCookie = reinterpret_cast<DWORD_PTR>(&bytes);
    stream.pfnCallback = &ReadSome;
    m_editor.StreamIn(format, stream);
    return stream.dwError == 0 && bytes.empty();
}

std::string Document::StreamOut(int format) const
{
    std::string bytes;
    EDITSTREAM stream{};
    stream.dwCookie = reinterpret_cast<DWORD_PTR>(&bytes);
    stream.pfnCallback = &WriteSome;
    m_editor.StreamOut(format, stream);
    return bytes;
}

}  // namespace writer
