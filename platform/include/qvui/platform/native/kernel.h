#pragma once

/// Modules and resources, code pages, files, memory and time.

#include <qvui/platform/native/types.h>

// --- code pages and strings ----------------------------------------------------------------------

inline constexpr UINT CP_ACP = 0;
inline constexpr UINT CP_UTF8 = 65001;
inline constexpr DWORD MB_PRECOMPOSED = 1;
inline constexpr DWORD MB_ERR_INVALID_CHARS = 8;
inline constexpr DWORD WC_NO_BEST_FIT_CHARS = 0x400;

/// Returns the system code page, taken from the locale in the environment.
QVUI_PLATFORM UINT GetACP();
QVUI_PLATFORM int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR text, int length, LPWSTR wide,
                                      int capacity);
QVUI_PLATFORM int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR wide, int length, LPSTR text,
                                      int capacity, LPCSTR defaultCharacter, BOOL* usedDefault);
QVUI_PLATFORM BOOL IsValidCodePage(UINT codePage);
QVUI_PLATFORM BOOL IsDBCSLeadByte(BYTE byte);
QVUI_PLATFORM BOOL IsDBCSLeadByteEx(UINT codePage, BYTE byte);
QVUI_PLATFORM DWORD CharUpperBuffA(LPSTR text, DWORD length);
QVUI_PLATFORM DWORD CharLowerBuffA(LPSTR text, DWORD length);
QVUI_PLATFORM int lstrlenA(LPCSTR text);
QVUI_PLATFORM int lstrcmpA(LPCSTR left, LPCSTR right);
QVUI_PLATFORM int lstrcmpiA(LPCSTR left, LPCSTR right);
QVUI_PLATFORM LPSTR lstrcpynA(LPSTR target, LPCSTR source, int capacity);
QVUI_PLATFORM LANGID GetSystemDefaultLangID();

// --- modules and resources -----------------------------------------------------------------------

/// Returns the path of the executable, with backslashes. Only a null module is supported.
QVUI_PLATFORM DWORD GetModuleFileNameA(HMODULE module, LPSTR path, DWORD capacity);
QVUI_PLATFORM HMODULE GetModuleHandleA(LPCSTR name);
/// Opens a resource module: its resource directory is read, no code is run.
QVUI_PLATFORM HMODULE LoadLibraryA(LPCSTR path);
QVUI_PLATFORM BOOL FreeLibrary(HMODULE module);
QVUI_PLATFORM FARPROC GetProcAddress(HMODULE module, LPCSTR name);
QVUI_PLATFORM HRSRC FindResourceA(HMODULE module, LPCSTR name, LPCSTR type);
QVUI_PLATFORM HGLOBAL LoadResource(HMODULE module, HRSRC resource);
QVUI_PLATFORM LPVOID LockResource(HGLOBAL resource);
QVUI_PLATFORM DWORD SizeofResource(HMODULE module, HRSRC resource);

/// Adds the resources of a module file that is embedded in the executable to the executable's own. The build
/// calls this. The bytes are not owned and must stay valid for the life of the process. Returns FALSE if they
/// are not a module.
QVUI_PLATFORM BOOL RegisterExecutableResources(const void* moduleFile, SIZE_T size);

#define RT_CURSOR MAKEINTRESOURCEA(1)
#define RT_BITMAP MAKEINTRESOURCEA(2)
#define RT_ICON MAKEINTRESOURCEA(3)
#define RT_RCDATA MAKEINTRESOURCEA(10)
#define RT_GROUP_CURSOR MAKEINTRESOURCEA(12)

// --- files ---------------------------------------------------------------------------------------

inline constexpr DWORD GENERIC_READ = 0x80000000;
inline constexpr DWORD GENERIC_WRITE = 0x40000000;
inline constexpr DWORD CREATE_ALWAYS = 2;
inline constexpr DWORD OPEN_EXISTING = 3;
inline constexpr DWORD FILE_SHARE_READ = 1;
inline constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;
inline constexpr DWORD FILE_FLAG_SEQUENTIAL_SCAN = 0x08000000;
#define INVALID_HANDLE_VALUE (reinterpret_cast<HANDLE>(static_cast<INT_PTR>(-1)))

QVUI_PLATFORM HANDLE CreateFileA(LPCSTR path, DWORD access, DWORD share, void* security, DWORD disposition,
                                 DWORD flags, HANDLE pattern);
QVUI_PLATFORM BOOL ReadFile(HANDLE file, LPVOID buffer, DWORD size, DWORD* read, void* overlapped);
QVUI_PLATFORM BOOL WriteFile(HANDLE file, LPCVOID buffer, DWORD size, DWORD* written, void* overlapped);
QVUI_PLATFORM BOOL CloseHandle(HANDLE file);

// --- memory, time, errors ------------------------------------------------------------------------

inline constexpr UINT GMEM_FIXED = 0;
inline constexpr UINT GMEM_MOVEABLE = 2;
inline constexpr UINT GMEM_ZEROINIT = 0x40;
inline constexpr UINT GHND = GMEM_MOVEABLE | GMEM_ZEROINIT;

QVUI_PLATFORM HGLOBAL GlobalAlloc(UINT flags, SIZE_T size);
QVUI_PLATFORM HGLOBAL GlobalReAlloc(HGLOBAL block, SIZE_T size, UINT flags);
QVUI_PLATFORM LPVOID GlobalLock(HGLOBAL block);
QVUI_PLATFORM BOOL GlobalUnlock(HGLOBAL block);
QVUI_PLATFORM SIZE_T GlobalSize(HGLOBAL block);
QVUI_PLATFORM HGLOBAL GlobalFree(HGLOBAL block);

QVUI_PLATFORM BOOL QueryPerformanceCounter(LARGE_INTEGER* count);
QVUI_PLATFORM BOOL QueryPerformanceFrequency(LARGE_INTEGER* frequency);
QVUI_PLATFORM DWORD GetTickCount();
QVUI_PLATFORM void Sleep(DWORD milliseconds);
QVUI_PLATFORM DWORD GetLastError();
QVUI_PLATFORM void SetLastError(DWORD error);
QVUI_PLATFORM int MulDiv(int number, int numerator, int denominator);
