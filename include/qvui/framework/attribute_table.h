#pragma once

#include <functional>
#include <initializer_list>
#include <string_view>
#include <type_traits>
#include <vector>

#include <qvui/platform/cstring.h>
#include <qvui/render/background.h>
#include <qvui/skin/attribute_kind.h>
#include <qvui/skin/text_style.h>
#include <qvui/skin/text_values.h>

namespace DUI {

class CDUIControlBase;

/// The kind of a value, what it is without the attribute, the words it may hold ("one|two"), and what else
/// the attribute does.
struct AttributeSyntax {
    AttributeSyntax(AttributeKind valueKind, const char* defaultText = "", const char* keywordText = "",
                    AttributeRules valueRules = {})
        : kind(valueKind),
          defaultValue(defaultText),
          keywords(keywordText),
          rules(valueRules)
    {
    }

    AttributeKind kind;
    const char* defaultValue;
    const char* keywords;
    AttributeRules rules;
};

/// What a tool sees of one attribute.
struct AttributeInfo {
    const char* name;
    AttributeSyntax syntax;
    const char* description;
};

/// The attributes of one control class, as data. Names match without regard to case.
class QVUI_API AttributeList {
public:
    const std::vector<AttributeInfo>& Infos() const { return m_infos; }
    /// The position of an attribute in the list, -1 when the class has none of that name.
    int Find(const CString& name) const;

protected:
    AttributeList() = default;
    void Add(const AttributeInfo& info);

private:
    struct Place {
        std::string_view name;
        int index;
    };
    static bool ComesBefore(const Place& place, std::string_view name);

    std::vector<AttributeInfo> m_infos;
    std::vector<Place> m_places;  // sorted by name
};

/// Four numbers, each read one character after the end of the one before, from the first 127 characters; a
/// missing number is 0.
QVUI_API RECT ReadRect(const CString& value);
/// Two numbers read in the same way.
QVUI_API SIZE ReadPair(const CString& value);

/// Reads a value as its kind says: an int is TRUE or FALSE for a Boolean, a text is looked up in the skin for
/// a StringId, images, frames and text styles are those of the skin with that name. Without a skin manager
/// what is looked up is empty.
QVUI_API void ReadAttribute(const CString& text, AttributeKind kind, int& value);
QVUI_API void ReadAttribute(const CString& text, AttributeKind kind, bool& value);
QVUI_API void ReadAttribute(const CString& text, AttributeKind kind, DWORD& value);
QVUI_API void ReadAttribute(const CString& text, AttributeKind kind, RECT& value);
QVUI_API void ReadAttribute(const CString& text, AttributeKind kind, CString& value);
QVUI_API void ReadAttribute(const CString& text, AttributeKind kind, CDUIImageListPtr& value);
QVUI_API void ReadAttribute(const CString& text, AttributeKind kind, CRefPtr<CDUIFrameBK>& value);
QVUI_API void ReadAttribute(const CString& text, AttributeKind kind, CRefPtr<CTextStyle>& value);

/// Attributes with what sets them: a setter or a data member, which gets the value that ReadAttribute reads
/// for its type; a setter of two ints, for an IntPair; a captureless lambda (Control&, const CString& value);
/// or nothing, for an attribute that is accepted without effect. A lambda that returns false leaves the
/// attribute to the base class, as if the class had none of that name.
template <class Control>
class AttributeTable : public AttributeList {
public:
    struct Entry {
        Entry(const char* name, AttributeSyntax syntax, const char* description)
            : info{name, syntax, description},
              set([](Control&, const CString&) { return true; })
        {
        }
        template <class Setter>
        Entry(const char* name, AttributeSyntax syntax, const char* description, Setter setter)
            : info{name, syntax, description},
              set(Make(syntax.kind, setter))
        {
        }

        AttributeInfo info;
        std::function<bool(Control&, const CString&)> set;

    private:
        template <class Value>
        static Value Read(const CString& text, AttributeKind kind)
        {
            Value value{};
            ReadAttribute(text, kind, value);
            return value;
        }
        template <class Result, class Class, class Value>
        static auto Make(AttributeKind kind, Result (Class::*setter)(Value))
        {
            return [kind, setter](Control& control, const CString& text) {
                (control.*setter)(Read<std::decay_t<Value>>(text, kind));
                return true;
            };
        }
        template <class Result, class Class>
        static auto Make(AttributeKind, Result (Class::*setter)(int, int))
        {
            return [setter](Control& control, const CString& text) {
                const SIZE pair = ReadPair(text);
                (control.*setter)(pair.cx, pair.cy);
                return true;
            };
        }
        template <class Value, class Class>
        static auto Make(AttributeKind kind, Value Class::*member)
        {
            return [kind, member](Control& control, const CString& text) {
                control.*member = Read<Value>(text, kind);
                return true;
            };
        }
        template <class Lambda>
        static auto Make(AttributeKind, Lambda lambda)
        {
            return [lambda](Control& control, const CString& text) {
                if constexpr (std::is_same_v<decltype(lambda(control, text)), bool>)
                    return lambda(control, text);
                else
                    return lambda(control, text), true;
            };
        }
    };

    AttributeTable(std::initializer_list<Entry> entries) : m_entries(entries)
    {
        for (const Entry& entry : m_entries)
            Add(entry.info);
    }

    /// Sets the attribute; false when the class has none of that name or its setter passes it on.
    bool Apply(Control& control, const CString& name, const CString& value) const
    {
        const int index = Find(name);
        return index >= 0 && m_entries[static_cast<std::size_t>(index)].set(control, value);
    }

private:
    std::vector<Entry> m_entries;
};

/// One notification that a class sends.
struct NotificationInfo {
    const char* name;
    const char* description;
};

/// What a tool, and GetInterface, know of a control class. Every class has one, from its static Class().
class QVUI_API ControlClass {
public:
    /// `interfaces` are the names of the class itself; names it does not know go on to the base class unless
    /// `passesNamesOn` is false.
    ControlClass(const char* name, const ControlClass* base, const char* description,
                 std::initializer_list<const char*> interfaces, const AttributeList* attributes = nullptr,
                 std::initializer_list<NotificationInfo> notifications = {}, bool passesNamesOn = true);

    /// Whether the class, or a base it passes names on to, answers to the interface name (any letter case).
    bool Answers(const CString& interfaceName) const;

    const char* Name() const { return m_name; }
    const ControlClass* Base() const { return m_base; }
    const char* Description() const { return m_description; }
    const std::vector<std::string_view>& Interfaces() const { return m_interfaces; }
    /// Null when the class has no attributes of its own.
    const AttributeList* Attributes() const { return m_attributes; }
    const std::vector<NotificationInfo>& Notifications() const { return m_notifications; }

private:
    const char* m_name;
    const ControlClass* m_base;
    const char* m_description;
    std::vector<std::string_view> m_interfaces;
    const AttributeList* m_attributes;
    std::vector<NotificationInfo> m_notifications;
    bool m_passesNamesOn;
};

// Reading attribute values.

/// Whether the text contains the word, by a case-sensitive search.
QVUI_API bool HasWord(const CString& value, const char* word);
/// The bits of every word that the text contains.
struct WordBit {
    const char* word;
    DWORD bit;
};
QVUI_API DWORD FindWords(const CString& value, const WordBit* words, std::size_t count);
/// The bit of the first word, in the table's order, that the text contains; 0 for none.
QVUI_API DWORD FindFirstWord(const CString& value, const WordBit* words, std::size_t count);
template <std::size_t N>
DWORD FindWords(const CString& value, const WordBit (&words)[N])
{
    return FindWords(value, words, N);
}
template <std::size_t N>
DWORD FindFirstWord(const CString& value, const WordBit (&words)[N])
{
    return FindFirstWord(value, words, N);
}

}  // namespace DUI
