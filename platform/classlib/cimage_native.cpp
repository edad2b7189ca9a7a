// Decoding and encoding for the native target, with SDL_image, libpng and our own GIF decoder.

#include <SDL_image.h>
#include <tiffio.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <utility>

#include <qvui/platform/cimage.h>

#include "gif_decoder_native.h"
#include "image_header.h"
#include "native/kernel/cursor_file.h"
#include "native/kernel/files.h"
#include "png_decoder_native.h"

using namespace qvui::classlib;

namespace {

struct FreeSurface {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using SurfacePointer = std::unique_ptr<SDL_Surface, FreeSurface>;
using Bytes = std::vector<std::uint8_t>;

// An icon holds bitmaps or complete PNG files. Bitmaps are read here because SDL_image drops their alpha.
bool DecodeIcon(const Bytes& file, PicturePixels& image)
{
    const std::span<const std::uint8_t> first = qvui::native::FirstImageOfIcon(file);
    if (ReadImageHeader(first).kind == ImageKind::Png)
        return DecodePng(first, image);
    const auto surface = qvui::native::ReadIconBitmap(first);
    if (!surface)
        return false;
    image = {surface->width, surface->height, {}};
    image.pixels.resize(static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height));
    for (int y = 0; y < image.height; ++y)
        surface->Load(0, y, image.width, image.pixels.data() + static_cast<std::ptrdiff_t>(y) * image.width);
    return true;
}

// libtiff writes to stderr unless its handlers are cleared.
void SilenceTiff()
{
    TIFFSetErrorHandler(nullptr);
    TIFFSetWarningHandler(nullptr);
}

SurfacePointer LoadSurface(const Bytes& file, ImageKind kind)
{
    SDL_RWops* const stream = SDL_RWFromConstMem(file.data(), static_cast<int>(file.size()));
    SDL_Surface* surface = nullptr;
    switch (kind) {
        case ImageKind::Jpeg:
            surface = IMG_LoadJPG_RW(stream);
            break;
        case ImageKind::Bmp:
            surface = IMG_LoadBMP_RW(stream);
            break;
        case ImageKind::Tiff:
            SilenceTiff();
            surface = IMG_LoadTIF_RW(stream);
            break;
        default:
            break;
    }
    SDL_RWclose(stream);
    return SurfacePointer(surface);
}

bool DecodeSurface(const Bytes& file, ImageKind kind, PicturePixels& image)
{
    const SurfacePointer loaded = LoadSurface(file, kind);
    const SurfacePointer surface(loaded ? SDL_ConvertSurfaceFormat(loaded.get(), SDL_PIXELFORMAT_ARGB8888, 0)
                                        : nullptr);
    if (!surface)
        return false;
    image = {surface->w, surface->h, {}};
    const std::size_t rowPixels = static_cast<std::size_t>(image.width);
    image.pixels.resize(rowPixels * static_cast<std::size_t>(image.height));
    for (int y = 0; y < image.height; ++y)
        std::memcpy(image.pixels.data() + static_cast<std::size_t>(y) * rowPixels,
                    static_cast<const std::uint8_t*>(surface->pixels) +
                        static_cast<std::ptrdiff_t>(y) * surface->pitch,
                    rowPixels * sizeof image.pixels[0]);
    return true;
}

bool DecodePicture(const Bytes& file, ImageKind kind, PicturePixels& image)
{
    switch (kind) {
        case ImageKind::Unknown:
            return false;
        case ImageKind::Png:
            return DecodePng(file, image);
        case ImageKind::Gif:
            return DecodeGif(file, image);
        case ImageKind::Ico:
            return DecodeIcon(file, image);
        default:
            return DecodeSurface(file, kind, image);
    }
}

}  // namespace

bool CImage::Decode(const std::vector<std::uint8_t>& file, const ImageHeader& header, Decoded& image)
{
    PicturePixels picture;
    if (!DecodePicture(file, header.kind, picture))
        return false;
    image.width = picture.width;
    image.height = picture.height;
    image.pixels = std::move(picture.pixels);
    return true;
}

bool CImage::EncodePng(const Decoded& image, LPCSTR path)
{
    const SurfacePointer surface(SDL_CreateRGBSurfaceWithFormatFrom(
        const_cast<std::uint32_t*>(image.pixels.data()), image.width, image.height, 32, image.width * 4,
        image.hasAlpha ? SDL_PIXELFORMAT_ARGB8888 : SDL_PIXELFORMAT_RGB888));
    return surface && IMG_SavePNG(surface.get(), qvui::native::LocalPath(path).c_str()) == 0;
}
