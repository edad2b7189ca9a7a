#include "report.h"

#include <algorithm>
#include <tuple>

#include <nlohmann/json.hpp>

#include <qvui/platform/cstring.h>

namespace qvui::skin_tool {
namespace {

bool Precedes(const Finding& left, const Finding& right)
{
    return std::tie(left.file, left.at.line, left.at.column, left.text) <
           std::tie(right.file, right.at.line, right.at.column, right.text);
}

}  // namespace

const char* NameOf(Severity severity)
{
    constexpr const char* kNames[] = {"error", "warning", "note"};
    return kNames[static_cast<int>(severity)];
}

std::string ToUtf8(std::string_view text)
{
    const auto wide = CString(text).ToWide();
    const int length = static_cast<int>(wide.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(std::max(size, 0)), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, utf8.data(), size, nullptr, nullptr);
    return utf8;
}

void Report::Add(Severity severity, const Document& document, int offset, std::string text,
                 std::string suggestion)
{
    m_findings.push_back(
        {document.Path(), document.Where(offset), severity, std::move(text), std::move(suggestion)});
    m_isSorted = false;
}

const std::vector<Finding>& Report::Findings() const
{
    if (!m_isSorted) {
        std::stable_sort(m_findings.begin(), m_findings.end(), Precedes);
        const auto same = [](const Finding& left, const Finding& right) { return !Precedes(left, right); };
        m_findings.erase(std::unique(m_findings.begin(), m_findings.end(), same), m_findings.end());
        m_isSorted = true;
    }
    return m_findings;
}

int Report::Count(Severity severity) const
{
    return static_cast<int>(
        std::count_if(Findings().begin(), Findings().end(),
                      [severity](const Finding& finding) { return finding.severity == severity; }));
}

std::string Report::ToText() const
{
    std::string text;
    for (const Finding& finding : Findings()) {
        text += finding.file + ":" + std::to_string(finding.at.line) + ":" +
                std::to_string(finding.at.column) + ": " + NameOf(finding.severity) + ": " + finding.text;
        if (!finding.suggestion.empty())
            text += "; did you mean \"" + finding.suggestion + "\"?";
        text += "\n";
    }
    return text;
}

std::string Report::ToJson() const
{
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const Finding& finding : Findings()) {
        nlohmann::ordered_json entry{{"file", ToUtf8(finding.file)},
                                     {"line", finding.at.line},
                                     {"column", finding.at.column},
                                     {"severity", NameOf(finding.severity)},
                                     {"text", ToUtf8(finding.text)}};
        if (!finding.suggestion.empty())
            entry["suggestion"] = ToUtf8(finding.suggestion);
        list.push_back(std::move(entry));
    }
    return list.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

}  // namespace qvui::skin_tool
