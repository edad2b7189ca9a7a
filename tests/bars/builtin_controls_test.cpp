#include <qvui/bars/builtin_controls.h>
#include <qvui/framework/app.h>
#include <qvui/framework/control_base.h>

#include "support/controls/control_test.h"
#include "support/transcript.h"

namespace qvui::test {
namespace {

using namespace DUI;

class BuiltinTags : public ControlTest {};

// The built-in tags in their order, and the names that a tag's control answers besides those of every
// control.
TEST_F(BuiltinTags, AnswerTheirNamesAndNoOthers)
{
    const char* const names[] = {
        "control",   "control_base", "horz_layout", "vert_layout",    "tile_layout",
        "canvas",    "dock_layout",  "split",       "dialog_layout",  "frame_panel",
        "button",    "label",        "hyper_link",  "vert_scrollbar", "horz_scrollbar",
        "scrollbar", "progress_bar", "track_bar",   "listbox",        "listItem",
        "richedit",  "combobox",     "tab_layout",  "tab_item",       "tab_bar",
        "treeview",  "picturebox",   "edit",        "treeview_item",  "toolbar_separator"};
    std::string text;
    for (const BuiltinControl& builtin : BuiltinControls()) {
        const CRefPtr<IDUIControl> control = builtin.create();
        text += std::string(builtin.tag) + ":";
        for (const CString name : names)
            if (control->GetInterface(name)) {
                text += " " + std::string(name);
                EXPECT_EQ(control->GetInterface(CString(name).MakeUpper()), control->GetInterface(name))
                    << name;
            }
        text += "\n";
        const CRefPtr<IDUIControl> copy = control->Clone();
        const IDUIControl& original = *control.GetPtr();
        const IDUIControl& copied = *copy.GetPtr();
        EXPECT_EQ(typeid(copied), typeid(original)) << builtin.tag;
        EXPECT_FALSE(DUIGetAppInstance()->GetControlFactory()->NewControl(builtin.tag).IsNull())
            << builtin.tag;
    }
    ExpectTranscript("bars/builtin_tags.txt", [&text](auto&) { return text; });
}

// Tools and GetInterface read the same declarations.
TEST_F(BuiltinTags, AreDescribed)
{
    for (const BuiltinControl& builtin : BuiltinControls()) {
        const ControlClass& described = builtin.describe();
        EXPECT_STRNE(described.Description(), "") << builtin.tag;
        for (const ControlClass* at = &described; at; at = at->Base())
            if (at->Attributes())
                for (const AttributeInfo& attribute : at->Attributes()->Infos()) {
                    const std::string text = attribute.description;
                    EXPECT_FALSE(text.empty()) << builtin.tag << " " << attribute.name;
                    EXPECT_EQ(text.back(), '.') << builtin.tag << " " << attribute.name;
                }
    }
}

}  // namespace
}  // namespace qvui::test
