#pragma once

#include <cstdint>
#include <span>
#include <string>

#include <qvui/platform/cstring.h>

/// A file in memory that the library opens by its name as if it lay on the disk. Names are relative to the
/// folder of such files, which becomes the one of the skin for the whole process.
class MemoryFile {
public:
    explicit MemoryFile(std::span<const std::uint8_t> bytes);
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    ~MemoryFile();

    /// The name that a skin calls it by.
    std::string Name() const { return std::to_string(m_descriptor); }
    /// The whole path.
    std::string Path() const;

private:
    int m_descriptor;
};

/// A small picture to draw on.
class Canvas {
public:
    Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas();

    HDC Get() const { return m_context; }

private:
    HDC m_context;
    HBITMAP m_bitmap;
    HGDIOBJ m_before;
};
