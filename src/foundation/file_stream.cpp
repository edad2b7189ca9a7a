#include <qvui/foundation/file_stream.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>

#include <qvui/platform/file.h>

namespace DUI {

// --- CIOFile ---

CIOFile::CIOFile(std::FILE* stream) : m_pStream(stream), m_bClose(stream == nullptr)
{
}

CIOFile::~CIOFile()
{
    CIOFile::Close();
}

bool CIOFile::Open(const char* path, const char* mode)
{
    if (m_pStream || !path || !mode)
        return false;
    m_pStream = OpenPlatformFile(path, mode);
    if (m_pStream)
        m_bClose = true;
    return m_pStream != nullptr;
}

bool CIOFile::Close()
{
    if (!m_pStream || !m_bClose)
        return true;
    const bool isClosed = std::fclose(m_pStream) == 0;
    m_pStream = nullptr;
    return isClosed;
}

unsigned int CIOFile::Read(void* buffer, unsigned int size, unsigned int count)
{
    return m_pStream ? static_cast<unsigned int>(std::fread(buffer, size, count, m_pStream)) : 0;
}

unsigned int CIOFile::Write(const void* buffer, unsigned int size, unsigned int count)
{
    return m_pStream ? static_cast<unsigned int>(std::fwrite(buffer, size, count, m_pStream)) : 0;
}

bool CIOFile::Seek(long offset, int origin)
{
    return m_pStream && std::fseek(m_pStream, offset, origin) == 0;
}

long CIOFile::Tell()
{
    return m_pStream ? std::ftell(m_pStream) : 0;
}

long CIOFile::Size()
{
    if (!m_pStream)
        return -1;
    const long position = std::ftell(m_pStream);
    std::fseek(m_pStream, 0, SEEK_END);
    const long size = std::ftell(m_pStream);
    std::fseek(m_pStream, position, SEEK_SET);
    return size;
}

bool CIOFile::Flush()
{
    return m_pStream && std::fflush(m_pStream) == 0;
}

bool CIOFile::Eof()
{
    return !m_pStream || std::feof(m_pStream) != 0;
}

long CIOFile::Error()
{
    return m_pStream ? std::ferror(m_pStream) : -1;
}

bool CIOFile::PutC(unsigned char byte)
{
    return m_pStream && std::fputc(byte, m_pStream) == byte;
}

long CIOFile::GetC()
{
    return m_pStream ? std::getc(m_pStream) : -1;
}

char* CIOFile::GetS(char* buffer, int n)
{
    return m_pStream ? std::fgets(buffer, n, m_pStream) : nullptr;
}

long CIOFile::Scanf(const char* format, void* output)
{
    return m_pStream ? std::fscanf(m_pStream, format, output) : -1;
}

// --- CMemFileEx ---

namespace {

// Positions and sizes are reported as a long, so nothing grows beyond it.
constexpr auto kLargest = static_cast<unsigned long>(std::numeric_limits<long>::max());

}  // namespace

CMemFileEx::CMemFileEx(unsigned char* buffer, unsigned long size)
    : m_pBuffer(buffer),
      m_nSize(buffer ? std::min(size, kLargest) : 0),
      m_bFreeOnClose(buffer == nullptr),
      m_nCapacity(m_nSize)
{
}

CMemFileEx::~CMemFileEx()
{
    CMemFileEx::Close();
}

bool CMemFileEx::Open()
{
    if (m_pBuffer)
        return false;
    m_pBuffer = static_cast<unsigned char*>(std::malloc(1));
    m_bFreeOnClose = true;
    m_nSize = m_nPosition = m_nCapacity = 0;
    return m_pBuffer != nullptr;
}

bool CMemFileEx::Close()
{
    if (m_bFreeOnClose)
        std::free(m_pBuffer);
    m_pBuffer = nullptr;
    m_nSize = m_nPosition = m_nCapacity = 0;
    return true;
}

unsigned char* CMemFileEx::GetBuffer(bool detach)
{
    if (detach)
        m_bFreeOnClose = false;
    return m_pBuffer;
}

unsigned int CMemFileEx::Read(void* buffer, unsigned int size, unsigned int count)
{
    const unsigned long long wanted = static_cast<unsigned long long>(size) * count;
    if (!buffer || !m_pBuffer || m_nPosition >= m_nSize || wanted == 0)
        return 0;
    const auto copied =
        static_cast<unsigned long>(std::min<unsigned long long>(wanted, m_nSize - m_nPosition));
    std::memcpy(buffer, m_pBuffer + m_nPosition, copied);
    m_nPosition += copied;
    return static_cast<unsigned int>(copied / size);
}

unsigned int CMemFileEx::Write(const void* buffer, unsigned int size, unsigned int count)
{
    const unsigned long long bytes = static_cast<unsigned long long>(size) * count;
    return m_pBuffer && buffer && bytes != 0 && Store(buffer, bytes) ? count : 0;
}

bool CMemFileEx::PutC(unsigned char byte)
{
    return Store(&byte, 1);
}

bool CMemFileEx::Store(const void* bytes, unsigned long long size)
{
    if (size > kLargest - m_nPosition)
        return false;
    const auto end = m_nPosition + static_cast<unsigned long>(size);
    if (end > m_nCapacity && !Alloc(end))
        return false;
    if (m_nPosition > m_nSize)
        std::memset(m_pBuffer + m_nSize, 0, m_nPosition - m_nSize);
    std::memcpy(m_pBuffer + m_nPosition, bytes, static_cast<std::size_t>(size));
    m_nPosition = end;
    m_nSize = std::max(m_nSize, end);
    return true;
}

bool CMemFileEx::Alloc(unsigned long needed)
{
    if (needed <= m_nCapacity)
        return m_pBuffer != nullptr;
    constexpr unsigned long kStep = 0x10000;
    const unsigned long capacity = needed / kStep * kStep + kStep;
    void* grown = nullptr;
    if (capacity > needed)  // otherwise the sum has overflowed
        grown = m_bFreeOnClose ? std::realloc(m_pBuffer, capacity) : std::malloc(capacity);
    if (!grown) {
        Close();
        return false;
    }
    // The caller's buffer is copied and left alone; only an owned block may be reallocated.
    if (!m_bFreeOnClose && m_pBuffer)
        std::memcpy(grown, m_pBuffer, m_nSize);
    m_pBuffer = static_cast<unsigned char*>(grown);
    m_nCapacity = capacity;
    m_bFreeOnClose = true;
    return true;
}

bool CMemFileEx::Seek(long offset, int origin)
{
    if (!m_pBuffer || origin < SEEK_SET || origin > SEEK_END)
        return false;
    const unsigned long start = origin == SEEK_SET ? 0 : origin == SEEK_CUR ? m_nPosition : m_nSize;
    if (offset >= 0) {
        m_nPosition = start + std::min(static_cast<unsigned long>(offset), kLargest - start);
    } else {
        const unsigned long back = 0UL - static_cast<unsigned long>(offset);
        m_nPosition = start - std::min(back, start);
    }
    return true;
}

long CMemFileEx::Tell()
{
    return m_pBuffer ? static_cast<long>(m_nPosition) : -1;
}

long CMemFileEx::Size()
{
    return m_pBuffer ? static_cast<long>(m_nSize) : -1;
}

bool CMemFileEx::Flush()
{
    return m_pBuffer != nullptr;
}

bool CMemFileEx::Eof()
{
    return !m_pBuffer || m_nPosition >= m_nSize;
}

long CMemFileEx::Error()
{
    return m_pBuffer ? m_nPosition > m_nSize : -1;
}

long CMemFileEx::GetC()
{
    return Eof() ? -1 : m_pBuffer[m_nPosition++];
}

char* CMemFileEx::GetS(char* buffer, int n)
{
    if (!buffer || n <= 0)
        return nullptr;
    int count = 0;
    while (count < n - 1) {
        const long byte = GetC();
        if (byte == -1)
            return nullptr;
        buffer[count++] = static_cast<char>(byte);
        if (byte == '\n')
            break;
    }
    buffer[count] = '\0';
    return buffer;
}

long CMemFileEx::Scanf(const char*, void*)
{
    return 0;
}

}  // namespace DUI
