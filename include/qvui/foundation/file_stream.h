#pragma once

#include <cstdio>

#include <qvui/platform/export.h>

namespace DUI {

/// A stream of bytes with the operations of the C library's streams, on disk or in memory. Nothing throws:
/// failures are the results.
class QVUI_API IFileBase {
public:
    virtual ~IFileBase() = default;
    virtual bool Close() = 0;
    /// Reads or writes `count` items of `size` bytes each; the number of whole items that were.
    virtual unsigned int Read(void* buffer, unsigned int size, unsigned int count) = 0;
    virtual unsigned int Write(const void* buffer, unsigned int size, unsigned int count) = 0;
    /// `origin` is 0 for the start, 1 for the current position, 2 for the end.
    virtual bool Seek(long offset, int origin) = 0;
    virtual long Tell() = 0;
    /// The length in bytes.
    virtual long Size() = 0;
    virtual bool Flush() = 0;
    virtual bool Eof() = 0;
    virtual long Error() = 0;
    virtual bool PutC(unsigned char byte) { return Write(&byte, 1, 1) == 1; }
    /// The next byte, 0 to 255; -1 at the end.
    virtual long GetC() = 0;
    /// A line with its line feed, at most n - 1 bytes of it, and a terminating zero; null at the end.
    virtual char* GetS(char* buffer, int n) = 0;
    /// Scans one value.
    virtual long Scanf(const char* format, void* output) = 0;

protected:
    IFileBase() = default;
    IFileBase(const IFileBase&) = default;
    IFileBase& operator=(const IFileBase&) = default;
};

/// A C stream. Not copyable: a copy would close the stream a second time.
///
/// Without a stream Read, Write and Tell give 0, GetS null, Seek, Flush and PutC false, Eof true, and Size,
/// Error, GetC and Scanf -1.
class QVUI_API CIOFile : public IFileBase {
public:
    /// Uses an open stream, which stays the caller's to close.
    CIOFile(std::FILE* stream = nullptr);
    CIOFile(const CIOFile&) = delete;
    CIOFile& operator=(const CIOFile&) = delete;
    ~CIOFile() override;

    /// Opens a file as fopen does; the path is in the system code page and takes either separator. False when
    /// there is a stream already or the file does not open. The object owns the stream.
    bool Open(const char* path, const char* mode);

    /// Closes a stream that the object opened; true when it closed well or there was nothing to close.
    bool Close() override;
    unsigned int Read(void* buffer, unsigned int size, unsigned int count) override;
    unsigned int Write(const void* buffer, unsigned int size, unsigned int count) override;
    bool Seek(long offset, int origin) override;
    long Tell() override;
    long Size() override;
    bool Flush() override;
    bool Eof() override;
    long Error() override;
    bool PutC(unsigned char byte) override;
    long GetC() override;
    char* GetS(char* buffer, int n) override;
    long Scanf(const char* format, void* output) override;

private:
    std::FILE* m_pStream;
    bool m_bClose;  // the stream is the object's own
};

/// A growing block of memory as a stream. Not copyable: a copy would free the block a second time.
///
/// Without a buffer Read and Write give 0, Seek and Flush false, Eof true, Tell, Size, Error and GetC -1. A
/// position behind the end is allowed; writing there fills the gap with zeros.
class QVUI_API CMemFileEx : public IFileBase {
public:
    /// Reads and overwrites the caller's bytes, which stay the caller's; growing moves on to a block of its
    /// own.
    CMemFileEx(unsigned char* buffer = nullptr, unsigned long size = 0);
    CMemFileEx(const CMemFileEx&) = delete;
    CMemFileEx& operator=(const CMemFileEx&) = delete;
    ~CMemFileEx() override;

    /// Starts an empty block; false when there is a buffer already or no memory.
    bool Open();
    /// The bytes, valid until the next write or Close. With `detach` they are the caller's from now on, to be
    /// freed with std::free, and the stream goes on using them.
    unsigned char* GetBuffer(bool detach);
    void Free() { Close(); }

    /// Lets go of the buffer, and frees it when it is the object's own; always true.
    bool Close() override;
    unsigned int Read(void* buffer, unsigned int size, unsigned int count) override;
    unsigned int Write(const void* buffer, unsigned int size, unsigned int count) override;
    /// A position before the start becomes the start; false for another origin.
    bool Seek(long offset, int origin) override;
    long Tell() override;
    long Size() override;
    bool Flush() override;
    bool Eof() override;
    /// 1 when the position is behind the end, else 0.
    long Error() override;
    /// Starts a block when there is none.
    bool PutC(unsigned char byte) override;
    long GetC() override;
    /// Null also for a last line without a line feed; its bytes are in the buffer then, without a zero.
    char* GetS(char* buffer, int n) override;
    /// There is no scanning in memory: always 0.
    long Scanf(const char* format, void* output) override;

protected:
    /// Makes room for `needed` bytes, in steps of 65536; whether there is a buffer then. Without memory there
    /// is none.
    bool Alloc(unsigned long needed);

private:
    bool Store(const void* bytes, unsigned long long size);

    unsigned char* m_pBuffer;
    unsigned long m_nSize;
    bool m_bFreeOnClose;
    unsigned long m_nPosition = 0;  // never above the largest long
    unsigned long m_nCapacity;
};

}  // namespace DUI
