#pragma once

#include <memory>

#include <qvui/controls/scrolling/scroll_bar.h>
#include <qvui/controls/text/text_host.h>
#include <qvui/framework/message_loop.h>
#include <qvui/platform/text_services.h>

namespace DUI {

/// What applications do with a rich edit's text. Positions count UTF-16 units; text in CString is in the
/// system code page. Without text services (before the control is attached, or without the platform's rich
/// edit module) operations do nothing and answer 0, FALSE or empty.
class QVUI_API IDUIRichEdit : public CDUIControlBase {
public:
    /// Pixels between the content and the text.
    virtual BOOL GetViewInset(RECT& inset) = 0;
    virtual BOOL SetViewInset(const RECT& inset) = 0;
    virtual BOOL IsRich() = 0;
    virtual void SetRich(BOOL rich) = 0;
    virtual BOOL IsReadOnly() = 0;
    virtual void SetReadOnly(BOOL readOnly) = 0;
    virtual BOOL GetWordWrap() = 0;
    virtual void SetWordWrap(BOOL wraps) = 0;
    /// ES_ and WS_ bits, which count when the control is attached.
    virtual DWORD GetEditStyle() = 0;
    virtual void SetEditStyle(DWORD style) = 0;
    /// Characters; a limit below 1 is 32767.
    virtual int GetLimitText() = 0;
    virtual void SetLimitText(int length) = 0;
    /// GTL_ flags.
    virtual int GetTextLength(DWORD flags) = 0;
    virtual BOOL GetModify() = 0;
    virtual void SetModify(BOOL modified) = 0;
    virtual void GetSel(int& first, int& last) = 0;
    virtual void GetSel(CHARRANGE& range) = 0;
    /// -1 as the end is the end of the text. The end of the new selection.
    virtual int SetSel(int first, int last) = 0;
    virtual int SetSel(const CHARRANGE& range) = 0;
    virtual void ReplaceSel(const CString& text, BOOL canUndo) = 0;
    virtual CString GetSelText() = 0;
    virtual int SetSelAll() = 0;
    virtual int SetSelNone() = 0;
    virtual BOOL GetZoom(int& numerator, int& denominator) = 0;
    virtual BOOL SetZoom(int numerator, int denominator) = 0;
    virtual BOOL SetZoomOff() = 0;
    virtual WORD GetSelectionType() = 0;
    virtual BOOL GetAutoURLDetect() = 0;
    virtual BOOL SetAutoURLDetect(BOOL detects) = 0;
    /// ENM_ bits.
    virtual DWORD GetEventMask() = 0;
    virtual DWORD SetEventMask(DWORD mask) = 0;
    virtual CString GetTextRange(long first, long last) = 0;
    virtual void HideSelection(BOOL hides) = 0;
    virtual void ScrollCaret() = 0;
    /// The position of the insertion; -1, and nothing changes, for a null text.
    virtual int InsertText(int position, const char* text, BOOL canUndo) = 0;
    virtual int AppendText(const char* text, BOOL canUndo) = 0;
    /// The mask of the properties that are given.
    virtual DWORD GetDefaultCharFormat(CHARFORMAT2A& format) = 0;
    virtual BOOL SetDefaultCharFormat(CHARFORMAT2A& format) = 0;
    virtual DWORD GetSelectionCharFormat(CHARFORMAT2A& format) = 0;
    virtual BOOL SetSelectionCharFormat(CHARFORMAT2A& format) = 0;
    virtual BOOL SetWordCharFormat(CHARFORMAT2A& format) = 0;
    virtual DWORD GetParaFormat(PARAFORMAT2& format) = 0;
    virtual BOOL SetParaFormat(PARAFORMAT2& format) = 0;
    virtual BOOL CanUndo() = 0;
    virtual BOOL CanRedo() = 0;
    virtual BOOL CanPaste() = 0;
    virtual BOOL Redo() = 0;
    virtual BOOL Undo() = 0;
    virtual void Clear() = 0;
    virtual void Copy() = 0;
    virtual void Cut() = 0;
    virtual void Paste() = 0;
    virtual void SetEnableContextMenu(BOOL enables) = 0;
    virtual BOOL GetEnableContextMenu() = 0;
    virtual int GetLineCount() = 0;
    virtual CString GetLine(int line, int maxLength) = 0;
    virtual int LineIndex(int line) = 0;
    virtual int LineLength(int position) = 0;
    virtual void LineScroll(int lines, int characters) = 0;
    virtual int LineFromChar(int position) = 0;
    /// Window client coordinates.
    virtual POINT PosFromChar(int position) = 0;
    virtual int CharFromPos(POINT point) = 0;
    virtual int GetFirstVisibleLine() = 0;
    virtual void EmptyUndoBuffer() = 0;
    virtual UINT SetUndoLimit(UINT steps) = 0;
    /// SF_ and SFF_ flags; the stream's dwError says how it went.
    virtual long StreamIn(int format, EDITSTREAM& stream) = 0;
    virtual long StreamOut(int format, EDITSTREAM& stream) = 0;
    /// Null: nothing can be dropped.
    virtual IDropTarget* GetTxDropTarget() = 0;
    virtual HRESULT TxSendMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) = 0;
    /// The grey text that an empty field shows while it has not the focus.
    virtual void SetDefaultText(const CString& text) = 0;
    virtual const CString& GetDefaultText() = 0;

protected:
    IDUIRichEdit() = default;
    IDUIRichEdit(const IDUIRichEdit& other) = default;
};

/// A text editor, of one line or many, plain or rich, over the platform's text services.
///
/// Every key, character and press reaches the services once: keys and the left button come as events,
/// characters by the message filter, or as events where no message loop runs the filter; a release outside
/// the text while the services hold the mouse comes by the filter, too. A text that is read-only can be
/// selected and copied: its keys and presses come by the filter alone. With several lines Return is the
/// text's, not the window's. The host's view changes repaint what the services invalidate, no more. The
/// horizontal scroll bar looks like the skin's "cs_h_scrollbar". A copy has the same text and settings, and
/// no selection or history.
///
/// Skin attributes: scrollbar_style, multiline, rich, read_only, password, back_image, inset, context_menu,
/// limit_text, default_text. Notifications: DUINOTIFY_EDITNOTIFY with the services' code (EN_) and its data.
class QVUI_API CDUIRichEdit : public ControlOf<CDUIRichEdit, IDUIRichEdit>, public IDUIMessageFilter {
    friend ControlOf;
    friend class CTxtWinHost;

public:
    CDUIRichEdit();
    ~CDUIRichEdit() override;
    static const ControlClass& Class();

    void SetText(const CString& text) override;
    /// The services' text; empty while the placeholder shows.
    const CString& GetText() override;
    void SetControlRect(const RECT& rect) override;
    void SetTextStyle(CRefPtr<CTextStyle> style) override;
    void ModifyStatus(DWORD remove, DWORD add) override;
    void DoPaint(HDC hdc, const RECT& rcPaint) override;
    CDUIVerticalSB* GetVerticalSB() override { return m_pVerticalSB.GetPtr(); }
    CDUIHorizontalSB* GetHorizontalSB() override { return m_pHorizontalSB.GetPtr(); }

protected:
    void OnCreate() override;
    void OnDestroy() override;
    LRESULT ProcessEvent(const tagDUIEvent& event, BOOL& bHandled) override;
    void PaintBkgnd(HDC hdc) override;

public:
    BOOL PreTranslateMessage(MSG* pMsg) override;

    // IDUIRichEdit
    BOOL GetViewInset(RECT& inset) override;
    BOOL SetViewInset(const RECT& inset) override;
    BOOL IsRich() override { return m_pHost->IsRich(); }
    void SetRich(BOOL rich) override { m_pHost->SetRich(rich); }
    BOOL IsReadOnly() override { return m_pHost->IsReadOnly(); }
    void SetReadOnly(BOOL readOnly) override;
    BOOL GetWordWrap() override { return m_pHost->GetWordWrap(); }
    void SetWordWrap(BOOL wraps) override { m_pHost->SetWordWrap(wraps); }
    DWORD GetEditStyle() override { return m_dwEditStyle; }
    void SetEditStyle(DWORD style) override { m_dwEditStyle = style; }
    int GetLimitText() override { return m_pHost->GetLimitText(); }
    void SetLimitText(int length) override { m_pHost->SetLimitText(length); }
    int GetTextLength(DWORD flags) override;
    BOOL GetModify() override;
    void SetModify(BOOL modified) override;
    void GetSel(int& first, int& last) override;
    void GetSel(CHARRANGE& range) override;
    int SetSel(int first, int last) override;
    int SetSel(const CHARRANGE& range) override;
    void ReplaceSel(const CString& text, BOOL canUndo) override;
    CString GetSelText() override;
    int SetSelAll() override { return SetSel(0, -1); }
    int SetSelNone() override { return SetSel(-1, 0); }
    BOOL GetZoom(int& numerator, int& denominator) override;
    BOOL SetZoom(int numerator, int denominator) override;
    BOOL SetZoomOff() override { return SetZoom(0, 0); }
    WORD GetSelectionType() override;
    BOOL GetAutoURLDetect() override;
    BOOL SetAutoURLDetect(BOOL detects) override;
    DWORD GetEventMask() override { return m_pHost->GetEventMask(); }
    DWORD SetEventMask(DWORD mask) override;
    CString GetTextRange(long first, long last) override;
    void HideSelection(BOOL hides) override;
    void ScrollCaret() override;
    int InsertText(int position, const char* text, BOOL canUndo) override;
    int AppendText(const char* text, BOOL canUndo) override;
    DWORD GetDefaultCharFormat(CHARFORMAT2A& format) override;
    BOOL SetDefaultCharFormat(CHARFORMAT2A& format) override;
    DWORD GetSelectionCharFormat(CHARFORMAT2A& format) override;
    BOOL SetSelectionCharFormat(CHARFORMAT2A& format) override;
    BOOL SetWordCharFormat(CHARFORMAT2A& format) override;
    DWORD GetParaFormat(PARAFORMAT2& format) override;
    BOOL SetParaFormat(PARAFORMAT2& format) override;
    BOOL CanUndo() override;
    BOOL CanRedo() override;
    BOOL CanPaste() override;
    BOOL Redo() override;
    BOOL Undo() override;
    void Clear() override;
    void Copy() override;
    void Cut() override;
    void Paste() override;
    void SetEnableContextMenu(BOOL enables) override { m_bContextMenu = enables; }
    BOOL GetEnableContextMenu() override { return m_bContextMenu; }
    int GetLineCount() override;
    CString GetLine(int line, int maxLength) override;
    int LineIndex(int line) override;
    int LineLength(int position) override;
    void LineScroll(int lines, int characters) override;
    int LineFromChar(int position) override;
    POINT PosFromChar(int position) override;
    int CharFromPos(POINT point) override;
    int GetFirstVisibleLine() override;
    void EmptyUndoBuffer() override;
    UINT SetUndoLimit(UINT steps) override;
    long StreamIn(int format, EDITSTREAM& stream) override;
    long StreamOut(int format, EDITSTREAM& stream) override;
    IDropTarget* GetTxDropTarget() override { return nullptr; }
    HRESULT TxSendMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    void SetDefaultText(const CString& text) override;
    const CString& GetDefaultText() override { return m_strDefaultText; }

    /// Whether view changes of the services repaint; a derived class may say no.
    virtual BOOL WantsViewChange() { return TRUE; }
    virtual void OnTxNotify(DWORD code, void* data);

protected:
    CDUIRichEdit(const CDUIRichEdit& other);

private:
    struct Typing;

    static const AttributeTable<CDUIRichEdit>& Attributes();
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    CDUIScrollBarBase* ScrollBarOf(bool isVertical);
    bool IsEditable() const { return IsEnabled() && !m_pHost->IsReadOnly(); }
    bool TakesMessages(const MSG& message);
    void PreTranslateMouse(const MSG& message);
    void TypeByte(char byte);
    void PutText(const CString& text);
    void ShowPlaceholder(bool shows);
    void OnFocus();
    void OnFocusLost();
    void OnWheel(const tagDUIEvent& event);
    void OnScrollBar(const tagDUIEvent& event);
    void OnContextMenu(const tagDUIEvent& event);

    std::unique_ptr<CTxtWinHost> m_pHost;
    CDUIImageListPtr m_pBackImage;
    CRefPtr<CDUIHorizontalSB> m_pHorizontalSB;
    CRefPtr<CDUIVerticalSB> m_pVerticalSB;
    DWORD m_dwEditStyle = 0;
    BOOL m_bContextMenu = FALSE;
    CString m_strDefaultText;
    CString m_strShownText;  // what GetText last gave
    std::unique_ptr<Typing> m_pTyping;
};

}  // namespace DUI
