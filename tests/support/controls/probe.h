#pragma once

#include <functional>
#include <string>
#include <vector>

#include <qvui/framework/control_base.h>

namespace qvui::test {

/// A control that writes down what happens to it, in one log for all of them: "name EVENT sender", "name
/// create", "name paint". The tag "probe" makes one, once Register was called. Its attribute "answers" gives
/// it a further interface name.
class Probe : public DUI::CDUIControlBase {
public:
    static const DUI::ControlClass& Class();
    /// Makes the tag known to the application's factory and empties the log.
    static void Register();
    /// The log since the last call, "a create, root create", without the lines that contain one of the words.
    static std::string Take(const std::vector<const char*>& without = {});
    static void Write(const std::string& line);
    /// Runs on every line after it was written.
    static void OnWrite(std::function<void(const std::string& line)> call);

    /// The type of the event that a line calls by that name.
    static UINT EventType(const std::string& name);

    Probe() = default;
    explicit Probe(const char* name) { SetName(name); }

    void* GetInterface(const CString& name) override;
    DUI::CRefPtr<DUI::IDUIControl> Clone() override { return new Probe(*this); }
    void SetAttribute(const CString& name, const CString& value) override;
    BOOL Activate() override;
    void OnSkinChanged() override;
    void SetControlRect(const RECT& rect) override;

    /// Runs after an event was written down, before the base class sees it.
    std::function<void(const DUI::tagDUIEvent&, BOOL&)> onEvent;
    std::function<void(const RECT&)> onRect;

protected:
    Probe(const Probe& other) : CDUIControlBase(other), m_answers(other.m_answers) {}

    void OnCreate() override { Write(Line("create")); }
    void OnDestroy() override;
    void OnTimer(int id) override { Write(Line("timer") + " " + std::to_string(id)); }
    LRESULT ProcessEvent(const DUI::tagDUIEvent& event, BOOL& bHandled) override;
    void PaintBkgnd(HDC) override { Write(Line("background")); }
    void PaintForgnd(HDC) override { Write(Line("foreground")); }
    void PaintText(HDC) override { Write(Line("text")); }
    void PaintBorder(HDC) override { Write(Line("border")); }

private:
    std::string Line(const char* what) const { return std::string(GetName()) + " " + what; }

    CString m_answers;
};

/// The same without painting, creation and destruction.
std::string TakeEvents(std::vector<const char*> without = {});

}  // namespace qvui::test
