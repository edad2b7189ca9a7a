#pragma once

#include <string>

#include "platform/gdi/canvas.h"

/// A canvas with a font, black on transparent; what is measured with it depends on the machine's font, so
/// tests compare measurements with each other.
class TextCanvas : public Canvas {
public:
    explicit TextCanvas(int width = 400, int height = 200);

    /// The width of a text that has no line breaks.
    int Width(const std::string& text) const;
    int LineHeight() const { return m_metrics.tmHeight; }
    const TEXTMETRICA& Metrics() const { return m_metrics; }

    /// TextOutA
    void Out(int x, int y, const std::string& text);
    /// DrawTextA; the text is not changed and `rect` neither.
    int Draw(const std::string& text, RECT rect, UINT format);
    /// DrawTextA with DT_CALCRECT added; the rectangle that it answers.
    RECT Calculated(const std::string& text, RECT rect, UINT format, int* result = nullptr);
    /// What DT_MODIFYSTRING leaves of the text after it was drawn into a space of the given size.
    std::string Modified(const std::string& text, int width, UINT format, int height = 1000);

private:
    Scoped<HFONT> m_font;
    TEXTMETRICA m_metrics{};
};

/// A font of DejaVu Sans; the height as in LOGFONTA.
HFONT TestFont(int height);
