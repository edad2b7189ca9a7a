#pragma once

#include <memory>
#include <vector>

#include <qvui/foundation/weak_ptr.h>
#include <qvui/framework/attribute_table.h>
#include <qvui/framework/control.h>

namespace DUI {

class CDUIHorizontalSB;
class CDUIVerticalSB;

/// The implementation that every control derives from.
///
/// Skin attributes: position, text, tooltip, shortcut, name, visible, transparent, enable, tab_stop, margin,
/// padding, width, height, text_style, cursor, stretch, dock_style, user_data, control_style.
/// Notifications: DUINOTIFY_CREATED when the control is attached to a window, DUINOTIFY_DESTROYED when it is
/// detached; a control gets its own first (OnCreate, OnDestroy). On attaching and detaching, children come
/// before their parent. Handlers may add, remove and move children meanwhile: what is done to every child is
/// done once, in index order, to each of those that were there when it began and are still there when their
/// turn comes. A control is told of its end only after it was told of its creation.
///
/// Rectangles are client coordinates of the host window, in pixels. What needs a window or a skin manager
/// does nothing without one. A copy takes the source's user data with its other fields.
class QVUI_API CDUIControlBase : public IDUIControl {
public:
    CDUIControlBase() = default;
    ~CDUIControlBase() override;
    /// What tools and GetInterface know of this class.
    static const ControlClass& Class();

    // IDUIControl
    void AttachWindow(IDUIControlMgr* pMgr) override;
    void DetachWindow() override;
    void* GetInterface(const CString& name) override;
    CRefPtr<IDUIControl> Clone() override;
    /// TRUE when visible (own flag only) and enabled.
    BOOL Activate() override;
    void SetFocus(BOOL bFocus) override;
    /// A text that differs from the stored one in letter case only is not stored.
    void SetText(const CString& text) override;
    const CString& GetText() override { return m_strText; }
    void SetTooltip(const CString& tooltip) override { MakeExtras().tooltip = tooltip; }
    const CString& GetTooltip() const override { return GetExtras().tooltip; }
    void SetShortcut(char shortcut) override { MakeExtras().shortcut = shortcut; }
    char GetShortcut() const override { return GetExtras().shortcut; }
    void SetName(const CString& name) override { m_strName = name; }
    const CString& GetName() const override { return m_strName; }
    void SetParent(IDUIControl* parent) override { m_pParent = parent; }
    IDUIControl* GetParent() const override { return m_pParent; }
    /// The first child gets the content rectangle.
    void SetControlRect(const RECT& rect) override;
    RECT GetControlRect() override { return m_rcControl; }
    void SetTextStyle(CRefPtr<CTextStyle> style) override;
    /// Without one set, the skin's default text style, kept from then on.
    CRefPtr<CTextStyle> GetTextStyle() override;
    void SetCursor(CRefPtr<CCursorObject> cursor) override;
    CRefPtr<CCursorObject> GetCursor() override;
    void SetAttribute(const CString& name, const CString& value) override;
    /// Asks the window for a repaint of `prcInvalid`, or of the control when null, after a new layout when
    /// asked.
    void UpdateLayout(BOOL bNeedLayout, RECT* prcInvalid) override;
    void ModifyStatus(DWORD remove, DWORD add) override;
    DWORD GetStatus() const override { return m_dwStatus; }
    void ModifyStyle(DWORD remove, DWORD add) override;
    DWORD GetStyle() const override { return m_dwStyle; }
    void ModifyExStyle(DWORD remove, DWORD add) override;
    DWORD GetExStyle() const override { return m_dwExStyle; }
    /// The fixed size; TRUE.
    BOOL EstimateSize(SIZE available, SIZE& size) override;
    /// Background, foreground, text and border, then the children and scroll bars within the content
    /// rectangle.
    void DoPaint(HDC hdc, const RECT& rcPaint) override;
    /// Milliseconds; FALSE when not attached or when the id runs already.
    BOOL SetTimer(UINT id, UINT elapse) override;
    void KillTimer(UINT id) override;
    /// Whether the timer runs.
    BOOL HasTimer(UINT id);
    /// Lets this control see the target's events first, or no longer.
    void SubclassControl(IDUIControl* pTarget, BOOL bSubclass) override;
    IDUIControl* FindControl(FindControlProc proc, void* pData, UINT flags) override;
    void BroadcastEvent(const tagDUIEvent& event) override;
    BOOL IsVisible(BOOL bCheckParents) const override;
    BOOL IsEnabled() const override { return (m_dwStatus & DUISTATUS_DISABLED) == 0; }
    /// Disabling ends a press, too: the control is not pushed any more.
    void SetEnable(BOOL bEnable) override;
    /// Applies the control style again, here and in all children.
    void OnSkinChanged() override;
    void SetUserData(DWORD data) override { MakeExtras().userData = data; }
    DWORD GetUserData() const override { return GetExtras().userData; }
    void SetVisible(BOOL bVisible) override;
    void OnParentVisibleStatusChange(BOOL bVisible) override;
    /// FALSE for a null child, one that is here already, and one that would hold itself. A child of another
    /// parent leaves it first: a control has one parent.
    BOOL AddControl(CRefPtr<IDUIControl> child) override;
    /// TRUE also for a control that is no child.
    BOOL RemoveControl(CRefPtr<IDUIControl> child) override;
    int GetControlCount() const override { return static_cast<int>(m_children.size()); }
    IDUIControl* GetControlByIndex(int index) const override;
    void RemoveAllControl() override;
    /// FALSE for an index that is not below the count; the child then keeps the parent it had.
    BOOL AddControlAt(int index, CRefPtr<IDUIControl> child) override;
    BOOL RemoveControlAt(int index) override;
    int GetControlIndex(CRefPtr<IDUIControl> child) override;
    /// Removes the child and adds it at the index, with both notifications. Focus, press, timers and the name
    /// that the window keeps for it and its children survive, unless the index is refused: then the child
    /// stays removed.
    BOOL SetControlIndex(CRefPtr<IDUIControl> child, int index) override;
    void SetMargin(RECT margin) override;
    RECT GetMargin() override { return m_rcMargin; }
    void SetPaddingWidth(int width) override;
    int GetPaddingWidth() override { return m_nPaddingWidth; }
    void SetFixedWidth(int width) override;
    void SetFixedHeight(int height) override;
    SIZE GetFixedSize() override { return m_szFixed; }

    // Hooks of control classes, after those of IDUIControl.
    virtual CDUIVerticalSB* GetVerticalSB() { return nullptr; }
    virtual CDUIHorizontalSB* GetHorizontalSB() { return nullptr; }
    /// Pixels per line step and wheel notch.
    virtual int GetScrollLineStep() { return 100; }

protected:
    virtual void OnCreate() {}
    virtual void OnDestroy();
    virtual void OnTimer(int) {}
    virtual LRESULT PreTranslateEvent(const tagDUIEvent& event, BOOL& bHandled);
    virtual LRESULT ProcessEvent(const tagDUIEvent& event, BOOL& bHandled);
    virtual void PaintBkgnd(HDC) {}
    virtual void PaintForgnd(HDC) {}
    virtual void PaintText(HDC) {}
    virtual void PaintBorder(HDC) {}
    virtual BOOL BeforeAddControl(CRefPtr<IDUIControl> child);
    virtual void AfterAddControl(CRefPtr<IDUIControl> child);
    virtual void BeforeRemoveControl(CRefPtr<IDUIControl>) {}
    virtual void AfterRemoveControl(CRefPtr<IDUIControl> child);

public:
    // IDUIEventHandler, IDUINotifyHandler
    LRESULT OnDUIEvent(const tagDUIEvent& event, BOOL& bHandled) override;
    void OnDUINotify(const tagDUINotify& notify, BOOL& bHandled) override;

    BOOL GetFocus() const { return (m_dwStatus & DUISTATUS_FOCUSED) != 0; }
    IDUIControl* GetFocusControl();
    /// The child after or before `child`, null past the end; a control that is no child counts as index -1.
    IDUIControl* GetNextSiblingControl(CRefPtr<IDUIControl> child);
    IDUIControl* GetPrevSiblingControl(CRefPtr<IDUIControl> child);
    /// The control rectangle less the margin; empty at its top left when nothing is left.
    RECT GetContentRect();
    HWND GetManagerWnd(BOOL bTopLevel);
    DWORD GetManagerWndStatus();
    void LockLayout(BOOL bLock);
    /// A control of the whole window, by name or by point.
    IDUIControl* GetSiblingControl(const CString& name);
    IDUIControl* GetSiblingControl(POINT point);
    /// `pSender` null means this control. FALSE when not attached.
    BOOL SendNotify(UINT code, WPARAM wParam, LPARAM lParam, IDUIControl* pSender = nullptr);
    BOOL SendNotify(const tagDUINotify& notify);
    /// Sets every attribute of a control style of the skin, and remembers the name for skin changes.
    BOOL ApplyControlStyle(const CString& name);

    /// Hands the size of the content to the scroll bar, which shows, hides or updates itself; TRUE when it
    /// was shown or hidden. `nExtra` is added to the range.
    int ProcessVerticalSB(RECT rcView, int nContent, int nExtra);
    int ProcessHorizontalSB(RECT rcView, int nContent, int nExtra);
    void OnVertialSBEvent(const tagDUIEvent& event);
    void OnHorizontalSBEvent(const tagDUIEvent& event);
    /// Scrolls the innermost container below the pointer that can still scroll in the wheel's direction, and
    /// only without one this control itself: a list inside a page that scrolls has the wheel first and hands
    /// it on at its end, so that what is below the pointer moves.
    void OnMouseWheel(const tagDUIEvent& event);

    /// In order; a reference to the list itself, which adding and removing change.
    const std::vector<CRefPtr<IDUIControl>>& GetChildren() const { return m_children; }
    /// The window manager while attached, borrowed.
    IDUIControlMgr* GetControlMgr() const { return m_pMgr; }
    /// For a window manager at its end: detaches at once what is still attached of the controls that are
    /// being detached from it.
    static void FinishDetaching(const IDUIControlMgr& manager);
    /// Whether this is attached to a window manager and not being detached: children that are added now are
    /// attached, too.
    bool IsAttached() const
    {
        return m_attachment == Attachment::Joining || m_attachment == Attachment::Joined;
    }

protected:
    CDUIControlBase(const CDUIControlBase& other);
    CDUIControlBase& operator=(const CDUIControlBase&) = delete;

    CRefPtr<IDUIControl> ChildAt(std::size_t index) const { return m_children[index]; }
    /// Style bits that mean something to the control's class alone, kept among those that layouts read.
    DWORD GetClassStyle() const { return m_dwClassStyle; }
    void SetClassStyle(DWORD style) { m_dwClassStyle = style; }
    /// A content's size with the margin around it, and in each direction the fixed size instead where it is
    /// set.
    SIZE OuterSize(LONGLONG width, LONGLONG height) const;
    /// The extent of the control's text on one line in the normal font of its text style, in pixels; 0 by 0
    /// without a font. It is remembered, since layouts ask at every pass, until the text, the font or the
    /// format (DT_ flags) is another.
    SIZE MeasureText(UINT format);
    /// What SetControlRect begins with in a class that places its children itself.
    void StoreControlRect(const RECT& rect) { m_rcControl = rect; }

private:
    /// Where a control is between being attached and being detached.
    enum class Attachment : unsigned char { None, Joining, Joined, Leaving };
    class MoveScope;
    class LeaveScope;

    LRESULT Request(UINT code, WPARAM wParam, LPARAM lParam, IDUIControl* pSender = nullptr);
    bool IsChild(const IDUIControl* child) const;
    /// Whether `other` is this control or one of its ancestors.
    bool IsInside(const IDUIControl* other) const;
    template <class Call>
    void ForEachChild(Call call);

    // Rarely used fields, allocated on first write.
    struct Extras {
        CString tooltip;
        CString controlStyle;
        CRefPtr<CCursorObject> cursor;
        CWeakPtr<IDUIControl> subclass;
        DWORD userData = 0;
        char shortcut = 0;
    };
    static const Extras kNoExtras;
    // How often a child was added to any control. While it stays the same, no child was attached by being
    // added.
    static unsigned s_nAdditions;
    const Extras& GetExtras() const { return m_pExtras ? *m_pExtras : kNoExtras; }
    Extras& MakeExtras();

    struct TextExtent {
        unsigned fontVersion = 0;
        UINT format = 0;
        SIZE size{0, 0};
    };

    // What a layout pass touches comes first and close together: a window may hold very many controls, and
    // two cache lines of each stay in the processor where three do not.
    DWORD m_dwStyle = DUISTYLE_VISIBLE;
    DWORD m_dwClassStyle = 0;
    IDUIControlMgr* m_pMgr = nullptr;
    RECT m_rcControl{0, 0, 0, 0};
    RECT m_rcMargin{0, 0, 0, 0};
    SIZE m_szFixed{0, 0};
    CRefPtr<CTextStyle> m_pTextStyle;
    TextExtent m_textExtent;  // of m_strText
    std::vector<CRefPtr<IDUIControl>> m_children;

    DWORD m_dwExStyle = 0;
    DWORD m_dwStatus = 0;
    int m_nPaddingWidth = 0;
    Attachment m_attachment = Attachment::None;
    bool m_isAnnounced = false;  // whether DUINOTIFY_CREATED was sent, and DUINOTIFY_DESTROYED not yet
    IDUIControl* m_pParent = nullptr;
    std::unique_ptr<Extras> m_pExtras;  // null until one of them is set
    CString m_strText;
    CString m_strName;
};

/// A control that answers the interface name, as its class; null for a null control too.
template <class Control>
Control* InterfaceOf(IDUIControl* control, const char* name)
{
    return control ? static_cast<Control*>(control->GetInterface(name)) : nullptr;
}

}  // namespace DUI
