// The drawing that windows are made of, through the platform's calls: fills and copies against the plain
// memory functions, blends, stretches and nine-grids against plain pixman for the same pixels.

#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <pixman.h>

#include <qvui/render/image_list.h>

#include "ratio_reporter.h"
#include "support/platform_bitmap.h"

using namespace DUI;

namespace {

// The most time that drawing may take, as a multiple of the peer's: the least speed upside down.
constexpr double kMostOfMemory = 1 / 0.8;
constexpr double kMostOfPixman = 1 / 0.9;

struct UnrefImage {
    void operator()(pixman_image_t* image) const { pixman_image_unref(image); }
};
using Image = std::unique_ptr<pixman_image_t, UnrefImage>;

// Premultiplied and mostly translucent, so that no blend is left out.
std::uint32_t PixelAt(int x, int y)
{
    const auto alpha = static_cast<std::uint32_t>(x * 7 + y * 13) % 256;
    return alpha << 24 | alpha / 2 << 16 | alpha / 3 << 8 | alpha;
}

// A bottom-up bitmap in a memory context, and a pixman image over the same pixels.
class Canvas : public qvui::test::MemoryBitmap {
public:
    explicit Canvas(SIZE extent) : MemoryBitmap(qvui::test::BitmapInfo(extent.cx, extent.cy)), size(extent)
    {
        SetStretchBltMode(*this, COLORONCOLOR);
        for (int y = 0; y < size.cy; ++y)
            for (int x = 0; x < size.cx; ++x)
                Row(y)[x] = PixelAt(x, y);
        image.reset(pixman_image_create_bits(PIXMAN_a8r8g8b8, size.cx, size.cy, Row(0), -size.cx * 4));
    }
    std::uint32_t* Row(int y) const
    {
        return m_rows + static_cast<std::ptrdiff_t>(size.cy - 1 - y) * size.cx;
    }

    const SIZE size;
    Image image;

private:
    std::uint32_t* m_rows = static_cast<std::uint32_t*>(Bits());
};

// The same canvas for all that ask for a size: both sides of a pair draw on the same addresses.
const Canvas& SourceOf(SIZE size)
{
    static std::map<std::pair<int, int>, Canvas> canvases;
    return canvases.try_emplace({size.cx, size.cy}, size).first->second;
}

struct Part {
    int x, y, width, height;
};

using Draw = std::function<void(const Canvas& target, const Canvas& source)>;

struct Pair {
    std::string name;
    const char* peer;
    SIZE source;
    Draw ours;
    Draw theirs;
    double most;
};

constexpr SIZE kScreen{1920, 1080};

// Calls operation(top row's first pixel in the target, in the source, pixels) for the rows of a part: once
// for all of them when they follow each other in memory.
template <class Operation>
void ForEachRun(const Canvas& target, const Canvas& source, const Part& part, Operation operation)
{
    if (part.width == target.size.cx && part.width == source.size.cx) {
        const int last = part.y + part.height - 1;
        operation(target.Row(last), source.Row(last), static_cast<std::size_t>(part.width) * part.height);
        return;
    }
    for (int y = part.y; y < part.y + part.height; ++y)
        operation(target.Row(y) + part.x, source.Row(y) + part.x, static_cast<std::size_t>(part.width));
}

Pair Fill(const Part& part)
{
    static const HBRUSH brush = CreateSolidBrush(RGB(0x10, 0x20, 0x30));
    const RECT rect{part.x, part.y, part.x + part.width, part.y + part.height};
    return {"fill",
            "memset",
            kScreen,
            [=](const Canvas& target, const Canvas&) { FillRect(target, &rect, brush); },
            [=](const Canvas& target, const Canvas& source) {
                ForEachRun(target, source, part,
                           [](std::uint32_t* to, const std::uint32_t*, std::size_t count) {
                               std::memset(to, 0x20, count * sizeof *to);
                           });
            },
            kMostOfMemory};
}

Pair Copy(const Part& part)
{
    return {"copy",
            "memcpy",
            kScreen,
            [=](const Canvas& target, const Canvas& source) {
                BitBlt(target, part.x, part.y, part.width, part.height, source, part.x, part.y, SRCCOPY);
            },
            [=](const Canvas& target, const Canvas& source) {
                ForEachRun(target, source, part,
                           [](std::uint32_t* to, const std::uint32_t* from, std::size_t count) {
                               std::memcpy(to, from, count * sizeof *to);
                           });
            },
            kMostOfMemory};
}

void Composite(const Canvas& target, pixman_image_t* source, const Part& to, const Part& from,
               pixman_op_t operation, pixman_image_t* mask = nullptr)
{
    if (to.width == from.width && to.height == from.height) {
        pixman_image_set_transform(source, nullptr);
        pixman_image_composite32(operation, source, mask, target.image.get(), from.x, from.y, 0, 0, to.x,
                                 to.y, to.width, to.height);
        return;
    }
    const auto scale = [](int part, int whole) {
        return pixman_double_to_fixed(static_cast<double>(part) / whole);
    };
    const pixman_transform_t transform{{{scale(from.width, to.width), 0, pixman_int_to_fixed(from.x)},
                                        {0, scale(from.height, to.height), pixman_int_to_fixed(from.y)},
                                        {0, 0, pixman_fixed_1}}};
    pixman_image_set_transform(source, &transform);
    pixman_image_composite32(operation, source, mask, target.image.get(), 0, 0, 0, 0, to.x, to.y, to.width,
                             to.height);
}

Part At0(const Part& part, int numerator, int denominator)
{
    return {0, 0, part.width * numerator / denominator, part.height * numerator / denominator};
}

// One part copied to another: `copy` takes the platform's arguments, the peer an operation and a mask.
template <class Copy>
Pair Copying(const char* name, const Part& to, const Part& from, Copy copy, pixman_op_t operation,
             const std::shared_ptr<pixman_image_t>& mask = nullptr)
{
    return {name,
            "pixman",
            {std::max(kScreen.cx, from.width), std::max(kScreen.cy, from.height)},
            [=](const Canvas& target, const Canvas& source) {
                copy(static_cast<HDC>(target), to.x, to.y, to.width, to.height, static_cast<HDC>(source),
                     from.x, from.y, from.width, from.height);
            },
            [=](const Canvas& target, const Canvas& source) {
                Composite(target, source.image.get(), to, from, operation, mask.get());
            },
            kMostOfPixman};
}

Pair Blend(const char* name, const Part& to, const Part& from, int alpha = 255)
{
    const pixman_color_t colour{0, 0, 0, static_cast<std::uint16_t>(alpha * 0x101)};
    const std::shared_ptr<pixman_image_t> mask(
        alpha == 255 ? nullptr : pixman_image_create_solid_fill(&colour), [](pixman_image_t* image) {
            if (image)
                pixman_image_unref(image);
        });
    const BLENDFUNCTION blend{AC_SRC_OVER, 0, static_cast<BYTE>(alpha), AC_SRC_ALPHA};
    return Copying(
        name, to, from, [blend](auto... place) { AlphaBlend(place..., blend); }, PIXMAN_OP_OVER, mask);
}

Pair Stretch(const char* name, const Part& to, const Part& from)
{
    return Copying(
        name, to, from, [](auto... place) { StretchBlt(place..., SRCCOPY); }, PIXMAN_OP_SRC);
}

constexpr int kCorner = 8;
constexpr int kPicture = 24;

std::vector<Part> NineParts(const Part& whole)
{
    const int xs[] = {whole.x, whole.x + kCorner, whole.x + whole.width - kCorner, whole.x + whole.width};
    const int ys[] = {whole.y, whole.y + kCorner, whole.y + whole.height - kCorner, whole.y + whole.height};
    std::vector<Part> parts;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            parts.push_back({xs[column], ys[row], xs[column + 1] - xs[column], ys[row + 1] - ys[row]});
    return parts;
}

// A picture as skins draw it, in nine parts.
std::shared_ptr<CDUIImage> NineGridPicture()
{
    auto picture = std::make_shared<CDUIImage>();
    picture->CreateFromFile("");  // leaves an empty bitmap to draw in
    CImage& image = *picture->GetRawImage();
    image.Create(kPicture, kPicture, 32);
    image.SetHasAlphaChannel(TRUE);
    for (int y = 0; y < kPicture; ++y)
        for (int x = 0; x < kPicture; ++x)
            *static_cast<std::uint32_t*>(image.GetPixelAddress(x, y)) = PixelAt(x, y);
    picture->SetDrawStyle(DRAW_STYLE_SQUARD);
    picture->SetCornerSize(kCorner, kCorner);
    return picture;
}

Pair NineGrid(const Part& to)
{
    const std::shared_ptr<CDUIImage> picture = NineGridPicture();
    const RECT rect{to.x, to.y, to.x + to.width, to.y + to.height};
    const std::vector<Part> targets = NineParts(to);
    const std::vector<Part> sources = NineParts({0, 0, kPicture, kPicture});
    return {"nine_grid",
            "pixman",
            {kPicture, kPicture},
            [=](const Canvas& target, const Canvas&) { picture->DrawImage(target, rect); },
            [=](const Canvas& target, const Canvas& source) {
                for (std::size_t i = 0; i < targets.size(); ++i)
                    Composite(target, source.image.get(), targets[i], sources[i], PIXMAN_OP_OVER);
            },
            kMostOfPixman};
}

std::vector<Pair> Pairs()
{
    const std::pair<const char*, Part> places[] = {{"icon", {100, 100, 32, 32}},
                                                   {"button", {100, 100, 200, 60}},
                                                   {"window", {0, 0, kScreen.cx, kScreen.cy}}};
    std::vector<Pair> pairs;
    for (const auto& [place, part] : places) {
        const Part same = At0(part, 1, 1);
        const Part less = At0(part, 2, 3);
        const Part more = At0(part, 3, 2);
        for (Pair& pair : std::vector<Pair>{
                 Fill(part), Copy(part), Blend("blend", part, same), Blend("fade", part, same, 128),
                 Blend("blend_enlarged", part, less), Blend("blend_shrunk", part, more),
                 Stretch("enlarge", part, less), Stretch("shrink", part, more), NineGrid(part)}) {
            pair.name.append("_").append(place);
            pairs.push_back(std::move(pair));
        }
    }
    return pairs;
}

void Register(const std::string& name, SIZE sourceSize, const Draw& draw)
{
    // Each is measured several times and the shortest time counts: what a busy machine adds is not drawing.
    benchmark::RegisterBenchmark(name.c_str(),
                                 [draw, sourceSize](benchmark::State& state) {
                                     static const Canvas target(kScreen);
                                     const Canvas& source = SourceOf(sourceSize);
                                     for (auto _ : state) {
                                         draw(target, source);
                                         benchmark::ClobberMemory();
                                     }
                                 })
        ->Repetitions(5)
        ->MinTime(0.02);
}

}  // namespace

int main(int argc, char** argv)
{
    const std::vector<Pair> pairs = Pairs();
    for (const Pair& pair : pairs) {
        Register(pair.name, pair.source, pair.ours);
        Register(pair.name + "_" + pair.peer, pair.source, pair.theirs);
    }
    benchmark::Initialize(&argc, argv);
    qvui::bench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    for (const Pair& pair : pairs)
        reporter.PrintRatio(pair.name.c_str(), (pair.name + "_" + pair.peer).c_str(), pair.most);
}
