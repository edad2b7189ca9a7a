#pragma once

#include <string>

#include <qvui/platform/platform.h>

namespace qvui::test {

// Places and sizes as texts, "left,top,right,bottom" and "x,y": they compare and print well.
inline std::string Text(const POINT& point)
{
    return std::to_string(point.x) + "," + std::to_string(point.y);
}
inline std::string Text(const SIZE& size)
{
    return std::to_string(size.cx) + "," + std::to_string(size.cy);
}
inline std::string Text(const RECT& rect)
{
    return Text(POINT{rect.left, rect.top}) + "," + Text(POINT{rect.right, rect.bottom});
}

}  // namespace qvui::test
