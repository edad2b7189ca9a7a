#include <climits>

#include <gtest/gtest.h>

#include <qvui/framework/control.h>

#include "bars/tool_bar_plan.h"
#include "layout/placement/dock_rect.h"
#include "layout/placement/linear_spans.h"
#include "layout/placement/tile_grid.h"

#include "layout/shapes.h"
#include "tooltip/popup_placement.h"

// The arithmetic of the layouts, apart from any control.

namespace qvui::test {
namespace {

using namespace DUI;
using namespace DUI::layout;

std::string Text(const std::vector<Span>& spans)
{
    std::string text;
    for (const Span& span : spans)
        AddWord(text, std::to_string(span.start) + "+" + std::to_string(span.length));
    return text;
}

TEST(Plans, DivideALineAmongFixedAndFlexibleChildren)
{
    struct Case {
        const char* name;
        Line line;
        std::vector<LONG> wanted;
        const char* spans;
        LONGLONG content;
    };
    const Case cases[] = {
        {"nobody", {0, 100, 5}, {}, "", 0},
        {"a single fixed child takes all", {0, 100, 5}, {20}, "0+100", 20},
        {"three flexible children and a remainder", {0, 100, 0}, {0, 0, 0}, "0+33 33+33 66+34", 99},
        {"fixed, then flexible, with a gap", {0, 100, 5}, {30, 0}, "0+30 35+65", 100},
        {"the last one is fixed", {0, 100, 5}, {0, 30}, "0+65 70+30", 100},
        {"all fixed: the last one is lengthened", {10, 100, 0}, {20, 30}, "10+20 30+80", 50},
        {"an exact fit", {0, 100, 10}, {40, 50}, "0+40 50+50", 100},
        {"too little: flexible ones get nothing", {0, 100, 10}, {80, 0, 60}, "0+80 90+0 100+60", 160},
        {"rest of one pixel for two", {0, 21, 0}, {20, 0, 0}, "0+20 20+0 20+1", 20},
        {"scrolled", {-40, 100, 0}, {80, 80}, "-40+80 40+80", 160},
        {"negative lengths go backwards", {0, 100, 0}, {-10, 30}, "0+-10 -10+110", 20},
        {"a negative gap overlaps", {0, 100, -10}, {60, 60}, "0+60 50+60", 110},
        {"the largest numbers",
         {0, 100, INT_MAX},
         {INT_MAX, INT_MAX},
         "0+2147483647 4294967294+2147483647",
         6442450941},
    };
    for (const Case& c : cases) {
        std::vector<Span> spans(c.wanted.size());
        const LONGLONG content = DivideLine(c.line, spans, [&](const Span& span, LONG) {
            return c.wanted[static_cast<std::size_t>(&span - spans.data())];
        });
        FillLine(c.line, spans, content);
        EXPECT_EQ(Text(spans), c.spans) << c.name;
        EXPECT_EQ(content, c.content) << c.name;
    }
}

TEST(Plans, OfferEachChildWhatIsLeft)
{
    const std::vector<LONG> wanted{30, 0, 20};
    std::vector<LONG> offered;
    std::vector<Span> spans(wanted.size());
    DivideLine({7, 100, 5}, spans, [&](const Span& span, LONG available) {
        offered.push_back(available);
        return wanted[static_cast<std::size_t>(&span - spans.data())];
    });
    // Then the flexible child takes its share of 40, and only the child behind it is offered something else.
    EXPECT_EQ(offered, (std::vector<LONG>{100, 65, 60, 20}));
}

TEST(Plans, CountColumnsUntilTheRightEdgeIsReached)
{
    struct Case {
        const char* name;
        LONGLONG width;
        LONG widest;
        int gap, tiles, columns;
    };
    const Case cases[] = {
        {"an exact fit", 90, 30, 0, 9, 3},
        {"the column that crosses the edge counts", 100, 30, 0, 9, 4},
        {"gaps count", 100, 30, 10, 9, 3},
        {"fewer tiles than room", 1000, 30, 0, 2, 2},
        {"one tile wider than the space", 20, 30, 0, 9, 1},
        {"tiles without a width", 100, 0, 0, 5, 5},
        {"no tiles", 100, 0, 0, 0, 0},
        {"gaps that pull back", 100, 10, -10, 5, 5},
        {"the largest numbers", INT_MAX, INT_MAX, INT_MAX, 5, 1},
    };
    for (const Case& c : cases)
        EXPECT_EQ(CountColumns(c.width, c.widest, c.gap, c.tiles), c.columns) << c.name;
}

TEST(Plans, PlaceTilesRowByRow)
{
    struct Case {
        const char* name;
        TileGrid grid;
        std::vector<LONG> heights;
        const char* places;
        LONGLONG content;
    };
    const RECT kView{10, 20, 110, 220};
    const Case cases[] = {
        {"rows as high as their highest tile",
         {{0, 0, 100, 300}, 0, 2, 0, 4, 0},
         {10, 20, 15, 5, 8},
         "0,0,50,20 50,0,100,20 0,24,50,39 50,24,100,39 0,43,50,51",
         51},
        {"columns and their gaps",
         {kView, 0, 3, 10, 0, 0},
         {5, 5, 5},
         "10,20,36,25 46,20,72,25 82,20,108,25",
         5},
        {"one column takes the whole width and no gap",
         {kView, 0, 1, 10, 3, 0},
         {5, 6},
         "10,20,110,25 10,28,110,34",
         14},
        {"gaps wider than the space", {kView, 0, 3, 80, 0, 0}, {5, 5}, "10,20,10,25 90,20,90,25", 5},
        {"a given row height",
         {kView, 0, 2, 0, 1, 40},
         {5, 60, 7},
         "10,20,60,60 60,20,110,60 10,61,60,101",
         81},
        {"scrolled", {kView, 30, 1, 0, 0, 0}, {50}, "10,-10,110,40", 50},
        {"tiles that do not say",
         {kView, 0, 2, 0, 4, 0},
         {0, 0, 9},
         "10,20,60,20 60,20,110,20 10,24,60,33",
         13},
        {"more columns than anyone has",
         {kView, 0, INT_MAX, INT_MAX, 0, 0},
         {5, 5},
         "10,20,10,25 2147483647,20,2147483647,25",
         5},
    };
    for (const Case& c : cases) {
        const TilePlaces places = PlaceTiles(c.grid, c.heights);
        std::string text;
        for (const RECT& rect : places.rects)
            AddWord(text, qvui::test::Text(rect));
        EXPECT_EQ(text, c.places) << c.name;
        EXPECT_EQ(places.content, c.content) << c.name;
    }
}

TEST(Plans, CutDockedPartsOffTheFreeSpace)
{
    struct Case {
        const char* name;
        DWORD sides;
        SIZE wanted;
        const char* part;
        const char* free;
    };
    constexpr DWORD kLeft = DUIEXSTYLE_DOCK_LEFT, kRight = DUIEXSTYLE_DOCK_RIGHT, kTop = DUIEXSTYLE_DOCK_TOP,
                    kBottom = DUIEXSTYLE_DOCK_BOTTOM;
    const Case cases[] = {
        {"left", kLeft, {30, 7}, "10,20,40,220", "40,20,110,220"},
        {"right", kRight, {30, 7}, "80,20,110,220", "10,20,80,220"},
        {"top", kTop, {7, 30}, "10,20,110,50", "10,50,110,220"},
        {"bottom", kBottom, {7, 30}, "10,190,110,220", "10,20,110,190"},
        {"left asks too much", kLeft, {150, 7}, "10,20,110,220", "110,20,110,220"},
        {"right asks too much", kRight, {INT_MAX, 7}, "10,20,110,220", "10,20,10,220"},
        {"top asks too much", kTop, {7, INT_MAX}, "10,20,110,220", "10,220,110,220"},
        {"bottom asks too much", kBottom, {7, 300}, "10,20,110,220", "10,20,110,20"},
        {"no side", DUIEXSTYLE_SIZE_X, {30, 30}, "10,20,10,20", "10,20,110,220"},
        {"left before right before top before bottom",
         kBottom | kTop | kRight,
         {30, 30},
         "80,20,110,220",
         "10,20,80,220"},
    };
    for (const Case& c : cases) {
        RECT free{10, 20, 110, 220};
        EXPECT_EQ(qvui::test::Text(CutDocked(free, c.sides, c.wanted)), c.part) << c.name;
        EXPECT_EQ(qvui::test::Text(free), c.free) << c.name;
    }
}

TEST(Plans, ToolBarsKeepRoomForTheOverflowButton)
{
    constexpr bool kTool = false, kLine = true;
    struct Case {
        const char* name;
        Line line;
        std::vector<ToolItem> items;
        const char* places;
        const char* button;
    };
    const std::vector<ToolItem> tools{{30, kTool}, {30, kTool}, {9, kLine}, {30, kTool}};
    const Case cases[] = {
        {"no items", {0, 50, 4}, {}, "", ""},
        {"an exact fit", {0, 111, 4}, tools, "0+30 34+30 68+9 81+30", ""},
        {"a pixel too little", {0, 110, 4}, tools, "0+30 34+30 110+0 110+0", "90+20"},
        {"one of two", {5, 60, 4}, tools, "5+30 65+0 65+0 65+0", "45+20"},
        {"room for nothing but the button", {0, 25, 4}, tools, "25+0 25+0 25+0 25+0", "5+20"},
        {"less than that", {0, 12, 4}, tools, "12+0 12+0 12+0 12+0", "0+12"},
        {"no room at all", {0, 0, 4}, tools, "0+0 0+0 0+0 0+0", "0+0"},
        {"later items that would fit stay away",
         {0, 60, 0},
         {{50, kTool}, {1, kTool}, {30, kTool}},
         "60+0 60+0 60+0",
         "40+20"},
        {"flexible items share what is left",
         {0, 100, 0},
         {{30, kTool}, {0, kTool}, {30, kTool}},
         "0+30 30+40 70+30",
         ""},
        {"and get nothing when it is too little",
         {0, 60, 0},
         {{30, kTool}, {0, kTool}, {40, kTool}},
         "0+30 30+0 60+0",
         "40+20"},
    };
    for (const Case& c : cases) {
        const ToolBarPlan plan = PlanToolBar(c.line, c.items, 20);
        EXPECT_EQ(Text(plan.items), c.places) << c.name;
        EXPECT_EQ(plan.overflows ? Text({plan.overflowButton}) : "", c.button) << c.name;
    }
}

TEST(Plans, MenusOpenWhereThereIsRoom)
{
    struct Case {
        const char* name;
        RECT anchor;
        SIZE menu;
        bool opensSideways;
        POINT corner;
    };
    const Case cases[] = {
        {"below", {100, 100, 120, 120}, {80, 200}, false, {100, 120}},
        {"above, where only there is room", {100, 500, 120, 520}, {80, 200}, false, {100, 300}},
        {"shifted in from the right edge", {780, 100, 800, 120}, {80, 200}, false, {720, 120}},
        {"neither below nor above", {100, 300, 120, 320}, {80, 500}, false, {100, 100}},
        {"to the right", {100, 100, 120, 120}, {80, 200}, true, {120, 100}},
        {"to the left", {780, 100, 800, 120}, {80, 200}, true, {700, 100}},
        {"larger than the screen", {100, 100, 120, 120}, {900, 700}, false, {0, 0}},
    };
    for (const Case& c : cases) {
        const POINT corner = DUI::PlaceMenu({0, 0, 800, 600}, c.anchor, c.menu, c.opensSideways);
        EXPECT_EQ(std::to_string(corner.x) + "," + std::to_string(corner.y),
                  std::to_string(c.corner.x) + "," + std::to_string(c.corner.y))
            << c.name;
    }
}

}  // namespace
}  // namespace qvui::test
