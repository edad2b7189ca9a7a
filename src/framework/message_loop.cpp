#include <qvui/framework/message_loop.h>

#include <algorithm>

namespace DUI {
namespace {

template <class T>
void AddOnce(std::vector<T*>& list, T* entry)
{
    if (std::find(list.begin(), list.end(), entry) == list.end())
        list.push_back(entry);
}

template <class T>
void RemoveAll(std::vector<T*>& list, T* entry)
{
    list.erase(std::remove(list.begin(), list.end(), entry), list.end());
}

template <class T>
bool Contains(const std::vector<T*>& list, T* entry)
{
    return std::find(list.begin(), list.end(), entry) != list.end();
}

}  // namespace

BOOL CDUIMessageLoop::PreTranslateMessage(MSG* pMsg)
{
    // A filter that an earlier one removed is gone and must not be called.
    const std::vector<IDUIMessageFilter*> filters = m_filters;
    for (auto filter = filters.rbegin(); filter != filters.rend(); ++filter)
        if (*filter && Contains(m_filters, *filter) && (*filter)->PreTranslateMessage(pMsg))
            return TRUE;
    return FALSE;
}

BOOL CDUIMessageLoop::OnIdle(int)
{
    const std::vector<IDUIIdleHandler*> handlers = m_idleHandlers;
    for (IDUIIdleHandler* handler : handlers)
        if (handler && Contains(m_idleHandlers, handler))
            handler->OnIdle();
    return FALSE;
}

BOOL CDUIMessageLoop::AddMessageFilter(IDUIMessageFilter* pFilter)
{
    AddOnce(m_filters, pFilter);
    return TRUE;
}

void CDUIMessageLoop::RemoveMessageFilter(IDUIMessageFilter* pFilter)
{
    RemoveAll(m_filters, pFilter);
}

BOOL CDUIMessageLoop::AddIdleHandler(IDUIIdleHandler* pHandler)
{
    AddOnce(m_idleHandlers, pHandler);
    return TRUE;
}

void CDUIMessageLoop::RemoveIdleHandler(IDUIIdleHandler* pHandler)
{
    RemoveAll(m_idleHandlers, pHandler);
}

int CDUIMessageLoop::Run()
{
    bool isIdle = true;
    int idleCount = 0;
    for (;;) {
        while (isIdle && !PeekMessageA(&m_msg, nullptr, 0, 0, PM_NOREMOVE))
            isIdle = OnIdle(idleCount++) != FALSE;
        const BOOL result = GetMessageA(&m_msg, nullptr, 0, 0);
        if (result == -1)
            continue;
        if (result == 0)
            return static_cast<int>(m_msg.wParam);
        // A nested loop, run by a handler, reuses m_msg.
        MSG message = m_msg;
        if (!PreTranslateMessage(&message)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        if (IsIdleMessage(&message)) {
            isIdle = true;
            idleCount = 0;
        }
    }
}

BOOL CDUIMessageLoop::IsIdleMessage(MSG* pMsg)
{
    constexpr UINT kSystemTimer = 0x0118;
    switch (pMsg->message) {
        case WM_MOUSEMOVE:
        case WM_NCMOUSEMOVE:
        case WM_PAINT:
        case kSystemTimer:
            return FALSE;
        default:
            return TRUE;
    }
}

}  // namespace DUI
