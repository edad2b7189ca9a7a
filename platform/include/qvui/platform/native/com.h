#pragma once

/// The parts of COM that the library uses: reference-counted interfaces and memory streams.

#include <cstring>

#include <qvui/platform/native/types.h>

struct GUID {
    DWORD Data1;
    WORD Data2;
    WORD Data3;
    BYTE Data4[8];
    bool operator==(const GUID& other) const { return std::memcmp(this, &other, sizeof *this) == 0; }
};
using IID = GUID;
using REFIID = const IID&;

inline constexpr IID IID_IUnknown{0x00000000, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_ISequentialStream{
    0x0C733A30, 0x2A1C, 0x11CE, {0xAD, 0xE5, 0, 0xAA, 0, 0x44, 0x77, 0x3D}};
inline constexpr IID IID_IStream{0x0000000C, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

struct IUnknown {
    virtual HRESULT QueryInterface(REFIID iid, void** object) = 0;
    virtual ULONG AddRef() = 0;
    virtual ULONG Release() = 0;

protected:
    ~IUnknown() = default;
};

struct ISequentialStream : IUnknown {
    virtual HRESULT Read(void* buffer, ULONG size, ULONG* read) = 0;
    virtual HRESULT Write(const void* buffer, ULONG size, ULONG* written) = 0;
};

inline constexpr DWORD STREAM_SEEK_SET = 0;
inline constexpr DWORD STREAM_SEEK_CUR = 1;
inline constexpr DWORD STREAM_SEEK_END = 2;

struct IStream : ISequentialStream {
    virtual HRESULT Seek(LARGE_INTEGER offset, DWORD origin, ULARGE_INTEGER* position) = 0;
    virtual HRESULT SetSize(ULARGE_INTEGER size) = 0;
};

QVUI_PLATFORM HRESULT CoInitialize(void* reserved);
QVUI_PLATFORM void CoUninitialize();
/// Creates a stream on a movable memory block; null allocates a new block. The stream frees the block if
/// `deleteOnRelease` is set.
QVUI_PLATFORM HRESULT CreateStreamOnHGlobal(HGLOBAL block, BOOL deleteOnRelease, IStream** stream);
