#pragma once

#include <qvui/platform/platform.h>

namespace DUI {

/// A memory context with a bitmap selected for one scope. The context is reused by later scopes, so drawing
/// creates none. Use on the user-interface thread only.
class MemoryContext {
public:
    explicit MemoryContext(HBITMAP bitmap);
    MemoryContext(const MemoryContext&) = delete;
    MemoryContext& operator=(const MemoryContext&) = delete;
    ~MemoryContext();

    HDC Get() const { return m_hDC; }
    /// False if the bitmap is selected into another context.
    bool HasBitmap() const { return m_hOld != nullptr; }

private:
    HDC m_hDC;
    HGDIOBJ m_hOld;
};

/// A small 32-bit surface, top row first, that is created on first use and kept for the life of the process.
class KeptSurface {
public:
    constexpr KeptSurface(int width, int height) : m_width(width), m_height(height) {}
    KeptSurface(const KeptSurface&) = delete;
    KeptSurface& operator=(const KeptSurface&) = delete;

    /// Returns a context for drawing on the surface and copying from it, or null if it could not be created.
    HDC Context();
    /// Returns the bytes of the first pixel for writing, or null if there is no context.
    BYTE* Pixels();

private:
    int m_width;
    int m_height;
    HDC m_hDC = nullptr;
    void* m_pBits = nullptr;
};

}  // namespace DUI
