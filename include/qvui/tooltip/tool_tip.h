#pragma once

#include <memory>

#include <qvui/foundation/color.h>

namespace DUI {

/// What a tooltip shows and where. The tooltip's owner fills it in when the tooltip asks (see
/// TOOLTIP_DISPLAY).
struct TOOLTIP_INFO {
    UINT_PTR nIDTool = 0;
    RECT rectBounds{};  // of the tool, client coordinates of the tool's window
    CString sTooltip;   // with the markup of CPPHtmlDrawer
    int nEffect = 0;    // how the background is filled: TOOLTIP_EFFECT
    UINT nMask = 0;     // which of the fields below count
    COLORREF crBegin = 0;
    COLORREF crMid = 0;
    COLORREF crEnd = 0;
    COLORREF crText = 0;
};

/// Bits of TOOLTIP_INFO::nMask.
enum TOOLTIP_MASK : UINT {
    TOOLTIP_MASK_COLORS = 0x10,      // crBegin, crMid and crEnd, with nEffect
    TOOLTIP_MASK_TEXT_COLOR = 0x20,  // crText
};

/// How a tooltip's background runs through its three colours.
enum TOOLTIP_EFFECT {
    TOOLTIP_EFFECT_SOLID = 0,       // the first colour alone
    TOOLTIP_EFFECT_HGRADIENT = 1,   // first to last, left to right
    TOOLTIP_EFFECT_VGRADIENT = 2,   // first to last, top to bottom
    TOOLTIP_EFFECT_HCGRADIENT = 3,  // first to last and back, left to right
    TOOLTIP_EFFECT_VCGRADIENT = 4,  // first to last and back, top to bottom
    TOOLTIP_EFFECT_3VGRADIENT = 5,  // all three, top to bottom
    TOOLTIP_EFFECT_3HGRADIENT = 6,  // all three, left to right
};

/// The colours of a control's tooltip, from top to bottom.
inline constexpr COLORREF TOOLTIP_COLOR_BEGIN = RGB(231, 242, 249);
inline constexpr COLORREF TOOLTIP_COLOR_MID = RGB(220, 231, 240);
inline constexpr COLORREF TOOLTIP_COLOR_END = RGB(219, 229, 239);

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

/// The tooltip window: appears when the pointer rests on a tool, in its own colours, with marked-up text. It
/// belongs to a host window, never takes the focus or the mouse, and shows while one of the host's windows is
/// active and the host is enabled.
///
/// While it shows, it asks its owner again at every move of the pointer; when the text is another one it
/// hides, and the new text shows after the shorter delay. A press, a key, the wheel and the end of its stay
/// put it away until the pointer comes to a tool, or to a part of one, with another text.
class QVUI_API CPPToolTip {
public:
    CPPToolTip();
    CPPToolTip(const CPPToolTip&) = delete;
    CPPToolTip& operator=(const CPPToolTip&) = delete;
    ~CPPToolTip();

    /// Makes the hidden window, owned by `hParent`, which gets its notifications; FALSE when it exists
    /// already or cannot be made.
    BOOL Create(HWND hParent);
    void DestroyWindow();
    /// Null before Create, after DestroyWindow and when the host window has gone.
    HWND GetHWND() const;
    /// The id that its notifications carry.
    int GetDlgCtrlID() const;

    /// Adds a tool: a rectangle of a window and of what its child windows cover of it (client coordinates),
    /// or replaces the one with the same window and id. An empty text is asked for at display time. Where
    /// tools overlap, the earlier one counts.
    void AddTool(HWND hWnd, const CString& text, const RECT& bounds, UINT_PTR id);
    void DelTool(HWND hWnd, UINT_PTR id);

    /// To be called with every message before it is dispatched: moves start the delay, presses, keys and the
    /// wheel hide the tooltip.
    void RelayEvent(MSG* pMsg);
    /// Hides it until the pointer moves and rests again.
    void HideTooltip();
    BOOL IsTooltipVisible() const;

    /// Milliseconds that the pointer rests before the tooltip shows (500), that it stays (5000; 0 for as long
    /// as the pointer does), and before the next tooltip shows when one has just been shown (100).
    void SetDelayTime(int initial, int autoPop, int reshow);
    /// The background without colours from the owner: RGB(169,209,236).
    void SetBkColor(const CARGB& color);
    /// The text's colour without one from the owner: black.
    void SetTextColor(const CARGB& color);
    /// The diameter of the corners' curves, in pixels; 0, as at first, for square corners.
    void SetCorner(int diameter);
    /// Pixels between border and text (5 and 5).
    void SetMargin(int horizontal, int vertical);
    /// Pixels from the pointer's hot spot sideways (5), and from its picture up or down (10).
    void SetOffset(int x, int y);

private:
    class Window;
    std::shared_ptr<Window> m_pWindow;  // outlives its own calls to the owner, which may destroy the tooltip
};

}  // namespace DUI
