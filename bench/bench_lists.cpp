#include <qvui/controls/rows/list_box.h>
#include <qvui/controls/rows/tree_view.h>

#include "host_window.h"
#include "lists_qt.h"
#include "ratio_reporter.h"
#include "support/controls/test_skin.h"

// Lists and trees of very many rows, filled one by one while they are shown, and scrolled: against Qt's item
// widgets, and against themselves with few rows.

namespace qvui::bench {
namespace {

using namespace DUI;

constexpr int kMany = 100000;
constexpr int kFew = 1000;
constexpr SIZE kSize{300, 400};

CString ItemText(int i)
{
    CString text;
    text.Format("Item %d", i);
    return text;
}

std::string Template(const char* tag)
{
    return std::string("<vert_layout><") + tag + R"( name="rows" text_style="normal"/></vert_layout>)";
}

void FillList(CDUIListBox& list, int count, const char* style)
{
    for (int i = 0; i < count; ++i)
        list.AddString(ItemText(i), style);
}

void Fill(CDUIListBox& list, int count)
{
    FillList(list, count, "item");
}

void Fill(CDUITreeViewImpl& tree, int count)
{
    CDUITreeNode* const top = tree.AddNode(nullptr, "top");
    top->SetExpand(TRUE);
    for (int i = 0; i < count; ++i)
        tree.AddNode(top, ItemText(i));
}

/// Times `fill` and the paint that shows it; making and destroying the window are left out.
template <class Control, class Fill>
void TimeFilling(benchmark::State& state, const char* tag, Fill fill)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto window = std::make_unique<HostWindow>(kSize, Template(tag));
        auto& rows = window->Find<Control>("rows");
        state.ResumeTiming();
        fill(rows);
        window->PaintNow();
        state.PauseTiming();
        window.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * kMany);
}

void TimeFillingQt(benchmark::State& state, QtList::Kind kind)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto widget = std::make_unique<QtList>(kind);
        state.ResumeTiming();
        widget->Append(kMany);
        widget->PaintNow();
        state.PauseTiming();
        widget.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * kMany);
}

void AppendItems(benchmark::State& state)
{
    TimeFilling<CDUIListBox>(state, "listbox", [](CDUIListBox& list) { FillList(list, kMany, ""); });
}

void AppendStyledItems(benchmark::State& state)
{
    TimeFilling<CDUIListBox>(state, "listbox", [](CDUIListBox& list) { FillList(list, kMany, "item"); });
}

void QListWidgetAppend(benchmark::State& state)
{
    TimeFillingQt(state, QtList::Kind::List);
}

void AppendNodes(benchmark::State& state)
{
    TimeFilling<CDUITreeViewImpl>(state, "treeview", [](CDUITreeViewImpl& tree) { Fill(tree, kMany); });
}

void QTreeWidgetAppend(benchmark::State& state)
{
    TimeFillingQt(state, QtList::Kind::Tree);
}

/// One line down or up and the paint after it, around the middle of the list.
void TimeSteps(benchmark::State& state, HostWindow& window, CDUIControlBase& rows)
{
    tagDUIEvent event;
    event.Type = DUIEVENT_VSCROLL;
    BOOL bHandled = FALSE;
    for (int i = 0; i < kFew / 2; ++i) {
        event.wParam = SB_LINEDOWN;
        rows.OnDUIEvent(event, bHandled);
    }
    window.PaintNow();
    for (auto _ : state) {
        event.wParam = event.wParam == SB_LINEDOWN ? SB_LINEUP : SB_LINEDOWN;
        rows.OnDUIEvent(event, bHandled);
        window.PaintNow();
    }
}

constexpr const char* TagOf(const CDUIListBox*)
{
    return "listbox";
}

constexpr const char* TagOf(const CDUITreeViewImpl*)
{
    return "treeview";
}

/// A window with filled rows.
template <class Rows, int kCount>
struct FilledRows {
    FilledRows() { Fill(rows, kCount); }

    HostWindow window{kSize, Template(TagOf(static_cast<Rows*>(nullptr)))};
    Rows& rows = window.Find<Rows>("rows");
};

template <class Rows, int kCount>
void Scroll(benchmark::State& state)
{
    FilledRows<Rows, kCount> filled;
    TimeSteps(state, filled.window, filled.rows);
}

template <int kCount>
void ExpandAndCollapse(benchmark::State& state)
{
    FilledRows<CDUITreeViewImpl, kCount> filled;
    CDUITreeNode* const top = filled.rows.GetNodeAtRow(0);
    for (auto _ : state) {
        filled.rows.ExpandNode(top, !top->GetExpand());
        filled.window.PaintNow();
    }
}

void QListWidgetScroll(benchmark::State& state)
{
    QtList widget(QtList::Kind::List);
    widget.Append(kMany);
    widget.PaintNow();
    int direction = 1;
    for (auto _ : state) {
        widget.Scroll(direction);
        widget.PaintNow();
        direction = -direction;
    }
}

BENCHMARK(AppendItems)->Unit(benchmark::kMillisecond);
BENCHMARK(AppendStyledItems)->Unit(benchmark::kMillisecond);
BENCHMARK(QListWidgetAppend)->Unit(benchmark::kMillisecond);
BENCHMARK(AppendNodes)->Unit(benchmark::kMillisecond);
BENCHMARK(QTreeWidgetAppend)->Unit(benchmark::kMillisecond);
BENCHMARK((Scroll<CDUIListBox, kFew>))->Name("ScrollFewItems")->Unit(benchmark::kMicrosecond);
BENCHMARK((Scroll<CDUIListBox, kMany>))->Name("ScrollManyItems")->Unit(benchmark::kMicrosecond);
BENCHMARK(QListWidgetScroll)->Unit(benchmark::kMicrosecond);
BENCHMARK((Scroll<CDUITreeViewImpl, kFew>))->Name("ScrollFewNodes")->Unit(benchmark::kMicrosecond);
BENCHMARK((Scroll<CDUITreeViewImpl, kMany>))->Name("ScrollManyNodes")->Unit(benchmark::kMicrosecond);
BENCHMARK(ExpandAndCollapse<kFew>)->Name("ExpandFewNodes")->Unit(benchmark::kMicrosecond);
BENCHMARK(ExpandAndCollapse<kMany>)->Name("ExpandManyNodes")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace qvui::bench

int main(int argc, char** argv)
{
    qvui::bench::DrawIntoMemory(argc, argv);
    qvui::test::SkinAdditions additions;
    additions.controlStyles =
        R"(<control_style name="item" normal_height="25" hover_frame="blue" select_frame="red" padding="4"/>)";
    const qvui::test::TestSkin skin(additions);
    qvui::bench::RunAndCompare({
        {"AppendItems", "QListWidgetAppend", 1.0},
        {"AppendStyledItems", "QListWidgetAppend", 1.0},
        {"AppendNodes", "QTreeWidgetAppend", 0.8},
        {"ScrollManyItems", "ScrollFewItems", 1.2},
        {"ScrollManyItems", "QListWidgetScroll", 1.0},
        {"ScrollManyNodes", "ScrollFewNodes", 1.2},
        {"ExpandManyNodes", "ExpandFewNodes", 1.2},
    });
    return 0;
}
