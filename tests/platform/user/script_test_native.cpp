// What only the native target can show: exact times, every single move, and the headless display.

#include "platform/platform_test.h"
#include "platform/user/user_script.h"
#include "support/manual_clock.h"
#include "support/platform_bitmap.h"

namespace qvui::test {
namespace {

/// A script on a clock that stands still, with what happens at the display:
///
///     advance MILLISECONDS      lets time pass; nothing is dispatched
///     track WINDOW FLAGS TIME   TrackMouseEvent
///     shows POINT               the colour that a person would see
///     display WINDOW            what the display knows of a window
///     type, text, compose, key-event, moved, minimised, close, activated, leave     what the display reports
///     layer WINDOW FLAGS OPACITY PIXEL...     shows a layer of one row
class NativeScript : public UserScript {
public:
    NativeScript()
    {
        AddTime();
        AddDisplay();
        AddReports();
    }

private:
    void EndCase() override
    {
        UserScript::EndCase();
        m_clock.reset();
        m_clock = std::make_unique<ManualClock>();
    }
    void AddTime();
    void AddDisplay();
    void AddReports();

    native::HeadlessDisplay& m_display = *native::TheHeadlessDisplay();
    native::InputSink& m_sink = native::TheInputSink();
    std::unique_ptr<ManualClock> m_clock = std::make_unique<ManualClock>();
};

void NativeScript::AddTime()
{
    Call("advance", [this](int milliseconds) { m_clock->Advance(milliseconds); });
    Call("track", [](DWORD flags, HWND window, DWORD time) {
        TRACKMOUSEEVENT request{sizeof request, flags, window, time};
        EXPECT_TRUE(TrackMouseEvent(&request));
        Pump();
    });
}

void NativeScript::AddDisplay()
{
    Constant("black", 0);
    Constant("white", 0xFFFFFF);
    Call("shows", [this](POINT screen) { return m_display.PixelAt(screen); });
    Call("display", [this](HWND window) {
        const auto& shown = *m_display.Find(window);
        const auto& options = shown.options;
        return Text(shown.screen) + " \"" + shown.Title() + '"' + (options.isSizable ? " sizable" : "") +
               (options.isDecorated ? " decorated" : "") + (options.isPopup ? " popup" : "") +
               (options.isPassive ? " passive" : "") +
               (options.owner ? " owner " + NameOf(options.owner) : "") +
               (shown.isMinimised ? " minimised" : "");
    });
    Call("presented", [this](HWND window) { return m_display.Find(window)->presented; });
    Call("cursor", [this] { return m_display.CursorShape(); });
    Call("captured", [this] { return m_display.IsCaptured(); });
    Call("active", [this] { return m_display.Active(); });
    Call("layer", [this](HWND window, DWORD flags, BYTE opacity, Words words) {
        const SIZE size{static_cast<int>(words.size()), 1};
        const MemoryBitmap bitmap(BitmapInfo(size.cx, -size.cy));
        for (std::size_t x = 0; x < words.size(); ++x)
            static_cast<std::uint32_t*>(bitmap.Bits())[x] = static_cast<std::uint32_t>(Number(words[x]));
        POINT origin{0, 0};
        SIZE shown = size;
        BLENDFUNCTION blend{AC_SRC_OVER, 0, opacity, AC_SRC_ALPHA};
        return UpdateLayeredWindow(window, nullptr, nullptr, &shown, bitmap, &origin, RGB(255, 0, 255),
                                   &blend, flags);
    });
}

void NativeScript::AddReports()
{
    Call("type", [this](std::string text) { m_display.Type(text); });
    Call("text", [this](std::string text) { m_sink.OnText(text); });
    Call("key-event", [this](int key, std::string how) { m_sink.OnKey(key, how == "down"); });
    Call("moved", [this](HWND window, RECT place) { m_sink.OnMoved(window, place); });
    Call("minimised", [this](HWND window, std::string is) { m_sink.OnMinimised(window, is == "yes"); });
    Call("close", [this](HWND window) { m_sink.OnClose(window); });
    Call("activated", [this](HWND window) { m_sink.OnActivated(window); });
    Call("compose",
         [this](std::string text, int caret) { m_display.Compose(text == "-" ? "" : text, caret); });
    Call("caret", [](HWND window, int height, POINT at) {
        return CreateCaret(window, nullptr, 1, height) && SetCaretPos(at.x, at.y) && ShowCaret(window);
    });
    Call("destroy-caret", [] { return DestroyCaret(); });
    Call("text-area", [this] { return Text(m_display.TextArea()); });
    Call("dropped", [this] { return m_display.IsCompositionDropped(); });
    Call("leave", [this] { m_display.LeaveWindows(); });
}

}  // namespace

using NativeWindows = PlatformTest;

TEST_F(NativeWindows, GoAsTheScriptsSay)
{
    CheckScripts<NativeScript>("user/native_scripts");
}

}  // namespace qvui::test
