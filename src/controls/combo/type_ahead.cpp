#include "controls/combo/type_ahead.h"

namespace DUI {
namespace {

constexpr DWORD kPause = 1000;

}  // namespace

int TypeAhead::Type(char byte, CDUIListBox& list, int current, DWORD now)
{
    const auto code = static_cast<unsigned char>(byte);
    if (code < ' ' || code == 0x7F)
        return -1;
    const wide_text::WideString character = m_assembler.Add(byte);
    if (character.empty())
        return -1;
    if (now - m_last > kPause)
        m_typed.Empty();
    m_last = now;
    const CString typed = wide_text::ToSystem(character);
    // The same letter again goes on to the next item that starts with it.
    const bool isRepeated = m_typed.CompareNoCase(typed) == 0;
    if (!isRepeated)
        m_typed += typed;
    const bool isFirst = isRepeated || m_typed == typed;
    return Find(list, isFirst ? current + 1 : current);
}

int TypeAhead::Find(CDUIListBox& list, int from) const
{
    const int count = list.GetControlCount();
    for (int i = 0; i < count; ++i) {
        const int index = (std::max(from, 0) + i) % count;
        IDUIControl* const item = list.GetControlByIndex(index);
        if (item && item->IsVisible(FALSE) &&
            item->GetText().Left(m_typed.GetLength()).CompareNoCase(m_typed) == 0)
            return index;
    }
    return -1;
}

}  // namespace DUI
