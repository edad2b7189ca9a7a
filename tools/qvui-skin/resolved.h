#pragma once

#include <memory>
#include <string>
#include <vector>

#include <qvui/skin/resource_manager.h>

#include "package.h"

namespace qvui::skin_tool {

/// One skin of a package in one language, as the library loads it, and the names that it has.
class ResolvedSkin {
public:
    /// The skin must be one of the package's; an empty language is the first one. Files are looked for below
    /// the package's root as long as the object lives.
    ResolvedSkin(const Package& package, const std::string& skin, const std::string& language);
    ResolvedSkin(const ResolvedSkin&) = delete;
    ResolvedSkin& operator=(const ResolvedSkin&) = delete;

    DUI::CResMgr& Manager() { return m_manager; }
    /// The names of that kind, sorted.
    std::vector<std::string> Names(NameKind kind) const;
    /// The element that defines the name; null when there is none.
    const Element* Find(NameKind kind, const std::string& name) const;

private:
    void Load(const PackageDocument& part);

    struct Definition {
        NameKind kind;
        const Document* document;
        int element;
    };
    RootScope m_root;
    DUI::CResMgr m_manager;
    std::vector<Definition> m_definitions;
};

/// The language that the package starts in: the default, or the first.
std::string FirstLanguage(const Package& package);

}  // namespace qvui::skin_tool
