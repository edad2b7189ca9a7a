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

const NameScope::Place* Names::Find(NameKind kind, const std::string& label, const std::string& name) const
{
    for (const NameScope& scope : Scopes(kind))
        if (const auto found = scope.names.find(name); scope.label == label && found != scope.names.end())
            return &found->second;
    return nullptr;
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
    m_told[static_cast<int>(kind)].insert(name);
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
            report.Add(
                Severity::Warning, document, offset,
                "the skin \"" + scope.label + "\" has no " + NameOf(kind) + " \"" + name +
                    "\": after a switch to it the one of the skin before stays; define it in each skin");
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
                    report.Add(Severity::Warning, *place.document, place.element->offset,
                               "the string \"" + id + "\" is missing in the language \"" + language.label +
                                   "\": nothing is shown there; define it in each language");
}

// The skins that lack a name; empty when none does.
std::string Names::Lacking(NameKind kind, const std::string& name) const
{
    std::string labels;
    for (const NameScope& skin : Scopes(kind))
        if (skin.isComplete && skin.names.count(name) == 0)
            labels.append(labels.empty() ? "\"" : ", \"").append(skin.label).append("\"");
    return labels;
}

// What only documents of the same skin refer to may differ from skin to skin; what a template asks for and
// does not find is reported there. The rest is for the application to ask for.
void Names::ReportMissingInSkins(Report& report) const
{
    for (int i = 0; i < kNameKinds; ++i) {
        const auto kind = static_cast<NameKind>(i);
        if (kind == NameKind::String)
            continue;
        for (const NameScope& owner : Scopes(kind))
            for (const auto& [name, place] : owner.names)
                if (const std::string labels = Lacking(kind, name);
                    !labels.empty() && m_told[i].count(name) == 0)
                    report.Add(Severity::Note, *place.document, place.element->offset,
                               std::string("the ") + NameOf(kind) + " \"" + name + "\" is not in the skin " +
                                   labels +
                                   ", where the one of the skin before stays, or none is found; define it in "
                                   "each skin");
    }
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
                        Severity::Note, *place.document, place.element->offset,
                        std::string("no document refers to the ") + NameOf(kind) + " \"" + name + "\"");
    }
}

}  // namespace qvui::skin_tool
