#include <qvui/render/filters/image_filter.h>

#include <climits>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string>

#include "render/filters/filter_reference.h"
#include "render/render_test.h"

using namespace DUI;

namespace {

using Operation = std::function<int(CDibSection* section)>;

// An operation of a filter with the arguments that stand behind the section.
template <class... Parameters, class... Arguments>
Operation With(int (*process)(CDibSection*, Parameters...), Arguments... arguments)
{
    return [=](CDibSection* section) { return process(section, static_cast<Parameters>(arguments)...); };
}

constexpr SIZE kSizes[] = {{1, 1}, {1, 6}, {6, 1},  {2, 2},   {2, 7},  {7, 2},
                           {3, 3}, {5, 5}, {17, 9}, {33, 31}, {67, 70}};

using Reference = std::function<Model(const Model& source)>;

std::string FirstDifference(const Model& actual, const Model& expected)
{
    if (actual.Width() != expected.Width() || actual.Height() != expected.Height())
        return "another size";
    for (int y = 0; y < expected.Height(); ++y)
        for (int x = 0; x < expected.Width(); ++x)
            if (actual.At(x, y) != expected.At(x, y))
                return testing::PrintToString(actual.At(x, y)) + " instead of " +
                       testing::PrintToString(expected.At(x, y)) + " at " + qvui::test::Text(POINT{x, y});
    return "another depth";
}

// Compares an operation with its reference on random pictures of all sizes and both depths.
void ExpectSame(const std::string& name, const Operation& operation, const Reference& reference)
{
    std::mt19937 random(12345);
    for (const int bitCount : {24, 32})
        for (const SIZE& size : kSizes) {
            Model source(size.cx, size.cy, bitCount);
            source.Randomise(random);
            CDibSection section;
            source.Store(section);
            EXPECT_TRUE(operation(&section)) << name;
            const Model expected = reference(source);
            const Model actual(section);
            ASSERT_TRUE(actual == expected) << name << ", " << size.cx << " x " << size.cy << ", " << bitCount
                                            << " bits: " << FirstDifference(actual, expected);
        }
}

using ChangePixel = std::function<void(Model::Channels& pixel, int x, int y)>;

Reference EveryPixel(const ChangePixel& change)
{
    return [change](const Model& source) {
        Model result = source;
        for (int y = 0; y < source.Height(); ++y)
            for (int x = 0; x < source.Width(); ++x) {
                change(result.At(x, y), x, y);
                if (source.BitCount() == 24)
                    result.At(x, y)[3] = 0;
            }
        return result;
    };
}

Reference EveryColorByte(const std::function<int(int value)>& change)
{
    return EveryPixel([change](Model::Channels& pixel, int, int) {
        for (std::size_t channel = 0; channel < 3; ++channel)
            pixel[channel] = change(pixel[channel]);
    });
}

// The rectangles that limit an operation, and "none".
// clang-format off
const std::optional<RECT> kParts[] = {
    std::nullopt, RECT{0, 0, 3, 2}, RECT{1, 1, 5, 4}, RECT{2, 0, 900, 900}, RECT{0, 3, INT_MAX, INT_MAX},
    RECT{-4, -2, 3, 3}, RECT{2, 2, 2, 9}, RECT{5, 5, 1, 1}, RECT{50, 0, 60, 9},
    RECT{INT_MIN, INT_MIN, 0, 0}};
// clang-format on

using LimitedOperation = std::function<int(CDibSection* section, RECT* rect)>;

// As ExpectSame, limited to each of the parts, whose right and bottom must be lowered to the picture's.
void ExpectSameInParts(const std::string& name, const LimitedOperation& operation, const ChangePixel& change)
{
    for (const std::optional<RECT>& part : kParts)
        ExpectSame(
            name + (part ? " in " + RectText(*part) : ""),
            [&](CDibSection* section) {
                RECT rect = part.value_or(RECT{});
                const int result = operation(section, part ? &rect : nullptr);
                if (part) {
                    const BITMAPINFOHEADER& header = *section->GetDibHeader();
                    EXPECT_EQ(RectText(rect),
                              RectText({part->left, part->top, std::min(part->right, header.biWidth),
                                        std::min(part->bottom, header.biHeight)}));
                }
                return result;
            },
            EveryPixel([&](Model::Channels& pixel, int x, int y) {
                if (!part || Holds(*part, x, y))
                    change(pixel, x, y);
            }));
}

int MeanOf(const Model::Channels& pixel)
{
    return (pixel[0] + pixel[1] + pixel[2]) / 3;
}

void SetTone(Model::Channels& pixel, int tone)
{
    pixel[0] = pixel[1] = pixel[2] = tone;
}

}  // namespace

using Convolution = RenderTest;

TEST_F(Convolution, BuiltInKernelsFollowTheirWeights)
{
    using Shortcut = int (*)(CDibSection*);
    // clang-format off
    const Table<const char*, Convolute_Type, Shortcut, KernelModel> cases{
        {"smooth", CONVOLUTE_SMOOTH, nullptr,
         {{{1, 1, 1}, {1, 1, 1}, {1, 1, 1}}, 9, 0, false}},
        {"Gaussian", CONVOLUTE_GUASIAN_SMOOTH, CGaussImageFilter::Process,
         {{{0, 1, 0}, {1, 4, 1}, {0, 1, 0}}, 8, 0, false}},
        {"sharpening", CONVOLUTE_SHARPENING, CSharpenImageFilter::Process,
         {{{0, -1, 0}, {-1, 9, -1}, {0, -1, 0}}, 5, 0, true}},
        {"Laplacian", CONVOLUTE_LAPLASIAN, CEdgeImageFilter::Process,
         {{{-1, -1, -1}, {-1, 8, -1}, {-1, -1, -1}}, 1, 128, true}},
        {"emboss 135", CONVOLUTE_EMBOSS_135, CEmbossImageFilter::Process,
         {{{1, 0, 0}, {0, 0, 0}, {0, 0, -1}}, 1, 128, true}},
        {"emboss 90", CONVOLUTE_EMBOSS_90, nullptr,
         {{{0, 1, 0}, {0, 0, 0}, {0, -1, 0}}, 2, 128, true}},
    };
    // clang-format on
    for (const auto& [name, type, shortcut, kernel] : cases)
        for (const bool isShort : {false, true})
            ExpectSame(
                name,
                [=, kind = type, process = shortcut](CDibSection* section) {
                    const int result =
                        isShort && process ? process(section) : CConvoluteFilter::Process(section, kind);
                    // A picture too low for the kernel is no success.
                    EXPECT_EQ(result, section->GetDibHeader()->biHeight >= 3 ? TRUE : FALSE);
                    return TRUE;
                },
                [weights = kernel](const Model& source) { return Convoluted(source, weights); });
}

namespace {

const char* szOdd = "Odd";

// Weights whose sums wrap without a clamp, and leave 16 bits.
using OddKernel = CDib33Filter<3, -7, 11, 200, -900, 40, 5, 6, 77, 7, -3, 0, &szOdd>;

// Counts the calls that an application's kernel gets.
struct CountingKernel : CDibFilter {
    explicit CountingKernel(int half) : CDibFilter(half) {}
    unsigned char Kernel(unsigned char* src, int pixelSize, int lineWidth) override
    {
        ++calls;
        const int reach = GetHalf();
        return static_cast<unsigned char>(src[-reach * lineWidth - reach * pixelSize] ^
                                          src[reach * lineWidth + reach * pixelSize]);
    }
    int calls = 0;
};

// Reads the lowest row that is filtered, wherever it stands itself.
struct FarKernel : CDibFilter {
    explicit FarKernel(const CDibSection& section) : bits(section.GetBits()) {}
    unsigned char Kernel(unsigned char* src, int, int lineWidth) override
    {
        return static_cast<unsigned char>(255 - bits[lineWidth + (src - bits) % lineWidth]);
    }
    const BYTE* bits;
};

}  // namespace

TEST_F(Convolution, ApplicationsBringTheirKernels)
{
    OddKernel odd;
    EXPECT_STREQ(OddKernel::GetName(), "Odd");
    const KernelModel oddModel{{{3, -7, 11}, {200, -900, 40}, {5, 6, 77}}, 7, -3, false};
    ExpectSame(
        "odd",
        [&odd](CDibSection* section) {
            CConvoluteFilter::Process(section, &odd);
            return TRUE;
        },
        [&oddModel](const Model& source) { return Convoluted(source, oddModel); });

    ExpectSame(
        "far",
        [](CDibSection* section) {
            FarKernel kernel(*section);
            CConvoluteFilter::Process(section, &kernel);
            return TRUE;
        },
        [](const Model& source) {
            Model result = source;
            for (int y = 1; y < source.Height() - 1; ++y)
                for (int x = 1; x < source.Width() - 1; ++x)
                    for (std::size_t channel = 0; channel < 3; ++channel)
                        result.At(x, y)[channel] = 255 - source.At(x, source.Height() - 2)[channel];
            return result;
        });

    for (const int half : {0, 1, 2, 5, 40, INT_MAX, -3}) {
        CountingKernel kernel(half);
        const int reach = std::max(half, 0);
        EXPECT_EQ(kernel.GetHalf(), reach);
        ExpectSame(
            "half " + std::to_string(half),
            [&](CDibSection* section) {
                kernel.calls = 0;
                const long long width = section->GetDibHeader()->biWidth - 2LL * reach;
                const long long height = section->GetDibHeader()->biHeight - 2LL * reach;
                EXPECT_EQ(CConvoluteFilter::Process(section, &kernel), height > 0 ? TRUE : FALSE);
                EXPECT_EQ(kernel.calls, width > 0 && height > 0 ? 3 * width * height : 0);
                return TRUE;
            },
            [reach](const Model& source) {
                Model result = source;
                for (int y = reach; y < source.Height() - static_cast<long long>(reach); ++y)
                    for (int x = reach; x < source.Width() - static_cast<long long>(reach); ++x)
                        for (std::size_t channel = 0; channel < 3; ++channel)
                            result.At(x, y)[channel] = source.At(x - reach, y + reach)[channel] ^
                                                       source.At(x + reach, y - reach)[channel];
                return result;
            });
    }
}

using PointFilter = RenderTest;

TEST_F(PointFilter, ChangesPartsByItsFormula)
{
    const CARGB color(10, 20, 30, 40);
    static constexpr Model::Channels kPixel{30, 20, 10, 40};
    ExpectSameInParts(
        "fill", [&](CDibSection* s, RECT* rect) { return CFillIColorFilter::Process(s, color, rect); },
        [](Model::Channels& pixel, int, int) { pixel = kPixel; });
    for (const unsigned long spacing : {1UL, 2UL, 3UL, 8UL, 100UL, ULONG_MAX})
        ExpectSameInParts(
            "dots " + std::to_string(spacing),
            [&](CDibSection* s, RECT* rect) {
                return CStrippleImageFilter::Process(s, color, spacing, rect);
            },
            [spacing](Model::Channels& pixel, int x, int y) {
                if (static_cast<unsigned long>(x) % spacing == 0 &&
                    static_cast<unsigned long>(y) % spacing == 0)
                    pixel = kPixel;
            });
    ExpectSameInParts("grey", CGrayScaleImageFilter::Process,
                      [](Model::Channels& pixel, int, int) { SetTone(pixel, MeanOf(pixel)); });
    for (const BYTE threshold : std::initializer_list<BYTE>{0, 1, 127, 254, 255})
        ExpectSameInParts(
            "threshold " + std::to_string(threshold),
            [threshold](CDibSection* s, RECT* rect) {
                return CWhiteBlackImageFilter::Process(s, rect, threshold);
            },
            [threshold](Model::Channels& pixel, int, int) {
                SetTone(pixel, MeanOf(pixel) > threshold ? 255 : 0);
            });
    ExpectSameInParts(
        "brightness", [](CDibSection* s, RECT* rect) { return CBrightenImageFilter::Process(s, 50, rect); },
        [](Model::Channels& pixel, int, int) {
            for (std::size_t channel = 0; channel < 3; ++channel)
                pixel[channel] = std::min(pixel[channel] * 150 / 100, 255);
        });
}

namespace {

// Compares an operation on every byte value in each colour channel.
void ExpectForAllBytes(const std::string& name, const Operation& operation,
                       const std::function<int(int)>& change)
{
    for (const int bitCount : {24, 32}) {
        Model source(256, 1, bitCount);
        for (int value = 0; value < 256; ++value)
            source.At(value, 0) = {value, 255 - value, (value * 7) % 256, bitCount == 32 ? value : 0};
        CDibSection section;
        source.Store(section);
        ASSERT_TRUE(operation(&section)) << name;
        ASSERT_EQ(Model(section), EveryColorByte(change)(source)) << name << ", " << bitCount << " bits";
    }
}

}  // namespace

TEST_F(PointFilter, IsExactForEveryByteAndAmount)
{
    std::vector<int> amounts{SHRT_MIN, -1000, 25399, 25400, 25500, SHRT_MAX};
    for (int amount = -150; amount < 600; ++amount)
        amounts.push_back(amount);
    for (const int amount : amounts)
        ExpectForAllBytes("brightness " + std::to_string(amount),
                          With(CBrightenImageFilter::Process, amount, nullptr),
                          [amount](int value) { return std::clamp(value * (amount + 100) / 100, 0, 255); });
    for (const int amount : {0, 1, 64, 100, 126, 127, -1, -64, -100, -127})
        ExpectForAllBytes("contrast " + std::to_string(amount), With(CContrastFilter::Process, amount),
                          [amount](int value) { return Contrasted(value, amount); });
    ExpectSame("contrast", With(CContrastFilter::Process, 30),
               EveryColorByte([](int value) { return Contrasted(value, 30); }));
    ExpectSame("negative", With(CNegativeImageFilter::Process),
               EveryColorByte([](int value) { return 255 - value; }));
    Section section(3, 3, PlacePixel, 24);
    for (const int amount : {128, INT_MAX, -128, INT_MIN})
        EXPECT_TRUE(CContrastFilter::Process(&section, amount)) << "no trap: " << amount;

    CARGB color(64, 65, 191, 9);
    CContrastFilter::ChangeContrast(64, color);
    EXPECT_EQ(Bits(color), 0x090002FFU) << "64 and below, 65, 191 and above";
    CARGB shrunk(0, 100, 255, 9);
    CContrastFilter::ChangeContrast(-50, shrunk);
    EXPECT_EQ(Bits(shrunk), 0x09326ECDU) << "alpha stays";
}

TEST_F(PointFilter, ReplacesOneColour)
{
    const Model::Channels pixels[] = {{3, 2, 1, 4}, {3, 2, 1, 5}, {3, 2, 0, 4}, {1, 2, 3, 4}, {3, 2, 1, 4}};
    for (const int bitCount : {24, 32}) {
        const Model source =
            EveryPixel([&](Model::Channels& pixel, int x, int) { pixel = pixels[x]; })(Model(5, 1, bitCount));
        const Model expected = EveryPixel([bitCount](Model::Channels& pixel, int, int) {
            if (pixel == Model::Channels{3, 2, 1, bitCount == 24 ? 0 : 4})
                pixel = {7, 6, 5, 8};
        })(source);
        CDibSection section;
        source.Store(section);
        EXPECT_TRUE(CReplaceColourFilter::Process(&section, CARGB(1, 2, 3, 4), CARGB(5, 6, 7, 8)));
        EXPECT_EQ(Model(section), expected) << bitCount;
    }
}

TEST_F(PointFilter, FadesTowardsAnotherPictureOfItsKind)
{
    for (const int bitCount : {24, 32})
        for (int percent = -1; percent <= 101; ++percent) {
            // Every pair of bytes would be 65536 pixels; every seventh difference will do.
            Model from(256, 37, bitCount);
            Model towards = from;
            Model expected = from;
            const int share = std::clamp(percent, 0, 100);
            for (int y = 0; y < from.Height(); ++y)
                for (int x = 0; x < 256; ++x) {
                    const int other = y * 7 % 256;
                    const int alpha = bitCount == 32 ? x ^ y : 0;
                    from.At(x, y) = {x, other, x, alpha};
                    towards.At(x, y) = {other, x, 255 - x, bitCount == 32 ? 77 : 0};
                    expected.At(x, y) = {x + share * (other - x) / 100, other + share * (x - other) / 100,
                                         x + share * (255 - 2 * x) / 100, alpha};
                }
            CDibSection section, other;
            from.Store(section);
            towards.Store(other);
            ASSERT_TRUE(CFadeImageFilter::Process(&section, &other, static_cast<short>(percent)));
            ASSERT_EQ(Model(section), expected) << percent << ", " << bitCount << " bits";
        }
    Section section(3, 3, PlacePixel);
    const Section wider(4, 3, PlacePixel), higher(3, 4, PlacePixel), shallower(3, 3, PlacePixel, 24);
    const CDibSection empty;
    for (const CDibSection* other :
         std::initializer_list<const CDibSection*>{&wider, &higher, &shallower, &empty})
        EXPECT_FALSE(CFadeImageFilter::Process(&section, other, 50));
    EXPECT_FALSE(CFadeImageFilter::Process(&section, nullptr, 50));
    EXPECT_TRUE(CFadeImageFilter::Process(&section, &section, 50));
}

namespace {

ChangePixel Scaled(double hue, double saturation)
{
    return [=](Model::Channels& pixel, int, int) { pixel = HlsScaled(pixel, hue, saturation); };
}

// Every pair of largest and smallest channel in every order, and every hue that such channels can have.
Model ManyHues()
{
    constexpr int kOrders[6][3] = {{0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0}};
    std::mt19937 random(3);
    Model source(768, 256, 24);
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 768; ++x) {
            const int third = x % 3 == 0 ? y : x % 3 == 1 ? x / 3 : static_cast<int>(random() % 256);
            const int values[3] = {y, x / 3, third};
            const auto& order = kOrders[random() % 6];
            for (std::size_t channel = 0; channel < 3; ++channel)
                source.At(x, y)[channel] = values[order[channel]];
        }
    return source;
}

}  // namespace

TEST_F(PointFilter, ScalesHueAndSaturation)
{
    const Model large = ManyHues();  // which goes another way, and that must not show
    for (const int amount : {0, 13, 100, -40, -100, -300, SHRT_MAX, SHRT_MIN})
        for (const bool isHue : {false, true}) {
            const Operation operation = isHue ? With(CHueChangeFilter::Process, amount)
                                              : With(CSaturationChangeFilter::Process, amount);
            const double factor = (amount + 100.0) / 100.0;
            const Reference reference = EveryPixel(isHue ? Scaled(factor, 1) : Scaled(1, factor));
            const std::string name = (isHue ? "hue " : "saturation ") + std::to_string(amount);
            ExpectSame(name, operation, reference);
            CDibSection section;
            large.Store(section);
            operation(&section);
            EXPECT_TRUE(Model(section) == reference(large)) << name << ", large";
        }
}

using Geometry = RenderTest;

TEST_F(Geometry, MovesPixels)
{
    // Whose pixel stands at (x, y) afterwards.
    const auto moved = [](const std::function<POINT(const Model& source, int x, int y)>& origin) {
        return [origin](const Model& source) {
            Model result = source;
            for (int y = 0; y < source.Height(); ++y)
                for (int x = 0; x < source.Width(); ++x) {
                    const POINT from = origin(source, x, y);
                    result.At(x, y) = source.At(from.x, from.y);
                }
            return result;
        };
    };
    ExpectSame("mirror", With(CMirrorImageFilter::Process), moved([](const Model& source, int x, int y) {
                   return POINT{source.Width() - 1 - x, y};
               }));
    ExpectSame("flip", With(CFlipImageFilter::Process), moved([](const Model& source, int x, int y) {
                   return POINT{x, source.Height() - 1 - y};
               }));
    ExpectSame("left", With(CRotateLeftFilter::Process), RotatedLeft);
    ExpectSame("right", With(CRotateRightFilter::Process),
               [](const Model& source) { return RotatedLeft(RotatedLeft(RotatedLeft(source))); });
    for (const int size : {INT_MIN, 0, 1, 2, 3, 7, 40, INT_MAX})
        ExpectSame("blocks of " + std::to_string(size), With(CPixelizeImageFilter::Process, size),
                   [size](const Model& source) { return Pixelized(source, size); });
    unsigned char bytes[2] = {1, 3};
    CPixelizeImageFilter::FillAverageColor(bytes, 2, 2, 1, 1);
    CPixelizeImageFilter::FillAverageColor(bytes, 2, 3, 0, 1);
    EXPECT_EQ(bytes[0] + bytes[1], 4) << "other pixels, and none, are left alone";
}

TEST_F(Geometry, TurnsPicturesOfManyTiles)
{
    std::mt19937 random(9);
    for (const int bitCount : {24, 32})
        for (const SIZE& size : {SIZE{131, 523}, SIZE{515, 70}}) {
            Model source(size.cx, size.cy, bitCount);
            source.Randomise(random);
            CDibSection section;
            source.Store(section);
            EXPECT_TRUE(CRotateLeftFilter::Process(&section));
            EXPECT_TRUE(Model(section) == RotatedLeft(source)) << size.cx << ", " << bitCount << " bits";
            EXPECT_TRUE(CRotateRightFilter::Process(&section));
            EXPECT_TRUE(Model(section) == source) << size.cx << ", " << bitCount << " bits, back";
        }
}

TEST_F(Geometry, CutsRectanglesOut)
{
    std::mt19937 random(5);
    for (const int bitCount : {24, 32}) {
        Model source(9, 7, bitCount);
        source.Randomise(random);
        CDibSection section;
        source.Store(section);
        for (const std::optional<RECT>& part : kParts) {
            const RECT whole{0, 0, 9, 7};
            RECT inside{};
            const RECT wanted = part.value_or(whole);
            IntersectRect(&inside, &wanted, &whole);
            CDibSection target;
            target.Create(1, 1, 24);
            RECT rect = wanted;
            const bool isCut = CSelectImageFilter::Process(&section, &target, part ? &rect : nullptr) != 0;
            EXPECT_EQ(isCut, !IsRectEmpty(&inside)) << RectText(wanted);
            EXPECT_EQ(rect.right, std::min<LONG>(wanted.right, 9));
            if (!isCut) {
                EXPECT_EQ(target.GetDibHeader()->biWidth, 1) << "left alone";
                continue;
            }
            Model expected(inside.right - inside.left, inside.bottom - inside.top, bitCount);
            for (int y = 0; y < expected.Height(); ++y)
                for (int x = 0; x < expected.Width(); ++x)
                    expected.At(x, y) = source.At(inside.left + x, inside.top + y);
            EXPECT_EQ(Model(target), expected) << RectText(wanted);
        }
        EXPECT_FALSE(CSelectImageFilter::Process(&section, &section, nullptr));
        EXPECT_FALSE(CSelectImageFilter::Process(&section, nullptr, nullptr));
        EXPECT_EQ(Model(section), source);
    }
}

TEST_F(Geometry, LeavesPixelsOfOtherDepthsAlone)
{
    std::mt19937 random(7);
    for (const WORD bitCount : {WORD{8}, WORD{16}}) {
        Model source(6, 5, 24);
        source.Randomise(random);
        CDibSection section, target;
        source.Store(section);
        // Not every target makes such sections; the header is all that the filters go by.
        section.GetDibHeader()->biBitCount = bitCount;
        for (const auto process : {CMirrorImageFilter::Process, CFlipImageFilter::Process,
                                   CRotateLeftFilter::Process, CRotateRightFilter::Process})
            EXPECT_FALSE(process(&section)) << bitCount;
        EXPECT_FALSE(CSelectImageFilter::Process(&section, &target, nullptr)) << bitCount;
        section.GetDibHeader()->biBitCount = 24;
        EXPECT_EQ(Model(section), source) << bitCount;
    }
}

TEST(ImageFilter, FailsWithoutPixelsOrSense)
{
    const CARGB color;
    Section target(5, 5, [](int, int) { return 0; });
    CDibSection empty;
    for (CDibSection* section : {&empty, static_cast<CDibSection*>(nullptr)})
        EXPECT_FALSE(
            CConvoluteFilter::Process(section, CONVOLUTE_SMOOTH) || CSharpenImageFilter::Process(section) ||
            CGaussImageFilter::Process(section) || CEmbossImageFilter::Process(section) ||
            CEdgeImageFilter::Process(section) || CFillIColorFilter::Process(section, color, nullptr) ||
            CStrippleImageFilter::Process(section, color, 1, nullptr) ||
            CGrayScaleImageFilter::Process(section, nullptr) ||
            CWhiteBlackImageFilter::Process(section, nullptr, 9) ||
            CBrightenImageFilter::Process(section, 9, nullptr) ||
            CFadeImageFilter::Process(section, &target, 9) || CNegativeImageFilter::Process(section) ||
            CReplaceColourFilter::Process(section, color, color) ||
            CSelectImageFilter::Process(section, &target, nullptr) || CMirrorImageFilter::Process(section) ||
            CFlipImageFilter::Process(section) || CRotateLeftFilter::Process(section) ||
            CRotateRightFilter::Process(section) || CContrastFilter::Process(section, 9) ||
            CPixelizeImageFilter::Process(section, 9) || CHueChangeFilter::Process(section, 9) ||
            CSaturationChangeFilter::Process(section, 9));
    EXPECT_FALSE(CStrippleImageFilter::Process(&target, CARGB(1, 2, 3, 4), 0, nullptr));
    EXPECT_FALSE(CConvoluteFilter::Process(&target, static_cast<CDibFilter*>(nullptr)));
    for (const int type : {0, 7, -1, INT_MAX})
        EXPECT_FALSE(CConvoluteFilter::Process(&target, static_cast<Convolute_Type>(type))) << type;
    EXPECT_EQ(Bits(target.GetPixel(0, 0, TRUE)), 0U);
}
