#pragma once

/// Device contexts, bitmaps, regions, fills, blits and shapes. Coordinates are in pixels; right and bottom
/// edges of rectangles are exclusive. Every function fails without side effects on a null or invalid handle.

#include <qvui/platform/native/types.h>

struct BITMAP {
    LONG bmType;
    LONG bmWidth;
    LONG bmHeight;
    LONG bmWidthBytes;
    WORD bmPlanes;
    WORD bmBitsPixel;
    LPVOID bmBits;
};
struct BITMAPINFOHEADER {
    DWORD biSize;
    LONG biWidth;
    LONG biHeight;
    WORD biPlanes;
    WORD biBitCount;
    DWORD biCompression;
    DWORD biSizeImage;
    LONG biXPelsPerMeter;
    LONG biYPelsPerMeter;
    DWORD biClrUsed;
    DWORD biClrImportant;
};
struct RGBQUAD {
    BYTE rgbBlue;
    BYTE rgbGreen;
    BYTE rgbRed;
    BYTE rgbReserved;
};
struct BITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[1];
};
struct DIBSECTION {
    BITMAP dsBm;
    BITMAPINFOHEADER dsBmih;
    DWORD dsBitfields[3];
    HANDLE dshSection;
    DWORD dsOffset;
};
struct BLENDFUNCTION {
    BYTE BlendOp;
    BYTE BlendFlags;
    BYTE SourceConstantAlpha;
    BYTE AlphaFormat;
};
struct TRIVERTEX {
    LONG x;
    LONG y;
    USHORT Red;
    USHORT Green;
    USHORT Blue;
    USHORT Alpha;
};
struct GRADIENT_RECT {
    ULONG UpperLeft;
    ULONG LowerRight;
};
struct RGNDATAHEADER {
    DWORD dwSize;
    DWORD iType;
    DWORD nCount;
    DWORD nRgnSize;
    RECT rcBound;
};
struct RGNDATA {
    RGNDATAHEADER rdh;
    char Buffer[1];
};
using LPRGNDATA = RGNDATA*;
struct XFORM {
    float eM11, eM12, eM21, eM22, eDx, eDy;
};
struct LOGPEN {
    UINT lopnStyle;
    POINT lopnWidth;
    COLORREF lopnColor;
};
struct LOGBRUSH {
    UINT lbStyle;
    COLORREF lbColor;
    ULONG_PTR lbHatch;
};

inline constexpr UINT BS_SOLID = 0;
inline constexpr UINT BS_NULL = 1;
inline constexpr UINT BS_PATTERN = 3;
inline constexpr DWORD BI_RGB = 0;
inline constexpr UINT DIB_RGB_COLORS = 0;
inline constexpr DWORD SRCCOPY = 0x00CC0020;
inline constexpr DWORD SRCPAINT = 0x00EE0086;
inline constexpr DWORD SRCAND = 0x008800C6;
inline constexpr DWORD SRCINVERT = 0x00660046;
inline constexpr DWORD NOTSRCCOPY = 0x00330008;
inline constexpr DWORD PATCOPY = 0x00F00021;
inline constexpr DWORD PATINVERT = 0x005A0049;
inline constexpr DWORD DSTINVERT = 0x00550009;
inline constexpr DWORD BLACKNESS = 0x00000042;
inline constexpr DWORD WHITENESS = 0x00FF0062;
inline constexpr int BLACKONWHITE = 1;
inline constexpr int WHITEONBLACK = 2;
inline constexpr int COLORONCOLOR = 3;
inline constexpr int HALFTONE = 4;
inline constexpr BYTE AC_SRC_OVER = 0;
inline constexpr BYTE AC_SRC_ALPHA = 1;
inline constexpr ULONG GRADIENT_FILL_RECT_H = 0;
inline constexpr ULONG GRADIENT_FILL_RECT_V = 1;
inline constexpr DWORD RDH_RECTANGLES = 1;
inline constexpr int ERROR = 0;
inline constexpr int NULLREGION = 1;
inline constexpr int SIMPLEREGION = 2;
inline constexpr int COMPLEXREGION = 3;
inline constexpr int RGN_AND = 1;
inline constexpr int RGN_OR = 2;
inline constexpr int RGN_XOR = 3;
inline constexpr int RGN_DIFF = 4;
inline constexpr int RGN_COPY = 5;
inline constexpr int PS_SOLID = 0;
inline constexpr int PS_DASH = 1;
inline constexpr int PS_DOT = 2;
inline constexpr int PS_DASHDOT = 3;
inline constexpr int PS_DASHDOTDOT = 4;
inline constexpr int PS_NULL = 5;
inline constexpr int PS_INSIDEFRAME = 6;
inline constexpr int TRANSPARENT = 1;
inline constexpr int OPAQUE = 2;
inline constexpr COLORREF CLR_INVALID = 0xFFFFFFFF;
inline constexpr int WHITE_BRUSH = 0;
inline constexpr int LTGRAY_BRUSH = 1;
inline constexpr int GRAY_BRUSH = 2;
inline constexpr int DKGRAY_BRUSH = 3;
inline constexpr int BLACK_BRUSH = 4;
inline constexpr int NULL_BRUSH = 5;
inline constexpr int WHITE_PEN = 6;
inline constexpr int BLACK_PEN = 7;
inline constexpr int NULL_PEN = 8;
inline constexpr int SYSTEM_FONT = 13;
inline constexpr int DEFAULT_GUI_FONT = 17;
inline constexpr int BITSPIXEL = 12;
inline constexpr int LOGPIXELSX = 88;
inline constexpr int LOGPIXELSY = 90;

QVUI_PLATFORM HDC CreateCompatibleDC(HDC dc);
QVUI_PLATFORM BOOL DeleteDC(HDC dc);
QVUI_PLATFORM int SaveDC(HDC dc);
QVUI_PLATFORM BOOL RestoreDC(HDC dc, int level);
QVUI_PLATFORM HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);
QVUI_PLATFORM int GetObjectA(HANDLE object, int size, LPVOID buffer);
QVUI_PLATFORM BOOL DeleteObject(HGDIOBJ object);
QVUI_PLATFORM HGDIOBJ GetStockObject(int index);
QVUI_PLATFORM int GetDeviceCaps(HDC dc, int index);
/// Finishes pending drawing so that the bits of a section may be accessed. Does nothing here: drawing is
/// immediate.
QVUI_PLATFORM BOOL GdiFlush();

QVUI_PLATFORM HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bitCount, const void* bits);
QVUI_PLATFORM HBITMAP CreateCompatibleBitmap(HDC dc, int width, int height);
QVUI_PLATFORM HBITMAP CreateDIBSection(HDC dc, const BITMAPINFO* info, UINT usage, void** bits,
                                       HANDLE section, DWORD offset);
QVUI_PLATFORM int GetDIBits(HDC dc, HBITMAP bitmap, UINT start, UINT lines, LPVOID bits, BITMAPINFO* info,
                            UINT usage);
QVUI_PLATFORM int SetDIBitsToDevice(HDC dc, int x, int y, DWORD width, DWORD height, int sourceX, int sourceY,
                                    UINT startScan, UINT lines, const void* bits, const BITMAPINFO* info,
                                    UINT usage);
QVUI_PLATFORM int StretchDIBits(HDC dc, int x, int y, int width, int height, int sourceX, int sourceY,
                                int sourceWidth, int sourceHeight, const void* bits, const BITMAPINFO* info,
                                UINT usage, DWORD operation);

QVUI_PLATFORM HBRUSH CreateSolidBrush(COLORREF colour);
QVUI_PLATFORM HBRUSH CreatePatternBrush(HBITMAP bitmap);
QVUI_PLATFORM BOOL SetBrushOrgEx(HDC dc, int x, int y, POINT* previous);
QVUI_PLATFORM HPEN CreatePen(int style, int width, COLORREF colour);

QVUI_PLATFORM HRGN CreateRectRgn(int left, int top, int right, int bottom);
QVUI_PLATFORM HRGN CreateRectRgnIndirect(const RECT* rect);
QVUI_PLATFORM HRGN CreateRoundRectRgn(int left, int top, int right, int bottom, int width, int height);
QVUI_PLATFORM HRGN ExtCreateRegion(const XFORM* transform, DWORD size, const RGNDATA* data);
QVUI_PLATFORM DWORD GetRegionData(HRGN region, DWORD size, RGNDATA* data);
QVUI_PLATFORM int CombineRgn(HRGN target, HRGN first, HRGN second, int mode);
QVUI_PLATFORM BOOL EqualRgn(HRGN first, HRGN second);
QVUI_PLATFORM int OffsetRgn(HRGN region, int x, int y);
QVUI_PLATFORM BOOL PtInRegion(HRGN region, int x, int y);
QVUI_PLATFORM BOOL RectInRegion(HRGN region, const RECT* rect);
QVUI_PLATFORM int GetRgnBox(HRGN region, RECT* box);
QVUI_PLATFORM BOOL SetRectRgn(HRGN region, int left, int top, int right, int bottom);
QVUI_PLATFORM BOOL FillRgn(HDC dc, HRGN region, HBRUSH brush);

QVUI_PLATFORM int SelectClipRgn(HDC dc, HRGN region);
QVUI_PLATFORM int ExtSelectClipRgn(HDC dc, HRGN region, int mode);
QVUI_PLATFORM int SetMetaRgn(HDC dc);
QVUI_PLATFORM int IntersectClipRect(HDC dc, int left, int top, int right, int bottom);
QVUI_PLATFORM int ExcludeClipRect(HDC dc, int left, int top, int right, int bottom);
QVUI_PLATFORM int GetClipBox(HDC dc, RECT* box);
QVUI_PLATFORM int GetClipRgn(HDC dc, HRGN region);
QVUI_PLATFORM BOOL RectVisible(HDC dc, const RECT* rect);

QVUI_PLATFORM BOOL BitBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                          DWORD operation);
QVUI_PLATFORM BOOL PatBlt(HDC dc, int x, int y, int width, int height, DWORD operation);
QVUI_PLATFORM BOOL StretchBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX,
                              int sourceY, int sourceWidth, int sourceHeight, DWORD operation);
QVUI_PLATFORM BOOL AlphaBlend(HDC dc, int x, int y, int width, int height, HDC source, int sourceX,
                              int sourceY, int sourceWidth, int sourceHeight, BLENDFUNCTION blend);
QVUI_PLATFORM BOOL TransparentBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX,
                                  int sourceY, int sourceWidth, int sourceHeight, UINT key);
QVUI_PLATFORM BOOL GradientFill(HDC dc, TRIVERTEX* vertices, ULONG vertexCount, void* mesh, ULONG meshCount,
                                ULONG mode);
QVUI_PLATFORM int FillRect(HDC dc, const RECT* rect, HBRUSH brush);
QVUI_PLATFORM int FrameRect(HDC dc, const RECT* rect, HBRUSH brush);
QVUI_PLATFORM BOOL InvertRect(HDC dc, const RECT* rect);
QVUI_PLATFORM BOOL DrawFocusRect(HDC dc, const RECT* rect);
QVUI_PLATFORM COLORREF SetPixel(HDC dc, int x, int y, COLORREF colour);
QVUI_PLATFORM COLORREF GetPixel(HDC dc, int x, int y);
QVUI_PLATFORM BOOL MoveToEx(HDC dc, int x, int y, POINT* previous);
QVUI_PLATFORM BOOL LineTo(HDC dc, int x, int y);
QVUI_PLATFORM BOOL Rectangle(HDC dc, int left, int top, int right, int bottom);
QVUI_PLATFORM BOOL RoundRect(HDC dc, int left, int top, int right, int bottom, int width, int height);

QVUI_PLATFORM COLORREF SetBkColor(HDC dc, COLORREF colour);
QVUI_PLATFORM COLORREF GetBkColor(HDC dc);
QVUI_PLATFORM int SetBkMode(HDC dc, int mode);
QVUI_PLATFORM int GetBkMode(HDC dc);
QVUI_PLATFORM COLORREF SetTextColor(HDC dc, COLORREF colour);
QVUI_PLATFORM COLORREF GetTextColor(HDC dc);
QVUI_PLATFORM int SetStretchBltMode(HDC dc, int mode);
QVUI_PLATFORM int GetStretchBltMode(HDC dc);
QVUI_PLATFORM BOOL SetViewportOrgEx(HDC dc, int x, int y, POINT* previous);

QVUI_PLATFORM BOOL SetRect(RECT* rect, int left, int top, int right, int bottom);
QVUI_PLATFORM BOOL SetRectEmpty(RECT* rect);
QVUI_PLATFORM BOOL CopyRect(RECT* target, const RECT* source);
QVUI_PLATFORM BOOL IsRectEmpty(const RECT* rect);
QVUI_PLATFORM BOOL IntersectRect(RECT* target, const RECT* first, const RECT* second);
QVUI_PLATFORM BOOL UnionRect(RECT* target, const RECT* first, const RECT* second);
QVUI_PLATFORM BOOL OffsetRect(RECT* rect, int x, int y);
QVUI_PLATFORM BOOL InflateRect(RECT* rect, int x, int y);
QVUI_PLATFORM BOOL PtInRect(const RECT* rect, POINT point);
QVUI_PLATFORM BOOL EqualRect(const RECT* first, const RECT* second);
