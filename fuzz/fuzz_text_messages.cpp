// Messages to text services whose host fails every call, against a string: each step takes four bytes, an
// operation and three arguments.

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include <qvui/platform/native/text_services.h>

namespace {

class FailingHost final : public ITextHost {
public:
    HRESULT QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG AddRef() override { return 1; }
    ULONG Release() override { return 1; }
    HDC TxGetDC() override { return nullptr; }
    INT TxReleaseDC(HDC) override { return 0; }
    BOOL TxShowScrollBar(INT, BOOL) override { return FALSE; }
    BOOL TxEnableScrollBar(INT, INT) override { return FALSE; }
    BOOL TxSetScrollRange(INT, LONG, INT, BOOL) override { return FALSE; }
    BOOL TxSetScrollPos(INT, INT, BOOL) override { return FALSE; }
    void TxInvalidateRect(LPCRECT, BOOL) override {}
    void TxViewChange(BOOL) override {}
    BOOL TxCreateCaret(HBITMAP, INT, INT) override { return FALSE; }
    BOOL TxShowCaret(BOOL) override { return FALSE; }
    BOOL TxSetCaretPos(INT, INT) override { return FALSE; }
    BOOL TxSetTimer(UINT, UINT) override { return FALSE; }
    void TxKillTimer(UINT) override {}
    void TxScrollWindowEx(INT, INT, LPCRECT, LPCRECT, HRGN, LPRECT, UINT) override {}
    void TxSetCapture(BOOL) override {}
    void TxSetFocus() override {}
    void TxSetCursor(HCURSOR, BOOL) override {}
    BOOL TxScreenToClient(LPPOINT) override { return FALSE; }
    BOOL TxClientToScreen(LPPOINT) override { return FALSE; }
    HRESULT TxActivate(LONG*) override { return E_FAIL; }
    HRESULT TxDeactivate(LONG) override { return E_FAIL; }
    HRESULT TxGetClientRect(LPRECT) override { return E_FAIL; }
    HRESULT TxGetViewInset(LPRECT) override { return E_FAIL; }
    HRESULT TxGetCharFormat(const CHARFORMATW**) override { return E_FAIL; }
    HRESULT TxGetParaFormat(const PARAFORMAT**) override { return E_FAIL; }
    COLORREF TxGetSysColor(int) override { return 0; }
    HRESULT TxGetBackStyle(TXTBACKSTYLE*) override { return E_FAIL; }
    HRESULT TxGetMaxLength(DWORD*) override { return E_FAIL; }
    HRESULT TxGetScrollBars(DWORD*) override { return E_FAIL; }
    HRESULT TxGetPasswordChar(CHAR*) override { return E_FAIL; }
    HRESULT TxGetAcceleratorPos(LONG*) override { return E_FAIL; }
    HRESULT TxGetExtent(SIZEL*) override { return E_FAIL; }
    HRESULT OnTxCharFormatChange(const CHARFORMATW*) override { return E_FAIL; }
    HRESULT OnTxParaFormatChange(const PARAFORMAT*) override { return E_FAIL; }
    HRESULT TxGetPropertyBits(DWORD mask, DWORD* bits) override
    {
        *bits = mask & (TXTBIT_RICHTEXT | TXTBIT_MULTILINE);
        return S_OK;
    }
    HRESULT TxNotify(DWORD, void*) override { return E_FAIL; }
    HIMC TxImmGetContext() override { return nullptr; }
    void TxImmReleaseContext(HIMC) override {}
    HRESULT TxGetSelectionBarWidth(LONG*) override { return E_FAIL; }
};

class Run {
public:
    Run()
    {
        IUnknown* unknown = nullptr;
        CreateTextServices(nullptr, &m_host, &unknown);
        void* services = nullptr;
        unknown->QueryInterface(IID_ITextServices, &services);
        unknown->Release();
        m_services = static_cast<ITextServices*>(services);
    }
    ~Run() { m_services->Release(); }

    void Step(const std::uint8_t* bytes)
    {
        const LONG a = static_cast<std::int8_t>(bytes[1]);
        const LONG b = static_cast<std::int8_t>(bytes[2]);
        switch (bytes[0] % 8) {
            case 0: {
                const CHARRANGE range{std::max(a, 0), std::max(b, 0)};
                Send(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
                Select(range.cpMin, range.cpMax);
                break;
            }
            case 1: {
                const char16_t text[] = {static_cast<char16_t>('a' + bytes[1] % 26),
                                         bytes[2] % 4 ? u'x' : u'\r', 0};
                Send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text));
                Insert(text);
                break;
            }
            case 2: {
                const auto unit = static_cast<char16_t>(' ' + bytes[1] % 90);
                Send(WM_CHAR, unit, 1);
                Insert(std::u16string(1, unit));
                break;
            }
            case 3:
                Send(WM_KEYDOWN, VK_RETURN, 1);
                Insert(u"\r");
                break;
            case 4:
                // Any message with any numbers in place of pointers is out of bounds; these take numbers.
                for (const UINT message : {EM_LINEINDEX, EM_LINELENGTH, EM_LINEFROMCHAR, EM_SETUNDOLIMIT})
                    Send(message, static_cast<WPARAM>(static_cast<LRESULT>(a) * 100000000 + b), b);
                break;
            case 5:
                Send(WM_VSCROLL, bytes[1], 0);
                Send(WM_MOUSEWHEEL, static_cast<WPARAM>(bytes[2]) << 16, 0);
                Send(WM_LBUTTONDOWN, 0, MAKELPARAM(a, b));
                Send(WM_LBUTTONUP, 0, 0);
                ReadSelection();
                break;
            case 6:
                Send(WM_KEYDOWN, bytes[1] % 2 ? VK_BACK : VK_DELETE, 1);
                ReadText();
                ReadSelection();
                break;
            default:
                Send(bytes[1] % 2 ? EM_UNDO : EM_REDO, 0, 0);
                ReadText();
                ReadSelection();
                break;
        }
        const std::u16string before = m_text;
        const LONG first = m_first;
        ReadText();
        ReadSelection();
        if (m_text != before || m_first != first || m_last > static_cast<LONG>(m_text.size()) + 1)
            std::abort();
    }

private:
    LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam)
    {
        LRESULT result = 0;
        m_services->TxSendMessage(message, wParam, lParam, &result);
        return result;
    }
    void Select(LONG first, LONG last)
    {
        const LONG end = static_cast<LONG>(m_text.size()) + 1;
        m_first = std::min(std::min(first, last), end);
        m_last = std::min(std::max(first, last), end);
        if (m_first == m_last)
            m_first = m_last = std::min(m_first, end - 1);
    }
    void Insert(const std::u16string& text)
    {
        const auto last = std::min(static_cast<std::size_t>(m_last), m_text.size());
        const auto first = std::min(static_cast<std::size_t>(m_first), last);
        m_text.replace(first, last - first, text);
        m_first = m_last = static_cast<LONG>(first + text.size());
    }
    void ReadText()
    {
        BSTR text = nullptr;
        m_services->TxGetText(&text);
        m_text = text ? std::u16string(text, SysStringLen(text)) : std::u16string();
        SysFreeString(text);
    }
    void ReadSelection()
    {
        CHARRANGE range{};
        Send(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
        m_first = range.cpMin;
        m_last = range.cpMax;
    }

    FailingHost m_host;
    ITextServices* m_services = nullptr;
    std::u16string m_text;
    LONG m_first = 0;
    LONG m_last = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Run run;
    for (std::size_t at = 0; at + 4 <= std::min<std::size_t>(size, 4000); at += 4)
        run.Step(data + at);
    return 0;
}
