// Decoding and encoding through GDI+.

#include <algorithm>
#include <cstring>
#include <memory>

#include <qvui/platform/cimage.h>
#include <qvui/platform/cstring.h>

using std::max;
using std::min;
#include <gdiplus.h>

namespace {

class GdiPlus {
public:
    GdiPlus()
    {
        const Gdiplus::GdiplusStartupInput input;
        Gdiplus::GdiplusStartup(&m_token, &input, nullptr);
    }
    GdiPlus(const GdiPlus&) = delete;
    GdiPlus& operator=(const GdiPlus&) = delete;

private:
    ULONG_PTR m_token = 0;
};

// Started on first use and never shut down, because GDI+ must not be shut down while a library is unloaded.
void Start()
{
    static const GdiPlus* const running = new GdiPlus;
    static_cast<void>(running);
}

IStream* StreamOf(const std::vector<std::uint8_t>& file)
{
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, file.size());
    if (!block)
        return nullptr;
    std::memcpy(GlobalLock(block), file.data(), file.size());
    GlobalUnlock(block);
    IStream* stream = nullptr;
    if (FAILED(CreateStreamOnHGlobal(block, TRUE, &stream)))
        GlobalFree(block);
    return stream;
}

bool FindPngEncoder(CLSID& found)
{
    UINT count = 0;
    UINT size = 0;
    Gdiplus::GetImageEncodersSize(&count, &size);
    std::vector<std::uint8_t> buffer(size);
    auto* encoders = reinterpret_cast<Gdiplus::ImageCodecInfo*>(buffer.data());
    if (size == 0 || Gdiplus::GetImageEncoders(count, size, encoders) != Gdiplus::Ok)
        return false;
    for (UINT i = 0; i < count; ++i)
        if (std::wcscmp(encoders[i].MimeType, L"image/png") == 0) {
            found = encoders[i].Clsid;
            return true;
        }
    return false;
}

}  // namespace

bool CImage::Decode(const std::vector<std::uint8_t>& file, const qvui::classlib::ImageHeader&, Decoded& image)
{
    Start();
    IStream* stream = StreamOf(file);
    if (!stream)
        return false;
    const std::unique_ptr<Gdiplus::Bitmap> bitmap(Gdiplus::Bitmap::FromStream(stream));
    stream->Release();
    if (!bitmap || bitmap->GetLastStatus() != Gdiplus::Ok)
        return false;
    image.width = static_cast<int>(bitmap->GetWidth());
    image.height = static_cast<int>(bitmap->GetHeight());
    const Gdiplus::Rect all(0, 0, image.width, image.height);
    Gdiplus::BitmapData data;
    if (image.width <= 0 || image.height <= 0 ||
        bitmap->LockBits(&all, Gdiplus::ImageLockModeRead, PixelFormat32bppARGB, &data) != Gdiplus::Ok)
        return false;
    image.pixels.resize(static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height));
    for (int y = 0; y < image.height; ++y)
        std::memcpy(
            image.pixels.data() + static_cast<std::ptrdiff_t>(y) * image.width,
            static_cast<const std::uint8_t*>(data.Scan0) + static_cast<std::ptrdiff_t>(y) * data.Stride,
            static_cast<std::size_t>(image.width) * 4);
    bitmap->UnlockBits(&data);
    return true;
}

bool CImage::EncodePng(const Decoded& image, LPCSTR path)
{
    Start();
    CLSID encoder;
    if (!FindPngEncoder(encoder))
        return false;
    Gdiplus::Bitmap bitmap(image.width, image.height, image.width * 4,
                           image.hasAlpha ? PixelFormat32bppARGB : PixelFormat32bppRGB,
                           const_cast<BYTE*>(reinterpret_cast<const BYTE*>(image.pixels.data())));
    return bitmap.Save(CString(path).ToWide().c_str(), &encoder, nullptr) == Gdiplus::Ok;
}
