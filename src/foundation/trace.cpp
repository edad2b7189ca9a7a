#include <qvui/foundation/trace.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>

namespace DUI {
namespace {

constexpr std::size_t kLongestTrace = 1024;  // without the terminating zero

TraceSink g_sink = nullptr;
void* g_context = nullptr;

void Output(const char* format, va_list arguments)
{
    static char text[kLongestTrace + 1];
    std::vsnprintf(text, sizeof text, format, arguments);
    if (g_sink)
        g_sink(g_context, text);
}

struct MessageName {
    UINT message;
    const char* name;
};

// clang-format off
#define QVUI_MESSAGE(name) {name, #name}
constexpr MessageName kMessageNames[] = {
    QVUI_MESSAGE(WM_NULL),          QVUI_MESSAGE(WM_CREATE),            QVUI_MESSAGE(WM_DESTROY),
    QVUI_MESSAGE(WM_MOVE),          QVUI_MESSAGE(WM_SIZE),              QVUI_MESSAGE(WM_ACTIVATE),
    QVUI_MESSAGE(WM_SETFOCUS),      QVUI_MESSAGE(WM_KILLFOCUS),         QVUI_MESSAGE(WM_GETTEXT),
    QVUI_MESSAGE(WM_GETTEXTLENGTH), QVUI_MESSAGE(WM_PAINT),             QVUI_MESSAGE(WM_CLOSE),
    QVUI_MESSAGE(WM_ERASEBKGND),    QVUI_MESSAGE(WM_SHOWWINDOW),        QVUI_MESSAGE(WM_ACTIVATEAPP),
    QVUI_MESSAGE(WM_SETCURSOR),     QVUI_MESSAGE(WM_GETMINMAXINFO),     QVUI_MESSAGE(WM_DRAWITEM),
    QVUI_MESSAGE(WM_MEASUREITEM),   QVUI_MESSAGE(WM_WINDOWPOSCHANGING), QVUI_MESSAGE(WM_WINDOWPOSCHANGED),
    QVUI_MESSAGE(WM_NOTIFY),        QVUI_MESSAGE(WM_GETICON),           QVUI_MESSAGE(WM_NCCREATE),
    QVUI_MESSAGE(WM_NCDESTROY),     QVUI_MESSAGE(WM_NCCALCSIZE),        QVUI_MESSAGE(WM_NCHITTEST),
    QVUI_MESSAGE(WM_NCPAINT),       QVUI_MESSAGE(WM_NCACTIVATE),        QVUI_MESSAGE(WM_NCMOUSEMOVE),
    QVUI_MESSAGE(WM_KEYDOWN),       QVUI_MESSAGE(WM_KEYUP),             QVUI_MESSAGE(WM_CHAR),
    QVUI_MESSAGE(WM_SYSKEYDOWN),    QVUI_MESSAGE(WM_SYSKEYUP),          QVUI_MESSAGE(WM_SYSCHAR),
    QVUI_MESSAGE(WM_COMMAND),       QVUI_MESSAGE(WM_SYSCOMMAND),        QVUI_MESSAGE(WM_TIMER),
    QVUI_MESSAGE(WM_HSCROLL),       QVUI_MESSAGE(WM_VSCROLL),           QVUI_MESSAGE(WM_MOUSEMOVE),
    QVUI_MESSAGE(WM_LBUTTONDOWN),   QVUI_MESSAGE(WM_LBUTTONUP),         QVUI_MESSAGE(WM_LBUTTONDBLCLK),
    QVUI_MESSAGE(WM_RBUTTONDOWN),   QVUI_MESSAGE(WM_RBUTTONUP),         QVUI_MESSAGE(WM_RBUTTONDBLCLK),
    QVUI_MESSAGE(WM_PARENTNOTIFY),  QVUI_MESSAGE(WM_SIZING),            QVUI_MESSAGE(WM_CAPTURECHANGED),
    QVUI_MESSAGE(WM_MOVING),        QVUI_MESSAGE(WM_MOUSEHOVER),        QVUI_MESSAGE(WM_MOUSELEAVE),
};
// clang-format on
#undef QVUI_MESSAGE

LONGLONG CurrentCount()
{
    LARGE_INTEGER count;
    QueryPerformanceCounter(&count);
    return count.QuadPart;
}

}  // namespace

void SetTraceSink(TraceSink sink, void* context)
{
    g_sink = sink;
    g_context = context;
}

// The four entries differ in nothing but their name: no level is treated differently.
#define QVUI_TRACE(fmt)       \
    va_list arguments;        \
    va_start(arguments, fmt); \
    Output(fmt, arguments);   \
    va_end(arguments)

void CTrace::Trace(DUI_TRACE_LEVEL, const char* fmt, ...)
{
    QVUI_TRACE(fmt);
}
void CTrace::TraceInfo(const char* fmt, ...)
{
    QVUI_TRACE(fmt);
}
void CTrace::TraceWarning(const char* fmt, ...)
{
    QVUI_TRACE(fmt);
}
void CTrace::TraceError(const char* fmt, ...)
{
    QVUI_TRACE(fmt);
}
#undef QVUI_TRACE

void CWinMsgDebug::OuputMsg(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    CTrace::TraceInfo("Win Msg: hWnd[0X%04X], nMsgType[%s], wParam[%u], lParam[%u]",
                      static_cast<unsigned>(reinterpret_cast<UINT_PTR>(hWnd)), DUIGetMessageName(uMsg),
                      static_cast<unsigned>(wParam), static_cast<unsigned>(lParam));
}

const char* CWinMsgDebug::DUIGetMessageName(UINT uMsg)
{
    const auto* found = std::find_if(std::begin(kMessageNames), std::end(kMessageNames),
                                     [uMsg](const MessageName& entry) { return entry.message == uMsg; });
    if (found != std::end(kMessageNames))
        return found->name;
    static char number[16];
    std::snprintf(number, sizeof number, "0x%04X", uMsg);
    return number;
}

LONGLONG CTimeCalculator::m_nFrequency = 0;

CTimeCalculator::CTimeCalculator()
{
    if (m_nFrequency == 0) {
        LARGE_INTEGER frequency;
        QueryPerformanceFrequency(&frequency);
        m_nFrequency = frequency.QuadPart;
    }
    m_nStart = m_nStop = CurrentCount();
}

LONGLONG CTimeCalculator::Start()
{
    return m_nStart = CurrentCount();
}

LONGLONG CTimeCalculator::Stop()
{
    return m_nStop = CurrentCount();
}

double CTimeCalculator::GetInterval() const
{
    return static_cast<double>(m_nStop - m_nStart) * 1000.0 / static_cast<double>(m_nFrequency);
}

CTimeCostDebug::CTimeCostDebug(const char* label)
{
    lstrcpynA(m_szLabel, label, static_cast<int>(sizeof m_szLabel));
    CTimeCalculator::Start();
}

CTimeCostDebug::~CTimeCostDebug()
{
    CTimeCalculator::Stop();
    CTrace::TraceInfo("[%s] cost time[ %f ms ]", m_szLabel, CTimeCalculator::GetInterval());
}

}  // namespace DUI
