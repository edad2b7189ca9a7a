#pragma once

#include <qvui/platform/platform.h>

namespace DUI {

/// Lets stretched images be smooth for its scope.
class HalftoneScope {
public:
    explicit HalftoneScope(HDC hdc) : m_hDC(hdc), m_nOld(SetStretchBltMode(hdc, HALFTONE)) {}
    HalftoneScope(const HalftoneScope&) = delete;
    HalftoneScope& operator=(const HalftoneScope&) = delete;
    ~HalftoneScope() { SetStretchBltMode(m_hDC, m_nOld); }

private:
    HDC m_hDC;
    int m_nOld;
};

}  // namespace DUI
