#include "resolved.h"

#include <algorithm>

namespace qvui::skin_tool {
namespace {

struct Parser {
    DocumentKind kind;
    int (DUI::CResMgr::*parse)(const CString&);
};
// In the order in which the library loads them.
constexpr Parser kParsers[] = {
    {DocumentKind::Strings, &DUI::CResMgr::ParseAllString},
    {DocumentKind::Resources, &DUI::CResMgr::ParseDUIResource},
    {DocumentKind::Templates, &DUI::CResMgr::ParseTemplateStyle},
    {DocumentKind::Styles, &DUI::CResMgr::ParseStyleResource},
};

const char* KeyOf(NameKind kind)
{
    return kind == NameKind::String ? "id" : "name";
}

}  // namespace

std::string FirstLanguage(const Package& package)
{
    const std::vector<const PackageDocument*> languages = package.OfKind(DocumentKind::Strings);
    for (const PackageDocument* language : languages)
        if (EqualNoCase(language->name, package.DefaultLanguage()))
            return language->name;
    return languages.empty() ? "" : languages.front()->name;
}

ResolvedSkin::ResolvedSkin(const Package& package, const std::string& skin, const std::string& language)
    : m_root(package.Root())
{
    const std::string wanted = language.empty() ? FirstLanguage(package) : language;
    for (const Parser& parser : kParsers)
        for (const PackageDocument* part : package.OfKind(parser.kind)) {
            const bool isOther =
                (parser.kind == DocumentKind::Strings && part->name != wanted) ||
                ((parser.kind == DocumentKind::Resources || parser.kind == DocumentKind::Styles) &&
                 part->name != skin);
            if (isOther || !part->IsUsable())
                continue;
            (m_manager.*parser.parse)(CString(std::string_view(part->document->Text())));
            Load(*part);
        }
}

void ResolvedSkin::Load(const PackageDocument& part)
{
    Report ignored;
    for (const SeenEntry& seen : SeenEntries(*part.document, part.kind, ignored))
        if (seen.set->names && seen.entryElement >= 0 &&
            !part.document->At(seen.entryElement).Value(KeyOf(*seen.set->names)).empty())
            m_definitions.push_back({*seen.set->names, part.document, seen.entryElement});
}

std::vector<std::string> ResolvedSkin::Names(NameKind kind) const
{
    std::vector<std::string> names;
    for (const Definition& definition : m_definitions)
        if (definition.kind == kind)
            names.push_back(definition.document->At(definition.element).Value(KeyOf(kind)));
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

const Element* ResolvedSkin::Find(NameKind kind, const std::string& name) const
{
    const Element* found = nullptr;
    for (const Definition& definition : m_definitions) {
        const Element& element = definition.document->At(definition.element);
        // Of strings the first one counts, of everything else the last.
        if (definition.kind == kind && element.Value(KeyOf(kind)) == name &&
            (kind != NameKind::String || !found))
            found = &element;
    }
    return found;
}

}  // namespace qvui::skin_tool
