// A module file: its resource directory is read, and everything found in it is asked for by its name, as
// bytes and as the document, picture and cursor that a skin would take it for.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include <qvui/skin/resource_loader.h>

#include "fuzz_support.h"
#include "native/kernel/resource_directory.h"

namespace {

// Each look-up walks the module's list, so not all of a long one are asked for.
constexpr std::size_t kMostAsked = 32;

CString Text(const qvui::native::ResourceKey& key)
{
    if (key.text.empty())
        return CString(("#" + std::to_string(key.id)).c_str());
    return CString::FromWide(reinterpret_cast<const WCHAR*>(key.text.data()),
                             static_cast<int>(key.text.size()));
}

void SumBytes(HMODULE module, HRSRC resource)
{
    const auto* bytes = static_cast<const std::uint8_t*>(LockResource(LoadResource(module, resource)));
    std::uint32_t sum = 0;
    for (DWORD i = 0; i < SizeofResource(module, resource); ++i)
        sum += bytes[i];
    [[maybe_unused]] static volatile std::uint32_t sink;
    sink = sum;
}

void AskFor(HMODULE module, const std::string& name, const qvui::native::ResourceEntry& entry)
{
    const CString type = Text(entry.type);
    const HRSRC resource = FindResourceA(module, Text(entry.name), type);
    const bool isNumbered = entry.type.text.empty() && entry.name.text.empty();
    if (isNumbered && !resource)
        std::abort();
    SumBytes(module, resource);
    const CString id(std::to_string(entry.name.id).c_str());
    DUI::CResLoader loader;
    CString xml;
    loader.LoadXMLFromDll(name.c_str(), id, type, xml);
    loader.LoadImageFromDll(name.c_str(), id, type);
    loader.LoadCursorFromDll(name.c_str(), id, type);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const MemoryFile file({data, size});
    const auto entries = qvui::native::ReadResourceDirectory({data, size});
    const HMODULE module = LoadLibraryA(file.Path().c_str());
    if ((module != nullptr) != entries.has_value())
        std::abort();
    if (!module)
        return 0;
    for (std::size_t i = 0; i < entries->size() && i < kMostAsked; ++i)
        AskFor(module, file.Name(), (*entries)[i]);
    FreeLibrary(module);
    return 0;
}
