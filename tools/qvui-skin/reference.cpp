#include "reference.h"

#include <algorithm>
#include <cctype>
#include <vector>

#include <qvui/bars/builtin_controls.h>
#include <qvui/framework/window/window_mgr.h>

#include "controls.h"
#include "values.h"

namespace qvui::skin_tool {
namespace {

using DUI::AttributeInfo;
using DUI::BuiltinControl;
using DUI::ControlClass;
using DUI::NotificationInfo;

std::string Code(const std::string& text)
{
    return text.empty() ? "" : "`" + text + "`";
}

std::string Cell(const std::string& text)
{
    std::string cell;
    for (const char character : text)
        cell += character == '|' ? std::string("\\|") : std::string(1, character);
    return cell;
}

std::string Words(std::string_view keywords)
{
    std::string words;
    for (const std::string& word : Split(keywords, '|'))
        words += (words.empty() ? "" : ", ") + Code(word);
    return words;
}

std::string ValueText(ValueKind kind, std::string_view keywords)
{
    return Describe(kind) + (keywords.empty() ? std::string() : ": " + Words(keywords));
}

std::string ValueText(const EntryAttribute& attribute)
{
    const std::string range = RangeText(attribute.range);
    return ValueText(attribute.kind, KeywordsOf(attribute)) + (range.empty() ? "" : " ") + range;
}

std::string Row(const std::string& name, const std::string& value, const std::string& defaultValue,
                const std::string& description)
{
    return "| " + Code(name) + " | " + Cell(value) + " | " + Cell(Code(defaultValue)) + " | " +
           Cell(description) + " |\n";
}

std::string CodeList(std::string_view words)
{
    std::string list = Words(words);
    if (const std::size_t last = list.rfind(", "); last != std::string::npos)
        list.replace(last, 2, " and ");
    return list;
}

// The names of the attributes of the list that undo one written before them.
std::string ResettersOf(const AttributeInfo& info, const DUI::AttributeList& list)
{
    std::string names;
    for (const AttributeInfo& other : list.Infos()) {
        const std::vector<std::string> reset = Split(other.syntax.rules.resets, '|');
        if (std::find(reset.begin(), reset.end(), info.name) != reset.end())
            names.append(names.empty() ? "" : "|").append(other.name);
    }
    return names;
}

// Where an attribute stands among those of its control.
std::string OrderText(const AttributeInfo& info, const DUI::AttributeList& list)
{
    const std::string resets = info.syntax.rules.resets;
    const std::string resetters = ResettersOf(info, list);
    if (!resets.empty() && resets == resetters)
        return " Stands instead of " + CodeList(resets) + ": the one that is written last counts.";
    return (resets.empty() ? "" : " Write it before " + CodeList(resets) + ": it sets that anew.") +
           (resetters.empty() ? "" : " Write it after " + CodeList(resetters) + ", or it is set anew.");
}

// What `qvui-skin check` warns of, at the attribute that it is about.
std::string RulesText(const DUI::AttributeRules& rules)
{
    std::string text;
    if (rules.appliesStyle)
        text += " Write it first: it sets anew what is written before it and in the style, too.";
    if (rules.isUnique)
        text += " Two controls of a window have different ones: a search finds one of them alone.";
    if (*rules.needsControl)
        text += " Without effect in a window that has no control named " + Code(rules.needsControl) + ".";
    if (rules.isFill)
        text +=
            " A translucent colour overflows on bright ground when a channel is above its alpha: write "
            "`#80808080`, not `#80FFFFFF`.";
    if (rules.emptyIsNone)
        text += " Black with fewer than eight digits is no colour, and nothing is painted with it.";
    if (rules.stays)
        text += " A skin without it keeps the value of the skin that is switched from; " +
                (*rules.stays ? Code(rules.stays) + " undoes it." : "write it in each skin.");
    if (*rules.lostBySwitch)
        text += " Pictures from " + CodeList(rules.lostBySwitch) + " go blank on a switch to their skin.";
    return text;
}

std::string AttributeRows(const DUI::AttributeList& list)
{
    std::string rows = "| Attribute | Value | Without it | Meaning |\n|---|---|---|---|\n";
    for (const AttributeInfo& info : list.Infos())
        rows += Row(info.name, ValueText(info.syntax.kind, info.syntax.keywords), info.syntax.defaultValue,
                    info.description + OrderText(info, list) + RulesText(info.syntax.rules));
    return rows + "\n";
}

std::string EntryRows(const std::vector<EntryAttribute>& attributes)
{
    std::string rows = "| Attribute | Value | Meaning |\n|---|---|---|\n";
    for (const EntryAttribute& attribute : attributes)
        rows += "| " + Code(attribute.name) + " | " + Cell(ValueText(attribute)) + " | " +
                Cell(attribute.description + RulesText(attribute.rules)) + " |\n";
    return rows + "\n";
}

std::string SetText(const SetSchema& set)
{
    std::string text = "#### ";
    text += set.set ? Code(set.set) : Code(set.entry);
    if (set.set && set.entry)
        text += ", each " + Code(set.entry);
    text += "\n\n" + std::string(set.description) + "\n\n";
    if (set.names && *set.names == NameKind::String)
        text += "Each language has all ids: of one that it lacks nothing is shown.\n\n";
    else if (set.names)
        text +=
            "Each skin has all names that templates and the application ask for: after a switch to one that "
            "lacks a name, that of the skin before stays.\n\n";
    if (!set.setAttributes.empty())
        text += (set.entry ? "Of the set itself:\n\n" : "") + EntryRows(set.setAttributes);
    if (!set.attributes.empty())
        text += (set.setAttributes.empty() ? "" : "Of each entry:\n\n") + EntryRows(set.attributes);
    if (set.content == EntryContent::Window)
        text += "See [the window element](#the-window-element).\n\n";
    return text;
}

std::string DocumentText(const DocumentSchema& schema)
{
    std::string text = "### " + std::string(schema.title) + "\n\n" + schema.description + "\n\n";
    if (schema.sets.size() > 1)
        text +=
            schema.isFirstOfEachKind
                ? "The sets stand in this order, each once; one out of order is not seen.\n\n"
                : "The sets stand in this order, each any number of times; one behind a later kind is not "
                  "seen.\n\n";
    for (const SetSchema& set : schema.sets)
        text += SetText(set);
    return text;
}

// Classes that bring attributes or notifications, each base before what derives from it.
std::vector<const ControlClass*> BaseClasses()
{
    std::vector<const ControlClass*> classes;
    for (const BuiltinControl& control : DUI::BuiltinControls()) {
        std::vector<const ControlClass*> chain;
        for (const ControlClass* base = control.describe().Base(); base; base = base->Base())
            chain.insert(chain.begin(), base);
        for (const ControlClass* base : chain)
            if (std::find(classes.begin(), classes.end(), base) == classes.end())
                classes.push_back(base);
    }
    return classes;
}

std::string Anchor(std::string title)
{
    std::string anchor;
    for (const char character : title)
        if (std::isalnum(static_cast<unsigned char>(character)) || character == '_' || character == '-')
            anchor += static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    return anchor;
}

std::string Notifications(const ControlClass& control)
{
    if (control.Notifications().empty())
        return "";
    std::string rows = "| Notification | When |\n|---|---|\n";
    for (const NotificationInfo& info : control.Notifications())
        rows += "| " + Code(info.name) + " | " + Cell(info.description) + " |\n";
    return rows + "\n";
}

// The names that GetInterface answers: the class's own and those it passes on.
std::string Interfaces(const ControlClass& control)
{
    std::string names;
    for (const ControlClass* known = &control; known; known = known->Base())
        for (const std::string_view own : known->Interfaces()) {
            const std::string name(own);
            if (control.Answers(name.c_str()) && names.find(Code(name)) == std::string::npos)
                names += (names.empty() ? "" : ", ") + Code(name);
        }
    return names.empty() ? "" : "Interface names: " + names + ".\n\n";
}

std::string Inherited(const ControlClass& control)
{
    std::string text;
    for (const ControlClass* base = control.Base(); base; base = base->Base())
        if (base->Attributes() || !base->Notifications().empty())
            text.append(text.empty() ? "[" : ", [")
                .append(base->Name())
                .append("](#")
                .append(Anchor(base->Name()))
                .append(")");
    return text.empty() ? "" : "Takes over what these have: " + text + ".\n\n";
}

std::string ClassBody(const ControlClass& control)
{
    std::string text = std::string(control.Description()) + "\n\n";
    if (control.Attributes())
        text += AttributeRows(*control.Attributes());
    return text + Notifications(control);
}

constexpr const char* kIntroduction =
    "# Skin reference\n\n"
    "What the documents of a skin package hold. This page is made from the tables that the library and\n"
    "`qvui-skin check` read (`qvui-skin reference -o docs/skin-reference.md`); do not edit it by hand.\n\n"
    "Tags and names match letter for letter, attributes of controls in any letter case. Lists of numbers\n"
    "are written with commas, lengths are in pixels. Colours have eight digits, `#AARRGGBB`: with six the\n"
    "alpha is 0, which fills and texts paint opaque, gradients blend, and where black is no colour at all.\n"
    "`qvui-skin check entry.xml` says what is wrong in a package.\n\n";

}  // namespace

std::string ReferencePage()
{
    std::string page = kIntroduction;
    page += "## Documents of a package\n\n";
    for (int i = 0; i < kDocumentKinds; ++i)
        page += DocumentText(SchemaOf(static_cast<DocumentKind>(i)));
    page +=
        "## The window element\n\nThe element of a window template; its one child is the root control.\n\n" +
        AttributeRows(DUI::CDUIWindowMgr::WindowAttributes());
    page += "## Controls\n\n";
    for (const BuiltinControl& control : DUI::BuiltinControls()) {
        const ControlClass& info = control.describe();
        page += "### " + Code(control.tag) + "\n\n" + ClassBody(info) + Inherited(info) + Interfaces(info);
    }
    page += "## What controls have in common\n\n";
    for (const ControlClass* base : BaseClasses())
        page += "### " + std::string(base->Name()) + "\n\n" + ClassBody(*base) + Inherited(*base);
    page.pop_back();
    return page;
}

}  // namespace qvui::skin_tool
