#include <qvui/render/dib_section.h>

#include <cstring>

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

// Fails with the first pixel of a section that is not marked, in the bits of the mask.
void ExpectMarked(const CDibSection& section, const std::string& name, std::uint32_t mask = 0xFFFFFFFF)
{
    const BITMAPINFOHEADER& header = *section.GetDibHeader();
    const Canvas canvas(header.biWidth, header.biHeight,
                        [&](int x, int y) { return Bits(section.GetPixel(x, y, TRUE)); });
    canvas.Expect([mask](int x, int y) { return MarkedPixel(x, y) & mask; }, name, mask);
}

}  // namespace

using DibSection = RenderTest;

TEST_F(DibSection, CreatesPaddedRowsOrNothing)
{
    const Table<DWORD, DWORD, WORD, DWORD> cases{
        {3, 1, 24, 12},         {5, 2, 24, 16},         {5, 2, 32, 20},
        {1, 1, 32, 4},          {10, 0, 32, 0},         {0, 10, 32, 0},
        {0xFFFFFFFF, 1, 32, 0}, {1, 0x80000000, 32, 0}, {0x10000, 0x10000, 32, 0},
    };
    for (const auto& [width, height, bitCount, lineWidth] : cases) {
        CDibSection section;
        section.Create(2, 2, 32);
        EXPECT_EQ(section.Create(width, height, bitCount), lineWidth != 0) << width << " x " << height;
        EXPECT_EQ(section.IsNull(), lineWidth == 0);
        if (lineWidth == 0)
            continue;
        EXPECT_EQ(section.GetLineWidth(), lineWidth);
        const BITMAPINFOHEADER expected{40,
                                        static_cast<LONG>(width),
                                        static_cast<LONG>(height),
                                        1,
                                        bitCount,
                                        BI_RGB,
                                        lineWidth * height,
                                        0,
                                        0,
                                        0,
                                        0};
        EXPECT_EQ(std::memcmp(section.GetDibHeader(), &expected, sizeof expected), 0) << width;
    }
}

TEST_F(DibSection, CountsRowsFromEitherEnd)
{
    for (const WORD bitCount : {WORD{24}, WORD{32}}) {
        Section section(3, 4, MarkedPixel, bitCount);
        ExpectMarked(section, "from the top", bitCount == 32 ? 0xFFFFFFFF : kColourBits);
        EXPECT_EQ(Bits(section.GetPixel(2, 1, FALSE)), Bits(section.GetPixel(2, 2, TRUE)));
        EXPECT_EQ(section.GetBits()[1], 4) << "the bottom row is stored first";
    }
}

TEST_F(DibSection, CopiesOwnTheirPixels)
{
    Section section(3, 2, MarkedPixel, 24);
    const CDibSection copy(section);
    CDibSection assigned;
    assigned.Create(9, 9, 32);
    assigned = section;
    const CRefPtr<CDibSection> clone(section.Clone());
    section.SetPixel(1, 1, CARGB(), TRUE);
    for (const CDibSection* each :
         std::initializer_list<const CDibSection*>{&copy, &assigned, clone.GetPtr()}) {
        EXPECT_EQ(each->GetBitCount(), 24);
        ExpectMarked(*each, "copy", kColourBits);
    }
    EXPECT_TRUE(section.CopyTo(&section));
    EXPECT_FALSE(section.IsNull());
    EXPECT_FALSE(CDibSection().CopyTo(&assigned));
    EXPECT_TRUE(assigned.IsNull()) << "a copy of nothing is nothing";
    EXPECT_TRUE(CRefPtr<CDibSection>(section.NewObject())->IsNull());
}

TEST_F(DibSection, HandsItsBitmapOver)
{
    Section from(3, 2, MarkedPixel);
    CDibSection to;
    to.Create(1, 1, 24);
    EXPECT_FALSE(from.Transfer(&from));
    EXPECT_TRUE(to.Transfer(&from));
    EXPECT_TRUE(from.IsNull());
    EXPECT_EQ(from.GetLineWidth(), 0U);
    EXPECT_EQ(to.GetLineWidth(), 12U);
    ExpectMarked(to, "transferred");

    const HBITMAP bitmap = to.Detach();
    EXPECT_TRUE(to.IsNull());
    to.Reset();
    EXPECT_EQ(to.GetDibHeader()->biSize, 0U);
    BITMAP description{};
    EXPECT_NE(GetObjectA(bitmap, sizeof description, &description), 0) << "it is the caller's now";
    EXPECT_TRUE(DeleteObject(bitmap));
}

TEST_F(DibSection, TakesPixelsFromAnyBitmap)
{
    const Canvas canvas(3, 2, MarkedPixel);
    CDibSection section;
    const Table<WORD, WORD> bitCounts{{1, 24}, {23, 24}, {24, 32}, {32, 32}};
    for (const auto& [asked, given] : bitCounts) {
        ASSERT_TRUE(section.Create(canvas.Bitmap(), asked)) << asked;
        EXPECT_EQ(section.GetBitCount(), given) << asked;
        ExpectMarked(section, std::to_string(asked), kColourBits);
    }
    EXPECT_FALSE(section.Create(nullptr, 32));
    EXPECT_TRUE(section.IsNull());
}

TEST_F(DibSection, DrawsCopiesAndScales)
{
    Section section(2, 2, MarkedPixel);
    const Canvas canvas(7, 6);
    EXPECT_TRUE(section.Draw(canvas, 1, 1));
    canvas.Expect([](int x, int y) { return Holds({1, 1, 3, 3}, x, y) ? MarkedPixel(x - 1, y - 1) : 0; });
    EXPECT_TRUE(section.Stretch(canvas, {1, 1, 5, 5}));
    EXPECT_EQ(GetStretchBltMode(canvas), COLORONCOLOR);
    canvas.Expect([](int x, int y) {
        return Holds({1, 1, 5, 5}, x, y) ? MarkedPixel((x - 1) / 2, (y - 1) / 2) : 0;
    });
    CDibSection empty;
    const RECT rect{0, 0, 2, 2};
    EXPECT_FALSE(empty.Draw(canvas, 0, 0) || empty.Stretch(canvas, rect) ||
                 empty.AlphaBlend(canvas, rect, 1, 255) || empty.TransparentBlt(canvas, rect, 0) ||
                 section.Draw(nullptr, 0, 0) || section.Stretch(nullptr, rect) ||
                 section.AlphaBlend(nullptr, rect, 1, 255) || section.TransparentBlt(nullptr, rect, 0));
}

TEST_F(DibSection, BlendsOrLeavesTheKeyColourOut)
{
    constexpr std::uint32_t kBackground = 0x40302010;
    constexpr std::uint32_t kPixel = 0x80503010;
    Section section(1, 1, [](int, int) { return kPixel; });
    Canvas canvas(3, 1, [](int, int) { return kBackground; });
    EXPECT_TRUE(section.AlphaBlend(canvas, {0, 0, 1, 1}, TRUE, 255));
    EXPECT_TRUE(section.AlphaBlend(canvas, {1, 0, 2, 1}, TRUE, 100));
    EXPECT_TRUE(section.AlphaBlend(canvas, {2, 0, 3, 1}, FALSE, 100));
    std::uint32_t constant = 0;
    for (int channel = 0; channel < 4; ++channel)
        constant |= Over255(Channel(kPixel, channel) * 100 + Channel(kBackground, channel) * 155)
                    << (8 * channel);
    EXPECT_EQ(canvas.Pixels(),
              (std::vector{Blended(kPixel, kBackground, 255), Blended(kPixel, kBackground, 100), constant}));

    Section keyed(2, 1, [](int x, int) { return x ? 0x123456U : 0xFF00FFU; });
    Canvas row(4, 1, [](int, int) { return 0x777777; });
    EXPECT_TRUE(keyed.TransparentBlt(row, {0, 0, 4, 1}, RGB(255, 0, 255)));
    EXPECT_EQ(row.Pixels(), (std::vector<std::uint32_t>{0x777777, 0x777777, 0x123456, 0x123456}));
}

TEST_F(DibSection, SavesABitmapFile)
{
    const std::string path = qvui::test::OutputPath("section.bmp");
    EXPECT_TRUE(Section(9, 9, MarkedPixel, 24).SaveAsBmpFile(path.c_str()));
    EXPECT_EQ(FileBytes(path).size(), 58U + 28 * 9);

    Section section(2, 2, [](int x, int y) { return 0x04010203U + 0x10101010U * (2U - 2U * y + x); });
    EXPECT_TRUE(section.SaveAsBmpFile(path.c_str())) << "over the larger file";
    const std::vector<unsigned char> expected{
        'B',  'M',  74,   0,    0,    0,    0,    0,    0, 0, 58, 0, 0, 0,         // file header
        40,   0,    0,    0,    2,    0,    0,    0,    2, 0, 0,  0, 1, 0, 32, 0,  // header
        0,    0,    0,    0,    16,   0,    0,    0,    0, 0, 0,  0, 0, 0, 0,  0,  //
        0,    0,    0,    0,    0,    0,    0,    0,                               //
        0,    0,    0,    0,                                                       // colour entry
        0x03, 0x02, 0x01, 0x04, 0x13, 0x12, 0x11, 0x14,                            // bottom row
        0x23, 0x22, 0x21, 0x24, 0x33, 0x32, 0x31, 0x34};
    EXPECT_EQ(FileBytes(path), expected);
    EXPECT_FALSE(section.SaveAsBmpFile(qvui::test::OutputPath("no/such/folder.bmp").c_str()));
    EXPECT_FALSE(CDibSection().SaveAsBmpFile(path.c_str()));
}
