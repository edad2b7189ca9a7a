#include "controls/text/wide_text.h"

#include <algorithm>

namespace DUI::wide_text {
namespace {

constexpr UINT kUtf8 = 65001;

bool IsContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

}  // namespace

WideString FromSystem(std::string_view text)
{
    const int length = static_cast<int>(text.size());
    WideString wide(text.size(), WCHAR{});
    const int units =
        text.empty() ? 0 : MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), length);
    wide.resize(static_cast<std::size_t>(std::max(units, 0)));
    return wide;
}

CString ToSystem(WideView text)
{
    const int length = static_cast<int>(text.size());
    const int size =
        text.empty() ? 0 : WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(std::max(size, 0)), '\0');
    if (size > 0)
        WideCharToMultiByte(CP_ACP, 0, text.data(), length, narrow.data(), size, nullptr, nullptr);
    return CString(narrow.c_str());
}

std::size_t CharacterAssembler::Expected() const
{
    const auto lead = static_cast<unsigned char>(m_bytes.front());
    if (GetACP() == kUtf8)
        return lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
    return IsDBCSLeadByte(lead) ? 2 : 1;
}

WideString CharacterAssembler::Add(char byte)
{
    // A sequence that breaks off is dropped, and what broke it starts anew.
    if (!m_bytes.empty() && GetACP() == kUtf8 && !IsContinuation(byte))
        m_bytes.clear();
    m_bytes += byte;
    if (m_bytes.size() < Expected())
        return {};
    const WideString character = FromSystem(m_bytes);
    m_bytes.clear();
    return character;
}

}  // namespace DUI::wide_text
