#include "platform/text/text_canvas.h"

#include <cstring>

HFONT TestFont(int height)
{
    LOGFONTA description{};
    description.lfHeight = height;
    description.lfWeight = FW_NORMAL;
    description.lfCharSet = DEFAULT_CHARSET;
    std::strcpy(description.lfFaceName, "DejaVu Sans");
    return CreateFontIndirectA(&description);
}

TextCanvas::TextCanvas(int width, int height) : Canvas(width, height), m_font(*this, TestFont(-13))
{
    SetBkMode(*this, TRANSPARENT);
    SetTextColor(*this, RGB(1, 1, 1));
    GetTextMetricsA(*this, &m_metrics);
}

int TextCanvas::Width(const std::string& text) const
{
    SIZE size{};
    EXPECT_TRUE(GetTextExtentPoint32A(*this, text.data(), static_cast<int>(text.size()), &size));
    return size.cx;
}

void TextCanvas::Out(int x, int y, const std::string& text)
{
    TextOutA(*this, x, y, text.data(), static_cast<int>(text.size()));
}

int TextCanvas::Draw(const std::string& text, RECT rect, UINT format)
{
    return DrawTextA(*this, text.data(), static_cast<int>(text.size()), &rect, format);
}

RECT TextCanvas::Calculated(const std::string& text, RECT rect, UINT format, int* result)
{
    const int height =
        DrawTextA(*this, text.data(), static_cast<int>(text.size()), &rect, format | DT_CALCRECT);
    if (result)
        *result = height;
    return rect;
}

std::string TextCanvas::Modified(const std::string& text, int width, UINT format, int height)
{
    std::vector<char> buffer(text.size() + 16);
    std::memcpy(buffer.data(), text.c_str(), text.size() + 1);
    RECT rect{0, 0, width, height};
    DrawTextA(*this, buffer.data(), -1, &rect, format | DT_MODIFYSTRING);
    return buffer.data();
}
