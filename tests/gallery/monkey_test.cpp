#include <algorithm>
#include <cstdlib>
#include <random>

#include "gallery/gallery_run.h"

// Random use of every page: whatever order the events come in, the gallery neither crashes nor leaves
// anything behind. Number and seed are fixed; QVUI_MONKEY_EVENTS and QVUI_MONKEY_SEED in the environment set
// others.

namespace qvui::test {
namespace {

constexpr int kEvents = 6000;
constexpr int kSeed = 20240229;
constexpr SIZE kSmallest{760, 480};
constexpr SIZE kLargest{1600, 1000};
// A new language means new controls.
constexpr int kEventsPerLanguage = 1000;
constexpr int kPressesPerClose = 8;
constexpr std::size_t kMostRemoved = 4;

int Setting(const char* variable, int otherwise)
{
    const char* const value = std::getenv(variable);
    return value && std::atoi(value) > 0 ? std::atoi(value) : otherwise;
}

class Monkey {
public:
    explicit Monkey(GalleryRun& run)
        : m_run(run),
          m_random(static_cast<unsigned>(Setting("QVUI_MONKEY_SEED", kSeed)))
    {
    }

    /// Shows the page and does things to it.
    void Use(const std::string& page, int events);

private:
    struct Action {
        int weight;
        std::function<void(Monkey&)> act;
    };
    struct Removed {
        DUI::CRefPtr<DUI::IDUIControl> control;
        DUI::CRefPtr<DUI::IDUIControl> parent;
        int index;
    };
    static const Action kActions[];

    void ActOnce();
    /// Opens or restores the window when the last event closed or minimised it.
    void Recover();
    void Renew();

    void Press();
    void Click();
    void DoubleClick();
    void Drag();
    void DragOut();
    void Wheel();
    void Key();
    void Resize();
    void RemoveControl();
    /// Returns the control that was removed last to its place.
    void PutBack();
    void Reorder();
    void MoveToOtherParent();

    /// The control under any point, null when it has no parent.
    DUI::CRefPtr<DUI::IDUIControl> AnyControl();
    int Below(int end) { return static_cast<int>(m_random() % static_cast<unsigned>(end)); }
    LPARAM AnyPoint();
    /// Whether to leave a control alone that makes the whole window anew, as most of the time.
    bool Spares(DUI::IDUIControl* control);
    void Send(UINT message, WPARAM wParam, LPARAM lParam);

    GalleryRun& m_run;
    std::mt19937 m_random;
    std::string m_page;
    std::vector<Removed> m_removed;
    int m_count = 0;
};

const Monkey::Action Monkey::kActions[] = {
    {300, [](Monkey& m) { m.Send(WM_MOUSEMOVE, m.Below(4) == 0 ? MK_LBUTTON : 0, m.AnyPoint()); }},
    {60, &Monkey::Press},
    {60, [](Monkey& m) { m.Send(WM_LBUTTONUP, 0, m.AnyPoint()); }},
    {150, &Monkey::Click},
    {50, &Monkey::DoubleClick},
    {40, &Monkey::Drag},
    {5, [](Monkey& m) { m.Send(WM_MOUSELEAVE, 0, 0); }},
    {60, &Monkey::Wheel},
    {150, &Monkey::Key},
    {60, [](Monkey& m) { SendMessageA(m.m_run.Handle(), WM_TIMER, static_cast<WPARAM>(m.Below(8)), 0); }},
    {40, [](Monkey& m) { UpdateWindow(m.m_run.Handle()); }},
    {20, [](Monkey&) { Pump(); }},
    {4, &Monkey::Resize},
    {2,
     [](Monkey&) {
         DUI::IDUISkinMgr& skins = GalleryRun::Skins();
         skins.SetSkinTyle(skins.GetSkinTyle() == "light" ? "dark" : "light");
     }},
    {4, [](Monkey& m) { m.Send(WM_KILLFOCUS, 0, 0); }},
    {8, &Monkey::RemoveControl},
    {8, &Monkey::PutBack},
    {20, &Monkey::DragOut},
    {8, &Monkey::Reorder},
    {8, &Monkey::MoveToOtherParent}};

void Monkey::Use(const std::string& page, int events)
{
    m_page = page;
    while (!m_removed.empty())
        PutBack();
    m_run.Window().ShowPage(m_page.c_str());
    for (int i = 0; i < events; ++i) {
        if (++m_count % kEventsPerLanguage == 0)
            Renew();
        ActOnce();
        Recover();
        if (testing::Test::HasFatalFailure())
            return;
    }
}

void Monkey::ActOnce()
{
    int total = 0;
    for (const Action& action : kActions)
        total += action.weight;
    int choice = Below(total);
    for (const Action& action : kActions) {
        choice -= action.weight;
        if (choice < 0) {
            action.act(*this);
            return;
        }
    }
}

void Monkey::Recover()
{
    if (!m_run.IsOpen()) {
        m_removed.clear();
        Pump();
        m_run.Open();
        m_run.Window().ShowPage(m_page.c_str());
    } else if (IsIconic(m_run.Handle())) {
        ShowWindow(m_run.Handle(), SW_RESTORE);
    }
}

void Monkey::Renew()
{
    m_removed.clear();
    DUI::IDUISkinMgr& skins = GalleryRun::Skins();
    skins.SetLanguageType(skins.GetLanguageType() == "English" ? "Chinese" : "English");
    EXPECT_TRUE(m_run.Window().ShowPage(m_page.c_str())) << m_page;
}

bool Monkey::Spares(DUI::IDUIControl* control)
{
    return control && (control->GetName() == "close" || control->GetName() == "language") &&
           Below(kPressesPerClose) != 0;
}

LPARAM Monkey::AnyPoint()
{
    RECT client{};
    GetClientRect(m_run.Handle(), &client);
    // Sometimes outside, as with a captured pointer.
    constexpr int kOutside = 10;
    POINT point{};
    DUI::IDUIControl* control = nullptr;
    do {
        point = {Below(client.right + 2 * kOutside) - kOutside,
                 Below(client.bottom + 2 * kOutside) - kOutside};
        control = m_run.Window().FindControl(&point);
    } while (Spares(control));
    return MAKELPARAM(point.x, point.y);
}

void Monkey::Send(UINT message, WPARAM wParam, LPARAM lParam)
{
    const HWND window = m_run.Handle();
    MSG native{window, message, wParam, lParam, 0, {}};
    if (IsWindow(window) && !m_run.Window().PreTranslateMessage(&native) && IsWindow(window))
        SendMessageA(window, message, wParam, lParam);
}

// A press may begin a loop that lasts until the release, so that comes first.
void Monkey::Press()
{
    const LPARAM point = AnyPoint();
    PostMessageA(m_run.Handle(), WM_LBUTTONUP, 0, Below(2) ? point : AnyPoint());
    Send(WM_LBUTTONDOWN, MK_LBUTTON, point);
}

void Monkey::Click()
{
    const LPARAM point = AnyPoint();
    Send(WM_MOUSEMOVE, 0, point);
    PostMessageA(m_run.Handle(), WM_LBUTTONUP, 0, point);
    Send(WM_LBUTTONDOWN, MK_LBUTTON, point);
    Send(WM_LBUTTONUP, 0, point);
}

void Monkey::DoubleClick()
{
    const LPARAM point = AnyPoint();
    PostMessageA(m_run.Handle(), WM_LBUTTONUP, 0, point);
    Send(WM_LBUTTONDBLCLK, MK_LBUTTON, point);
}

void Monkey::Drag()
{
    Press();
    for (int moves = Below(8); moves > 0; --moves)
        Send(WM_MOUSEMOVE, MK_LBUTTON, AnyPoint());
    Send(WM_LBUTTONUP, 0, AnyPoint());
}

// Out of the window with the button held, and released out there; sometimes something else takes the mouse.
void Monkey::DragOut()
{
    constexpr POINT kOutside[] = {{-30, 100}, {kLargest.cx + 30, 100}, {100, -30}, {100, kLargest.cy + 30}};
    const POINT& outside = kOutside[Below(static_cast<int>(std::size(kOutside)))];
    const LPARAM end = MAKELPARAM(outside.x, outside.y);
    const LPARAM start = AnyPoint();
    Send(WM_MOUSEMOVE, 0, start);
    PostMessageA(m_run.Handle(), WM_LBUTTONUP, 0, end);
    Send(WM_LBUTTONDOWN, MK_LBUTTON, start);
    Send(WM_MOUSEMOVE, MK_LBUTTON, AnyPoint());
    Send(WM_MOUSELEAVE, 0, 0);
    if (Below(4) == 0)
        ReleaseCapture();
    Send(WM_MOUSEMOVE, MK_LBUTTON, end);
    Send(WM_LBUTTONUP, 0, end);
    EXPECT_TRUE(!m_run.IsOpen() || GetCapture() != m_run.Handle()) << "the mouse is still held";
}

void Monkey::Wheel()
{
    POINT point{Below(kLargest.cx), Below(kLargest.cy)};
    ClientToScreen(m_run.Handle(), &point);
    const int turns = Below(9) - 4;
    Send(WM_MOUSEWHEEL, MAKEWPARAM(0, turns * WHEEL_DELTA), MAKELPARAM(point.x, point.y));
}

void Monkey::Key()
{
    constexpr WPARAM kKeys[] = {VK_TAB,   VK_TAB,    VK_TAB,    VK_UP,   VK_DOWN, VK_LEFT,
                                VK_RIGHT, VK_SPACE,  VK_RETURN, VK_HOME, VK_END,  VK_PRIOR,
                                VK_NEXT,  VK_ESCAPE, 'A',       'M',     'S',     'Z'};
    const WPARAM key = kKeys[Below(static_cast<int>(std::size(kKeys)))];
    if ((key == VK_SPACE || key == VK_RETURN) && Spares(m_run.Window().GetFocusControl()))
        return;
    Send(WM_KEYDOWN, key, 1);
    if (key == VK_SPACE || key >= 'A')
        Send(WM_CHAR, key, 1);
    Send(WM_KEYUP, key, 1);
}

void Monkey::Resize()
{
    if (IsZoomed(m_run.Handle()))
        ShowWindow(m_run.Handle(), SW_RESTORE);
    const int width = kSmallest.cx + Below(kLargest.cx - kSmallest.cx + 1);
    const int height = kSmallest.cy + Below(kLargest.cy - kSmallest.cy + 1);
    SetWindowPos(m_run.Handle(), nullptr, 0, 0, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

DUI::CRefPtr<DUI::IDUIControl> Monkey::AnyControl()
{
    const LPARAM at = AnyPoint();
    POINT point{static_cast<short>(LOWORD(at)), static_cast<short>(HIWORD(at))};
    DUI::IDUIControl* const control = m_run.Window().FindControl(&point);
    return control && control->GetParent() ? control : nullptr;
}

void Monkey::RemoveControl()
{
    const DUI::CRefPtr<DUI::IDUIControl> removed = AnyControl();
    if (removed.IsNull() || m_removed.size() == kMostRemoved)
        return;
    DUI::IDUIControl* const parent = removed->GetParent();
    m_removed.push_back({removed, parent, parent->GetControlIndex(removed)});
    parent->RemoveControl(removed);
}

void Monkey::Reorder()
{
    const DUI::CRefPtr<DUI::IDUIControl> control = AnyControl();
    if (control.IsNull())
        return;
    const DUI::CRefPtr<DUI::IDUIControl> parent = control->GetParent();
    // One index too many now and then, which takes the control out.
    if (!parent->SetControlIndex(control, Below(parent->GetControlCount() + 1)))
        parent->AddControl(control);
}

void Monkey::MoveToOtherParent()
{
    const DUI::CRefPtr<DUI::IDUIControl> control = AnyControl();
    const DUI::CRefPtr<DUI::IDUIControl> target = AnyControl();
    if (control.IsNull() || target.IsNull())
        return;
    const DUI::CRefPtr<DUI::IDUIControl> from = control->GetParent();
    const DUI::CRefPtr<DUI::IDUIControl> to = target->GetParent();
    // A list, for one, takes only its own kind; and nothing moves into itself.
    if (!to->AddControlAt(to->GetControlIndex(target), control) && !control->GetParent())
        from->AddControl(control);
}

void Monkey::PutBack()
{
    if (m_removed.empty())
        return;
    const Removed last = m_removed.back();
    m_removed.pop_back();
    last.parent->AddControlAt(last.index, last.control);
}

class MonkeyTest : public GalleryTest {};

TEST_F(MonkeyTest, AnyOrderOfEventsOnEveryPageLeavesNothingBehind)
{
    traces.Expect("CDUIWindowMgr::OnTimer");  // of timers that are not there
    GalleryRun run;
    Monkey monkey(run);
    const int count = static_cast<int>(run.Pages().size());
    const int events = Setting("QVUI_MONKEY_EVENTS", kEvents);
    for (const std::string& page : run.Pages()) {
        SCOPED_TRACE(page);
        monkey.Use(page, (events + count - 1) / count);
        ASSERT_FALSE(HasFatalFailure());
    }
}

}  // namespace
}  // namespace qvui::test
