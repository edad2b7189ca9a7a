// Update regions: what is to be painted, when it is asked for, and what a paint may touch.

#include "platform/user/window_test.h"

using namespace qvui::test;

namespace {

std::string Pending(HWND window)
{
    RECT rect{};
    GetUpdateRect(window, &rect, FALSE);
    return Text(rect);
}

constexpr const char* kNone = "0,0,0,0";

struct Paint {
    std::string area;  // rcPaint
    int clipKind = 0;
    bool erase = false;
};

/// Windows that paint by BeginPaint and EndPaint, and note what that was told.
class Painting : public WindowTest {
protected:
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
        EXPECT_EQ(Text(clip), Text(paint.rcPaint));
        paints.push_back({Text(paint.rcPaint), kind, paint.fErase != FALSE});
        if (draw)
            draw(message, paint.hdc);
        EndPaint(message.handle, &paint);
        return 0;
    };
    std::vector<Paint> paints;
    std::function<void(const LoggedMessage&, HDC)> draw;
};

}  // namespace

TEST_F(Painting, InvalidatingNotesTheAreaAndPaintingTouchesNoOther)
{
    const PlatformWindow window(Painted(Popup()).Filled(red));
    Settle();
    draw = [&](const LoggedMessage&, HDC dc) {
        const RECT all{0, 0, 200, 100};
        FillRect(dc, &all, blue);
    };
    const RECT first{10, 10, 20, 20};
    const RECT second{50, 40, 60, 70};
    const HRGN region = CreateRectRgnIndirect(&first);
    InvalidateRgn(window, region, FALSE);
    DeleteObject(region);
    InvalidateRect(window, &second, FALSE);
    EXPECT_TRUE(log.All().empty());
    EXPECT_EQ(Pending(window), "10,10,60,70");
    Pump();
    ASSERT_EQ(paints.size(), 1U);
    EXPECT_EQ(paints[0].area, "10,10,60,70");
    EXPECT_EQ(paints[0].clipKind, COMPLEXREGION);
    EXPECT_EQ(log.Count(WM_ERASEBKGND), 0);
    EXPECT_EQ(Pending(window), kNone);
    const ClientPixels pixels = ReadClient(window);
    for (const auto& [x, y, pixel] : Table<int, int, std::uint32_t>{
             {10, 10, kBlue}, {59, 69, kBlue}, {25, 25, kRed}, {9, 10, kRed}, {20, 20, kRed}})
        EXPECT_EQ(pixels.At(x, y), pixel) << x << ',' << y;
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

TEST_F(Painting, ValidatingTakesAreasBackAndUpdatingPaintsAtOnce)
{
    const PlatformWindow window(Painted(Popup()));
    Settle();
    const RECT left{0, 0, 150, 100};
    InvalidateRect(window, nullptr, TRUE);
    ValidateRect(window, &left);
    EXPECT_EQ(Pending(window), "150,0,200,100");
    RedrawWindow(window, nullptr, nullptr, RDW_VALIDATE);
    EXPECT_EQ(Pending(window), kNone);
    UpdateWindow(window);
    Pump();
    EXPECT_TRUE(log.Tells("", {WM_PAINT, WM_ERASEBKGND}));
    RedrawWindow(window, &left, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    EXPECT_TRUE(log.Tells("w PAINT ERASEBKGND"));
    log.Clear();
    SendMessageA(window, WM_SETREDRAW, FALSE, 0);
    InvalidateRect(window, nullptr, TRUE);
    UpdateWindow(window);
    EXPECT_TRUE(log.Tells("", {WM_PAINT, WM_ERASEBKGND})) << "while redrawing is off";
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
}

TEST_F(Painting, ChildrenArePaintedAgainAfterAParentThatDoesNotClipThem)
{
    PaintPartOfParentAndChild(WS_POPUP, "parent PAINT, child PAINT", "0,10,20,20");
}

TEST_F(Painting, ClipChildrenKeepsChildrenOutOfTheParentsRegion)
{
    PaintPartOfParentAndChild(WS_POPUP | WS_CLIPCHILDREN, "parent PAINT", "40,30,50,40");
}

TEST_F(Painting, GrowingAsksForTheNewStripUnlessTheClassWantsAll)
{
    const Table<const char*, UINT, int, int, const char*> cases{
        {"wider", 0, 230, 100, "200,0,230,100"},
        {"taller", 0, 200, 120, "0,100,200,120"},
        {"smaller", 0, 150, 80, kNone},
        {"wider with CS_HREDRAW", CS_HREDRAW, 230, 100, "0,0,230,100"},
        {"smaller with CS_HREDRAW", CS_HREDRAW, 150, 100, "0,0,150,100"},
        {"taller with CS_HREDRAW", CS_HREDRAW, 200, 120, "0,100,200,120"},
        {"taller with CS_VREDRAW", CS_VREDRAW, 200, 120, "0,0,200,120"},
    };
    for (const auto& [name, classStyle, width, height, expected] : cases) {
        const PlatformWindow window(Painted(Popup()).OfClass(classStyle));
        Settle();
        MoveWindow(window, 100, 100, width, height, TRUE);
        EXPECT_EQ(Pending(window), expected) << name;
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
    fill(child, blue);
    fill(parent, red);
    EXPECT_EQ(ReadClient(child).At(49, 39), kBlue);
    EXPECT_EQ(ReadClient(parent).At(49, 30), kRed);
    fill(inner, red);
    EXPECT_EQ(ReadClient(child).At(49, 39), kRed);
    EXPECT_EQ(ReadClient(child).At(29, 29), kBlue);
}
