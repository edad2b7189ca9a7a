// Update regions: what is to be painted, when it is asked for, and what a paint may touch.

#include "platform/user/window_test.h"

using namespace qvui::test;

namespace {

constexpr std::uint32_t kRed = 0xFF0000;
constexpr std::uint32_t kBlue = 0x0000FF;

std::string Pending(HWND window)
{
    RECT rect{};
    GetUpdateRect(window, &rect, FALSE);
    return Text(rect);
}

constexpr const char* kNone = "0,0,0,0";

struct Paint {
    std::string area;  // rcPaint
    std::string clip;
    int clipKind = 0;
    bool erase = false;
};

class Painting : public WindowTest {
protected:
    ~Painting() override
    {
        DeleteObject(red);
        DeleteObject(blue);
    }

    /// With a handler that paints by BeginPaint and EndPaint, and notes what that was told.
    PlatformWindowOptions Painted(PlatformWindowOptions options) { return options.Answering(painter); }
    void Settle()
    {
        WindowTest::Settle();
        paints.clear();
    }

    /// Invalidates a part of a parent in which a child stands.
    void PaintPartOfParentAndChild(DWORD style, const char* told, const char* lastArea)
    {
        const PlatformWindow parent(Painted(Popup("parent")).Styled(style).Filled(red));
        const PlatformWindow child(Painted(Child("child", parent, {50, 20, 100, 60})).Filled(blue));
        Settle();
        const RECT part{40, 30, 70, 40};
        InvalidateRect(parent, &part, TRUE);
        Pump();
        EXPECT_TRUE(log.Tells(told));
        EXPECT_EQ(ReadClient(child).At(15, 15), kBlue);
        EXPECT_EQ(paints.back().area, lastArea);
        Settle();
        RedrawWindow(parent, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
        Pump();
        EXPECT_TRUE(log.Tells("parent PAINT, child PAINT"));
    }

    const MessageHandler painter = [this](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message != WM_PAINT)
            return std::nullopt;
        PAINTSTRUCT paint{};
        BeginPaint(message.handle, &paint);
        RECT clip{};
        const int kind = GetClipBox(paint.hdc, &clip);
        paints.push_back({Text(paint.rcPaint), Text(clip), kind, paint.fErase != FALSE});
        if (draw)
            draw(message, paint.hdc);
        EndPaint(message.handle, &paint);
        return 0;
    };
    const HBRUSH red = CreateSolidBrush(RGB(255, 0, 0));
    const HBRUSH blue = CreateSolidBrush(RGB(0, 0, 255));
    std::vector<Paint> paints;
    std::function<void(const LoggedMessage&, HDC)> draw;
};

}  // namespace

TEST_F(Painting, InvalidatingOnlyNotesTheArea)
{
    const PlatformWindow window(Painted(Popup()));
    Settle();
    const RECT first{10, 10, 20, 20};
    const RECT second{50, 40, 60, 70};
    InvalidateRect(window, &first, FALSE);
    InvalidateRect(window, &second, FALSE);
    EXPECT_TRUE(log.All().empty());
    EXPECT_EQ(Pending(window), "10,10,60,70");
    Pump();
    ASSERT_EQ(paints.size(), 1U);
    EXPECT_EQ(paints[0].area, "10,10,60,70");
    EXPECT_EQ(paints[0].clip, "10,10,60,70");
    EXPECT_EQ(paints[0].clipKind, COMPLEXREGION);
    EXPECT_FALSE(paints[0].erase);
    EXPECT_EQ(log.Count(WM_ERASEBKGND), 0);
    EXPECT_EQ(Pending(window), kNone);
}

TEST_F(Painting, OnlyTheUpdateRegionIsTouched)
{
    const PlatformWindow window(Painted(Popup()).Filled(red));
    Settle();
    draw = [&](const LoggedMessage&, HDC dc) {
        const RECT all{0, 0, 200, 100};
        FillRect(dc, &all, blue);
    };
    const HRGN region = CreateRectRgn(10, 10, 20, 20);
    const HRGN other = CreateRectRgn(30, 30, 40, 40);
    CombineRgn(region, region, other, RGN_OR);
    InvalidateRgn(window, region, TRUE);
    DeleteObject(region);
    DeleteObject(other);
    Pump();
    const ClientPixels pixels = ReadClient(window);
    EXPECT_EQ(pixels.At(15, 15), kBlue);
    EXPECT_EQ(pixels.At(35, 35), kBlue);
    for (const POINT outside : {POINT{25, 25}, {9, 10}, {20, 20}})
        EXPECT_EQ(pixels.At(outside.x, outside.y), kRed) << Text(outside);
}

TEST_F(Painting, UpdateWindowPaintsAtOnceIfAnythingIsPending)
{
    const PlatformWindow window(Painted(Popup()));
    Settle();
    UpdateWindow(window);
    EXPECT_TRUE(log.All().empty());
    InvalidateRect(window, nullptr, TRUE);
    UpdateWindow(window);
    EXPECT_TRUE(log.Tells("w PAINT ERASEBKGND"));
    Pump();
    EXPECT_EQ(paints.size(), 1U);
}

TEST_F(Painting, BackgroundIsErasedOnceForAllOfTheRegion)
{
    PlatformWindow window(Popup());
    std::string erased;
    const RECT plain{10, 10, 20, 20};
    const RECT erasing{50, 40, 60, 70};
    for (const LRESULT answer : {1, 0}) {
        window.SetHandler([&](const LoggedMessage& message) -> std::optional<LRESULT> {
            if (message.message != WM_ERASEBKGND)
                return painter(message);
            RECT clip{};
            GetClipBox(reinterpret_cast<HDC>(message.wParam), &clip);
            erased = Text(clip);
            return answer;
        });
        Settle();
        InvalidateRect(window, &plain, FALSE);
        InvalidateRect(window, &erasing, TRUE);
        InvalidateRect(window, &plain, FALSE);
        Pump();
        EXPECT_EQ(log.Count(WM_ERASEBKGND), 1);
        EXPECT_EQ(erased, "10,10,60,70");
        ASSERT_EQ(paints.size(), 1U);
        EXPECT_EQ(paints[0].erase, answer == 0);
    }
}

TEST_F(Painting, ValidatingTakesAreasBack)
{
    const PlatformWindow window(Painted(Popup()));
    Settle();
    const RECT all{0, 0, 200, 100};
    const RECT left{0, 0, 150, 100};
    InvalidateRect(window, &all, TRUE);
    ValidateRect(window, &left);
    EXPECT_EQ(Pending(window), "150,0,200,100");
    ValidateRect(window, nullptr);
    EXPECT_EQ(Pending(window), kNone);
    Pump();
    EXPECT_TRUE(log.Tells("", {WM_PAINT, WM_ERASEBKGND}));
}

TEST_F(Painting, ComesAgainUntilTheWindowIsValid)
{
    int asked = 0;
    PlatformWindow window(Popup());
    Settle();
    window.SetHandler([&](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message != WM_PAINT)
            return std::nullopt;
        if (++asked == 3)
            ValidateRect(message.handle, nullptr);
        return 0;
    });
    InvalidateRect(window, nullptr, FALSE);
    Pump();
    EXPECT_EQ(asked, 3);
}

TEST_F(Painting, NothingIsPendingWhereNothingShows)
{
    const PlatformWindow hidden(Popup("hidden").Hidden());
    const PlatformWindow shown(Painted(Popup("shown", kBeside)));
    const PlatformWindow child(Child("child", hidden, {0, 0, 20, 20}));
    Settle();
    const RECT outside{200, 10, 300, 40};
    const RECT empty{10, 10, 10, 40};
    InvalidateRect(hidden, nullptr, TRUE);
    InvalidateRect(child, nullptr, TRUE);
    InvalidateRect(shown, &outside, TRUE);
    InvalidateRect(shown, &empty, TRUE);
    for (const PlatformWindow* const window : {&hidden, &child, &shown})
        EXPECT_EQ(Pending(*window), kNone);
    Pump();
    EXPECT_EQ(log.Count(WM_PAINT), 0);
}

TEST_F(Painting, WithoutClipChildrenTheChildrenArePaintedAgainAfterTheParent)
{
    PaintPartOfParentAndChild(WS_POPUP, "parent PAINT, child PAINT", "0,10,20,20");
}

TEST_F(Painting, ClipChildrenKeepsChildrenOutOfTheParentsRegion)
{
    PaintPartOfParentAndChild(WS_POPUP | WS_CLIPCHILDREN, "parent PAINT", "40,30,50,40");
}

TEST_F(Painting, RedrawWindowCombinesInvalidatingValidatingAndUpdating)
{
    const PlatformWindow window(Painted(Popup()));
    Settle();
    const RECT part{5, 6, 25, 36};
    RedrawWindow(window, &part, nullptr, RDW_INVALIDATE);
    EXPECT_EQ(Pending(window), Text(part));
    RedrawWindow(window, nullptr, nullptr, RDW_VALIDATE);
    EXPECT_EQ(Pending(window), kNone);
    RedrawWindow(window, &part, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    EXPECT_TRUE(log.Tells("w PAINT ERASEBKGND"));
}

TEST_F(Painting, GrowingAsksForTheNewStripUnlessTheClassWantsAll)
{
    const struct {
        const char* name;
        UINT classStyle;
        SIZE size;
        const char* expected;
    } cases[] = {
        {"wider", 0, {230, 100}, "200,0,230,100"},
        {"taller", 0, {200, 120}, "0,100,200,120"},
        {"smaller", 0, {150, 80}, kNone},
        {"wider with CS_HREDRAW", CS_HREDRAW, {230, 100}, "0,0,230,100"},
        {"smaller with CS_HREDRAW", CS_HREDRAW, {150, 100}, "0,0,150,100"},
        {"taller with CS_HREDRAW", CS_HREDRAW, {200, 120}, "0,100,200,120"},
        {"taller with CS_VREDRAW", CS_VREDRAW, {200, 120}, "0,0,200,120"},
    };
    for (const auto& c : cases) {
        const PlatformWindow window(Painted(Popup()).OfClass(c.classStyle));
        Settle();
        MoveWindow(window, 100, 100, c.size.cx, c.size.cy, TRUE);
        EXPECT_EQ(Pending(window), c.expected) << c.name;
    }
}

TEST_F(Painting, MovingKeepsThePixels)
{
    const PlatformWindow window(Painted(Popup()).Filled(red));
    const PlatformWindow child(Painted(Child("child", window, {0, 0, 40, 40})));
    draw = [&](const LoggedMessage& message, HDC dc) {
        const RECT part{0, 0, 10, 10};
        FillRect(dc, &part, message.window == "w" ? red : blue);
    };
    InvalidateRect(child, nullptr, FALSE);
    Settle();
    MoveWindow(child, 60, 20, 40, 40, TRUE);
    EXPECT_EQ(Pending(child), kNone);
    Pump();
    EXPECT_EQ(ReadClient(child).At(5, 5), kBlue);
    EXPECT_EQ(ReadClient(window).At(5, 5), kRed) << "the place that the child left";
    EXPECT_EQ(ReadClient(window).At(65, 25), kBlue);
    MoveWindow(window, 140, 150, 200, 100, TRUE);
    EXPECT_EQ(Pending(window), kNone);
    EXPECT_EQ(ReadClient(window).At(65, 25), kBlue);
}

TEST_F(Painting, HidingAChildShowsWhatIsBehindIt)
{
    const PlatformWindow parent(Painted(Popup("parent")).Filled(red));
    const PlatformWindow above(Painted(Child("above", parent, {50, 20, 100, 60})).Filled(blue));
    const PlatformWindow below(Painted(Child("below", parent, {40, 10, 80, 50})));
    Settle();
    ShowWindow(above, SW_HIDE);
    Pump();
    EXPECT_TRUE(log.Tells("parent PAINT, below PAINT"));
    EXPECT_EQ(ReadClient(parent).At(95, 55), kRed);
}

TEST_F(Painting, DrawingIsCutToTheWindow)
{
    const PlatformWindow parent(Painted(Popup("parent")).Styled(WS_POPUP | WS_CLIPCHILDREN).Filled(red));
    const PlatformWindow child(Child("child", parent, {50, 20, 100, 60}));
    const PlatformWindow inner(Child("inner", child, {30, 30, 100, 100}));
    Settle();
    const auto fill = [&](HWND window, HBRUSH brush) {
        const HDC dc = GetDC(window);
        const RECT all{-500, -500, 500, 500};
        FillRect(dc, &all, brush);
        ReleaseDC(window, dc);
    };
    fill(parent, red);
    fill(child, blue);
    EXPECT_EQ(ReadClient(parent).At(49, 30), kRed);
    EXPECT_EQ(ReadClient(child).At(49, 39), kBlue);
    fill(inner, red);
    EXPECT_EQ(ReadClient(child).At(49, 39), kRed);
    EXPECT_EQ(ReadClient(child).At(29, 29), kBlue);
    EXPECT_EQ(ReadClient(inner).At(0, 0), kRed);
}

TEST_F(Painting, SetRedrawOffSuppressesInvalidation)
{
    const PlatformWindow window(Painted(Popup()));
    Settle();
    for (const bool isOn : {false, true}) {
        SendMessageA(window, WM_SETREDRAW, isOn, 0);
        InvalidateRect(window, nullptr, TRUE);
        Pump();
        EXPECT_EQ(paints.size(), isOn ? 1U : 0U);
    }
}
