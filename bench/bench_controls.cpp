#include <fstream>
#include <memory>

#include <malloc.h>

#include <qvui/controls/button.h>

#include "controls_qt.h"
#include "host_window.h"
#include "ratio_reporter.h"
#include "support/controls/test_skin.h"

// Windows of very many controls, built from a template, laid out again and painted: against Qt's widgets from
// a form, in box layouts, and with a border-image style sheet. Behind the ratios stand the memory of a
// control and the pixels that a hover change repaints.

namespace qvui::bench {
namespace {

using namespace DUI;

// Layouts of ten, each holding ten of the next level: ten thousand buttons in 1,111 layouts.
constexpr int kFanOut = 10;
constexpr int kLevels = 4;
constexpr int kButtons = 10000;
constexpr int kLayouts = 1111;
// Both fit what Qt's buttons need at least.
constexpr SIZE kSize{9000, 4000};
constexpr SIZE kOtherSize{9200, 4100};

constexpr SIZE kScreen{1920, 1080};
constexpr int kColumns = 40;
constexpr int kRows = 25;
constexpr int kCorner = 8;

/// Appends the layouts and buttons below one level; `leaf` writes one button.
template <class Open, class Leaf, class Close>
void AppendLevel(int level, int& next, const Open& open, const Leaf& leaf, const Close& close)
{
    open(level);
    for (int i = 0; i < kFanOut; ++i) {
        if (level + 1 < kLevels)
            AppendLevel(level + 1, next, open, leaf, close);
        else
            leaf(next++);
    }
    close(level);
}

enum class Strings { None, TextAndName };

std::string NestedTemplate(Strings strings)
{
    std::string text = "<window>";
    const auto tag = [](int level) { return level % 2 == 0 ? "vert_layout" : "horz_layout"; };
    int next = 0;
    AppendLevel(
        0, next, [&](int level) { text += std::string("<") + tag(level) + ">"; },
        [&](int i) {
            const std::string number = std::to_string(i);
            text += strings == Strings::None
                        ? "<button/>"
                        : "<button name=\"button" + number + "\" text=\"#Item " + number + "\"/>";
        },
        [&](int level) { text += std::string("</") + tag(level) + ">"; });
    return text + "</window>";
}

std::string NestedForm()
{
    std::string text = "<ui version=\"4.0\"><class>Form</class><widget class=\"QWidget\" name=\"Form\">";
    int layouts = 0;
    int next = 0;
    AppendLevel(
        0, next,
        [&](int level) {
            text += std::string(level ? "<item>" : "") + "<layout class=\"" +
                    (level % 2 == 0 ? "QVBoxLayout" : "QHBoxLayout") + "\" name=\"layout" +
                    std::to_string(layouts++) + "\">";
        },
        [&](int i) {
            const std::string number = std::to_string(i);
            text += "<item><widget class=\"QPushButton\" name=\"button" + number +
                    "\"><property name=\"text\"><string>Item " + number +
                    "</string></property></widget></item>";
        },
        [&](int level) { text += level ? "</layout></item>" : "</layout>"; });
    return text + "</widget></ui>";
}

/// A tree in a window that is not shown.
class HiddenWindow : public CDUIWindowMgr {
public:
    explicit HiddenWindow(const std::string& content)
    {
        WNDCLASSEXA windowClass{};
        windowClass.cbSize = sizeof(windowClass);
        windowClass.lpfnWndProc = DefWindowProcA;
        windowClass.hInstance = GetModuleHandleA(nullptr);
        windowClass.lpszClassName = "qvui_bench_hidden";
        RegisterClassExA(&windowClass);
        m_window = CreateWindowExA(0, windowClass.lpszClassName, "", WS_POPUP, 0, 0, kSize.cx, kSize.cy,
                                   nullptr, nullptr, windowClass.hInstance, nullptr);
        Build(content);
    }
    ~HiddenWindow() override
    {
        FinishWindowMgr();
        DestroyWindow(m_window);
    }
    void Build(const std::string& content)
    {
        RECT rect{0, 0, kSize.cx, kSize.cy};
        CreateFromXML(content.c_str(), m_window, rect);
        InitWindowMgr();
    }

private:
    HWND m_window = nullptr;
};

/// Buttons below a control that have a place in its rectangle.
int PlacedButtons(IDUIControl& control, const RECT& bounds)
{
    int count = 0;
    for (int i = 0; i < control.GetControlCount(); ++i)
        count += PlacedButtons(*control.GetControlByIndex(i), bounds);
    const RECT rect = control.GetControlRect();
    RECT common;
    return count + (control.GetInterface("button") && IntersectRect(&common, &rect, &bounds) &&
                    EqualRect(&common, &rect));
}

/// The benchmark is worth nothing when a tree is not whole.
void CheckPlaced(benchmark::State& state, int placed)
{
    if (placed != kButtons)
        state.SkipWithError(("only " + std::to_string(placed) + " buttons have a place").c_str());
}

void BuildControls(benchmark::State& state)
{
    const std::string content = NestedTemplate(Strings::TextAndName);
    std::unique_ptr<HiddenWindow> window;
    int placed = 0;
    for (auto _ : state) {
        window = std::make_unique<HiddenWindow>(content);
        state.PauseTiming();
        placed = PlacedButtons(*window->GetRootControl(), {0, 0, kSize.cx, kSize.cy});
        window.reset();
        state.ResumeTiming();
    }
    CheckPlaced(state, placed);
}

void QUiLoaderBuild(benchmark::State& state)
{
    const std::string form = NestedForm();
    std::unique_ptr<QtForm> widget;
    int placed = 0;
    for (auto _ : state) {
        widget = std::make_unique<QtForm>(form, kSize.cx, kSize.cy);
        state.PauseTiming();
        placed = widget->PlacedButtons();
        widget.reset();
        state.ResumeTiming();
    }
    CheckPlaced(state, placed);
}

// Both sides get one new size per turn, paint nothing, and place every control anew.
void RelayoutControls(benchmark::State& state)
{
    const std::string content = NestedTemplate(Strings::TextAndName);
    HiddenWindow window(content);
    // The margin changes the root's size and leaves the window's, whose pixels are another matter.
    constexpr RECT kNarrower{0, 0, 200, 100};
    bool isNarrower = false;
    for (auto _ : state) {
        isNarrower = !isNarrower;
        window.SetClientRectMargin(isNarrower ? kNarrower : RECT{0, 0, 0, 0});
        window.LayoutRootControl();
    }
    CheckPlaced(state, PlacedButtons(*window.GetRootControl(), {0, 0, kSize.cx, kSize.cy}));
}

void QBoxLayoutResize(benchmark::State& state)
{
    QtForm widget(NestedForm(), kSize.cx, kSize.cy);
    widget.ShowUnpainted();
    bool isOther = false;
    for (auto _ : state) {
        isOther = !isOther;
        const SIZE size = isOther ? kOtherSize : kSize;
        widget.Resize(size.cx, size.cy);
    }
    CheckPlaced(state, widget.PlacedButtons());
}

std::string GridTemplate()
{
    std::string text = "<dialog_layout>";
    for (int i = 0; i < kColumns * kRows; ++i) {
        const int width = kScreen.cx / kColumns;
        const int height = kScreen.cy / kRows;
        const int left = i % kColumns * width;
        const int top = i / kColumns * height;
        const std::string number = std::to_string(i);
        text += "<button name=\"button" + number + "\" text=\"#" + number +
                "\" back_image=\"nine\" text_style=\"centre\" position=\"" + std::to_string(left) + "," +
                std::to_string(top) + "," + std::to_string(left + width) + "," +
                std::to_string(top + height) + "\"/>";
    }
    return text + "</dialog_layout>";
}

void PaintButtons(benchmark::State& state)
{
    HostWindow window(kScreen, GridTemplate());
    CDibSection picture;
    picture.Create(kScreen.cx, kScreen.cy, 32);
    const HDC hdc = CreateCompatibleDC(nullptr);
    const HGDIOBJ previous = SelectObject(hdc, picture.GetBitmap());
    for (auto _ : state)
        window.DoPaint(hdc);
    SelectObject(hdc, previous);
    DeleteDC(hdc);
    if (const char* const folder = std::getenv("QVUI_BENCH_PICTURES"))
        picture.SaveAsBmpFile((std::string(folder) + "/ours.bmp").c_str());
}

void StyleSheetPaint(benchmark::State& state)
{
    QtButtonGrid grid(kScreen.cx, kScreen.cy, kColumns, kRows, test::TestSkin::Path("one.png"), kCorner);
    for (auto _ : state)
        grid.Paint();
    if (const char* const folder = std::getenv("QVUI_BENCH_PICTURES"))
        grid.Save(std::string(folder) + "/qt.png");
}

void PrintBytesPerControl()
{
    const std::string content = NestedTemplate(Strings::None);
    HiddenWindow window("<window><vert_layout/></window>");
    const std::size_t before = mallinfo2().uordblks;
    CRefPtr<IDUIControl> root = CDUIControlBuilder(nullptr).CreateFromXML(content.c_str());
    const std::size_t used = mallinfo2().uordblks - before;
    const double bytes = static_cast<double>(used) / (kButtons + kLayouts);
    std::printf("A plain control takes %.0f bytes (at most 700%s); a button object is %u bytes\n", bytes,
                bytes <= 700 ? "" : ": MISSED", static_cast<unsigned>(sizeof(CDUIButton)));
}

/// Moves the pointer from one button to its neighbour and compares what is invalid with the two.
void PrintHoverPixels()
{
    HostWindow window(kScreen, GridTemplate());
    const auto invalidAfterMove = [&window](const RECT& rect) {
        const LPARAM point = MAKELPARAM(rect.left + 5, rect.top + 5);
        SendMessageA(window.Handle(), WM_MOUSEMOVE, 0, point);
        RECT invalid{};
        GetUpdateRect(window.Handle(), &invalid, FALSE);
        window.PaintNow();
        return (invalid.right - invalid.left) * (invalid.bottom - invalid.top);
    };
    // The pointer may be over the window from the start.
    SendMessageA(window.Handle(), WM_MOUSELEAVE, 0, 0);
    window.PaintNow();
    const RECT first = window.Find<CDUIButton>("button0").GetControlRect();
    const LONG area = (first.right - first.left) * (first.bottom - first.top);
    const LONG entered = invalidAfterMove(first);
    const LONG moved = invalidAfterMove(window.Find<CDUIButton>("button1").GetControlRect());
    std::printf("Entering a button of %d pixels repaints %d; going to its neighbour repaints %d%s\n",
                static_cast<int>(area), static_cast<int>(entered), static_cast<int>(moved),
                entered == area && moved == 2 * area ? "" : ": MISSED");
}

BENCHMARK(BuildControls)->Unit(benchmark::kMillisecond);
BENCHMARK(QUiLoaderBuild)->Unit(benchmark::kMillisecond);
BENCHMARK(RelayoutControls)->Unit(benchmark::kMillisecond);
BENCHMARK(QBoxLayoutResize)->Unit(benchmark::kMillisecond);
BENCHMARK(PaintButtons)->Unit(benchmark::kMillisecond);
BENCHMARK(StyleSheetPaint)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace qvui::bench

int main(int argc, char** argv)
{
    qvui::bench::DrawIntoMemory(argc, argv);
    qvui::test::SkinAdditions additions;
    additions.files["nine.png"] = qvui::bench::ButtonStrip(24, 4);
    additions.files["one.png"] = qvui::bench::ButtonStrip(24, 1);
    additions.images = "<image name=\"nine\" config_type=\"file\" file_name=\"" +
                       qvui::test::TestSkin::File("nine.png") +
                       "\" count=\"4\" drawstyle=\"squard\" corner=\"8,8\"/>";
    const qvui::test::TestSkin skin(additions);
    qvui::bench::RunAndCompare({
        {"BuildControls", "QUiLoaderBuild", 0.1},
        {"RelayoutControls", "QBoxLayoutResize", 0.1},
        {"PaintButtons", "StyleSheetPaint", 1.0},
    });
    qvui::bench::PrintBytesPerControl();
    qvui::bench::PrintHoverPixels();
    return 0;
}
