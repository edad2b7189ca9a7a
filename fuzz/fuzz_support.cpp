#include "fuzz_support.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>

#include <qvui/skin/resource_loader.h>

namespace {

constexpr const char* kFolder = "/proc/self/fd";

}  // namespace

MemoryFile::MemoryFile(std::span<const std::uint8_t> bytes) : m_descriptor(memfd_create("fuzz", MFD_CLOEXEC))
{
    if (m_descriptor < 0 ||
        write(m_descriptor, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
        std::abort();
    DUI::CResLoader::SetBaseDirectory(kFolder);
}

MemoryFile::~MemoryFile()
{
    DUI::CResLoader::SetBaseDirectory("");
    close(m_descriptor);
}

std::string MemoryFile::Path() const
{
    return std::string(kFolder) + "/" + Name();
}

Canvas::Canvas() : m_context(CreateCompatibleDC(nullptr))
{
    constexpr int kWidth = 48;
    constexpr int kHeight = 32;
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = kWidth;
    info.bmiHeader.biHeight = kHeight;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* rows = nullptr;
    m_bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &rows, nullptr, 0);
    m_before = SelectObject(m_context, m_bitmap);
}

Canvas::~Canvas()
{
    SelectObject(m_context, m_before);
    DeleteDC(m_context);
    DeleteObject(m_bitmap);
}
