#include <qvui/framework/attribute_table.h>

#include <algorithm>

#include "skin/skin_access.h"

namespace DUI {
namespace {

constexpr std::size_t kLongestList = 127;

char Lower(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
}

// Negative, 0 or positive; ASCII letters of either case are equal.
int CompareNames(std::string_view left, std::string_view right)
{
    const std::size_t common = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < common; ++i)
        if (const int difference = Lower(left[i]) - Lower(right[i]))
            return difference;
    return left.size() < right.size() ? -1 : left.size() > right.size();
}

}  // namespace

void AttributeList::Add(const AttributeInfo& info)
{
    const std::string_view name = info.name;
    m_places.insert(std::lower_bound(m_places.begin(), m_places.end(), name, ComesBefore),
                    {name, static_cast<int>(m_infos.size())});
    m_infos.push_back(info);
}

int AttributeList::Find(const CString& name) const
{
    const auto place = std::lower_bound(m_places.begin(), m_places.end(), name.View(), ComesBefore);
    return place == m_places.end() || CompareNames(place->name, name.View()) != 0 ? -1 : place->index;
}

bool AttributeList::ComesBefore(const Place& place, std::string_view name)
{
    return CompareNames(place.name, name) < 0;
}

ControlClass::ControlClass(const char* name, const ControlClass* base, const char* description,
                           std::initializer_list<const char*> interfaces, const AttributeList* attributes,
                           std::initializer_list<NotificationInfo> notifications, bool passesNamesOn)
    : m_name(name),
      m_base(base),
      m_description(description),
      m_interfaces(interfaces.begin(), interfaces.end()),
      m_attributes(attributes),
      m_notifications(notifications),
      m_passesNamesOn(passesNamesOn)
{
}

bool ControlClass::Answers(const CString& interfaceName) const
{
    for (const ControlClass* known = this; known; known = known->m_passesNamesOn ? known->m_base : nullptr)
        for (const std::string_view own : known->m_interfaces)
            if (EqualNoCase(own, interfaceName.View()))
                return true;
    return false;
}

bool HasWord(const CString& value, const char* word)
{
    return value.Find(word) >= 0;
}

DWORD FindWords(const CString& value, const WordBit* words, std::size_t count)
{
    DWORD bits = 0;
    for (std::size_t i = 0; i < count; ++i)
        if (HasWord(value, words[i].word))
            bits |= words[i].bit;
    return bits;
}

DWORD FindFirstWord(const CString& value, const WordBit* words, std::size_t count)
{
    const WordBit* const end = words + count;
    const WordBit* const found =
        std::find_if(words, end, [&value](const WordBit& entry) { return HasWord(value, entry.word); });
    return found == end ? 0 : found->bit;
}

RECT ReadRect(const CString& value)
{
    int numbers[4];
    ReadIntegers(value, kLongestList, numbers);
    return {numbers[0], numbers[1], numbers[2], numbers[3]};
}

SIZE ReadPair(const CString& value)
{
    int numbers[2];
    ReadIntegers(value, kLongestList, numbers);
    return {numbers[0], numbers[1]};
}

void ReadAttribute(const CString& text, AttributeKind kind, int& value)
{
    value = kind == AttributeKind::Boolean ? IsTrue(text) : ReadInteger(text);
}

void ReadAttribute(const CString& text, AttributeKind, bool& value)
{
    value = IsTrue(text) != FALSE;
}

void ReadAttribute(const CString& text, AttributeKind, DWORD& value)
{
    value = static_cast<DWORD>(ReadInteger(text));
}

void ReadAttribute(const CString& text, AttributeKind, RECT& value)
{
    value = ReadRect(text);
}

void ReadAttribute(const CString& text, AttributeKind kind, CString& value)
{
    value = kind == AttributeKind::StringId ? skin::String(text) : text;
}

void ReadAttribute(const CString& text, AttributeKind, CDUIImageListPtr& value)
{
    value = skin::Image(text);
}

void ReadAttribute(const CString& text, AttributeKind, CRefPtr<CDUIFrameBK>& value)
{
    value = skin::Frame(text);
}

void ReadAttribute(const CString& text, AttributeKind, CRefPtr<CTextStyle>& value)
{
    IDUISkinMgr* const manager = skin::Manager();
    value = manager ? manager->GetTextStyle(text) : nullptr;
}

}  // namespace DUI
