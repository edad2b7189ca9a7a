// A switch of skins changes styles and pictures in place: what the new skin leaves out stays.

#include <algorithm>
#include <map>

#include "check.h"
#include "colors.h"

namespace qvui::skin_tool {
namespace {

// Whether an attribute shows: it is set, and not to what it was before any skin.
bool IsShown(const Element& entry, const EntryAttribute& attribute)
{
    const std::string value = entry.Value(attribute.name);
    return !value.empty() && !EqualNoCase(value, attribute.rules.stays);
}

bool IsShown(const Element& entry, const std::vector<EntryAttribute>& known, const std::string& name)
{
    return std::any_of(known.begin(), known.end(), [&](const EntryAttribute& attribute) {
        return attribute.name == name && IsShown(entry, attribute);
    });
}

std::string Remedy(const EntryAttribute& attribute)
{
    const std::string off = attribute.rules.stays;
    return off.empty() ? "write it in each skin"
                       : "write " + std::string(attribute.name) + "=\"" + off + "\" in this one";
}

std::string Gradient(const std::vector<std::string>& counted, std::size_t count)
{
    if (counted.size() > 1)
        return "the middle colour as the third one";
    std::string text = "\"";
    for (std::size_t i = 0; i < count; ++i)
        text += (i == 0 ? "" : ",") + counted.front();
    return text + "\"";
}

}  // namespace

void Checker::CheckSwitches()
{
    for (const SetSchema& set : SchemaOf(DocumentKind::Styles).sets) {
        if (!set.names)
            continue;
        for (const NameScope& from : m_names.Scopes(*set.names))
            for (const auto& [name, source] : from.names)
                for (const NameScope& to : m_names.Scopes(*set.names))
                    if (const NameScope::Place* const target = m_names.Find(*set.names, to.label, name);
                        target && target->element != source.element)
                        CheckSwitch(set, {*source.document, *source.element, from.label},
                                    {*target->document, *target->element, to.label});
    }
}

void Checker::CheckSwitch(const SetSchema& set, const Place& from, const Place& to)
{
    for (const EntryAttribute& attribute : set.attributes) {
        const std::string shownBy = attribute.rules.shownBy;
        if (!attribute.rules.stays || (!shownBy.empty() && !IsShown(to.element, set.attributes, shownBy)))
            continue;
        if (!to.element.Value(attribute.name).empty() && attribute.kind == ValueKind::Colors)
            CheckColorCount(attribute, from, to);
        else
            CheckLeftOut(attribute, from, to);
    }
}

void Checker::CheckLeftOut(const EntryAttribute& attribute, const Place& from, const Place& to)
{
    if (!to.element.Value(attribute.name).empty() || !IsShown(from.element, attribute))
        return;
    m_report.Add(Severity::Warning, to.document, to.element.offset,
                 "without \"" + std::string(attribute.name) + "\" a switch from the skin \"" + from.skin +
                     "\" leaves its value in place; " + Remedy(attribute));
}

void Checker::CheckColorCount(const EntryAttribute& attribute, const Place& from, const Place& to)
{
    const Attribute& written = *to.element.Find(attribute.name);
    const auto before = CountedColors(m_names, from.element.Value(attribute.name), from.skin);
    const auto after = CountedColors(m_names, written.value, to.skin);
    if (after.size() >= before.size())
        return;
    m_report.Add(
        Severity::Warning, to.document, written.valueOffset,
        attribute.name + (": a switch from the skin \"" + from.skin) +
            (after.empty() ? "\" leaves its colours in place, since there is none here; write a colour"
                           : "\" leaves its gradient in place, which has more colours; write " +
                                 Gradient(after, before.size())));
}

void Checker::CheckReload(const Place& place, const Attribute& attribute, const EntryAttribute& entry)
{
    const std::vector<std::string> lost = Split(entry.rules.lostBySwitch, '|');
    const bool isLost = std::any_of(lost.begin(), lost.end(), [&](const std::string& value) {
        return !value.empty() && EqualNoCase(value, attribute.value);
    });
    if (isLost && m_package.OfKind(DocumentKind::Resources).size() > 1)
        m_report.Add(Severity::Warning, place.document, attribute.valueOffset,
                     attribute.name +
                         ": the picture goes blank on a switch to this skin, which reads pictures "
                         "from files alone; write " +
                         attribute.name + "=\"file\"");
}

}  // namespace qvui::skin_tool
