#include "check.h"

namespace qvui::skin_tool {

void Checker::ReportUnknown(const Place& place, const Attribute& attribute,
                            const std::vector<std::string>& known)
{
    m_report.Add(Severity::Warning, place.document, attribute.nameOffset,
                 "\"" + place.element.tag + "\" has no attribute \"" + attribute.name + "\"",
                 m_report.Suggest(attribute.name, [&] { return known; }));
}

void Checker::CheckValue(const Place& place, const Attribute& attribute, const DUI::AttributeSyntax& syntax)
{
    if (!CheckValue(place, attribute, syntax.kind, syntax.keywords, {}))
        return;
    CheckColors(place, attribute, syntax.rules);
    if (place.controls && *syntax.rules.needsControl && DUI::IsTrue(attribute.value.c_str()))
        CheckNeededControl(place, attribute, syntax.rules.needsControl);
}

void Checker::CheckValue(const Place& place, const Attribute& attribute, const EntryAttribute& entry)
{
    if (!CheckValue(place, attribute, entry.kind, KeywordsOf(entry), entry.range))
        return;
    CheckColors(place, attribute, entry.rules);
    CheckReload(place, attribute, entry);
}

// False when the value counts for nothing.
bool Checker::CheckValue(const Place& place, const Attribute& attribute, ValueKind kind,
                         std::string_view keywords, IntegerRange range)
{
    if (kind == ValueKind::Ignored) {
        m_report.Add(Severity::Note, place.document, attribute.nameOffset,
                     "\"" + attribute.name + "\" has no effect on \"" + place.element.tag + "\"");
        return false;
    }
    if (const auto problem = CheckForm(kind, attribute.value, keywords, range)) {
        m_report.Add(Severity::Warning, place.document, attribute.valueOffset,
                     attribute.name + ": " + problem->text, problem->suggestion);
        return false;
    }
    for (const Reference& reference : ReferencesOf(kind, attribute.value))
        m_names.Refer(reference.kind, reference.name, place.skin, place.document, attribute.valueOffset,
                      m_report);
    if (kind == ValueKind::ControlName)
        CheckControlName(place, attribute);
    CheckDigits(place, attribute, kind);
    return true;
}

void Checker::CheckControlName(const Place& place, const Attribute& attribute)
{
    if (attribute.value.empty())
        return;
    if (m_controlNames.count(attribute.value) > 0) {
        CheckNeededControl(place, attribute, attribute.value);
        return;
    }
    m_report.Add(Severity::Error, place.document, attribute.valueOffset,
                 "there is no control \"" + attribute.value + "\"", m_report.Suggest(attribute.value, [this] {
                     return std::vector<std::string>(m_controlNames.begin(), m_controlNames.end());
                 }));
}

// The application may put one window into another, or add controls.
void Checker::CheckNeededControl(const Place& place, const Attribute& attribute, const std::string& needed)
{
    if (place.controls && place.controls->count(needed) == 0)
        m_report.Add(Severity::Note, place.document, attribute.nameOffset,
                     "\"" + attribute.name + "\" has no effect as long as this window has no control \"" +
                         needed + "\": give one that name, or leave the attribute out");
}

}  // namespace qvui::skin_tool
