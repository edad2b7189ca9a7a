#include <qvui/foundation/trace.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace {

// Collects the trace lines of its scope.
class Traces {
public:
    Traces()
    {
        DUI::SetTraceSink(
            [](void* self, const char* text) { static_cast<Traces*>(self)->lines.push_back(text); }, this);
    }
    Traces(const Traces&) = delete;
    Traces& operator=(const Traces&) = delete;
    ~Traces() { DUI::SetTraceSink(nullptr, nullptr); }

    std::vector<std::string> lines;
};

struct Names : DUI::CWinMsgDebug {
    using CWinMsgDebug::DUIGetMessageName;
};

// The labels that a scope traces, and its milliseconds.
std::string LabelOf(const std::string& line, double& milliseconds)
{
    const std::size_t end = line.rfind("] cost time[ ");
    EXPECT_NE(end, std::string::npos) << line;
    EXPECT_EQ(std::sscanf(line.c_str() + end, "] cost time[ %lf ms ]", &milliseconds), 1) << line;
    return line.substr(1, end - 1);
}

}  // namespace

TEST(Trace, FormatsForEveryEntry)
{
    const Traces traces;
    DUI::CTrace::Trace(DUI::DUI_TRACE_WARNING, "%s: failed to load image(%s)", "CResLoader", "a.png");
    DUI::CTrace::TraceInfo("%d%%", 5);
    DUI::CTrace::TraceWarning("plain");
    DUI::CTrace::TraceError("%04X", 10);
    EXPECT_EQ(traces.lines,
              (std::vector<std::string>{"CResLoader: failed to load image(a.png)", "5%", "plain", "000A"}));
}

TEST(Trace, CutsAtTheBuffer)
{
    const Traces traces;
    DUI::CTrace::TraceInfo("%s", std::string(1024, 'x').c_str());
    DUI::CTrace::TraceInfo("%s!", std::string(5000, 'y').c_str());
    ASSERT_EQ(traces.lines.size(), 2U);
    EXPECT_EQ(traces.lines[0], std::string(1024, 'x'));
    EXPECT_EQ(traces.lines[1], std::string(1024, 'y'));
}

TEST(Trace, IsDiscardedWithoutASink)
{
    std::vector<std::string> lines;
    {
        const Traces traces;
        DUI::CTrace::TraceInfo("kept");
        lines = traces.lines;
    }
    DUI::CTrace::TraceInfo("lost");
    EXPECT_EQ(lines, std::vector<std::string>{"kept"});
}

TEST(MessageNames, AreThePlatforms)
{
    struct Case {
        UINT message;
        const char* name;
    };
    // By number, from the platform's documentation.
    const std::vector<Case> cases{
        {0x0000, "WM_NULL"},
        {0x0001, "WM_CREATE"},
        {0x0002, "WM_DESTROY"},
        {0x0003, "WM_MOVE"},
        {0x0005, "WM_SIZE"},
        {0x0006, "WM_ACTIVATE"},
        {0x0007, "WM_SETFOCUS"},
        {0x0008, "WM_KILLFOCUS"},
        {0x000D, "WM_GETTEXT"},
        {0x000E, "WM_GETTEXTLENGTH"},
        {0x000F, "WM_PAINT"},
        {0x0010, "WM_CLOSE"},
        {0x0014, "WM_ERASEBKGND"},
        {0x0018, "WM_SHOWWINDOW"},
        {0x001C, "WM_ACTIVATEAPP"},
        {0x0020, "WM_SETCURSOR"},
        {0x0024, "WM_GETMINMAXINFO"},
        {0x002B, "WM_DRAWITEM"},
        {0x002C, "WM_MEASUREITEM"},
        {0x0046, "WM_WINDOWPOSCHANGING"},
        {0x0047, "WM_WINDOWPOSCHANGED"},
        {0x004E, "WM_NOTIFY"},
        {0x007F, "WM_GETICON"},
        {0x0081, "WM_NCCREATE"},
        {0x0082, "WM_NCDESTROY"},
        {0x0083, "WM_NCCALCSIZE"},
        {0x0084, "WM_NCHITTEST"},
        {0x0085, "WM_NCPAINT"},
        {0x0086, "WM_NCACTIVATE"},
        {0x00A0, "WM_NCMOUSEMOVE"},
        {0x0100, "WM_KEYDOWN"},
        {0x0101, "WM_KEYUP"},
        {0x0102, "WM_CHAR"},
        {0x0104, "WM_SYSKEYDOWN"},
        {0x0105, "WM_SYSKEYUP"},
        {0x0106, "WM_SYSCHAR"},
        {0x0111, "WM_COMMAND"},
        {0x0112, "WM_SYSCOMMAND"},
        {0x0113, "WM_TIMER"},
        {0x0114, "WM_HSCROLL"},
        {0x0115, "WM_VSCROLL"},
        {0x0200, "WM_MOUSEMOVE"},
        {0x0201, "WM_LBUTTONDOWN"},
        {0x0202, "WM_LBUTTONUP"},
        {0x0203, "WM_LBUTTONDBLCLK"},
        {0x0204, "WM_RBUTTONDOWN"},
        {0x0205, "WM_RBUTTONUP"},
        {0x0206, "WM_RBUTTONDBLCLK"},
        {0x0210, "WM_PARENTNOTIFY"},
        {0x0214, "WM_SIZING"},
        {0x0215, "WM_CAPTURECHANGED"},
        {0x0216, "WM_MOVING"},
        {0x02A1, "WM_MOUSEHOVER"},
        {0x02A3, "WM_MOUSELEAVE"},
        {0x0401, "0x0401"},
        {0x0009, "0x0009"},
        {0x12345, "0x12345"},
    };
    for (const Case& c : cases)
        EXPECT_STREQ(Names::DUIGetMessageName(c.message), c.name);
}

TEST(MessageNames, StandInTheMessageTrace)
{
    const Traces traces;
    DUI::CWinMsgDebug::OuputMsg(reinterpret_cast<HWND>(static_cast<UINT_PTR>(0x1AB)), WM_SIZE, 2,
                                static_cast<LPARAM>(-1));
    DUI::CWinMsgDebug::OuputMsg(nullptr, 0x401, 0, 7);
    EXPECT_EQ(traces.lines, (std::vector<std::string>{
                                "Win Msg: hWnd[0X01AB], nMsgType[WM_SIZE], wParam[2], lParam[4294967295]",
                                "Win Msg: hWnd[0X0000], nMsgType[0x0401], wParam[0], lParam[7]"}));
}

TEST(TimeCalculator, MeasuresInTheCountersMilliseconds)
{
    DUI::CTimeCalculator calculator;
    EXPECT_EQ(calculator.GetInterval(), 0) << "start and stop are the same count";
    const LONGLONG start = calculator.Start();
    LONGLONG stop = start;
    while (stop == start)
        stop = calculator.Stop();
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    EXPECT_DOUBLE_EQ(calculator.GetInterval(),
                     static_cast<double>(stop - start) * 1000.0 / static_cast<double>(frequency.QuadPart));
}

TEST(TimeCostDebug, TracesItsScope)
{
    const Traces traces;
    {
        const DUI::CTimeCostDebug outer("OnPaint");
        const DUI::CTimeCostDebug inner(std::string(300, 'n').c_str());
        EXPECT_TRUE(traces.lines.empty());
    }
    ASSERT_EQ(traces.lines.size(), 2U);
    double inner = -1;
    double outer = -1;
    EXPECT_EQ(LabelOf(traces.lines[0], inner), std::string(254, 'n'));
    EXPECT_EQ(LabelOf(traces.lines[1], outer), "OnPaint");
    EXPECT_GE(inner, 0);
    EXPECT_GE(outer, inner) << "it began earlier and ended later";
}
