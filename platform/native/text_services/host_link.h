#pragma once

#include "native/text_services/formats.h"

namespace qvui::native {

/// Coordinates may be absurd; those of the result can be added and subtracted.
RECT Saturated(const RECT& rect);

/// The host of text services, whatever it answers: a call that fails or gives nonsense has a harmless result,
/// and none is made once the host has let go of the services.
class HostLink {
public:
    explicit HostLink(ITextHost* host) : m_host(host) {}

    /// No call reaches the host from now on.
    void Cut() { m_host = nullptr; }
    bool IsCut() const { return m_host == nullptr; }
    /// For calls without an answer; null once cut.
    ITextHost* Host() const { return m_host; }

    /// Pixels of the host window's client area; empty when the host has none.
    RECT ClientRect() const;
    /// Pixels.
    RECT ViewInset() const;
    DWORD PropertyBits() const;
    /// WS_VSCROLL, WS_HSCROLL and ES_ bits.
    DWORD ScrollBars() const;
    /// 0 when the host does not say.
    DWORD MaxLength() const;
    char16_t PasswordCharacter() const;
    LONG SelectionBarWidth() const;
    bool IsOpaque() const;
    COLORREF SystemColour(int index) const;
    bool ReadFormat(CharFormat& format) const;
    bool ReadFormat(ParaFormat& format) const;
    void Notify(DWORD code, void* data = nullptr) const;

private:
    ITextHost* m_host;
};

}  // namespace qvui::native
