#include "check.h"

namespace qvui::skin_tool {

void Checker::ReportUnknown(const Place& place, const Attribute& attribute,
                            const std::vector<std::string>& known)
{
    m_report.Add(Severity::Warning, place.document, attribute.nameOffset,
                 "\"" + place.element.tag + "\" has no attribute \"" + attribute.name + "\"",
                 m_report.Suggest(attribute.name, [&] { return known; }));
}

void Checker::CheckValue(const Place& place, const Attribute& attribute, ValueKind kind,
                         std::string_view keywords, IntegerRange range)
{
    if (kind == ValueKind::Ignored) {
        m_report.Add(Severity::Note, place.document, attribute.nameOffset,
                     "\"" + attribute.name + "\" has no effect on \"" + place.element.tag + "\"");
        return;
    }
    if (const auto problem = CheckForm(kind, attribute.value, keywords, range)) {
        m_report.Add(Severity::Warning, place.document, attribute.valueOffset,
                     attribute.name + ": " + problem->text, problem->suggestion);
        return;
    }
    for (const Reference& reference : ReferencesOf(kind, attribute.value))
        m_names.Refer(reference.kind, reference.name, place.skin, place.document, attribute.valueOffset,
                      m_report);
    if (kind == ValueKind::ControlName)
        CheckControlName(place, attribute);
}

// A window may be put into another one, so that a control of any window will do.
void Checker::CheckControlName(const Place& place, const Attribute& attribute)
{
    if (attribute.value.empty() || m_controlNames.count(attribute.value) > 0)
        return;
    m_report.Add(Severity::Error, place.document, attribute.valueOffset,
                 "there is no control \"" + attribute.value + "\"", m_report.Suggest(attribute.value, [this] {
                     return std::vector<std::string>(m_controlNames.begin(), m_controlNames.end());
                 }));
}

}  // namespace qvui::skin_tool
