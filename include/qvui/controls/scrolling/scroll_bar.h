#pragma once

#include <qvui/controls/button.h>

namespace DUI {

/// How the thumb and the track talk to their scroll bar. Codes are the platform's SB_ codes.
class QVUI_API IDUIScrollSink {
public:
    virtual long OnVScrollEvent(unsigned int nCode, long nValue);
    virtual long OnHScrollEvent(unsigned int nCode, long nValue);
    virtual int IsVerticalSB() = 0;

protected:
    ~IDUIScrollSink() = default;
};

/// What both scroll bars share: a track with a thumb that shows which part of its owner's content is in view.
///
/// A scroll bar never moves by itself. A press on the track and a drag of the thumb become DUIEVENT_VSCROLL
/// or DUIEVENT_HSCROLL events for the owner, which moves the position through SetScrollBarInfo. Position,
/// range and page are pixels of content; the maximum is the largest position, not the content's length.
///
/// Holding the button on the track pages again and again from a message loop of the bar's own, which runs
/// inside the press and lets the window live. It ends with the release, with WM_QUIT (passed on with exit
/// code 0), when the bar leaves its window or the window goes, and when another window takes the mouse, which
/// the bar captures meanwhile.
///
/// Skin attributes: back_image, thumb_image, thumb_mark, notifier, enable_arrow, arrow_image1, arrow_image2.
class QVUI_API CDUIScrollBarBase : public ControlOf<CDUIScrollBarBase, CDUIControlBase>,
                                   public IDUIScrollSink {
    friend ControlOf;

public:
    CDUIScrollBarBase();
    ~CDUIScrollBarBase() override;
    static const ControlClass& Class();

    void SetControlRect(const RECT& rect) override;
    /// A disabled bar has no thumb and ignores presses.
    void ModifyStatus(DWORD remove, DWORD add) override;

protected:
    void OnCreate() override;
    void OnDestroy() override;
    LRESULT ProcessEvent(const tagDUIEvent& event, BOOL& bHandled) override;
    void PaintBkgnd(HDC hdc) override;

public:
    /// Passes a scroll code on to the owner. SB_THUMBTRACK takes a distance in pixels of the track and gives
    /// 1 at the minimum, 2 at the maximum and 0 between; the other codes give 0.
    long OnVScrollEvent(unsigned int nCode, long nValue) override;
    long OnHScrollEvent(unsigned int nCode, long nValue) override;

    /// The control that gets the scroll events, borrowed: who sets it clears it before it goes.
    virtual void SetScrollOwner(IDUIControl* owner);
    /// The owner by the name it has in the window. It is looked up when it is first needed, and again when it
    /// has left the window.
    virtual void SetScrollOwner(const CString& name);
    virtual IDUIControl* GetScrollOwner();
    /// Takes page, range and position as far as the mask names them; the position is kept in the range. 1.
    virtual int SetScrollBarInfo(SCROLLINFO* info);
    /// Fills in range, page and position; the rest stays as it is.
    virtual void GetScrollBarInfo(SCROLLINFO* info);
    /// Gives the owner the focus when it is a tab stop.
    void FocusOwner();

protected:
    /// A copy shares the owner and the back image and has buttons of its own.
    CDUIScrollBarBase(const CDUIScrollBarBase& other) = default;

    void CreateCtrls();
    /// Connects the thumb to this bar, or to none; 1 when there is a thumb.
    int SetMsgSink(int bSet);
    /// Pages while the button is held on the track; FALSE when the bar is not in its window any more.
    BOOL StartMessageLoop();
    /// 3 the thumb; nothing else can be asked for.
    CDUIButton* GetElement(int which);
    void UpdateCtrlsAttributes();
    void EnableScrollBar(int bEnable);
    void UpdateThumUI();

private:
    struct Track;
    struct Span;
    struct Paging;

    static const AttributeTable<CDUIScrollBarBase>& Attributes();
    Track GetTrack();
    /// Where the thumb stands on the track; keeps the pixels per unit.
    Span MeasureThumb(const Track& track);
    bool IsInWindow(const IDUIControl* control);
    long Scroll(UINT eventType, unsigned int nCode, long nValue);
    int ThumbTarget(long nPixels, int& nNew) const;
    void Page();
    bool RunPaging(const Paging& paging);

    int m_nMin = 0;
    int m_nMax = 0;
    int m_nPos = 0;
    int m_nPage = 0;
    int m_nLeftArrow = 0;
    int m_nTopArrow = 0;
    int m_nRightArrow = 0;
    int m_nBottomArrow = 0;
    RECT m_rcBefore{0, 0, 0, 0};  // of the thumb, along the track
    RECT m_rcAfter{0, 0, 0, 0};
    IDUIControl* m_pOwner = nullptr;
    CString m_strOwner;
    int m_bTracking = 0;
    int m_bPageToStart = 1;
    POINT m_ptLast{0, 0};
    double m_fPixelsPerUnit = 1.0;
    CDUIImageListPtr m_pBackImage;
    bool m_isOwnerByName = false;
};

class QVUI_API CDUIVerticalSB : public ControlOf<CDUIVerticalSB, CDUIScrollBarBase> {
    friend ControlOf;

public:
    CDUIVerticalSB() = default;
    static const ControlClass& Class();

    int IsVerticalSB() override { return 1; }

protected:
    CDUIVerticalSB(const CDUIVerticalSB& other) = default;
};

class QVUI_API CDUIHorizontalSB : public ControlOf<CDUIHorizontalSB, CDUIScrollBarBase> {
    friend ControlOf;

public:
    CDUIHorizontalSB() = default;
    static const ControlClass& Class();

    int IsVerticalSB() override { return 0; }

protected:
    CDUIHorizontalSB(const CDUIHorizontalSB& other) = default;
};

/// The thumb of a scroll bar. It reports how far it is dragged and is moved by what comes of it.
///
/// Skin attributes: thumb_mark.
class QVUI_API CDUISBThumButton : public ControlOf<CDUISBThumButton, CDUIButton> {
    friend ControlOf;

public:
    CDUISBThumButton() = default;
    static const ControlClass& Class();

    BOOL Activate() override { return 0; }

protected:
    LRESULT ProcessEvent(const tagDUIEvent& event, BOOL& bHandled) override;
    void PaintBkgnd(HDC hdc) override;

public:
    /// Borrowed; the bar takes itself away before it goes.
    void SetScrollBar(CDUIScrollBarBase* bar) { m_pScrollBar = bar; }

protected:
    /// A copy belongs to no scroll bar yet.
    CDUISBThumButton(const CDUISBThumButton& other);

private:
    static const AttributeTable<CDUISBThumButton>& Attributes();
    void BeginDrag(POINT point);
    void Drag(POINT point);

    CDUIScrollBarBase* m_pScrollBar = nullptr;
    int m_nDragAnchor = 0;  // from the thumb's leading edge to the pointer
    int m_nClampState = 0;  // the bar's last answer: 0 free, 1 at the minimum, 2 at the maximum
    CDUIImageListPtr m_pThumbMark;
};

/// An arrow of a scroll bar. Every bar has two and shows neither: it gives them no rectangle and no
/// connection.
class QVUI_API CDUISBArrowBtn : public CDUIButton {
public:
    static constexpr int kStart = 1;
    static constexpr int kEnd = 2;

    explicit CDUISBArrowBtn(int nKind) : m_nKind(nKind) {}

    CRefPtr<IDUIControl> Clone() override;
    BOOL Activate() override { return 0; }

protected:
    LRESULT ProcessEvent(const tagDUIEvent& event, BOOL& bHandled) override;

public:
    /// Borrowed; a connected arrow scrolls by one line when it is pressed.
    void SetScrollBar(CDUIScrollBarBase* bar) { m_pScrollBar = bar; }

protected:
    /// A copy belongs to no scroll bar yet.
    CDUISBArrowBtn(const CDUISBArrowBtn& other) : CDUIButton(other), m_nKind(other.m_nKind) {}

private:
    int m_nKind;
    CDUIScrollBarBase* m_pScrollBar = nullptr;
    int m_bPressed = 0;
};

}  // namespace DUI
