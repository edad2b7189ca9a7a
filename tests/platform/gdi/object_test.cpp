// Objects and their handles, regions, and the clip of a context.

#include <cstring>

#include "platform/gdi/canvas.h"

namespace {

std::string BoxOf(HRGN region)
{
    RECT box{7, 7, 7, 7};
    GetRgnBox(region, &box);
    return RectText(box);
}

HRGN OfRects(const std::vector<RECT>& rects)
{
    std::vector<char> buffer(sizeof(RGNDATAHEADER) + rects.size() * sizeof(RECT));
    RGNDATAHEADER header{
        sizeof(RGNDATAHEADER), RDH_RECTANGLES, static_cast<DWORD>(rects.size()), 0, {0, 0, 100, 100}};
    std::memcpy(buffer.data(), &header, sizeof header);
    if (!rects.empty())
        std::memcpy(buffer.data() + sizeof header, rects.data(), rects.size() * sizeof(RECT));
    return ExtCreateRegion(nullptr, static_cast<DWORD>(buffer.size()),
                           reinterpret_cast<const RGNDATA*>(buffer.data()));
}

void ExpectClip(HDC dc, int complexity, const std::string& box, const char* name)
{
    RECT found{7, 7, 7, 7};
    EXPECT_EQ(GetClipBox(dc, &found), complexity) << name;
    EXPECT_EQ(RectText(found), box) << name;
}

}  // namespace

using Objects = PlatformTest;

TEST_F(Objects, AreDeletedOnce)
{
    Canvas canvas(2, 2);
    const Table<const char*, HGDIOBJ> objects{{"brush", CreateSolidBrush(0)},
                                              {"pen", CreatePen(PS_SOLID, 1, 0)},
                                              {"bitmap", CreateBitmap(1, 1, 1, 32, nullptr)},
                                              {"region", CreateRectRgn(0, 0, 1, 1)}};
    for (const auto& [name, object] : objects) {
        EXPECT_TRUE(DeleteObject(object)) << name;
        EXPECT_FALSE(DeleteObject(object)) << name;
        EXPECT_EQ(SelectObject(canvas, object), nullptr) << name;
    }
    EXPECT_FALSE(DeleteObject(nullptr));
    for (const int stock : {WHITE_BRUSH, NULL_BRUSH, BLACK_PEN, NULL_PEN, SYSTEM_FONT, DEFAULT_GUI_FONT}) {
        EXPECT_TRUE(DeleteObject(GetStockObject(stock))) << stock;
        EXPECT_NE(SelectObject(canvas, GetStockObject(stock)), nullptr) << stock << " lives on";
    }
}

TEST_F(Objects, ABitmapBelongsToOneContextAtATime)
{
    const HDC first = CreateCompatibleDC(nullptr);
    const HDC second = CreateCompatibleDC(nullptr);
    const HBITMAP bitmap = CreateBitmap(4, 3, 1, 32, nullptr);
    const HGDIOBJ initial = SelectObject(first, bitmap);
    EXPECT_EQ(SelectObject(second, bitmap), nullptr);
    EXPECT_EQ(SelectObject(first, bitmap), bitmap) << "again into the same one";
    EXPECT_EQ(SelectObject(first, initial), bitmap);
    EXPECT_EQ(SelectObject(second, bitmap), initial);
    DeleteDC(second);
    EXPECT_EQ(SelectObject(first, bitmap), initial) << "free again";
    SelectObject(first, bitmap);
    EXPECT_TRUE(DeleteObject(bitmap)) << "while it is selected";
    EXPECT_EQ(SetPixel(first, 1, 0, RGB(9, 8, 7)), RGB(9, 8, 7));
    EXPECT_TRUE(DeleteDC(first));
}

TEST_F(Objects, AreSelectedInAFreshContextOfOnePixel)
{
    const HDC dc = CreateCompatibleDC(nullptr);
    RECT box{};
    EXPECT_EQ(GetClipBox(dc, &box), SIMPLEREGION);
    EXPECT_EQ(RectText(box), "0,0,1,1");
    EXPECT_EQ(GetBkMode(dc), OPAQUE);
    EXPECT_EQ(GetBkColor(dc), RGB(255, 255, 255));
    EXPECT_EQ(GetDeviceCaps(dc, LOGPIXELSY), 96);
    const Table<int, int> selections{
        {BLACK_BRUSH, WHITE_BRUSH}, {NULL_PEN, BLACK_PEN}, {DEFAULT_GUI_FONT, SYSTEM_FONT}};
    for (const auto& [selected, before] : selections)
        EXPECT_EQ(SelectObject(dc, GetStockObject(selected)), GetStockObject(before)) << selected;
    BITMAP description{};
    const Scoped bitmap(CreateBitmap(5, 4, 1, 32, nullptr));
    EXPECT_EQ(GetObjectA(bitmap, sizeof description, &description), static_cast<int>(sizeof description));
    EXPECT_EQ(description.bmWidthBytes, 20);
    EXPECT_EQ(description.bmBits, nullptr);
    LOGPEN pen{};
    EXPECT_EQ(GetObjectA(GetStockObject(BLACK_PEN), sizeof pen, &pen), static_cast<int>(sizeof pen));
    LOGBRUSH brush{};
    EXPECT_EQ(GetObjectA(GetStockObject(WHITE_BRUSH), sizeof brush, &brush), static_cast<int>(sizeof brush));
    EXPECT_EQ(brush.lbColor, RGB(255, 255, 255));
    DeleteDC(dc);
}

TEST_F(Objects, ThatAreNotAliveFailCleanly)
{
    Canvas canvas(2, 2);
    const HDC stale = CreateCompatibleDC(nullptr);
    DeleteDC(stale);
    EXPECT_FALSE(DeleteDC(stale));
    EXPECT_EQ(SaveDC(stale), 0);
    EXPECT_FALSE(RestoreDC(stale, -1));
    EXPECT_FALSE(BitBlt(canvas, 0, 0, 1, 1, stale, 0, 0, SRCCOPY));
    EXPECT_FALSE(BitBlt(stale, 0, 0, 1, 1, canvas, 0, 0, SRCCOPY));
    EXPECT_FALSE(LineTo(stale, 1, 1));
    EXPECT_EQ(GetPixel(stale, 0, 0), CLR_INVALID);
    EXPECT_EQ(GetPixel(canvas, 5, 5), CLR_INVALID);
    EXPECT_EQ(SetTextColor(stale, 0), CLR_INVALID);
    EXPECT_EQ(SelectClipRgn(stale, nullptr), ERROR);
    EXPECT_EQ(CreatePatternBrush(nullptr), nullptr);
}

TEST_F(Objects, ThatAreRectanglesIntersectAndUnite)
{
    const Table<const char*, RECT, RECT, const char*, const char*> cases{
        {"touching", {0, 0, 4, 4}, {4, 0, 9, 9}, "0,0,0,0", "0,0,9,9"},
        {"one empty", {3, 3, 3, 9}, {1, 1, 5, 5}, "0,0,0,0", "1,1,5,5"},
        {"both empty", {3, 3, 3, 9}, {1, 1, 1, 5}, "0,0,0,0", "0,0,0,0"},
    };
    for (const auto& [name, first, second, intersection, all] : cases) {
        RECT result{7, 7, 7, 7};
        EXPECT_FALSE(IntersectRect(&result, &first, &second)) << name;
        EXPECT_EQ(RectText(result), intersection) << name;
        UnionRect(&result, &first, &second);
        EXPECT_EQ(RectText(result), all) << name;
    }
}

using Regions = PlatformTest;

TEST_F(Regions, Combine)
{
    const Table<const char*, RECT, RECT, int, int, const char*> cases{
        {"overlap", {0, 0, 4, 4}, {2, 2, 6, 6}, RGN_AND, SIMPLEREGION, "2,2,4,4"},
        {"no overlap", {0, 0, 2, 2}, {2, 0, 4, 2}, RGN_AND, NULLREGION, "0,0,0,0"},
        {"neighbours", {0, 0, 2, 2}, {2, 0, 4, 2}, RGN_OR, SIMPLEREGION, "0,0,4,2"},
        {"corners", {0, 0, 2, 2}, {2, 2, 4, 4}, RGN_OR, COMPLEXREGION, "0,0,4,4"},
        {"hole", {0, 0, 6, 6}, {2, 2, 4, 4}, RGN_DIFF, COMPLEXREGION, "0,0,6,6"},
        {"cut off", {0, 0, 6, 6}, {3, 0, 9, 6}, RGN_DIFF, SIMPLEREGION, "0,0,3,6"},
        {"all gone", {2, 2, 3, 3}, {0, 0, 9, 9}, RGN_DIFF, NULLREGION, "0,0,0,0"},
        {"exclusive", {0, 0, 4, 2}, {2, 0, 6, 2}, RGN_XOR, COMPLEXREGION, "0,0,6,2"},
        {"copy", {4, 2, 1, 1}, {2, 0, 6, 2}, RGN_COPY, SIMPLEREGION, "1,1,4,2"},
    };
    for (const auto& [name, one, other, mode, complexity, box] : cases) {
        const Scoped first(CreateRectRgnIndirect(&one));
        const Scoped second(CreateRectRgnIndirect(&other));
        const Scoped result(CreateRectRgn(50, 50, 60, 60));
        EXPECT_EQ(CombineRgn(result, first, second, mode), complexity) << name;
        EXPECT_EQ(BoxOf(result), box) << name;
        EXPECT_EQ(CombineRgn(first, first, second, mode), complexity) << name << ", onto itself";
        EXPECT_TRUE(EqualRgn(first, result)) << name;
    }
    const Scoped region(CreateRectRgn(0, 0, 1, 1));
    EXPECT_EQ(CombineRgn(region, region, nullptr, RGN_OR), ERROR);
}

TEST_F(Regions, AreMadeFromRectanglesAndGiveThemBack)
{
    const Table<const char*, std::vector<RECT>, int, std::vector<RECT>> cases{
        {"overlapping", {{0, 0, 4, 2}, {2, 0, 6, 2}}, SIMPLEREGION, {{0, 0, 6, 2}}},
        {"unsorted", {{5, 5, 6, 6}, {0, 0, 1, 1}}, COMPLEXREGION, {{0, 0, 1, 1}, {5, 5, 6, 6}}},
        {"bands", {{0, 0, 3, 3}, {1, 1, 5, 2}}, COMPLEXREGION, {{0, 0, 3, 1}, {0, 1, 5, 2}, {0, 2, 3, 3}}},
        {"empty ones", {{2, 2, 2, 5}, {0, 0, 1, 1}}, SIMPLEREGION, {{0, 0, 1, 1}}},
    };
    for (const auto& [name, rects, complexity, parts] : cases) {
        const Scoped region(OfRects(rects));
        RECT box{};
        EXPECT_EQ(GetRgnBox(region, &box), complexity) << name;
        const std::size_t bytes = parts.size() * sizeof(RECT);
        const DWORD size = GetRegionData(region, 0, nullptr);
        ASSERT_EQ(size, sizeof(RGNDATAHEADER) + bytes) << name;
        std::vector<char> buffer(size);
        auto* data = reinterpret_cast<RGNDATA*>(buffer.data());
        EXPECT_EQ(GetRegionData(region, size, data), size) << name;
        EXPECT_EQ(RectText(data->rdh.rcBound), RectText(box)) << name;
        EXPECT_EQ(std::memcmp(data->Buffer, parts.data(), bytes), 0) << name;
    }
    const Scoped squares(OfRects({{0, 0, 4, 4}, {10, 0, 14, 4}}));
    const RECT between{4, 0, 10, 4};
    const RECT inverted{5, 5, 3, 3};
    EXPECT_FALSE(RectInRegion(squares, &between));
    EXPECT_TRUE(RectInRegion(squares, &inverted) && PtInRegion(squares, 3, 3) && !PtInRegion(squares, 3, 4));
    EXPECT_EQ(OffsetRgn(squares, 1, 2), COMPLEXREGION);
    EXPECT_EQ(BoxOf(squares), "1,2,15,6");
    EXPECT_TRUE(SetRectRgn(squares, 3, 3, 1, 1));
    EXPECT_EQ(BoxOf(squares), "1,1,3,3");
}

using Clipping = PlatformTest;

TEST_F(Clipping, HasTheStatesOfItsTable)
{
    const Table<std::vector<RECT>, int, std::string> cases{
        {{{-5, 5, 10, 90}}, SIMPLEREGION, "0,5,10,20"},
        {{{1, 1, 3, 3}, {20, 10, 90, 90}}, COMPLEXREGION, "1,1,30,20"},
        {{{100, 100, 110, 110}}, NULLREGION, ""},
    };
    const Canvas canvas(30, 20);
    const Scoped copy(CreateRectRgn(3, 3, 5, 5));
    EXPECT_EQ(GetClipRgn(canvas, copy), 0);
    EXPECT_EQ(BoxOf(copy), "3,3,5,5") << "untouched";
    for (const auto& [clip, complexity, expected] : cases) {
        const Scoped region(OfRects(clip));
        RECT box{};
        EXPECT_EQ(SelectClipRgn(canvas, region), GetRgnBox(region, &box)) << expected;
        EXPECT_EQ(GetClipRgn(canvas, copy), 1) << expected;
        EXPECT_TRUE(EqualRgn(copy, region)) << expected;
        OffsetRgn(region, 1, 1);  // the context has a copy
        EXPECT_EQ(GetClipBox(canvas, &box), complexity) << expected;
        EXPECT_TRUE(complexity == NULLREGION || RectText(box) == expected)
            << expected << ' ' << RectText(box);
    }
    EXPECT_EQ(SelectClipRgn(canvas, nullptr), SIMPLEREGION);
    EXPECT_EQ(GetClipRgn(canvas, copy), 0);
    EXPECT_EQ(ExtSelectClipRgn(canvas, nullptr, RGN_COPY), SIMPLEREGION);
    EXPECT_EQ(ExtSelectClipRgn(canvas, nullptr, RGN_AND), ERROR);
    const int saved = SaveDC(canvas);
    RECT box{};
    for (const RECT& limit : {RECT{2, 2, 20, 15}, RECT{5, 0, 30, 10}}) {
        IntersectClipRect(canvas, limit.left, limit.top, limit.right, limit.bottom);
        EXPECT_EQ(SetMetaRgn(canvas), SIMPLEREGION);
        EXPECT_EQ(GetClipRgn(canvas, copy), 0) << "a limit is no clip region";
    }
    SelectClipRgn(canvas, nullptr);
    GetClipBox(canvas, &box);
    EXPECT_EQ(RectText(box), "5,2,20,10") << "and stays";
    RestoreDC(canvas, saved);
    GetClipBox(canvas, &box);
    EXPECT_EQ(RectText(box), "0,0,30,20");
}

TEST_F(Clipping, CombinesWithNoClipAsWithTheSurface)
{
    const Table<const char*, int, int, const char*> cases{
        {"and", RGN_AND, SIMPLEREGION, "......\n..####\n"},
        {"or", RGN_OR, COMPLEXREGION, "######\n######\n"},
        {"difference", RGN_DIFF, COMPLEXREGION, "######\n##....\n"},
        {"copy", RGN_COPY, SIMPLEREGION, "......\n..####\n"},
    };
    for (const auto& [name, mode, complexity, picture] : cases) {
        Canvas canvas(6, 2);
        const Scoped region(CreateRectRgn(2, 1, 8, 2));
        EXPECT_EQ(ExtSelectClipRgn(canvas, region, mode), complexity) << name;
        PatBlt(canvas, 0, 0, 6, 2, WHITENESS);
        EXPECT_EQ(canvas.Picture(), picture) << name;
    }
}

TEST_F(Clipping, TakesRectanglesInLogicalAndRegionsInDeviceCoordinates)
{
    Canvas canvas(10, 10);
    SetViewportOrgEx(canvas, 3, 2, nullptr);
    EXPECT_EQ(IntersectClipRect(canvas, 0, 0, 4, 4), SIMPLEREGION);
    ExpectClip(canvas, SIMPLEREGION, "0,0,4,4", "logical");
    const Scoped region(CreateRectRgn(0, 0, 0, 0));
    GetClipRgn(canvas, region);
    EXPECT_EQ(BoxOf(region), "3,2,7,6");
    EXPECT_EQ(ExcludeClipRect(canvas, 0, 0, 4, 1), SIMPLEREGION);
    ExpectClip(canvas, SIMPLEREGION, "0,1,4,4", "top cut off");
    EXPECT_EQ(ExcludeClipRect(canvas, 1, 2, 2, 3), COMPLEXREGION);
    const RECT inHole{1, 2, 2, 3};
    const RECT atEdge{3, 3, 9, 9};
    EXPECT_FALSE(RectVisible(canvas, &inHole));
    EXPECT_TRUE(RectVisible(canvas, &atEdge));
    SelectClipRgn(canvas, region);
    ExpectClip(canvas, SIMPLEREGION, "0,0,4,4", "device");
    EXPECT_EQ(IntersectClipRect(canvas, 50, 50, 60, 60), NULLREGION);
}

TEST_F(Clipping, IsSavedAndRestoredWithTheRestOfTheState)
{
    Canvas canvas(10, 10);
    EXPECT_FALSE(RestoreDC(canvas, -1));
    SetTextColor(canvas, RGB(1, 2, 3));
    IntersectClipRect(canvas, 1, 1, 9, 9);
    EXPECT_EQ(SaveDC(canvas), 1);
    IntersectClipRect(canvas, 2, 2, 3, 3);
    SetViewportOrgEx(canvas, 5, 5, nullptr);
    EXPECT_EQ(SaveDC(canvas), 2);
    SelectClipRgn(canvas, nullptr);
    SetTextColor(canvas, RGB(4, 5, 6));
    EXPECT_EQ(SaveDC(canvas), 3);
    EXPECT_FALSE(RestoreDC(canvas, 4));
    EXPECT_TRUE(RestoreDC(canvas, -2));
    ExpectClip(canvas, SIMPLEREGION, "-3,-3,-2,-2", "second level");
    EXPECT_EQ(GetTextColor(canvas), RGB(1, 2, 3));
    EXPECT_TRUE(RestoreDC(canvas, 1));
    ExpectClip(canvas, SIMPLEREGION, "1,1,9,9", "first level");
    EXPECT_FALSE(RestoreDC(canvas, 1)) << "levels above the restored one are gone";
}
