#include "support/controls/probe.h"

#include <algorithm>

#include <qvui/framework/app.h>

namespace qvui::test {
namespace {

using namespace DUI;

std::vector<std::string>& TheLog()
{
    static std::vector<std::string> log;
    return log;
}

std::function<void(const std::string&)>& TheCall()
{
    static std::function<void(const std::string&)> call;
    return call;
}

constexpr struct {
    UINT type;
    const char* name;
} kEventNames[] = {{DUIEVENT_SETCURSOR, "SETCURSOR"},
                   {DUIEVENT_TIMER, "TIMER"},
                   {DUIEVENT_SETFOCUS, "SETFOCUS"},
                   {DUIEVENT_KILLFOCUS, "KILLFOCUS"},
                   {DUIEVENT_WINDOWSIZE, "WINDOWSIZE"},
                   {DUIEVENT_WINDOWMOVE, "WINDOWMOVE"},
                   {DUIEVENT_LBUTTONDOWN, "DOWN"},
                   {DUIEVENT_LBUTTONUP, "UP"},
                   {DUIEVENT_LBUTTONDBLCLK, "DBLCLK"},
                   {DUIEVENT_MOUSEENTER, "ENTER"},
                   {DUIEVENT_MOUSELEAVE, "LEAVE"},
                   {DUIEVENT_MOUSEMOVE, "MOVE"},
                   {DUIEVENT_MOUSEWHEEL, "WHEEL"},
                   {DUIEVENT_BUTTONDOWN_ELSEWHERE, "ELSEWHERE"},
                   {DUIEVENT_CONTEXTMENU, "CONTEXTMENU"},
                   {DUIEVENT_KEYDOWN, "KEYDOWN"},
                   {DUIEVENT_KEYUP, "KEYUP"},
                   {DUIEVENT_CHAR, "CHAR"},
                   {DUIEVENT_VSCROLL, "VSCROLL"},
                   {DUIEVENT_HSCROLL, "HSCROLL"}};

std::string EventName(UINT type)
{
    const auto* const found = std::find_if(std::begin(kEventNames), std::end(kEventNames),
                                           [type](const auto& entry) { return entry.type == type; });
    return found == std::end(kEventNames) ? std::to_string(type) : found->name;
}

}  // namespace

const ControlClass& Probe::Class()
{
    static const ControlClass info("Probe", &CDUIControlBase::Class(), "Writes down what happens to it.",
                                   {"probe"});
    return info;
}

void Probe::Register()
{
    DUIGetAppInstance()->GetControlFactory()->RegisterControl("probe",
                                                              []() -> IDUIControl* { return new Probe; });
    TheLog().clear();
}

std::string Probe::Take(const std::vector<const char*>& without)
{
    std::string text;
    for (const std::string& line : std::exchange(TheLog(), {}))
        if (std::none_of(without.begin(), without.end(),
                         [&line](const char* word) { return line.find(word) != std::string::npos; }))
            text += (text.empty() ? "" : ", ") + line;
    return text;
}

void Probe::Write(const std::string& line)
{
    TheLog().push_back(line);
    if (TheCall())
        TheCall()(line);
}

void Probe::OnWrite(std::function<void(const std::string& line)> call)
{
    TheCall() = std::move(call);
}

UINT Probe::EventType(const std::string& name)
{
    const auto* const found = std::find_if(std::begin(kEventNames), std::end(kEventNames),
                                           [&name](const auto& entry) { return entry.name == name; });
    return found == std::end(kEventNames) ? 0 : found->type;
}

void* Probe::GetInterface(const CString& name)
{
    return Class().Answers(name) || (!m_answers.IsEmpty() && EqualNoCase(m_answers.View(), name.View()))
               ? this
               : nullptr;
}

void Probe::SetAttribute(const CString& name, const CString& value)
{
    if (EqualNoCase(name.View(), "answers"))
        m_answers = value;
    else
        CDUIControlBase::SetAttribute(name, value);
}

BOOL Probe::Activate()
{
    Write(Line("activate"));
    return CDUIControlBase::Activate();
}

void Probe::OnSkinChanged()
{
    CDUIControlBase::OnSkinChanged();
    Write(Line("skin"));
}

void Probe::SetControlRect(const RECT& rect)
{
    CDUIControlBase::SetControlRect(rect);
    if (onRect)
        onRect(rect);
}

void Probe::OnDestroy()
{
    Write(Line("destroy"));
    CDUIControlBase::OnDestroy();
}

LRESULT Probe::ProcessEvent(const tagDUIEvent& event, BOOL& bHandled)
{
    const std::string sender = !event.pSender          ? "-"
                               : event.pSender == this ? "self"
                                                       : event.pSender->GetName().GetString();
    Write(Line(EventName(event.Type).c_str()) + " " + sender);
    if (onEvent) {
        const auto call = onEvent;  // the call may replace or end what it belongs to
        call(event, bHandled);
    }
    return CDUIControlBase::ProcessEvent(event, bHandled);
}

std::string TakeEvents(std::vector<const char*> without)
{
    for (const char* const word : {"background", "foreground", " text", "border", "create", "destroy"})
        without.push_back(word);
    return Probe::Take(without);
}

}  // namespace qvui::test
