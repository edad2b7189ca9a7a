#include "check.h"

#include <algorithm>
#include <map>

namespace qvui::skin_tool {
namespace {

const std::string kAllSkins;

// Which name an entry is stored under.
const char* KeyOf(const SetSchema& set)
{
    return set.content == EntryContent::String ? "id" : "name";
}

// The skin that a document's values belong to; strings and templates belong to all.
const std::string& SkinOf(const PackageDocument& part)
{
    const bool isOfSkin = part.kind == DocumentKind::Resources || part.kind == DocumentKind::Styles;
    return isOfSkin ? part.name : kAllSkins;
}

}  // namespace

Checker::Checker(const Package& package, std::vector<std::string> tags, Report& report)
    : m_package(package),
      m_tags(std::move(tags)),
      m_report(report)
{
}

void Checker::Run()
{
    const RootScope scope(m_package.Root());
    for (const PackageDocument& part : m_package.Documents())
        Define(part);
    UseDefaults();
    CheckEntryDocument();
    // Styles come last: what they may hold depends on the controls that use them.
    for (const DocumentKind kind :
         {DocumentKind::Strings, DocumentKind::Resources, DocumentKind::Templates, DocumentKind::Styles})
        for (const PackageDocument* part : m_package.OfKind(kind))
            CheckDocument(*part);
    CheckSwitches();
    m_names.ReportMissingStrings(m_report);
    m_names.ReportMissingInSkins(m_report);
    m_names.ReportUnused(m_report);
}

void Checker::CheckRepeated(const Document& document)
{
    for (const Element& element : document.Elements())
        for (const Attribute& attribute : element.attributes)
            if (attribute.isRepeated)
                m_report.Add(Severity::Warning, document, attribute.nameOffset,
                             "\"" + element.tag + "\" has \"" + attribute.name +
                                 "\" more than once: the first one counts");
}

void Checker::CheckEntryDocument()
{
    const Document& entry = m_package.Entry();
    CheckRepeated(entry);
    Report seenBefore;  // the package has told what is not seen
    for (const SeenEntry& seen : SeenEntries(entry, DocumentKind::Entry, seenBefore))
        if (seen.entryElement < 0)
            CheckPlainAttributes({entry, entry.At(seen.setElement), kAllSkins}, seen.set->setAttributes);
        else
            CheckPlainAttributes({entry, entry.At(seen.entryElement), kAllSkins}, seen.set->attributes);
}

// --- definitions -------------------------------------------------------------------------------------------

void Checker::Define(const PackageDocument& part)
{
    // Styles of no skin are never loaded; the entry's check has said so.
    const std::vector<const PackageDocument*> skins = m_package.OfKind(DocumentKind::Resources);
    const bool isLoaded = part.kind != DocumentKind::Styles ||
                          std::any_of(skins.begin(), skins.end(),
                                      [&](const PackageDocument* skin) { return skin->name == part.name; });
    if (!isLoaded)
        return;
    for (const SetSchema& set : SchemaOf(part.kind).sets)
        if (set.names)
            m_names.Scope(*set.names, part.name).isComplete = part.IsUsable();
    if (!part.IsUsable())
        return;
    Report later;  // told by CheckDocument
    for (const SeenEntry& seen : SeenEntries(*part.document, part.kind, later))
        DefineEntry(part, seen);
}

void Checker::DefineEntry(const PackageDocument& part, const SeenEntry& seen)
{
    if (seen.entryElement < 0)
        return;
    const Document& document = *part.document;
    const Element& entry = document.At(seen.entryElement);
    if (seen.set->content == EntryContent::Window)
        CollectControls(document, seen.entryElement);
    const Attribute* const key = entry.Find(KeyOf(*seen.set));
    if (!seen.set->names || !key || key->value.empty())
        return;
    m_names.Scope(*seen.set->names, part.name)
        .names.try_emplace(key->value, NameScope::Place{&document, &entry});
    // Used where none is named.
    if (EqualNoCase(entry.Value("default"), "true"))
        m_names.Use(*seen.set->names, key->value);
}

// --- documents ---------------------------------------------------------------------------------------------

void Checker::CheckDocument(const PackageDocument& part)
{
    if (!part.IsUsable() || !m_checked.insert(part.document).second)
        return;
    CheckRepeated(*part.document);
    const std::vector<SeenEntry> entries = SeenEntries(*part.document, part.kind, m_report);
    for (const SeenEntry& seen : entries)
        if (seen.entryElement < 0)
            CheckPlainAttributes({*part.document, part.document->At(seen.setElement), SkinOf(part)},
                                 seen.set->setAttributes);
        else
            CheckEntry(part, seen);
    CheckUnique(part, entries);
}

void Checker::CheckEntry(const PackageDocument& part, const SeenEntry& seen)
{
    const Document& document = *part.document;
    const Element& entry = document.At(seen.entryElement);
    const char* const key = KeyOf(*seen.set);
    if (entry.Value(key).empty())
        m_report.Add(Severity::Warning, document, entry.offset,
                     "without \"" + std::string(key) + "\" nothing can refer to this " + entry.tag);
    switch (seen.set->content) {
        case EntryContent::String:
            if (entry.data.empty())
                m_report.Add(Severity::Warning, document, entry.offset,
                             "a string without text does not count");
            [[fallthrough]];
        case EntryContent::Plain:
            CheckPlainAttributes({document, entry, SkinOf(part)}, seen.set->attributes);
            break;
        case EntryContent::Window:
            CheckWindow(part, seen.entryElement);
            break;
        case EntryContent::ControlStyle:
            CheckControlStyle(part, seen.entryElement);
            break;
        case EntryContent::Free:
            for (int i = seen.entryElement; i < static_cast<int>(document.Elements().size()); ++i)
                for (const Attribute& attribute : document.At(i).attributes)
                    m_names.Use(attribute.value);
            break;
    }
    if (seen.set->names == NameKind::Image)
        CheckImage(part, seen.entryElement);
    if (seen.set->names == NameKind::Cursor)
        CheckCursor(part, seen.entryElement);
}

void Checker::CheckPlainAttributes(const Place& place, const std::vector<EntryAttribute>& known)
{
    for (const Attribute& attribute : place.element.attributes) {
        const auto found = std::find_if(known.begin(), known.end(), [&](const EntryAttribute& candidate) {
            return attribute.name == candidate.name;
        });
        if (found != known.end()) {
            CheckValue(place, attribute, *found);
            continue;
        }
        std::vector<std::string> names;
        names.reserve(known.size());
        for (const EntryAttribute& candidate : known)
            names.emplace_back(candidate.name);
        ReportUnknown(place, attribute, names);
    }
}

// Two entries of one name in one document: one of them is lost.
void Checker::CheckUnique(const PackageDocument& part, const std::vector<SeenEntry>& entries)
{
    const Document& document = *part.document;
    std::map<std::string, int> first;  // by set and name: the element
    for (const SeenEntry& seen : entries) {
        if (seen.entryElement < 0)
            continue;
        const Element& entry = document.At(seen.entryElement);
        const std::string name = entry.Value(KeyOf(*seen.set));
        const auto place = first.try_emplace(entry.tag + " " + name, seen.entryElement);
        if (place.second || name.empty())
            continue;
        const int line = document.Where(document.At(place.first->second).offset).line;
        const bool isString = seen.set->content == EntryContent::String;
        m_report.Add(Severity::Warning, document, entry.offset,
                     "the " + entry.tag + " \"" + name + "\" stands in line " + std::to_string(line) +
                         " already, and " + (isString ? "that one counts" : "this one replaces it"));
    }
}

}  // namespace qvui::skin_tool
