#include "render/memory_context.h"

#include <algorithm>

#include <qvui/platform/kept_objects.h>

namespace DUI {
namespace {

struct KeptContext {
    HDC hdc = nullptr;
    bool isInUse = false;
};

// Operations nest at most two contexts; further contexts are created and deleted as needed.
KeptContext g_contexts[3];

HDC AcquireContext()
{
    for (KeptContext& kept : g_contexts) {
        if (kept.isInUse)
            continue;
        if (!kept.hdc) {
            kept.hdc = CreateCompatibleDC(nullptr);
            CountAsKept(kept.hdc ? 1 : 0, 0);
        }
        kept.isInUse = kept.hdc != nullptr;
        return kept.hdc;
    }
    return CreateCompatibleDC(nullptr);
}

void ReleaseContext(HDC hdc)
{
    for (KeptContext& kept : g_contexts)
        if (kept.hdc == hdc) {
            kept.isInUse = false;
            return;
        }
    DeleteDC(hdc);
}

}  // namespace

MemoryContext::MemoryContext(HBITMAP bitmap) : m_hDC(AcquireContext()), m_hOld(SelectObject(m_hDC, bitmap))
{
}

MemoryContext::~MemoryContext()
{
    SelectObject(m_hDC, m_hOld);
    ReleaseContext(m_hDC);
}

HDC KeptSurface::Context()
{
    if (m_hDC)
        return m_hDC;
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = m_width;
    info.bmiHeader.biHeight = -m_height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    const HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &m_pBits, nullptr, 0);
    if (!bitmap)
        return nullptr;
    m_hDC = CreateCompatibleDC(nullptr);
    SelectObject(m_hDC, bitmap);
    CountAsKept(1, 1);
    return m_hDC;
}

BYTE* KeptSurface::Pixels()
{
    if (!Context())
        return nullptr;
    // Flush pending drawing, which must not read pixels that are written next.
    GdiFlush();
    return static_cast<BYTE*>(m_pBits);
}

}  // namespace DUI
