#pragma once

#include <string>
#include <vector>

#include <qvui/platform/text_services.h>

namespace qvui::test {

/// A host without a window: answers from its fields and notes what it is told.
class TextHost final : public ITextHost {
public:
    DWORD properties = TXTBIT_RICHTEXT | TXTBIT_MULTILINE | TXTBIT_WORDWRAP;
    DWORD bars = WS_VSCROLL | WS_HSCROLL | ES_AUTOVSCROLL | ES_AUTOHSCROLL;
    RECT client{0, 0, 400, 200};
    CHARFORMAT2W character{};
    PARAFORMAT2 paragraph{};
    std::vector<std::string> notes;

    TextHost();

    HRESULT QueryInterface(REFIID iid, void** object) override;
    ULONG AddRef() override { return 1; }
    ULONG Release() override { return 1; }
    HDC TxGetDC() override { return GetDC(nullptr); }
    INT TxReleaseDC(HDC dc) override { return ReleaseDC(nullptr, dc); }
    BOOL TxShowScrollBar(INT bar, BOOL show) override;
    BOOL TxEnableScrollBar(INT, INT) override { return TRUE; }
    BOOL TxSetScrollRange(INT bar, LONG least, INT most, BOOL) override;
    BOOL TxSetScrollPos(INT, INT, BOOL) override { return TRUE; }
    void TxInvalidateRect(LPCRECT, BOOL) override {}
    void TxViewChange(BOOL) override {}
    BOOL TxCreateCaret(HBITMAP, INT, INT) override { return TRUE; }
    BOOL TxShowCaret(BOOL) override { return TRUE; }
    BOOL TxSetCaretPos(INT x, INT y) override;
    BOOL TxSetTimer(UINT, UINT) override { return TRUE; }
    void TxKillTimer(UINT) override {}
    void TxScrollWindowEx(INT, INT, LPCRECT, LPCRECT, HRGN, LPRECT, UINT) override {}
    void TxSetCapture(BOOL) override {}
    void TxSetFocus() override {}
    void TxSetCursor(HCURSOR, BOOL) override {}
    BOOL TxScreenToClient(LPPOINT) override { return TRUE; }
    BOOL TxClientToScreen(LPPOINT) override { return TRUE; }
    HRESULT TxActivate(LONG*) override { return S_OK; }
    HRESULT TxDeactivate(LONG) override { return S_OK; }
    HRESULT TxGetClientRect(LPRECT rect) override;
    HRESULT TxGetViewInset(LPRECT inset) override;
    HRESULT TxGetCharFormat(const CHARFORMATW** format) override;
    HRESULT TxGetParaFormat(const PARAFORMAT** format) override;
    COLORREF TxGetSysColor(int index) override { return GetSysColor(index); }
    HRESULT TxGetBackStyle(TXTBACKSTYLE* style) override;
    HRESULT TxGetMaxLength(DWORD*) override { return E_NOTIMPL; }
    HRESULT TxGetScrollBars(DWORD* given) override;
    HRESULT TxGetPasswordChar(CHAR* given) override;
    HRESULT TxGetAcceleratorPos(LONG*) override { return E_NOTIMPL; }
    HRESULT TxGetExtent(SIZEL*) override { return E_NOTIMPL; }
    HRESULT OnTxCharFormatChange(const CHARFORMATW*) override { return S_OK; }
    HRESULT OnTxParaFormatChange(const PARAFORMAT*) override { return S_OK; }
    HRESULT TxGetPropertyBits(DWORD mask, DWORD* bits) override;
    HRESULT TxNotify(DWORD code, void* data) override;
    HIMC TxImmGetContext() override { return nullptr; }
    void TxImmReleaseContext(HIMC) override {}
    HRESULT TxGetSelectionBarWidth(LONG* width) override;
};

}  // namespace qvui::test
