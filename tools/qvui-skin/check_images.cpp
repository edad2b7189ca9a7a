#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include <qvui/framework/attribute_table.h>
#include <qvui/platform/file.h>
#include <qvui/render/image_list.h>
#include <qvui/skin/document_words.h>

#include "check.h"

namespace qvui::skin_tool {
namespace {

bool IsFromFile(const Element& record)
{
    return DUI::SourceOf(record.Value("config_type")) == DUI::DocumentSource::File;
}

// How much of an icon the corners of a draw style take.
struct CornerUse {
    DUI::IMAGE_DRAW_STYLE drawStyle;
    int widths;            // of the corner's width, in the icon's width
    int heights;           // of the corner's height, in the icon's height
    int widthsInHeight;    // of the corner's width, in the icon's height
};
constexpr CornerUse kCornerUses[] = {
    {DUI::DRAW_STYLE_STRETCH_HORZ, 2, 0, 0},
    {DUI::DRAW_STYLE_STRETCH_VERT, 0, 0, 2},
    {DUI::DRAW_STYLE_SQUARD, 2, 2, 0},
};

bool IsTooLarge(const CornerUse& use, SIZE corner, SIZE icon)
{
    return use.widths * long{corner.cx} > icon.cx || use.heights * long{corner.cy} > icon.cy ||
           use.widthsInHeight * long{corner.cx} > icon.cy;
}

std::string Text(int width, int height) { return std::to_string(width) + " x " + std::to_string(height); }

}  // namespace

bool Checker::IsFileThere(const Document& document, const Element& record)
{
    const std::string name = record.Value("file_name");
    if (std::FILE* const file = OpenPlatformFile(m_package.PathOf(name).c_str(), "rb")) {
        std::fclose(file);
        return true;
    }
    const Attribute* const place = record.Find("file_name");
    m_report.Add(Severity::Error, document, place ? place->valueOffset : record.offset,
                 "the file \"" + name + "\" cannot be opened");
    return false;
}

void Checker::CheckCursor(const PackageDocument& part, int entry)
{
    const Element& record = part.document->At(entry);
    if (IsFromFile(record))
        IsFileThere(*part.document, record);
}

void Checker::CheckImage(const PackageDocument& part, int entry)
{
    const Document& document = *part.document;
    const Element& record = document.At(entry);
    if (!IsFromFile(record) || !IsFileThere(document, record))
        return;
    DUI::CDUIImageList image;
    const std::string name = record.Value("file_name");
    if (!image.CreateFromFile(m_package.PathOf(name).c_str())) {
        m_report.Add(Severity::Error, document, record.Find("file_name")->valueOffset,
                     "the file \"" + name + "\" is no picture that can be read");
        return;
    }
    const Attribute* const count = record.Find("count");
    const bool isVertical = EqualNoCase(record.Value("direction"), "vert");
    const int icons = count ? std::max(1, std::atoi(count->value.c_str())) : 1;
    image.SetItemCount(static_cast<DWORD>(icons));
    image.SetImageDirection(isVertical);
    if ((isVertical ? image.GetHeight() : image.GetWidth()) % icons != 0)
        m_report.Add(Severity::Warning, document, count->valueOffset,
                     "a picture of " + Text(image.GetWidth(), image.GetHeight()) + " pixels does not divide into " +
                         std::to_string(icons) + " icons");
    const Attribute* const corner = record.Find("corner");
    if (!corner)
        return;
    const SIZE size = DUI::ReadPair(corner->value.c_str());
    const int drawStyle = DUI::DrawStyleWords().Find(record.Value("drawstyle"), DUI::DRAW_STYLE_NORMAL);
    for (const CornerUse& use : kCornerUses)
        if (drawStyle == use.drawStyle &&
            IsTooLarge(use, size, {image.GetIconWidth(), image.GetIconHeight()}))
            m_report.Add(Severity::Warning, document, corner->valueOffset,
                         "the corners do not fit into an icon of " +
                             Text(image.GetIconWidth(), image.GetIconHeight()) + " pixels");
}

}  // namespace qvui::skin_tool
