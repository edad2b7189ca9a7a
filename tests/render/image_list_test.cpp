#include <qvui/render/image_list.h>

#include <climits>
#include <functional>

#include "render/render_test.h"

using DUI::CDUIImage;
using DUI::CDUIImageList;

namespace {

// A pixel that tells where it stands, in values that a product with an alpha keeps apart.
std::uint32_t StepPixel(int x, int y)
{
    return static_cast<std::uint32_t>(0x00010000 * (20 * x + 20) + 0x00000100 * (20 * y + 20) + 0x55);
}

std::uint32_t TranslucentPixel(int x, int y)
{
    return StepPixel(x, y) | (static_cast<std::uint32_t>(30 * x + 3 * y) << 24);
}

std::uint32_t KeyedPixel(int x, int y)
{
    return (x + y) % 3 == 0 ? 0x00FF00FFU : StepPixel(x, y);
}

std::uint32_t Premultiplied(std::uint32_t pixel)
{
    const std::uint32_t alpha = Channel(pixel, 3);
    std::uint32_t result = alpha << 24;
    for (int channel = 0; channel < 3; ++channel)
        result |= Channel(pixel, channel) * alpha / 255 << (8 * channel);
    return result;
}

std::uint32_t StoredPixel(const CDUIImage& image, int x, int y)
{
    const auto* bytes = static_cast<const std::uint8_t*>(image.GetRawImage()->GetPixelAddress(x, y));
    std::uint32_t pixel = 0;
    for (int channel = 0; channel < image.GetRawImage()->GetBPP() / 8; ++channel)
        pixel |= static_cast<std::uint32_t>(bytes[channel]) << (8 * channel);
    return pixel;
}

template <class List>
concept DrawsParts = requires(List list, HDC hdc, RECT rect)
{
    list.DrawImage(hdc, rect, rect);
};
static_assert(!DrawsParts<CDUIImageList>, "drawing a part is for derived classes");

}  // namespace

using Image = RenderTest;

TEST_F(Image, LoadsPremultiplied)
{
    // Every value at every alpha.
    const auto pixelAt = [](int x, int y) {
        return static_cast<std::uint32_t>(y) << 24 | static_cast<std::uint32_t>(x) << 16 |
               static_cast<std::uint32_t>(255 - x) << 8 | static_cast<std::uint32_t>(x ^ 0x55);
    };
    CDUIImage image;
    EXPECT_EQ(image.GetWidth(), -1);
    EXPECT_EQ(image.GetHeight(), -1);
    ASSERT_TRUE(image.CreateFromFile(WritePicture("alphas.png", 256, 256, true, pixelAt).c_str()));
    EXPECT_EQ(image.GetWidth(), 256);
    for (int y = 1; y < 256; ++y)  // a file keeps no colour where nothing shows
        for (int x = 0; x < 256; ++x)
            ASSERT_EQ(StoredPixel(image, x, y), Premultiplied(pixelAt(x, y))) << x << ", alpha " << y;

    ASSERT_TRUE(image.CreateFromFile(WritePicture("opaque.png", 2, 2, false, StepPixel).c_str()));
    EXPECT_EQ(image.GetRawImage()->GetBPP(), 24);
    EXPECT_EQ(StoredPixel(image, 1, 0), StepPixel(1, 0));
    image.Destory();
    EXPECT_TRUE(image.IsNull());
}

TEST_F(Image, FilesReachEveryCopyAndStreamsOnlyOne)
{
    const std::string small = WritePicture("small.png", 2, 2, false, StepPixel);
    const std::string large = WritePicture("large.png", 5, 3, true, TranslucentPixel);
    CDUIImage image;
    ASSERT_TRUE(image.CreateFromFile(small.c_str()));
    image.SetDrawStyle(DUI::DRAW_STYLE_TILE);
    image.SetCornerSize(3, 4);
    CDUIImage copy(image);
    const std::shared_ptr<CDUIImage> clone = image.CloneObject();
    EXPECT_EQ(clone->GetDrawStyle(), DUI::DRAW_STYLE_TILE);
    EXPECT_EQ(clone->GetCornerHeight(), 4);
    ASSERT_TRUE(copy.CreateFromFile(large.c_str()));
    EXPECT_EQ(image.GetWidth(), 5) << "one picture, shared";
    EXPECT_EQ(clone->GetWidth(), 5);

    const std::vector<unsigned char> bytes = FileBytes(small);
    ASSERT_TRUE(copy.CreateFromStream(bytes.data(), static_cast<DWORD>(bytes.size())));
    EXPECT_EQ(copy.GetWidth(), 2);
    EXPECT_EQ(image.GetWidth(), 5) << "a picture of its own";
}

TEST_F(Image, BrokenPicturesAreNoPictures)
{
    const std::vector<unsigned char> whole =
        FileBytes(WritePicture("whole.png", 9, 9, true, TranslucentPixel));
    CDUIImage image;
    for (DWORD size = 0; size <= whole.size() / 2; size += 7) {
        const std::vector<unsigned char> part(whole.begin(),
                                              whole.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_FALSE(image.CreateFromStream(part.data(), size)) << size;
        EXPECT_TRUE(image.IsNull()) << size;
    }
    EXPECT_FALSE(image.CreateFromStream(nullptr, 0) || image.CreateFromFile(nullptr) ||
                 image.CreateFromFile(qvui::test::OutputPath("there-is-none.png").c_str()) ||
                 image.CreateFromResource(GetModuleHandleA(nullptr), "NO_SUCH", "PNG") ||
                 image.CreateFromResource(GetModuleHandleA(nullptr), 4711U, "PNG"));
    Canvas canvas(2, 2);
    image.DrawImage(canvas, {0, 0, 2, 2});
    EXPECT_EQ(canvas.Picture(), "..\n..\n");
}

using ImageList = RenderTest;

TEST_F(ImageList, CutsTheStripIntoIcons)
{
    struct Probe : CDUIImageList {
        using CDUIImageList::GetIconRect;
    };
    // Icons, direction, index, the size of an icon, and its place if there is one.
    const Table<const char*, DWORD, int, int, SIZE, const char*> cases{
        {"side by side", 3, 0, 2, {20, 20}, "40,0,60,20"},
        {"one above the other", 2, 1, 1, {60, 10}, "0,10,60,20"},
        {"any nonzero direction", 2, 7, 0, {60, 10}, "0,0,60,10"},
        {"rest is lost", 7, 0, 6, {8, 20}, "48,0,56,20"},
        {"none means one", 0, 0, 0, {60, 20}, "0,0,60,20"},
        {"more icons than pixels", 61, 0, 0, {0, 20}, ""},
        {"as many as it gets", 0xFFFFFFFF, 1, 0, {60, 0}, ""},
    };
    Probe list;
    ASSERT_TRUE(list.CreateFromFile(WritePicture("strip.png", 60, 20, false, StepPixel).c_str()));
    for (const auto& [name, count, direction, index, size, place] : cases) {
        list.SetItemCount(count);
        list.SetImageDirection(direction);
        EXPECT_EQ(qvui::test::Text(SIZE{list.GetIconWidth(), list.GetIconHeight()}), qvui::test::Text(size))
            << name;
        RECT rect{};
        const std::string found = list.GetIconRect(index, rect) ? RectText(rect) : "";
        EXPECT_EQ(found, place) << name;
        Canvas canvas(2, 1);
        list.DrawImage(canvas, {0, 0, 2, 1}, index);
        EXPECT_EQ(canvas.Picture(), found.empty() ? "..\n" : "##\n") << name;
    }
}

TEST_F(ImageList, CopiesAreHorizontalAndAssignmentsKeepTheDirection)
{
    CDUIImageList list;
    list.SetItemCount(4);
    list.SetImageDirection(1);
    list.SetDrawStyle(DUI::DRAW_STYLE_SQUARD);
    const CDUIImageList copy(list);
    EXPECT_EQ(copy.GetImageDirection(), 0);
    EXPECT_EQ(copy.GetItemCount(), 4);
    CDUIImageList assigned;
    assigned = list;
    EXPECT_EQ(assigned.GetImageDirection(), 1);
    EXPECT_EQ(assigned.GetItemCount(), 4);
    EXPECT_EQ(assigned.GetDrawStyle(), DUI::DRAW_STYLE_SQUARD);
}

namespace {

// The picture's three kinds, each drawn by an operation of its own.
struct Kind {
    const char* name;
    bool hasAlpha;
    COLORREF key;
    PixelAt pixelAt;
};
const Kind kKinds[] = {
    {"plain", false, CLR_INVALID, StepPixel},
    {"alpha", true, CLR_INVALID, TranslucentPixel},
    {"keyed", false, RGB(255, 0, 255), KeyedPixel},
};

constexpr std::uint32_t kBackground = 0x00101010;

// Point sampling of one axis: the centre when enlarging, ties to the left.
int Enlarged(int position, int from, int to)
{
    return ((2 * position + 1) * from + 2 * to - 1) / (2 * to) - 1;
}

std::uint32_t Drawn(const Kind& kind, std::uint32_t source, std::uint32_t destination)
{
    if (kind.key != CLR_INVALID)
        return source == 0xFF00FF ? destination & 0xFFFFFF : source;
    return kind.hasAlpha ? Blended(Premultiplied(source), destination, 255) : source;
}

// Draws one part on a model of the canvas. Only a plain copy draws inverted rectangles, mirrored.
void DrawModel(Canvas& model, const Kind& kind, const RECT& dest, const RECT& source)
{
    const SIZE extent{dest.right - dest.left, dest.bottom - dest.top};
    const bool isPlain = !kind.hasAlpha && kind.key == CLR_INVALID;
    if (!isPlain && (extent.cx < 0 || extent.cy < 0))
        return;
    const int w = std::abs(extent.cx);
    const int h = std::abs(extent.cy);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const int toX = dest.left + (extent.cx < 0 ? -x : x);
            const int toY = dest.top + (extent.cy < 0 ? -y : y);
            if (!Holds({0, 0, model.Width(), model.Height()}, toX, toY))
                continue;
            // The positive result is mirrored, ties and all.
            const int sx = Enlarged(x, source.right - source.left, w);
            const int sy = Enlarged(y, source.bottom - source.top, h);
            const std::uint32_t pixel = kind.pixelAt(source.left + sx, source.top + sy);
            model.Set(toX, toY, Drawn(kind, pixel, model.At(toX, toY)));
        }
}

// Where a rectangle is cut, and the places of a cell; beyond the last cell it is the last one.
struct Cuts {
    std::vector<int> x, y;

    RECT Cell(std::size_t column, std::size_t row) const
    {
        column = std::min(column, x.size() - 2);
        row = std::min(row, y.size() - 2);
        return {x[column], y[row], x[column + 1], y[row + 1]};
    }
};

// Every case draws the 8 x 8 picture on a canvas of 24 x 20.
struct StyleCase {
    const char* name;
    DUI::IMAGE_DRAW_STYLE style;
    SIZE corner;
    Cuts to, from;
    const char* order;  // column and row of each cell, in the order in which they are drawn
    RECT dest{1, 2, 20, 18};
};

const Cuts kWhole{{0, 8}, {0, 8}};
const Cuts kDest{{1, 20}, {2, 18}};
const char* const kNine = "00 20 10 02 22 01 21 12 11";

// clang-format off
const std::vector<StyleCase> kStyleCases{
    {"no style", DUI::DRAW_STYLE_NORMAL, {3, 3}, kDest, kWhole, "00"},
    {"stretch", DUI::DRAW_STYLE_STRETCH, {3, 3}, kDest, kWhole, "00"},
    {"columns without a corner", DUI::DRAW_STYLE_STRETCH_HORZ, {0, 0}, kDest, kWhole, "00"},
    {"columns with a height alone", DUI::DRAW_STYLE_STRETCH_HORZ, {0, 6}, kDest, kWhole, "00"},
    {"rows with a height alone", DUI::DRAW_STYLE_STRETCH_VERT, {0, 6}, kDest, kWhole, "00"},
    {"corner wider than half the icon", DUI::DRAW_STYLE_SQUARD, {5, 1}, kDest, kWhole, "00"},
    {"corner higher than half the icon", DUI::DRAW_STYLE_SQUARD, {1, 5}, kDest, kWhole, "00"},
    {"no corner", DUI::DRAW_STYLE_SQUARD, {0, 0}, kDest, kWhole, "00"},
    {"three columns", DUI::DRAW_STYLE_STRETCH_HORZ, {2, 3},
     {{1, 3, 18, 20}, {2, 18}}, {{0, 2, 6, 8}, {0, 8}}, "00 20 10"},
    {"columns narrower than the caps", DUI::DRAW_STYLE_STRETCH_HORZ, {3, 0},
     {{10, 13, 11, 14}, {2, 13}}, {{0, 3, 5, 8}, {0, 8}}, "00 20 10", {10, 2, 14, 13}},
    {"three rows of the corner's width", DUI::DRAW_STYLE_STRETCH_VERT, {2, 4},
     {{1, 20}, {2, 4, 16, 18}}, {{0, 8}, {0, 2, 6, 8}}, "00 02 01"},
    {"rows lower than the caps", DUI::DRAW_STYLE_STRETCH_VERT, {3, 0},
     {{1, 20}, {10, 13, 11, 14}}, {{0, 8}, {0, 3, 5, 8}}, "00 02 01", {1, 10, 20, 14}},
    {"nine parts", DUI::DRAW_STYLE_SQUARD, {2, 3},
     {{1, 3, 18, 20}, {2, 5, 15, 18}}, {{0, 2, 6, 8}, {0, 3, 5, 8}}, kNine},
    {"corners alone", DUI::DRAW_STYLE_SQUARD, {4, 4},
     {{2, 6, 6, 10}, {2, 6, 6, 10}}, {{0, 4, 4, 8}, {0, 4, 4, 8}}, kNine, {2, 2, 10, 10}},
    {"smaller than the corners", DUI::DRAW_STYLE_SQUARD, {3, 3},
     {{8, 11, 9, 12}, {8, 11, 9, 12}}, {{0, 3, 5, 8}, {0, 3, 5, 8}}, kNine, {8, 8, 12, 12}},
    {"one row of tiles", DUI::DRAW_STYLE_TILE, {3, 3},
     {{1, 9, 17, 25}, {3, 11}}, kWhole, "00 10 20", {1, 3, 18, 5}},
    {"tiles from far away", DUI::DRAW_STYLE_TILE, {0, 0},
     {{-8, 0, 8, 16, 24}, {1, 9}}, kWhole, "00 10 20 30", {-2147483640, 1, INT_MAX, 5}},
};
// clang-format on

// A strip of a kind's pixels, as tall as its icons.
std::shared_ptr<CDUIImageList> NewList(const Kind& kind, int width, int height, DWORD icons)
{
    auto list = std::make_shared<CDUIImageList>();
    const std::string path = WritePicture("list.png", width, height, kind.hasAlpha, kind.pixelAt);
    EXPECT_TRUE(list->CreateFromFile(path.c_str())) << kind.name;
    EXPECT_EQ(list->GetRawImage()->GetHasAlphaChannel() != 0, kind.hasAlpha);
    list->GetRawImage()->SetTransparentColor(kind.key);
    list->SetItemCount(icons);
    return list;
}

}  // namespace

TEST_F(ImageList, DrawsEveryStyleWithEveryOperation)
{
    const auto background = [](int, int) { return kBackground; };
    for (const Kind& kind : kKinds) {
        const auto list = NewList(kind, 8, 8, 1);
        for (const StyleCase& c : kStyleCases) {
            list->SetDrawStyle(c.style);
            list->SetCornerSize(c.corner.cx, c.corner.cy);
            const Canvas canvas(24, 20, background);
            SetStretchBltMode(canvas, COLORONCOLOR);
            list->DrawImage(canvas, c.dest, 0);
            Canvas model(24, 20, background);
            for (const char* cell = c.order; *cell; cell += cell[2] ? 3 : 2) {
                const auto column = static_cast<std::size_t>(cell[0] - '0');
                const auto row = static_cast<std::size_t>(cell[1] - '0');
                DrawModel(model, kind, c.to.Cell(column, row), c.from.Cell(column, row));
            }
            canvas.Expect([&model](int x, int y) { return model.At(x, y); },
                          kind.name + (", " + std::string(c.name)), kColourBits);
        }
    }
}

TEST_F(ImageList, DrawsOneIconAndNothingIntoEmptyRectangles)
{
    const auto list = NewList(kKinds[0], 8, 4, 2);
    const Canvas canvas(4, 4);
    for (const RECT& rect : {RECT{1, 1, 1, 3}, RECT{3, 3, 1, 1}, RECT{0, 3, 4, 1}})
        list->DrawImage(canvas, rect, 0);
    EXPECT_EQ(canvas.Picture(), "....\n....\n....\n....\n");
    list->DrawImage(canvas, {0, 0, 4, 4}, 1);
    canvas.Expect([](int x, int y) { return StepPixel(4 + x, y); }, "an icon", kColourBits);
    SetStretchBltMode(canvas, COLORONCOLOR);
    list->DrawImage(canvas, RECT{0, 0, 4, 4});
    canvas.Expect([](int x, int y) { return StepPixel(2 * x + 1, y); }, "the whole picture", kColourBits);
}

TEST_F(ImageList, SurvivesCornersAndPlacesFromBrokenSkins)
{
    for (const Kind& kind : kKinds) {
        const auto list = NewList(kind, 8, 8, 1);
        const Canvas canvas(4, 4);
        SetStretchBltMode(canvas, COLORONCOLOR);
        for (int style = 0; style <= DUI::DRAW_STYLE_TILE + 1; ++style)
            for (const SIZE& corner : {SIZE{-3, -3}, SIZE{30000, 30000}, SIZE{-30000, 1}})
                for (const RECT& rect : {RECT{0, 0, 4, 4}, RECT{-20000, -20000, 20000, 20000}}) {
                    list->SetDrawStyle(static_cast<DUI::IMAGE_DRAW_STYLE>(style));
                    list->SetCornerSize(corner.cx, corner.cy);
                    list->DrawImage(canvas, rect, 0);
                }
    }
}

TEST_F(ImageList, GivesOneIconAsABitmapAndTheFirstOnesShape)
{
    CDUIImageList none;
    EXPECT_EQ(none.GetIconBitmap(nullptr, 0), nullptr);
    EXPECT_EQ(none.GetIconRgn(), nullptr);
    for (const Kind& kind : kKinds) {
        const auto list = NewList(kind, 8, 4, 2);
        for (const int index : {-1, 2, INT_MAX})
            EXPECT_EQ(list->GetIconBitmap(nullptr, index), nullptr) << index;
        const Scoped bitmap(list->GetIconBitmap(nullptr, 1));
        DUI::CDibSection section;
        ASSERT_TRUE(section.Create(bitmap, 32));
        const Canvas canvas(4, 4, [&](int x, int y) { return Bits(section.GetPixel(x, y, TRUE)); });
        canvas.Expect([&kind](int x, int y) { return Drawn(kind, kind.pixelAt(4 + x, y), 0); }, kind.name,
                      kColourBits);
    }
    const Kind shape{"shape", false, CLR_INVALID,
                     [](int x, int y) { return x == y || x >= 4 ? 0xFF00FFU : StepPixel(x, y); }};
    const Scoped region(NewList(shape, 8, 4, 2)->GetIconRgn());
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 8; ++x)
            EXPECT_EQ(PtInRegion(region, x, y) != 0, x != y && x < 4) << x << "," << y;
}
