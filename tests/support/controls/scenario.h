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
/// are client coordinates of the window, controls are called by their names.
///
///     window 400x100            then lines of XML, up to the first line without one
///     skin NAME  language NAME  resize WxH  fire NAME ID (a timer)  picture L,T,R,B (a letter for each
///     pixel) move|press|click|double X,Y  release  leave  wheel NOTCHES  right X,Y key NAME  tab  back  hold
///     NAME  drop NAME  type TEXT  alt LETTER set NAME ATTRIBUTE=VALUE  text NAME TEXT
///     show|hide|enable|disable|focus|activate NAME place NAME L,T,R,B  remove NAME  add PARENT INDEX XML
///     (-1: at the end)  index NAME INDEX  clone NAME PARENT and the operations of control classes: see
///     kOperations
class Scenario {
public:
    /// The script with its output.
    std::string Run(const std::string& script);

private:
    using Arguments = std::istringstream;
    using Command = std::function<void(Scenario&, Arguments&)>;
    static const std::map<std::string, Command>& Commands();

    void Execute(const std::string& line);
    void Open(const std::string& size, const std::string& content);
    /// Appends what is different from the last time.
    void WriteChanges();
    void WritePicture(const RECT& part);
    void Collect(DUI::IDUIControl& control, const std::string& indent);

    std::unique_ptr<ControlWindow> m_window;
    std::vector<std::pair<std::string, std::string>> m_now;  // a control's label and its state, in tree order
    std::vector<std::pair<std::string, std::string>> m_before;
    std::string m_focus;
    bool m_holdsMouse = false;
    bool m_isPainting = false;
    std::string m_text;
};

}  // namespace qvui::test
