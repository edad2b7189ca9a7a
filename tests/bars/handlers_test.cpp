#include <qvui/framework/app.h>

#include "support/controls/probe.h"
#include "support/controls/scenario.h"

#include "support/controls/control_test.h"

// What handlers may do while a control is in the middle of something: nothing may be touched afterwards that
// is gone. The address sanitizer is the judge.

namespace qvui::test {
namespace {

using namespace DUI;

class Handlers : public ControlTest {
protected:
    Handlers() { traces.Expect(""); }

    /// Whether the deed was done, at the moment that the script reaches.
    bool Runs(const std::string& window, const std::string& moment, const std::string& deed,
              const std::string& acts)
    {
        SCOPED_TRACE(window + " at " + moment + ": " + deed);
        if (!DUIGetAppInstance()->GetSkinMgr())
            UseSkin({});
        Skin().Manager().SetSkinTyle("light");
        std::string script = "window 100x200\n" + window + "\non " + moment + ": " + deed + "\n" + acts;
        std::replace(script.begin(), script.end(), ';', '\n');
        return Scenario().Run(script).find("    at " + moment) != std::string::npos;
    }
};

// Every notification of what each control does.
TEST_F(Handlers, MayTakeAnythingAwayAtEveryNotification)
{
    const char* const deeds[] = {"remove .", "remove x", "clear .", "clear root", "close", "finish", "end"};
    const std::string rows = "<listbox name='l'>" +
                             std::string("<list_icontext_item name='x' select_expand='true' ") +
                             "hover_expand='true'/><list_icontext_item name='y' select_expand='true' "
                             "hover_expand='true'/></listbox>";
    const std::string tree =
        "<treeview name='t' item_height='20' indent='10'><treeview_item name='x'><treeview_item "
        "name='b'><treeview_item name='c'/></treeview_item><treeview_item name='d'/>"
        "</treeview_item><treeview_item name='e'/></treeview>";
    const std::string tabs =
        "<horz_tabbar height='20'><tab_item width='50'/><tab_item name='x' width='50'/>"
        "</horz_tabbar><tab_layout><button/><button/></tab_layout>";
    const std::string tools =
        "<horz_toolbar height='20'><button name='x' width='30'/><button width='30'/>"
        "</horz_toolbar>";
    const struct {
        std::string controls;
        const char* acts;
    } uses[] = {
        {"<button name='x'/>", "click 5,5"},
        {"<button name='x'/>", "activate x"},
        {"<radio_button name='x'/>", "click 5,5"},
        {"<radio_button name='x'/>", "activate x"},
        {"<check_box name='x'/>", "click 5,5;focus x;type +-"},
        {"<check_box name='x'/>", "activate x"},
        {"<hyperlink name='x'/>", "click 5,5"},
        {"<hyperlink name='x'/>", "activate x"},
        {"<horz_progressbar name='x' range='0,9'/>", "progress.pos x 7"},
        {"<vert_trackbar name='x' range='0,9'/>", "track.pos x 7"},
        {"<horz_trackbar name='x' range='0,9' thumb_image='thumb'/>",
         "press 50,5;move 5,5;move 70,5;release"},
        {rows, "list.hover_select l 1;double 50,30;move 50,5;click 50,5;key DOWN;key RETURN"},
        {tree,
         "double 90,10;click 5,10;click 5,10;key MULTIPLY;key DOWN;key DOWN;key LEFT;key LEFT;key RETURN"},
        {tabs, "click 60,10;key LEFT;activate x"},
        {tools, "click 40,10;click 5,10;key SPACE"},
    };
    for (const auto& use : uses)
        for (const char* const deed : deeds) {
            int count = 0;
            const std::string window = "<vert_layout name='root'>" + use.controls + "</vert_layout>";
            while (Runs(window, "#" + std::to_string(count + 1), deed, use.acts))
                ++count;
            EXPECT_GT(count, 0) << use.controls << use.acts;
        }
}

// Every event, and every deed that reaches the window or the tree.
TEST_F(Handlers, MayDoAnythingInAnEvent)
{
    const char* const deeds[] = {"remove inner",
                                 "remove a",
                                 "clear root",
                                 "adopt inner b",
                                 "index a 0",
                                 "focus inner",
                                 "focus b",
                                 "detach",
                                 "finish",
                                 "close",
                                 "end",
                                 "terminate",
                                 "rebuild <probe name='other'/>",
                                 "replace <probe name='other'/>",
                                 "skin dark",
                                 "other <probe/>"};
    for (const char* const deed : deeds)
        for (const char* const moment :
             {"inner ENTER", "inner MOVE", "inner LEAVE", "inner SETFOCUS", "inner KILLFOCUS", "inner DOWN",
              "inner UP", "inner KEYDOWN", "inner TIMER", "inner timer", "inner WINDOWSIZE", "inner skin",
              "inner create", "inner destroy", "1 inner", "2 inner"})
            EXPECT_TRUE(
                Runs("<probe name='root'><probe name='filler' visible='false'/><probe name='a' "
                     "position='0,0,30,30'><probe name='inner' position='0,0,30,30' tab_stop='true'/></probe>"
                     "<probe name='b' position='30,0,60,30'/></probe>",
                     moment, deed,
                     "timer inner 1;tick 1;move 45,15;move 15,15;press 15,15;release;key X;resize 70x30;move "
                     "45,15;tab;"
                     "lose;skin dark;index a 1;finish"));
}

}  // namespace
}  // namespace qvui::test
