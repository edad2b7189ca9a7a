#pragma once

#include <qvui/platform/platform.h>

namespace DUI {

/// A memory context with a bitmap selected for one scope.
class MemoryContext {
public:
    MemoryContext(HDC compatible, HBITMAP bitmap)
        : m_hDC(CreateCompatibleDC(compatible)), m_hOld(SelectObject(m_hDC, bitmap))
    {
    }
    MemoryContext(const MemoryContext&) = delete;
    MemoryContext& operator=(const MemoryContext&) = delete;
    ~MemoryContext()
    {
        SelectObject(m_hDC, m_hOld);
        DeleteDC(m_hDC);
    }

    HDC Get() const { return m_hDC; }

private:
    HDC m_hDC;
    HGDIOBJ m_hOld;
};

}  // namespace DUI
