#pragma once

#include <memory>
#include <string>

#include <qvui/platform/cstring.h>
#include <qvui/platform/cwnd.h>
#include <qvui/render/image_list.h>

namespace DUI {

class EditLine;

/// What a text field looks like. Colours are COLORREFs (0x00BBGGRR), measures are pixels.
struct EditLook {
    COLORREF hoverBorder = 0xC18C34;
    COLORREF border = 0xC4B091;
    COLORREF back = 0xFAFAFA;
    COLORREF readOnlyBack = 0xD8E9EC;  // also when disabled
    COLORREF text = 0x000000;
    COLORREF disabledText = 0x99A8AC;
    COLORREF selection = 0xC56A31;
    COLORREF defaultText = 0x808080;
    CDUIImageListPtr backImage;  // four states, one below the other: normal, hovered, unused, disabled
    int leftMargin = 5;
    RECT inset{4, 2, 4, 2};  // what the text keeps free at the right, and above and below
    bool isPassword = false;
};

/// The native window of a text field of one line. It draws its frame, text, selection and default text, and
/// handles caret, pointer and keys. The text is in the system code page and a character is never cut: a
/// sequence in UTF-8, two bytes from a byte of 128 or above in every other code page. Positions count bytes.
///
/// The parent window gets WM_COMMAND (posted) with the window's id and EN_SETFOCUS, EN_KILLFOCUS or
/// EN_CHANGE. Keys that move, and the presses that the parent sees too, need PreTranslateMessage.
///
/// Beyond typing and the arrow keys: Ctrl with the arrows, Backspace and Delete goes by words, Ctrl+A selects
/// all, Ctrl+Z and Ctrl+Y undo and redo, Insert and Delete use the clipboard with Ctrl and Shift, a double
/// click selects a word and a third click all. Pasted line ends become blanks; a paste is cut at the limit,
/// and capitals are for pasted text as well. A password is never copied.
///
/// The visible part is what fits between the left margin and the inset at the right.
class QVUI_API CQVEdit : public CWnd {
public:
    CQVEdit();
    ~CQVEdit() override;

    const CRuntimeClass* GetRuntimeClass() const override;
    const MessageMap* GetMessageMap() const override;
    BOOL PreCreateWindow(CREATESTRUCTA& create) override;
    BOOL PreTranslateMessage(MSG* message) override;
    virtual void Disable();
    virtual void Enable();
    /// `forwardsClicks` posts each press of the left button on to the parent as well. FALSE when the window
    /// exists already or cannot be made.
    virtual BOOL Create(DWORD style, const RECT& rect, HWND parent, UINT id, BOOL forwardsClicks);

    CString GetWindowText() const;
    void SetWindowText(const CString& text);
    /// The most bytes that can be entered; a negative number lifts the limit.
    void SetLimit(int bytes);
    void SetUppercase(bool isOn);
    void SetWindowReadOnly(bool isReadOnly);
    bool IsWindowReadOnly() const { return m_isReadOnly; }
    /// Shown in its own colour while there is no text; empty for none.
    void SetWindowDefaultText(const CString& text, COLORREF color);
    /// Makes a font of its own.
    void SetEditFont(const LOGFONTA& font);
    const EditLook& Look() const { return m_look; }
    void SetLook(const EditLook& look);

protected:
    CQVEdit(const CQVEdit& other);

    /// Has the window painted anew.
    void DropBackBuffer();
    bool IsDragging() const { return m_isDragging; }

private:
    class TextDC;
    struct Key;

    LRESULT OnCreate(WPARAM wParam, LPARAM lParam);
    LRESULT OnSize(WPARAM wParam, LPARAM lParam);
    LRESULT OnEraseBackground(WPARAM wParam, LPARAM lParam);
    LRESULT OnPaint(WPARAM wParam, LPARAM lParam);
    LRESULT OnSetFocus(WPARAM wParam, LPARAM lParam);
    LRESULT OnKillFocus(WPARAM wParam, LPARAM lParam);
    LRESULT OnChar(WPARAM wParam, LPARAM lParam);
    LRESULT OnGetDialogCode(WPARAM wParam, LPARAM lParam);
    LRESULT OnContextMenu(WPARAM wParam, LPARAM lParam);
    LRESULT OnLButtonDown(WPARAM wParam, LPARAM lParam);
    LRESULT OnLButtonDoubleClick(WPARAM wParam, LPARAM lParam);
    LRESULT OnLButtonUp(WPARAM wParam, LPARAM lParam);
    LRESULT OnCaptureChanged(WPARAM wParam, LPARAM lParam);
    LRESULT OnMouseMove(WPARAM wParam, LPARAM lParam);
    LRESULT OnMouseHover(WPARAM wParam, LPARAM lParam);
    LRESULT OnMouseLeave(WPARAM wParam, LPARAM lParam);

    void DrawBackground(HDC hdc, const RECT& client);
    void DrawLine(HDC hdc);
    void DrawSelection(HDC hdc);

    bool OnKey(WPARAM key);
    void DragTo(POINT point);
    void Copy();
    void Cut();
    void Paste();
    void AfterEdit();
    /// The caret at its place, shown, and everything painted anew.
    void ShowCaretThere();
    void Tell(WORD code);
    void MeasureFont();
    /// The text as it is drawn: asterisks for a password.
    std::string Drawn(int first, int last) const;
    int TextWidth() const;
    int XOf(int index) const;
    int IndexAt(int x) const;
    /// Bytes of whole characters that fit from an index on.
    int FittingFrom(int index) const;
    /// The first index of a view whose end is the given one.
    int FirstBefore(int last) const;
    void ScrollToCaret();
    HFONT Font() const;

    EditLook m_look;
    std::unique_ptr<EditLine> m_line;
    CString m_defaultText;
    LOGFONTA m_logFont{};
    mutable HFONT m_font = nullptr;
    HBITMAP m_backBuffer = nullptr;
    int m_firstVisible = 0;
    int m_charHeight = 0;
    int m_textY = 0;
    int m_pressIndex = 0;
    DWORD m_doubleClickTime = 0;
    POINT m_doubleClickPoint{};
    bool m_isDragging = false;
    bool m_tracksLeave = false;
    bool m_isHovered = false;
    bool m_isReadOnly = false;
    bool m_isDisabled = false;
    bool m_forwardsClicks = false;
    bool m_isFocusLost = false;
};

}  // namespace DUI
