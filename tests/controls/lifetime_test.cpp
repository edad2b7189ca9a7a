#include <qvui/controls/button.h>
#include <qvui/controls/progress_bar.h>
#include <qvui/controls/track_bar.h>

#include "controls/pixels.h"
#include "support/controls/control_test.h"

namespace qvui::test {
namespace {

using namespace DUI;

class Lifetime : public ControlTest {};

// A control that notifies, and what makes it do so.
struct Notifier {
    const char* element;
    void (*provoke)(ControlWindow& window, IDUIControl* control);
};

void Click(ControlWindow& window, IDUIControl*)
{
    window.mouse.Click({5, 5});
}

void Activate(ControlWindow&, IDUIControl* control)
{
    control->Activate();
}

template <class Bar>
void SetPos(ControlWindow&, IDUIControl* control)
{
    dynamic_cast<Bar*>(control)->SetPos(7);
}

const Notifier kNotifiers[] = {
    {"button", &Click},
    {"button", &Activate},
    {"radio_button", &Click},
    {"radio_button", &Activate},
    {"check_box", &Click},
    {"check_box", &Activate},
    {"check_box",
     [](ControlWindow& window, IDUIControl* control) {
         control->SetFocus(TRUE);
         window.keys.Type("+");
     }},
    {"hyperlink", &Click},
    {"hyperlink", &Activate},
    {"horz_progressbar", &SetPos<CDUIProgressBar>},
    {"vert_trackbar", &SetPos<CDUITrackBarBase>},
    {"horz_trackbar",
     [](ControlWindow& window, IDUIControl*) {
         window.mouse.Press({30, 5});
     }},
    {"horz_trackbar",
     [](ControlWindow& window, IDUIControl*) {
         window.mouse.Press({5, 5}).MoveTo({30, 5}).Release();
     }},
};

std::string Template(const Notifier& notifier)
{
    return std::string("<") + notifier.element + R"( range="0,9" thumb_image="thumb"/>)";
}

TEST_F(Lifetime, AHandlerMayCloseTheWindow)
{
    for (const Notifier& notifier : kNotifiers) {
        ControlWindow window({50, 20}, Template(notifier));
        int calls = 0;
        window.OnNotify([&](const tagDUINotify& notify) {
            if (notify.nCode == DUINOTIFY_DESTROYED)
                return;
            ++calls;
            window.Close();
        });
        notifier.provoke(window, window.GetRootControl());
        EXPECT_EQ(calls, 1) << notifier.element;
        window.OnNotify(nullptr);
    }
}

TEST_F(Lifetime, AHandlerMayRemoveItsSender)
{
    for (const Notifier& notifier : kNotifiers) {
        CRefPtr<IDUIControl> root = new CDUIControlBase;
        {
            ControlWindow maker({50, 20}, Template(notifier));
            root->AddControl(maker.GetRootControl()->Clone());
        }
        ControlWindow window({50, 20}, root);
        window.OnNotify([&](const tagDUINotify& notify) {
            if (notify.nCode != DUINOTIFY_DESTROYED)
                root->RemoveAllControl();
        });
        notifier.provoke(window, root->GetControlByIndex(0));
        EXPECT_EQ(root->GetControlCount(), 0) << notifier.element;
        EXPECT_EQ(window.GetFocusControl(), nullptr) << notifier.element;
        window.Paint();
        window.OnNotify(nullptr);
    }
}

TEST_F(Lifetime, ACopyLooksTheSame)
{
    const char* const templates[] = {
        R"(<button back_image="strip" icon="dot" button_style="right_icon" text="#copy" padding="3" margin="1,2,3,4"/>)",
        R"(<check_box checked_image="strip2" unchecked_image="expander" text="#copy" text_style="centre"/>)",
        R"(<radio_button checked_image="strip2" unchecked_image="expander" text="#copy"/>)",
        R"(<label back_image="strip2" text="#copy" enable_shadowtext="true" shadowtext_color="blue" margin="2,3,4,5"/>)",
        R"(<hyperlink back_image="strip2" text="#copy" href="x" enable="false"/>)",
        R"(<picturebox icon="strip" margin="9,8,7,6"/>)",
        R"(<vert_progressbar back_image="strip2" range="0,10" pos="3"/>)",
        R"(<horz_progressbar back_image="strip2" range="0,10" pos="3"/>)",
        R"(<horz_trackbar back_image="strip2" thumb_image="thumb" range="0,10" pos="3" percent="true"/>)",
        R"(<vert_trackbar back_color="red,blue" thumb_image="thumb" range="0,10" pos="3"/>)",
    };
    for (const char* const content : templates) {
        ControlWindow window({60, 40}, content);
        IDUIControl* const original = window.GetRootControl();
        const ClientPixels pixels = window.Paint();
        const CRefPtr<IDUIControl> copy = original->Clone();
        const IDUIControl& copied = *copy.GetPtr();
        EXPECT_EQ(typeid(copied), typeid(*original)) << content;
        ControlWindow other({60, 40}, copy);
        EXPECT_EQ(Difference(pixels, other.Paint()), "0,0,0,0") << content;
    }
}

}  // namespace
}  // namespace qvui::test
