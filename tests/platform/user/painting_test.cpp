// Update regions: what is to be painted, when it is asked for, and what a paint may touch.

#include "platform/user/window_test.h"

using namespace qvui::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<LONG> Numbers(const RECT& rect)
{
    return {rect.left, rect.top, rect.right, rect.bottom};
}

std::vector<LONG> Pending(const PlatformWindow& window)
{
    RECT rect{};
    GetUpdateRect(window.Handle(), &rect, FALSE);
    return Numbers(rect);
}

const std::vector<LONG> kNone{0, 0, 0, 0};

struct Paint {
    std::string window;
    std::vector<LONG> area;  // rcPaint
    std::vector<LONG> clip;
    int clipKind = 0;
    bool erase = false;
};

class Painting : public WindowTest {
protected:
    Painting() { SetLastError(0); }
    ~Painting() override
    {
        DeleteObject(red);
        DeleteObject(blue);
    }

    /// Paints by BeginPaint and EndPaint, and notes what that was told.
    MessageHandler Painter()
    {
        return [this](const LoggedMessage& message) -> std::optional<LRESULT> {
            if (message.message != WM_PAINT)
                return std::nullopt;
            PAINTSTRUCT paint{};
            BeginPaint(message.handle, &paint);
            RECT clip{};
            const int kind = GetClipBox(paint.hdc, &clip);
            paints.push_back({message.window, Numbers(paint.rcPaint), Numbers(clip), kind, paint.fErase != FALSE});
            if (draw)
                draw(message, paint.hdc);
            EndPaint(message.handle, &paint);
            return 0;
        };
    }
    PlatformWindowOptions Painted(PlatformWindowOptions options)
    {
        options.handler = Painter();
        return options;
    }
    void Settle()
    {
        WindowTest::Settle();
        paints.clear();
    }

    const HBRUSH red = CreateSolidBrush(RGB(255, 0, 0));
    const HBRUSH blue = CreateSolidBrush(RGB(0, 0, 255));
    std::vector<Paint> paints;
    std::function<void(const LoggedMessage&, HDC)> draw;
};

}  // namespace

TEST_F(Painting, InvalidatingOnlyNotesTheArea)
{
    const PlatformWindow window(Painted(Popup("w")));
    Settle();
    const RECT first{10, 10, 20, 20};
    const RECT second{50, 40, 60, 70};
    InvalidateRect(window.Handle(), &first, FALSE);
    InvalidateRect(window.Handle(), &second, FALSE);
    EXPECT_THAT(log.All(), IsEmpty());
    EXPECT_EQ(Pending(window), Numbers({10, 10, 60, 70}));
    Pump();
    ASSERT_EQ(paints.size(), 1U);
    EXPECT_EQ(paints[0].area, Numbers({10, 10, 60, 70}));
    EXPECT_EQ(paints[0].clip, Numbers({10, 10, 60, 70}));
    EXPECT_EQ(paints[0].clipKind, COMPLEXREGION);
    EXPECT_FALSE(paints[0].erase);
    EXPECT_EQ(log.Count(WM_ERASEBKGND), 0);
    EXPECT_EQ(Pending(window), kNone);
}

TEST_F(Painting, OnlyTheUpdateRegionIsTouched)
{
    PlatformWindowOptions options = Painted(Popup("w"));
    options.background = red;
    const PlatformWindow window(options);
    Settle();
    draw = [&](const LoggedMessage&, HDC dc) {
        const RECT all{0, 0, 200, 100};
        FillRect(dc, &all, blue);
    };
    const HRGN region = CreateRectRgn(10, 10, 20, 20);
    const HRGN other = CreateRectRgn(30, 30, 40, 40);
    CombineRgn(region, region, other, RGN_OR);
    InvalidateRgn(window.Handle(), region, TRUE);
    DeleteObject(region);
    DeleteObject(other);
    Pump();
    const ClientPixels pixels = ReadClient(window.Handle());
    EXPECT_EQ(pixels.At(15, 15), 0x0000FFU);
    EXPECT_EQ(pixels.At(35, 35), 0x0000FFU);
    EXPECT_EQ(pixels.At(25, 25), 0xFF0000U);
    EXPECT_EQ(pixels.At(9, 10), 0xFF0000U);
    EXPECT_EQ(pixels.At(20, 20), 0xFF0000U);
}

TEST_F(Painting, UpdateWindowPaintsAtOnceIfAnythingIsPending)
{
    const PlatformWindow window(Painted(Popup("w")));
    Settle();
    UpdateWindow(window.Handle());
    EXPECT_THAT(log.All(), IsEmpty());
    InvalidateRect(window.Handle(), nullptr, TRUE);
    UpdateWindow(window.Handle());
    EXPECT_THAT(log.Lines({WM_PAINT, WM_ERASEBKGND}), ElementsAre("w WM_PAINT", "w WM_ERASEBKGND"));
    EXPECT_EQ(paints.size(), 1U);
    Pump();
    EXPECT_EQ(paints.size(), 1U);
}

TEST_F(Painting, BackgroundIsErasedOnceForAllOfTheRegion)
{
    const PlatformWindow window(Painted(Popup("w")));
    Settle();
    std::vector<LONG> erased;
    const auto withErase = [&](LRESULT answer) {
        return [&, answer, painter = Painter()](const LoggedMessage& message) -> std::optional<LRESULT> {
            if (message.message != WM_ERASEBKGND)
                return painter(message);
            RECT clip{};
            GetClipBox(reinterpret_cast<HDC>(message.wParam), &clip);
            erased = Numbers(clip);
            return answer;
        };
    };
    const RECT plain{10, 10, 20, 20};
    const RECT erasing{50, 40, 60, 70};
    for (const LRESULT answer : {1, 0}) {
        const_cast<PlatformWindow&>(window).SetHandler(withErase(answer));
        InvalidateRect(window.Handle(), &plain, FALSE);
        InvalidateRect(window.Handle(), &erasing, TRUE);
        Settle();
        InvalidateRect(window.Handle(), &plain, FALSE);
        InvalidateRect(window.Handle(), &erasing, TRUE);
        InvalidateRect(window.Handle(), &plain, FALSE);
        Pump();
        EXPECT_EQ(log.Count(WM_ERASEBKGND), 1);
        EXPECT_EQ(erased, Numbers({10, 10, 60, 70}));
        ASSERT_EQ(paints.size(), 1U);
        EXPECT_EQ(paints[0].erase, answer == 0);
    }
}

TEST_F(Painting, ValidatingTakesAreasBack)
{
    const PlatformWindow window(Painted(Popup("w")));
    Settle();
    const RECT all{0, 0, 200, 100};
    const RECT left{0, 0, 150, 100};
    InvalidateRect(window.Handle(), &all, TRUE);
    ValidateRect(window.Handle(), &left);
    EXPECT_EQ(Pending(window), Numbers({150, 0, 200, 100}));
    ValidateRect(window.Handle(), nullptr);
    EXPECT_EQ(Pending(window), kNone);
    Pump();
    EXPECT_THAT(log.Lines({WM_PAINT, WM_ERASEBKGND}), IsEmpty());
}

TEST_F(Painting, ComesAgainUntilTheWindowIsValid)
{
    int asked = 0;
    PlatformWindow window(Popup("w"));
    Settle();
    window.SetHandler([&](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message != WM_PAINT)
            return std::nullopt;
        if (++asked == 3)
            ValidateRect(message.handle, nullptr);
        return 0;
    });
    InvalidateRect(window.Handle(), nullptr, FALSE);
    Pump();
    EXPECT_EQ(asked, 3);
}

TEST_F(Painting, NothingIsPendingWhereNothingShows)
{
    const PlatformWindow hidden(Hidden(Popup("hidden")));
    const PlatformWindow shown(Painted(Popup("shown", {400, 100, 500, 200})));
    const PlatformWindow child(Child("child", hidden, {0, 0, 20, 20}));
    Settle();
    const RECT outside{200, 10, 300, 40};
    const RECT empty{10, 10, 10, 40};
    InvalidateRect(hidden.Handle(), nullptr, TRUE);
    InvalidateRect(child.Handle(), nullptr, TRUE);
    InvalidateRect(shown.Handle(), &outside, TRUE);
    InvalidateRect(shown.Handle(), &empty, TRUE);
    EXPECT_EQ(Pending(hidden), kNone);
    EXPECT_EQ(Pending(child), kNone);
    EXPECT_EQ(Pending(shown), kNone);
    Pump();
    EXPECT_EQ(log.Count(WM_PAINT), 0);
}

TEST_F(Painting, ClipChildrenKeepsChildrenOutOfTheParentsRegion)
{
    PlatformWindowOptions options = Painted(Popup("parent"));
    options.style = WS_POPUP | WS_CLIPCHILDREN;
    options.background = red;
    const PlatformWindow parent(options);
    PlatformWindowOptions inner = Painted(Child("child", parent, {50, 20, 100, 60}));
    inner.background = blue;
    const PlatformWindow child(inner);
    Settle();
    InvalidateRect(parent.Handle(), nullptr, TRUE);
    EXPECT_EQ(Pending(child), kNone);
    Pump();
    EXPECT_THAT(log.Lines({WM_PAINT}), ElementsAre("parent WM_PAINT"));
    const ClientPixels pixels = ReadClient(child.Handle());
    EXPECT_EQ(pixels.At(10, 10), 0x0000FFU);
    Settle();
    RedrawWindow(parent.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    Pump();
    EXPECT_THAT(log.Lines({WM_PAINT}), ElementsAre("parent WM_PAINT", "child WM_PAINT"));
}

TEST_F(Painting, WithoutClipChildrenTheChildrenArePaintedAgainAfterTheParent)
{
    PlatformWindowOptions options = Painted(Popup("parent"));
    options.background = red;
    const PlatformWindow parent(options);
    PlatformWindowOptions inner = Painted(Child("child", parent, {50, 20, 100, 60}));
    inner.background = blue;
    const PlatformWindow child(inner);
    Settle();
    const RECT part{60, 30, 70, 40};
    InvalidateRect(parent.Handle(), &part, TRUE);
    Pump();
    EXPECT_THAT(log.Lines({WM_PAINT}), ElementsAre("parent WM_PAINT", "child WM_PAINT"));
    EXPECT_EQ(ReadClient(child.Handle()).At(15, 15), 0x0000FFU);
    ASSERT_EQ(paints.size(), 2U);
    EXPECT_EQ(paints[1].area, Numbers({10, 10, 20, 20}));
}

TEST_F(Painting, RedrawWindowCombinesInvalidatingValidatingAndUpdating)
{
    const PlatformWindow window(Painted(Popup("w")));
    Settle();
    const RECT part{5, 6, 25, 36};
    RedrawWindow(window.Handle(), &part, nullptr, RDW_INVALIDATE);
    EXPECT_EQ(Pending(window), Numbers(part));
    RedrawWindow(window.Handle(), nullptr, nullptr, RDW_VALIDATE);
    EXPECT_EQ(Pending(window), kNone);
    RedrawWindow(window.Handle(), &part, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    EXPECT_THAT(log.Lines({WM_PAINT, WM_ERASEBKGND}), ElementsAre("w WM_PAINT", "w WM_ERASEBKGND"));
    EXPECT_EQ(paints.size(), 1U);
}

TEST_F(Painting, GrowingAsksForTheNewStripUnlessTheClassWantsAll)
{
    struct Case {
        const char* name;
        UINT classStyle;
        SIZE size;
        std::vector<LONG> expected;
    };
    const std::vector<Case> cases{
        {"wider", 0, {230, 100}, {200, 0, 230, 100}},
        {"taller", 0, {200, 120}, {0, 100, 200, 120}},
        {"smaller", 0, {150, 80}, {0, 0, 0, 0}},
        {"wider with CS_HREDRAW", CS_HREDRAW, {230, 100}, {0, 0, 230, 100}},
        {"smaller with CS_HREDRAW", CS_HREDRAW, {150, 100}, {0, 0, 150, 100}},
        {"taller with CS_HREDRAW", CS_HREDRAW, {200, 120}, {0, 100, 200, 120}},
        {"taller with CS_VREDRAW", CS_VREDRAW, {200, 120}, {0, 0, 200, 120}},
    };
    for (const Case& c : cases) {
        PlatformWindowOptions options = Painted(Popup("w"));
        options.classStyle = c.classStyle;
        const PlatformWindow window(options);
        Settle();
        MoveWindow(window.Handle(), 100, 100, c.size.cx, c.size.cy, TRUE);
        EXPECT_EQ(Pending(window), c.expected) << c.name;
    }
}

TEST_F(Painting, MovingKeepsThePixels)
{
    PlatformWindowOptions options = Painted(Popup("w"));
    options.background = red;
    const PlatformWindow window(options);
    const PlatformWindow child(Painted(Child("child", window, {0, 0, 40, 40})));
    draw = [&](const LoggedMessage& message, HDC dc) {
        const RECT part{0, 0, 10, 10};
        FillRect(dc, &part, message.window == "w" ? red : blue);
    };
    InvalidateRect(child.Handle(), nullptr, FALSE);
    Settle();
    MoveWindow(child.Handle(), 60, 20, 40, 40, TRUE);
    EXPECT_EQ(Pending(child), kNone);
    Pump();
    EXPECT_EQ(ReadClient(child.Handle()).At(5, 5), 0x0000FFU);
    EXPECT_EQ(ReadClient(window.Handle()).At(5, 5), 0xFF0000U) << "the place that the child left";
    EXPECT_EQ(ReadClient(window.Handle()).At(65, 25), 0x0000FFU);
    MoveWindow(window.Handle(), 140, 150, 200, 100, TRUE);
    EXPECT_EQ(Pending(window), kNone);
    EXPECT_EQ(ReadClient(window.Handle()).At(65, 25), 0x0000FFU);
}

TEST_F(Painting, HidingAChildShowsWhatIsBehindIt)
{
    PlatformWindowOptions options = Painted(Popup("parent"));
    options.background = red;
    const PlatformWindow parent(options);
    PlatformWindowOptions below = Painted(Child("below", parent, {40, 10, 80, 50}));
    PlatformWindowOptions above = Painted(Child("above", parent, {50, 20, 100, 60}));
    above.background = blue;
    const PlatformWindow top(above);
    const PlatformWindow bottom(below);
    Settle();
    ShowWindow(top.Handle(), SW_HIDE);
    Pump();
    EXPECT_THAT(log.Lines({WM_PAINT}), ElementsAre("parent WM_PAINT", "below WM_PAINT"));
    EXPECT_EQ(ReadClient(parent.Handle()).At(95, 55), 0xFF0000U);
}

TEST_F(Painting, DrawingIsCutToTheWindow)
{
    PlatformWindowOptions options = Painted(Popup("parent"));
    options.background = red;
    options.style = WS_POPUP | WS_CLIPCHILDREN;
    const PlatformWindow parent(options);
    const PlatformWindow child(Child("child", parent, {50, 20, 100, 60}));
    const PlatformWindow inner(Child("inner", child, {30, 30, 100, 100}));
    Settle();
    const auto fill = [&](const PlatformWindow& window, HBRUSH brush) {
        const HDC dc = GetDC(window.Handle());
        const RECT all{-500, -500, 500, 500};
        FillRect(dc, &all, brush);
        ReleaseDC(window.Handle(), dc);
    };
    fill(parent, red);
    fill(child, blue);
    EXPECT_EQ(ReadClient(parent.Handle()).At(49, 30), 0xFF0000U);
    EXPECT_EQ(ReadClient(child.Handle()).At(49, 39), 0x0000FFU);
    fill(inner, red);
    EXPECT_EQ(ReadClient(child.Handle()).At(49, 39), 0xFF0000U);
    EXPECT_EQ(ReadClient(child.Handle()).At(29, 29), 0x0000FFU);
    const ClientPixels pixels = ReadClient(inner.Handle());
    EXPECT_EQ(pixels.At(0, 0), 0xFF0000U);
}

TEST_F(Painting, SetRedrawOffSuppressesInvalidation)
{
    const PlatformWindow window(Painted(Popup("w")));
    Settle();
    SendMessageA(window.Handle(), WM_SETREDRAW, FALSE, 0);
    InvalidateRect(window.Handle(), nullptr, TRUE);
    Pump();
    EXPECT_THAT(paints, IsEmpty());
    SendMessageA(window.Handle(), WM_SETREDRAW, TRUE, 0);
    InvalidateRect(window.Handle(), nullptr, TRUE);
    Pump();
    EXPECT_EQ(paints.size(), 1U);
}
