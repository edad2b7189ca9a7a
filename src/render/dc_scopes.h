#pragma once

#include <qvui/platform/platform.h>

/// Scope guards that change a device context and restore it. (The public CDUIRenderClip intersects the clip
/// region with a rectangle.)
namespace DUI {

/// Selects an object; null has no effect. The object is not owned.
class SelectScope {
public:
    SelectScope(HDC hdc, HGDIOBJ object) : m_hDC(hdc), m_hOld(object ? SelectObject(hdc, object) : nullptr) {}
    SelectScope(const SelectScope&) = delete;
    SelectScope& operator=(const SelectScope&) = delete;
    ~SelectScope()
    {
        if (m_hOld)
            SelectObject(m_hDC, m_hOld);
    }

private:
    HDC m_hDC;
    HGDIOBJ m_hOld;
};

/// Sets the stretch mode: HALFTONE smooths, COLORONCOLOR drops pixels.
class StretchModeScope {
public:
    StretchModeScope(HDC hdc, int mode) : m_hDC(hdc), m_nOld(SetStretchBltMode(hdc, mode)) {}
    StretchModeScope(const StretchModeScope&) = delete;
    StretchModeScope& operator=(const StretchModeScope&) = delete;
    ~StretchModeScope() { SetStretchBltMode(m_hDC, m_nOld); }

private:
    HDC m_hDC;
    int m_nOld;
};

/// Intersects the clip region of a context with a region. A context without a clip region is left unchanged.
class ClipRegionScope {
public:
    /// Takes ownership of the region.
    ClipRegionScope(HDC hdc, HRGN region) : m_hDC(hdc), m_hSaved(CreateRectRgn(0, 0, 0, 0))
    {
        m_isClipped = GetClipRgn(hdc, m_hSaved) == 1;
        if (m_isClipped) {
            CombineRgn(region, region, m_hSaved, RGN_AND);
            SelectClipRgn(hdc, region);
        }
        DeleteObject(region);
    }
    ClipRegionScope(const ClipRegionScope&) = delete;
    ClipRegionScope& operator=(const ClipRegionScope&) = delete;
    ~ClipRegionScope()
    {
        if (m_isClipped)
            SelectClipRgn(m_hDC, m_hSaved);
        DeleteObject(m_hSaved);
    }

private:
    HDC m_hDC;
    HRGN m_hSaved;
    bool m_isClipped = false;
};

/// Saves and restores the whole state of a context.
class SaveScope {
public:
    explicit SaveScope(HDC hdc) : m_hDC(hdc), m_level(SaveDC(hdc)) {}
    SaveScope(const SaveScope&) = delete;
    SaveScope& operator=(const SaveScope&) = delete;
    ~SaveScope() { RestoreDC(m_hDC, m_level); }

private:
    HDC m_hDC;
    int m_level;
};

}  // namespace DUI
