// Decoding and encoding through SDL_image.

#include <SDL_image.h>

#include <memory>
#include <string_view>

#include <qvui/platform/cimage.h>

#include "native/kernel/files.h"

namespace {

constexpr std::int64_t kMostPixels = std::int64_t{1} << 28;

struct FreeSurface {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using SurfacePointer = std::unique_ptr<SDL_Surface, FreeSurface>;

bool StartsWith(const std::vector<std::uint8_t>& file, std::string_view magic)
{
    return file.size() >= magic.size() && std::string_view(reinterpret_cast<const char*>(file.data()), magic.size()) == magic;
}

constexpr std::string_view kPng("\x89PNG\r\n\x1a\n", 8);

// A PNG file ends with its closing chunk; the decoder forgives a file that was cut off, and we do not.
bool IsWholePng(const std::vector<std::uint8_t>& file)
{
    constexpr std::string_view kEnd("IEND\xAE\x42\x60\x82", 8);
    const std::string_view text(reinterpret_cast<const char*>(file.data()), file.size());
    return text.rfind(kEnd) != std::string_view::npos;
}

// Grey and grey-with-alpha count as carrying alpha; colour type 2 and 3 do when a transparency chunk says so.
bool PngHasAlpha(const std::vector<std::uint8_t>& file)
{
    constexpr std::size_t kColourType = 25;
    if (file.size() <= kColourType)
        return false;
    const std::string_view text(reinterpret_cast<const char*>(file.data()), file.size());
    const std::size_t data = text.find("IDAT");
    return (file[kColourType] & 4) || file[kColourType] == 0 || text.substr(0, data).find("tRNS") != std::string_view::npos;
}

// Bitmaps carry no alpha: the fourth byte of a 32-bit one is padding.
bool IsBitmap(const std::vector<std::uint8_t>& file) { return StartsWith(file, "BM"); }

bool SurfaceHasAlpha(SDL_Surface* surface)
{
    Uint32 key = 0;
    return SDL_ISPIXELFORMAT_ALPHA(surface->format->format) || SDL_GetColorKey(surface, &key) == 0;
}

// The formats that both targets read. The decoder's library knows more, also such as have no signature; those are
// left alone, since whatever is tried on a broken file is another parser that it can reach.
SurfacePointer DecodeKnownFormat(const std::vector<std::uint8_t>& file)
{
    struct Format {
        int (*matches)(SDL_RWops*);
        SDL_Surface* (*load)(SDL_RWops*);
    };
    constexpr Format kFormats[] = {
        {IMG_isPNG, IMG_LoadPNG_RW}, {IMG_isJPG, IMG_LoadJPG_RW}, {IMG_isGIF, IMG_LoadGIF_RW},
        {IMG_isBMP, IMG_LoadBMP_RW}, {IMG_isTIF, IMG_LoadTIF_RW}, {IMG_isICO, IMG_LoadICO_RW},
        {IMG_isCUR, IMG_LoadCUR_RW},
    };
    SDL_RWops* const stream = SDL_RWFromConstMem(file.data(), static_cast<int>(file.size()));
    if (!stream)
        return nullptr;
    SurfacePointer surface;
    for (const Format& format : kFormats)
        if (format.matches(stream)) {
            surface.reset(format.load(stream));
            break;
        }
    SDL_RWclose(stream);
    return surface;
}

}  // namespace

bool CImage::Decode(const std::vector<std::uint8_t>& file, Decoded& image)
{
    const bool isPng = StartsWith(file, kPng);
    if (isPng && !IsWholePng(file))
        return false;
    const SurfacePointer loaded = DecodeKnownFormat(file);
    if (!loaded || loaded->w <= 0 || loaded->h <= 0 || static_cast<std::int64_t>(loaded->w) * loaded->h > kMostPixels)
        return false;
    image.hasAlpha = isPng ? PngHasAlpha(file) : !IsBitmap(file) && SurfaceHasAlpha(loaded.get());
    const SurfacePointer pixels(SDL_ConvertSurfaceFormat(loaded.get(), SDL_PIXELFORMAT_ARGB8888, 0));
    if (!pixels)
        return false;
    image.width = pixels->w;
    image.height = pixels->h;
    image.pixels.resize(static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height));
    for (int y = 0; y < image.height; ++y) {
        const auto* row = reinterpret_cast<const std::uint32_t*>(static_cast<const std::uint8_t*>(pixels->pixels) +
                                                                 static_cast<std::ptrdiff_t>(y) * pixels->pitch);
        std::copy(row, row + image.width, image.pixels.data() + static_cast<std::ptrdiff_t>(y) * image.width);
    }
    return true;
}

bool CImage::EncodePng(const Decoded& image, LPCSTR path)
{
    const SurfacePointer surface(SDL_CreateRGBSurfaceWithFormatFrom(
        const_cast<std::uint32_t*>(image.pixels.data()), image.width, image.height, 32, image.width * 4,
        image.hasAlpha ? SDL_PIXELFORMAT_ARGB8888 : SDL_PIXELFORMAT_RGB888));
    return surface && IMG_SavePNG(surface.get(), qvui::native::LocalPath(path).c_str()) == 0;
}
