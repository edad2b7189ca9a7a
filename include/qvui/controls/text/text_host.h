#pragma once

#include <qvui/platform/cstring.h>
#include <qvui/platform/text_services.h>

namespace DUI {

class CDUIRichEdit;
class IDUIControlMgr;

/// The host of a rich edit's text services: it answers for the control what the services ask, and hands on
/// what they want shown. Not counted: it lives and dies with its control.
class QVUI_API CTxtWinHost : public ITextHost {
public:
    CTxtWinHost();
    CTxtWinHost(const CTxtWinHost&) = delete;
    CTxtWinHost& operator=(const CTxtWinHost&) = delete;

    // IUnknown, ITextHost
    HRESULT WINAPI QueryInterface(REFIID iid, void** object) override;
    ULONG WINAPI AddRef() override { return 1; }
    ULONG WINAPI Release() override { return 1; }
    HDC TxGetDC() override;
    INT TxReleaseDC(HDC hdc) override;
    BOOL TxShowScrollBar(INT bar, BOOL show) override;
    BOOL TxEnableScrollBar(INT bars, INT arrows) override;
    BOOL TxSetScrollRange(INT bar, LONG least, INT most, BOOL redraw) override;
    BOOL TxSetScrollPos(INT bar, INT position, BOOL redraw) override;
    void TxInvalidateRect(LPCRECT rect, BOOL mode) override;
    void TxViewChange(BOOL update) override;
    BOOL TxCreateCaret(HBITMAP bitmap, INT width, INT height) override;
    BOOL TxShowCaret(BOOL show) override;
    BOOL TxSetCaretPos(INT x, INT y) override;
    BOOL TxSetTimer(UINT id, UINT milliseconds) override;
    void TxKillTimer(UINT id) override;
    /// Scrolls nothing: the control repaints instead.
    void TxScrollWindowEx(INT dx, INT dy, LPCRECT scroll, LPCRECT clip, HRGN updateRegion, LPRECT update,
                          UINT flags) override;
    void TxSetCapture(BOOL capture) override;
    void TxSetFocus() override;
    void TxSetCursor(HCURSOR cursor, BOOL isText) override;
    BOOL TxScreenToClient(LPPOINT point) override;
    BOOL TxClientToScreen(LPPOINT point) override;
    HRESULT TxActivate(LONG* oldState) override;
    HRESULT TxDeactivate(LONG newState) override;
    HRESULT TxGetClientRect(LPRECT rect) override;
    HRESULT TxGetViewInset(LPRECT inset) override;
    HRESULT TxGetCharFormat(const CHARFORMATW** format) override;
    HRESULT TxGetParaFormat(const PARAFORMAT** format) override;
    COLORREF TxGetSysColor(int index) override;
    HRESULT TxGetBackStyle(TXTBACKSTYLE* style) override;
    HRESULT TxGetMaxLength(DWORD* length) override;
    HRESULT TxGetScrollBars(DWORD* bars) override;
    HRESULT TxGetPasswordChar(CHAR* character) override;
    HRESULT TxGetAcceleratorPos(LONG* position) override;
    HRESULT TxGetExtent(SIZEL* extent) override;
    HRESULT OnTxCharFormatChange(const CHARFORMATW* format) override;
    HRESULT OnTxParaFormatChange(const PARAFORMAT* format) override;
    HRESULT TxGetPropertyBits(DWORD mask, DWORD* bits) override;
    HRESULT TxNotify(DWORD code, void* data) override;
    HIMC TxImmGetContext() override;
    void TxImmReleaseContext(HIMC context) override;
    HRESULT TxGetSelectionBarWidth(LONG* width) override;

    virtual ~CTxtWinHost();

    /// Makes the text services for the control. `create` may be null; of it the style and the name count,
    /// which becomes the text. FALSE, and no services, without the platform's rich edit module or without a
    /// font.
    BOOL Init(CDUIRichEdit* owner, const CREATESTRUCTA* create);
    /// Lets go of the services; the settings stay.
    void Shutdown();
    /// Null before Init and after Shutdown. Borrowed.
    ITextServices* GetTextServices() const { return m_pServices; }

    BOOL IsRich() const { return m_bRich; }
    void SetRich(BOOL rich);
    BOOL IsReadOnly() const { return (m_dwStyle & ES_READONLY) != 0; }
    void SetReadOnly(BOOL readOnly);
    BOOL GetWordWrap() const { return m_bWordWrap; }
    void SetWordWrap(BOOL wraps);
    /// Characters; below 1 means 32767.
    LONG GetLimitText() const { return m_nMaxLength; }
    void SetLimitText(LONG length);
    DWORD GetEventMask() const { return m_dwEventMask; }
    void SetEventMask(DWORD mask) { m_dwEventMask = mask; }
    /// Window client coordinates: where the text is laid out.
    RECT GetClientRect() const { return m_rcClient; }
    void SetClientRect(const RECT& rect);
    /// Pixels between the client rectangle and the text.
    RECT GetViewInset() const { return m_rcInset; }
    void SetViewInset(const RECT& inset);
    void SetColor(COLORREF color);
    void SetDisabledLook(BOOL disabled);
    void SetTransparent(BOOL transparent);
    BOOL HasCapture() const { return m_bCaptured; }
    BOOL IsInPlaceActive() const { return m_bInPlaceActive; }
    /// Takes the control's text style over into the default format and tells the services; FALSE without a
    /// font.
    BOOL UpdateDefaultFormat();

private:
    HWND HostWindow() const;
    BOOL MakeDefaultCharFormat();
    void MakeDefaultParaFormat();
    void TellFormat();
    void Tell(DWORD bit, BOOL value);

    CDUIRichEdit* m_pOwner = nullptr;  // not counted
    ITextServices* m_pServices = nullptr;
    DWORD m_dwStyle = 0;
    BOOL m_bAutoWordSelect = FALSE;
    BOOL m_bWordWrap = FALSE;
    BOOL m_bAllowBeep = TRUE;
    BOOL m_bRich = FALSE;
    BOOL m_bSaveSelection = FALSE;
    BOOL m_bInPlaceActive = FALSE;
    BOOL m_bTransparent = FALSE;
    BOOL m_bTimer = FALSE;
    BOOL m_bCaptured = FALSE;
    LONG m_nSelBarWidth = 0;
    LONG m_nMaxLength = 32767;
    DWORD m_dwEventMask = 0;
    RECT m_rcClient{0, 0, 0, 0};
    SIZEL m_szExtent{0, 0};
    CHARFORMAT2W m_charFormat{};
    PARAFORMAT2 m_paraFormat{};
    LONG m_nAccelerator = -1;
    char m_chPassword = '*';
    RECT m_rcInset{0, 0, 0, 0};
    RECT m_rcInsetHimetric{0, 0, 0, 0};
};

}  // namespace DUI
