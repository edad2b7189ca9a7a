#pragma once

#include <optional>

#include <qvui/qvui.h>

/// The non-client behaviour of a window whose frame is drawn by its skin, from the style bits, the caption
/// height and the frame of its window manager: dragging by the caption, maximising by a double click, sizing
/// at the borders, a region of the frame's shape, and drawing as a layered window.
class CustomFrame {
public:
    /// The manager outlives this.
    explicit CustomFrame(DUI::CDUIWindowMgr& window) : m_window(window) {}

    /// Styles for CreateWindowExA that leave the whole window to its client area.
    static constexpr DWORD kStyle = WS_POPUP | WS_THICKFRAME | WS_SYSMENU | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;

    /// Answers a message of the non-client area; nullopt leaves it to the manager and the default.
    std::optional<LRESULT> Handle(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
    /// Shapes the window anew after its size or its skin changed.
    void Shape();

private:
    LRESULT HitTest(HWND hWnd, POINT screen) const;
    int HitBorder(HWND hWnd, POINT client) const;
    bool IsCaption(POINT client) const;
    void LimitSize(MINMAXINFO& limits) const;
    void PaintLayered(HWND hWnd);

    DUI::CDUIWindowMgr& m_window;
};
