#pragma once

#include <functional>
#include <map>
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <qvui/framework/control_base.h>
#include <qvui/framework/control_builder.h>
#include <qvui/framework/message_loop.h>
#include <qvui/framework/window/notify_target.h>
#include <qvui/render/background.h>
#include <qvui/render/dib_section.h>
#include <qvui/skin/skin_manager.h>

namespace DUI {

class CPPToolTip;

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
    HWND GetHWND() const { return m_hWnd; }
    BOOL IsWindow() const;
    DWORD GetStyle() const;
    DWORD GetExStyle() const;
    /// The rectangle given to the create operations.
    const RECT& GetWindowRect() const { return m_rcWindow; }
    IDUIControl* GetRootControl() const { return m_pRoot.GetPtr(); }
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
    IDUIControl* GetFocusControl() const { return m_pFocus; }
    BOOL SetControlAttribute(const CString& name, const CString& attribute, const CString& value,
                             BOOL bRefresh);
    BOOL EnableControl(const CString& name, BOOL bEnable);
    BOOL ShowControl(const CString& name, BOOL bShow);
    BOOL SetContrlText(const CString& name, const CString& text);
    CString GetContrlText(const CString& name);
    /// FALSE when there is no such control or it is no button.
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
    using Handler = LRESULT (CDUIWindowMgr::*)(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    struct MessageEntry {
        UINT message;
        Handler handler;
    };
    static const MessageEntry kMessages[];
    struct RequestEntry {
        UINT code;
        LRESULT (CDUIWindowMgr::*handler)(tagDUINotify& request);
    };
    static const RequestEntry kRequests[];
    struct NotifyHandlerEntry {
        CDUINotifyTarget* target;
        std::function<void(const tagDUINotify&)> call;
    };
    using NotifyHandlerList = std::vector<std::shared_ptr<NotifyHandlerEntry>>;
    /// A control that a handler of this manager works with: it stays alive meanwhile, and is null from the
    /// moment it leaves the tree or the manager goes.
    class Target;

    LRESULT OnSize(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnMove(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnSetCursor(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnLButtonDown(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnLButtonUp(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnMouseMove(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnMouseLeave(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnLButtonDBClick(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnMouseWheel(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnContextMenu(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnKey(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnKillFocus(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnNcActivate(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnNcMouseMove(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnCaptureChanged(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnNotifyDisplayTooltip(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);

    // Input
    /// Takes the message's point as the last one.
    tagDUIEvent PointerEvent(UINT type, IDUIControl* sender, WPARAM wParam, LPARAM lParam);
    /// False when the manager has gone meanwhile.
    bool Deliver(IDUIControl* target, const tagDUIEvent& event, BOOL& bHandled);
    bool RouteMove(tagDUIEvent event, BOOL& bHandled);
    bool MoveHover(Target& found, const tagDUIEvent& move, BOOL& bHandled);
    bool EndHover(BOOL& bHandled);
    /// Takes or releases the native capture of a press. While the window has it, it is not left by the
    /// pointer.
    void HoldMouse(bool isHeld);
    /// Controls that are being told that they take or lose the focus, the innermost last. They are not told
    /// again meanwhile: handlers that pass the focus to each other would never end.
    using FocusCalls = std::vector<CWeakPtr<IDUIControl>>;
    static bool IsTold(const FocusCalls& calls, const IDUIControl* control);
    /// False when the manager has gone.
    bool TellOnce(FocusCalls& calls, IDUIControl* control, const tagDUIEvent& event, BOOL& bHandled);
    /// False when the manager has gone.
    bool LoseFocus(IDUIControl* sender, tagDUIEvent event, BOOL& bHandled);
    bool IsOwnMessage(const MSG& message) const;
    bool ActivateShortcut(char ch);
    bool ActivateControl(IDUIControl* control);
    bool OnPreReturn();
    bool OnPreEscape(const MSG& message);
    /// Gives the focus from the present control to this one, which may be null.
    void MoveFocus(IDUIControl* control);
    bool FocusBeyondTree(BOOL bForward, IDUIControl* lastTabStop);

    // Requests
    LRESULT HandleUpdateRequest(tagDUINotify& request);
    LRESULT Update(const tagDUINotify& request);
    LRESULT HandleFocusRequest(tagDUINotify& request);
    LRESULT HandleWindowRequest(tagDUINotify& request);
    LRESULT HandleLockRequest(tagDUINotify& request);
    LRESULT HandleFindRequest(tagDUINotify& request);
    LRESULT HandleStatusRequest(tagDUINotify& request);
    LRESULT HandleTimerRequest(tagDUINotify& request);
    LRESULT HandleMoveRequest(tagDUINotify& request);
    LRESULT StartTimer(const DUITimerRecord& wanted);
    LRESULT StopTimer(const DUITimerRecord& wanted);
    /// Stops and removes the timers of the list for which `isOver` holds.
    template <class Predicate>
    void RemoveTimers(Predicate isOver);
    std::size_t FindTimer(const IDUIControl* owner, UINT id) const;
    void ClearTimer();

    // The window
    BOOL AdoptRoot(CRefPtr<IDUIControl> root, HWND hWnd);
    /// Detaches the root when it is attached; false when the manager has gone or has another tree afterwards.
    bool DetachTree();
    bool HasDUIStyle(DWORD bits) const { return (m_dwDUIStyle & bits) == bits; }
    /// Whether the window has a native caption.
    bool HasCaption() const { return (GetStyle() & WS_CAPTION) == WS_CAPTION; }
    void CheckDUIStyle();
    bool Broadcast(UINT type, WPARAM wParam, LPARAM lParam);
    bool PrepareBackBuffer(const RECT& client);
    void RefreshNames();
    void ForgetNames();
    void CreateTooltip();
    void UpdateTooltipTool();
    /// A control left the tree: nothing here may point to it any more. One that only moves is forgotten when
    /// it has not come back by the end of the move.
    void Forget(const IDUIControl* control);
    void ForgetPointers(const IDUIControl* control);
    bool IsMoving(const IDUIControl* control) const;

    void AddHandler(const CString& name, CDUINotifyTarget* target,
                    std::function<void(const tagDUINotify&)> call);
    void CallHandlers(const CString& name, const tagDUINotify& notify);
    void ForgetAllHandlers();
    friend class CDUINotifyTarget;

    HWND m_hWnd = nullptr;
    CRefPtr<IDUIControl> m_pRoot;
    CWeakPtr<IDUIControl> m_pFocus;
    FocusCalls m_focusTakers;
    FocusCalls m_focusLosers;
    CWeakPtr<IDUIControl> m_pHover;
    CWeakPtr<IDUIControl> m_pCapture;
    POINT m_ptLast{-1, -1};
    BOOL m_bTracking = FALSE;
    bool m_holdsMouse = false;  // the window has the native capture for a press
    struct Timer {
        DUITimerRecord record;
        CWeakPtr<IDUIControl> owner;
    };
    std::vector<Timer> m_timers;
    using NameCache = std::map<CString, CWeakPtr<IDUIControl>, CStrLessCmp>;
    NameCache m_names;
    std::unordered_map<const IDUIControl*, NameCache::iterator> m_namePlaces;
    std::map<CString, NotifyHandlerList, CStrLessCmp> m_handlers;
    CDUIMessageLoop m_messageLoop;
    std::unique_ptr<CPPToolTip> m_pToolTip;
    BOOL m_bLayoutLocked = FALSE;
    bool m_isLayingOut = false;
    bool m_isRelayoutPending = false;

    RECT m_rcWindow{0, 0, 0, 0};
    CRefPtr<CDUIFrameBK> m_pFrameBK;
    RECT m_rcClientMargin{0, 0, 0, 0};
    DWORD m_dwDUIStyle = 0;
    int m_nCaptionHeight = 0;
    CDibSection m_backBuffer;
    bool m_isSkinObserver = false;
    bool m_isAttached = false;
    bool m_isEnding = false;                     // while it is deleted
    unsigned m_nTrees = 0;                       // counts the changes of the root
    std::vector<Target*> m_targets;              // of the calls in progress
    std::vector<CWeakPtr<IDUIControl>> m_moves;  // controls that move within the tree, the innermost last
    std::unordered_set<const IDUIControl*>
        m_away;  // those of their subtrees that are not back yet, for comparing only
};

}  // namespace DUI
