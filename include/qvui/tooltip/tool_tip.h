#pragma once

#include <memory>

#include <qvui/foundation/color.h>

namespace DUI {

/// Contents and appearance of a tooltip. The tooltip's owner fills it in on request (see TOOLTIP_DISPLAY).
struct TOOLTIP_INFO {
    UINT_PTR nIDTool = 0;
    RECT rectBounds{};  // of the tool, client coordinates of the tool's window
    CString sTooltip;   // with the markup of CPPHtmlDrawer
    int nEffect = 0;    // how the background is filled: TOOLTIP_EFFECT
    UINT nMask = 0;     // which of the fields below are used (TOOLTIP_MASK)
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

/// How a tooltip's background uses its three colours.
enum TOOLTIP_EFFECT {
    TOOLTIP_EFFECT_SOLID = 0,       // only the first colour
    TOOLTIP_EFFECT_HGRADIENT = 1,   // first to last, left to right
    TOOLTIP_EFFECT_VGRADIENT = 2,   // first to last, top to bottom
    TOOLTIP_EFFECT_HCGRADIENT = 3,  // first to last and back, left to right
    TOOLTIP_EFFECT_VCGRADIENT = 4,  // first to last and back, top to bottom
    TOOLTIP_EFFECT_3VGRADIENT = 5,  // all three, top to bottom
    TOOLTIP_EFFECT_3HGRADIENT = 6,  // all three, left to right
};

/// The default colours of a control's tooltip, from top to bottom.
inline constexpr COLORREF TOOLTIP_COLOR_BEGIN = RGB(231, 242, 249);
inline constexpr COLORREF TOOLTIP_COLOR_MID = RGB(220, 231, 240);
inline constexpr COLORREF TOOLTIP_COLOR_END = RGB(219, 229, 239);

/// The notification code with which a tooltip asks its owner window for its contents.
inline constexpr UINT TOOLTIP_DISPLAY = 0x464;

/// WM_NOTIFY's lParam with TOOLTIP_DISPLAY. The owner may change the information in `ti`; an empty text
/// suppresses the tooltip.
struct NM_TOOLTIP_DISPLAY {
    NMHDR hdr;
    POINT pt;       // the pointer, screen coordinates
    HWND hwndTool;  // the tool's window
    TOOLTIP_INFO* ti;
};

/// The tooltip window: it is shown when the pointer rests on a tool, in its own colours, with marked-up text.
/// It belongs to a host window, never takes the focus or mouse input, and is shown only while one of the
/// host's windows is active and the host is enabled.
///
/// While it is shown, it queries its owner again on every pointer move; if the text changes, it hides and
/// shows the new text after the shorter delay. A mouse press, a key, the wheel and the expiry of its display
/// time dismiss it until the pointer reaches a tool, or a part of one, with another text.
class QVUI_API CPPToolTip {
public:
    CPPToolTip();
    CPPToolTip(const CPPToolTip&) = delete;
    CPPToolTip& operator=(const CPPToolTip&) = delete;
    ~CPPToolTip();

    /// Creates the hidden window, owned by `hParent`, which receives its notifications. Returns FALSE if it
    /// exists already or cannot be created.
    BOOL Create(HWND hParent);
    void DestroyWindow();
    /// Returns null before Create, after DestroyWindow and after the host window was destroyed.
    HWND GetHWND() const;
    /// Returns the id in its notifications.
    int GetDlgCtrlID() const;

    /// Adds a tool, or replaces the one with the same window and id. A tool is a rectangle of a window
    /// (client coordinates), including what the window's children cover of it. The text of a tool with an
    /// empty text is requested at display time. Where tools overlap, the one added first is used.
    void AddTool(HWND hWnd, const CString& text, const RECT& bounds, UINT_PTR id);
    void DelTool(HWND hWnd, UINT_PTR id);

    /// Call with every message before it is dispatched: moves start the delay; presses, keys and the wheel
    /// hide the tooltip.
    void RelayEvent(MSG* pMsg);
    /// Hides the tooltip until the pointer moves and rests again.
    void HideTooltip();
    BOOL IsTooltipVisible() const;

    /// Sets times in milliseconds: before the tooltip is shown (500), how long it is shown (5000; 0 for no
    /// limit while the pointer stays), and before the next tooltip is shown directly after another one (100).
    void SetDelayTime(int initial, int autoPop, int reshow);
    /// The background if the owner sets no colours: RGB(169,209,236).
    void SetBkColor(const CARGB& color);
    /// The text colour if the owner sets none: black.
    void SetTextColor(const CARGB& color);
    /// The diameter of rounded corners in pixels; 0, the default, for square corners.
    void SetCorner(int diameter);
    /// The distance in pixels between border and text (5 and 5).
    void SetMargin(int horizontal, int vertical);
    /// The distance in pixels from the pointer's hot spot horizontally (5), and from its picture vertically
    /// (10).
    void SetOffset(int x, int y);

private:
    class Window;
    std::shared_ptr<Window> m_pWindow;  // outlives its calls to the owner, which may destroy the tooltip
};

}  // namespace DUI
