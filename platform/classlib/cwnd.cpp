#include <qvui/platform/cwnd.h>

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace {

std::unordered_map<HWND, CWnd*>& Objects()
{
    static std::unordered_map<HWND, CWnd*> objects;
    return objects;
}

// Whose window is being created: its first message binds the two.
CWnd* creating = nullptr;

}  // namespace

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const
{
    const CRuntimeClass* theClass = this;
    while (theClass && theClass != base)
        theClass = theClass->m_pBaseClass;
    return theClass != nullptr;
}

CWnd::~CWnd()
{
    if (const HWND window = Detach())
        ::DestroyWindow(window);
}

const CRuntimeClass* CWnd::GetRuntimeClass() const
{
    static const CRuntimeClass theClass{"CWnd", nullptr};
    return &theClass;
}

const CWnd::MessageMap* CWnd::GetMessageMap() const
{
    static const MessageMap map{nullptr, nullptr, 0};
    return &map;
}

BOOL CWnd::PreCreateWindow(CREATESTRUCTA&)
{
    return TRUE;
}

BOOL CWnd::PreTranslateMessage(MSG*)
{
    return FALSE;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    for (const MessageMap* map = GetMessageMap(); map; map = map->base) {
        const MessageEntry* const end = map->entries + map->count;
        const MessageEntry* const entry =
            std::find_if(map->entries, end,
                         [message](const MessageEntry& candidate) { return candidate.message == message; });
        if (entry != end)
            return (this->*entry->handler)(wParam, lParam);
    }
    return Default(message, wParam, lParam);
}

LRESULT CWnd::Default(UINT message, WPARAM wParam, LPARAM lParam)
{
    return DefWindowProcA(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::RegisterWindowClass(LPCSTR className, UINT style, HCURSOR cursor)
{
    WNDCLASSEXA windowClass{};
    windowClass.cbSize = sizeof windowClass;
    if (GetClassInfoExA(GetModuleHandleA(nullptr), className, &windowClass))
        return TRUE;
    windowClass = {};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = style;
    windowClass.lpfnWndProc = &CWnd::Procedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.hCursor = cursor;
    windowClass.lpszClassName = className;
    return RegisterClassExA(&windowClass) != 0;
}

BOOL CWnd::CreateEx(DWORD exStyle, LPCSTR className, LPCSTR text, DWORD style, const RECT& rect, HWND parent,
                    UINT_PTR id)
{
    if (m_hWnd)
        return FALSE;
    CREATESTRUCTA create{};
    create.hInstance = GetModuleHandleA(nullptr);
    create.hMenu = reinterpret_cast<HMENU>(id);
    create.hwndParent = parent;
    create.x = rect.left;
    create.y = rect.top;
    create.cx = rect.right - rect.left;
    create.cy = rect.bottom - rect.top;
    create.style = static_cast<LONG>(style);
    create.lpszName = text;
    create.lpszClass = className;
    create.dwExStyle = exStyle;
    if (!PreCreateWindow(create))
        return FALSE;
    CWnd* const outer = std::exchange(creating, this);
    CreateWindowExA(create.dwExStyle, create.lpszClass, create.lpszName, static_cast<DWORD>(create.style),
                    create.x, create.y, create.cx, create.cy, create.hwndParent, create.hMenu,
                    create.hInstance, create.lpCreateParams);
    creating = outer;
    return m_hWnd != nullptr;
}

BOOL CWnd::Attach(HWND window)
{
    if (m_hWnd || !window || !Objects().emplace(window, this).second)
        return FALSE;
    m_hWnd = window;
    return TRUE;
}

HWND CWnd::Detach()
{
    Objects().erase(m_hWnd);
    return std::exchange(m_hWnd, nullptr);
}

BOOL CWnd::DestroyWindow()
{
    return m_hWnd && ::DestroyWindow(m_hWnd);
}

CWnd* CWnd::FromHandlePermanent(HWND window)
{
    const auto found = Objects().find(window);
    return found == Objects().end() ? nullptr : found->second;
}

BOOL CWnd::WalkPreTranslateTree(HWND stop, MSG* message)
{
    for (HWND window = message->hwnd; window; window = GetParent(window)) {
        CWnd* const object = FromHandlePermanent(window);
        if (object && object->PreTranslateMessage(message))
            return TRUE;
        if (window == stop)
            break;
    }
    return FALSE;
}

LRESULT CALLBACK CWnd::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (CWnd* const object = std::exchange(creating, nullptr))
        object->Attach(window);
    CWnd* const object = FromHandlePermanent(window);
    if (!object)
        return DefWindowProcA(window, message, wParam, lParam);
    const LRESULT result = object->WindowProc(message, wParam, lParam);
    // The handler may have deleted the object, which is no longer found then.
    if (message == WM_NCDESTROY)
        if (CWnd* const left = FromHandlePermanent(window))
            left->Detach();
    return result;
}
