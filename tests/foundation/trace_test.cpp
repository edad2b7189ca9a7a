#include <qvui/foundation/trace.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <set>
#include <string>
#include <vector>

namespace {

using Lines = std::vector<std::string>;

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

    Lines lines;
};

struct Names : DUI::CWinMsgDebug {
    using CWinMsgDebug::DUIGetMessageName;
};

// The label that a scope traces, and its milliseconds.
std::string LabelOf(const std::string& line, double& milliseconds)
{
    const std::size_t end = line.rfind("] cost time[ ");
    EXPECT_NE(end, std::string::npos) << line;
    EXPECT_EQ(std::sscanf(line.c_str() + end, "] cost time[ %lf ms ]", &milliseconds), 1) << line;
    return line.substr(1, end - 1);
}

}  // namespace

TEST(Trace, FormatsForEveryEntryAndCutsAtTheBuffer)
{
    DUI::CTrace::TraceInfo("lost: there is no sink");
    const Traces traces;
    DUI::CTrace::Trace(DUI::DUI_TRACE_WARNING, "%s: failed to load image(%s)", "CResLoader", "a.png");
    DUI::CTrace::TraceInfo("%d%%", 5);
    DUI::CTrace::TraceWarning("%s", std::string(1024, 'x').c_str());
    DUI::CTrace::TraceError("%s!", std::string(5000, 'y').c_str());
    EXPECT_EQ(traces.lines, (Lines{"CResLoader: failed to load image(a.png)", "5%", std::string(1024, 'x'),
                                   std::string(1024, 'y')}));
}

TEST(MessageNames, AreThePlatforms)
{
    // By number, from the platform's documentation.
    const std::set<UINT> named{
        0x0000, 0x0001, 0x0002, 0x0003, 0x0005, 0x0006, 0x0007, 0x0008, 0x000D, 0x000E, 0x000F,
        0x0010, 0x0014, 0x0018, 0x001C, 0x0020, 0x0024, 0x002B, 0x002C, 0x0046, 0x0047, 0x004E,
        0x007F, 0x0081, 0x0082, 0x0083, 0x0084, 0x0085, 0x0086, 0x00A0, 0x0100, 0x0101, 0x0102,
        0x0104, 0x0105, 0x0106, 0x0111, 0x0112, 0x0113, 0x0114, 0x0115, 0x0200, 0x0201, 0x0202,
        0x0203, 0x0204, 0x0205, 0x0206, 0x0210, 0x0214, 0x0215, 0x0216, 0x02A1, 0x02A3,
    };
    for (UINT message = 0; message < 0x10000; ++message)
        EXPECT_EQ(std::string(Names::DUIGetMessageName(message)).starts_with("WM_"),
                  named.count(message) != 0)
            << message;
    EXPECT_STREQ(Names::DUIGetMessageName(0x02A3), "WM_MOUSELEAVE");
    EXPECT_STREQ(Names::DUIGetMessageName(0x12345), "0x12345");
    const Traces traces;
    DUI::CWinMsgDebug::OuputMsg(reinterpret_cast<HWND>(static_cast<UINT_PTR>(0x1AB)), WM_SIZE, 2,
                                static_cast<LPARAM>(-1));
    DUI::CWinMsgDebug::OuputMsg(nullptr, 0x401, 0, 7);
    EXPECT_EQ(traces.lines, (Lines{"Win Msg: hWnd[0X01AB], nMsgType[WM_SIZE], wParam[2], lParam[4294967295]",
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
