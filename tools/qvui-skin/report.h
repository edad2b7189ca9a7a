#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "document.h"
#include "suggest.h"

namespace qvui::skin_tool {

enum class Severity {
    Error,    // something does not load or is not found
    Warning,  // something is left out or means less than it says
    Note,     // nothing is wrong, but worth knowing
};

struct Finding {
    std::string file;
    Position at;
    Severity severity = Severity::Error;
    std::string text;
    std::string suggestion;  // the name that was probably meant, or empty
};

/// Collects findings and writes them in the order of files and places. What is said twice is kept once.
class Report {
public:
    void Add(Severity severity, const Document& document, int offset, std::string text,
             std::string suggestion = "");

    /// The nearest of the names that `candidates` returns, as Nearest; empty once so much was found that
    /// nobody reads on, since looking for it costs more than all the rest.
    template <class Candidates>
    std::string Suggest(std::string_view word, Candidates candidates) const
    {
        constexpr std::size_t kMostSuggestions = 1000;
        return m_findings.size() < kMostSuggestions ? Nearest(word, candidates()) : std::string();
    }

    /// Sorted by file, line and column.
    const std::vector<Finding>& Findings() const;
    int Count(Severity severity) const;
    /// Whether nothing but notes was found.
    bool IsClean() const { return Count(Severity::Error) == 0 && Count(Severity::Warning) == 0; }

    /// One line for each finding: file:line:column: severity: text; did you mean "suggestion"?
    std::string ToText() const;
    /// An array of objects in UTF-8.
    std::string ToJson() const;

private:
    mutable std::vector<Finding> m_findings;
    mutable bool m_isSorted = true;
};

const char* NameOf(Severity severity);
/// Text of the system code page in UTF-8.
std::string ToUtf8(std::string_view text);

}  // namespace qvui::skin_tool
