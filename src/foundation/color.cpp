#include <qvui/foundation/color.h>

#include <algorithm>
#include <cfloat>
#include <cstdio>
#include <cstdlib>

namespace DUI {
namespace {

// Must not be computed by the x87 unit: its extended precision would give different bytes.
static_assert(FLT_EVAL_METHOD == 0 || FLT_EVAL_METHOD == 1);

constexpr double kHueLimit = 359.0;
constexpr double kLargestHue = 358.9999;

// A share of full intensity, truncated. A share that is not a number is black: its conversion would be
// undefined.
unsigned char ByteOf(double share)
{
    return share == share ? static_cast<unsigned char>(static_cast<int>(share * 255)) : 0;
}

unsigned char Channel(double low, double high, double hue)
{
    while (hue >= 360)
        hue -= 360;
    while (hue < 0)
        hue += 360;
    double value = low;
    if (hue < 60)
        value = low + (high - low) * hue / 60;
    else if (hue < 180)
        value = high;
    else if (hue < 240)
        value = low + (high - low) * (240 - hue) / 60;
    return ByteOf(value);
}

}  // namespace

void CARGB::SetColor(const char* hexadecimal)
{
    // strtoul saturates at its own width and lets a minus sign wrap around; a colour's width is 32 bits
    // everywhere.
    constexpr long long kAllOnes = 0xFFFFFFFF;
    const long long wide = std::strtoll(hexadecimal, nullptr, 16);
    const auto value = static_cast<DWORD>(wide < -kAllOnes || wide > kAllOnes ? kAllOnes : wide);
    m_alpha = static_cast<unsigned char>(value >> 24);
    m_red = static_cast<unsigned char>(value >> 16);
    m_green = static_cast<unsigned char>(value >> 8);
    m_blue = static_cast<unsigned char>(value);
}

void CARGB::SetColor(DWORD colorref)
{
    m_red = static_cast<unsigned char>(colorref);
    m_green = static_cast<unsigned char>(colorref >> 8);
    m_blue = static_cast<unsigned char>(colorref >> 16);
    m_alpha = 255;
}

BOOL ParseColorLiteral(const CString& text, CARGB& color)
{
    if (text.GetLength() < 2)
        return FALSE;
    if (text[0] == '#') {
        color.SetColor(text.GetString() + 1);
        return TRUE;
    }
    if (!EqualNoCase(text.Left(3).View(), "rgb"))
        return FALSE;
    int red = 0;
    int green = 0;
    int blue = 0;
    CString numbers = text.Mid(3);
    numbers.Trim();
    // Components that the scan does not reach stay 0; "rgb" followed by anything is a literal.
    static_cast<void>(std::sscanf(numbers, "(%d,%d,%d)", &red, &green, &blue));
    color = CARGB(static_cast<unsigned char>(red), static_cast<unsigned char>(green),
                  static_cast<unsigned char>(blue), 255);
    return TRUE;
}

CHLSColor::CHLSColor(CARGB& color) : m_red(color.GetR()), m_green(color.GetG()), m_blue(color.GetB())
{
}

CHLSColor::CHLSColor(unsigned char r, unsigned char g, unsigned char b) : m_red(r), m_green(g), m_blue(b)
{
}

CHLSColor::CHLSColor(DWORD colorref)
    : m_red(static_cast<unsigned char>(colorref)),
      m_green(static_cast<unsigned char>(colorref >> 8)),
      m_blue(static_cast<unsigned char>(colorref >> 16))
{
}

CHLSColor::CHLSColor(double hue, double luminance, double saturation)
    : m_luminance(luminance),
      m_saturation(saturation),
      m_hue(hue)
{
    CorrectHLS();
}

CHLSColor::operator DWORD() const
{
    return (static_cast<DWORD>(m_blue) << 16) | (static_cast<DWORD>(m_green) << 8) | m_red;
}

void CHLSColor::CorrectHLS()
{
    // Written so that a NaN passes through unchanged.
    if (m_luminance < 0)
        m_luminance = 0;
    if (m_luminance > 1)
        m_luminance = 1;
    if (m_saturation < 0)
        m_saturation = 0;
    if (m_saturation > 1)
        m_saturation = 1;
    if (m_hue < 0)
        m_hue = 0;
    if (m_hue >= kHueLimit)
        m_hue = kLargestHue;
}

void CHLSColor::ToHLS()
{
    const int red = m_red;
    const int green = m_green;
    const int blue = m_blue;
    const int largest = std::max({red, green, blue});
    const int smallest = std::min({red, green, blue});
    if (largest == smallest) {
        m_luminance = smallest / 255.0;
        m_saturation = 0;
        m_hue = 0;
        return;
    }
    const int delta = largest - smallest;
    m_luminance = (largest + smallest) / 510.0;
    m_saturation = m_luminance <= 0.5 ? static_cast<double>(delta) / (largest + smallest)
                                      : static_cast<double>(delta) / (510 - largest - smallest);
    // Ties for the largest channel go to red before green before blue.
    if (blue > std::max(red, green))
        m_hue = static_cast<double>((red - green) * 60) / delta + 240;
    else if (red >= green)
        m_hue = static_cast<double>((green - blue) * 60) / delta + 360;
    else
        m_hue = static_cast<double>((blue - red) * 60) / delta + 120;
    if (m_hue >= 360)
        m_hue -= 360;
}

void CHLSColor::ToRGB()
{
    CorrectHLS();
    if (m_saturation == 0) {
        m_red = m_green = m_blue = ByteOf(m_luminance);
        return;
    }
    const double high = m_luminance <= 0.5 ? m_luminance * (1 + m_saturation)
                                           : m_luminance + m_saturation - m_luminance * m_saturation;
    const double low = 2 * m_luminance - high;
    m_red = Channel(low, high, m_hue + 120);
    m_green = Channel(low, high, m_hue);
    m_blue = Channel(low, high, m_hue - 120);
}

}  // namespace DUI
