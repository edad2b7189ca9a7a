#pragma once

#include <cstdio>

#include <qvui/platform/export.h>

namespace DUI {

/// Interface of a byte stream, on disk or in memory, with the operations of a C stream. Nothing throws;
/// failures are reported by the results.
class QVUI_API IFileBase {
public:
    virtual ~IFileBase() = default;
    virtual bool Close() = 0;
    /// Read and Write transfer up to `count` items of `size` bytes each and return the number of whole items
    /// transferred.
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
    /// Returns the next byte, 0 to 255, or -1 at the end.
    virtual long GetC() = 0;
    /// Reads one line including its line feed, at most n - 1 bytes, and appends a terminating zero. Returns
    /// null at the end.
    virtual char* GetS(char* buffer, int n) = 0;
    /// Scans one value.
    virtual long Scanf(const char* format, void* output) = 0;

protected:
    IFileBase() = default;
    IFileBase(const IFileBase&) = default;
    IFileBase& operator=(const IFileBase&) = default;
};

/// A byte stream on a C stream. Not copyable: a copy would close the stream a second time.
///
/// Without a stream, Read, Write and Tell return 0, GetS returns null, Seek, Flush and PutC return false, Eof
/// returns true, and Size, Error, GetC and Scanf return -1.
class QVUI_API CIOFile : public IFileBase {
public:
    /// Uses an open stream. The stream is not owned; the caller closes it.
    CIOFile(std::FILE* stream = nullptr);
    CIOFile(const CIOFile&) = delete;
    CIOFile& operator=(const CIOFile&) = delete;
    ~CIOFile() override;

    /// Opens a file as fopen does; the path is in the system code page and takes either separator. Returns
    /// false if there is already a stream or the file cannot be opened. The object owns the stream.
    bool Open(const char* path, const char* mode);

    /// Closes a stream that the object opened. Returns true on success or if there was nothing to close.
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
    bool m_bClose;  // whether the stream is owned
};

/// A byte stream on a growing memory block. Not copyable: a copy would free the block a second time.
///
/// Without a buffer, Read and Write return 0, Seek and Flush return false, Eof returns true, and Tell, Size,
/// Error and GetC return -1. A position past the end is allowed; writing there fills the gap with zeros.
class QVUI_API CMemFileEx : public IFileBase {
public:
    /// Reads and overwrites the caller's buffer, which is not owned. Growing switches to an owned block.
    CMemFileEx(unsigned char* buffer = nullptr, unsigned long size = 0);
    CMemFileEx(const CMemFileEx&) = delete;
    CMemFileEx& operator=(const CMemFileEx&) = delete;
    ~CMemFileEx() override;

    /// Allocates an empty block. Returns false if there is already a buffer or no memory is available.
    bool Open();
    /// Returns the bytes, valid until the next write or Close. With `detach`, ownership passes to the caller,
    /// who frees them with std::free; the stream continues to use them.
    unsigned char* GetBuffer(bool detach);
    void Free() { Close(); }

    /// Releases the buffer, freeing it if it is owned. Always returns true.
    bool Close() override;
    unsigned int Read(void* buffer, unsigned int size, unsigned int count) override;
    unsigned int Write(const void* buffer, unsigned int size, unsigned int count) override;
    /// A position before the start is clamped to the start. Returns false for an unknown origin.
    bool Seek(long offset, int origin) override;
    long Tell() override;
    long Size() override;
    bool Flush() override;
    bool Eof() override;
    /// Returns 1 if the position is past the end, otherwise 0.
    long Error() override;
    /// Allocates a block if there is none.
    bool PutC(unsigned char byte) override;
    long GetC() override;
    /// Also returns null for a last line without a line feed; the buffer then holds its bytes without a
    /// terminating zero.
    char* GetS(char* buffer, int n) override;
    /// Scanning is not supported in memory; always returns 0.
    long Scanf(const char* format, void* output) override;

protected:
    /// Grows the capacity to at least `needed` bytes, in steps of 65536. Returns whether there is a buffer
    /// afterwards; there is none if the allocation fails.
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
