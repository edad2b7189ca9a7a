#include <qvui/framework/window/window_mgr.h>

#include <utility>

#include <qvui/foundation/trace.h>
#include <qvui/framework/app.h>
#include <qvui/render/render_engine.h>
#include <qvui/tooltip/tool_tip.h>

#include "framework/geometry.h"
#include "framework/window/target.h"
#include "skin/skin_access.h"

// Creating, finishing, laying out and painting; input and requests have their own sources.

namespace DUI {
namespace {

constexpr WordBit kStyleWords[] = {{"layered", DUINCSTYLE_LAYERED},
                                   {"custom_nc", DUINCSTYLE_CUSTOM_NC},
                                   {"region_nc", DUINCSTYLE_REGION_NC},
                                   {"size_nc", DUINCSTYLE_SIZE_NC}};
constexpr UINT_PTR kClientTool = 1;
constexpr int kMostLayoutPasses = 16;

int Width(const RECT& rect)
{
    return rect.right - rect.left;
}
int Height(const RECT& rect)
{
    return rect.bottom - rect.top;
}

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
         [](Manager& manager, const CString& value) { manager.SetFrameBkgnd(skin::Frame(value)); }},
        {"client_margin",
         {AttributeKind::Rect, "0,0,0,0"},
         "Space between the frame and the root control.",
         [](Manager& manager, const CString& value) { manager.SetClientRectMargin(ReadRect(value)); }},
        {"nc_style",
         {AttributeKind::Keywords, "", "layered|custom_nc|region_nc|size_nc"},
         "How the window's frame behaves; words add to those set before.",
         [](Manager& manager, const CString& value) {
             manager.SetDUIStyle(0, FindWords(value, kStyleWords));
         }},
        {"caption_height",
         {AttributeKind::Integer, "0"},
         "Height of the part at the top by which a window with custom_nc is dragged, in pixels.",
         [](Manager& manager, const CString& value) { manager.SetCaptionHeight(ReadInteger(value)); }},
        {"name", AttributeKind::Text, "The template's name.", [](Manager&, const CString&) {}},
    };
    return table;
}

CDUIWindowMgr::CDUIWindowMgr() = default;

CDUIWindowMgr::~CDUIWindowMgr()
{
    m_isEnding = true;
    m_holdsMouse = false;  // to let go of it would be told to a window procedure that works on this object
    FinishWindowMgr();
    ForgetAllHandlers();
    CDUIControlBase::FinishDetaching(*this);
    for (Target* target : m_targets)
        target->LoseManager();
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
    const CRefPtr<IDUIControl> previous = m_pRoot;
    // A tree that is still attached must not keep a manager that no longer knows it.
    if (m_isEnding || (previous != root && !DetachTree()))
        return FALSE;
    const Target alive(*this, nullptr);
    const unsigned before = m_nTrees;
    LeaveOtherWindow(root.GetPtr(), *this);
    if (!alive.IsManagerAlive() || before != m_nTrees)
        return FALSE;
    ++m_nTrees;
    m_pRoot = root;
    m_bLayoutLocked = FALSE;
    m_moves.clear();
    m_away.clear();
    ForgetNames();
    if (m_pRoot.IsNull())
        return FALSE;
    m_hWnd = hWnd;
    // A manager that was deleted during a press leaves the capture to its successor.
    m_holdsMouse = m_holdsMouse || (IsWindow() && GetCapture() == m_hWnd);
    const unsigned tree = m_nTrees;
    LayoutRootControl();
    return alive.IsManagerAlive() && tree == m_nTrees;
}

bool CDUIWindowMgr::DetachTree()
{
    // Another window may have taken the root meanwhile.
    const auto* const control = InterfaceOf<CDUIControlBase>(m_pRoot.GetPtr(), "control_base");
    if (control && control->GetControlMgr() != this)
        m_isAttached = false;
    if (!m_isAttached)
        return true;
    const unsigned tree = m_nTrees;
    // The flag stays until the end: whoever is called meanwhile and ends the tree, too, must do what is left.
    const Target root(*this, m_pRoot.GetPtr());
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
    m_pCapture = m_pHover = m_pFocus = nullptr;
    m_ptLast = {-1, -1};
    ForgetNames();
    if (!m_pRoot.IsNull()) {
        m_isAttached = true;
        const unsigned tree = m_nTrees;
        Target root(*this, m_pRoot.GetPtr());
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
        CreateTooltip();
}

void CDUIWindowMgr::FinishWindowMgr()
{
    // The skin manager may be gone already when a window outlives the application's skin.
    if (IDUISkinMgr* const manager = m_isSkinObserver ? skin::Manager() : nullptr)
        manager->RemoveSkinObserver(this);
    m_isSkinObserver = false;
    ForgetNames();
    // Released at the very end: its destructor may end the manager.
    const CRefPtr<IDUIControl> root = m_pRoot;
    if (!DetachTree())
        return;
    const Target alive(*this, nullptr);
    const unsigned tree = m_nTrees;
    HoldMouse(false);
    if (!alive.IsManagerAlive() || tree != m_nTrees)
        return;
    ++m_nTrees;
    m_pRoot = nullptr;
    m_pCapture = m_pHover = m_pFocus = nullptr;
    m_bTracking = FALSE;
    m_bLayoutLocked = FALSE;
    m_moves.clear();
    m_away.clear();
    ForgetNames();
    ClearTimer();
    m_pToolTip.reset();
}

CRefPtr<IDUIControl> CDUIWindowMgr::DetachRootControl()
{
    CRefPtr<IDUIControl> root = m_pRoot;
    ++m_nTrees;
    m_pRoot = nullptr;
    m_isAttached = false;
    m_pCapture = m_pHover = m_pFocus = nullptr;
    ForgetNames();
    return root;
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

void CDUIWindowMgr::CreateTooltip()
{
    m_pToolTip = std::make_unique<CPPToolTip>();
    if (!m_pToolTip->Create(m_hWnd))
        return;
    m_pToolTip->SetBkColor(CARGB(169, 209, 236, 255));
    m_pToolTip->SetMargin(5, 5);
    m_pToolTip->SetOffset(5, 10);
    UpdateTooltipTool();
}

// One tool covers the whole client area; what it says is asked for when it shows.
void CDUIWindowMgr::UpdateTooltipTool()
{
    if (!m_pToolTip || !m_pToolTip->GetHWND())
        return;
    RECT client{};
    GetClientRect(m_hWnd, &client);
    m_pToolTip->DelTool(m_hWnd, kClientTool);
    m_pToolTip->AddTool(m_hWnd, "", client, kClientTool);
}

// --- the window --------------------------------------------------------------------------------------------

BOOL CDUIWindowMgr::IsWindow() const
{
    return m_hWnd && ::IsWindow(m_hWnd);
}

DWORD CDUIWindowMgr::GetStyle() const
{
    return IsWindow() ? static_cast<DWORD>(GetWindowLongA(m_hWnd, GWL_STYLE)) : 0;
}

DWORD CDUIWindowMgr::GetExStyle() const
{
    return IsWindow() ? static_cast<DWORD>(GetWindowLongA(m_hWnd, GWL_EXSTYLE)) : 0;
}

HWND CDUIWindowMgr::GetMostTopParent() const
{
    HWND parent = IsWindow() ? GetParent(m_hWnd) : nullptr;
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
    if (!IsWindow() || !prc || !GetClientRect(m_hWnd, &client))
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
        if (m_pRoot.IsNull() || !GetDUIClientRect(&client))
            return;
        Target root(*this, m_pRoot.GetPtr());
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
    if (IsWindow() && !IsIconic(m_hWnd)) {
        const Target alive(*this, nullptr);
        LayoutRootControl();
        if (!alive.IsManagerAlive())
            return 0;
        Invalidate(TRUE);
    }
    UpdateTooltipTool();
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
    if (m_pRoot.IsNull())
        return true;
    Target root(*this, m_pRoot.GetPtr());
    root->BroadcastEvent(tagDUIEvent{type, root.Get(), m_ptLast, 0, DUIKeyState(), wParam, lParam});
    return root.IsManagerAlive();
}

LRESULT CDUIWindowMgr::OnNcActivate(UINT, WPARAM wParam, LPARAM, BOOL& bHandled)
{
    if (HasCaption() || IsIconic(m_hWnd)) {
        bHandled = FALSE;
        return 0;
    }
    return wParam == 0;
}

void CDUIWindowMgr::OnSkinUIDataChanged()
{
    if (!m_pRoot.IsNull()) {
        Target root(*this, m_pRoot.GetPtr());
        root->OnSkinChanged();
        if (!root.IsManagerAlive())
            return;
    }
    if (IsWindow()) {
        Invalidate(TRUE);
        UpdateWindow(m_hWnd);
    }
}

// --- painting ----------------------------------------------------------------------------------------------

BOOL CDUIWindowMgr::Invalidate(BOOL bErase)
{
    RECT client{};
    if (IsWindow() && GetClientRect(m_hWnd, &client) && !IsRectEmpty(&client))
        InvalidateRect(&client, bErase);
    return TRUE;
}

BOOL CDUIWindowMgr::InvalidateRect(const RECT* rect, BOOL bErase)
{
    if (IsWindow()) {
        ::InvalidateRect(m_hWnd, rect, bErase);
        if (GetExStyle() & WS_EX_LAYERED)
            PostMessageA(m_hWnd, WM_PAINT, 0, 0);
    }
    return TRUE;
}

void CDUIWindowMgr::InvalidateRgn(HRGN region, BOOL)
{
    if (!IsWindow())
        return;
    ::InvalidateRgn(m_hWnd, region, FALSE);
    if (GetExStyle() & WS_EX_LAYERED)
        PostMessageA(m_hWnd, WM_PAINT, 0, 0);
}

LRESULT CDUIWindowMgr::OnPaint(UINT, WPARAM, LPARAM, BOOL&)
{
    const CTimeCostDebug cost("CDUIWindowBase::OnPaint");
    PAINTSTRUCT paint{};
    const HWND hWnd = m_hWnd;
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
    RECT box{};
    if (!IsWindow() || !GetClientRect(m_hWnd, &client))
        return;
    if (GetClipBox(hdc, &box) == NULLREGION || !IntersectRect(&box, &box, &client) ||
        !PrepareBackBuffer(client))
        return;
    const HDC memory = CreateCompatibleDC(hdc);
    const HGDIOBJ old = SelectObject(memory, m_backBuffer.GetBitmap());
    // A new context combines the pixels that it leaves out when a picture shrinks, which shows as dark lines.
    SetStretchBltMode(memory, COLORONCOLOR);
    // Only what the context will take is copied, painted and copied back. The limit is no clip region: image
    // and rounded frames leave out their centre and their corners where a context has one, and then nothing
    // would paint there.
    IntersectClipRect(memory, box.left, box.top, box.right, box.bottom);
    SetMetaRgn(memory);
    BitBlt(memory, box.left, box.top, Width(box), Height(box), hdc, box.left, box.top, SRCCOPY);
    const Target alive(*this, nullptr);
    PaintFrameBkgnd(memory);
    if (alive.IsManagerAlive())
        PaintClientArea(memory);
    BitBlt(hdc, box.left, box.top, Width(box), Height(box), memory, box.left, box.top, SRCCOPY);
    SelectObject(memory, old);
    DeleteDC(memory);
}

bool CDUIWindowMgr::PrepareBackBuffer(const RECT& client)
{
    const BITMAPINFOHEADER& header = *m_backBuffer.GetDibHeader();
    if (!m_backBuffer.IsNull() && header.biWidth >= Width(client) && header.biHeight >= Height(client))
        return true;
    return m_backBuffer.Create(static_cast<DWORD>(Width(client)), static_cast<DWORD>(Height(client)), 32) !=
           FALSE;
}

void CDUIWindowMgr::PaintFrameBkgnd(HDC hdc)
{
    RECT client{};
    if (!m_pFrameBK.IsNull() && !m_pFrameBK->IsEmpty() && IsWindow() && GetClientRect(m_hWnd, &client))
        m_pFrameBK->DrawBK(hdc, client);
}

void CDUIWindowMgr::PaintClientArea(HDC hdc)
{
    RECT rcPaint{};
    RECT client{};
    GetClipBox(hdc, &rcPaint);
    if (m_pRoot.IsNull() || !GetDUIClientRect(&client))
        return;
    const CDUIRenderClip clip(hdc, client);
    const CRefPtr<IDUIControl> root = m_pRoot;
    root->DoPaint(hdc, rcPaint);
}

}  // namespace DUI
