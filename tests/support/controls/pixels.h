#pragma once

#include <cstdint>
#include <string>

#include "support/controls/control_window.h"

namespace qvui::test {

// What the test skin's images and colours look like in ClientPixels.
constexpr std::uint32_t kRed = 0xFF0000;
constexpr std::uint32_t kGreen = 0x00FF00;
constexpr std::uint32_t kBlue = 0x0000FF;
constexpr std::uint32_t kGrey = 0x808080;
constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr std::uint32_t kCyan = 0x00FFFF;
constexpr std::uint32_t kYellow = 0xFFFF00;
constexpr std::uint32_t kMagenta = 0xFF00FF;

/// A window with a blue (or red) background: without one, a paint keeps what the last one left.
inline std::string OnBlue(const std::string& root)
{
    return "<window frame_style=\"blue\">" + root + "</window>";
}
inline std::string OnRed(const std::string& root)
{
    return "<window frame_style=\"red\">" + root + "</window>";
}

/// The bounds of the pixels of exactly this colour; empty without any.
RECT BoundsOf(const ClientPixels& pixels, std::uint32_t color);
/// The same as text.
std::string Bounds(const ClientPixels& pixels, std::uint32_t color);
/// The bounds of the pixels in which two pictures of one size differ.
RECT DifferenceOf(const ClientPixels& one, const ClientPixels& other);
/// The same as text.
std::string Difference(const ClientPixels& one, const ClientPixels& other);

/// What the root of a window asks for, as text; "none" when it asks for nothing.
std::string Estimate(const ControlWindow& window);

}  // namespace qvui::test
