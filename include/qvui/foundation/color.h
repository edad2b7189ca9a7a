#pragma once

#include <qvui/platform/cstring.h>

namespace DUI {

/// A colour in the byte order of a 32-bit pixel: blue, green, red, alpha. All four zero means "no colour".
class QVUI_API CARGB {
public:
    CARGB() = default;
    CARGB(unsigned char r, unsigned char g, unsigned char b, unsigned char a)
        : m_blue(b),
          m_green(g),
          m_red(r),
          m_alpha(a)
    {
    }

    unsigned char GetA() const { return m_alpha; }
    unsigned char GetR() const { return m_red; }
    unsigned char GetG() const { return m_green; }
    unsigned char GetB() const { return m_blue; }
    unsigned char& GetA() { return m_alpha; }
    unsigned char& GetR() { return m_red; }
    unsigned char& GetG() { return m_green; }
    unsigned char& GetB() { return m_blue; }
    void SetA(unsigned char value) { m_alpha = value; }
    void SetR(unsigned char value) { m_red = value; }
    void SetG(unsigned char value) { m_green = value; }
    void SetB(unsigned char value) { m_blue = value; }

    int IsEmpty() const { return m_alpha == 0 && m_blue == 0 && m_green == 0 && m_red == 0; }

    /// Hexadecimal text as 0xAARRGGBB, read as by strtoul in base 16: fewer than eight digits leave the high
    /// bytes zero, more than eight saturate to all ones, and no digit at all gives the empty colour.
    void SetColor(const char* hexadecimal);
    /// A COLORREF (0x00BBGGRR); alpha becomes 255.
    void SetColor(DWORD colorref);
    /// Returns the COLORREF; alpha is dropped.
    DWORD GetColor() const
    {
        return (static_cast<DWORD>(m_blue) << 16) | (static_cast<DWORD>(m_green) << 8) | m_red;
    }

    void WriteToDIB4(unsigned char* pixel) const
    {
        WriteToDIB3(pixel);
        pixel[3] = m_alpha;
    }
    void WriteToDIB3(unsigned char* pixel) const
    {
        pixel[0] = m_blue;
        pixel[1] = m_green;
        pixel[2] = m_red;
    }
    /// Reads a 32-bit pixel. Returns the position after it.
    unsigned char* ReadFromDIB4(unsigned char* pixel)
    {
        ReadFromDIB3(pixel);
        m_alpha = pixel[3];
        return pixel + 4;
    }
    /// Reads a 24-bit pixel, leaving alpha unchanged. Returns the position after it.
    unsigned char* ReadFromDIB3(unsigned char* pixel)
    {
        m_blue = pixel[0];
        m_green = pixel[1];
        m_red = pixel[2];
        return pixel + 3;
    }

private:
    unsigned char m_blue = 0;
    unsigned char m_green = 0;
    unsigned char m_red = 0;
    unsigned char m_alpha = 0;
};

/// Parses a colour literal: "#" and hexadecimal digits AARRGGBB, or "rgb(r,g,b)" in decimal (alpha 255,
/// values truncated to their low 8 bits). Returns FALSE and leaves `color` unchanged if the text is not a
/// literal.
QVUI_API BOOL ParseColorLiteral(const CString& text, CARGB& color);

/// A colour as hue (degrees), luminance and saturation (0 to 1) beside its red, green and blue bytes. Fill in
/// one side and call ToHLS or ToRGB for the other. Conversions to bytes truncate.
class QVUI_API CHLSColor {
public:
    /// Leaves every field uninitialised; the constructors from a colour leave hue, luminance and saturation
    /// so.
    CHLSColor() {}
    CHLSColor(CARGB& color);
    CHLSColor(unsigned char r, unsigned char g, unsigned char b);
    CHLSColor(DWORD colorref);
    /// Clamps hue, luminance and saturation; leaves the bytes uninitialised.
    CHLSColor(double hue, double luminance, double saturation);

    /// Returns the COLORREF of the bytes.
    operator DWORD() const;

    /// Clamps luminance and saturation into 0..1 and hue into 0..358.9999; there is no wrap-around.
    void CorrectHLS();
    void ToHLS();
    /// Clamps hue, luminance and saturation first.
    void ToRGB();

    unsigned char m_red;
    unsigned char m_green;
    unsigned char m_blue;
    double m_luminance;
    double m_saturation;
    double m_hue;
};

}  // namespace DUI
