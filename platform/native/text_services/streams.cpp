#include "native/text_services/streams.h"

#include <algorithm>
#include <climits>

#include "native/text_services/rtf_reader.h"
#include "native/text_services/rtf_writer.h"

namespace qvui::native {
namespace {

constexpr LONG kChunk = 4096;
constexpr DWORD kErrorNotRtf = static_cast<DWORD>(-16);
constexpr DWORD kErrorBadHex = static_cast<DWORD>(-14);
constexpr DWORD kErrorEndOfFile = 0x80070026;
constexpr UINT kCodePageUtf8 = 65001;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

// Calls `take(bytes)` until the stream ends, fails or `take` gives false.
template <class Take>
void ReadAll(EDITSTREAM& stream, Take take)
{
    std::string buffer(kChunk, '\0');
    for (;;) {
        LONG count = 0;
        const DWORD error =
            stream.pfnCallback(stream.dwCookie, reinterpret_cast<LPBYTE>(buffer.data()), kChunk, &count);
        if (error) {
            stream.dwError = error;
            return;
        }
        // A callback may claim anything.
        count = std::clamp<LONG>(count, 0, kChunk);
        if (count == 0 || !take(std::string_view(buffer).substr(0, static_cast<std::size_t>(count))))
            return;
    }
}

UINT CodePageOf(DWORD flags)
{
    return flags & SF_USECODEPAGE ? HIWORD(flags) : CP_ACP;
}

std::u16string Decode(std::string_view bytes, DWORD flags)
{
    if (flags & SF_UNICODE) {
        std::u16string text(bytes.size() / sizeof(char16_t), u'\0');
        std::copy_n(bytes.data(), text.size() * sizeof(char16_t), reinterpret_cast<char*>(text.data()));
        if (text.starts_with(u'\xFEFF'))
            text.erase(0, 1);
        return text;
    }
    UINT codePage = CodePageOf(flags);
    if (bytes.starts_with(kUtf8Mark)) {
        codePage = kCodePageUtf8;
        bytes.remove_prefix(kUtf8Mark.size());
    }
    std::u16string text(std::min<std::size_t>(bytes.size(), INT_MAX), u'\0');
    const int units = MultiByteToWideChar(codePage, 0, bytes.data(), static_cast<int>(text.size()),
                                          text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(std::max(units, 0)));
    return text;
}

std::string Encode(std::u16string_view text, DWORD flags)
{
    if (flags & SF_UNICODE)
        return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)};
    const UINT codePage = CodePageOf(flags);
    const int length = static_cast<int>(text.size());
    std::string bytes(
        static_cast<std::size_t>(
            std::max(0, WideCharToMultiByte(codePage, 0, text.data(), length, nullptr, 0, nullptr, nullptr))),
        '\0');
    WideCharToMultiByte(codePage, 0, text.data(), length, bytes.data(), static_cast<int>(bytes.size()),
                        nullptr, nullptr);
    return bytes;
}

LRESULT ReadText(Editor& editor, DWORD flags, EDITSTREAM& stream)
{
    std::string bytes;
    ReadAll(stream, [&](std::string_view part) {
        bytes += part;
        return true;
    });
    std::u16string text = Decode(bytes, flags);
    if (flags & SFF_SELECTION)
        editor.ReplaceSelection(text);
    else
        editor.SetText(std::move(text));
    return static_cast<LRESULT>(bytes.size());
}

DWORD ErrorOf(RtfReader::Status status)
{
    switch (status) {
        case RtfReader::Status::NotRtf:
            return kErrorNotRtf;
        case RtfReader::Status::BadHex:
            return kErrorBadHex;
        case RtfReader::Status::Reading:
            return kErrorEndOfFile;
        case RtfReader::Status::Finished:
            break;
    }
    return 0;
}

LRESULT ReadRtfStream(Editor& editor, DWORD flags, EDITSTREAM& stream, int limit)
{
    const bool isSelection = (flags & SFF_SELECTION) != 0;
    RtfReader reader(editor.CharFormats(), editor.ParaFormats(), editor.DefaultFormat(), limit);
    bool isEmpty = true;
    ReadAll(stream, [&](std::string_view part) {
        isEmpty = false;
        return reader.Feed(part);
    });
    if (!stream.dwError)
        stream.dwError = isEmpty ? kErrorNotRtf : ErrorOf(reader.State());
    Fragment fragment = reader.Finish(!isSelection);
    const int units = fragment.Units();
    if (!isSelection) {
        editor.SetText({});
        editor.Select(0, 0);
    }
    editor.ReplaceSelection(std::move(fragment), isSelection);
    if (!isSelection)
        editor.Select(0, 0);
    return units;
}

// Gives a stream everything that is written, in pieces that it takes at once.
class Sink {
public:
    explicit Sink(EDITSTREAM& stream) : m_stream(stream) {}

    bool Write(std::string_view bytes)
    {
        while (!bytes.empty()) {
            const LONG size = static_cast<LONG>(std::min<std::size_t>(bytes.size(), kChunk));
            LONG count = 0;
            std::string piece(bytes.substr(0, static_cast<std::size_t>(size)));
            const DWORD error =
                m_stream.pfnCallback(m_stream.dwCookie, reinterpret_cast<LPBYTE>(piece.data()), size, &count);
            if (error || count <= 0) {
                m_stream.dwError = error;
                m_failed = true;
                return false;
            }
            count = std::min(count, size);
            m_written += count;
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
        return true;
    }
    LRESULT Result() const { return m_failed ? 0 : m_written; }

private:
    EDITSTREAM& m_stream;
    LRESULT m_written = 0;
    bool m_failed = false;
};

}  // namespace

std::u16string TextWithLineFeeds(const Editor& editor, Editor::Position first, Editor::Position last)
{
    return editor.Text().Text(first, last, u"\r\n");
}

bool ReadRtf(Editor& editor, std::string_view rtf, Fragment& fragment, int most)
{
    RtfReader reader(editor.CharFormats(), editor.ParaFormats(), editor.DefaultFormat(), most);
    reader.Feed(rtf);
    if (reader.State() == RtfReader::Status::NotRtf)
        return false;
    fragment = reader.Finish(false);
    return true;
}

LRESULT StreamIn(Editor& editor, DWORD flags, EDITSTREAM& stream, int limit)
{
    stream.dwError = 0;
    if (!stream.pfnCallback)
        return 0;
    if (flags & SF_RTF)
        return ReadRtfStream(editor, flags, stream, limit);
    return flags & SF_TEXT ? ReadText(editor, flags, stream) : 0;
}

LRESULT StreamOut(Editor& editor, DWORD flags, EDITSTREAM& stream)
{
    stream.dwError = 0;
    if (!stream.pfnCallback)
        return 0;
    Editor::Position first = 0;
    Editor::Position last = editor.Text().Length();
    if (flags & SFF_SELECTION) {
        first = editor.Selected().First();
        last = editor.Selected().Last();
    }
    Sink sink(stream);
    if (flags & SF_RTF) {
        const Editor::Position end = flags & SFF_SELECTION ? last : last + 1;
        WriteRtf(editor.Text(), first, end, GetACP(),
                 [&](std::string_view part) { return sink.Write(part); });
    } else if (flags & (SF_TEXT | SF_TEXTIZED)) {
        // In parts, so that a large text is not held three times.
        constexpr Editor::Position kPart = 1 << 16;
        for (Editor::Position at = first; at < last;) {
            Editor::Position end = std::min(last, at + kPart);
            if (end < last && IsLeadSurrogate(editor.Text().At(end - 1)))
                --end;
            if (!sink.Write(Encode(TextWithLineFeeds(editor, at, end), flags)))
                break;
            at = end;
        }
    }
    return sink.Result();
}

}  // namespace qvui::native
