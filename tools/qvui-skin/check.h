#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include <qvui/framework/attribute_table.h>
#include <qvui/render/image_list.h>

#include "names.h"
#include "package.h"
#include "report.h"

namespace qvui::skin_tool {

/// Checks a loaded package: what every document defines, then what its values say and refer to, then the
/// images behind it.
class Checker {
public:
    /// `tags` are those that the application registers itself; their attributes are the application's.
    Checker(const Package& package, std::vector<std::string> tags, Report& report);
    void Run();

private:
    using ControlNames = std::set<std::string>;
    /// Where a value stands.
    struct Place {
        const Document& document;
        const Element& element;
        const std::string& skin;                 // the skin that the document belongs to; empty for all
        const ControlNames* controls = nullptr;  // the names in its window; null outside of windows
    };
    /// One attribute that a control is given, by its element or by a control style.
    struct Step;

    // check.cpp: documents and their entries
    void CheckEntryDocument();
    void CheckRepeated(const Document& document);
    void Define(const PackageDocument& part);
    void DefineEntry(const PackageDocument& part, const SeenEntry& seen);
    void CheckDocument(const PackageDocument& part);
    void CheckEntry(const PackageDocument& part, const SeenEntry& seen);
    void CheckPlainAttributes(const Place& place, const std::vector<EntryAttribute>& known);
    void CheckUnique(const PackageDocument& part, const std::vector<SeenEntry>& entries);

    // check_values.cpp: attribute values
    void CheckValue(const Place& place, const Attribute& attribute, const DUI::AttributeSyntax& syntax);
    void CheckValue(const Place& place, const Attribute& attribute, const EntryAttribute& entry);
    bool CheckValue(const Place& place, const Attribute& attribute, ValueKind kind, std::string_view keywords,
                    IntegerRange range);
    void CheckControlName(const Place& place, const Attribute& attribute);
    void CheckNeededControl(const Place& place, const Attribute& attribute, const std::string& needed);
    void ReportUnknown(const Place& place, const Attribute& attribute, const std::vector<std::string>& known);

    // check_controls.cpp: templates and control styles
    void CollectControls(const Document& document, int window);
    void CheckWindow(const PackageDocument& part, int window);
    void CheckControl(const Place& place);
    void CheckControlAttributes(const Place& place, const DUI::ControlClass* control);
    void CheckControlStyle(const PackageDocument& part, int entry);
    void UseDefaults();

    // check_windows.cpp: what the controls and attributes of a window are to one another
    void CheckUniqueValues(const Document& document, int window);
    void CheckOrder(const Place& place, const DUI::ControlClass& control);
    void AddStyle(Step step, const DUI::ControlClass& control, std::vector<Step>& steps) const;
    void CheckReset(const Place& place, const Step& step, const Step& later);
    void CheckStyleOrder(const Place& place);

    // check_colors.cpp: what colours turn into on the screen
    void CheckDigits(const Place& place, const Attribute& attribute, ValueKind kind);
    void CheckColors(const Place& place, const Attribute& attribute, const DUI::AttributeRules& rules);
    void CheckEmptyColors(const Place& place, const Attribute& attribute, const std::string& skin);
    void CheckFill(const Place& place, const Attribute& attribute, const std::string& text,
                   const std::string& skin);

    // check_switch.cpp: what one skin leaves to the next
    void CheckSwitches();
    void CheckSwitch(const SetSchema& set, const Place& from, const Place& to);
    void CheckLeftOut(const EntryAttribute& attribute, const Place& from, const Place& to);
    void CheckColorCount(const EntryAttribute& attribute, const Place& from, const Place& to);
    void CheckReload(const Place& place, const Attribute& attribute, const EntryAttribute& entry);

    // check_images.cpp: the files behind the records
    void CheckImage(const PackageDocument& part, int entry);
    void CheckCursor(const PackageDocument& part, int entry);
    void CheckCorner(const Place& place, const Attribute& corner, const DUI::CDUIImageList& image);
    bool IsFileThere(const Document& document, const Element& record);
    void ReportUnseen(const Document& document, const Element& record);
    void ReportNoResource(const Document& document, const Element& record);
    DUI::CDUIImageListPtr LoadImage(const Document& document, const Element& record);

    const Package& m_package;
    std::vector<std::string> m_tags;
    Report& m_report;
    Names m_names;
    ControlNames m_controlNames;           // of all windows
    ControlNames m_searchedNames;          // those that an attribute or the library looks for
    std::set<std::string> m_customStyles;  // control styles that an application's own controls use
    std::map<std::string, const DUI::ControlClass*>
        m_styleUsers;                     // of each control style, one class that uses it
    std::set<const Document*> m_checked;  // a document that two entries name is checked once
};

}  // namespace qvui::skin_tool
