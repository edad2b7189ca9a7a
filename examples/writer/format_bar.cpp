#include "writer/format_bar.h"

#include <cstdlib>

namespace writer {
namespace {

constexpr LONG kTwips = 20;  // in a point

struct Effect {
    Command command;
    const char* control;
    DWORD bit;  // CFE_ and CFM_
};
constexpr Effect kEffects[] = {{Command::Bold, "bold", CFE_BOLD},
                               {Command::Italic, "italic", CFE_ITALIC},
                               {Command::Underline, "underline", CFE_UNDERLINE}};

struct Alignment {
    Command command;
    const char* control;
    WORD value;
};
constexpr Alignment kAlignments[] = {{Command::Left, "left", PFA_LEFT},
                                     {Command::Centre, "centre", PFA_CENTER},
                                     {Command::Right, "right", PFA_RIGHT}};

struct Colour {
    Command command;
    const char* control;
    COLORREF value;
};
constexpr Colour kColours[] = {{Command::Black, "black", RGB(31, 37, 51)},
                               {Command::Blue, "blue", RGB(58, 95, 214)},
                               {Command::Red, "red", RGB(201, 59, 64)},
                               {Command::Green, "green", RGB(33, 135, 84)}};

}  // namespace

bool FormatBar::Apply(Document& document, Command command)
{
    CHARFORMAT2A format{};
    for (const Effect& effect : kEffects)
        if (effect.command == command) {
            document.Editor().GetSelectionCharFormat(format);
            const bool isSet = (format.dwMask & format.dwEffects & effect.bit) != 0;
            format.dwMask = effect.bit;
            format.dwEffects = isSet ? 0 : effect.bit;
            document.ApplyFormat(format);
            return true;
        }
    for (const Colour& colour : kColours)
        if (colour.command == command) {
            format.dwMask = CFM_COLOR;
            format.crTextColor = colour.value;
            document.ApplyFormat(format);
            return true;
        }
    for (const Alignment& alignment : kAlignments)
        if (alignment.command == command) {
            document.ApplyAlignment(alignment.value);
            return true;
        }
    return false;
}

void FormatBar::ApplySize(Document& document)
{
    constexpr int kLargest = 400;
    const int points = std::atoi(m_window.GetContrlText("size"));
    if (m_isShowing || points <= 0 || points > kLargest)
        return;
    CHARFORMAT2A format{};
    document.Editor().GetSelectionCharFormat(format);
    if ((format.dwMask & CFM_SIZE) && format.yHeight == points * kTwips)
        return;
    format = {};
    format.dwMask = CFM_SIZE;
    format.yHeight = points * kTwips;
    document.ApplyFormat(format);
}

void FormatBar::Show(Document& document)
{
    if (m_isShowing)
        return;
    m_isShowing = true;
    CHARFORMAT2A format{};
    PARAFORMAT2 paragraph{};
    document.Editor().GetSelectionCharFormat(format);
    document.Editor().GetParaFormat(paragraph);
    const BOOL isRich = document.IsRich();
    for (const Effect& effect : kEffects) {
        m_window.EnableControl(effect.control, isRich);
        m_window.SetButtonChecked(effect.control, (format.dwMask & format.dwEffects & effect.bit) != 0);
    }
    for (const Alignment& alignment : kAlignments) {
        m_window.EnableControl(alignment.control, isRich);
        m_window.SetButtonChecked(alignment.control, paragraph.wAlignment == alignment.value);
    }
    for (const Colour& colour : kColours) {
        m_window.EnableControl(colour.control, isRich);
        m_window.SetButtonChecked(colour.control,
                                  (format.dwMask & CFM_COLOR) && format.crTextColor == colour.value);
    }
    m_window.EnableControl("size", isRich);
    CString size;
    if (format.dwMask & CFM_SIZE)
        size.Format("%d", static_cast<int>((format.yHeight + kTwips / 2) / kTwips));
    if (m_window.GetContrlText("size") != size)
        m_window.SetContrlText("size", size);
    m_isShowing = false;
}

}  // namespace writer
