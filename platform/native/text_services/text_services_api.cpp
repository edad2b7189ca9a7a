// The exported functions of the text services.

#include <cstdlib>
#include <cstring>
#include <new>

#include "native/kernel/modules.h"
#include "native/text_services/services.h"

using namespace qvui::native;

namespace {

// A string's bytes are stored before it, as the platform does.
using LengthPrefix = std::size_t;

[[maybe_unused]] const bool g_registered =
    RegisterBuiltInFunction("Riched20.dll", "CreateTextServices",
                            reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&CreateTextServices)));

}  // namespace

HRESULT CreateTextServices(IUnknown* outer, ITextHost* host, IUnknown** services)
{
    if (!services)
        return E_POINTER;
    *services = nullptr;
    if (!host)
        return E_INVALIDARG;
    if (outer)
        return E_NOTIMPL;
    *services = new TextServices(host);
    return S_OK;
}

BSTR SysAllocStringLen(const WCHAR* text, UINT length)
{
    const std::size_t bytes = static_cast<std::size_t>(length) * sizeof(WCHAR);
    auto* block = static_cast<char*>(std::malloc(sizeof(LengthPrefix) + bytes + sizeof(WCHAR)));
    if (!block)
        return nullptr;
    const LengthPrefix prefix = bytes;
    std::memcpy(block, &prefix, sizeof prefix);
    char* place = block + sizeof prefix;
    if (text)
        std::memcpy(place, text, bytes);
    else
        std::memset(place, 0, bytes);
    std::memset(place + bytes, 0, sizeof(WCHAR));
    return reinterpret_cast<BSTR>(place);
}

UINT SysStringLen(BSTR text)
{
    if (!text)
        return 0;
    LengthPrefix bytes = 0;
    std::memcpy(&bytes, reinterpret_cast<const char*>(text) - sizeof bytes, sizeof bytes);
    return static_cast<UINT>(bytes / sizeof(WCHAR));
}

void SysFreeString(BSTR text)
{
    if (text)
        std::free(reinterpret_cast<char*>(text) - sizeof(LengthPrefix));
}
