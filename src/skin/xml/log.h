#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include <qvui/platform/cstring.h>

namespace DUI {

/// Appends events to a result log: one empty element each, with the event's word as name. A log longer than
/// 999 bytes accepts no further events.
class XmlLog {
public:
    struct Attribute {
        Attribute(const char* attribute, std::string_view text) : name(attribute), value(text) {}
        Attribute(const char* attribute, std::size_t number) : name(attribute), value(std::to_string(number))
        {
        }
        const char* name;
        std::string value;
    };

    explicit XmlLog(CString& log) : m_log(log) {}

    bool IsFull() const
    {
        constexpr int kFull = 999;
        return m_log.GetLength() > kFull;
    }

    void Add(std::string_view word, std::initializer_list<Attribute> attributes = {})
    {
        if (IsFull())
            return;
        std::string event("<");
        event += word;
        for (const Attribute& attribute : attributes)
            event.append(" ")
                .append(attribute.name)
                .append("=\"")
                .append(Escape(attribute.value))
                .append("\"");
        event += "/>\r\n";
        m_log.Append(event.data(), static_cast<int>(event.size()));
    }

private:
    static std::string Escape(std::string_view text)
    {
        std::string escaped;
        for (const char character : text)
            switch (character) {
                case '&':
                    escaped += "&amp;";
                    break;
                case '<':
                    escaped += "&lt;";
                    break;
                case '"':
                    escaped += "&quot;";
                    break;
                default:
                    escaped += character;
            }
        return escaped;
    }

    CString& m_log;
};

}  // namespace DUI
