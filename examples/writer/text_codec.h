#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <qvui/platform/platform.h>

namespace writer {

/// How a text file stores its characters. CodePage is the system code page, or Latin-1 where that is UTF-8.
/// Bytes: each byte is one character; for files that no other encoding gives back unchanged.
enum class Encoding { Utf8, Utf8Bom, Utf16Le, Utf16Be, CodePage, Bytes };
enum class LineEnd { CrLf, Lf, Cr };

/// The contents of a text file as UTF-16 with a carriage return after each line.
struct DecodedText {
    Encoding encoding = Encoding::Utf8;
    LineEnd lineEnd = LineEnd::Lf;
    bool isExact = true;  // whether Encode gives the same bytes; false for line ends of several kinds
    std::u16string text;
};

/// Detects the encoding by the byte order mark and validity, and the line ends by the first one.
DecodedText Decode(std::string_view bytes);

/// The bytes of a file; nullopt when the encoding lacks one of the characters. The text may end its lines
/// with any of the three line ends.
std::optional<std::string> Encode(std::u16string_view text, Encoding encoding, LineEnd lineEnd);

const char* NameOf(Encoding encoding);
const char* NameOf(LineEnd lineEnd);

}  // namespace writer
