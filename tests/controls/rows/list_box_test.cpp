#include <qvui/controls/rows/list_box.h>

#include <qvui/controls/button.h>

#include "controls/pixels.h"
#include "controls/rows/row_views.h"

namespace qvui::test {
namespace {

using namespace DUI;
using Strings = std::vector<std::string>;

class ListBox : public ControlTest {};

/// `count` items "a", "b", ... in a list box that is called "list".
std::string List(int count, const std::string& attributes = "", const std::string& itemAttributes = "")
{
    std::string text = "<listbox name=\"list\" " + attributes + ">";
    for (int i = 0; i < count; ++i)
        text += std::string("<list_icontext_item text=\"#") + static_cast<char>('a' + i) + "\" " +
                itemAttributes + "/>";
    return text + "</listbox>";
}

CDUIListItem& Item(CDUIListBox& list, int index)
{
    return *dynamic_cast<CDUIListItem*>(list.GetControlByIndex(index));
}

// --- items -------------------------------------------------------------------------------------------------

TEST_F(ListBox, ItemsTakeTheHeightOfTheirState)
{
    const struct {
        const char* name;
        std::vector<std::pair<const char*, const char*>> attributes;
        int height;
    } cases[] = {
        {"new", {}, 25},
        {"expanded", {{"expand", "TRUE"}}, 50},
        {"expanded and collapsed", {{"expand", "true"}, {"expand", "yes"}}, 25},
        {"expanded height at once", {{"expand", "true"}, {"expand_height", "80"}}, 80},
        {"expanded height for later", {{"expand_height", "80"}}, 25},
        {"normal height at once", {{"Normal_Height", "31"}}, 31},
    };
    for (const auto& c : cases) {
        CRefPtr<CDUIListItem> item = new CDUIListItem;
        for (const auto& [name, value] : c.attributes)
            item->SetAttribute(name, value);
        EXPECT_EQ(item->GetFixedSize().cy, c.height) << c.name;
    }
}

/// Which of the text style's colours the ink has that stands on white: black, blue (hover) or green (select).
std::string InkColor(const ClientPixels& pixels)
{
    std::uint64_t red = 0, green = 0, blue = 0;
    for (const std::uint32_t pixel : pixels.pixels) {
        red += 0xFF - (pixel >> 16 & 0xFF);
        green += 0xFF - (pixel >> 8 & 0xFF);
        blue += 0xFF - (pixel & 0xFF);
    }
    return red == 0 ? "none" : green < red / 4 ? "green" : blue < red / 4 ? "blue" : "black";
}

TEST_F(ListBox, ItemsUseTheListsTextStyle)
{
    SkinAdditions additions;
    additions.frameStyles = R"(<frame_style name="white" back_color="white"/>)";
    UseSkin(additions);
    ControlWindow window({200, 25}, "<window frame_style=\"white\">" +
                                        List(1, R"(text_style="centre")", R"(text_style="normal")") +
                                        "</window>");
    auto& list = window.Root<CDUIListBox>();
    Item(list, 0).SetText("MMMM");
    const ClientPixels normal = window.Paint();
    EXPECT_EQ(InkColor(normal), "black");
    window.mouse.MoveTo({50, 10});
    const ClientPixels hovered = window.Paint();
    EXPECT_EQ(InkColor(hovered), "blue");
    list.SetCurSel(0);
    EXPECT_EQ(InkColor(window.Paint()), "green") << "selected before hovered";
    const RECT text = DifferenceOf(normal, hovered);
    EXPECT_NEAR(text.left, 200 - text.right, 2) << "centred, as the list's style says";
    EXPECT_GT(text.left, 50);
}

TEST_F(ListBox, AddedStringsTakeTheirControlStyle)
{
    SkinAdditions additions;
    additions.controlStyles = R"(<control_style name="tall" normal_height="40" select_frame="red"/>)";
    UseSkin(additions);
    CRefPtr<CDUIListBox> list = new CDUIListBox;
    list->AddString("text", "tall");
    EXPECT_EQ(Item(*list.GetPtr(), 0).GetFixedSize().cy, 40);
    EXPECT_FALSE(Item(*list.GetPtr(), 0).GetSelectFrameBK().IsNull());
    EXPECT_EQ(list->GetScrollLineStep(), 40);
    list->RemoveAllControl();
    EXPECT_EQ(list->GetScrollLineStep(), 100);
}

// --- the pointer -------------------------------------------------------------------------------------------

TEST_F(ListBox, HoveringRepaintsTwoItemsAndNoMore)
{
    ControlWindow window({100, 200}, List(8));
    window.mouse.MoveTo({50, 30});
    window.Paint();
    window.Validate();
    window.mouse.MoveTo({50, 60});
    EXPECT_EQ(Text(window.Invalid()), "0,25,100,75");
}

TEST_F(ListBox, AnItemCutByTheLowerEdgeIsNotHitBelowIt)
{
    ControlWindow window(
        {100, 60}, "<vert_layout>" + List(4, R"(height="40")") + R"(<button name="below"/></vert_layout>)");
    POINT point{50, 35};
    EXPECT_EQ(window.FindControl(&point)->GetText(), "b");
    point.y = 45;
    EXPECT_EQ(window.FindControl(&point)->GetName(), "below");
}

// --- scrolling ---------------------------------------------------------------------------------------------

// --- keys --------------------------------------------------------------------------------------------------

// --- groups ------------------------------------------------------------------------------------------------

// --- copies ------------------------------------------------------------------------------------------------

// --- handlers that take things away ------------------------------------------------------------------------

TEST_F(ListBox, AHandlerMayTakeAnythingAway)
{
    TakeAnythingAway(List(3, R"(select_expand="true" hover_expand="true")"), DUINOTIFY_LISTBOX, {1, 2, 3, 4},
                     [](ControlWindow& window) {
                         window.Find<CDUIListBox>("list")->SetHoverSelect(1);
                         window.mouse.DoubleClick({50, 30}).MoveTo({50, 5}).Click({50, 5});
                     });
}

TEST_F(ListBox, ItemsOutliveTheirList)
{
    CRefPtr<IDUIControl> item = new CDUIListItem;
    {
        CRefPtr<CDUIListBox> list = new CDUIListBox;
        list->AddControl(item);
    }
    item->SetVisible(FALSE);
    item->SetAttribute("expand", "true");
    EXPECT_EQ(item->GetParent(), nullptr);
    {
        CRefPtr<CDUIListBox> list = new CDUIListBox;
        list->AddControl(item);
        list->RemoveAllControl();
        item->SetVisible(TRUE);
        list->AddControl(item);
        EXPECT_EQ(list->CalculateTotalHeight(), 50);
        list->SetControlIndex(item, 0);
        EXPECT_EQ(list->GetControlCount(), 0) << "an index that is not below the count leaves it removed";
        EXPECT_EQ(list->CalculateTotalHeight(), 0);
    }
}

}  // namespace
}  // namespace qvui::test
