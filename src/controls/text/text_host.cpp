#include <qvui/controls/text/text_host.h>

#include <algorithm>

#include <qvui/controls/text/rich_edit.h>
#include <qvui/foundation/trace.h>

#include "controls/text/wide_text.h"
#include "foundation/rect.h"
#include "render/dc_scopes.h"

namespace DUI {

using namespace geometry;

namespace {

constexpr int kHimetricPerInch = 2540;
constexpr int kTwipsPerInch = 1440;
constexpr LONG kDefaultLimit = 32767;
constexpr int kBold = 700;
constexpr LONG kTabStop = 720;
constexpr DWORD kCharMask =
    CFM_BOLD | CFM_ITALIC | CFM_UNDERLINE | CFM_SIZE | CFM_COLOR | CFM_FACE | CFM_OFFSET | CFM_CHARSET;
constexpr DWORD kParaMask = PFM_STARTINDENT | PFM_RIGHTINDENT | PFM_OFFSET | PFM_ALIGNMENT | PFM_TABSTOPS |
                            PFM_NUMBERING | PFM_OFFSETINDENT | PFM_RTLPARA;

// The interface's identifier, which import libraries do not all bring.
constexpr IID kTextServices{0x8D33F740, 0xCF58, 0x11CE, {0xA8, 0x9D, 0x00, 0xAA, 0x00, 0x6C, 0xAD, 0xC5}};
constexpr IID kTextHost{0xC5BDD8D0, 0xD26E, 0x11CE, {0xA8, 0x9E, 0x00, 0xAA, 0x00, 0x6C, 0xAD, 0xC5}};

bool IsSame(REFIID one, const IID& other)
{
    return std::equal(reinterpret_cast<const char*>(&one), reinterpret_cast<const char*>(&one) + sizeof one,
                      reinterpret_cast<const char*>(&other));
}

/// The screen's resolution in pixels per inch.
SIZE Resolution()
{
    const HDC dc = GetDC(nullptr);
    const SIZE resolution{GetDeviceCaps(dc, LOGPIXELSX), GetDeviceCaps(dc, LOGPIXELSY)};
    ReleaseDC(nullptr, dc);
    return {std::max<LONG>(resolution.cx, 1), std::max<LONG>(resolution.cy, 1)};
}

// The em height of a font whose description gives that of its cell.
LONG EmHeight(HFONT font)
{
    const HDC dc = GetDC(nullptr);
    TEXTMETRICA metrics{};
    {
        const SelectScope scope(dc, font);
        GetTextMetricsA(dc, &metrics);
    }
    ReleaseDC(nullptr, dc);
    return metrics.tmHeight - metrics.tmInternalLeading;
}

bool Names(INT bar, INT one)
{
    return bar == one || bar == SB_BOTH;
}

}  // namespace

CTxtWinHost::CTxtWinHost() = default;

CTxtWinHost::~CTxtWinHost()
{
    Shutdown();
    m_pOwner = nullptr;
}

BOOL CTxtWinHost::Init(CDUIRichEdit* owner, const CREATESTRUCTA* create)
{
    m_pOwner = owner;
    if (!MakeDefaultCharFormat())
        return FALSE;
    MakeDefaultParaFormat();
    if (create) {
        m_dwStyle |= static_cast<DWORD>(create->style);
        if (!(m_dwStyle & (WS_HSCROLL | ES_AUTOHSCROLL)))
            m_bWordWrap = TRUE;
    }
    const HMODULE module = GetModuleHandleA("Riched20.dll");
    using Create = HRESULT(WINAPI*)(IUnknown*, ITextHost*, IUnknown**);
    const auto make =
        module
            ? reinterpret_cast<Create>(reinterpret_cast<void*>(GetProcAddress(module, "CreateTextServices")))
            : nullptr;
    IUnknown* unknown = nullptr;
    if (!make || FAILED(make(nullptr, this, &unknown)) || !unknown)
        return FALSE;
    void* services = nullptr;
    const HRESULT found = unknown->QueryInterface(kTextServices, &services);
    unknown->Release();
    if (FAILED(found))
        return FALSE;
    m_pServices = static_cast<ITextServices*>(services);
    if (create && create->lpszName)
        m_pServices->TxSetText(wide_text::FromSystem(create->lpszName).c_str());
    m_bInPlaceActive = SUCCEEDED(m_pServices->OnTxInPlaceActivate(nullptr));
    LRESULT result = 0;
    m_pServices->TxSendMessage(EM_SETEVENTMASK, 0, static_cast<LPARAM>(m_dwEventMask), &result);
    // Not all services ask the host for its limit.
    m_pServices->TxSendMessage(EM_EXLIMITTEXT, 0, m_nMaxLength, &result);
    return TRUE;
}

void CTxtWinHost::Shutdown()
{
    ITextServices* const services = m_pServices;
    if (!services)
        return;
    if (SUCCEEDED(services->OnTxInPlaceDeactivate()))
        m_bInPlaceActive = FALSE;
    if (m_pServices == services) {
        m_pServices = nullptr;
        services->Release();
    }
    if (m_bCaptured)
        TxSetCapture(FALSE);
}

BOOL CTxtWinHost::MakeDefaultCharFormat()
{
    const CRefPtr<CTextStyle> style = m_pOwner ? m_pOwner->GetTextStyle() : nullptr;
    if (style.IsNull() || style->GetNormalFont().IsNull() || !style->GetNormalFont()->GetFont())
        return FALSE;
    const HFONT font = style->GetNormalFont()->GetFont();
    LOGFONTA description{};
    GetObjectA(font, sizeof description, &description);
    m_charFormat = {};
    m_charFormat.cbSize = sizeof m_charFormat;
    m_charFormat.dwMask = kCharMask;
    m_charFormat.dwEffects = (description.lfWeight >= kBold ? CFE_BOLD : 0) |
                             (description.lfItalic ? CFE_ITALIC : 0) |
                             (description.lfUnderline ? CFE_UNDERLINE : 0);
    // A positive height is that of the cell, which is more than that of the text.
    const LONG height = description.lfHeight > 0 ? -EmHeight(font) : description.lfHeight;
    m_charFormat.yHeight = -height * kTwipsPerInch / Resolution().cy;
    m_charFormat.crTextColor =
        (m_pOwner->IsEnabled() ? style->GetNormalColor() : style->GetDisableColor()).GetColor();
    m_charFormat.bCharSet = description.lfCharSet;
    m_charFormat.bPitchAndFamily = description.lfPitchAndFamily;
    const wide_text::WideString face = wide_text::FromSystem(description.lfFaceName);
    std::copy_n(face.begin(), std::min<std::size_t>(face.size(), LF_FACESIZE - 1), m_charFormat.szFaceName);
    return TRUE;
}

void CTxtWinHost::MakeDefaultParaFormat()
{
    m_paraFormat = {};
    m_paraFormat.cbSize = sizeof m_paraFormat;
    m_paraFormat.dwMask = kParaMask;
    const CRefPtr<CTextStyle> style = m_pOwner->GetTextStyle();
    const DWORD format = style.IsNull() ? 0 : style->GetTextFormat();
    m_paraFormat.wAlignment = format & DT_CENTER ? PFA_CENTER : format & DT_RIGHT ? PFA_RIGHT : PFA_LEFT;
    m_paraFormat.cTabCount = 1;
    m_paraFormat.rgxTabs[0] = kTabStop;
}

BOOL CTxtWinHost::UpdateDefaultFormat()
{
    if (!MakeDefaultCharFormat())
        return FALSE;
    TellFormat();
    return TRUE;
}

// The services are told in both ways, since not all ask the host again.
void CTxtWinHost::TellFormat()
{
    Tell(TXTBIT_CHARFORMATCHANGE, TRUE);
    LRESULT result = 0;
    if (m_pServices)
        m_pServices->TxSendMessage(EM_SETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&m_charFormat),
                                   &result);
}

void CTxtWinHost::Tell(DWORD bit, BOOL value)
{
    if (m_pServices)
        m_pServices->OnTxPropertyBitsChange(bit, value ? bit : 0);
}

void CTxtWinHost::SetRich(BOOL rich)
{
    m_bRich = rich;
    Tell(TXTBIT_RICHTEXT, rich);
}

void CTxtWinHost::SetReadOnly(BOOL readOnly)
{
    m_dwStyle = readOnly ? m_dwStyle | ES_READONLY : m_dwStyle & ~static_cast<DWORD>(ES_READONLY);
    Tell(TXTBIT_READONLY, readOnly);
}

void CTxtWinHost::SetWordWrap(BOOL wraps)
{
    m_bWordWrap = wraps;
    Tell(TXTBIT_WORDWRAP, wraps);
    // Some services break the lines anew only for another rectangle.
    Tell(TXTBIT_CLIENTRECTCHANGE, TRUE);
}

void CTxtWinHost::SetLimitText(LONG length)
{
    m_nMaxLength = length < 1 ? kDefaultLimit : length;
    Tell(TXTBIT_MAXLENGTHCHANGE, TRUE);
    LRESULT result = 0;
    if (m_pServices)
        m_pServices->TxSendMessage(EM_EXLIMITTEXT, 0, m_nMaxLength, &result);
}

void CTxtWinHost::SetClientRect(const RECT& rect)
{
    m_rcClient = rect;
    const SIZE resolution = Resolution();
    m_szExtent = {MulDiv(Narrow(Width(rect)), kHimetricPerInch, resolution.cx),
                  MulDiv(Narrow(Height(rect)), kHimetricPerInch, resolution.cy)};
    Tell(TXTBIT_CLIENTRECTCHANGE, TRUE);
}

void CTxtWinHost::SetViewInset(const RECT& inset)
{
    m_rcInset = inset;
    const SIZE resolution = Resolution();
    m_rcInsetHimetric = {MulDiv(inset.left, kHimetricPerInch, resolution.cx),
                         MulDiv(inset.top, kHimetricPerInch, resolution.cy),
                         MulDiv(inset.right, kHimetricPerInch, resolution.cx),
                         MulDiv(inset.bottom, kHimetricPerInch, resolution.cy)};
    Tell(TXTBIT_VIEWINSETCHANGE, TRUE);
}

void CTxtWinHost::SetColor(COLORREF color)
{
    m_charFormat.cbSize = sizeof m_charFormat;
    m_charFormat.dwMask |= CFM_COLOR;
    m_charFormat.dwEffects &= ~static_cast<DWORD>(CFE_AUTOCOLOR);
    m_charFormat.crTextColor = color;
    TellFormat();
}

void CTxtWinHost::SetDisabledLook(BOOL disabled)
{
    m_charFormat.cbSize = sizeof m_charFormat;
    m_charFormat.dwMask |= CFM_COLOR | CFM_DISABLED;
    m_charFormat.dwEffects |= CFE_AUTOCOLOR | CFE_DISABLED;
    if (!disabled)
        m_charFormat.dwEffects &= ~static_cast<DWORD>(CFE_DISABLED);
    // The style's colours show which it is; the automatic one is that of the system.
    const CRefPtr<CTextStyle> style = m_pOwner ? m_pOwner->GetTextStyle() : nullptr;
    if (!style.IsNull()) {
        m_charFormat.dwEffects &= ~static_cast<DWORD>(CFE_AUTOCOLOR);
        m_charFormat.crTextColor = (disabled ? style->GetDisableColor() : style->GetNormalColor()).GetColor();
    }
    TellFormat();
}

void CTxtWinHost::SetTransparent(BOOL transparent)
{
    m_bTransparent = transparent;
    Tell(TXTBIT_BACKSTYLECHANGE, TRUE);
}

HWND CTxtWinHost::HostWindow() const
{
    return m_pOwner ? m_pOwner->GetManagerWnd(FALSE) : nullptr;
}

HRESULT CTxtWinHost::QueryInterface(REFIID iid, void** object)
{
    if (!object)
        return E_POINTER;
    *object = IsSame(iid, IID_IUnknown) || IsSame(iid, kTextHost) ? this : nullptr;
    return *object ? S_OK : E_NOINTERFACE;
}

HDC CTxtWinHost::TxGetDC()
{
    const HWND window = HostWindow();
    return window ? GetDC(window) : nullptr;
}

INT CTxtWinHost::TxReleaseDC(HDC hdc)
{
    const HWND window = HostWindow();
    return window && hdc ? ReleaseDC(window, hdc) : 0;
}

BOOL CTxtWinHost::TxShowScrollBar(INT bar, BOOL show)
{
    if (!m_pOwner || !m_pOwner->GetVerticalSB() || !m_pOwner->GetHorizontalSB())
        return FALSE;
    const auto set = [show](IDUIControl* control) {
        show ? control->ModifyStyle(0, DUISTYLE_VISIBLE) : control->ModifyStyle(DUISTYLE_VISIBLE, 0);
    };
    if (Names(bar, SB_VERT))
        set(m_pOwner->GetVerticalSB());
    if (Names(bar, SB_HORZ))
        set(m_pOwner->GetHorizontalSB());
    // The text has more or less room from now on.
    m_pOwner->SetControlRect(m_pOwner->GetControlRect());
    return TRUE;
}

BOOL CTxtWinHost::TxEnableScrollBar(INT bars, INT arrows)
{
    if (!m_pOwner || !m_pOwner->GetVerticalSB() || !m_pOwner->GetHorizontalSB())
        return FALSE;
    const auto set = [arrows](IDUIControl* control) {
        arrows ? control->ModifyStatus(0, DUISTATUS_DISABLED) : control->ModifyStatus(DUISTATUS_DISABLED, 0);
    };
    if (Names(bars, SB_VERT))
        set(m_pOwner->GetVerticalSB());
    if (Names(bars, SB_HORZ))
        set(m_pOwner->GetHorizontalSB());
    return TRUE;
}

BOOL CTxtWinHost::TxSetScrollRange(INT bar, LONG least, INT most, BOOL)
{
    CDUIScrollBarBase* const control = m_pOwner ? m_pOwner->ScrollBarOf(bar != SB_HORZ) : nullptr;
    if (!control)
        return FALSE;
    const LONG page = Narrow(bar != SB_HORZ ? Height(m_rcClient) : Width(m_rcClient));
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE;
    info.nMin = least;
    info.nPage = static_cast<UINT>(page);
    info.nMax = Narrow(Wide(most) - page);
    control->SetScrollBarInfo(&info);
    return TRUE;
}

BOOL CTxtWinHost::TxSetScrollPos(INT bar, INT position, BOOL)
{
    CDUIScrollBarBase* const control = m_pOwner ? m_pOwner->ScrollBarOf(bar != SB_HORZ) : nullptr;
    if (!control)
        return FALSE;
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    control->GetScrollBarInfo(&info);
    info.fMask = SIF_POS | SIF_TRACKPOS;
    info.nPos = position;
    control->SetScrollBarInfo(&info);
    return TRUE;
}

void CTxtWinHost::TxInvalidateRect(LPCRECT rect, BOOL)
{
    if (!m_pOwner)
        return;
    RECT area = rect ? *rect : m_rcClient;
    m_pOwner->UpdateLayout(FALSE, &area);
}

void CTxtWinHost::TxViewChange(BOOL update)
{
    if (!m_pOwner || !m_pOwner->WantsViewChange())
        return;
    if (update)
        if (const HWND window = HostWindow())
            UpdateWindow(window);
}

BOOL CTxtWinHost::TxCreateCaret(HBITMAP bitmap, INT width, INT height)
{
    const HWND window = HostWindow();
    return window ? CreateCaret(window, bitmap, width, height) : FALSE;
}

BOOL CTxtWinHost::TxShowCaret(BOOL show)
{
    const HWND window = HostWindow();
    if (!window)
        return FALSE;
    return show ? ShowCaret(window) : HideCaret(window);
}

BOOL CTxtWinHost::TxSetCaretPos(INT x, INT y)
{
    return HostWindow() ? SetCaretPos(x, y) : FALSE;
}

BOOL CTxtWinHost::TxSetTimer(UINT id, UINT milliseconds)
{
    m_bTimer = m_pOwner ? m_pOwner->SetTimer(id, milliseconds) : FALSE;
    return m_bTimer;
}

void CTxtWinHost::TxKillTimer(UINT id)
{
    if (m_pOwner)
        m_pOwner->KillTimer(id);
    m_bTimer = FALSE;
}

void CTxtWinHost::TxScrollWindowEx(INT, INT, LPCRECT, LPCRECT, HRGN, LPRECT, UINT)
{
    CTrace::TraceInfo("CTxtWinHost::TxScrollWindowEx");
    if (m_pOwner)
        m_pOwner->UpdateLayout(FALSE, &m_rcClient);
}

void CTxtWinHost::TxSetCapture(BOOL capture)
{
    m_bCaptured = capture;
    const HWND window = HostWindow();
    if (!capture)
        ReleaseCapture();
    else if (window)
        ::SetCapture(window);
}

void CTxtWinHost::TxSetFocus()
{
    if (m_pOwner)
        m_pOwner->SetFocus(TRUE);
}

void CTxtWinHost::TxSetCursor(HCURSOR cursor, BOOL)
{
    ::SetCursor(cursor);
}

BOOL CTxtWinHost::TxScreenToClient(LPPOINT point)
{
    const HWND window = HostWindow();
    return window ? ScreenToClient(window, point) : FALSE;
}

BOOL CTxtWinHost::TxClientToScreen(LPPOINT point)
{
    const HWND window = HostWindow();
    return window ? ClientToScreen(window, point) : FALSE;
}

HRESULT CTxtWinHost::TxActivate(LONG*)
{
    return S_OK;
}

HRESULT CTxtWinHost::TxDeactivate(LONG)
{
    return S_OK;
}

HRESULT CTxtWinHost::TxGetClientRect(LPRECT rect)
{
    *rect = m_rcClient;
    return S_OK;
}

HRESULT CTxtWinHost::TxGetViewInset(LPRECT inset)
{
    *inset = m_rcInsetHimetric;
    return S_OK;
}

HRESULT CTxtWinHost::TxGetCharFormat(const CHARFORMATW** format)
{
    *format = reinterpret_cast<const CHARFORMATW*>(&m_charFormat);
    return S_OK;
}

HRESULT CTxtWinHost::TxGetParaFormat(const PARAFORMAT** format)
{
    *format = reinterpret_cast<const PARAFORMAT*>(&m_paraFormat);
    return S_OK;
}

COLORREF CTxtWinHost::TxGetSysColor(int index)
{
    return GetSysColor(index);
}

HRESULT CTxtWinHost::TxGetBackStyle(TXTBACKSTYLE* style)
{
    *style = m_bTransparent ? TXTBACK_TRANSPARENT : TXTBACK_OPAQUE;
    return S_OK;
}

HRESULT CTxtWinHost::TxGetMaxLength(DWORD* length)
{
    *length = static_cast<DWORD>(m_nMaxLength);
    return S_OK;
}

HRESULT CTxtWinHost::TxGetScrollBars(DWORD* bars)
{
    *bars = m_dwStyle & (WS_VSCROLL | WS_HSCROLL | ES_AUTOVSCROLL | ES_AUTOHSCROLL | ES_DISABLENOSCROLL);
    return S_OK;
}

HRESULT CTxtWinHost::TxGetPasswordChar(CHAR* character)
{
    *character = m_chPassword;
    return S_OK;
}

HRESULT CTxtWinHost::TxGetAcceleratorPos(LONG* position)
{
    *position = m_nAccelerator;
    return S_OK;
}

HRESULT CTxtWinHost::TxGetExtent(SIZEL* extent)
{
    *extent = m_szExtent;
    return S_OK;
}

HRESULT CTxtWinHost::OnTxCharFormatChange(const CHARFORMATW*)
{
    return S_OK;
}

HRESULT CTxtWinHost::OnTxParaFormatChange(const PARAFORMAT*)
{
    return S_OK;
}

HRESULT CTxtWinHost::TxGetPropertyBits(DWORD mask, DWORD* bits)
{
    const auto when = [](bool isSet, DWORD bit) { return isSet ? bit : 0; };
    const DWORD all = when(m_bRich, TXTBIT_RICHTEXT) | when(m_dwStyle & ES_MULTILINE, TXTBIT_MULTILINE) |
                      when(m_dwStyle & ES_READONLY, TXTBIT_READONLY) |
                      when(m_dwStyle & ES_PASSWORD, TXTBIT_USEPASSWORD) |
                      when(!(m_dwStyle & ES_NOHIDESEL), TXTBIT_HIDESELECTION) |
                      when(m_bAutoWordSelect, TXTBIT_AUTOWORDSEL) | when(m_bWordWrap, TXTBIT_WORDWRAP) |
                      when(m_bAllowBeep, TXTBIT_ALLOWBEEP) | when(m_bSaveSelection, TXTBIT_SAVESELECTION);
    *bits = all & mask;
    return S_OK;
}

HRESULT CTxtWinHost::TxNotify(DWORD code, void* data)
{
    if (m_pOwner)
        m_pOwner->OnTxNotify(code, data);
    return S_OK;
}

HIMC CTxtWinHost::TxImmGetContext()
{
    const HWND window = HostWindow();
    return window ? ImmGetContext(window) : nullptr;
}

void CTxtWinHost::TxImmReleaseContext(HIMC context)
{
    if (const HWND window = HostWindow())
        ImmReleaseContext(window, context);
}

HRESULT CTxtWinHost::TxGetSelectionBarWidth(LONG* width)
{
    *width = m_nSelBarWidth;
    return S_OK;
}

}  // namespace DUI
