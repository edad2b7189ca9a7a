#pragma once

/// Windowless text services: the interfaces between a text engine and its host, and their messages,
/// structures and notifications. Text is UTF-16 here, except where a name ends in A.

#include <qvui/platform/native/com.h>
#include <qvui/platform/native/text.h>
#include <qvui/platform/native/user.h>

inline constexpr LONG ES_LEFT = 0x0;
inline constexpr LONG ES_CENTER = 0x1;
inline constexpr LONG ES_RIGHT = 0x2;
inline constexpr LONG ES_MULTILINE = 0x4;
inline constexpr LONG ES_PASSWORD = 0x20;
inline constexpr LONG ES_AUTOVSCROLL = 0x40;
inline constexpr LONG ES_AUTOHSCROLL = 0x80;
inline constexpr LONG ES_NOHIDESEL = 0x100;
inline constexpr LONG ES_READONLY = 0x800;
inline constexpr LONG ES_DISABLENOSCROLL = 0x2000;

inline constexpr UINT EM_GETSEL = 0xB0;
inline constexpr UINT EM_SETSEL = 0xB1;
inline constexpr UINT EM_SCROLL = 0xB5;
inline constexpr UINT EM_LINESCROLL = 0xB6;
inline constexpr UINT EM_GETMODIFY = 0xB8;
inline constexpr UINT EM_SETMODIFY = 0xB9;
inline constexpr UINT EM_GETLINECOUNT = 0xBA;
inline constexpr UINT EM_LINEINDEX = 0xBB;
inline constexpr UINT EM_LINELENGTH = 0xC1;
inline constexpr UINT EM_REPLACESEL = 0xC2;
inline constexpr UINT EM_GETLINE = 0xC4;
inline constexpr UINT EM_LIMITTEXT = 0xC5;
inline constexpr UINT EM_CANUNDO = 0xC6;
inline constexpr UINT EM_UNDO = 0xC7;
inline constexpr UINT EM_LINEFROMCHAR = 0xC9;
inline constexpr UINT EM_EMPTYUNDOBUFFER = 0xCD;
inline constexpr UINT EM_GETFIRSTVISIBLELINE = 0xCE;
inline constexpr UINT EM_GETLIMITTEXT = 0xD5;
inline constexpr UINT EM_POSFROMCHAR = 0xD6;
inline constexpr UINT EM_CHARFROMPOS = 0xD7;
inline constexpr UINT EM_SCROLLCARET = 0x400 + 49;
inline constexpr UINT EM_CANPASTE = 0x400 + 50;
inline constexpr UINT EM_EXGETSEL = 0x400 + 52;
inline constexpr UINT EM_EXLIMITTEXT = 0x400 + 53;
inline constexpr UINT EM_EXLINEFROMCHAR = 0x400 + 54;
inline constexpr UINT EM_EXSETSEL = 0x400 + 55;
inline constexpr UINT EM_GETCHARFORMAT = 0x400 + 58;
inline constexpr UINT EM_GETEVENTMASK = 0x400 + 59;
inline constexpr UINT EM_GETPARAFORMAT = 0x400 + 61;
inline constexpr UINT EM_GETSELTEXT = 0x400 + 62;
inline constexpr UINT EM_HIDESELECTION = 0x400 + 63;
inline constexpr UINT EM_PASTESPECIAL = 0x400 + 64;
inline constexpr UINT EM_REQUESTRESIZE = 0x400 + 65;
inline constexpr UINT EM_SELECTIONTYPE = 0x400 + 66;
inline constexpr UINT EM_SETCHARFORMAT = 0x400 + 68;
inline constexpr UINT EM_SETEVENTMASK = 0x400 + 69;
inline constexpr UINT EM_SETPARAFORMAT = 0x400 + 71;
inline constexpr UINT EM_STREAMIN = 0x400 + 73;
inline constexpr UINT EM_STREAMOUT = 0x400 + 74;
inline constexpr UINT EM_GETTEXTRANGE = 0x400 + 75;
inline constexpr UINT EM_SETUNDOLIMIT = 0x400 + 82;
inline constexpr UINT EM_REDO = 0x400 + 84;
inline constexpr UINT EM_CANREDO = 0x400 + 85;
inline constexpr UINT EM_STOPGROUPTYPING = 0x400 + 88;
inline constexpr UINT EM_SETTEXTMODE = 0x400 + 89;
inline constexpr UINT EM_GETTEXTMODE = 0x400 + 90;
inline constexpr UINT EM_AUTOURLDETECT = 0x400 + 91;
inline constexpr UINT EM_GETAUTOURLDETECT = 0x400 + 92;
inline constexpr UINT EM_GETTEXTEX = 0x400 + 94;
inline constexpr UINT EM_GETTEXTLENGTHEX = 0x400 + 95;
inline constexpr UINT EM_SETTEXTEX = 0x400 + 97;
inline constexpr UINT EM_SETLANGOPTIONS = 0x400 + 120;
inline constexpr UINT EM_FINDTEXTEXW = 0x400 + 124;
inline constexpr UINT EM_GETSCROLLPOS = 0x400 + 221;
inline constexpr UINT EM_SETSCROLLPOS = 0x400 + 222;
inline constexpr UINT EM_GETZOOM = 0x400 + 224;
inline constexpr UINT EM_SETZOOM = 0x400 + 225;

inline constexpr DWORD EN_SETFOCUS = 0x100;
inline constexpr DWORD EN_KILLFOCUS = 0x200;
inline constexpr DWORD EN_CHANGE = 0x300;
inline constexpr DWORD EN_UPDATE = 0x400;
inline constexpr DWORD EN_MAXTEXT = 0x501;
inline constexpr DWORD EN_REQUESTRESIZE = 0x701;
inline constexpr DWORD EN_SELCHANGE = 0x702;
inline constexpr DWORD EN_LINK = 0x70B;
inline constexpr DWORD ENM_CHANGE = 0x1;
inline constexpr DWORD ENM_UPDATE = 0x2;
inline constexpr DWORD ENM_REQUESTRESIZE = 0x40000;
inline constexpr DWORD ENM_SELCHANGE = 0x80000;
inline constexpr DWORD ENM_LINK = 0x4000000;

inline constexpr DWORD CFM_BOLD = 0x1;
inline constexpr DWORD CFM_ITALIC = 0x2;
inline constexpr DWORD CFM_UNDERLINE = 0x4;
inline constexpr DWORD CFM_STRIKEOUT = 0x8;
inline constexpr DWORD CFM_PROTECTED = 0x10;
inline constexpr DWORD CFM_LINK = 0x20;
inline constexpr DWORD CFM_HIDDEN = 0x100;
inline constexpr DWORD CFM_DISABLED = 0x2000;
inline constexpr DWORD CFM_SUBSCRIPT = 0x30000;
inline constexpr DWORD CFM_SUPERSCRIPT = 0x30000;
inline constexpr DWORD CFM_KERNING = 0x100000;
inline constexpr DWORD CFM_SPACING = 0x200000;
inline constexpr DWORD CFM_WEIGHT = 0x400000;
inline constexpr DWORD CFM_UNDERLINETYPE = 0x800000;
inline constexpr DWORD CFM_LCID = 0x2000000;
inline constexpr DWORD CFM_BACKCOLOR = 0x4000000;
inline constexpr DWORD CFM_CHARSET = 0x8000000;
inline constexpr DWORD CFM_OFFSET = 0x10000000;
inline constexpr DWORD CFM_FACE = 0x20000000;
inline constexpr DWORD CFM_COLOR = 0x40000000;
inline constexpr DWORD CFM_SIZE = 0x80000000;
inline constexpr DWORD CFM_ALL2 = 0xFEFFFFFF;
inline constexpr DWORD CFE_BOLD = 0x1;
inline constexpr DWORD CFE_ITALIC = 0x2;
inline constexpr DWORD CFE_UNDERLINE = 0x4;
inline constexpr DWORD CFE_STRIKEOUT = 0x8;
inline constexpr DWORD CFE_LINK = 0x20;
inline constexpr DWORD CFE_HIDDEN = 0x100;
inline constexpr DWORD CFE_DISABLED = 0x2000;
inline constexpr DWORD CFE_SUBSCRIPT = 0x10000;
inline constexpr DWORD CFE_SUPERSCRIPT = 0x20000;
inline constexpr DWORD CFE_AUTOBACKCOLOR = 0x4000000;
inline constexpr DWORD CFE_AUTOCOLOR = 0x40000000;
inline constexpr DWORD SCF_DEFAULT = 0x0;
inline constexpr DWORD SCF_SELECTION = 0x1;
inline constexpr DWORD SCF_WORD = 0x2;
inline constexpr DWORD SCF_ALL = 0x4;

inline constexpr DWORD PFM_STARTINDENT = 0x1;
inline constexpr DWORD PFM_RIGHTINDENT = 0x2;
inline constexpr DWORD PFM_OFFSET = 0x4;
inline constexpr DWORD PFM_ALIGNMENT = 0x8;
inline constexpr DWORD PFM_TABSTOPS = 0x10;
inline constexpr DWORD PFM_NUMBERING = 0x20;
inline constexpr DWORD PFM_SPACEBEFORE = 0x40;
inline constexpr DWORD PFM_SPACEAFTER = 0x80;
inline constexpr DWORD PFM_LINESPACING = 0x100;
inline constexpr DWORD PFM_RTLPARA = 0x10000;
inline constexpr DWORD PFM_OFFSETINDENT = 0x80000000;
inline constexpr WORD PFE_RTLPARA = 0x1;
inline constexpr WORD PFA_LEFT = 1;
inline constexpr WORD PFA_RIGHT = 2;
inline constexpr WORD PFA_CENTER = 3;
inline constexpr WORD PFA_JUSTIFY = 4;
inline constexpr int MAX_TAB_STOPS = 32;

inline constexpr DWORD SF_TEXT = 0x1;
inline constexpr DWORD SF_RTF = 0x2;
inline constexpr DWORD SF_RTFNOOBJS = 0x3;
inline constexpr DWORD SF_TEXTIZED = 0x4;
inline constexpr DWORD SF_UNICODE = 0x10;
inline constexpr DWORD SF_USECODEPAGE = 0x20;
inline constexpr DWORD SFF_PLAINRTF = 0x4000;
inline constexpr DWORD SFF_SELECTION = 0x8000;
inline constexpr DWORD ST_DEFAULT = 0;
inline constexpr DWORD ST_KEEPUNDO = 1;
inline constexpr DWORD ST_SELECTION = 2;
inline constexpr DWORD GT_DEFAULT = 0;
inline constexpr DWORD GT_USECRLF = 1;
inline constexpr DWORD GT_SELECTION = 2;
inline constexpr DWORD GTL_DEFAULT = 0;
inline constexpr DWORD GTL_USECRLF = 1;
inline constexpr DWORD GTL_PRECISE = 2;
inline constexpr DWORD GTL_CLOSE = 4;
inline constexpr DWORD GTL_NUMCHARS = 8;
inline constexpr DWORD GTL_NUMBYTES = 16;
inline constexpr WORD SEL_EMPTY = 0;
inline constexpr WORD SEL_TEXT = 1;
inline constexpr WORD SEL_MULTICHAR = 4;
inline constexpr DWORD FR_DOWN = 0x1;
inline constexpr DWORD FR_WHOLEWORD = 0x2;
inline constexpr DWORD FR_MATCHCASE = 0x4;
inline constexpr LONG TM_PLAINTEXT = 1;
inline constexpr LONG TM_RICHTEXT = 2;
inline constexpr LONG TM_SINGLELEVELUNDO = 4;
inline constexpr LONG TM_MULTILEVELUNDO = 8;
inline constexpr LONG TM_SINGLECODEPAGE = 16;
inline constexpr LONG TM_MULTICODEPAGE = 32;

/// Character formats. Lengths are in twips (1/1440 inch).
struct CHARFORMATA {
    UINT cbSize;
    DWORD dwMask;
    DWORD dwEffects;
    LONG yHeight;
    LONG yOffset;
    COLORREF crTextColor;
    BYTE bCharSet;
    BYTE bPitchAndFamily;
    CHAR szFaceName[LF_FACESIZE];
};
struct CHARFORMATW {
    UINT cbSize;
    DWORD dwMask;
    DWORD dwEffects;
    LONG yHeight;
    LONG yOffset;
    COLORREF crTextColor;
    BYTE bCharSet;
    BYTE bPitchAndFamily;
    WCHAR szFaceName[LF_FACESIZE];
};
/// Fields that the second version appends to a character format.
template <class First>
struct QvuiCharFormat2 : First {
    WORD wWeight;
    SHORT sSpacing;
    COLORREF crBackColor;
    LCID lcid;
    DWORD dwReserved;
    SHORT sStyle;
    WORD wKerning;
    BYTE bUnderlineType;
    BYTE bAnimation;
    BYTE bRevAuthor;
    BYTE bReserved1;
};
struct CHARFORMAT2A : QvuiCharFormat2<CHARFORMATA> {};
struct CHARFORMAT2W : QvuiCharFormat2<CHARFORMATW> {};
static_assert(sizeof(CHARFORMATA) == 60 && sizeof(CHARFORMATW) == 92);
static_assert(sizeof(CHARFORMAT2A) == 84 && sizeof(CHARFORMAT2W) == 116);

struct PARAFORMAT {
    UINT cbSize;
    DWORD dwMask;
    WORD wNumbering;
    WORD wEffects;
    LONG dxStartIndent;
    LONG dxRightIndent;
    LONG dxOffset;
    WORD wAlignment;
    SHORT cTabCount;
    LONG rgxTabs[MAX_TAB_STOPS];
};
struct PARAFORMAT2 : PARAFORMAT {
    LONG dySpaceBefore;
    LONG dySpaceAfter;
    LONG dyLineSpacing;
    SHORT sStyle;
    BYTE bLineSpacingRule;
    BYTE bOutlineLevel;
    WORD wShadingWeight;
    WORD wShadingStyle;
    WORD wNumberingStart;
    WORD wNumberingStyle;
    WORD wNumberingTab;
    WORD wBorderSpace;
    WORD wBorderWidth;
    WORD wBorders;
};
static_assert(sizeof(PARAFORMAT) == 156 && sizeof(PARAFORMAT2) == 188);

struct CHARRANGE {
    LONG cpMin;
    LONG cpMax;
};
struct TEXTRANGEW {
    CHARRANGE chrg;
    LPWSTR lpstrText;
};
struct FINDTEXTEXW {
    CHARRANGE chrg;
    LPCWSTR lpstrText;
    CHARRANGE chrgText;
};
struct GETTEXTEX {
    DWORD cb;
    DWORD flags;
    UINT codepage;
    LPCSTR lpDefaultChar;
    LPBOOL lpUsedDefChar;
};
struct GETTEXTLENGTHEX {
    DWORD flags;
    UINT codepage;
};
struct SETTEXTEX {
    DWORD flags;
    UINT codepage;
};
/// Reads or writes up to `size` bytes and stores their number in `*moved`. A nonzero result ends the stream.
using EDITSTREAMCALLBACK = DWORD(CALLBACK*)(DWORD_PTR cookie, LPBYTE buffer, LONG size, LONG* moved);
struct EDITSTREAM {
    DWORD_PTR dwCookie;
    DWORD dwError;
    EDITSTREAMCALLBACK pfnCallback;
};
struct SELCHANGE {
    NMHDR nmhdr;
    CHARRANGE chrg;
    WORD seltyp;
};
struct ENLINK {
    NMHDR nmhdr;
    UINT msg;
    WPARAM wParam;
    LPARAM lParam;
    CHARRANGE chrg;
};
struct REQRESIZE {
    NMHDR nmhdr;
    RECT rc;
};

inline constexpr DWORD TXTBIT_RICHTEXT = 0x1;
inline constexpr DWORD TXTBIT_MULTILINE = 0x2;
inline constexpr DWORD TXTBIT_READONLY = 0x4;
inline constexpr DWORD TXTBIT_USEPASSWORD = 0x10;
inline constexpr DWORD TXTBIT_HIDESELECTION = 0x20;
inline constexpr DWORD TXTBIT_SAVESELECTION = 0x40;
inline constexpr DWORD TXTBIT_AUTOWORDSEL = 0x80;
inline constexpr DWORD TXTBIT_SELBARCHANGE = 0x200;
inline constexpr DWORD TXTBIT_WORDWRAP = 0x400;
inline constexpr DWORD TXTBIT_ALLOWBEEP = 0x800;
inline constexpr DWORD TXTBIT_VIEWINSETCHANGE = 0x2000;
inline constexpr DWORD TXTBIT_BACKSTYLECHANGE = 0x4000;
inline constexpr DWORD TXTBIT_MAXLENGTHCHANGE = 0x8000;
inline constexpr DWORD TXTBIT_SCROLLBARCHANGE = 0x10000;
inline constexpr DWORD TXTBIT_CHARFORMATCHANGE = 0x20000;
inline constexpr DWORD TXTBIT_PARAFORMATCHANGE = 0x40000;
inline constexpr DWORD TXTBIT_EXTENTCHANGE = 0x80000;
inline constexpr DWORD TXTBIT_CLIENTRECTCHANGE = 0x100000;

enum TXTBACKSTYLE { TXTBACK_TRANSPARENT = 0, TXTBACK_OPAQUE };
enum TXTVIEW { TXTVIEW_ACTIVE = 0, TXTVIEW_INACTIVE = -1 };
inline constexpr DWORD DVASPECT_CONTENT = 1;

/// A length-prefixed UTF-16 string that the receiver frees.
using BSTR = WCHAR*;
QVUI_PLATFORM BSTR SysAllocStringLen(const WCHAR* text, UINT length);
QVUI_PLATFORM UINT SysStringLen(BSTR text);
QVUI_PLATFORM void SysFreeString(BSTR text);

struct DVTARGETDEVICE;
struct IDropTarget;

/// The engine's interface, called by the host. Coordinates are in pixels of the host window's client area.
struct ITextServices : IUnknown {
    virtual HRESULT TxSendMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) = 0;
    virtual HRESULT TxDraw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device, HDC dc,
                           HDC target, LPCRECT bounds, LPCRECT metafileBounds, LPRECT update,
                           BOOL(CALLBACK* goOn)(DWORD), DWORD goOnValue, LONG view) = 0;
    virtual HRESULT TxGetHScroll(LONG* least, LONG* most, LONG* position, LONG* page, BOOL* isEnabled) = 0;
    virtual HRESULT TxGetVScroll(LONG* least, LONG* most, LONG* position, LONG* page, BOOL* isEnabled) = 0;
    virtual HRESULT OnTxSetCursor(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device, HDC dc,
                                  HDC target, LPCRECT client, INT x, INT y) = 0;
    virtual HRESULT TxQueryHitPoint(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device,
                                    HDC dc, HDC target, LPCRECT client, INT x, INT y, DWORD* hit) = 0;
    virtual HRESULT OnTxInPlaceActivate(LPCRECT client) = 0;
    virtual HRESULT OnTxInPlaceDeactivate() = 0;
    virtual HRESULT OnTxUIActivate() = 0;
    virtual HRESULT OnTxUIDeactivate() = 0;
    virtual HRESULT TxGetText(BSTR* text) = 0;
    virtual HRESULT TxSetText(LPCWSTR text) = 0;
    virtual HRESULT TxGetCurTargetX(LONG* x) = 0;
    virtual HRESULT TxGetBaseLinePos(LONG* position) = 0;
    virtual HRESULT TxGetNaturalSize(DWORD aspect, HDC dc, HDC target, DVTARGETDEVICE* device, DWORD mode,
                                     const SIZEL* extent, LONG* width, LONG* height) = 0;
    virtual HRESULT TxGetDropTarget(IDropTarget** target) = 0;
    virtual HRESULT OnTxPropertyBitsChange(DWORD mask, DWORD bits) = 0;
    virtual HRESULT TxGetCachedSize(DWORD* width, DWORD* height) = 0;

protected:
    ~ITextServices() = default;
};

/// The host's interface, called by the engine. The engine holds no reference; the host must outlive it.
struct ITextHost : IUnknown {
    virtual HDC TxGetDC() = 0;
    virtual INT TxReleaseDC(HDC dc) = 0;
    virtual BOOL TxShowScrollBar(INT bar, BOOL show) = 0;
    virtual BOOL TxEnableScrollBar(INT bars, INT arrows) = 0;
    virtual BOOL TxSetScrollRange(INT bar, LONG least, INT most, BOOL redraw) = 0;
    virtual BOOL TxSetScrollPos(INT bar, INT position, BOOL redraw) = 0;
    virtual void TxInvalidateRect(LPCRECT rect, BOOL erase) = 0;
    virtual void TxViewChange(BOOL update) = 0;
    virtual BOOL TxCreateCaret(HBITMAP bitmap, INT width, INT height) = 0;
    virtual BOOL TxShowCaret(BOOL show) = 0;
    virtual BOOL TxSetCaretPos(INT x, INT y) = 0;
    virtual BOOL TxSetTimer(UINT id, UINT milliseconds) = 0;
    virtual void TxKillTimer(UINT id) = 0;
    virtual void TxScrollWindowEx(INT dx, INT dy, LPCRECT scroll, LPCRECT clip, HRGN updateRegion,
                                  LPRECT update, UINT flags) = 0;
    virtual void TxSetCapture(BOOL capture) = 0;
    virtual void TxSetFocus() = 0;
    virtual void TxSetCursor(HCURSOR cursor, BOOL isText) = 0;
    virtual BOOL TxScreenToClient(LPPOINT point) = 0;
    virtual BOOL TxClientToScreen(LPPOINT point) = 0;
    virtual HRESULT TxActivate(LONG* oldState) = 0;
    virtual HRESULT TxDeactivate(LONG newState) = 0;
    virtual HRESULT TxGetClientRect(LPRECT rect) = 0;
    /// In HIMETRIC units (1/2540 inch).
    virtual HRESULT TxGetViewInset(LPRECT inset) = 0;
    virtual HRESULT TxGetCharFormat(const CHARFORMATW** format) = 0;
    virtual HRESULT TxGetParaFormat(const PARAFORMAT** format) = 0;
    virtual COLORREF TxGetSysColor(int index) = 0;
    virtual HRESULT TxGetBackStyle(TXTBACKSTYLE* style) = 0;
    virtual HRESULT TxGetMaxLength(DWORD* length) = 0;
    virtual HRESULT TxGetScrollBars(DWORD* bars) = 0;
    virtual HRESULT TxGetPasswordChar(CHAR* character) = 0;
    virtual HRESULT TxGetAcceleratorPos(LONG* position) = 0;
    /// In HIMETRIC units.
    virtual HRESULT TxGetExtent(SIZEL* extent) = 0;
    virtual HRESULT OnTxCharFormatChange(const CHARFORMATW* format) = 0;
    virtual HRESULT OnTxParaFormatChange(const PARAFORMAT* format) = 0;
    virtual HRESULT TxGetPropertyBits(DWORD mask, DWORD* bits) = 0;
    virtual HRESULT TxNotify(DWORD code, void* data) = 0;
    virtual HIMC TxImmGetContext() = 0;
    virtual void TxImmReleaseContext(HIMC context) = 0;
    virtual HRESULT TxGetSelectionBarWidth(LONG* width) = 0;

protected:
    ~ITextHost() = default;
};

inline constexpr IID IID_ITextServices{
    0x8D33F740, 0xCF58, 0x11CE, {0xA8, 0x9D, 0x00, 0xAA, 0x00, 0x6C, 0xAD, 0xC5}};
inline constexpr IID IID_ITextHost{
    0xC5BDD8D0, 0xD26E, 0x11CE, {0xA8, 0x9E, 0x00, 0xAA, 0x00, 0x6C, 0xAD, 0xC5}};

/// Creates text services for a host; the caller releases them. Aggregation is not supported. Returns
/// E_POINTER if `services` is null, E_INVALIDARG if there is no host, E_NOTIMPL if there is an outer object.
QVUI_PLATFORM HRESULT CreateTextServices(IUnknown* outer, ITextHost* host, IUnknown** services);
