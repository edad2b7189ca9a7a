#include "writer/file_store.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

#include <qvui/platform/cstring.h>
#include <qvui/platform/file.h>

namespace writer {
namespace {

namespace fs = std::filesystem;

struct CloseStream {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};
using Stream = std::unique_ptr<std::FILE, CloseStream>;

// File names of the machine's own encoding need not be valid text, so only a wide path takes the detour.
fs::path PathOf(const std::string& path)
{
    if constexpr (sizeof(fs::path::value_type) == 1)
        return fs::path(path);
    else
        return fs::path(CString(path.c_str()).ToWide());
}

bool WriteAll(const std::string& path, std::string_view bytes)
{
    std::FILE* const stream = OpenPlatformFile(path.c_str(), "wb");
    if (!stream)
        return false;
    const bool isWritten = std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size();
    const bool isClosed = std::fclose(stream) == 0;  // what is buffered can fail here
    return isWritten && isClosed;
}

}  // namespace

std::optional<std::string> ReadWholeFile(const std::string& path)
{
    const Stream stream(OpenPlatformFile(path.c_str(), "rb"));
    if (!stream)
        return std::nullopt;
    std::string bytes;
    std::size_t size = 0;
    do {
        constexpr std::size_t kStep = std::size_t{1} << 20;
        bytes.resize(size + kStep);
        size += std::fread(bytes.data() + size, 1, kStep, stream.get());
    } while (size == bytes.size());
    bytes.resize(size);
    return std::ferror(stream.get()) ? std::nullopt : std::optional(std::move(bytes));
}

bool ReplaceFile(const std::string& path, std::string_view bytes)
{
    std::error_code error;
    // A symbolic link stays one: the file that it names is replaced.
    fs::path target = PathOf(path);
    if (const fs::path real = fs::canonical(target, error); !error)
        target = real;
    std::string scratch = path;
    for (int attempt = 0; FileExists(scratch) || attempt == 0; ++attempt)
        scratch = path + "." + std::to_string(attempt) + ".tmp";
    const fs::path temporary = PathOf(scratch);
    if (!WriteAll(scratch, bytes)) {
        fs::remove(temporary, error);
        return false;
    }
    if (const fs::file_status status = fs::status(target, error); fs::exists(status))
        fs::permissions(temporary, status.permissions(), error);
    fs::rename(temporary, target, error);
    if (!error)
        return true;
    std::error_code ignored;
    fs::remove(temporary, ignored);
    return false;
}

bool FileExists(const std::string& path)
{
    std::error_code error;
    return fs::exists(PathOf(path), error);
}

}  // namespace writer
