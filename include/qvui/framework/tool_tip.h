#pragma once

#include <memory>

#include <qvui/foundation/color.h>

namespace DUI {

/// What a tooltip shows and where. The tooltip's owner fills it in when the tooltip asks (see TOOLTIP_DISPLAY).
struct TOOLTIP_INFO {
    UINT_PTR nIDTool = 0;
    RECT rectBounds{};  // of the tool, client coordinates of the tool's window
    CString sTooltip;   // with the markup of CPPHtmlDrawer
    int nEffect = 0;    // how the background is filled: TOOLTIP_EFFECT
    UINT nMask = 0;     // which of the fields below count
    COLORREF crBegin = 0;
    COLORREF crMid = 0;
    COLORREF crEnd = 0;
};

/// Bits of TOOLTIP_INFO::nMask.
enum TOOLTIP_MASK : UINT {
    TOOLTIP_MASK_COLORS = 0x10,
};

/// How a tooltip's background runs through its three colours.
enum TOOLTIP_EFFECT {
    TOOLTIP_EFFECT_SOLID = 0,        // the first colour alone
    TOOLTIP_EFFECT_HGRADIENT = 1,    // first to last, left to right
    TOOLTIP_EFFECT_VGRADIENT = 2,    // first to last, top to bottom
    TOOLTIP_EFFECT_HCGRADIENT = 3,   // first to last and back, left to right
    TOOLTIP_EFFECT_VCGRADIENT = 4,   // first to last and back, top to bottom
    TOOLTIP_EFFECT_3VGRADIENT = 5,   // all three, top to bottom
    TOOLTIP_EFFECT_3HGRADIENT = 6,   // all three, left to right
};

/// The code of the notification by which a tooltip asks its owner window what to show.
inline constexpr UINT TOOLTIP_DISPLAY = 0x464;

/// WM_NOTIFY's lParam with TOOLTIP_DISPLAY. The owner may change the tool's information; an empty text shows
/// nothing.
struct NM_TOOLTIP_DISPLAY {
    NMHDR hdr;
    POINT pt;       // the pointer, screen coordinates
    HWND hwndTool;  // the tool's window
    TOOLTIP_INFO* ti;
};

/// The tooltip window: appears when the pointer rests on a tool, in its own colours, with marked-up text.
class QVUI_API CPPToolTip {
public:
    CPPToolTip();
    CPPToolTip(const CPPToolTip&) = delete;
    CPPToolTip& operator=(const CPPToolTip&) = delete;
    ~CPPToolTip();

    /// Makes the hidden window, owned by `hParent`; FALSE when it exists already or cannot be made.
    BOOL Create(HWND hParent);
    void DestroyWindow();
    HWND GetHWND() const;
    /// The id that its notifications carry.
    int GetDlgCtrlID() const;

    /// Adds a tool: a rectangle of a window (client coordinates). An empty text is asked for at display time.
    void AddTool(HWND hWnd, const CString& text, const RECT& bounds, UINT_PTR id);
    void DelTool(HWND hWnd, UINT_PTR id);

    /// To be called with every message before it is dispatched: moves start the delay, presses, keys and the
    /// wheel hide the tooltip.
    void RelayEvent(MSG* pMsg);
    void HideTooltip();
    BOOL IsTooltipVisible() const;

    /// Milliseconds that the pointer rests before the tooltip shows (500), that it stays (5000), and before the
    /// next tool's tooltip shows after one was shown (100).
    void SetDelayTime(int initial, int autoPop, int reshow);
    /// The background without colours from the owner.
    void SetBkColor(const CARGB& color);
    /// Pixels between border and text, and the distance from the pointer.
    void SetMargin(int horizontal, int vertical);
    void SetOffset(int x, int y);

private:
    class Window;
    std::unique_ptr<Window> m_pWindow;
};

}  // namespace DUI
