#include <malloc.h>

#include <algorithm>
#include <chrono>

#include <qvui/controls/text/rich_edit.h>

#include "host_window.h"
#include "ratio_reporter.h"
#include "support/controls/test_skin.h"
#include "texts_qt.h"

// Text of very different sizes: set, typed into, appended to, read and written as RTF; against Qt's text
// widgets, and against itself with less text.

namespace qvui::bench {
namespace {

using namespace DUI;

constexpr SIZE kSize{600, 400};
constexpr int kKilobyte = 1000;
constexpr int kMegabyte = 1000 * kKilobyte;

std::string Lines(int bytes)
{
    static const std::string line =
        "The quick brown fox jumps over the lazy dog, and then once more for the width.\n";
    std::string text;
    text.reserve(static_cast<std::size_t>(bytes) + line.size());
    while (text.size() < static_cast<std::size_t>(bytes))
        text += line;
    return text;
}

std::string OneParagraph(int characters)
{
    std::string text = Lines(characters);
    std::replace(text.begin(), text.end(), '\n', ' ');
    text.resize(static_cast<std::size_t>(characters));
    return text;
}

struct Edit {
    explicit Edit(const char* attributes = "")
        : window(kSize,
                 std::string(R"(<vert_layout><richedit name="edit" multiline="true" text_style="normal" )"
                             R"(scrollbar_style="WS_VSCROLL ES_AUTOVSCROLL" )") +
                     attributes + "/></vert_layout>"),
          edit(window.Find<CDUIRichEdit>("edit"))
    {
        edit.SetLimitText(1 << 30);
        edit.SetFocus(TRUE);
    }

    void Type(char character)
    {
        edit.TxSendMessage(WM_CHAR, static_cast<WPARAM>(character), 1, nullptr);
        window.PaintNow();
    }
    void Key(int key)
    {
        edit.TxSendMessage(WM_KEYDOWN, static_cast<WPARAM>(key), 1, nullptr);
        window.PaintNow();
    }

    /// Two keystrokes, so that the text stays as long as it is.
    void TypeAndTakeBack(benchmark::State& state)
    {
        for (auto _ : state) {
            Type('x');
            Key(VK_BACK);
        }
    }

    HostWindow window;
    CDUIRichEdit& edit;
};

template <int kBytes>
void Keystroke(benchmark::State& state)
{
    Edit text;
    text.edit.SetText(Lines(kBytes).c_str());
    text.edit.SetSel(kBytes / 2, kBytes / 2);
    text.edit.ScrollCaret();
    text.window.PaintNow();
    text.TypeAndTakeBack(state);
}

void QTextEditKeystroke(benchmark::State& state)
{
    QtText widget(QtText::Kind::Rich);
    widget.SetText(Lines(kMegabyte));
    widget.PutCaretInMiddle();
    widget.PaintNow();
    for (auto _ : state) {
        widget.Type('x');
        widget.PaintNow();
        widget.TakeBack();
        widget.PaintNow();
    }
}

void SetText(benchmark::State& state)
{
    const std::string lines = Lines(10 * kMegabyte);
    Edit text;
    const std::size_t before = mallinfo2().uordblks;
    for (auto _ : state) {
        text.edit.SetText(lines.c_str());
        text.window.PaintNow();
    }
    // The control keeps the text in the system code page as well, which is not the engine's.
    const auto used = static_cast<double>(mallinfo2().uordblks - before) - static_cast<double>(lines.size());
    constexpr double kPerParagraph = 64;
    const auto paragraphs = static_cast<double>(std::count(lines.begin(), lines.end(), '\n'));
    state.counters["bytes_per_character_beyond_64_a_paragraph"] =
        (used - kPerParagraph * paragraphs) / static_cast<double>(lines.size());
}

/// The longest of the steps that it is given, in milliseconds.
class LongestStep {
public:
    template <class Step>
    void Time(Step step)
    {
        const auto start = std::chrono::steady_clock::now();
        step();
        const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
        m_longest = std::max(m_longest, time.count());
    }
    void Report(benchmark::State& state) const { state.counters["longest_step_ms"] = m_longest; }

private:
    double m_longest = 0;
};

template <QtText::Kind kKind>
void SetTextQt(benchmark::State& state)
{
    const std::string lines = Lines(10 * kMegabyte);
    QtText widget(kKind);
    for (auto _ : state) {
        widget.SetText(lines);
        widget.PaintNow();
    }
}

// Goes through 100 MB: a page down, to the end and a keystroke there, each painted.
void HugeSteps(benchmark::State& state)
{
    Edit text;
    text.edit.SetText(Lines(100 * kMegabyte).c_str());
    text.window.PaintNow();
    LongestStep longest;
    for (auto _ : state) {
        longest.Time([&] {
            text.edit.SetSel(0, 0);
            text.Key(VK_NEXT);
        });
        longest.Time([&] {
            const int length = text.edit.GetTextLength(0);
            text.edit.SetSel(length, length);
            text.edit.ScrollCaret();
            text.window.PaintNow();
        });
        longest.Time([&] { text.Type('x'); });
    }
    longest.Report(state);
}

void HugeStepsQt(benchmark::State& state)
{
    QtText widget(QtText::Kind::Plain);
    widget.SetText(Lines(100 * kMegabyte));
    widget.PaintNow();
    LongestStep longest;
    for (auto _ : state) {
        longest.Time([&] {
            widget.PutCaretInMiddle();
            widget.PaintNow();
        });
        longest.Time([&] {
            widget.PutCaretAtEnd();
            widget.PaintNow();
        });
        longest.Time([&] {
            widget.Type('x');
            widget.PaintNow();
        });
    }
    longest.Report(state);
}

template <int kCharacters>
struct LongParagraph : Edit {
    LongParagraph()
    {
        edit.SetText(OneParagraph(kCharacters).c_str());
        edit.SetSel(kCharacters / 2, kCharacters / 2);
        edit.ScrollCaret();
        window.PaintNow();
    }
};

template <int kCharacters>
void LongType(benchmark::State& state)
{
    LongParagraph<kCharacters> text;
    text.TypeAndTakeBack(state);
}

template <int kCharacters>
void LongEnd(benchmark::State& state)
{
    LongParagraph<kCharacters> text;
    for (auto _ : state) {
        text.Key(VK_HOME);
        text.Key(VK_END);
    }
}

template <int kCharacters>
void LongPage(benchmark::State& state)
{
    LongParagraph<kCharacters> text;
    for (auto _ : state) {
        text.Key(VK_NEXT);
        text.Key(VK_PRIOR);
    }
}

template <int kCharacters>
void LongSelectAll(benchmark::State& state)
{
    LongParagraph<kCharacters> text;
    for (auto _ : state) {
        text.edit.SetSelAll();
        text.window.PaintNow();
        text.edit.SetSel(0, 0);
        text.window.PaintNow();
    }
}

void AppendToLog(benchmark::State& state)
{
    Edit text(R"(read_only="true")");
    text.edit.SetText(Lines(8 * kMegabyte).c_str());
    text.window.PaintNow();
    for (auto _ : state) {
        text.edit.AppendText("One more line of the log.\n", FALSE);
        text.window.PaintNow();
    }
}

void AppendToLogQt(benchmark::State& state)
{
    QtText widget(QtText::Kind::Plain);
    widget.SetText(Lines(8 * kMegabyte));
    widget.PaintNow();
    for (auto _ : state) {
        widget.AppendLine("One more line of the log.");
        widget.PaintNow();
    }
}

std::string FormattedRtf(int bytes)
{
    std::string rtf = R"({\rtf1\ansi{\colortbl;\red200\green0\blue0;})";
    for (int i = 0; static_cast<int>(rtf.size()) < bytes; ++i)
        rtf += i % 8 == 7 ? "\\b0 plain text\\par " : i % 2 ? "\\b bold text " : "\\b0\\cf1 red text\\cf0 ";
    return rtf + "}";
}

template <int kBytes>
void ReadRtf(benchmark::State& state)
{
    const std::string rtf = FormattedRtf(kBytes);
    Edit text(R"(rich="true")");
    for (auto _ : state) {
        std::string_view rest = rtf;
        EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&rest), 0,
                          [](DWORD_PTR cookie, LPBYTE buffer, LONG size, LONG* read) {
                              auto& left = *reinterpret_cast<std::string_view*>(cookie);
                              const std::size_t count = std::min(left.size(), static_cast<std::size_t>(size));
                              std::copy_n(left.begin(), count, buffer);
                              left.remove_prefix(count);
                              *read = static_cast<LONG>(count);
                              return DWORD{0};
                          }};
        text.edit.StreamIn(SF_RTF, stream);
    }
}

template <int kBytes>
void WriteRtf(benchmark::State& state)
{
    Edit text(R"(rich="true")");
    std::string rtf = FormattedRtf(kBytes);
    SETTEXTEX options{ST_DEFAULT, CP_ACP};
    text.edit.TxSendMessage(EM_SETTEXTEX, reinterpret_cast<WPARAM>(&options),
                            reinterpret_cast<LPARAM>(rtf.c_str()), nullptr);
    for (auto _ : state) {
        std::size_t written = 0;
        EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&written), 0,
                          [](DWORD_PTR cookie, LPBYTE, LONG size, LONG* moved) {
                              *reinterpret_cast<std::size_t*>(cookie) += static_cast<std::size_t>(size);
                              *moved = size;
                              return DWORD{0};
                          }};
        text.edit.StreamOut(SF_RTF, stream);
        benchmark::DoNotOptimize(written);
    }
}

constexpr int kMany = 1000;

void Many(benchmark::State& state, const char* control)
{
    std::string content = R"(<tile_layout tile_size="38,18">)";
    for (int i = 0; i < kMany; ++i)
        content += control;
    content += "</tile_layout>";
    for (auto _ : state)
        HostWindow window({1000, 800}, content);
}

void ManyEdits(benchmark::State& state)
{
    Many(state, R"(<richedit text_style="normal" multiline="true"/>)");
}

void ManyQTextEdits(benchmark::State& state)
{
    for (auto _ : state)
        ShowManyTexts(QtText::Kind::Rich, kMany);
}

void ManyFields(benchmark::State& state)
{
    Many(state, R"(<edit text_style="normal"/>)");
}

void ManyQLineEdits(benchmark::State& state)
{
    for (auto _ : state)
        ShowManyFields(kMany);
}

BENCHMARK(Keystroke<10 * kKilobyte>)->Name("Keystroke10KB")->Unit(benchmark::kMicrosecond);
BENCHMARK(Keystroke<10 * kMegabyte>)->Name("Keystroke10MB")->Unit(benchmark::kMicrosecond);
BENCHMARK(QTextEditKeystroke)->Name("QTextEditKeystroke1MB")->Unit(benchmark::kMicrosecond);
BENCHMARK(SetText)->Name("SetText10MB")->Unit(benchmark::kMillisecond);
BENCHMARK(SetTextQt<QtText::Kind::Plain>)->Name("QPlainTextEditSet10MB")->Unit(benchmark::kMillisecond);
BENCHMARK(SetTextQt<QtText::Kind::Rich>)
    ->Name("QTextEditSet10MB")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);
BENCHMARK(HugeSteps)->Name("Steps100MB")->Unit(benchmark::kMillisecond);
BENCHMARK(HugeStepsQt)->Name("QPlainTextEditSteps100MB")->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(LongType<10000>)->Name("LongType10K")->Unit(benchmark::kMicrosecond);
BENCHMARK(LongType<1000000>)->Name("LongType1M")->Unit(benchmark::kMicrosecond);
BENCHMARK(LongEnd<10000>)->Name("LongEnd10K")->Unit(benchmark::kMicrosecond);
BENCHMARK(LongEnd<1000000>)->Name("LongEnd1M")->Unit(benchmark::kMicrosecond);
BENCHMARK(LongPage<10000>)->Name("LongPage10K")->Unit(benchmark::kMicrosecond);
BENCHMARK(LongPage<1000000>)->Name("LongPage1M")->Unit(benchmark::kMicrosecond);
BENCHMARK(LongSelectAll<10000>)->Name("LongSelectAll10K")->Unit(benchmark::kMicrosecond);
BENCHMARK(LongSelectAll<1000000>)->Name("LongSelectAll1M")->Unit(benchmark::kMicrosecond);
BENCHMARK(AppendToLog)->Unit(benchmark::kMicrosecond);
BENCHMARK(AppendToLogQt)->Name("QPlainTextEditAppend")->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadRtf<5 * kMegabyte>)->Name("ReadRtf5MB")->Unit(benchmark::kMillisecond);
BENCHMARK(ReadRtf<10 * kMegabyte>)->Name("ReadRtf10MB")->Unit(benchmark::kMillisecond);
BENCHMARK(WriteRtf<5 * kMegabyte>)->Name("WriteRtf5MB")->Unit(benchmark::kMillisecond);
BENCHMARK(WriteRtf<10 * kMegabyte>)->Name("WriteRtf10MB")->Unit(benchmark::kMillisecond);
BENCHMARK(ManyEdits)->Unit(benchmark::kMillisecond);
BENCHMARK(ManyQTextEdits)->Unit(benchmark::kMillisecond);
BENCHMARK(ManyFields)->Unit(benchmark::kMillisecond);
BENCHMARK(ManyQLineEdits)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace qvui::bench

int main(int argc, char** argv)
{
    qvui::bench::DrawIntoMemory(argc, argv);
    const qvui::test::TestSkin skin;
    qvui::bench::RunAndCompare({
        {"Keystroke10MB", "Keystroke10KB", 1.5},
        {"Keystroke10MB", "QTextEditKeystroke1MB", 0.1},
        {"SetText10MB", "QPlainTextEditSet10MB", 1.0},
        {"SetText10MB", "QTextEditSet10MB", 0.2},
        {"Steps100MB", "QPlainTextEditSteps100MB", 1.0},
        {"LongType1M", "LongType10K", 20},
        {"LongEnd1M", "LongEnd10K", 20},
        {"LongPage1M", "LongPage10K", 20},
        {"LongSelectAll1M", "LongSelectAll10K", 20},
        {"AppendToLog", "QPlainTextEditAppend", 1.0},
        {"ReadRtf10MB", "ReadRtf5MB", 2.2},
        {"WriteRtf10MB", "WriteRtf5MB", 2.2},
        {"ManyEdits", "ManyQTextEdits", 1.0},
        {"ManyFields", "ManyQLineEdits", 1.0},
    });
    return 0;
}
