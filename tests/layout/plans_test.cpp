#include <cstdlib>
#include <iterator>
#include <sstream>

#include <gtest/gtest.h>

#include <qvui/framework/control.h>

#include "bars/tool_bar_plan.h"
#include "layout/placement/dock_rect.h"
#include "layout/placement/linear_spans.h"
#include "layout/placement/tile_grid.h"

#include "support/geometry_text.h"
#include "support/transcript.h"
#include "tooltip/popup_placement.h"

namespace qvui::test {
namespace {

using namespace DUI;
using namespace DUI::layout;

std::string Text(const Span& span)
{
    return std::to_string(span.start) + "+" + std::to_string(span.length);
}

// The numbers of a line of plans.txt in their order; a quote mark ends them.
std::vector<LONG> NumbersOf(const std::string& line)
{
    std::string numbers = line.substr(0, line.find('\''));
    for (char& c : numbers)
        c = (c >= '0' && c <= '9') || c == '-' ? c : ' ';
    std::istringstream words(numbers);
    return {std::istream_iterator<LONG>(words), {}};
}

std::string PlanLine(const Line& line, const std::vector<LONG>& wanted)
{
    std::vector<Span> spans(wanted.size());
    std::string offered;
    const LONGLONG content = DivideLine(line, spans, [&](const Span& span, LONG available) {
        offered += " " + std::to_string(available);
        return wanted[static_cast<std::size_t>(&span - spans.data())];
    });
    FillLine(line, spans, content);
    std::string text;
    for (const Span& span : spans)
        text += Text(span) + " ";
    return text + "content " + std::to_string(content) + " offered" + offered;
}

std::string PlanTiles(const TileGrid& grid, const std::vector<LONG>& heights)
{
    std::string text;
    const TilePlaces places = PlaceTiles(grid, heights);
    for (const RECT& rect : places.rects)
        text += test::Text(rect) + "  ";
    return text + "content " + std::to_string(places.content);
}

std::string PlanDocking(const std::string& sides, SIZE wanted)
{
    DWORD style = DUIEXSTYLE_SIZE_X;
    for (const auto& [name, side] : {std::pair("left", DWORD{DUIEXSTYLE_DOCK_LEFT}),
                                     {"right", DUIEXSTYLE_DOCK_RIGHT},
                                     {"top", DUIEXSTYLE_DOCK_TOP},
                                     {"bottom", DUIEXSTYLE_DOCK_BOTTOM}})
        style |= sides.find(name) != std::string::npos ? side : DWORD{0};
    RECT free{10, 20, 110, 220};
    const std::string part = test::Text(CutDocked(free, style, wanted));
    return part + " leaves " + test::Text(free);
}

std::string PlanTools(const Line& line, const std::vector<LONG>& lengths)
{
    std::vector<ToolItem> items;
    for (const LONG length : lengths)
        items.push_back({std::abs(length), length < 0});
    const ToolBarPlan plan = PlanToolBar(line, items, 20);
    std::string text;
    for (const Span& span : plan.items)
        text += Text(span) + " ";
    return text + (plan.overflows ? "button " + Text(plan.overflowButton) : "all shown");
}

std::string Plan(const std::string& line)
{
    std::istringstream words(line);
    const std::string command = ReadWord(words);
    const std::vector<LONG> n = NumbersOf(line);
    const auto from = [&n](std::ptrdiff_t first) { return std::vector<LONG>(n.begin() + first, n.end()); };
    if (command == "line")
        return PlanLine({n[0], n[1], n[2]}, from(3));
    if (command == "columns")
        return std::to_string(CountColumns(n[0], n[1], n[2], n[3]));
    if (command == "tiles")
        return PlanTiles({{n[0], n[1], n[2], n[3]}, n[4], n[5], n[6], n[7], n[8]}, from(9));
    if (command == "dock")
        return PlanDocking(ReadWord(words), {n[0], n[1]});
    if (command == "toolbar")
        return PlanTools({n[0], n[1], n[2]}, from(3));
    if (command == "menu") {
        const bool opensSideways = line.find(" side ") != std::string::npos;
        return test::Text(PlaceMenu({0, 0, 800, 600}, {n[0], n[1], n[2], n[3]}, {n[4], n[5]}, opensSideways));
    }
    return test::Text(PlaceToolTip({{n[0], n[1], n[2], n[3]}, {n[4], n[5]}, {n[6], n[7]}, {5, 10}}));
}

TEST(Plans, PlaceThingsAsTheFileSays)
{
    ExpectTranscript("layout/plans.txt", LineByLine([](auto& line) { return "  " + Plan(line) + "\n"; }));
}

}  // namespace
}  // namespace qvui::test
