#include "names.h"

#include <algorithm>

namespace qvui::skin_tool {

NameScope& Names::Scope(NameKind kind, const std::string& label)
{
    std::vector<NameScope>& scopes = m_scopes[static_cast<int>(kind)];
    const auto found = std::find_if(scopes.begin(), scopes.end(),
                                    [&](const NameScope& scope) { return scope.label == label; });
    if (found != scopes.end())
        return *found;
    scopes.emplace_back().label = label;
    return scopes.back();
}

std::vector<std::string> Names::All(NameKind kind) const
{
    std::vector<std::string> names;
    for (const NameScope& scope : Scopes(kind))
        for (const auto& entry : scope.names)
            names.push_back(entry.first);
    return names;
}

void Names::Refer(NameKind kind, const std::string& name, const std::string& label, const Document& document,
                  int offset, Report& report)
{
    Use(kind, name);
    const auto mayHave = [&](const NameScope& scope) {
        return !scope.isComplete || scope.names.count(name) > 0;
    };
    const std::vector<NameScope>& scopes = Scopes(kind);
    if (std::none_of(scopes.begin(), scopes.end(), mayHave)) {
        report.Add(Severity::Error, document, offset,
                   std::string("there is no ") + NameOf(kind) + " \"" + name + "\"",
                   report.Suggest(name, [&] { return All(kind); }));
        return;
    }
    // A string that one language lacks is reported where another one has it.
    if (kind == NameKind::String)
        return;
    for (const NameScope& scope : scopes)
        if ((label.empty() || label == scope.label) && !mayHave(scope))
            report.Add(Severity::Warning, document, offset,
                       "the skin \"" + scope.label + "\" has no " + NameOf(kind) + " \"" + name + "\"");
}

void Names::Use(const std::string& name)
{
    for (std::set<std::string>& used : m_used)
        used.insert(name);
}

void Names::ReportMissingStrings(Report& report) const
{
    const std::vector<NameScope>& languages = Scopes(NameKind::String);
    for (const NameScope& owner : languages)
        for (const auto& [id, place] : owner.names)
            for (const NameScope& language : languages)
                if (language.isComplete && language.names.count(id) == 0)
                    report.Add(
                        Severity::Warning, *place.document, place.offset,
                        "the string \"" + id + "\" is missing in the language \"" + language.label + "\"");
}

void Names::ReportUnused(Report& report) const
{
    for (int i = 0; i < kNameKinds; ++i) {
        const auto kind = static_cast<NameKind>(i);
        std::set<std::string> told;
        for (const NameScope& scope : Scopes(kind))
            for (const auto& [name, place] : scope.names)
                if (m_used[i].count(name) == 0 && told.insert(name).second)
                    report.Add(
                        Severity::Note, *place.document, place.offset,
                        std::string("no document refers to the ") + NameOf(kind) + " \"" + name + "\"");
    }
}

}  // namespace qvui::skin_tool
