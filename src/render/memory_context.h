#pragma once

#include <qvui/platform/platform.h>

namespace DUI {

/// A memory context with a bitmap selected for one scope. The context itself is kept for the next scope, so
/// drawing makes none; for the user-interface thread only.
class MemoryContext {
public:
    explicit MemoryContext(HBITMAP bitmap);
    MemoryContext(const MemoryContext&) = delete;
    MemoryContext& operator=(const MemoryContext&) = delete;
    ~MemoryContext();

    HDC Get() const { return m_hDC; }
    /// False when another context has the bitmap.
    bool HasBitmap() const { return m_hOld != nullptr; }

private:
    HDC m_hDC;
    HGDIOBJ m_hOld;
};

/// A small 32-bit surface, top row first, that is made at its first use and kept for the life of the process.
class KeptSurface {
public:
    constexpr KeptSurface(int width, int height) : m_width(width), m_height(height) {}
    KeptSurface(const KeptSurface&) = delete;
    KeptSurface& operator=(const KeptSurface&) = delete;

    /// A context that draws on it and copies from it; null when it could not be made.
    HDC Context();
    /// The first pixel's bytes, ready to be written; null when there is no context.
    BYTE* Pixels();

private:
    int m_width;
    int m_height;
    HDC m_hDC = nullptr;
    void* m_pBits = nullptr;
};

}  // namespace DUI
