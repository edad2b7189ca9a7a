#include <climits>

#include <qvui/layout/dialog_layout.h>
#include <qvui/layout/dock_layout.h>
#include <qvui/layout/frame_panel.h>
#include <qvui/layout/linear_layout.h>
#include <qvui/layout/padding_panel.h>

#include "layout/shapes.h"
#include "support/controls/control_test.h"

// Canvas, dialog and dock layouts, and panels.

namespace qvui::test {
namespace {

using namespace DUI;

class Container : public ControlTest {};

// Dialogs in dialogs: the first layout must not double its work at every level.
TEST_F(Container, NestedDialogsLayOutTheirChildrenOnce)
{
    CRefPtr<IDUIControl> dialog = new CDUIDialogLayout;
    Brick* const innermost = AddBrick(*dialog.GetPtr(), {0, 0});
    for (int i = 0; i < 30; ++i) {
        const CRefPtr<IDUIControl> outer = new CDUIDialogLayout;
        outer->AddControl(dialog);
        dialog = outer;
    }
    dialog->SetControlRect({0, 0, 100, 100});
    EXPECT_EQ(innermost->placed, 1);
}

TEST_F(Container, ADockLayoutOffersWhatIsFree)
{
    CRefPtr<CDUIDockLayout> dock = new CDUIDockLayout;
    Brick* const left = AddBrick(*dock.GetPtr(), {30, 10});
    Brick* const rest = AddBrick(*dock.GetPtr(), {10, 10});
    left->ModifyExStyle(0, DUIEXSTYLE_DOCK_LEFT);
    dock->SetControlRect({0, 0, 100, 80});
    EXPECT_EQ(left->asked, (std::vector<std::string>{"100x80"}));
    EXPECT_EQ(rest->asked, (std::vector<std::string>{"70x80"}));
}

}  // namespace
}  // namespace qvui::test
