#include <qvui/framework/window/window_mgr.h>

#include <qvui/foundation/trace.h>
#include <qvui/framework/app.h>
#include <qvui/render/render_engine.h>

#include "foundation/rect.h"
#include "framework/window/window_parts.h"
#include "skin/skin_access.h"

namespace DUI {
namespace {

constexpr WordBit kStyleWords[] = {{"layered", DUINCSTYLE_LAYERED},
                                   {"custom_nc", DUINCSTYLE_CUSTOM_NC},
                                   {"region_nc", DUINCSTYLE_REGION_NC},
                                   {"size_nc", DUINCSTYLE_SIZE_NC}};
constexpr int kMostLayoutPasses = 16;

// For a root that another window has, or has handed out; the handlers of its end there may do anything.
void LeaveOtherWindow(IDUIControl* root, const IDUIControlMgr& manager)
{
    auto* const control = InterfaceOf<CDUIControlBase>(root, "control_base");
    if (control && control->GetControlMgr() && control->GetControlMgr() != &manager)
        control->DetachWindow();
}

}  // namespace

const AttributeList& CDUIWindowMgr::WindowAttributes()
{
    using Manager = CDUIWindowMgr;
    static const AttributeTable<Manager> table{
        {"frame_style", AttributeKind::FrameStyle, "What is painted behind all controls.",
         &Manager::SetFrameBkgnd},
        {"client_margin",
         {AttributeKind::Rect, "0,0,0,0"},
         "Space between the frame and the root control.",
         &Manager::SetClientRectMargin},
        {"nc_style",
         {AttributeKind::Keywords, "", "layered|custom_nc|region_nc|size_nc"},
         "How the window's frame behaves; words add to those set before.",
         [](Manager& manager, const CString& value) {
             manager.SetDUIStyle(0, FindWords(value, kStyleWords));
         }},
        {"caption_height",
         {AttributeKind::Integer, "0"},
         "Height of the part at the top by which a window with custom_nc is dragged, in pixels.",
         &Manager::SetCaptionHeight},
        {"name", AttributeKind::Text, "The template's name."},
    };
    return table;
}

CDUIWindowMgr::CDUIWindowMgr() : m_parts(std::make_unique<WindowParts>(*this))
{
}

CDUIWindowMgr::~CDUIWindowMgr()
{
    m_isEnding = true;
    // Giving the mouse back would be told to a window procedure that works on this object.
    m_parts->pointer.ForgetMouse();
    FinishWindowMgr();
    m_parts->handlers.Clear();
    CDUIControlBase::FinishDetaching(*this);
}

// --- creating and finishing --------------------------------------------------------------------------------

BOOL CDUIWindowMgr::CreateFromResource(const CString& name, HWND hWnd, RECT& rc)
{
    const CRefPtr<IDUIControl> root = CDUIControlBuilder(this).CreateFromResource(name);
    m_rcWindow = root.IsNull() ? m_rcWindow : rc;
    return AdoptRoot(root, hWnd);
}

BOOL CDUIWindowMgr::CreateFromXML(const CString& xml, HWND hWnd, RECT& rc)
{
    const CRefPtr<IDUIControl> root = CDUIControlBuilder(this).CreateFromXML(xml);
    m_rcWindow = root.IsNull() ? m_rcWindow : rc;
    return AdoptRoot(root, hWnd);
}

BOOL CDUIWindowMgr::CreateFromRootControl(CRefPtr<IDUIControl> root, HWND hWnd, RECT&)
{
    return !root.IsNull() && AdoptRoot(root, hWnd);
}

BOOL CDUIWindowMgr::AdoptRoot(CRefPtr<IDUIControl> root, HWND hWnd)
{
    // Released at the very end: its destructor may end the manager.
    const CRefPtr<IDUIControl> previous = m_parts->host.root;
    // A tree that is still attached must not keep a manager that no longer knows it.
    if (m_isEnding || (previous != root && !DetachTree()))
        return FALSE;
    const Target alive(m_parts->host.calls, nullptr);
    const unsigned before = m_nTrees;
    LeaveOtherWindow(root.GetPtr(), *this);
    if (!alive.IsManagerAlive() || before != m_nTrees)
        return FALSE;
    ++m_nTrees;
    m_parts->host.root = root;
    m_bLayoutLocked = FALSE;
    m_parts->moves.Clear();
    m_parts->lookup.Clear();
    if (!GetRootControl())
        return FALSE;
    m_parts->host.handle = hWnd;
    // A manager that was deleted during a press leaves the capture to its successor.
    m_parts->pointer.TakeOverMouse();
    const unsigned tree = m_nTrees;
    LayoutRootControl();
    return alive.IsManagerAlive() && tree == m_nTrees;
}

bool CDUIWindowMgr::DetachTree()
{
    // Another window may have taken the root meanwhile.
    const auto* const control = InterfaceOf<CDUIControlBase>(GetRootControl(), "control_base");
    if (control && control->GetControlMgr() != this)
        m_isAttached = false;
    if (!m_isAttached)
        return true;
    const unsigned tree = m_nTrees;
    // The flag stays until the end: whoever is called meanwhile and ends the tree, too, must do what is left.
    const Target root(m_parts->host.calls, GetRootControl());
    root->DetachWindow();
    if (!root.IsManagerAlive() || tree != m_nTrees)
        return false;
    m_isAttached = false;
    return true;
}

void CDUIWindowMgr::InitWindowMgr()
{
    if (m_isEnding)
        return;
    if (IDUISkinMgr* const manager = skin::Manager()) {
        manager->AddSkinObserver(this);
        m_isSkinObserver = true;
    }
    ForgetPointers();
    m_parts->host.pointer = {-1, -1};
    if (GetRootControl()) {
        m_isAttached = true;
        const unsigned tree = m_nTrees;
        Target root(m_parts->host.calls, GetRootControl());
        LeaveOtherWindow(root.Get(), *this);
        if (!root.IsManagerAlive() || tree != m_nTrees)
            return;
        root->AttachWindow(this);
        // A handler may have finished this tree, or started another one.
        if (!root.IsManagerAlive() || tree != m_nTrees)
            return;
        // Scroll bars that containers made when they were attached get their places.
        LayoutRootControl();
        if (!root.IsManagerAlive() || tree != m_nTrees)
            return;
    }
    if (IsWindow())
        m_parts->toolTip.Create();
}

void CDUIWindowMgr::FinishWindowMgr()
{
    // The skin manager may be gone already when a window outlives the application's skin.
    if (IDUISkinMgr* const manager = m_isSkinObserver ? skin::Manager() : nullptr)
        manager->RemoveSkinObserver(this);
    m_isSkinObserver = false;
    m_parts->lookup.Clear();
    // Released at the very end: its destructor may end the manager.
    const CRefPtr<IDUIControl> root = m_parts->host.root;
    if (!DetachTree())
        return;
    const Target alive(m_parts->host.calls, nullptr);
    const unsigned tree = m_nTrees;
    m_parts->pointer.ReleaseMouse();
    if (!alive.IsManagerAlive() || tree != m_nTrees)
        return;
    ++m_nTrees;
    m_parts->host.root = nullptr;
    ForgetPointers();
    m_parts->pointer.StopTracking();
    m_bLayoutLocked = FALSE;
    m_parts->moves.Clear();
    m_parts->timers.RemoveAll();
    m_parts->toolTip.Destroy();
}

CRefPtr<IDUIControl> CDUIWindowMgr::DetachRootControl()
{
    CRefPtr<IDUIControl> root = m_parts->host.root;
    ++m_nTrees;
    m_parts->host.root = nullptr;
    m_isAttached = false;
    ForgetPointers();
    return root;
}

void CDUIWindowMgr::ForgetPointers()
{
    m_parts->pointer.Clear();
    m_parts->focus.Clear();
    m_parts->lookup.Clear();
}

void CDUIWindowMgr::ForgetPointers(const IDUIControl* control)
{
    m_parts->pointer.ForgetHover(control);
    if (m_parts->moves.Holds(control))
        return;
    m_parts->pointer.ForgetPress(control);
    m_parts->focus.Forget(control);
}

void CDUIWindowMgr::Forget(const IDUIControl* control)
{
    ForgetPointers(control);
    if (m_parts->moves.Holds(control)) {
        m_parts->moves.Leave(control);
        return;
    }
    // A move below a control that leaves is over.
    for (const CWeakPtr<IDUIControl>& move : m_parts->moves.Below(control))
        EndMove(move);
    m_parts->host.calls.Forget(control);
    m_parts->lookup.Forget(control);
    m_parts->timers.RemoveOf(control);
}

void CDUIWindowMgr::EndMove(const IDUIControl* control)
{
    for (const IDUIControl* const away : m_parts->moves.End(control))
        Forget(away);
}

CRefPtr<IDUIControl> CDUIWindowMgr::OnBuilderNewControl(const CString&)
{
    return nullptr;
}

void CDUIWindowMgr::OnBuilderControlCreated(CRefPtr<IDUIControl>)
{
}

void CDUIWindowMgr::OnBuilderWindowAttribute(const CString& name, const CString& value)
{
    static_cast<const AttributeTable<CDUIWindowMgr>&>(WindowAttributes()).Apply(*this, name, value);
}

// --- the window --------------------------------------------------------------------------------------------

HWND CDUIWindowMgr::GetHWND() const
{
    return m_parts->host.handle;
}

BOOL CDUIWindowMgr::IsWindow() const
{
    return m_parts->host.IsWindow();
}

IDUIControl* CDUIWindowMgr::GetRootControl() const
{
    return m_parts->host.root.GetPtr();
}

DWORD CDUIWindowMgr::GetStyle() const
{
    return IsWindow() ? static_cast<DWORD>(GetWindowLongA(GetHWND(), GWL_STYLE)) : 0;
}

DWORD CDUIWindowMgr::GetExStyle() const
{
    return IsWindow() ? static_cast<DWORD>(GetWindowLongA(GetHWND(), GWL_EXSTYLE)) : 0;
}

HWND CDUIWindowMgr::GetMostTopParent() const
{
    HWND parent = IsWindow() ? GetParent(GetHWND()) : nullptr;
    while (parent && (GetWindowLongA(parent, GWL_STYLE) & static_cast<LONG>(WS_CHILD)))
        parent = GetParent(parent);
    return parent;
}

DWORD CDUIWindowMgr::GetMostTopParentStatus()
{
    const HWND window = GetMostTopParent();
    if (!window)
        return 0;
    DWORD status = IsIconic(window) ? 1 : IsZoomed(window) ? 2 : 4;
    if (!IsWindowVisible(window))
        status |= 0x08;
    if (!IsWindowEnabled(window))
        status |= 0x10;
    if (IsNcActivate())
        status |= 0x20;
    return status;
}

BOOL CDUIWindowMgr::IsNcActivate()
{
    const HWND window = GetMostTopParent();
    return window && GetActiveWindow() == window;
}

DWORD CDUIWindowMgr::SetDUIStyle(DWORD remove, DWORD add)
{
    const DWORD style = (m_dwDUIStyle & ~remove) | add;
    if (style != m_dwDUIStyle) {
        m_dwDUIStyle = style;
        CheckDUIStyle();
    }
    return m_dwDUIStyle;
}

void CDUIWindowMgr::CheckDUIStyle()
{
    if (IsDUICustomNC() && HasCaption())
        Invalidate(TRUE);
}

BOOL CDUIWindowMgr::GetDUIClientRect(RECT* prc)
{
    RECT client{};
    if (!IsWindow() || !prc || !GetClientRect(GetHWND(), &client))
        return FALSE;
    if (!m_pFrameBK.IsNull() && !m_pFrameBK->IsEmpty())
        client = geometry::Shrink(client, m_pFrameBK->GetFrameBorder());
    client = geometry::Shrink(client, m_rcClientMargin);
    if (IsRectEmpty(&client))
        client = {client.left, client.top, client.left, client.top};
    *prc = client;
    return TRUE;
}

void CDUIWindowMgr::LayoutRootControl()
{
    // A layout inside a layout is asked for, not run.
    if (m_isLayingOut) {
        m_isRelayoutPending = true;
        return;
    }
    int passes = 0;
    do {
        if (++passes > kMostLayoutPasses) {
            CTrace::TraceWarning("CDUIWindowMgr::LayoutRootControl: %d layouts have each asked for another",
                                 kMostLayoutPasses);
            m_isRelayoutPending = false;
            return;
        }
        m_isRelayoutPending = false;
        RECT client{};
        if (!GetRootControl() || !GetDUIClientRect(&client))
            return;
        Target root(m_parts->host.calls, GetRootControl());
        m_isLayingOut = true;
        root->SetControlRect(client);
        if (!root.IsManagerAlive())
            return;
        m_isLayingOut = false;
    } while (m_isRelayoutPending);
}

LRESULT CDUIWindowMgr::OnSize(UINT, WPARAM wParam, LPARAM lParam, BOOL& bHandled)
{
    bHandled = FALSE;
    if (!Broadcast(DUIEVENT_WINDOWSIZE, wParam, lParam))
        return 0;
    if (IsWindow() && !IsIconic(GetHWND())) {
        const Target alive(m_parts->host.calls, nullptr);
        LayoutRootControl();
        if (!alive.IsManagerAlive())
            return 0;
        Invalidate(TRUE);
    }
    m_parts->toolTip.OnSize();
    return 0;
}

LRESULT CDUIWindowMgr::OnMove(UINT, WPARAM wParam, LPARAM lParam, BOOL& bHandled)
{
    bHandled = FALSE;
    Broadcast(DUIEVENT_WINDOWMOVE, wParam, lParam);
    return 0;
}

bool CDUIWindowMgr::Broadcast(UINT type, WPARAM wParam, LPARAM lParam)
{
    if (!GetRootControl())
        return true;
    Target root(m_parts->host.calls, GetRootControl());
    root->BroadcastEvent(
        tagDUIEvent{type, root.Get(), m_parts->host.pointer, 0, DUIKeyState(), wParam, lParam});
    return root.IsManagerAlive();
}

LRESULT CDUIWindowMgr::OnNcActivate(UINT, WPARAM wParam, LPARAM, BOOL& bHandled)
{
    if (HasCaption() || IsIconic(GetHWND())) {
        bHandled = FALSE;
        return 0;
    }
    return wParam == 0;
}

void CDUIWindowMgr::OnSkinUIDataChanged()
{
    if (GetRootControl()) {
        Target root(m_parts->host.calls, GetRootControl());
        root->OnSkinChanged();
        if (!root.IsManagerAlive())
            return;
    }
    if (IsWindow()) {
        Invalidate(TRUE);
        UpdateWindow(GetHWND());
    }
}

// --- painting ----------------------------------------------------------------------------------------------

BOOL CDUIWindowMgr::Invalidate(BOOL bErase)
{
    RECT client{};
    if (IsWindow() && GetClientRect(GetHWND(), &client) && !IsRectEmpty(&client))
        InvalidateRect(&client, bErase);
    return TRUE;
}

BOOL CDUIWindowMgr::InvalidateRect(const RECT* rect, BOOL bErase)
{
    if (IsWindow()) {
        ::InvalidateRect(GetHWND(), rect, bErase);
        if (GetExStyle() & WS_EX_LAYERED)
            PostMessageA(GetHWND(), WM_PAINT, 0, 0);
    }
    return TRUE;
}

void CDUIWindowMgr::InvalidateRgn(HRGN region, BOOL)
{
    if (!IsWindow())
        return;
    ::InvalidateRgn(GetHWND(), region, FALSE);
    if (GetExStyle() & WS_EX_LAYERED)
        PostMessageA(GetHWND(), WM_PAINT, 0, 0);
}

LRESULT CDUIWindowMgr::OnPaint(UINT, WPARAM, LPARAM, BOOL&)
{
    const CTimeCostDebug cost("CDUIWindowBase::OnPaint");
    PAINTSTRUCT paint{};
    const HWND hWnd = GetHWND();
    if (const HDC hdc = BeginPaint(hWnd, &paint)) {
        DoPaint(hdc);
        EndPaint(hWnd, &paint);
    }
    return 0;
}

LRESULT CDUIWindowMgr::OnEraseBkgnd(UINT, WPARAM, LPARAM, BOOL& bHandled)
{
    bHandled = TRUE;
    return 0;
}

void CDUIWindowMgr::DoPaint(HDC hdc)
{
    RECT client{};
    if (!IsWindow() || !GetClientRect(GetHWND(), &client))
        return;
    BackBuffer::Paint paint(m_parts->backBuffer, hdc, client);
    if (!paint.Context())
        return;
    const Target alive(m_parts->host.calls, nullptr);
    PaintFrameBkgnd(paint.Context());
    if (alive.IsManagerAlive())
        PaintClientArea(paint.Context());
    paint.CopyToTarget();
}

void CDUIWindowMgr::PaintFrameBkgnd(HDC hdc)
{
    RECT client{};
    if (!m_pFrameBK.IsNull() && !m_pFrameBK->IsEmpty() && IsWindow() && GetClientRect(GetHWND(), &client))
        m_pFrameBK->DrawBK(hdc, client);
}

void CDUIWindowMgr::PaintClientArea(HDC hdc)
{
    RECT rcPaint{};
    RECT client{};
    GetClipBox(hdc, &rcPaint);
    if (!GetRootControl() || !GetDUIClientRect(&client))
        return;
    const CDUIRenderClip clip(hdc, client);
    const CRefPtr<IDUIControl> root = m_parts->host.root;
    root->DoPaint(hdc, rcPaint);
}

// --- controls ----------------------------------------------------------------------------------------------

IDUIControl* CDUIWindowMgr::FindControl(POINT* pt)
{
    return FindControl(pt, DUIFIND_VISIBLE | DUIFIND_HITTEST);
}

IDUIControl* CDUIWindowMgr::FindControl(POINT* pt, UINT flags)
{
    return pt ? m_parts->host.FindAt(*pt, flags) : nullptr;
}

BOOL CDUIWindowMgr::IsTrasparentCtrl(IDUIControl* control)
{
    return !control || PointerRouter::IsLayoutContainer(control) || control->GetInterface("picturebox");
}

IDUIControl* CDUIWindowMgr::GetFocusControl() const
{
    return m_parts->focus.Get();
}

IDUIControl* CDUIWindowMgr::GetControlByName(const CString& name, BOOL bRefresh)
{
    return m_parts->lookup.ByName(name, bRefresh != FALSE);
}

IDUIControl* CDUIWindowMgr::GetControlByShortcut(char ch)
{
    return m_parts->lookup.ByShortcut(ch);
}

IDUIControl* CDUIWindowMgr::GetControlByInterface(const char* name)
{
    return m_parts->lookup.ByInterface(name);
}

BOOL CDUIWindowMgr::SetControlAttribute(const CString& name, const CString& attribute, const CString& value,
                                        BOOL bRefresh)
{
    IDUIControl* const control = GetControlByName(name, bRefresh);
    if (control)
        control->SetAttribute(attribute, value);
    return control != nullptr;
}

BOOL CDUIWindowMgr::EnableControl(const CString& name, BOOL bEnable)
{
    IDUIControl* const control = GetControlByName(name, FALSE);
    if (control)
        control->SetEnable(bEnable);
    return control != nullptr;
}

BOOL CDUIWindowMgr::ShowControl(const CString& name, BOOL bShow)
{
    IDUIControl* const control = GetControlByName(name, FALSE);
    if (control)
        control->SetVisible(bShow);
    return control != nullptr;
}

BOOL CDUIWindowMgr::SetContrlText(const CString& name, const CString& text)
{
    IDUIControl* const control = GetControlByName(name, FALSE);
    if (control)
        control->SetText(text);
    return control != nullptr;
}

CString CDUIWindowMgr::GetContrlText(const CString& name)
{
    IDUIControl* const control = GetControlByName(name, FALSE);
    return control ? control->GetText() : CString();
}

}  // namespace DUI
