#pragma once

#include <functional>
#include <memory>

#include <qvui/framework/control_base.h>
#include <qvui/framework/control_builder.h>
#include <qvui/framework/message_loop.h>
#include <qvui/framework/window/notify_target.h>
#include <qvui/render/background.h>
#include <qvui/skin/skin_manager.h>

namespace DUI {

struct WindowParts;

/// The window's style word: how the application's window class treats the non-client area.
enum DUINCSTYLE : DWORD {
    DUINCSTYLE_LAYERED = 0x1,    // "layered"
    DUINCSTYLE_CUSTOM_NC = 0x2,  // "custom_nc": the frame replaces the native non-client area
    DUINCSTYLE_REGION_NC = 0x4,  // "region_nc": with custom_nc, the window is shaped by its frame
    DUINCSTYLE_SIZE_NC = 0x8,    // "size_nc": with custom_nc, the frame has sizing borders
};

/// The first timer id that an application may use on a window with a manager: SetTimer of the platform, in
/// the low 16 bits of the id. Those from 1 to the one below are the manager's, which gives them to the timers
/// of its controls; an application's timer with such an id would replace one of theirs or be replaced by it.
inline constexpr UINT_PTR DUITIMER_FIRST_FREE = 1024;

/// Hosts one control tree in one native window.
///
/// The application's window class creates the window and has a manager, usually by deriving from it. It calls
/// CreateFromResource or CreateFromXML, then InitWindowMgr once the window exists and FinishWindowMgr before
/// it goes; passes its messages to ProcessWindowMessage and maps WM_PAINT and WM_TIMER to OnPaint and
/// OnTimer; adds the manager to the application's message loop as a filter and removes it at the end; and
/// overrides OnDUINotify. Timers of its own have ids from DUITIMER_FIRST_FREE on. The skin attributes of the
/// "window" element are frame_style, client_margin, nc_style, caption_height and name.
///
/// While a control is pressed, the window holds the native capture, so that moves and the release arrive from
/// outside the window too. A press on a layout container takes none, since the application may move the
/// window by it. WM_CAPTURECHANGED, when something else takes the capture, ends the press without a release:
/// the control is left by the pointer and gets no more moves of the press. A WM_MOUSELEAVE during a press is
/// ignored, since nothing leaves a window that has the capture.
///
/// A handler may do anything while it is called: move, remove or destroy its sender or the whole tree, move
/// the focus, switch the skin, close the window, finish or delete the manager, build another tree. What it
/// asks for last holds: a create operation during which a handler builds a tree returns FALSE and leaves that
/// tree.
class QVUI_API CDUIWindowMgr : public IDUIControlMgr,
                               public IDUINotifyHandler,
                               public IDUIControlBuilderCallback,
                               public IDUIMessageFilter,
                               public IDUIIdleHandler,
                               public IDUISkinObserver {
public:
    CDUIWindowMgr();
    CDUIWindowMgr(const CDUIWindowMgr&) = delete;
    CDUIWindowMgr& operator=(const CDUIWindowMgr&) = delete;
    /// The skin attributes of the "window" element.
    static const AttributeList& WindowAttributes();

    // IDUIControlMgr
    void SendNotify(const tagDUINotify& notify) override;
    LRESULT OnControlRequest(tagDUINotify& request) override;
    CDUIMessageLoop& GetMessageLoop() override { return m_messageLoop; }

    virtual ~CDUIWindowMgr();
    /// The client rectangle less the frame's borders and the client margin; FALSE without a window.
    virtual BOOL GetDUIClientRect(RECT* prc);

protected:
    virtual void PaintFrameBkgnd(HDC hdc);
    virtual void PaintClientArea(HDC hdc);

public:
    /// Whether the active window is the host window's top-level ancestor; FALSE for a host without one.
    virtual BOOL IsNcActivate();

    // The other bases
    void OnDUINotify(const tagDUINotify& notify, BOOL& bHandled) override;
    CRefPtr<IDUIControl> OnBuilderNewControl(const CString& tag) override;
    void OnBuilderControlCreated(CRefPtr<IDUIControl> root) override;
    void OnBuilderWindowAttribute(const CString& name, const CString& value) override;
    BOOL PreTranslateMessage(MSG* pMsg) override;
    BOOL OnIdle() override { return FALSE; }
    void OnSkinUIDataChanged() override;

    // Creating and finishing, in the order of calling
    /// Builds the tree and lays it out in the window; FALSE, with no root, when no tree could be built.
    BOOL CreateFromResource(const CString& name, HWND hWnd, RECT& rc);
    BOOL CreateFromXML(const CString& xml, HWND hWnd, RECT& rc);
    BOOL CreateFromRootControl(CRefPtr<IDUIControl> root, HWND hWnd, RECT& rc);
    void InitWindowMgr();
    /// A tree that a handler builds and starts meanwhile stays.
    void FinishWindowMgr();
    /// Hands out the root as it is, still attached. The manager detaches it when it is deleted before it.
    CRefPtr<IDUIControl> DetachRootControl();

    /// Decodes and handles one message; TRUE when it is done with, `lResult` its result. Only map 0 exists.
    BOOL ProcessWindowMessage(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                              DWORD dwMsgMapID = 0);

    // The window
    HWND GetHWND() const;
    BOOL IsWindow() const;
    DWORD GetStyle() const;
    DWORD GetExStyle() const;
    /// The rectangle given to the create operations.
    const RECT& GetWindowRect() const { return m_rcWindow; }
    IDUIControl* GetRootControl() const;
    /// The first window above the host's parent or owner that is no child; null without one.
    HWND GetMostTopParent() const;
    /// 1 minimised, 2 maximised, else 4; plus 8 hidden, 0x10 disabled, 0x20 active; 0 without such a window.
    DWORD GetMostTopParentStatus();
    void LayoutRootControl();
    void LockLayout(BOOL bLock) { m_bLayoutLocked = bLock; }

    DWORD SetDUIStyle(DWORD remove, DWORD add);
    DWORD GetDUIStyle() const { return m_dwDUIStyle; }
    BOOL IsDUICustomNC() const { return HasDUIStyle(DUINCSTYLE_CUSTOM_NC); }
    BOOL IsDUISetNCRgn() const { return HasDUIStyle(DUINCSTYLE_CUSTOM_NC | DUINCSTYLE_REGION_NC); }
    BOOL IsDUINCSizable() const { return HasDUIStyle(DUINCSTYLE_CUSTOM_NC | DUINCSTYLE_SIZE_NC); }
    /// Does not lay out again.
    void SetClientRectMargin(RECT margin) { m_rcClientMargin = margin; }
    RECT GetClietnRectMargin() const { return m_rcClientMargin; }
    void SetCaptionHeight(int height) { m_nCaptionHeight = height; }
    int GetCaptionHeight() const { return m_nCaptionHeight; }
    void SetFrameBkgnd(CRefPtr<CDUIFrameBK> frame) { m_pFrameBK = frame; }
    CRefPtr<CDUIFrameBK> GetFrameBkgnd() const { return m_pFrameBK; }

    // Painting
    BOOL Invalidate(BOOL bErase);
    /// A layered window gets a posted WM_PAINT too, since invalidation alone gives it none.
    BOOL InvalidateRect(const RECT* rect, BOOL bErase);
    void InvalidateRgn(HRGN region, BOOL bErase);
    /// Paints frame and controls through the back buffer, where a picture that shrinks leaves pixels out.
    void DoPaint(HDC hdc);
    /// Whether a press on the control counts as one on the window itself.
    BOOL IsTrasparentCtrl(IDUIControl* control);

    // Finding controls; results are borrowed
    IDUIControl* FindControl(POINT* pt);
    IDUIControl* FindControl(POINT* pt, UINT flags);
    /// By exact name, from a cache that `bRefresh` makes anew; it does not follow changes by itself, but
    /// controls that left the tree or were destroyed are not in it.
    IDUIControl* GetControlByName(const CString& name, BOOL bRefresh);
    IDUIControl* GetControlByShortcut(char ch);
    IDUIControl* GetControlByInterface(const char* name);
    IDUIControl* GetFocusControl() const;
    BOOL SetControlAttribute(const CString& name, const CString& attribute, const CString& value,
                             BOOL bRefresh);
    BOOL EnableControl(const CString& name, BOOL bEnable);
    BOOL ShowControl(const CString& name, BOOL bShow);
    BOOL SetContrlText(const CString& name, const CString& text);
    CString GetContrlText(const CString& name);
    /// FALSE when there is no such control or it is no button. It is defined with the buttons.
    BOOL SetButtonChecked(const CString& name, BOOL bCheck);

    /// Calls a member function of `target` with every notification of the controls of that name that neither
    /// the control nor OnDUINotify handled, in the order of adding. A target that goes removes its handlers
    /// itself.
    template <class Target>
    void AddNotifyHandler(const CString& name, Target* target, void (Target::*handler)(const tagDUINotify&))
    {
        AddHandler(name, target,
                   [target, handler](const tagDUINotify& notify) { (target->*handler)(notify); });
    }
    /// Removes the target's handlers for the name.
    void RemoveNotifyHandler(const CString& name, CDUINotifyTarget* target);
    /// Removes all of the target's handlers.
    void RemoveNotifyHandlers(CDUINotifyTarget* target);

    /// Moves the focus to the next or previous tab stop; TRUE when something took it.
    BOOL SetNextTabControl(BOOL bForward);
    /// Moves the first tab bar's selection.
    BOOL SetNextTabPage(BOOL bForward);

protected:
    CRefPtr<CDUIFrameBK> GetCurrentFrameBK() const { return m_pFrameBK; }

    // Handlers. Those that ProcessWindowMessage does not map are for the application's window class to map.
    LRESULT OnPaint(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    /// Gives a control's timer to the control. Any other is the application's, which looks at its own ids,
    /// from DUITIMER_FIRST_FREE on, before or after this; one with an id of the manager's leaves a trace
    /// line.
    LRESULT OnTimer(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnEraseBkgnd(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    /// The hover control's tooltip, cut to 79 bytes, into a text buffer of at least 80.
    LRESULT OnGetDispInfo(char* text, BOOL& bHandled);
    LRESULT OnPreKeyDown(MSG* pMsg, BOOL& bHandled);

private:
    struct MessageEntry;
    static const MessageEntry kMessages[];
    struct RequestEntry;
    static const RequestEntry kRequests[];

    LRESULT OnSize(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnMove(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnKey(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnKillFocus(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnNcActivate(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);

    LRESULT HandleUpdateRequest(const tagDUINotify& request);
    LRESULT Update(const tagDUINotify& request);
    LRESULT HandleWindowRequest(tagDUINotify& request);
    LRESULT HandleFindRequest(const tagDUINotify& request);
    LRESULT HandleMoveRequest(const tagDUINotify& request);

    BOOL AdoptRoot(CRefPtr<IDUIControl> root, HWND hWnd);
    /// Detaches the root when it is attached; false when the manager has gone or has another tree afterwards.
    bool DetachTree();
    /// No control has the focus, the pointer or a press, and none is known by name.
    void ForgetPointers();
    /// A control left the tree: nothing here may point to it any more. One that only moves is forgotten when
    /// it has not come back by the end of the move.
    void Forget(const IDUIControl* control);
    void ForgetPointers(const IDUIControl* control);
    void EndMove(const IDUIControl* control);

    bool HasDUIStyle(DWORD bits) const { return (m_dwDUIStyle & bits) == bits; }
    /// Whether the window has a native caption.
    bool HasCaption() const { return (GetStyle() & WS_CAPTION) == WS_CAPTION; }
    void CheckDUIStyle();
    bool Broadcast(UINT type, WPARAM wParam, LPARAM lParam);
    void AddHandler(const CString& name, CDUINotifyTarget* target,
                    std::function<void(const tagDUINotify&)> call);

    const std::unique_ptr<WindowParts> m_parts;
    CDUIMessageLoop m_messageLoop;
    RECT m_rcWindow{0, 0, 0, 0};
    CRefPtr<CDUIFrameBK> m_pFrameBK;
    RECT m_rcClientMargin{0, 0, 0, 0};
    DWORD m_dwDUIStyle = 0;
    int m_nCaptionHeight = 0;
    BOOL m_bLayoutLocked = FALSE;
    bool m_isLayingOut = false;
    bool m_isRelayoutPending = false;
    bool m_isSkinObserver = false;
    bool m_isAttached = false;
    bool m_isEnding = false;  // while it is deleted
    unsigned m_nTrees = 0;    // counts the changes of the root
};

}  // namespace DUI
