// What the controls of a window are to one another, and the attributes of a control.

#include <algorithm>
#include <map>

#include <qvui/bars/builtin_controls.h>
#include <qvui/framework/control_base.h>

#include "check.h"
#include "controls.h"

namespace qvui::skin_tool {

using DUI::AttributeInfo;
using DUI::ControlClass;

namespace {

bool Resets(const AttributeInfo& later, const std::string& name)
{
    const std::vector<std::string> reset = Split(later.syntax.rules.resets, '|');
    return std::any_of(reset.begin(), reset.end(),
                       [&](const std::string& other) { return EqualNoCase(other, name); });
}

// What a search compares: the first character of a shortcut, in either case, and all of a name.
std::string SearchKey(const AttributeInfo& info, const std::string& value)
{
    if (info.syntax.kind != ValueKind::Character || value.empty())
        return value;
    return std::string(CString(std::string_view(value).substr(0, 1)).MakeUpper().View());
}

bool IsTabLayout(const Element& element)
{
    for (const ControlClass* known = ClassOf(element.tag); known; known = known->Base())
        if (std::string_view(known->Name()) == "CDUITabLayout")
            return true;
    return false;
}

// Whether two controls need not be there at once: they stand on two pages, or one is hidden or disabled at
// first.
bool MayAlternate(const Document& document, int window, int first, int second)
{
    std::map<int, int> pages;  // by tab layout around the first control: the page
    const auto isAway = [&](int control, auto onParent) {
        for (int at = control; at != window; at = document.At(at).parent) {
            const Element& element = document.At(at);
            const std::string enable = element.Value("enable");
            if (EqualNoCase(enable, "false") || EqualNoCase(element.Value("visible"), "false") ||
                onParent(element.parent, at))
                return true;
        }
        return false;
    };
    const auto keepPage = [&](int parent, int child) {
        if (IsTabLayout(document.At(parent)))
            pages[parent] = child;
        return false;
    };
    const auto isOtherPage = [&](int parent, int child) {
        const auto page = pages.find(parent);
        return page != pages.end() && page->second != child;
    };
    return isAway(first, keepPage) || isAway(second, isOtherPage);
}

// An application may know a group of radio buttons by one name.
bool IsGroup(const Element& first, const Element& second)
{
    constexpr const char* kRadioButton = "radio_button";
    return first.tag == kRadioButton && second.tag == kRadioButton;
}

}  // namespace

// Of two shortcuts the one that can be reached answers. Of two names a search finds only ever the same one;
// yet when no document searches, the application may take the two for one command.
void Checker::CheckUniqueValues(const Document& document, int window)
{
    std::map<std::string, int> first;  // by attribute and value: the control
    for (int i = window + 1; i < document.EndOf(window); ++i)
        for (const Attribute& attribute : document.At(i).attributes) {
            const AttributeInfo* const info = FindAttribute(DUI::CDUIControlBase::Class(), attribute.name);
            if (!info || !info->syntax.rules.isUnique || attribute.value.empty())
                continue;
            const bool isShortcut = info->syntax.kind == ValueKind::Character;
            const auto place = first.try_emplace(info->name + (" " + SearchKey(*info, attribute.value)), i);
            const int other = place.first->second;
            if (place.second || (!isShortcut && IsGroup(document.At(other), document.At(i))))
                continue;
            const bool mayBeMeant = isShortcut ? MayAlternate(document, window, other, i)
                                               : m_searchedNames.count(attribute.value) == 0;
            m_report.Add(mayBeMeant ? Severity::Note : Severity::Warning, document, attribute.valueOffset,
                         attribute.name + ": \"" + attribute.value + "\" stands in line " +
                             std::to_string(document.Where(document.At(other).offset).line) +
                             " already, and only one of the two is found" +
                             (isShortcut && mayBeMeant ? ", that which is shown and enabled" : "") +
                             "; write another " + info->name + (mayBeMeant ? " unless that is meant" : ""));
        }
}

// --- attributes that undo what is written before them --------------------------------------------

struct Checker::Step {
    const Attribute* attribute;
    const AttributeInfo* info;
    const Attribute* style = nullptr;  // the control_style that brings the attribute
};

void Checker::AddStyle(Step step, const ControlClass& control, std::vector<Step>& steps) const
{
    if (!step.info->syntax.rules.appliesStyle)
        return;
    for (const NameScope& skin : m_names.Scopes(NameKind::ControlStyle))
        if (const auto found = skin.names.find(step.attribute->value); found != skin.names.end())
            for (const Attribute& attribute : found->second.element->attributes)
                if (const AttributeInfo* const info = FindAttribute(control, attribute.name);
                    info && attribute.name != "name")
                    steps.push_back({&attribute, info, step.attribute});
}

void Checker::CheckOrder(const Place& place, const ControlClass& control)
{
    std::vector<Step> steps;
    for (const Attribute& attribute : place.element.attributes)
        if (const AttributeInfo* const info = FindAttribute(control, attribute.name)) {
            steps.push_back({&attribute, info});
            AddStyle(steps.back(), control, steps);
        }
    for (auto step = steps.begin(); step != steps.end(); ++step)
        if (!step->style)
            for (auto later = step + 1; later != steps.end(); ++later)
                CheckReset(place, *step, *later);
}

void Checker::CheckReset(const Place& place, const Step& step, const Step& later)
{
    const bool isSetAnew = later.style && !step.info->syntax.rules.accumulates &&
                           EqualNoCase(step.attribute->name, later.attribute->name) &&
                           step.attribute->value != later.attribute->value;
    const bool isReset =
        Resets(*later.info, step.attribute->name) && step.attribute->value != step.info->syntax.defaultValue;
    if (!isSetAnew && !isReset)
        return;
    const std::string resetter = later.style ? later.style->name : later.attribute->name;
    const bool isEither = !isSetAnew && Resets(*step.info, later.attribute->name);
    m_report.Add(Severity::Warning, place.document, step.attribute->nameOffset,
                 "\"" + step.attribute->name + "\" has no effect, since \"" + resetter +
                     "\" after it sets it anew; " +
                     (isEither ? "leave one of the two out" : "write \"" + resetter + "\" first"));
}

// The control is not known: any class that has all of the style's attributes may be meant.
void Checker::CheckStyleOrder(const Place& place)
{
    for (const DUI::BuiltinControl& control : DUI::BuiltinControls()) {
        const auto isOf = [&](const Attribute& attribute) {
            return attribute.name == "name" || FindAttribute(control.describe(), attribute.name);
        };
        const std::vector<Attribute>& attributes = place.element.attributes;
        if (std::all_of(attributes.begin(), attributes.end(), isOf))
            CheckOrder(place, control.describe());
    }
}

}  // namespace qvui::skin_tool
