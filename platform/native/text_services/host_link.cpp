#include "native/text_services/host_link.h"

#include "native/gdi/device_context.h"

namespace qvui::native {
namespace {

constexpr int kHimetricPerInch = 2540;
constexpr int kPixelsPerInch = 96;
constexpr DWORD kAllBits = 0xFFFFFFFF;

LONG PixelsOfHimetric(LONG value)
{
    const std::int64_t scaled = static_cast<std::int64_t>(value) * kPixelsPerInch;
    return static_cast<LONG>((scaled + (scaled < 0 ? -kHimetricPerInch : kHimetricPerInch) / 2) /
                             kHimetricPerInch);
}

}  // namespace

RECT Saturated(const RECT& rect)
{
    return {Saturated(rect.left), Saturated(rect.top), Saturated(rect.right), Saturated(rect.bottom)};
}

RECT HostLink::ClientRect() const
{
    RECT rect{};
    if (!m_host || FAILED(m_host->TxGetClientRect(&rect)) || rect.right < rect.left || rect.bottom < rect.top)
        return {};
    return Saturated(rect);
}

RECT HostLink::ViewInset() const
{
    RECT inset{};
    if (!m_host || FAILED(m_host->TxGetViewInset(&inset)))
        return {};
    return Saturated(RECT{PixelsOfHimetric(inset.left), PixelsOfHimetric(inset.top),
                          PixelsOfHimetric(inset.right), PixelsOfHimetric(inset.bottom)});
}

DWORD HostLink::PropertyBits() const
{
    DWORD bits = 0;
    return m_host && SUCCEEDED(m_host->TxGetPropertyBits(kAllBits, &bits)) ? bits : 0;
}

DWORD HostLink::ScrollBars() const
{
    DWORD bars = 0;
    return m_host && SUCCEEDED(m_host->TxGetScrollBars(&bars)) ? bars : 0;
}

DWORD HostLink::MaxLength() const
{
    DWORD length = 0;
    return m_host && SUCCEEDED(m_host->TxGetMaxLength(&length)) ? length : 0;
}

char16_t HostLink::PasswordCharacter() const
{
    CHAR character = 0;
    if (!m_host || FAILED(m_host->TxGetPasswordChar(&character)) || !character)
        return u'*';
    WCHAR wide = u'*';
    MultiByteToWideChar(CP_ACP, 0, &character, 1, &wide, 1);
    return wide;
}

LONG HostLink::SelectionBarWidth() const
{
    LONG width = 0;
    return m_host && SUCCEEDED(m_host->TxGetSelectionBarWidth(&width)) && width > 0 ? PixelsOfHimetric(width)
                                                                                    : 0;
}

bool HostLink::IsOpaque() const
{
    TXTBACKSTYLE style = TXTBACK_OPAQUE;
    return !m_host || FAILED(m_host->TxGetBackStyle(&style)) || style == TXTBACK_OPAQUE;
}

COLORREF HostLink::SystemColour(int index) const
{
    return m_host ? m_host->TxGetSysColor(index) : GetSysColor(index);
}

bool HostLink::ReadFormat(CharFormat& format) const
{
    const CHARFORMATW* given = nullptr;
    return m_host && SUCCEEDED(m_host->TxGetCharFormat(&given)) && given && format.Apply(given);
}

bool HostLink::ReadFormat(ParaFormat& format) const
{
    const PARAFORMAT* given = nullptr;
    return m_host && SUCCEEDED(m_host->TxGetParaFormat(&given)) && given && format.Apply(given);
}

void HostLink::Notify(DWORD code, void* data) const
{
    if (m_host)
        m_host->TxNotify(code, data);
}

}  // namespace qvui::native
