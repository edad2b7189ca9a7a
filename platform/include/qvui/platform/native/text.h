#pragma once

/// Fonts, text metrics and text drawing. Text is in the system code page.

#include <qvui/platform/native/gdi.h>

inline constexpr int LF_FACESIZE = 32;

struct LOGFONTA {
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    CHAR lfFaceName[LF_FACESIZE];
};
struct TEXTMETRICA {
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    BYTE tmFirstChar;
    BYTE tmLastChar;
    BYTE tmDefaultChar;
    BYTE tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
};

inline constexpr int FW_NORMAL = 400;
inline constexpr int FW_BOLD = 700;
inline constexpr BYTE ANSI_CHARSET = 0;
inline constexpr BYTE DEFAULT_CHARSET = 1;
inline constexpr BYTE SHIFTJIS_CHARSET = 128;
inline constexpr BYTE JOHAB_CHARSET = 130;
inline constexpr BYTE GB2312_CHARSET = 134;
inline constexpr BYTE CHINESEBIG5_CHARSET = 136;
inline constexpr BYTE NONANTIALIASED_QUALITY = 3;
inline constexpr UINT ETO_OPAQUE = 2;
inline constexpr UINT ETO_CLIPPED = 4;

inline constexpr UINT DT_TOP = 0x0;
inline constexpr UINT DT_LEFT = 0x0;
inline constexpr UINT DT_CENTER = 0x1;
inline constexpr UINT DT_RIGHT = 0x2;
inline constexpr UINT DT_VCENTER = 0x4;
inline constexpr UINT DT_BOTTOM = 0x8;
inline constexpr UINT DT_WORDBREAK = 0x10;
inline constexpr UINT DT_SINGLELINE = 0x20;
inline constexpr UINT DT_EXPANDTABS = 0x40;
inline constexpr UINT DT_TABSTOP = 0x80;
inline constexpr UINT DT_NOCLIP = 0x100;
inline constexpr UINT DT_EXTERNALLEADING = 0x200;
inline constexpr UINT DT_CALCRECT = 0x400;
inline constexpr UINT DT_NOPREFIX = 0x800;
inline constexpr UINT DT_INTERNAL = 0x1000;
inline constexpr UINT DT_EDITCONTROL = 0x2000;
inline constexpr UINT DT_PATH_ELLIPSIS = 0x4000;
inline constexpr UINT DT_END_ELLIPSIS = 0x8000;
inline constexpr UINT DT_MODIFYSTRING = 0x10000;
inline constexpr UINT DT_RTLREADING = 0x20000;
inline constexpr UINT DT_WORD_ELLIPSIS = 0x40000;
inline constexpr UINT DT_NOFULLWIDTHCHARBREAK = 0x80000;
inline constexpr UINT DT_HIDEPREFIX = 0x100000;
inline constexpr UINT DT_PREFIXONLY = 0x200000;

QVUI_PLATFORM HFONT CreateFontIndirectA(const LOGFONTA* description);
QVUI_PLATFORM BOOL GetTextMetricsA(HDC dc, TEXTMETRICA* metrics);
QVUI_PLATFORM BOOL GetTextExtentPoint32A(HDC dc, LPCSTR text, int length, SIZE* size);
QVUI_PLATFORM BOOL GetTextExtentExPointA(HDC dc, LPCSTR text, int length, int widest, int* fit, int* widths,
                                         SIZE* size);
QVUI_PLATFORM BOOL TextOutA(HDC dc, int x, int y, LPCSTR text, int length);
QVUI_PLATFORM BOOL ExtTextOutA(HDC dc, int x, int y, UINT options, const RECT* rect, LPCSTR text, UINT length,
                               const int* widths);
QVUI_PLATFORM int DrawTextA(HDC dc, LPCSTR text, int length, RECT* rect, UINT format);
