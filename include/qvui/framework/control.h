#pragma once

#include <qvui/foundation/ref_ptr.h>
#include <qvui/platform/platform.h>
#include <qvui/skin/cursor_object.h>
#include <qvui/skin/text_style.h>

namespace DUI {

class CDUIMessageLoop;
class IDUIControl;

/// Input events. The values are part of the interface with applications.
enum DUIEVENT_TYPE : UINT {
    DUIEVENT_SETCURSOR = 1,
    DUIEVENT_TIMER = 2,
    DUIEVENT_SETFOCUS = 3,
    DUIEVENT_KILLFOCUS = 4,
    DUIEVENT_WINDOWSIZE = 5,
    DUIEVENT_WINDOWMOVE = 6,
    DUIEVENT_LBUTTONDOWN = 8,
    DUIEVENT_LBUTTONUP = 9,
    DUIEVENT_LBUTTONDBLCLK = 10,
    DUIEVENT_MOUSEENTER = 11,
    DUIEVENT_MOUSELEAVE = 12,
    DUIEVENT_MOUSEMOVE = 13,
    DUIEVENT_MOUSEWHEEL = 14,
    DUIEVENT_BUTTONDOWN_ELSEWHERE =
        15,  // a left press landed on another control while this one kept the focus
    DUIEVENT_CONTEXTMENU = 17,
    DUIEVENT_KEYDOWN = 19,
    DUIEVENT_KEYUP = 20,
    DUIEVENT_CHAR = 21,
    DUIEVENT_VSCROLL = 23,  // from a vertical scroll bar: wParam the scroll code, lParam the thumb position
    DUIEVENT_HSCROLL = 24,
    DUIEVENT_ITEMCLICK = 25,  // from an item (of a list, a tree, a tab bar) to its parent
    DUIEVENT_ITEMDBLCLICK = 26,
    DUIEVENT_ITEMHOVER = 27,
    DUIEVENT_ITEMLEAVE = 28,
};

/// Notification codes, from a control to the application.
enum DUINOTIFY_CODE : UINT {
    DUINOTIFY_CREATED = 1,
    DUINOTIFY_DESTROYED = 2,
    DUINOTIFY_LINKCLICK = 9,
    DUINOTIFY_CLICK = 10,
    DUINOTIFY_PROGRESSPOS = 11,
    DUINOTIFY_TRACKPOS = 12,
    DUINOTIFY_EDITNOTIFY = 13,
    DUINOTIFY_LISTBOX = 20,
    DUINOTIFY_COMBOBOX = 21,
    DUINOTIFY_TABACTIVATE = 22,
    DUINOTIFY_TREEEXPAND = 25,
};

/// Request codes, from a control to its window manager, in a tagDUINotify's nCode.
enum DUIREQUEST_CODE : UINT {
    DUIREQUEST_UPDATE =
        1,                 // wParam nonzero: a new layout; lParam: a RECT* to repaint, or null for the sender
    DUIREQUEST_FOCUS = 2,  // wParam 1 take, 2 give up, 3 ask: the result is the focus control
    DUIREQUEST_GETWINDOW = 3,  // wParam 1 the host window, 2 its top-level ancestor; the HWND comes in lParam
    DUIREQUEST_FINDCONTROL = 4,  // wParam 2 by name (lParam const char*), 1 by point (lParam POINT*)
    DUIREQUEST_LOCKLAYOUT = 5,   // wParam nonzero locks
    DUIREQUEST_TIMER =
        10,  // wParam 1 start, 2 stop, 3 ask whether it runs; lParam a DUITimerRecord*; 0 on success
    DUIREQUEST_WINDOWSTATUS = 11,  // the top-level window's status word comes in wParam
    DUIREQUEST_MOVE = 12,  // wParam nonzero: the sender begins to move within the tree; 0: the move is over.
                           // What the window keeps for controls survives their DUINOTIFY_DESTROYED meanwhile
};

/// Style bits.
enum DUISTYLE : DWORD {
    DUISTYLE_VISIBLE = 0x01,
    DUISTYLE_CURSOR = 0x02,
    DUISTYLE_TABSTOP = 0x04,
    DUISTYLE_WANTRETURN = 0x08,
    DUISTYLE_TOOLTIP = 0x10,
    DUISTYLE_TRANSPARENT = 0x20,  // hit-testing finds the control's children and never the control
};

/// Status bits; those above are free for control classes.
enum DUISTATUS : DWORD {
    DUISTATUS_DISABLED = 0x01,
    DUISTATUS_FOCUSED = 0x02,
    DUISTATUS_CHECKED = 0x04,
    DUISTATUS_HOT = 0x08,
    DUISTATUS_PUSHED = 0x10,
};

/// Extended style bits. The move, size and group bits are kept for the application.
enum DUIEXSTYLE : DWORD {
    DUIEXSTYLE_MOVE_X = 0x001,
    DUIEXSTYLE_MOVE_Y = 0x002,
    DUIEXSTYLE_SIZE_X = 0x004,
    DUIEXSTYLE_SIZE_Y = 0x008,
    DUIEXSTYLE_GROUP = 0x010,
    DUIEXSTYLE_DOCK_LEFT = 0x100,
    DUIEXSTYLE_DOCK_RIGHT = 0x200,
    DUIEXSTYLE_DOCK_TOP = 0x400,
    DUIEXSTYLE_DOCK_BOTTOM = 0x800,
};

/// How FindControl walks.
enum DUIFIND : UINT {
    DUIFIND_VISIBLE = 1,
    DUIFIND_ENABLED = 2,
    DUIFIND_HITTEST = 4,
    DUIFIND_ME_FIRST = 8,
};

/// One input event. Coordinates are client coordinates of the host window; wKeyState has the platform's MK_
/// flags, and 0x20 for Alt.
struct tagDUIEvent {
    UINT Type = 0;
    IDUIControl* pSender = nullptr;
    POINT ptMouse{};
    char chKey = 0;
    WORD wKeyState = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};

/// One notification or request.
struct tagDUINotify {
    UINT nCode = 0;
    IDUIControl* pSender = nullptr;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    HWND hWnd = nullptr;
};

/// One control timer; intervals are milliseconds.
struct DUITimerRecord {
    IDUIControl* pOwner = nullptr;
    HWND hWnd = nullptr;
    UINT nTimerID = 0;  // the control's own
    UINT nElapse = 0;
    UINT_PTR nNativeID = 0;
};

class QVUI_API IDUIEventHandler {
public:
    virtual LRESULT OnDUIEvent(const tagDUIEvent& event, BOOL& bHandled) = 0;

protected:
    ~IDUIEventHandler() = default;
};

class QVUI_API IDUINotifyHandler {
public:
    virtual void OnDUINotify(const tagDUINotify& notify, BOOL& bHandled) = 0;

protected:
    ~IDUINotifyHandler() = default;
};

/// What a control sees of the window that hosts it.
class QVUI_API IDUIControlMgr {
public:
    virtual void SendNotify(const tagDUINotify& notify) = 0;
    virtual LRESULT OnControlRequest(tagDUINotify& request) = 0;
    virtual CDUIMessageLoop& GetMessageLoop() = 0;

protected:
    ~IDUIControlMgr() = default;
};

/// Takes a control and the caller's data; a control that it returns ends the walk.
using FindControlProc = IDUIControl* (*)(IDUIControl* control, void* data);

/// A windowless control: a rectangle in its host window's client area that paints itself, receives events,
/// sends notifications and holds an ordered list of children. Controls are counted: a parent owns its
/// children, and pointers that operations return are borrowed. CDUIControlBase says what each operation does.
class QVUI_API IDUIControl : public CDUIObject, public IDUIEventHandler, public IDUINotifyHandler {
public:
    IDUIControl() = default;
    IDUIControl(const IDUIControl&) = default;
    IDUIControl& operator=(const IDUIControl&) = delete;
    ~IDUIControl() override = default;

    virtual void AttachWindow(IDUIControlMgr* pMgr) = 0;
    virtual void DetachWindow() = 0;
    virtual void* GetInterface(const CString& name) = 0;
    virtual CRefPtr<IDUIControl> Clone() = 0;
    virtual BOOL Activate() = 0;
    virtual void SetFocus(BOOL bFocus) = 0;
    virtual void SetText(const CString& text) = 0;
    virtual const CString& GetText() = 0;
    virtual void SetTooltip(const CString& tooltip) = 0;
    virtual const CString& GetTooltip() const = 0;
    virtual void SetShortcut(char shortcut) = 0;
    virtual char GetShortcut() const = 0;
    virtual void SetName(const CString& name) = 0;
    virtual const CString& GetName() const = 0;
    virtual void SetParent(IDUIControl* parent) = 0;
    virtual IDUIControl* GetParent() const = 0;
    virtual void SetControlRect(const RECT& rect) = 0;
    virtual RECT GetControlRect() = 0;
    virtual void SetTextStyle(CRefPtr<CTextStyle> style) = 0;
    virtual CRefPtr<CTextStyle> GetTextStyle() = 0;
    virtual void SetCursor(CRefPtr<CCursorObject> cursor) = 0;
    virtual CRefPtr<CCursorObject> GetCursor() = 0;
    virtual void SetAttribute(const CString& name, const CString& value) = 0;
    virtual void UpdateLayout(BOOL bNeedLayout, RECT* prcInvalid) = 0;
    virtual void ModifyStatus(DWORD remove, DWORD add) = 0;
    virtual DWORD GetStatus() const = 0;
    virtual void ModifyStyle(DWORD remove, DWORD add) = 0;
    virtual DWORD GetStyle() const = 0;
    virtual void ModifyExStyle(DWORD remove, DWORD add) = 0;
    virtual DWORD GetExStyle() const = 0;
    virtual BOOL EstimateSize(SIZE available, SIZE& size) = 0;
    virtual void DoPaint(HDC hdc, const RECT& rcPaint) = 0;
    virtual BOOL SetTimer(UINT id, UINT elapse) = 0;
    virtual void KillTimer(UINT id) = 0;
    virtual void SubclassControl(IDUIControl* pTarget, BOOL bSubclass) = 0;
    virtual IDUIControl* FindControl(FindControlProc proc, void* pData, UINT flags) = 0;
    virtual void BroadcastEvent(const tagDUIEvent& event) = 0;
    virtual BOOL IsVisible(BOOL bCheckParents) const = 0;
    virtual BOOL IsEnabled() const = 0;
    virtual void SetEnable(BOOL bEnable) = 0;
    virtual void OnSkinChanged() = 0;
    virtual void SetUserData(DWORD data) = 0;
    virtual DWORD GetUserData() const = 0;
    virtual void SetVisible(BOOL bVisible) = 0;
    virtual void OnParentVisibleStatusChange(BOOL) {}
    virtual BOOL AddControl(CRefPtr<IDUIControl> child) = 0;
    virtual BOOL RemoveControl(CRefPtr<IDUIControl> child) = 0;
    virtual int GetControlCount() const = 0;
    virtual IDUIControl* GetControlByIndex(int index) const = 0;
    virtual void RemoveAllControl() = 0;
    virtual BOOL AddControlAt(int index, CRefPtr<IDUIControl> child) = 0;
    virtual BOOL RemoveControlAt(int index) = 0;
    virtual int GetControlIndex(CRefPtr<IDUIControl> child) = 0;
    virtual BOOL SetControlIndex(CRefPtr<IDUIControl> child, int index) = 0;
    virtual void SetMargin(RECT margin) = 0;
    virtual RECT GetMargin() = 0;
    virtual void SetPaddingWidth(int width) = 0;
    virtual int GetPaddingWidth() = 0;
    virtual void SetFixedWidth(int width) = 0;
    virtual void SetFixedHeight(int height) = 0;
    virtual SIZE GetFixedSize() = 0;
};

/// The modifier and button state of this moment, in wKeyState's flags.
QVUI_API WORD DUIKeyState();

}  // namespace DUI
