#include "native/kernel/modules.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <qvui/platform/cstring.h>
#include <qvui/platform/file.h>

#include "native/core/handle_table.h"
#include "native/core/live_counts.h"
#include "native/kernel/code_pages.h"
#include "native/kernel/files.h"
#include "native/kernel/resource_directory.h"

namespace qvui::native {
namespace {

struct Module {
    std::string path;
    int references = 0;
    std::vector<std::uint8_t> file;
    std::deque<ResourceEntry> resources;  // resource handles point to these entries
    std::map<std::string, FARPROC> functions;
    bool isBuiltIn = false;
};

struct Modules {
    HandleTable<Module, 3> table;
    std::vector<std::pair<std::string, HMODULE>> builtIn;
    HMODULE executable = nullptr;

    Modules() { executable = static_cast<HMODULE>(table.Insert(std::make_shared<Module>())); }
};

Modules& All()
{
    static auto& modules = *new Modules();
    return modules;
}

[[maybe_unused]] const bool g_counted = RegisterLiveCount(
    &LiveCounts::modules, [] { return All().table.LiveCount() - All().builtIn.size() - 1; });

Module* Find(HMODULE module)
{
    return All().table.Peek(module ? module : All().executable);
}

HMODULE FindBuiltIn(const char* name)
{
    for (const auto& [known, handle] : All().builtIn)
        if (EqualNoCase(known, name))
            return handle;
    return nullptr;
}

// Returns an empty vector if the file cannot be read or exceeds the size limit.
std::vector<std::uint8_t> ReadWholeFile(LPCSTR path)
{
    constexpr std::size_t kLargestFile = std::size_t{256} << 20;
    std::vector<std::uint8_t> bytes;
    std::FILE* file = OpenPlatformFile(path, "rb");
    if (!file)
        return bytes;
    std::uint8_t chunk[65536];
    while (const std::size_t count = std::fread(chunk, 1, sizeof chunk, file)) {
        bytes.insert(bytes.end(), chunk, chunk + count);
        if (bytes.size() > kLargestFile) {
            bytes.clear();
            break;
        }
    }
    std::fclose(file);
    return bytes;
}

ResourceKey KeyOf(LPCSTR name)
{
    if (IS_INTRESOURCE(name))
        return {static_cast<std::uint16_t>(reinterpret_cast<ULONG_PTR>(name)), {}};
    if (name[0] == '#')
        return {static_cast<std::uint16_t>(std::atoi(name + 1)), {}};
    const auto wide = CString(name).ToWide();
    return {0, std::u16string(wide.begin(), wide.end())};
}

}  // namespace

bool RegisterBuiltInFunction(const char* module, const char* name, FARPROC function)
{
    HMODULE handle = FindBuiltIn(module);
    if (!handle) {
        auto created = std::make_shared<Module>();
        created->isBuiltIn = true;
        handle = static_cast<HMODULE>(All().table.Insert(std::move(created)));
        All().builtIn.emplace_back(module, handle);
    }
    All().table.Peek(handle)->functions[name] = function;
    return true;
}

}  // namespace qvui::native

using namespace qvui::native;

DWORD GetModuleFileNameA(HMODULE module, LPSTR path, DWORD capacity)
{
    if (capacity == 0)
        return 0;
    std::string name;
    if (module && module != All().executable) {
        const Module* found = Find(module);
        name = found ? found->path : "";
    } else {
        char link[4096];
        const ssize_t length = readlink("/proc/self/exe", link, sizeof link);
        name.assign(link, length > 0 ? static_cast<std::size_t>(length) : 0);
    }
    name = Utf8ToSystem(name);
    std::replace(name.begin(), name.end(), '/', '\\');
    const std::size_t copied = std::min<std::size_t>(name.size(), capacity - 1);
    std::memcpy(path, name.data(), copied);
    path[copied] = '\0';
    if (copied == name.size())
        return static_cast<DWORD>(copied);
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return capacity;
}

HMODULE GetModuleHandleA(LPCSTR name)
{
    return name ? FindBuiltIn(name) : All().executable;
}

HMODULE LoadLibraryA(LPCSTR path)
{
    if (!path)
        return nullptr;
    if (const HMODULE builtIn = FindBuiltIn(path))
        return builtIn;
    const std::string local = ExistingPath(path);
    HMODULE loaded = nullptr;
    All().table.ForEach([&](void* handle, Module& module) {
        if (!module.path.empty() && module.path == local) {
            ++module.references;
            loaded = static_cast<HMODULE>(handle);
        }
    });
    if (loaded)
        return loaded;
    auto module = std::make_shared<Module>();
    module->path = local;
    module->references = 1;
    module->file = ReadWholeFile(path);
    auto resources = ReadResourceDirectory(module->file);
    if (!resources) {
        SetLastError(module->file.empty() ? ERROR_MOD_NOT_FOUND : ERROR_BAD_EXE_FORMAT);
        return nullptr;
    }
    module->resources.assign(resources->begin(), resources->end());
    return static_cast<HMODULE>(All().table.Insert(std::move(module)));
}

BOOL RegisterExecutableResources(const void* moduleFile, SIZE_T size)
{
    auto resources = ReadResourceDirectory({static_cast<const std::uint8_t*>(moduleFile), size});
    if (!resources)
        return FALSE;
    std::deque<ResourceEntry>& own = Find(nullptr)->resources;
    own.insert(own.end(), resources->begin(), resources->end());
    return TRUE;
}

BOOL FreeLibrary(HMODULE module)
{
    Module* found = module ? Find(module) : nullptr;
    if (!found)
        return FALSE;
    if (!found->isBuiltIn && module != All().executable && --found->references == 0)
        All().table.Remove(module);
    return TRUE;
}

FARPROC GetProcAddress(HMODULE module, LPCSTR name)
{
    const Module* found = Find(module);
    if (found && !IS_INTRESOURCE(name))
        if (const auto function = found->functions.find(name); function != found->functions.end())
            return function->second;
    SetLastError(ERROR_PROC_NOT_FOUND);
    return nullptr;
}

// A resource handle is the address of its entry, which is valid while the module is loaded.
HRSRC FindResourceA(HMODULE module, LPCSTR name, LPCSTR type)
{
    const Module* found = Find(module);
    if (!found) {
        SetLastError(ERROR_RESOURCE_DATA_NOT_FOUND);
        return nullptr;
    }
    const ResourceKey typeKey = KeyOf(type);
    const ResourceKey nameKey = KeyOf(name);
    DWORD error = found->resources.empty() ? ERROR_RESOURCE_DATA_NOT_FOUND : ERROR_RESOURCE_TYPE_NOT_FOUND;
    for (const ResourceEntry& entry : found->resources) {
        if (!entry.type.Matches(typeKey))
            continue;
        if (entry.name.Matches(nameKey))
            return reinterpret_cast<HRSRC>(const_cast<ResourceEntry*>(&entry));
        error = ERROR_RESOURCE_NAME_NOT_FOUND;
    }
    SetLastError(error);
    return nullptr;
}

HGLOBAL LoadResource(HMODULE, HRSRC resource)
{
    return resource;
}

LPVOID LockResource(HGLOBAL resource)
{
    const auto* entry = static_cast<const ResourceEntry*>(resource);
    return entry ? const_cast<std::uint8_t*>(entry->bytes.data()) : nullptr;
}

DWORD SizeofResource(HMODULE, HRSRC resource)
{
    const auto* entry = reinterpret_cast<const ResourceEntry*>(resource);
    return entry ? static_cast<DWORD>(entry->bytes.size()) : 0;
}
