#include "sheet.h"

#include <algorithm>
#include <functional>

#include <qvui/platform/cimage.h>
#include <qvui/render/render_engine.h>

#include "resolved.h"

namespace qvui::skin_tool {
namespace {

using DUI::CARGB;
using DUI::CDUIRenderEngine;

constexpr int kWidth = 1120;
constexpr int kMargin = 24;
constexpr int kGap = 16;
constexpr int kTitleHeight = 34;
constexpr int kCaptionHeight = 18;
constexpr int kNarrowest = 84;  // so that a caption has room
constexpr int kMostPixels = 320;

/// One thing that is shown, and what it is called.
struct Item {
    std::string caption;
    SIZE size;
    std::function<void(HDC, const RECT&)> draw;
};
struct Section {
    std::string title;
    std::vector<Item> items;
};

void Fill(HDC hdc, const RECT& rect, COLORREF color)
{
    const HBRUSH brush = CreateSolidBrush(color);
    ::FillRect(hdc, &rect, brush);
    DeleteObject(brush);
}

// What shows where a picture or a colour is transparent.
void FillChecks(HDC hdc, const RECT& rect)
{
    constexpr int kCheck = 8;
    constexpr COLORREF kShades[] = {RGB(255, 255, 255), RGB(214, 217, 224)};
    for (int y = rect.top; y < rect.bottom; y += kCheck)
        for (int x = rect.left; x < rect.right; x += kCheck)
            Fill(hdc, {x, y, std::min<int>(x + kCheck, rect.right), std::min<int>(y + kCheck, rect.bottom)},
                 kShades[(x - rect.left + y - rect.top) / kCheck % 2]);
}

void Write(HDC hdc, HFONT font, const std::string& text, RECT rect, UINT format)
{
    const HGDIOBJ old = SelectObject(hdc, font);
    SetBkMode(hdc, TRANSPARENT);
    SetTextColor(hdc, RGB(40, 44, 54));
    CDUIRenderEngine::DrawTextA(hdc, text.c_str(), static_cast<int>(text.size()), &rect,
                                format | DT_NOPREFIX);
    SelectObject(hdc, old);
}

Section Colors(ResolvedSkin& skin)
{
    Section section{"Colours", {}};
    for (const std::string& name : skin.Names(NameKind::Color)) {
        const CARGB color = skin.Manager().GetColor(name.c_str());
        if (color.IsEmpty())
            continue;
        section.items.push_back({name, {kNarrowest, 44}, [color](HDC hdc, const RECT& rect) {
                                     CDUIRenderEngine::FillRect(hdc, rect, color);
                                 }});
    }
    return section;
}

Section Fonts(ResolvedSkin& skin)
{
    Section section{"Fonts", {}};
    for (const std::string& name : skin.Names(NameKind::Font)) {
        const auto font = skin.Manager().GetFont(name.c_str(), 1);
        if (font.IsNull() || font->IsNull())
            continue;
        const std::string sample = "Hamburgefonstiv 0123456789 " + std::string(font->GetFaceName()) + " " +
                                   std::to_string(font->GetHeight());
        const SIZE size =
            CDUIRenderEngine::GetTextIdealSize(sample.c_str(), font->GetFont(), kWidth, DT_SINGLELINE);
        const SIZE box{size.cx + 16, size.cy + 8};
        section.items.push_back({name, box, [font, sample](HDC hdc, const RECT& rect) {
                                     Fill(hdc, rect, RGB(255, 255, 255));
                                     Write(hdc, font->GetFont(), sample, rect,
                                           DT_SINGLELINE | DT_VCENTER | DT_CENTER);
                                 }});
    }
    return section;
}

// How large an icon is drawn to show what its draw style does.
int Enlarged(int size)
{
    return std::min(size + size / 2 + 24, kMostPixels);
}

// The strip as it is, and behind it an icon in a larger rectangle.
void DrawImage(HDC hdc, const RECT& rect, DUI::CDUIImageList& image)
{
    const int width = image.GetIconWidth();
    const int height = image.GetIconHeight();
    const bool isVertical = image.GetImageDirection() != 0;
    const int saved = SaveDC(hdc);
    const RECT strip{rect.left, rect.top,
                     std::min<LONG>(rect.left + image.GetWidth(), rect.left + kMostPixels), rect.bottom};
    IntersectClipRect(hdc, strip.left, strip.top, strip.right, strip.bottom);
    for (int i = 0; i < image.GetItemCount(); ++i) {
        const int x = rect.left + (isVertical ? 0 : width * i);
        const int y = rect.top + (isVertical ? height * i : 0);
        image.DrawImage(hdc, {x, y, x + width, y + height}, i);
    }
    RestoreDC(hdc, saved);
    const int savedAgain = SaveDC(hdc);
    const RECT large{strip.right + kGap, rect.top, strip.right + kGap + Enlarged(width),
                     rect.top + Enlarged(height)};
    IntersectClipRect(hdc, large.left, large.top, large.right, large.bottom);
    image.DrawImage(hdc, large, 0);
    RestoreDC(hdc, savedAgain);
}

Section Images(ResolvedSkin& skin)
{
    Section section{"Images: the strip, and its first icon enlarged", {}};
    for (const std::string& name : skin.Names(NameKind::Image)) {
        const DUI::CDUIImageListPtr image = skin.Manager().GetImage(name.c_str(), 1);
        if (!image || image->IsNull())
            continue;
        const SIZE size{
            std::min(image->GetWidth(), kMostPixels) + kGap + Enlarged(image->GetIconWidth()),
            std::max(std::min(image->GetHeight(), kMostPixels), Enlarged(image->GetIconHeight()))};
        section.items.push_back(
            {name, size, [image](HDC hdc, const RECT& rect) { DrawImage(hdc, rect, *image); }});
    }
    return section;
}

Section Frames(ResolvedSkin& skin)
{
    Section section{"Frame styles", {}};
    for (const std::string& name : skin.Names(NameKind::FrameStyle)) {
        const auto frame = skin.Manager().GetFrameBK(name.c_str());
        section.items.push_back(
            {name, {200, 110}, [frame](HDC hdc, const RECT& rect) { frame->DrawBK(hdc, rect); }});
    }
    return section;
}

std::vector<RECT> Place(const Section& section)
{
    std::vector<SIZE> sizes;
    for (const Item& item : section.items)
        sizes.push_back({std::max<LONG>(item.size.cx, kNarrowest), item.size.cy + kCaptionHeight});
    return Flow(sizes, kWidth - 2 * kMargin, kGap);
}

int HeightOf(const std::vector<RECT>& places)
{
    int height = 0;
    for (const RECT& place : places)
        height = std::max<int>(height, place.bottom);
    return kTitleHeight + height + kGap;
}

void DrawSection(HDC hdc, const Section& section, const std::vector<RECT>& places, int top, HFONT caption,
                 HFONT title)
{
    Write(hdc, title, section.title, {kMargin, top, kWidth - kMargin, top + kTitleHeight},
          DT_SINGLELINE | DT_VCENTER);
    for (std::size_t i = 0; i < places.size(); ++i) {
        const Item& item = section.items[i];
        RECT cell = places[i];
        OffsetRect(&cell, kMargin, top + kTitleHeight);
        const RECT picture{cell.left, cell.top, cell.left + item.size.cx, cell.top + item.size.cy};
        const int saved = SaveDC(hdc);
        IntersectClipRect(hdc, picture.left, picture.top, picture.right, picture.bottom);
        FillChecks(hdc, picture);
        item.draw(hdc, picture);
        RestoreDC(hdc, saved);
        Write(hdc, caption, item.caption, {cell.left, picture.bottom, cell.right, cell.bottom},
              DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS);
    }
}

}  // namespace

std::vector<RECT> Flow(const std::vector<SIZE>& sizes, int width, int gap)
{
    std::vector<RECT> places;
    int x = 0;
    int y = 0;
    int rowHeight = 0;
    for (const SIZE& size : sizes) {
        if (x > 0 && x + size.cx > width) {
            x = 0;
            y += rowHeight + gap;
            rowHeight = 0;
        }
        places.push_back({x, y, x + size.cx, y + size.cy});
        x += size.cx + gap;
        rowHeight = std::max<int>(rowHeight, size.cy);
    }
    return places;
}

bool WriteSheet(const Package& package, const std::string& skinName, const std::string& path)
{
    const std::vector<const PackageDocument*> skins = package.OfKind(DocumentKind::Resources);
    if (std::none_of(skins.begin(), skins.end(),
                     [&](const PackageDocument* known) { return known->name == skinName; }))
        return false;
    ResolvedSkin skin(package, skinName, "");
    const std::vector<Section> sections{
        {skinName, {}}, Colors(skin), Fonts(skin), Images(skin), Frames(skin)};
    std::vector<std::vector<RECT>> places;
    int height = 2 * kMargin;
    for (const Section& section : sections) {
        places.push_back(Place(section));
        height += HeightOf(places.back());
    }
    CImage sheet;
    if (!sheet.Create(kWidth, height, 24))
        return false;
    DUI::CFontObject caption;
    caption.SetHeight(-11);
    caption.CreateFontA();
    DUI::CFontObject title;
    title.SetHeight(-17);
    title.SetWeight(FW_BOLD);
    title.CreateFontA();

    const HDC hdc = CreateCompatibleDC(nullptr);
    const HGDIOBJ old = SelectObject(hdc, sheet);
    SetStretchBltMode(hdc, COLORONCOLOR);  // as windows paint
    Fill(hdc, {0, 0, kWidth, height}, RGB(243, 244, 247));
    int top = kMargin;
    for (std::size_t i = 0; i < sections.size(); ++i) {
        DrawSection(hdc, sections[i], places[i], top, caption.GetFont(), title.GetFont());
        top += HeightOf(places[i]);
    }
    SelectObject(hdc, old);
    DeleteDC(hdc);
    return SUCCEEDED(sheet.Save(path.c_str()));
}

}  // namespace qvui::skin_tool
