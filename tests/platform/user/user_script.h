#pragma once

#include <memory>
#include <set>

#include "platform/script/script.h"
#include "support/platform_window.h"
#include "support/synthetic_input.h"

namespace qvui::test {

/// A script of operations on windows; after each line stand the messages that it caused:
///
///     create NAME left,top,right,bottom [style S] [ex S] [class S] [in PARENT] [owner WINDOW] [fill BRUSH]
///         [cursor HANDLE] [hidden]        a popup that is shown, or with "in" a visible child; "window"
///                                         creates one, too, and prints nothing of it
///     watch MESSAGE[:FORMAT]...           the messages to print from now on. A format has a letter for
///         each parameter: w a window, p a point, d a number, x hexadecimal, l its low word, h its high word
///     answer WINDOW MESSAGE NUMBER        answers such messages
///     on WINDOW MESSAGE LINE...           carries out a line when such a message comes; "?LINE" prints in
///         braces what it answers
///     limits LEAST,MOST MAXIMISED         the sizes and the place in WM_GETMINMAXINFO
///     width NUMBER                        changes the width in WM_WINDOWPOSCHANGING
///     paint [BRUSH RECT]                  between BeginPaint and EndPaint; prints area and kind of clip
///     move, press, release, click, wheel, down, up, key, drag     synthetic input, with points on the
///         screen or, as WINDOW:x,y, in a client area. With "inject-" before it nothing is dispatched.
///     hold, let-go WINDOW KEY             what GetKeyState says of a key
///     pump, settle                        dispatches what is pending; "settle" prints nothing of it
///     peek WINDOW FIRST LAST FLAGS        the next message, its window and its parameters, or "none"; "get"
///                                         waits for it
class UserScript : public Script {
public:
    UserScript();
    ~UserScript() override;

protected:
    void AfterLine() override;
    void EndCase() override;
    POINT PointOf(const std::string& word) const override;

    std::unique_ptr<SyntheticInput> input;

private:
    void DeleteBrushes();
    void AddWindows();
    void AddHandlers();
    void AddInput();
    void AddQueue();
    void AddPainting();
    void Watch(const Words& messages);
    HWND Create(const std::string& name, RECT place, Words words);
    std::optional<LRESULT> Receive(const LoggedMessage& message);
    std::string Told(const LoggedMessage& message, const std::string& format) const;
    std::string TextOfMessage(const MSG& message) const;

    HBRUSH m_brushes[2] = {};  // red and blue
    std::set<std::string> m_names;
    std::vector<std::unique_ptr<PlatformWindow>> m_windows;
    std::map<UINT, std::string> m_watched;  // with the formats
    std::map<std::pair<std::string, UINT>, LRESULT> m_answers;
    std::multimap<std::pair<std::string, UINT>, std::string> m_lines;
    const LoggedMessage* m_message = nullptr;  // the one that is handled
    std::string m_told;                        // since the line began
    std::string m_teller;
};

}  // namespace qvui::test
