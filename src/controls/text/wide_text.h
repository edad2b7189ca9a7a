#pragma once

#include <string>
#include <string_view>

#include <qvui/platform/cstring.h>
#include <qvui/platform/platform.h>

/// Text between the system code page, which controls speak, and the UTF-16 of the text services.
namespace DUI::wide_text {

using WideString = std::basic_string<WCHAR>;
using WideView = std::basic_string_view<WCHAR>;

WideString FromSystem(std::string_view text);
CString ToSystem(WideView text);

/// Puts characters together that come byte by byte, as an ANSI window gets them: two bytes for a character of
/// a double-byte code page, up to four in UTF-8.
class CharacterAssembler {
public:
    /// The character that this byte completes; empty while bytes are missing.
    WideString Add(char byte);

private:
    std::size_t Expected() const;

    std::string m_bytes;
};

}  // namespace DUI::wide_text
