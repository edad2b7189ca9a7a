#pragma once

#include <string>
#include <vector>

#include <qvui/framework/control_base.h>

#include "support/geometry_text.h"

namespace qvui::test {

/// Adds a word after a blank.
inline void AddWord(std::string& words, const std::string& word)
{
    if (!words.empty())
        words += ' ';
    words += word;
}

/// The children's rectangles in order, with blanks between.
inline std::string PlacesOf(const DUI::IDUIControl& container)
{
    std::string text;
    for (int i = 0; i < container.GetControlCount(); ++i)
        AddWord(text, Text(container.GetControlByIndex(i)->GetControlRect()));
    return text;
}

/// A control that asks for a size and counts what its container does with it.
class Brick : public DUI::CDUIControlBase {
public:
    Brick() = default;
    explicit Brick(SIZE wanted) : m_wanted(wanted) {}

    DUI::CRefPtr<DUI::IDUIControl> Clone() override { return new Brick(*this); }
    BOOL EstimateSize(SIZE available, SIZE& size) override
    {
        asked.push_back(std::to_string(available.cx) + "x" + std::to_string(available.cy));
        if (answers)
            size = m_wanted;
        return answers;
    }
    void SetControlRect(const RECT& rect) override
    {
        ++placed;
        CDUIControlBase::SetControlRect(rect);
    }

    std::vector<std::string> asked;  // the spaces it was offered
    int placed = 0;
    bool answers = true;

protected:
    Brick(const Brick& other) : CDUIControlBase(other), m_wanted(other.m_wanted) {}

private:
    SIZE m_wanted{0, 0};
};

/// Adds a brick; the result is borrowed from the container.
inline Brick* AddBrick(DUI::IDUIControl& container, SIZE wanted)
{
    Brick* const brick = new Brick(wanted);
    container.AddControl(brick);
    return brick;
}

}  // namespace qvui::test
