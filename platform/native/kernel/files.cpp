// File access by platform paths, which use either separator and may differ from the file in letter case.

#include "native/kernel/files.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>

#include <qvui/platform/cstring.h>
#include <qvui/platform/file.h>

#include "native/core/handle_table.h"
#include "native/kernel/code_pages.h"

namespace qvui::native {
namespace {

struct CloseDirectory {
    void operator()(DIR* directory) const { closedir(directory); }
};

// Returns the entry of `folder` that equals `name` ignoring letter case, or an empty string if there is none.
std::string MatchingEntry(const std::string& folder, const std::string& name)
{
    const std::unique_ptr<DIR, CloseDirectory> directory(opendir(folder.empty() ? "." : folder.c_str()));
    while (const dirent* entry = directory ? readdir(directory.get()) : nullptr)
        if (EqualNoCase(entry->d_name, name))
            return entry->d_name;
    return {};
}

bool Exists(const std::string& path)
{
    return access(path.c_str(), F_OK) == 0;
}

}  // namespace

std::string LocalPath(const char* path)
{
    // A file name need not be valid text, so in UTF-8 its bytes are passed through unchanged.
    const std::string_view given = path ? path : "";
    std::string local = GetACP() == CP_UTF8 ? std::string(given) : SystemToUtf8(given);
    std::replace(local.begin(), local.end(), '\\', '/');
    return local;
}

std::string ExistingPath(const char* path)
{
    std::string wanted = LocalPath(path);
    if (wanted.empty() || Exists(wanted))
        return wanted;
    std::string found = wanted[0] == '/' ? "/" : "";
    for (std::size_t start = found.size(); start < wanted.size();) {
        const std::size_t end = std::min(wanted.find('/', start), wanted.size());
        const std::string part = wanted.substr(start, end - start);
        start = end + 1;
        if (part.empty() || part == ".")
            continue;
        const std::string entry = part == ".." ? part : MatchingEntry(found, part);
        if (entry.empty())
            return wanted;
        if (!found.empty() && found.back() != '/')
            found += '/';
        found += entry;
    }
    return found;
}

}  // namespace qvui::native

namespace {

// Whether a file may be opened. Directories may not; pipes and devices may not be read, because they may be
// endless. A missing file is left for the open itself to report.
bool MayOpen(const std::string& path, bool reads)
{
    struct stat status {};
    return stat(path.c_str(), &status) != 0 || (reads ? S_ISREG(status.st_mode) : !S_ISDIR(status.st_mode));
}

}  // namespace

std::FILE* OpenPlatformFile(const char* path, const char* mode)
{
    const bool reads = mode && mode[0] == 'r';
    const std::string local = reads ? qvui::native::ExistingPath(path) : qvui::native::LocalPath(path);
    return MayOpen(local, reads) ? std::fopen(local.c_str(), mode) : nullptr;
}
