#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "package.h"

namespace qvui::skin_tool {

/// What one document defines of one kind. An incomplete scope may hold any name: its document could not be
/// read.
struct NameScope {
    std::string label;  // the language or the skin
    bool isComplete = true;
    struct Place {
        const Document* document;
        const Element* element;
    };
    std::map<std::string, Place> names;
};

/// Every name that a package defines, by kind, and which of them something refers to.
class Names {
public:
    /// The scope of that kind and label, made empty when it is new.
    NameScope& Scope(NameKind kind, const std::string& label);
    const std::vector<NameScope>& Scopes(NameKind kind) const { return m_scopes[static_cast<int>(kind)]; }

    /// Where the skin or language of that label defines the name; null when it does not.
    const NameScope::Place* Find(NameKind kind, const std::string& label, const std::string& name) const;

    /// Looks a name up for a place in a document and reports when it is not there. `label` is the skin that
    /// the place belongs to, or empty when it belongs to all. The name counts as referred to.
    void Refer(NameKind kind, const std::string& name, const std::string& label, const Document& document,
               int offset, Report& report);
    /// Marks a name of any kind as referred to.
    void Use(const std::string& name);
    void Use(NameKind kind, const std::string& name) { m_used[static_cast<int>(kind)].insert(name); }

    /// Reports strings that a language lacks, what a skin lacks that its own documents do not ask for, and
    /// names that nothing refers to.
    void ReportMissingStrings(Report& report) const;
    void ReportMissingInSkins(Report& report) const;
    void ReportUnused(Report& report) const;

private:
    std::vector<std::string> All(NameKind kind) const;
    std::string Lacking(NameKind kind, const std::string& name) const;

    std::vector<NameScope> m_scopes[kNameKinds];
    std::set<std::string> m_used[kNameKinds];
    std::set<std::string> m_told[kNameKinds];  // referred to by what belongs to one skin, or reported missing
};

}  // namespace qvui::skin_tool
