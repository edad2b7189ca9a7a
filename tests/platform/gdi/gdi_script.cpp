#include "platform/gdi/gdi_script.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <sstream>

namespace {

char LetterOf(std::uint32_t pixel)
{
    const bool isLetter = pixel > ' ' && pixel < 0x7F;
    const std::uint32_t colour = pixel & kColourBits;
    return pixel == 0           ? '.'
           : isLetter           ? static_cast<char>(pixel)
           : colour == 0xFF0000 ? '#'
           : colour == 0x0000FF ? '*'
                                : 'o';
}

HRGN OfRects(const std::vector<RECT>& rects)
{
    std::vector<char> buffer(sizeof(RGNDATAHEADER) + rects.size() * sizeof(RECT));
    RGNDATAHEADER header{
        sizeof(RGNDATAHEADER), RDH_RECTANGLES, static_cast<DWORD>(rects.size()), 0, {0, 0, 100, 100}};
    std::memcpy(buffer.data(), &header, sizeof header);
    std::memcpy(buffer.data() + sizeof header, rects.data(), rects.size() * sizeof(RECT));
    return ExtCreateRegion(nullptr, static_cast<DWORD>(buffer.size()),
                           reinterpret_cast<const RGNDATA*>(buffer.data()));
}

std::string RectsOf(HRGN region)
{
    std::vector<RECT> buffer(100);
    auto* const data = reinterpret_cast<RGNDATA*>(buffer.data());
    const DWORD size = GetRegionData(region, 0, nullptr);
    EXPECT_EQ(GetRegionData(region, size, data), size);
    EXPECT_EQ(size, sizeof(RGNDATAHEADER) + data->rdh.nCount * sizeof(RECT));
    std::string text = RectText(data->rdh.rcBound) + ":";
    for (DWORD i = 0; i < data->rdh.nCount; ++i) {
        RECT rect{};
        std::memcpy(&rect, data->Buffer + i * sizeof rect, sizeof rect);
        text += ' ' + RectText(rect);
    }
    return text;
}

}  // namespace

namespace qvui::test {

// "255" blends with this alpha, "255a" with that of the pixels, too.
void Read(Script& script, Script::Words& words, BLENDFUNCTION& blend)
{
    std::string word = script.Take(words);
    const BYTE format = word.back() == 'a' ? AC_SRC_ALPHA : 0;
    std::erase(word, 'a');
    blend = {AC_SRC_OVER, 0, static_cast<BYTE>(script.Number(word)), format};
}

}  // namespace qvui::test

GdiScript::GdiScript()
{
    AddCanvases();
    AddRegions();
    QVUI_CALLS(AlphaBlend, BitBlt, CombineRgn, CreateBitmap, CreateCompatibleDC, CreatePatternBrush,
               CreatePen, CreateRectRgn, CreateRoundRectRgn, CreateSolidBrush, DeleteDC, DeleteObject,
               DrawFocusRect, EqualRgn, ExcludeClipRect, ExtSelectClipRgn, ExtTextOutA, FillRect, FillRgn,
               FrameRect, GetBkColor, GetBkMode, GetClipBox, GetClipRgn, GetDeviceCaps, GetPixel, GetRgnBox,
               GetStockObject, GetTextColor, IntersectClipRect, IntersectRect, LineTo, MoveToEx, OffsetRgn,
               PatBlt, PtInRect, PtInRegion, Rectangle, RectInRegion, RectVisible, RestoreDC, RoundRect,
               SaveDC, SelectClipRgn, SelectObject, SetBkColor, SetBrushOrgEx, SetBkMode, SetMetaRgn,
               SetPixel, SetRectRgn, SetStretchBltMode, SetTextColor, SetViewportOrgEx, StretchBlt,
               TransparentBlt, UnionRect);
    Constant("red", RGB(255, 0, 0));
    Constant("green", RGB(0, 255, 0));
    Constant("blue", RGB(0, 0, 255));
    Constant("white", RGB(255, 255, 255));
}

void GdiScript::EndCase()
{
    m_canvases.clear();
    Script::EndCase();
}

void GdiScript::Make(const std::string& name, int width, int height, Words options)
{
    int bits = 32;
    PixelAt pixelAt;
    while (!options.empty()) {
        const std::string option = Take(options);
        if (option == "bits")
            bits = static_cast<int>(Number(Take(options)));
        else if (option == "places")
            pixelAt = PlacePixel;
        else if (option == "letters")
            pixelAt = [text = Take(options), width](int x, int y) {
                return static_cast<std::uint32_t>(text.at(static_cast<std::size_t>(y * width + x)));
            };
        else if (option == "fill")
            pixelAt = [pixel = static_cast<std::uint32_t>(Number(Take(options)))](int, int) { return pixel; };
    }
    m_canvases[name] = std::make_unique<Canvas>(width, height, bits);
    if (pixelAt)
        m_canvases[name]->Paint(pixelAt);
    Name(name, static_cast<HDC>(*m_canvases[name]));
    Name(name + ".bitmap", m_canvases[name]->Bitmap());
}

void GdiScript::AddCanvases()
{
    Call("canvas", [this](std::string name, int width, int height, Words options) {
        Make(name, width, height, options);
    });
    Call("show", [this](std::string name) {
        std::istringstream rows(m_canvases.at(name)->Letters(LetterOf));
        for (std::string row; std::getline(rows, row);)
            Print(row);
    });
    Call("pixel", [this](std::string name, POINT at) { return m_canvases.at(name)->At(at.x, at.y); });
    Call("hex", [this](std::string name) {
        std::ostringstream text;
        for (const std::uint32_t pixel : m_canvases.at(name)->Pixels())
            text << std::hex << pixel << ' ';
        return text.str();
    });
    // How far each row is set in
    Call("corner", [this](std::string name) {
        std::istringstream rows(m_canvases.at(name)->Picture());
        std::string insets;
        for (std::string row; std::getline(rows, row);)
            insets += std::to_string(std::min(row.size(), row.find('#'))) + ' ';
        return insets;
    });
    // Letters as rows in memory, drawn from a part of them; and rows read back
    Call("SetDIBitsToDevice", [](HDC dc, int width, int height, RECT part, std::string letters) {
        const std::vector<std::uint32_t> rows(letters.begin(), letters.end());
        const BITMAPINFO info = BitmapInfo(width, height);
        return SetDIBitsToDevice(dc, 0, 0, static_cast<DWORD>(part.right - part.left),
                                 static_cast<DWORD>(part.bottom - part.top), part.left, part.top, 0,
                                 static_cast<UINT>(std::abs(height)), rows.data(), &info,
                                 DIB_RGB_COLORS) != 0;
    });
    Call("GetDIBits", [](HDC dc, HBITMAP bitmap, int width, int height, int bits) {
        BITMAPINFO info = BitmapInfo(width, height, bits);
        std::string rows(static_cast<std::size_t>(width * std::abs(height) * bits / 8 + 8), '.');
        const int count =
            GetDIBits(dc, bitmap, 0, static_cast<UINT>(std::abs(height)), rows.data(), &info, DIB_RGB_COLORS);
        std::replace(rows.begin(), rows.end(), '\0', '.');
        return std::to_string(count) + ' ' + rows;
    });
    Call("size", [](HGDIOBJ bitmap) {
        DIBSECTION section{};
        const bool isSection = GetObjectA(bitmap, sizeof section, &section) == sizeof section;
        GetObjectA(bitmap, sizeof section.dsBm, &section.dsBm);
        return std::to_string(section.dsBm.bmWidth) + ' ' + std::to_string(section.dsBm.bmHeight) + ' ' +
               std::to_string(section.dsBm.bmWidthBytes) +
               (isSection ? " in memory, " + std::to_string(section.dsBmih.biHeight) + " rows of " +
                                std::to_string(section.dsBmih.biSizeImage) + " bytes"
                          : "");
    });
}

void GdiScript::AddRegions()
{
    Call("CreateRegion", [this](Words words) {
        std::vector<RECT> rects;
        while (!words.empty())
            Read(*this, words, rects.emplace_back());
        return OfRects(rects);
    });
    Call("rects", RectsOf);
    Call("kind", [](HDC dc) {
        RECT box{};
        return GetClipBox(dc, &box);
    });
}
