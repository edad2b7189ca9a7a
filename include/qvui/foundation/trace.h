#pragma once

#include <qvui/platform/cstring.h>

namespace DUI {

enum DUI_TRACE_LEVEL { DUI_TRACE_INFO, DUI_TRACE_WARNING, DUI_TRACE_ERROR };

/// Receives every trace line, without a line end, on the thread that traces. The text is valid during the
/// call.
using TraceSink = void (*)(void* context, const char* text);

/// Sets the sink for all subsequent traces; null, the default, discards them.
QVUI_API void SetTraceSink(TraceSink sink, void* context);

/// Writes trace lines with printf formats. Lines are truncated to 1024 bytes.
class QVUI_API CTrace {
public:
#if defined(__GNUC__)
#define QVUI_TRACE_FORMAT(text, first) __attribute__((format(printf, text, first)))
#else
#define QVUI_TRACE_FORMAT(text, first)
#endif
    QVUI_TRACE_FORMAT(2, 3) static void Trace(DUI_TRACE_LEVEL level, const char* fmt, ...);
    QVUI_TRACE_FORMAT(1, 2) static void TraceInfo(const char* fmt, ...);
    QVUI_TRACE_FORMAT(1, 2) static void TraceWarning(const char* fmt, ...);
    QVUI_TRACE_FORMAT(1, 2) static void TraceError(const char* fmt, ...);
#undef QVUI_TRACE_FORMAT
};

/// Names window messages in traces.
class QVUI_API CWinMsgDebug {
public:
    /// Traces a message; the handle and the parameters are truncated to 32 bits.
    static void OuputMsg(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam);

protected:
    /// Returns the message's name. An unknown message is formatted as "0x%04X" in a buffer shared by all
    /// calls.
    static const char* DUIGetMessageName(UINT uMsg);
};

/// Measures an interval with the platform's high-resolution counter. Not to be deleted through a pointer to a
/// base: the destructor is not among the published virtual operations.
class QVUI_API CTimeCalculator {
public:
    /// Sets start and stop to the current count.
    CTimeCalculator();

    /// Sets the start to the current count and returns it.
    virtual LONGLONG Start();
    /// Sets the stop to the current count and returns it.
    virtual LONGLONG Stop();
    /// Returns the milliseconds between start and stop, computed in 64 bits.
    virtual double GetInterval() const;

private:
    LONGLONG m_nStart = 0;
    LONGLONG m_nStop = 0;
    static LONGLONG m_nFrequency;
};

/// Traces the duration of the scope that it is declared in.
class QVUI_API CTimeCostDebug : public CTimeCalculator {
public:
    /// Keeps at most 254 bytes of the label.
    explicit CTimeCostDebug(const char* label);
    CTimeCostDebug(const CTimeCostDebug&) = delete;
    CTimeCostDebug& operator=(const CTimeCostDebug&) = delete;
    ~CTimeCostDebug();

private:
    char m_szLabel[255] = "";
};

}  // namespace DUI
