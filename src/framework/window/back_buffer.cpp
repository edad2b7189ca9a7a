#include "framework/window/back_buffer.h"

#include "foundation/rect.h"

namespace DUI {

using wrapping::Height;
using wrapping::Width;

bool BackBuffer::Prepare(const SIZE& size)
{
    const BITMAPINFOHEADER& header = *m_section->GetDibHeader();
    if (!m_section->IsNull() && header.biWidth >= size.cx && header.biHeight >= size.cy)
        return true;
    return m_section->Create(static_cast<DWORD>(size.cx), static_cast<DWORD>(size.cy), 32) != FALSE;
}

BackBuffer::Paint::Paint(BackBuffer& buffer, HDC target, const RECT& client)
    : m_section(buffer.m_section),
      m_target(target)
{
    if (GetClipBox(target, &m_box) == NULLREGION || !IntersectRect(&m_box, &m_box, &client) ||
        !buffer.Prepare({Width(client), Height(client)}))
        return;
    m_memory = CreateCompatibleDC(target);
    m_oldBitmap = SelectObject(m_memory, m_section->GetBitmap());
    // A new context combines the pixels that it leaves out when a picture shrinks, which shows as dark lines.
    SetStretchBltMode(m_memory, COLORONCOLOR);
    // Only what the target will take is copied, painted and copied back. The limit is no clip region: image
    // and rounded frames leave out their centre and their corners where a context has one, and then nothing
    // would paint there.
    IntersectClipRect(m_memory, m_box.left, m_box.top, m_box.right, m_box.bottom);
    SetMetaRgn(m_memory);
    BitBlt(m_memory, m_box.left, m_box.top, Width(m_box), Height(m_box), m_target, m_box.left, m_box.top,
           SRCCOPY);
}

BackBuffer::Paint::~Paint()
{
    if (!m_memory)
        return;
    SelectObject(m_memory, m_oldBitmap);
    DeleteDC(m_memory);
}

void BackBuffer::Paint::CopyToTarget()
{
    BitBlt(m_target, m_box.left, m_box.top, Width(m_box), Height(m_box), m_memory, m_box.left, m_box.top,
           SRCCOPY);
}

}  // namespace DUI
