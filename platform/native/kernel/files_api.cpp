// File functions that take handles.

#include <qvui/platform/file.h>
#include <qvui/platform/native/kernel.h>

#include "native/core/handle_table.h"
#include "native/kernel/files.h"

using namespace qvui::native;

namespace {

struct File {
    explicit File(std::FILE* opened) : stream(opened) {}
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() { std::fclose(stream); }
    std::FILE* stream;
};

HandleTable<File, 2>& Files()
{
    static auto& files = *new HandleTable<File, 2>();
    return files;
}

}  // namespace

HANDLE CreateFileA(LPCSTR path, DWORD access, DWORD, void*, DWORD disposition, DWORD, HANDLE)
{
    const bool writes = (access & GENERIC_WRITE) != 0;
    std::FILE* stream = OpenPlatformFile(path, !writes ? "rb" : disposition == CREATE_ALWAYS ? "wb+" : "rb+");
    if (!stream) {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return INVALID_HANDLE_VALUE;
    }
    return Files().Insert(std::make_shared<File>(stream));
}

BOOL ReadFile(HANDLE file, LPVOID buffer, DWORD size, DWORD* read, void*)
{
    const File* opened = Files().Peek(file);
    const std::size_t count = opened ? std::fread(buffer, 1, size, opened->stream) : 0;
    if (read)
        *read = static_cast<DWORD>(count);
    return opened && !std::ferror(opened->stream);
}

BOOL WriteFile(HANDLE file, LPCVOID buffer, DWORD size, DWORD* written, void*)
{
    const File* opened = Files().Peek(file);
    const std::size_t count = opened ? std::fwrite(buffer, 1, size, opened->stream) : 0;
    if (written)
        *written = static_cast<DWORD>(count);
    return opened && count == size;
}

BOOL CloseHandle(HANDLE file)
{
    return Files().Remove(file) != nullptr;
}
