// PNG decoder on libpng, because SDL_image decodes grey pictures with a transparent grey value wrongly and
// accepts truncated files.

#include "png_decoder_native.h"

#include <png.h>

#include <cstring>

namespace qvui::classlib {
namespace {

// libpng reports errors with longjmp, so no frame that the jump crosses holds an object with a destructor.
class PngReader {
public:
    explicit PngReader(std::span<const std::uint8_t> file)
        : m_rest(file),
          m_png(png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, Fail, Ignore))
    {
        if (m_png)
            m_info = png_create_info_struct(m_png);
    }
    PngReader(const PngReader&) = delete;
    PngReader& operator=(const PngReader&) = delete;
    ~PngReader() { png_destroy_read_struct(&m_png, &m_info, nullptr); }

    bool ReadInfo(PicturePixels& image)
    {
        if (!m_info || setjmp(png_jmpbuf(m_png)))
            return false;
        png_set_read_fn(m_png, this, Read);
        png_read_info(m_png, m_info);
        // Convert every format to 8-bit blue, green, red and alpha.
        png_set_expand(m_png);
        png_set_strip_16(m_png);
        png_set_gray_to_rgb(m_png);
        png_set_add_alpha(m_png, 0xFF, PNG_FILLER_AFTER);
        png_set_bgr(m_png);
        png_set_interlace_handling(m_png);
        png_read_update_info(m_png, m_info);
        image.width = static_cast<int>(png_get_image_width(m_png, m_info));
        image.height = static_cast<int>(png_get_image_height(m_png, m_info));
        return png_get_rowbytes(m_png, m_info) == static_cast<std::size_t>(image.width) * 4;
    }

    bool ReadRows(std::uint8_t** rows)
    {
        if (setjmp(png_jmpbuf(m_png)))
            return false;
        png_read_image(m_png, rows);
        png_read_end(m_png, nullptr);
        return true;
    }

private:
    [[noreturn]] static void Fail(png_structp png, png_const_charp) { png_longjmp(png, 1); }
    static void Ignore(png_structp, png_const_charp) {}
    static void Read(png_structp png, png_bytep bytes, png_size_t count)
    {
        auto& rest = static_cast<PngReader*>(png_get_io_ptr(png))->m_rest;
        if (count > rest.size())
            png_error(png, "cut off");
        std::memcpy(bytes, rest.data(), count);
        rest = rest.subspan(count);
    }

    std::span<const std::uint8_t> m_rest;
    png_structp m_png;
    png_infop m_info = nullptr;
};

}  // namespace

bool DecodePng(std::span<const std::uint8_t> file, PicturePixels& image)
{
    PngReader reader(file);
    if (!reader.ReadInfo(image))
        return false;
    const auto width = static_cast<std::size_t>(image.width);
    image.pixels.resize(width * static_cast<std::size_t>(image.height));
    std::vector<std::uint8_t*> rows;
    rows.reserve(static_cast<std::size_t>(image.height));
    for (int y = 0; y < image.height; ++y)
        rows.push_back(
            reinterpret_cast<std::uint8_t*>(image.pixels.data() + static_cast<std::size_t>(y) * width));
    return reader.ReadRows(rows.data());
}

}  // namespace qvui::classlib
