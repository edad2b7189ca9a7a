#pragma once

#include <memory>

#include <qvui/render/dib_section.h>

namespace DUI {

/// The section that a window is painted into before it is copied to the screen; it only grows.
class BackBuffer {
public:
    class Paint;

private:
    bool Prepare(const SIZE& size);

    std::shared_ptr<CDibSection> m_section = std::make_shared<CDibSection>();
};

/// One painting through the back buffer. It keeps the section, so that the buffer may go meanwhile.
class BackBuffer::Paint {
public:
    /// Takes over what is on `target` now, as far as the target will take what is painted. `client` is the
    /// client area.
    Paint(BackBuffer& buffer, HDC target, const RECT& client);
    Paint(const Paint&) = delete;
    Paint& operator=(const Paint&) = delete;
    ~Paint();

    /// The context to paint into; null when the target takes nothing or there is no memory.
    HDC Context() const { return m_memory; }
    /// Copies what was painted to the target.
    void CopyToTarget();

private:
    std::shared_ptr<CDibSection> m_section;
    HDC m_target;
    RECT m_box{};  // what the target will take
    HDC m_memory = nullptr;
    HGDIOBJ m_oldBitmap = nullptr;
};

}  // namespace DUI
