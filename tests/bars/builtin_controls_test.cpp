#include <set>

#include <qvui/bars/builtin_controls.h>
#include <qvui/framework/app.h>
#include <qvui/framework/control_base.h>

#include "support/controls/control_test.h"

namespace qvui::test {
namespace {

using namespace DUI;

class BuiltinTags : public ControlTest {};

// The names that a tag's control answers besides those of every control.
struct Answers {
    const char* tag;
    std::vector<const char*> names;
};

const Answers kAnswers[] = {
    {"horz_layout", {"horz_layout", "canvas"}},
    {"vert_layout", {"vert_layout", "canvas"}},
    {"tile_layout", {"tile_layout", "canvas"}},
    {"dialog_layout", {"dialog_layout", "canvas"}},
    {"dock_layout", {"dock_layout", "canvas"}},
    {"vert_split", {"split"}},
    {"horz_split", {"split"}},
    {"canvas", {"canvas"}},
    {"padding_panel", {}},
    {"frame_panel", {"frame_panel"}},
    {"button", {"button"}},
    {"radio_button", {"button"}},
    {"check_box", {"button"}},
    {"label", {"label"}},
    {"hyperlink", {"hyper_link"}},
    {"vert_scrollbar", {"vert_scrollbar", "scrollbar"}},
    {"horz_scrollbar", {"horz_scrollbar", "scrollbar"}},
    {"vert_progressbar", {"progress_bar"}},
    {"horz_progressbar", {"progress_bar"}},
    {"vert_trackbar", {"track_bar"}},
    {"horz_trackbar", {"track_bar"}},
    {"listbox", {"listbox"}},
    {"list_icontext_item", {"listItem"}},
    {"richedit", {"richedit"}},
    {"combobox", {"combobox"}},
    {"tab_layout", {"tab_layout", "canvas"}},
    {"tab_item", {"tab_item", "button"}},
    {"horz_tabbar", {"tab_bar", "horz_layout", "canvas"}},
    {"vert_tabbar", {"tab_bar", "vert_layout", "canvas"}},
    {"horz_toolbar", {"horz_layout", "canvas"}},
    {"vert_toolbar", {"vert_layout", "canvas"}},
    {"treeview", {"treeview"}},
    {"treeview_item", {"treeview_item", "button"}},
    {"picturebox", {"picturebox"}},
    {"edit", {"edit"}},
    {"toolbar_separator", {"toolbar_separator"}},
    {"hyper_link", {"hyper_link"}},
};

TEST_F(BuiltinTags, StandInTheirOrder)
{
    std::size_t next = 0;
    for (const BuiltinControl& builtin : BuiltinControls()) {
        while (next < std::size(kAnswers) && std::string(kAnswers[next].tag) != builtin.tag)
            ++next;
        ASSERT_LT(next, std::size(kAnswers)) << builtin.tag << " is unknown, or out of order";
    }
}

TEST_F(BuiltinTags, AnswerTheirNamesAndNoOthers)
{
    std::set<std::string> all{"control", "control_base"};
    for (const Answers& answers : kAnswers)
        all.insert(answers.names.begin(), answers.names.end());
    const std::set<std::string> unregistered{"richedit", "combobox", "edit"};
    for (const Answers& answers : kAnswers) {
        const CRefPtr<IDUIControl> control =
            DUIGetAppInstance()->GetControlFactory()->NewControl(answers.tag);
        if (control.IsNull()) {
            EXPECT_EQ(unregistered.count(answers.tag), 1U) << answers.tag;
            continue;
        }
        std::set<std::string> expected(answers.names.begin(), answers.names.end());
        if (expected.count("hyper_link") == 0)
            expected.insert({"control", "control_base"});
        std::set<std::string> answered;
        for (const std::string& name : all)
            if (control->GetInterface(name.c_str()))
                answered.insert(name);
        EXPECT_EQ(answered, expected) << answers.tag;
        for (const char* name : answers.names) {
            CString upper = name;
            upper.MakeUpper();
            EXPECT_EQ(control->GetInterface(upper), control->GetInterface(name)) << name;
        }
        const CRefPtr<IDUIControl> copy = control->Clone();
        const IDUIControl& original = *control.GetPtr();
        const IDUIControl& copied = *copy.GetPtr();
        EXPECT_EQ(typeid(copied), typeid(original)) << answers.tag;
    }
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
