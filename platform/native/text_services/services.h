#pragma once

#include "native/text_services/editor.h"
#include "native/text_services/host_link.h"
#include "native/text_services/pointer_selection.h"

namespace qvui::native {

/// The text services: an editor shown in its host's client rectangle, driven by messages. What a call changes
/// is told to the host when the outermost call ends: the parts to repaint, scroll bars, the caret and
/// notifications, in this order. A host may release the services at any time, also while it is called.
class TextServices final : public ITextServices {
public:
    explicit TextServices(ITextHost* host);

    HRESULT QueryInterface(REFIID iid, void** object) override;
    ULONG AddRef() override { return ++m_references; }
    ULONG Release() override;

    HRESULT TxSendMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    HRESULT TxDraw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device, HDC dc, HDC target,
                   LPCRECT bounds, LPCRECT metafileBounds, LPRECT update, BOOL(CALLBACK* goOn)(DWORD),
                   DWORD goOnValue, LONG view) override;
    HRESULT TxGetHScroll(LONG* least, LONG* most, LONG* position, LONG* page, BOOL* isEnabled) override;
    HRESULT TxGetVScroll(LONG* least, LONG* most, LONG* position, LONG* page, BOOL* isEnabled) override;
    HRESULT OnTxSetCursor(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device, HDC dc,
                          HDC target, LPCRECT client, INT x, INT y) override;
    HRESULT TxQueryHitPoint(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, HDC, LPCRECT, INT, INT, DWORD*) override
    {
        return E_NOTIMPL;
    }
    HRESULT OnTxInPlaceActivate(LPCRECT client) override;
    HRESULT OnTxInPlaceDeactivate() override;
    HRESULT OnTxUIActivate() override { return E_NOTIMPL; }
    HRESULT OnTxUIDeactivate() override { return E_NOTIMPL; }
    HRESULT TxGetText(BSTR* text) override;
    HRESULT TxSetText(LPCWSTR text) override;
    HRESULT TxGetCurTargetX(LONG*) override { return E_NOTIMPL; }
    HRESULT TxGetBaseLinePos(LONG*) override { return E_NOTIMPL; }
    HRESULT TxGetNaturalSize(DWORD aspect, HDC dc, HDC target, DVTARGETDEVICE* device, DWORD mode,
                             const SIZEL* extent, LONG* width, LONG* height) override;
    HRESULT TxGetDropTarget(IDropTarget**) override { return E_NOTIMPL; }
    HRESULT OnTxPropertyBitsChange(DWORD mask, DWORD bits) override;
    HRESULT TxGetCachedSize(DWORD*, DWORD*) override { return E_NOTIMPL; }

private:
    using Position = Editor::Position;
    class Call;
    struct Handler;
    struct BarState {
        std::int64_t range = -1;  // as told to the host
        std::int64_t position = -1;
        bool isShown = false;
    };
    // What the host has been told of.
    struct Told {
        Selection selection;
        std::int64_t top = 0;
        int left = 0;
        std::int64_t height = 0;
        POINT caret{-1, -1};
        int caretHeight = 0;
        bool isCaretShown = false;
        BarState vertical;
        BarState horizontal;
    };

    // Layout and host
    void ReadProperties(DWORD mask);
    void ReadFormats();
    void Configure();
    RECT TextArea() const;
    bool HasBar(DWORD bar) const { return (m_bars & bar) != 0; }
    void Settle();
    void TellDamage();
    void TellScrollBars();
    void TellBar(int bar, BarState& told, std::int64_t content, int page, std::int64_t position);
    void TellCaret();
    void TellChanges();
    void TellMeasuring();
    bool IsSelectionHidden() const;

    // The view
    std::int64_t MostTop() const;
    int MostLeft();
    void ScrollTo(int left, std::int64_t top);
    void ShowCaretInView();
    POINT ToClient(const TextView::Box& box) const;
    Caret HitClient(POINT client);
    LRESULT Scroll(int bar, WPARAM code);

    // Input
    bool CanEdit() const { return (m_properties & TXTBIT_READONLY) == 0; }
    bool IsPassword() const { return (m_properties & TXTBIT_USEPASSWORD) != 0; }
    int Room() const;
    void Type(std::u16string_view text);
    bool Key(WPARAM key);
    bool ControlKey(WPARAM key);
    void Press(UINT message, WPARAM keys, POINT at);
    void DragTo(POINT at);
    void EndDrag();
    bool OnTimer(WPARAM id);
    void TypeCharacter(char16_t unit);
    LRESULT UndoOrRedo(bool undoes);
    bool NotifyLink(UINT message, WPARAM wParam, LPARAM lParam);

    // Clipboard
    bool Copy();
    void Cut();
    void Paste(UINT format);
    bool CanPaste(UINT format) const;

    // Messages
    static const Handler* FindHandler(UINT message);
    LRESULT SetSelection(LONG first, LONG last);
    LRESULT GetText(WPARAM capacity, LPWSTR buffer);
    LRESULT GetTextEx(const GETTEXTEX& options, void* buffer);
    LRESULT GetTextLengthEx(const GETTEXTLENGTHEX& options);
    LRESULT SetTextEx(const SETTEXTEX& options, const void* text);
    LRESULT GetLine(int line, LPWSTR buffer);
    LRESULT LineIndex(int line);
    LRESULT LineFromChar(LONG position);
    LRESULT LineLength(LONG position);
    LRESULT FindText(DWORD flags, FINDTEXTEXW& find);
    LRESULT PositionFromChar(WPARAM point, LPARAM index);
    LRESULT GetCharFormat(DWORD scope, void* format);
    LRESULT SetCharFormat(DWORD scope, const void* format);
    LRESULT SetTextMode(WPARAM mode);
    LRESULT SetZoom(int numerator, int denominator);

    HostLink m_host;
    ULONG m_references = 1;
    ULONG m_inner = 0;  // calls under way, which hold a reference each
    Editor m_editor;
    PointerSelection m_pointer{m_editor};
    DWORD m_properties = 0;
    DWORD m_bars = 0;
    RECT m_client{};
    RECT m_inset{};
    int m_selectionBar = 0;
    int m_left = 0;  // pixels that the text is scrolled to the left
    Told m_told;
    DWORD m_eventMask = 0;
    int m_limit = 32767;
    int m_seenChanges = 0;
    CHARRANGE m_notifiedRange{};
    std::int64_t m_requestedHeight = -1;
    bool m_isActive = false;
    bool m_hasFocus = false;
    bool m_hidesSelection = false;
    bool m_wantsCaretInView = false;
    bool m_needsRepaint = false;
    bool m_updatesNow = false;  // the host is to repaint at once
    bool m_isSettling = false;
    bool m_isMeasuring = false;
    bool m_isScrollingDrag = false;
    bool m_hitLimit = false;
    POINT m_dragPoint{};
    DWORD m_lastClick = 0;
    POINT m_lastClickAt{};
    int m_clicks = 0;
    int m_zoomNumerator = 0;
    int m_zoomDenominator = 0;
    char16_t m_pendingLead = 0;  // of a pair that comes as two characters
};

/// One call from outside: keeps the services alive while it runs, and settles when it is the outermost one.
class TextServices::Call {
public:
    explicit Call(TextServices& services);
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;
    ~Call();

private:
    TextServices& m_services;
};

}  // namespace qvui::native
