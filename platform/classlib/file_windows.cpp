#include <qvui/platform/file.h>

std::FILE* OpenPlatformFile(const char* path, const char* mode)
{
    return std::fopen(path, mode);
}
