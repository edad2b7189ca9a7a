// Movable memory blocks, streams on them, and the last error.

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <vector>

#include <qvui/platform/native/com.h>
#include <qvui/platform/native/kernel.h>

#include "native/core/handle_table.h"
#include "native/core/live_counts.h"

namespace qvui::native {
namespace {

using Block = std::vector<BYTE>;

HandleTable<Block, 1>& Blocks()
{
    static auto& blocks = *new HandleTable<Block, 1>();
    return blocks;
}

[[maybe_unused]] const bool g_counted =
    RegisterLiveCount(&LiveCounts::globalBlocks, [] { return Blocks().LiveCount(); });

thread_local DWORD g_lastError = 0;

// A stream on a movable memory block, as CreateStreamOnHGlobal creates it.
class BlockStream final : public IStream {
public:
    BlockStream(HGLOBAL block, bool ownsBlock) : m_block(block), m_ownsBlock(ownsBlock) {}

    HRESULT QueryInterface(REFIID iid, void** object) override
    {
        if (iid != IID_IUnknown && iid != IID_ISequentialStream && iid != IID_IStream) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        *object = static_cast<IStream*>(this);
        AddRef();
        return S_OK;
    }
    ULONG AddRef() override { return ++m_references; }
    ULONG Release() override
    {
        const ULONG left = --m_references;
        if (left == 0) {
            if (m_ownsBlock)
                GlobalFree(m_block);
            delete this;
        }
        return left;
    }
    HRESULT Read(void* buffer, ULONG size, ULONG* read) override
    {
        const Block* bytes = Blocks().Peek(m_block);
        const std::size_t left = bytes && m_position < bytes->size() ? bytes->size() - m_position : 0;
        const std::size_t count = std::min<std::size_t>(size, left);
        if (count > 0)
            std::memcpy(buffer, bytes->data() + m_position, count);
        m_position += count;
        if (read)
            *read = static_cast<ULONG>(count);
        return count == size ? S_OK : S_FALSE;
    }
    HRESULT Write(const void* buffer, ULONG size, ULONG* written) override
    {
        Block* bytes = Blocks().Peek(m_block);
        if (!bytes)
            return E_FAIL;
        bytes->resize(std::max(bytes->size(), m_position + size));
        std::memcpy(bytes->data() + m_position, buffer, size);
        m_position += size;
        if (written)
            *written = size;
        return S_OK;
    }
    HRESULT Seek(LARGE_INTEGER offset, DWORD origin, ULARGE_INTEGER* position) override
    {
        const Block* bytes = Blocks().Peek(m_block);
        if (!bytes || origin > STREAM_SEEK_END)
            return E_FAIL;
        const LONGLONG bases[] = {0, static_cast<LONGLONG>(m_position), static_cast<LONGLONG>(bytes->size())};
        const LONGLONG target = bases[origin] + offset.QuadPart;
        if (target < 0)
            return E_INVALIDARG;
        m_position = static_cast<std::size_t>(target);
        if (position)
            position->QuadPart = m_position;
        return S_OK;
    }
    HRESULT SetSize(ULARGE_INTEGER size) override
    {
        return GlobalReAlloc(m_block, size.QuadPart, GMEM_MOVEABLE) ? S_OK : E_OUTOFMEMORY;
    }

private:
    ~BlockStream() = default;

    HGLOBAL m_block;
    bool m_ownsBlock;
    std::size_t m_position = 0;
    ULONG m_references = 1;
};

}  // namespace
}  // namespace qvui::native

using namespace qvui::native;

HGLOBAL GlobalAlloc(UINT, SIZE_T size)
{
    try {
        return Blocks().Insert(std::make_shared<Block>(size));
    } catch (const std::exception&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
}

HGLOBAL GlobalReAlloc(HGLOBAL block, SIZE_T size, UINT)
{
    Block* bytes = Blocks().Peek(block);
    if (!bytes) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    try {
        bytes->resize(size);
    } catch (const std::exception&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    return block;
}

LPVOID GlobalLock(HGLOBAL block)
{
    Block* bytes = Blocks().Peek(block);
    return bytes ? bytes->data() : nullptr;
}

BOOL GlobalUnlock(HGLOBAL)
{
    return FALSE;
}

SIZE_T GlobalSize(HGLOBAL block)
{
    const Block* bytes = Blocks().Peek(block);
    return bytes ? bytes->size() : 0;
}

HGLOBAL GlobalFree(HGLOBAL block)
{
    return Blocks().Remove(block) ? nullptr : block;
}

HRESULT CreateStreamOnHGlobal(HGLOBAL block, BOOL deleteOnRelease, IStream** stream)
{
    *stream = nullptr;
    if (!block)
        block = GlobalAlloc(GMEM_MOVEABLE, 0);
    if (!Blocks().Peek(block))
        return E_INVALIDARG;
    *stream = new BlockStream(block, deleteOnRelease != FALSE);
    return S_OK;
}

HRESULT CoInitialize(void*)
{
    return S_OK;
}

void CoUninitialize()
{
}

DWORD GetLastError()
{
    return g_lastError;
}

void SetLastError(DWORD error)
{
    g_lastError = error;
}

int MulDiv(int number, int numerator, int denominator)
{
    if (denominator == 0)
        return -1;
    LONGLONG product = static_cast<LONGLONG>(number) * numerator;
    const LONGLONG half = (denominator < 0 ? -static_cast<LONGLONG>(denominator) : denominator) / 2;
    product += product < 0 ? -half : half;
    const LONGLONG result = product / denominator;
    return result < std::numeric_limits<int>::min() || result > std::numeric_limits<int>::max()
               ? -1
               : static_cast<int>(result);
}
