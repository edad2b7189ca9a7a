#pragma once

/// Windows, messages, input, timers, cursors and the clipboard.
///
/// A window's client area is the whole window: a window with a native caption is decorated by the display
/// system outside it; a window without one gets the frame that the application draws.

#include <qvui/platform/native/gdi.h>

using WNDPROC = LRESULT (*)(HWND, UINT, WPARAM, LPARAM);
using TIMERPROC = void (*)(HWND, UINT, UINT_PTR, DWORD);

inline constexpr UINT WM_NULL = 0;
inline constexpr UINT WM_CREATE = 1;
inline constexpr UINT WM_DESTROY = 2;
inline constexpr UINT WM_MOVE = 3;
inline constexpr UINT WM_SIZE = 5;
inline constexpr UINT WM_ACTIVATE = 6;
inline constexpr UINT WM_SETFOCUS = 7;
inline constexpr UINT WM_KILLFOCUS = 8;
inline constexpr UINT WM_ENABLE = 0xA;
inline constexpr UINT WM_SETREDRAW = 0xB;
inline constexpr UINT WM_SETTEXT = 0xC;
inline constexpr UINT WM_GETTEXT = 0xD;
inline constexpr UINT WM_GETTEXTLENGTH = 0xE;
inline constexpr UINT WM_PAINT = 0xF;
inline constexpr UINT WM_CLOSE = 0x10;
inline constexpr UINT WM_QUIT = 0x12;
inline constexpr UINT WM_ERASEBKGND = 0x14;
inline constexpr UINT WM_SHOWWINDOW = 0x18;
inline constexpr UINT WM_ACTIVATEAPP = 0x1C;
inline constexpr UINT WM_CANCELMODE = 0x1F;
inline constexpr UINT WM_SETCURSOR = 0x20;
inline constexpr UINT WM_MOUSEACTIVATE = 0x21;
inline constexpr UINT WM_GETMINMAXINFO = 0x24;
inline constexpr UINT WM_DRAWITEM = 0x2B;
inline constexpr UINT WM_MEASUREITEM = 0x2C;
inline constexpr UINT WM_SETFONT = 0x30;
inline constexpr UINT WM_GETFONT = 0x31;
inline constexpr UINT WM_WINDOWPOSCHANGING = 0x46;
inline constexpr UINT WM_WINDOWPOSCHANGED = 0x47;
inline constexpr UINT WM_NOTIFY = 0x4E;
inline constexpr UINT WM_CONTEXTMENU = 0x7B;
inline constexpr UINT WM_GETICON = 0x7F;
inline constexpr UINT WM_NCCREATE = 0x81;
inline constexpr UINT WM_NCDESTROY = 0x82;
inline constexpr UINT WM_NCCALCSIZE = 0x83;
inline constexpr UINT WM_NCHITTEST = 0x84;
inline constexpr UINT WM_NCPAINT = 0x85;
inline constexpr UINT WM_NCACTIVATE = 0x86;
inline constexpr UINT WM_GETDLGCODE = 0x87;
inline constexpr UINT WM_NCMOUSEMOVE = 0xA0;
inline constexpr UINT WM_NCLBUTTONDOWN = 0xA1;
inline constexpr UINT WM_NCLBUTTONUP = 0xA2;
inline constexpr UINT WM_NCLBUTTONDBLCLK = 0xA3;
inline constexpr UINT WM_NCRBUTTONDOWN = 0xA4;
inline constexpr UINT WM_NCRBUTTONUP = 0xA5;
inline constexpr UINT WM_NCRBUTTONDBLCLK = 0xA6;
inline constexpr UINT WM_KEYDOWN = 0x100;
inline constexpr UINT WM_KEYUP = 0x101;
inline constexpr UINT WM_CHAR = 0x102;
inline constexpr UINT WM_SYSKEYDOWN = 0x104;
inline constexpr UINT WM_SYSKEYUP = 0x105;
inline constexpr UINT WM_SYSCHAR = 0x106;
inline constexpr UINT WM_UNICHAR = 0x109;
inline constexpr UINT WM_COMMAND = 0x111;
inline constexpr UINT WM_SYSCOMMAND = 0x112;
inline constexpr UINT WM_TIMER = 0x113;
inline constexpr UINT WM_HSCROLL = 0x114;
inline constexpr UINT WM_VSCROLL = 0x115;
inline constexpr UINT WM_SYSTIMER = 0x118;
inline constexpr UINT WM_MOUSEMOVE = 0x200;
inline constexpr UINT WM_LBUTTONDOWN = 0x201;
inline constexpr UINT WM_LBUTTONUP = 0x202;
inline constexpr UINT WM_LBUTTONDBLCLK = 0x203;
inline constexpr UINT WM_RBUTTONDOWN = 0x204;
inline constexpr UINT WM_RBUTTONUP = 0x205;
inline constexpr UINT WM_RBUTTONDBLCLK = 0x206;
inline constexpr UINT WM_MBUTTONDOWN = 0x207;
inline constexpr UINT WM_MBUTTONUP = 0x208;
inline constexpr UINT WM_MBUTTONDBLCLK = 0x209;
inline constexpr UINT WM_MOUSEWHEEL = 0x20A;
inline constexpr UINT WM_MOUSEHWHEEL = 0x20E;
inline constexpr UINT WM_PARENTNOTIFY = 0x210;
inline constexpr UINT WM_SIZING = 0x214;
inline constexpr UINT WM_CAPTURECHANGED = 0x215;
inline constexpr UINT WM_MOVING = 0x216;
inline constexpr UINT WM_ENTERSIZEMOVE = 0x231;
inline constexpr UINT WM_EXITSIZEMOVE = 0x232;
inline constexpr UINT WM_NCMOUSELEAVE = 0x2A2;
inline constexpr UINT WM_MOUSEHOVER = 0x2A1;
inline constexpr UINT WM_MOUSELEAVE = 0x2A3;
inline constexpr UINT WM_CUT = 0x300;
inline constexpr UINT WM_COPY = 0x301;
inline constexpr UINT WM_PASTE = 0x302;
inline constexpr UINT WM_CLEAR = 0x303;
inline constexpr UINT WM_UNDO = 0x304;
inline constexpr UINT WM_PRINT = 0x317;
inline constexpr UINT WM_PRINTCLIENT = 0x318;
inline constexpr UINT WM_USER = 0x400;
inline constexpr UINT WM_APP = 0x8000;

inline constexpr DWORD WS_OVERLAPPED = 0;
inline constexpr DWORD WS_POPUP = 0x80000000;
inline constexpr DWORD WS_CHILD = 0x40000000;
inline constexpr DWORD WS_MINIMIZE = 0x20000000;
inline constexpr DWORD WS_VISIBLE = 0x10000000;
inline constexpr DWORD WS_DISABLED = 0x08000000;
inline constexpr DWORD WS_CLIPSIBLINGS = 0x04000000;
inline constexpr DWORD WS_CLIPCHILDREN = 0x02000000;
inline constexpr DWORD WS_MAXIMIZE = 0x01000000;
inline constexpr DWORD WS_CAPTION = 0x00C00000;
inline constexpr DWORD WS_BORDER = 0x00800000;
inline constexpr DWORD WS_DLGFRAME = 0x00400000;
inline constexpr DWORD WS_VSCROLL = 0x00200000;
inline constexpr DWORD WS_HSCROLL = 0x00100000;
inline constexpr DWORD WS_SYSMENU = 0x00080000;
inline constexpr DWORD WS_THICKFRAME = 0x00040000;
inline constexpr DWORD WS_GROUP = 0x00020000;
inline constexpr DWORD WS_TABSTOP = 0x00010000;
inline constexpr DWORD WS_MINIMIZEBOX = 0x00020000;
inline constexpr DWORD WS_MAXIMIZEBOX = 0x00010000;
inline constexpr DWORD WS_OVERLAPPEDWINDOW =
    WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
inline constexpr DWORD WS_EX_TOPMOST = 8;
inline constexpr DWORD WS_EX_TRANSPARENT = 0x20;
inline constexpr DWORD WS_EX_TOOLWINDOW = 0x80;
inline constexpr DWORD WS_EX_CONTROLPARENT = 0x10000;
inline constexpr DWORD WS_EX_LAYERED = 0x80000;
inline constexpr DWORD WS_EX_NOACTIVATE = 0x08000000;
inline constexpr UINT CS_VREDRAW = 1;
inline constexpr UINT CS_HREDRAW = 2;
inline constexpr UINT CS_DBLCLKS = 8;
inline constexpr UINT CS_OWNDC = 0x20;
inline constexpr UINT CS_DROPSHADOW = 0x20000;
inline constexpr int SW_HIDE = 0;
inline constexpr int SW_SHOWNORMAL = 1;
inline constexpr int SW_SHOWMINIMIZED = 2;
inline constexpr int SW_MAXIMIZE = 3;
inline constexpr int SW_SHOWMAXIMIZED = 3;
inline constexpr int SW_SHOWNOACTIVATE = 4;
inline constexpr int SW_SHOW = 5;
inline constexpr int SW_MINIMIZE = 6;
inline constexpr int SW_SHOWNA = 8;
inline constexpr int SW_RESTORE = 9;
inline constexpr UINT RDW_INVALIDATE = 1;
inline constexpr UINT RDW_ERASE = 4;
inline constexpr UINT RDW_VALIDATE = 8;
inline constexpr UINT RDW_NOCHILDREN = 0x40;
inline constexpr UINT RDW_ALLCHILDREN = 0x80;
inline constexpr UINT RDW_UPDATENOW = 0x100;
inline constexpr UINT RDW_ERASENOW = 0x200;
inline constexpr UINT RDW_FRAME = 0x400;
inline constexpr UINT SWP_NOSIZE = 1;
inline constexpr UINT SWP_NOMOVE = 2;
inline constexpr UINT SWP_NOZORDER = 4;
inline constexpr UINT SWP_NOREDRAW = 8;
inline constexpr UINT SWP_NOACTIVATE = 0x10;
inline constexpr UINT SWP_FRAMECHANGED = 0x20;
inline constexpr UINT SWP_SHOWWINDOW = 0x40;
inline constexpr UINT SWP_HIDEWINDOW = 0x80;
inline constexpr int GWL_WNDPROC = -4;
inline constexpr int GWL_STYLE = -16;
inline constexpr int GWL_EXSTYLE = -20;
inline constexpr int GWL_ID = -12;
inline constexpr int GWLP_WNDPROC = -4;
inline constexpr int GWLP_HWNDPARENT = -8;
inline constexpr int GWLP_ID = -12;
inline constexpr int GWLP_USERDATA = -21;
inline constexpr UINT GW_HWNDFIRST = 0;
inline constexpr UINT GW_HWNDLAST = 1;
inline constexpr UINT GW_HWNDNEXT = 2;
inline constexpr UINT GW_HWNDPREV = 3;
inline constexpr UINT GW_OWNER = 4;
inline constexpr UINT GW_CHILD = 5;
inline constexpr UINT GA_PARENT = 1;
inline constexpr UINT GA_ROOT = 2;
inline constexpr UINT GA_ROOTOWNER = 3;
inline constexpr int SIZE_RESTORED = 0;
inline constexpr int SIZE_MINIMIZED = 1;
inline constexpr int SIZE_MAXIMIZED = 2;
inline constexpr int WA_INACTIVE = 0;
inline constexpr int WA_ACTIVE = 1;
inline constexpr int WA_CLICKACTIVE = 2;
inline constexpr int MA_ACTIVATE = 1;
inline constexpr int MA_ACTIVATEANDEAT = 2;
inline constexpr int MA_NOACTIVATE = 3;
inline constexpr int MA_NOACTIVATEANDEAT = 4;
inline constexpr int HTERROR = -2;
inline constexpr int HTTRANSPARENT = -1;
inline constexpr int HTNOWHERE = 0;
inline constexpr int HTCLIENT = 1;
inline constexpr int HTCAPTION = 2;
inline constexpr int HTSYSMENU = 3;
inline constexpr int HTMINBUTTON = 8;
inline constexpr int HTMAXBUTTON = 9;
inline constexpr int HTLEFT = 10;
inline constexpr int HTRIGHT = 11;
inline constexpr int HTTOP = 12;
inline constexpr int HTTOPLEFT = 13;
inline constexpr int HTTOPRIGHT = 14;
inline constexpr int HTBOTTOM = 15;
inline constexpr int HTBOTTOMLEFT = 16;
inline constexpr int HTBOTTOMRIGHT = 17;
inline constexpr int HTBORDER = 18;
inline constexpr int HTCLOSE = 20;
inline constexpr UINT SC_SIZE = 0xF000;
inline constexpr UINT SC_MOVE = 0xF010;
inline constexpr UINT SC_MINIMIZE = 0xF020;
inline constexpr UINT SC_MAXIMIZE = 0xF030;
inline constexpr UINT SC_CLOSE = 0xF060;
inline constexpr UINT SC_KEYMENU = 0xF100;
inline constexpr UINT SC_RESTORE = 0xF120;
inline constexpr UINT MK_LBUTTON = 1;
inline constexpr UINT MK_RBUTTON = 2;
inline constexpr UINT MK_SHIFT = 4;
inline constexpr UINT MK_CONTROL = 8;
inline constexpr UINT MK_MBUTTON = 0x10;
inline constexpr UINT PM_NOREMOVE = 0;
inline constexpr UINT PM_REMOVE = 1;
inline constexpr DWORD TME_HOVER = 1;
inline constexpr DWORD TME_LEAVE = 2;
inline constexpr DWORD TME_NONCLIENT = 0x10;
inline constexpr DWORD TME_CANCEL = 0x80000000;
inline constexpr DWORD HOVER_DEFAULT = 0xFFFFFFFF;
inline constexpr int VK_LBUTTON = 1;
inline constexpr int VK_RBUTTON = 2;
inline constexpr int VK_MBUTTON = 4;
inline constexpr int VK_BACK = 8;
inline constexpr int VK_TAB = 9;
inline constexpr int VK_RETURN = 0xD;
inline constexpr int VK_SHIFT = 0x10;
inline constexpr int VK_CONTROL = 0x11;
inline constexpr int VK_MENU = 0x12;
inline constexpr int VK_CAPITAL = 0x14;
inline constexpr int VK_ESCAPE = 0x1B;
inline constexpr int VK_SPACE = 0x20;
inline constexpr int VK_PRIOR = 0x21;
inline constexpr int VK_NEXT = 0x22;
inline constexpr int VK_END = 0x23;
inline constexpr int VK_HOME = 0x24;
inline constexpr int VK_LEFT = 0x25;
inline constexpr int VK_UP = 0x26;
inline constexpr int VK_RIGHT = 0x27;
inline constexpr int VK_DOWN = 0x28;
inline constexpr int VK_INSERT = 0x2D;
inline constexpr int VK_DELETE = 0x2E;
inline constexpr int VK_APPS = 0x5D;
inline constexpr int VK_NUMPAD0 = 0x60;
inline constexpr int VK_NUMPAD9 = 0x69;
inline constexpr int VK_MULTIPLY = 0x6A;
inline constexpr int VK_ADD = 0x6B;
inline constexpr int VK_SUBTRACT = 0x6D;
inline constexpr int VK_DECIMAL = 0x6E;
inline constexpr int VK_DIVIDE = 0x6F;
inline constexpr int VK_F1 = 0x70;
inline constexpr int VK_F3 = 0x72;
inline constexpr int VK_F4 = 0x73;
inline constexpr int VK_F10 = 0x79;
inline constexpr int VK_F12 = 0x7B;
inline constexpr int VK_LSHIFT = 0xA0;
inline constexpr int VK_RSHIFT = 0xA1;
inline constexpr int VK_LCONTROL = 0xA2;
inline constexpr int VK_RCONTROL = 0xA3;
inline constexpr int VK_LMENU = 0xA4;
inline constexpr int VK_RMENU = 0xA5;
inline constexpr int VK_OEM_PLUS = 0xBB;
inline constexpr int VK_OEM_MINUS = 0xBD;
inline constexpr int VK_OEM_1 = 0xBA;
inline constexpr int VK_OEM_COMMA = 0xBC;
inline constexpr int VK_OEM_PERIOD = 0xBE;
inline constexpr int VK_OEM_2 = 0xBF;
inline constexpr int VK_OEM_3 = 0xC0;
inline constexpr int VK_OEM_4 = 0xDB;
inline constexpr int VK_OEM_5 = 0xDC;
inline constexpr int VK_OEM_6 = 0xDD;
inline constexpr int VK_OEM_7 = 0xDE;
inline constexpr int SB_HORZ = 0;
inline constexpr int SB_VERT = 1;
inline constexpr int SB_BOTH = 3;
inline constexpr int SB_LINEUP = 0;
inline constexpr int SB_LINELEFT = 0;
inline constexpr int SB_LINEDOWN = 1;
inline constexpr int SB_LINERIGHT = 1;
inline constexpr int SB_PAGEUP = 2;
inline constexpr int SB_PAGELEFT = 2;
inline constexpr int SB_PAGEDOWN = 3;
inline constexpr int SB_PAGERIGHT = 3;
inline constexpr int SB_THUMBPOSITION = 4;
inline constexpr int SB_THUMBTRACK = 5;
inline constexpr int SB_TOP = 6;
inline constexpr int SB_BOTTOM = 7;
inline constexpr int SB_ENDSCROLL = 8;
inline constexpr UINT SIF_RANGE = 1;
inline constexpr UINT SIF_PAGE = 2;
inline constexpr UINT SIF_POS = 4;
inline constexpr UINT SIF_TRACKPOS = 0x10;
inline constexpr UINT SIF_ALL = 0x17;
inline constexpr int SM_CXSCREEN = 0;
inline constexpr int SM_CYSCREEN = 1;
inline constexpr int SM_CXDOUBLECLK = 36;
inline constexpr int SM_CYDOUBLECLK = 37;
inline constexpr UINT IMAGE_BITMAP = 0;
inline constexpr UINT IMAGE_ICON = 1;
inline constexpr UINT IMAGE_CURSOR = 2;
inline constexpr UINT LR_DEFAULTCOLOR = 0;
inline constexpr UINT LR_LOADFROMFILE = 0x10;
inline constexpr UINT LR_DEFAULTSIZE = 0x40;
inline constexpr DWORD ULW_COLORKEY = 1;
inline constexpr DWORD ULW_ALPHA = 2;
inline constexpr DWORD ULW_OPAQUE = 4;
inline constexpr UINT CF_TEXT = 1;
inline constexpr UINT CF_UNICODETEXT = 13;
inline constexpr DWORD MONITOR_DEFAULTTONULL = 0;
inline constexpr DWORD MONITOR_DEFAULTTOPRIMARY = 1;
inline constexpr DWORD MONITOR_DEFAULTTONEAREST = 2;
inline constexpr DWORD MONITORINFOF_PRIMARY = 1;
inline constexpr DWORD LWA_COLORKEY = 1;
inline constexpr DWORD LWA_ALPHA = 2;
inline constexpr UINT WHEEL_DELTA = 120;
inline constexpr int CW_USEDEFAULT = static_cast<int>(0x80000000);
#define HWND_TOP (static_cast<HWND>(nullptr))
#define HWND_BOTTOM (reinterpret_cast<HWND>(static_cast<INT_PTR>(1)))
#define HWND_NOTOPMOST (reinterpret_cast<HWND>(static_cast<INT_PTR>(-2)))
#define HWND_TOPMOST (reinterpret_cast<HWND>(static_cast<INT_PTR>(-1)))
#define IDC_ARROW MAKEINTRESOURCEA(32512)
#define IDC_IBEAM MAKEINTRESOURCEA(32513)
#define IDC_WAIT MAKEINTRESOURCEA(32514)
#define IDC_CROSS MAKEINTRESOURCEA(32515)
#define IDC_SIZENWSE MAKEINTRESOURCEA(32642)
#define IDC_SIZENESW MAKEINTRESOURCEA(32643)
#define IDC_SIZEWE MAKEINTRESOURCEA(32644)
#define IDC_SIZENS MAKEINTRESOURCEA(32645)
#define IDC_SIZEALL MAKEINTRESOURCEA(32646)
#define IDC_NO MAKEINTRESOURCEA(32648)
#define IDC_HAND MAKEINTRESOURCEA(32649)

struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
};
using LPMSG = MSG*;
struct WNDCLASSEXA {
    UINT cbSize;
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCSTR lpszMenuName;
    LPCSTR lpszClassName;
    HICON hIconSm;
};
struct CREATESTRUCTA {
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCSTR lpszName;
    LPCSTR lpszClass;
    DWORD dwExStyle;
};
struct PAINTSTRUCT {
    HDC hdc;
    BOOL fErase;
    RECT rcPaint;
    BOOL fRestore;
    BOOL fIncUpdate;
    BYTE rgbReserved[32];
};
struct WINDOWPOS {
    HWND hwnd;
    HWND hwndInsertAfter;
    int x;
    int y;
    int cx;
    int cy;
    UINT flags;
};
struct MINMAXINFO {
    POINT ptReserved;
    POINT ptMaxSize;
    POINT ptMaxPosition;
    POINT ptMinTrackSize;
    POINT ptMaxTrackSize;
};
struct NCCALCSIZE_PARAMS {
    RECT rgrc[3];
    WINDOWPOS* lppos;
};
struct MONITORINFO {
    DWORD cbSize;
    RECT rcMonitor;
    RECT rcWork;
    DWORD dwFlags;
};
struct TRACKMOUSEEVENT {
    DWORD cbSize;
    DWORD dwFlags;
    HWND hwndTrack;
    DWORD dwHoverTime;
};
struct SCROLLINFO {
    UINT cbSize;
    UINT fMask;
    int nMin;
    int nMax;
    UINT nPage;
    int nPos;
    int nTrackPos;
};
struct NMHDR {
    HWND hwndFrom;
    UINT_PTR idFrom;
    UINT code;
};

QVUI_PLATFORM ATOM RegisterClassExA(const WNDCLASSEXA* windowClass);
QVUI_PLATFORM BOOL UnregisterClassA(LPCSTR name, HINSTANCE instance);
QVUI_PLATFORM BOOL GetClassInfoExA(HINSTANCE instance, LPCSTR name, WNDCLASSEXA* windowClass);
QVUI_PLATFORM int GetClassNameA(HWND window, LPSTR text, int capacity);
QVUI_PLATFORM UINT RegisterWindowMessageA(LPCSTR name);
QVUI_PLATFORM HWND CreateWindowExA(DWORD exStyle, LPCSTR className, LPCSTR title, DWORD style, int x, int y,
                                   int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                                   LPVOID parameter);
QVUI_PLATFORM BOOL DestroyWindow(HWND window);
QVUI_PLATFORM BOOL IsWindow(HWND window);
QVUI_PLATFORM HWND GetParent(HWND window);
QVUI_PLATFORM HWND GetWindow(HWND window, UINT relation);
QVUI_PLATFORM HWND GetAncestor(HWND window, UINT which);
QVUI_PLATFORM BOOL IsChild(HWND parent, HWND window);
QVUI_PLATFORM HWND GetDesktopWindow();
QVUI_PLATFORM HWND WindowFromPoint(POINT screen);
QVUI_PLATFORM BOOL ShowWindow(HWND window, int command);
QVUI_PLATFORM BOOL SetWindowPos(HWND window, HWND insertAfter, int x, int y, int width, int height,
                                UINT flags);
QVUI_PLATFORM BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
QVUI_PLATFORM BOOL BringWindowToTop(HWND window);
QVUI_PLATFORM BOOL GetWindowRect(HWND window, RECT* rect);
QVUI_PLATFORM BOOL GetClientRect(HWND window, RECT* rect);
QVUI_PLATFORM BOOL AdjustWindowRectEx(RECT* rect, DWORD style, BOOL menu, DWORD exStyle);
QVUI_PLATFORM BOOL ClientToScreen(HWND window, POINT* point);
QVUI_PLATFORM BOOL ScreenToClient(HWND window, POINT* point);
QVUI_PLATFORM LONG GetWindowLongA(HWND window, int index);
QVUI_PLATFORM LONG SetWindowLongA(HWND window, int index, LONG value);
QVUI_PLATFORM LONG_PTR GetWindowLongPtrA(HWND window, int index);
QVUI_PLATFORM LONG_PTR SetWindowLongPtrA(HWND window, int index, LONG_PTR value);
QVUI_PLATFORM BOOL SetWindowTextA(HWND window, LPCSTR text);
QVUI_PLATFORM int GetWindowTextA(HWND window, LPSTR text, int capacity);
QVUI_PLATFORM int GetWindowTextLengthA(HWND window);
QVUI_PLATFORM int GetDlgCtrlID(HWND window);
QVUI_PLATFORM BOOL EnableWindow(HWND window, BOOL enable);
QVUI_PLATFORM BOOL IsWindowEnabled(HWND window);
QVUI_PLATFORM BOOL IsWindowVisible(HWND window);
QVUI_PLATFORM BOOL IsIconic(HWND window);
QVUI_PLATFORM BOOL IsZoomed(HWND window);
QVUI_PLATFORM int SetWindowRgn(HWND window, HRGN region, BOOL redraw);
QVUI_PLATFORM int GetWindowRgn(HWND window, HRGN region);
QVUI_PLATFORM BOOL UpdateLayeredWindow(HWND window, HDC screen, POINT* position, SIZE* size, HDC source,
                                       POINT* sourcePosition, COLORREF key, BLENDFUNCTION* blend,
                                       DWORD flags);
QVUI_PLATFORM HWND GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous);

QVUI_PLATFORM LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
QVUI_PLATFORM BOOL PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
QVUI_PLATFORM void PostQuitMessage(int exitCode);
QVUI_PLATFORM BOOL PeekMessageA(MSG* message, HWND window, UINT first, UINT last, UINT remove);
QVUI_PLATFORM BOOL GetMessageA(MSG* message, HWND window, UINT first, UINT last);
QVUI_PLATFORM DWORD GetMessagePos();
QVUI_PLATFORM LONG GetMessageTime();
QVUI_PLATFORM BOOL TranslateMessage(const MSG* message);
QVUI_PLATFORM LRESULT DispatchMessageA(const MSG* message);
QVUI_PLATFORM LRESULT DefWindowProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
QVUI_PLATFORM LRESULT CallWindowProcA(WNDPROC procedure, HWND window, UINT message, WPARAM wParam,
                                      LPARAM lParam);
QVUI_PLATFORM UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure);
QVUI_PLATFORM BOOL KillTimer(HWND window, UINT_PTR id);

QVUI_PLATFORM BOOL RedrawWindow(HWND window, const RECT* rect, HRGN region, UINT flags);
QVUI_PLATFORM BOOL InvalidateRect(HWND window, const RECT* rect, BOOL erase);
QVUI_PLATFORM BOOL InvalidateRgn(HWND window, HRGN region, BOOL erase);
QVUI_PLATFORM BOOL ValidateRect(HWND window, const RECT* rect);
QVUI_PLATFORM BOOL UpdateWindow(HWND window);
QVUI_PLATFORM BOOL GetUpdateRect(HWND window, RECT* rect, BOOL erase);
QVUI_PLATFORM HDC BeginPaint(HWND window, PAINTSTRUCT* paint);
QVUI_PLATFORM BOOL EndPaint(HWND window, const PAINTSTRUCT* paint);
QVUI_PLATFORM HDC GetDC(HWND window);
QVUI_PLATFORM HDC GetWindowDC(HWND window);
QVUI_PLATFORM int ReleaseDC(HWND window, HDC dc);

QVUI_PLATFORM HWND SetFocus(HWND window);
QVUI_PLATFORM HWND GetFocus();
QVUI_PLATFORM HWND SetActiveWindow(HWND window);
QVUI_PLATFORM HWND GetActiveWindow();
QVUI_PLATFORM BOOL SetForegroundWindow(HWND window);
QVUI_PLATFORM HWND GetForegroundWindow();
QVUI_PLATFORM HWND SetCapture(HWND window);
QVUI_PLATFORM HWND GetCapture();
QVUI_PLATFORM BOOL ReleaseCapture();
QVUI_PLATFORM BOOL TrackMouseEvent(TRACKMOUSEEVENT* track);
QVUI_PLATFORM BOOL _TrackMouseEvent(TRACKMOUSEEVENT* track);
QVUI_PLATFORM SHORT GetKeyState(int key);
QVUI_PLATFORM SHORT GetAsyncKeyState(int key);
QVUI_PLATFORM BOOL GetKeyboardState(BYTE* keys);
QVUI_PLATFORM BOOL SetKeyboardState(BYTE* keys);
QVUI_PLATFORM BOOL GetCursorPos(POINT* point);
QVUI_PLATFORM BOOL SetCursorPos(int x, int y);
QVUI_PLATFORM HCURSOR SetCursor(HCURSOR cursor);
QVUI_PLATFORM HCURSOR GetCursor();
QVUI_PLATFORM HCURSOR LoadCursorA(HINSTANCE module, LPCSTR name);
QVUI_PLATFORM HANDLE LoadImageA(HINSTANCE module, LPCSTR name, UINT type, int width, int height, UINT flags);
QVUI_PLATFORM BOOL DestroyCursor(HCURSOR cursor);
QVUI_PLATFORM int GetSystemMetrics(int index);
QVUI_PLATFORM HMONITOR MonitorFromPoint(POINT screen, DWORD flags);
QVUI_PLATFORM BOOL GetMonitorInfoA(HMONITOR monitor, MONITORINFO* info);
QVUI_PLATFORM UINT GetDoubleClickTime();
inline constexpr int COLOR_WINDOW = 5;
inline constexpr int COLOR_WINDOWTEXT = 8;
inline constexpr int COLOR_HIGHLIGHT = 13;
inline constexpr int COLOR_HIGHLIGHTTEXT = 14;
QVUI_PLATFORM DWORD GetSysColor(int index);

/// The clipboard. Text is exchanged with the desktop's clipboard; other formats stay within the process. The
/// clipboard owns the memory blocks passed to it; blocks that it returns are valid until it is closed.
QVUI_PLATFORM BOOL OpenClipboard(HWND owner);
QVUI_PLATFORM BOOL CloseClipboard();
QVUI_PLATFORM BOOL EmptyClipboard();
QVUI_PLATFORM HANDLE SetClipboardData(UINT format, HANDLE data);
QVUI_PLATFORM HANDLE GetClipboardData(UINT format);
QVUI_PLATFORM BOOL IsClipboardFormatAvailable(UINT format);
QVUI_PLATFORM UINT RegisterClipboardFormatA(LPCSTR name);

inline constexpr UINT MF_ENABLED = 0x0;
inline constexpr UINT MF_BYCOMMAND = 0x0;
inline constexpr UINT MF_GRAYED = 0x1;
inline constexpr UINT MF_DISABLED = 0x2;
inline constexpr UINT MF_BYPOSITION = 0x400;
inline constexpr UINT MF_SEPARATOR = 0x800;
inline constexpr UINT TPM_LEFTALIGN = 0x0;
inline constexpr UINT TPM_RIGHTBUTTON = 0x2;
inline constexpr UINT TPM_RETURNCMD = 0x100;
/// Menus. The only menu in a module is the edit menu of "user32.dll", number 1. All menus are pop-up menus;
/// windows have no menu bar.
QVUI_PLATFORM HMENU LoadMenuA(HINSTANCE module, LPCSTR name);
/// Returns a submenu, which the containing menu owns.
QVUI_PLATFORM HMENU GetSubMenu(HMENU menu, int position);
QVUI_PLATFORM int GetMenuItemCount(HMENU menu);
QVUI_PLATFORM UINT GetMenuItemID(HMENU menu, int position);
QVUI_PLATFORM UINT GetMenuState(HMENU menu, UINT item, UINT flags);
/// Returns the previous state, or -1 if there is no such item.
QVUI_PLATFORM BOOL EnableMenuItem(HMENU menu, UINT item, UINT flags);
QVUI_PLATFORM BOOL RemoveMenu(HMENU menu, UINT item, UINT flags);
QVUI_PLATFORM BOOL DestroyMenu(HMENU menu);
/// Returns after the user has chosen an item or dismissed the menu. Screen coordinates.
QVUI_PLATFORM BOOL TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int reserved, HWND owner,
                                  const RECT* kept);

/// Input methods deliver finished text through the display driver and keep their contexts to themselves, so
/// there is no context to return.
QVUI_PLATFORM HIMC ImmGetContext(HWND window);
QVUI_PLATFORM BOOL ImmReleaseContext(HWND window, HIMC context);

/// The caret: one for all windows, belonging to the window that created it last. HideCaret calls nest.
QVUI_PLATFORM BOOL CreateCaret(HWND window, HBITMAP bitmap, int width, int height);
QVUI_PLATFORM BOOL DestroyCaret();
QVUI_PLATFORM BOOL ShowCaret(HWND window);
QVUI_PLATFORM BOOL HideCaret(HWND window);
QVUI_PLATFORM BOOL SetCaretPos(int x, int y);
QVUI_PLATFORM BOOL GetCaretPos(POINT* point);
QVUI_PLATFORM UINT GetCaretBlinkTime();

/// Not part of the platform's interface: selects the display driver, "headless" or "sdl", before the first
/// window is created. Without this call the environment variable QVUI_DISPLAY decides; without that, "sdl" if
/// there is a screen, otherwise "headless". Returns FALSE if the name is unknown or a driver is already in
/// use.
QVUI_PLATFORM BOOL QvuiUseDisplay(LPCSTR name);
