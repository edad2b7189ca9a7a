#pragma once

#include <string_view>

#include <qvui/platform/cstring.h>

namespace DUI {

/// Adds one event to a result log, unless the log is long already. Arguments are pairs of attribute names and
/// values ("offset", "12").
class XmlLog {
public:
    explicit XmlLog(CString& log) : m_log(log) {}

    void Add(std::string_view word) { AddWith(word, {}); }
    void Add(std::string_view word, const char* name, std::size_t number)
    {
        CString attributes;
        attributes.Format(" %s=\"%zu\"", name, number);
        AddWith(word, attributes);
    }
    void Add(std::string_view word, const char* name, std::string_view text, const char* numberName, std::size_t number)
    {
        CString attributes;
        attributes.Format(" %s=\"%.*s\" %s=\"%zu\"", name, static_cast<int>(text.size()), text.data(), numberName, number);
        AddWith(word, attributes);
    }
    void Add(std::string_view word, const char* name, std::string_view text)
    {
        CString attributes;
        attributes.Format(" %s=\"%.*s\"", name, static_cast<int>(text.size()), text.data());
        AddWith(word, attributes);
    }

private:
    void AddWith(std::string_view word, const CString& attributes)
    {
        constexpr int kFull = 999;
        if (m_log.GetLength() > kFull)
            return;
        m_log += '<';
        m_log.Append(word.data(), static_cast<int>(word.size()));
        m_log += attributes;
        m_log += "/>\r\n";
    }

    CString& m_log;
};

}  // namespace DUI
