#pragma once

/// The platform's basic types, with the same widths on every target: LONG, DWORD, BOOL, UINT and COLORREF are
/// 32 bits even where C's long is 64; WPARAM, LPARAM and LRESULT are pointer-sized.

#include <cstddef>
#include <cstdint>

#include <qvui/platform/export.h>

#define WINAPI
#define CALLBACK
#define APIENTRY
#define STDMETHODCALLTYPE
#undef TRUE
#undef FALSE
#define TRUE 1
#define FALSE 0

/// Declares a function of the platform layer, which the shared library exports to applications.
#define QVUI_PLATFORM extern "C" QVUI_API

using BOOL = std::int32_t;
using BYTE = std::uint8_t;
using UCHAR = unsigned char;
using CHAR = char;
using WCHAR = char16_t;
using SHORT = std::int16_t;
using USHORT = std::uint16_t;
using WORD = std::uint16_t;
using INT = std::int32_t;
using UINT = std::uint32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using DWORD = std::uint32_t;
using LONGLONG = std::int64_t;
using ULONGLONG = std::uint64_t;
using DWORDLONG = std::uint64_t;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using ULONG_PTR = std::uintptr_t;
using DWORD_PTR = std::uintptr_t;
using SIZE_T = std::size_t;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using HRESULT = std::int32_t;
using COLORREF = DWORD;
using ATOM = WORD;
using LANGID = WORD;
using LCID = DWORD;
using VOID = void;
using PVOID = void*;
using LPVOID = void*;
using LPCVOID = const void*;
using LPSTR = char*;
using LPCSTR = const char*;
using PSTR = char*;
using PCSTR = const char*;
using LPWSTR = WCHAR*;
using LPCWSTR = const WCHAR*;
using LPBYTE = BYTE*;
using LPDWORD = DWORD*;
using LPBOOL = BOOL*;
using LPINT = int*;
using HANDLE = void*;
using HGDIOBJ = void*;
using HGLOBAL = HANDLE;
using FARPROC = INT_PTR (*)();
using PROC = INT_PTR (*)();

/// Handles are distinct pointer types that are never dereferenced. See core/handle_table.h.
#define QVUI_DECLARE_HANDLE(name) \
    struct name##__;              \
    using name = name##__*
QVUI_DECLARE_HANDLE(HWND);
QVUI_DECLARE_HANDLE(HDC);
QVUI_DECLARE_HANDLE(HBITMAP);
QVUI_DECLARE_HANDLE(HBRUSH);
QVUI_DECLARE_HANDLE(HPEN);
QVUI_DECLARE_HANDLE(HFONT);
QVUI_DECLARE_HANDLE(HRGN);
QVUI_DECLARE_HANDLE(HICON);
QVUI_DECLARE_HANDLE(HMENU);
QVUI_DECLARE_HANDLE(HINSTANCE);
QVUI_DECLARE_HANDLE(HRSRC);
QVUI_DECLARE_HANDLE(HKL);
QVUI_DECLARE_HANDLE(HIMC);
QVUI_DECLARE_HANDLE(HMONITOR);
#undef QVUI_DECLARE_HANDLE
using HMODULE = HINSTANCE;
using HCURSOR = HICON;

struct POINT {
    LONG x;
    LONG y;
};
struct SIZE {
    LONG cx;
    LONG cy;
};
struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};
using POINTL = POINT;
using SIZEL = SIZE;
using RECTL = RECT;
using PPOINT = POINT*;
using LPPOINT = POINT*;
using LPSIZE = SIZE*;
using PRECT = RECT*;
using LPRECT = RECT*;
using LPCRECT = const RECT*;

union LARGE_INTEGER {
    struct {
        DWORD LowPart;
        LONG HighPart;
    } u;
    LONGLONG QuadPart;
};
union ULARGE_INTEGER {
    struct {
        DWORD LowPart;
        DWORD HighPart;
    } u;
    ULONGLONG QuadPart;
};

constexpr WORD LOWORD(DWORD_PTR value)
{
    return static_cast<WORD>(value & 0xFFFF);
}
constexpr WORD HIWORD(DWORD_PTR value)
{
    return static_cast<WORD>((value >> 16) & 0xFFFF);
}
constexpr BYTE LOBYTE(DWORD_PTR value)
{
    return static_cast<BYTE>(value & 0xFF);
}
constexpr BYTE HIBYTE(DWORD_PTR value)
{
    return static_cast<BYTE>((value >> 8) & 0xFF);
}
constexpr WORD MAKEWORD(DWORD_PTR low, DWORD_PTR high)
{
    return static_cast<WORD>((low & 0xFF) | ((high & 0xFF) << 8));
}
constexpr LONG MAKELONG(DWORD_PTR low, DWORD_PTR high)
{
    return static_cast<LONG>(static_cast<DWORD>((low & 0xFFFF) | ((high & 0xFFFF) << 16)));
}
constexpr WPARAM MAKEWPARAM(DWORD_PTR low, DWORD_PTR high)
{
    return static_cast<WPARAM>(static_cast<DWORD>(MAKELONG(low, high)));
}
constexpr LPARAM MAKELPARAM(DWORD_PTR low, DWORD_PTR high)
{
    return static_cast<LPARAM>(static_cast<DWORD>(MAKELONG(low, high)));
}
constexpr LRESULT MAKELRESULT(DWORD_PTR low, DWORD_PTR high)
{
    return static_cast<LRESULT>(static_cast<DWORD>(MAKELONG(low, high)));
}
constexpr int GET_X_LPARAM(LPARAM value)
{
    return static_cast<SHORT>(LOWORD(static_cast<DWORD_PTR>(value)));
}
constexpr int GET_Y_LPARAM(LPARAM value)
{
    return static_cast<SHORT>(HIWORD(static_cast<DWORD_PTR>(value)));
}
constexpr COLORREF RGB(int red, int green, int blue)
{
    return static_cast<COLORREF>((red & 0xFF) | ((green & 0xFF) << 8) | ((blue & 0xFF) << 16));
}
constexpr BYTE GetRValue(COLORREF colour)
{
    return static_cast<BYTE>(colour & 0xFF);
}
constexpr BYTE GetGValue(COLORREF colour)
{
    return static_cast<BYTE>((colour >> 8) & 0xFF);
}
constexpr BYTE GetBValue(COLORREF colour)
{
    return static_cast<BYTE>((colour >> 16) & 0xFF);
}

/// Encodes an integer resource id as a name for the resource functions.
#define MAKEINTRESOURCEA(id) (reinterpret_cast<LPCSTR>(static_cast<ULONG_PTR>(static_cast<WORD>(id))))
#define IS_INTRESOURCE(name) ((reinterpret_cast<ULONG_PTR>(name) >> 16) == 0)

inline constexpr DWORD INFINITE = 0xFFFFFFFF;
inline constexpr int MAX_PATH = 260;

inline constexpr DWORD ERROR_SUCCESS = 0;
inline constexpr DWORD ERROR_FILE_NOT_FOUND = 2;
inline constexpr DWORD ERROR_PATH_NOT_FOUND = 3;
inline constexpr DWORD ERROR_ACCESS_DENIED = 5;
inline constexpr DWORD ERROR_INVALID_HANDLE = 6;
inline constexpr DWORD ERROR_NOT_ENOUGH_MEMORY = 8;
inline constexpr DWORD ERROR_INVALID_PARAMETER = 87;
inline constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;
inline constexpr DWORD ERROR_MOD_NOT_FOUND = 126;
inline constexpr DWORD ERROR_PROC_NOT_FOUND = 127;
inline constexpr DWORD ERROR_BAD_EXE_FORMAT = 193;
inline constexpr DWORD ERROR_NO_UNICODE_TRANSLATION = 1113;
inline constexpr DWORD ERROR_INVALID_WINDOW_HANDLE = 1400;
inline constexpr DWORD ERROR_CLASS_ALREADY_EXISTS = 1410;
inline constexpr DWORD ERROR_CANNOT_FIND_WND_CLASS = 1407;
inline constexpr DWORD ERROR_RESOURCE_DATA_NOT_FOUND = 1812;
inline constexpr DWORD ERROR_RESOURCE_TYPE_NOT_FOUND = 1813;
inline constexpr DWORD ERROR_RESOURCE_NAME_NOT_FOUND = 1814;

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
inline constexpr HRESULT E_NOTIMPL = static_cast<HRESULT>(0x80004001U);
inline constexpr HRESULT E_NOINTERFACE = static_cast<HRESULT>(0x80004002U);
inline constexpr HRESULT E_POINTER = static_cast<HRESULT>(0x80004003U);
inline constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005U);
inline constexpr HRESULT E_UNEXPECTED = static_cast<HRESULT>(0x8000FFFFU);
inline constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x8007000EU);
inline constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057U);
constexpr bool SUCCEEDED(HRESULT result)
{
    return result >= 0;
}
constexpr bool FAILED(HRESULT result)
{
    return result < 0;
}
