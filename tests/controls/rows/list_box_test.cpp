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

/// Headers in capitals, each with the items of small letters that follow it; "!" after a header expands it.
std::string Groups(const char* letters)
{
    std::string text = "<listbox name=\"list\">";
    for (const char* at = letters; *at; ++at) {
        if (*at == '!')
            continue;
        text += std::string("<list_icontext_item text=\"#") + *at + "\"";
        if (*at >= 'A' && *at <= 'Z')
            text += std::string(" expand_height=\"25\" group=\"true\" expand=\"") +
                    (at[1] == '!' ? "true" : "false") + "\"";
        text += "/>";
    }
    return text + "</listbox>";
}

CDUIListItem& Item(CDUIListBox& list, int index)
{
    return *dynamic_cast<CDUIListItem*>(list.GetControlByIndex(index));
}

Strings Noted(ControlWindow& window)
{
    return Noted(window, DUINOTIFY_LISTBOX);
}

/// The texts of the items that are not hidden.
std::string Shown(CDUIListBox& list)
{
    std::string result;
    for (int i = 0; i < list.GetControlCount(); ++i)
        if (list.GetControlByIndex(i)->IsVisible(FALSE))
            result += list.GetControlByIndex(i)->GetText().GetString();
    return result;
}

/// Every item in view with the span it was given: "b 0-25".
Strings InView(CDUIListBox& list)
{
    Strings result;
    for (int i = list.GetTopIndex(); i <= list.GetLastIndex() && i < list.GetControlCount(); ++i) {
        CDUIListItem& item = Item(list, i);
        if (item.IsVisible(FALSE))
            result.push_back(std::string(item.GetText()) + " " + std::to_string(item.GetControlRect().top) +
                             "-" + std::to_string(item.GetControlRect().bottom));
    }
    return result;
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

TEST_F(ListBox, PaintsFramesIconsAndText)
{
    ControlWindow window({100, 100},
                         OnBlue(List(2, "", R"(normal_frame="red" hover_frame="framed" normal_icon="strip2"
        expand_icon="expander" padding="4")")));
    auto& list = window.Root<CDUIListBox>();
    const ClientPixels normal = window.Paint();
    EXPECT_EQ(normal.At(80, 5), kRed);
    EXPECT_EQ(normal.At(80, 30), kRed);
    EXPECT_EQ(normal.At(80, 60), kBlue) << "the list itself paints nothing";

    // The icon stands in a square; the text begins right of it and the padding.
    Item(list, 0).SetIconIndex(1);
    Item(list, 1).SetIconIndex(7);
    list.UpdateLayout(FALSE, nullptr);
    const ClientPixels icons = window.Paint();
    EXPECT_EQ(Bounds(icons, kGreen), "0,0,25,25");
    EXPECT_EQ(icons.At(10, 40), kRed) << "too high an index shows the first icon";
    window.mouse.MoveTo({50, 30});
    EXPECT_EQ(window.Paint().At(50, 25), kRed) << "the hovered item's border";
    EXPECT_EQ(window.Paint().At(90, 40), kBlue);
    window.mouse.Press().Release();
    EXPECT_EQ(Item(list, 1).GetSelect(), 1);
    EXPECT_EQ(window.Paint().At(50, 25), kBlue)
        << "selected without a select frame: no frame, though hovered";
    list.ExpandItem(0, TRUE);
    const ClientPixels expanded = window.Paint();
    EXPECT_EQ(expanded.At(49, 49), kGreen) << "the expanded icon in its larger square";
    EXPECT_EQ(expanded.At(50, 5), kRed);
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

TEST_F(ListBox, TakesListItemsOnly)
{
    CRefPtr<CDUIListBox> list = new CDUIListBox;
    EXPECT_FALSE(list->AddControl(new CDUIButton));
    EXPECT_FALSE(list->AddControl(nullptr));
    EXPECT_TRUE(list->AddControl(new CDUIListItem));
    EXPECT_FALSE(list->AddControlAt(1, new CDUIListItem));
    const CRefPtr<IDUIControl> item = list->AddString("text", "no style of that name");
    EXPECT_EQ(item->GetText(), "text");
    EXPECT_EQ(list->GetControlIndex(item), 1);
    EXPECT_EQ(list->GetControlCount(), 2);
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

TEST_F(ListBox, AClickNotesAndSelects)
{
    ControlWindow window({100, 100}, List(3));
    auto& list = window.Root<CDUIListBox>();
    window.mouse.Click({50, 30});
    EXPECT_EQ(Noted(window), (Strings{"4 b", "1 b", "3 b"}));
    EXPECT_EQ(window.GetFocusControl(), &list);
    window.mouse.Click({50, 30});
    EXPECT_EQ(Noted(window), Strings{"1 b"}) << "selected already";
    window.mouse.DoubleClick({50, 60});
    EXPECT_EQ(Noted(window), (Strings{"4 c", "1 c", "3 c", "2 c", "1 c"}));
    EXPECT_EQ(list.GetCurSel(), 2);
    EXPECT_EQ(Item(list, 1).GetSelect(), 0);
    window.mouse.Press({50, 5}).MoveTo({50, 30}).Release();
    EXPECT_EQ(Noted(window), Strings{"4 a"}) << "released elsewhere";
    EXPECT_EQ(list.SetCurSel(-1), 1);
    EXPECT_EQ(Item(list, 2).GetSelect(), 0);
    EXPECT_EQ(Noted(window), Strings());

    list.SetSelectExpand(1);
    Item(list, 0).SetHeight(TRUE, 80);
    list.SetCurSel(0);
    Noted(window);
    window.mouse.DoubleClick({50, 90});
    EXPECT_EQ(Noted(window), (Strings{"4 b", "1 b", "3 b", "2 b"})) << "the first click moved it up";
}

TEST_F(ListBox, ExpandsWhatIsSelectedOrHovered)
{
    for (const bool hovers : {false, true}) {
        ControlWindow window({100, 200},
                             List(3, hovers ? R"(hover_expand="true")" : R"(select_expand="true")"));
        auto& list = window.Root<CDUIListBox>();
        const auto choose = [&](int y) {
            hovers ? window.mouse.MoveTo({50, y}) : window.mouse.Click({50, y});
        };
        choose(5);
        EXPECT_EQ(InView(list), (Strings{"a 0-50", "b 50-75", "c 75-100"}));
        choose(80);
        EXPECT_EQ(InView(list), (Strings{"a 0-25", "b 25-50", "c 50-100"}));
        EXPECT_EQ(list.GetCurSel(), hovers ? -1 : 2);
        window.mouse.Leave();
        list.SetCurSel(-1);
        EXPECT_EQ(InView(list), (Strings{"a 0-25", "b 25-50", "c 50-75"}));
    }
}

TEST_F(ListBox, SelectsWhatIsHoveredWhenAsked)
{
    ControlWindow window({100, 100}, List(3));
    auto& list = window.Root<CDUIListBox>();
    list.SetHoverSelect(1);
    window.mouse.MoveTo({50, 30}).MoveTo({50, 60}).Leave();
    EXPECT_EQ(Noted(window), (Strings{"4 b", "3 b", "4 c", "3 c"}));
    EXPECT_EQ(list.GetCurSel(), 2);
}

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

TEST_F(ListBox, ScrollsByWholeItems)
{
    // 10 items of 25 in 100: the range ends 2 beyond the overflow of 150.
    const struct {
        const char* name;
        int position;
        Strings inView;
    } cases[] = {
        {"start", 0, {"a 0-25", "b 25-50", "c 50-75", "d 75-100"}},
        {"before the second item", 24, {"a 0-25", "b 25-50", "c 50-75", "d 75-100"}},
        {"at the second item", 25, {"b 0-25", "c 25-50", "d 50-75", "e 75-100"}},
        {"within the second item", 30, {"b 0-25", "c 25-50", "d 50-75", "e 75-100"}},
        {"end", 1000, {"g 0-25", "h 25-50", "i 50-75", "j 75-100"}},
    };
    ControlWindow window({100, 100}, List(10));
    auto& list = window.Root<CDUIListBox>();
    for (const auto& c : cases) {
        ScrollTo(list, c.position);
        EXPECT_EQ(InView(list), c.inView) << c.name;
    }
    EXPECT_EQ(PositionOf(*list.GetVerticalSB()), 152);
    list.SetExtraExpandHeight(0);
    list.UpdateLayout(TRUE, nullptr);
    EXPECT_EQ(PositionOf(*list.GetVerticalSB()), 150);
    EXPECT_EQ(Text(list.GetVerticalSB()->GetControlRect()), "90,0,100,100")
        << "as broad as its control style says";
    EXPECT_EQ(Item(list, 6).GetControlRect().right, 90);
    window.Resize({100, 300});
    EXPECT_EQ(Item(list, 0).GetControlRect().right, 100) << "without the bar";
}

TEST_F(ListBox, TopItems)
{
    ControlWindow window({100, 100}, List(10));
    auto& list = window.Root<CDUIListBox>();
    Item(list, 1).SetVisible(FALSE);
    EXPECT_EQ(list.SetTopIndex(3), 1);
    EXPECT_EQ(InView(list).front(), "d 0-25");
    EXPECT_EQ(PositionOf(*list.GetVerticalSB()), 50);
    EXPECT_EQ(list.SetTopIndex(1), 0) << "hidden";
    EXPECT_EQ(list.SetTopIndex(10), 0);
    EXPECT_EQ(list.SetTopIndex(-1), 0);
    EXPECT_EQ(list.SetTopIndex(9), 1);
    EXPECT_EQ(InView(list).front(), "g 0-25") << "as far as the range goes";
    window.Resize({100, 400});
    EXPECT_EQ(list.SetTopIndex(2), 0) << "nothing to scroll";
    EXPECT_EQ(list.GetTopIndex(), 0);
}

TEST_F(ListBox, WheelThumbAndTrackScrollIt)
{
    ControlWindow window({100, 100}, List(10));
    auto& list = window.Root<CDUIListBox>();
    list.SetFocus(TRUE);
    window.mouse.MoveTo({50, 50}).Wheel(-1).Wheel(-1);
    EXPECT_EQ(list.GetTopIndex(), 2);
    window.mouse.Wheel(1);
    EXPECT_EQ(list.GetTopIndex(), 1);
    PostAt(window, WM_LBUTTONUP, {95, 95});
    window.mouse.Press({95, 95}).Release();
    EXPECT_EQ(list.GetTopIndex(), 5);
    window.mouse.Press({95, 70}).MoveTo({95, 0}).Release();
    EXPECT_EQ(list.GetTopIndex(), 0);
}

// --- keys --------------------------------------------------------------------------------------------------

TEST_F(ListBox, ArrowsMoveTheSelection)
{
    // Item c is hidden; four items of 25 fit.
    const struct {
        const char* name;
        int selection;
        int key;
        int expected;
        int top;
        int topBefore = 0;
    } cases[] = {
        {"down from nothing", -1, VK_DOWN, 0, 0},
        {"up from nothing", -1, VK_UP, -1, 0},
        {"up from the first", 0, VK_UP, 0, 0},
        {"down over a hidden item", 1, VK_DOWN, 3, 0},
        {"left over a hidden item", 3, VK_LEFT, 1, 0},
        {"right to the last in view scrolls", 3, VK_RIGHT, 4, 4},
        {"down from the last", 9, VK_DOWN, 9, 0},
        {"another key", 3, VK_HOME, 3, 0},
        {"up above the view scrolls back", 6, VK_UP, 5, 5, 6},
    };
    for (const auto& c : cases) {
        ControlWindow window({100, 100}, List(10));
        auto& list = window.Root<CDUIListBox>();
        Item(list, 2).SetVisible(FALSE);
        list.SetFocus(TRUE);
        list.SetCurSel(c.selection);
        list.SetTopIndex(c.topBefore);
        window.TakeNotifications();
        window.keys.Press(c.key);
        EXPECT_EQ(list.GetCurSel(), c.expected) << c.name;
        EXPECT_EQ(list.GetTopIndex(), c.top) << c.name;
        EXPECT_EQ(Noted(window).size(), c.expected == c.selection ? 0U : 1U) << c.name;
    }
}

// --- groups ------------------------------------------------------------------------------------------------

TEST_F(ListBox, GroupsHideAndShowTheirItems)
{
    ControlWindow window({100, 300}, Groups("xA!abBcdC!e"));
    auto& list = window.Root<CDUIListBox>();
    EXPECT_EQ(Shown(list), "xAabBCe");
    window.mouse.Click({50, 30});
    EXPECT_EQ(Noted(window), Strings{"1 A"}) << "no hover and no selection for headers";
    EXPECT_EQ(Shown(list), "xABCe");
    EXPECT_EQ(InView(list), (Strings{"x 0-25", "A 25-50", "B 50-75", "C 75-100", "e 100-125"}));
    window.mouse.Click({50, 55});
    EXPECT_EQ(Shown(list), "xABcdCe");
    window.mouse.Click({50, 30});
    EXPECT_EQ(Shown(list), "xAabBcdCe");
    EXPECT_EQ(list.ExpandItem(4, FALSE), 1);
    EXPECT_EQ(Shown(list), "xAabBCe");
    EXPECT_EQ(list.ExpandItem(5, TRUE), 0) << "hidden";
    EXPECT_EQ(list.ExpandItem(99, TRUE), 0);
    list.SetCurSel(1);
    EXPECT_EQ(list.GetCurSel(), 1);
    EXPECT_EQ(Item(list, 1).GetSelect(), 0) << "a header is current, not selected";
    window.TakeNotifications();
    list.SetFocus(TRUE);
    window.keys.Press(VK_DOWN);
    EXPECT_EQ(Noted(window), Strings{"3 a"});
}

// --- copies ------------------------------------------------------------------------------------------------

TEST_F(ListBox, ACopyScrollsByABarOfItsOwn)
{
    CRefPtr<IDUIControl> clone;
    {
        ControlWindow window({100, 100}, List(10, R"(select_expand="true")"));
        window.Root<CDUIListBox>().SetCurSel(2);
        clone = window.GetRootControl()->Clone();
        EXPECT_NE(dynamic_cast<CDUIListBox*>(clone.GetPtr())->GetVerticalSB(),
                  window.Root<CDUIListBox>().GetVerticalSB());
    }
    ControlWindow window({100, 100}, clone);
    auto& list = window.Root<CDUIListBox>();
    EXPECT_EQ(list.GetCurSel(), 2);
    EXPECT_EQ(list.GetSelectExpand(), 1);
    list.SetFocus(TRUE);
    window.mouse.MoveTo({50, 50}).Wheel(-1);
    EXPECT_EQ(InView(list).front(), "b 0-25");
    window.mouse.Click({50, 5});
    EXPECT_EQ(list.GetCurSel(), 1);
    EXPECT_EQ(Item(list, 2).GetSelect(), 0);
}

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
