#include <qvui/render/dib_section.h>

#include "render/render_test.h"
#include "support/screenshot.h"

using DUI::CARGB;
using DUI::CDibSection;
using DUI::CRefPtr;

namespace {

std::uint32_t MarkedPixel(int x, int y)
{
    return PlacePixel(x, y) | static_cast<std::uint32_t>(x + y + 1) << 24;
}

void Paint(CDibSection& section)
{
    for (int y = 0; y < section.GetDibHeader()->biHeight; ++y)
        for (int x = 0; x < section.GetDibHeader()->biWidth; ++x)
            section.SetPixel(x, y, Argb(MarkedPixel(x, y)), TRUE);
}

}  // namespace

using DibSection = RenderTest;

TEST_F(DibSection, CreatesPaddedRowsOrNothing)
{
    struct Case {
        DWORD width, height;
        WORD bitCount;
        bool isCreated;
        DWORD lineWidth;
    };
    const std::vector<Case> cases{
        {3, 1, 24, true, 12},          {4, 5, 24, true, 12},
        {5, 2, 24, true, 16},          {5, 2, 32, true, 20},
        {1, 1, 32, true, 4},           {10, 0, 32, false, 0},
        {0, 10, 32, false, 0},         {0xFFFFFFFF, 1, 32, false, 0},
        {1, 0x80000000, 32, false, 0}, {0x10000, 0x10000, 32, false, 0},
    };
    for (const Case& c : cases) {
        CDibSection section;
        section.Create(2, 2, 32);
        EXPECT_EQ(section.Create(c.width, c.height, c.bitCount), c.isCreated) << c.width << " x " << c.height;
        EXPECT_EQ(section.IsNull(), !c.isCreated);
        if (!c.isCreated)
            continue;
        const BITMAPINFOHEADER& header = *section.GetDibHeader();
        EXPECT_EQ(section.GetLineWidth(), c.lineWidth);
        EXPECT_EQ(header.biSize, 40U);
        EXPECT_EQ(header.biWidth, static_cast<LONG>(c.width));
        EXPECT_EQ(header.biHeight, static_cast<LONG>(c.height));
        EXPECT_EQ(header.biPlanes, 1);
        EXPECT_EQ(header.biBitCount, c.bitCount);
        EXPECT_EQ(header.biCompression, static_cast<DWORD>(BI_RGB));
        EXPECT_EQ(header.biSizeImage, c.lineWidth * c.height);
        EXPECT_EQ(section.GetPixelWidth(), c.bitCount / 8);
    }
}

TEST_F(DibSection, CountsRowsFromEitherEnd)
{
    for (const WORD bitCount : {WORD{24}, WORD{32}}) {
        CDibSection section;
        ASSERT_TRUE(section.Create(3, 4, bitCount));
        Paint(section);
        for (int y = 0; y < 4; ++y)
            for (int x = 0; x < 3; ++x) {
                const std::uint32_t expected = MarkedPixel(x, y) & (bitCount == 32 ? 0xFFFFFFFF : 0x00FFFFFF);
                EXPECT_EQ(Bits(section.GetPixel(x, y, TRUE)), expected) << bitCount;
                EXPECT_EQ(Bits(section.GetPixel(x, 3 - y, FALSE)), expected) << bitCount;
            }
        EXPECT_EQ(section.GetBits()[1], 4) << "the bottom row is stored first";
    }
}

TEST_F(DibSection, CopiesOwnTheirPixels)
{
    CDibSection section;
    section.Create(3, 2, 24);
    Paint(section);
    const CDibSection copy(section);
    CDibSection assigned;
    assigned.Create(9, 9, 32);
    assigned = section;
    const CRefPtr<CDibSection> clone(section.Clone());
    section.SetPixel(1, 1, CARGB(), TRUE);
    for (const CDibSection* each : {&copy, static_cast<const CDibSection*>(&assigned),
                                    static_cast<const CDibSection*>(clone.GetPtr())}) {
        EXPECT_EQ(each->GetBitCount(), 24);
        EXPECT_EQ(Bits(each->GetPixel(1, 1, TRUE)), MarkedPixel(1, 1) & 0xFFFFFF);
    }

    EXPECT_TRUE(section.CopyTo(&section));
    EXPECT_FALSE(section.IsNull());
    EXPECT_FALSE(CDibSection().CopyTo(&assigned));
    EXPECT_TRUE(assigned.IsNull()) << "a copy of nothing is nothing";
    const CRefPtr<CDibSection> fresh(section.NewObject());
    EXPECT_TRUE(fresh->IsNull());
}

TEST_F(DibSection, HandsItsBitmapOver)
{
    CDibSection from;
    from.Create(3, 2, 32);
    Paint(from);
    CDibSection to;
    to.Create(1, 1, 24);
    EXPECT_FALSE(from.Transfer(&from));
    EXPECT_TRUE(to.Transfer(&from));
    EXPECT_TRUE(from.IsNull());
    EXPECT_EQ(from.GetLineWidth(), 0U);
    EXPECT_EQ(to.GetLineWidth(), 12U);
    EXPECT_EQ(Bits(to.GetPixel(2, 1, TRUE)), MarkedPixel(2, 1));

    const HBITMAP bitmap = to.Detach();
    EXPECT_TRUE(to.IsNull());
    to.Reset();
    EXPECT_EQ(to.GetDibHeader()->biSize, 0U);
    BITMAP description{};
    EXPECT_NE(GetObjectA(bitmap, sizeof description, &description), 0) << "it is the caller's now";
    EXPECT_EQ(description.bmWidth, 3);
    EXPECT_TRUE(DeleteObject(bitmap));
}

TEST_F(DibSection, TakesPixelsFromAnyBitmap)
{
    struct Case {
        WORD asked, given;
    };
    const Canvas canvas(3, 2, MarkedPixel);
    for (const Case& c : {Case{1, 24}, Case{23, 24}, Case{24, 32}, Case{32, 32}}) {
        CDibSection section;
        ASSERT_TRUE(section.Create(canvas.Bitmap(), c.asked)) << c.asked;
        EXPECT_EQ(section.GetBitCount(), c.given) << c.asked;
        for (int y = 0; y < 2; ++y)
            for (int x = 0; x < 3; ++x)
                EXPECT_EQ(Bits(section.GetPixel(x, y, TRUE)) & 0xFFFFFF, MarkedPixel(x, y) & 0xFFFFFF)
                    << c.asked;
    }
    CDibSection section;
    section.Create(2, 2, 32);
    EXPECT_FALSE(section.Create(nullptr, 32));
    EXPECT_TRUE(section.IsNull());
}

TEST_F(DibSection, DrawsCopiesAndScales)
{
    CDibSection section;
    section.Create(2, 2, 32);
    Paint(section);
    Canvas canvas(7, 6);
    EXPECT_TRUE(section.Draw(canvas, 1, 1));
    EXPECT_EQ(canvas.Picture(), ".......\n.##....\n.##....\n.......\n.......\n.......\n");
    EXPECT_EQ(canvas.At(2, 2), MarkedPixel(1, 1));

    EXPECT_TRUE(section.Stretch(canvas, {1, 1, 5, 5}));
    EXPECT_EQ(GetStretchBltMode(canvas), COLORONCOLOR);
    canvas.Expect([](int x, int y) {
        return Holds({1, 1, 5, 5}, x, y) ? MarkedPixel((x - 1) / 2, (y - 1) / 2) : 0;
    });
}

TEST_F(DibSection, BlendsByItsOwnAlphaOrAConstant)
{
    constexpr std::uint32_t kBackground = 0x40302010;
    constexpr std::uint32_t kPixel = 0x80503010;
    CDibSection section;
    section.Create(1, 1, 32);
    section.SetPixel(0, 0, Argb(kPixel), TRUE);
    Canvas canvas(3, 1);
    canvas.Fill(kBackground);
    EXPECT_TRUE(section.AlphaBlend(canvas, {0, 0, 1, 1}, TRUE, 255));
    EXPECT_TRUE(section.AlphaBlend(canvas, {1, 0, 2, 1}, TRUE, 100));
    EXPECT_TRUE(section.AlphaBlend(canvas, {2, 0, 3, 1}, FALSE, 100));
    EXPECT_EQ(canvas.At(0, 0), Blended(kPixel, kBackground, 255));
    EXPECT_EQ(canvas.At(1, 0), Blended(kPixel, kBackground, 100));
    std::uint32_t constant = 0;
    for (int channel = 0; channel < 4; ++channel)
        constant |= Over255(Channel(kPixel, channel) * 100 + Channel(kBackground, channel) * 155)
                    << (8 * channel);
    EXPECT_EQ(canvas.At(2, 0), constant);
}

TEST_F(DibSection, LeavesTheKeyColourOut)
{
    CDibSection section;
    section.Create(2, 1, 32);
    section.SetPixel(0, 0, Argb(0x00FF00FF), TRUE);
    section.SetPixel(1, 0, Argb(0x00123456), TRUE);
    Canvas canvas(4, 1);
    canvas.Fill(0x00777777);
    EXPECT_TRUE(section.TransparentBlt(canvas, {0, 0, 4, 1}, RGB(255, 0, 255)));
    EXPECT_EQ(canvas.Pixels(), (std::vector<std::uint32_t>{0x777777, 0x777777, 0x123456, 0x123456}));
}

TEST_F(DibSection, DrawsNothingWhenEmptyOrWithoutAContext)
{
    CDibSection empty;
    Canvas canvas(2, 2);
    const RECT rect{0, 0, 2, 2};
    EXPECT_FALSE(empty.Draw(canvas, 0, 0) || empty.Stretch(canvas, rect) ||
                 empty.AlphaBlend(canvas, rect, 1, 255) || empty.TransparentBlt(canvas, rect, 0));
    CDibSection section;
    section.Create(1, 1, 32);
    section.SetPixel(0, 0, Argb(0xFFFFFFFF), TRUE);
    EXPECT_FALSE(section.Draw(nullptr, 0, 0) || section.Stretch(nullptr, rect) ||
                 section.AlphaBlend(nullptr, rect, 1, 255) || section.TransparentBlt(nullptr, rect, 0));
    EXPECT_EQ(canvas.Picture(), "..\n..\n");
}

TEST_F(DibSection, SavesABitmapFile)
{
    const std::string path = qvui::test::OutputPath("section.bmp");
    CDibSection large;
    large.Create(9, 9, 24);
    EXPECT_TRUE(large.SaveAsBmpFile(path.c_str()));
    EXPECT_EQ(FileBytes(path).size(), 58U + 28 * 9);

    CDibSection section;
    section.Create(2, 2, 32);
    for (int i = 0; i < 4; ++i)
        section.SetPixel(i % 2, i / 2,
                         CARGB(static_cast<BYTE>(3 + 16 * i), static_cast<BYTE>(2 + 16 * i),
                               static_cast<BYTE>(1 + 16 * i), static_cast<BYTE>(4 + 16 * i)),
                         FALSE);
    EXPECT_TRUE(section.SaveAsBmpFile(path.c_str())) << "over the larger file";
    const std::vector<unsigned char> expected{
        'B',  'M',  74,   0,    0,    0,    0,    0,    0, 0, 58, 0, 0, 0,         // file header
        40,   0,    0,    0,    2,    0,    0,    0,    2, 0, 0,  0, 1, 0, 32, 0,  // header
        0,    0,    0,    0,    16,   0,    0,    0,    0, 0, 0,  0, 0, 0, 0,  0,  //
        0,    0,    0,    0,    0,    0,    0,    0,                               //
        0,    0,    0,    0,                                                       // colour entry
        0x01, 0x02, 0x03, 0x04, 0x11, 0x12, 0x13, 0x14,                            // bottom row
        0x21, 0x22, 0x23, 0x24, 0x31, 0x32, 0x33, 0x34};
    EXPECT_EQ(FileBytes(path), expected);

    EXPECT_FALSE(section.SaveAsBmpFile(qvui::test::OutputPath("no/such/folder.bmp").c_str()));
    EXPECT_FALSE(CDibSection().SaveAsBmpFile(path.c_str()));
}
