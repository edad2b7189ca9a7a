#pragma once

#include <functional>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "support/controls/control_window.h"

namespace qvui::test {

/// Runs a script of windows and of what is done in them, and writes down what becomes of them.
///
/// A script has one command a line, "#" starts a comment, and what begins with a blank is output, which Run
/// makes anew: after "window" the laid-out tree, after every other command the controls that changed ("-"
/// those that went), the notifications, what probes were told, and the control that has the focus now. Points
/// are client coordinates of the window, controls are called by their names; "." is the sender in a handler.
///
///     window 400x100            then lines of XML, up to the first line without one
///     on MOMENT: COMMAND        does it once, at the next moment of that kind, while it is handled: a
///                               notification "CODE SENDER PARAMETER", "#3" (the third of the window), or
///                               what a probe is told, "NAME EVENT SENDER"; the end may be left out
///     repaint COMMAND           does it and says what must be painted then
///
/// and those of Commands and kOperations in scenario.cpp.
class Scenario {
public:
    /// The script with its output.
    std::string Run(const std::string& script);

private:
    using Arguments = std::istringstream;
    using Command = std::function<void(Scenario&, Arguments&)>;
    static const std::map<std::string, Command>& Commands();

    void Execute(const std::string& line);
    /// A command that may be part of another.
    void Do(const std::string& line);
    /// Does what was asked for a moment.
    void Meet(const std::string& moment);
    void Use(std::unique_ptr<ControlWindow> window);
    void Open(const std::string& size, const std::string& content);
    /// Appends what is different from the last time.
    void WriteChanges();
    void WritePicture(const RECT& part);
    void WriteColors(bool withBlack);
    void Collect(DUI::IDUIControl& control, const std::string& indent);

    std::unique_ptr<ControlWindow> m_window;
    // Of their own: those of the window go with it, in the middle of a call.
    MessagePointer m_mouse{nullptr};
    MessageKeys m_keys{nullptr};
    std::vector<std::pair<std::string, std::string>> m_handlers;  // moments and commands
    int m_notifications = 0;
    std::string m_noticed;                                   // the lines of those since the last command
    std::vector<std::pair<std::string, std::string>> m_now;  // a control's label and its state, in tree order
    std::vector<std::pair<std::string, std::string>> m_before;
    std::string m_focus;
    bool m_holdsMouse = false;
    HWND m_menu = nullptr;
    bool m_isPainting = false;
    std::string m_text;
};

}  // namespace qvui::test
