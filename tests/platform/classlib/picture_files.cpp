#include "platform/classlib/picture_files.h"

#include <cstring>

namespace {

void LoadAndRead(const Bytes& bytes)
{
    CImage image;
    LoadBytes(image, bytes);
    volatile unsigned sum = 0;
    for (int y = 0; y < image.GetHeight(); ++y)
        for (int x = 0; x < image.GetWidth(); ++x)
            sum = sum + *static_cast<std::uint8_t*>(image.GetPixelAddress(x, y));
}

}  // namespace

HRESULT LoadBytes(CImage& image, const Bytes& bytes)
{
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    if (!bytes.empty())
        std::memcpy(GlobalLock(block), bytes.data(), bytes.size());
    GlobalUnlock(block);
    IStream* stream = nullptr;
    if (FAILED(CreateStreamOnHGlobal(block, TRUE, &stream)))
        return E_FAIL;
    const HRESULT result = image.Load(stream);
    stream->Release();
    return result;
}

void LoadEveryDamage(const std::string& name)
{
    const Bytes whole = FileBytes(kData + name);
    ForEachCut(whole, LoadAndRead);
    for (std::size_t at = 0; at < whole.size(); ++at) {
        Bytes changed = whole;
        changed[at] ^= static_cast<std::uint8_t>(at % 3 == 0 ? 0xFF : at % 3 == 1 ? 0x80 : 0x01);
        LoadAndRead(changed);
    }
}
