#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include <qvui/platform/file.h>
#include <qvui/render/image_list.h>
#include <qvui/skin/document_words.h>
#include <qvui/skin/resource_loader.h>

#include "check.h"

namespace qvui::skin_tool {
namespace {

DUI::DocumentSource SourceOf(const Element& record)
{
    return DUI::SourceOf(record.Value("config_type"));
}

// How much of an icon the corners of a draw style take.
struct CornerUse {
    DUI::IMAGE_DRAW_STYLE drawStyle;
    int widths;          // of the corner's width, in the icon's width
    int heights;         // of the corner's height, in the icon's height
    int widthsInHeight;  // of the corner's width, in the icon's height
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

std::string Text(int width, int height)
{
    return std::to_string(width) + " x " + std::to_string(height);
}

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

// A config_type that is no word is told with its value.
void Checker::ReportUnseen(const Document& document, const Element& record)
{
    if (SourceOf(record) == DUI::DocumentSource::Exe)
        m_report.Add(Severity::Note, document, record.offset, kOwnResourceText);
    else if (record.Value("config_type").empty())
        m_report.Add(Severity::Error, document, record.offset, kNoSourceText);
}

void Checker::ReportNoResource(const Document& document, const Element& record)
{
    const Attribute* const place = record.Find("resource_id");
    m_report.Add(Severity::Error, document, place ? place->valueOffset : record.offset,
                 NoResourceText(record));
}

void Checker::CheckCursor(const PackageDocument& part, int entry)
{
    const Element& record = part.document->At(entry);
    const std::string name = record.Value("file_name");
    switch (SourceOf(record)) {
        case DUI::DocumentSource::File:
            if (IsFileThere(*part.document, record) &&
                !DUI::CCursorObject().CreateFromFile(m_package.PathOf(name).c_str()))
                m_report.Add(Severity::Error, *part.document, record.Find("file_name")->valueOffset,
                             "the file \"" + name + "\" is no cursor that can be read");
            break;
        case DUI::DocumentSource::Dll: {
            const DUI::CRefPtr<DUI::CCursorObject> cursor = DUI::CResLoader().LoadCursorFromDll(
                name.c_str(), record.Value("resource_id").c_str(), record.Value("resource_type").c_str());
            if (cursor.IsNull() || cursor->IsNull())
                ReportNoResource(*part.document, record);
            break;
        }
        case DUI::DocumentSource::None:
        case DUI::DocumentSource::Exe:
            ReportUnseen(*part.document, record);
            break;
    }
}

// The picture of an entry; null when it cannot be had, which is reported, or is the program's own.
DUI::CDUIImageListPtr Checker::LoadImage(const Document& document, const Element& record)
{
    const std::string name = record.Value("file_name");
    DUI::CDUIImageListPtr image;
    switch (SourceOf(record)) {
        case DUI::DocumentSource::File:
            if (!IsFileThere(document, record))
                return nullptr;
            image = std::make_shared<DUI::CDUIImageList>();
            if (image->CreateFromFile(m_package.PathOf(name).c_str()))
                return image;
            m_report.Add(Severity::Error, document, record.Find("file_name")->valueOffset,
                         "the file \"" + name + "\" is no picture that can be read");
            return nullptr;
        case DUI::DocumentSource::Dll:
            image = DUI::CResLoader().LoadImageFromDll(name.c_str(), record.Value("resource_id").c_str(),
                                                       record.Value("resource_type").c_str());
            if (image && !image->IsNull())
                return image;
            ReportNoResource(document, record);
            return nullptr;
        case DUI::DocumentSource::None:
        case DUI::DocumentSource::Exe:
            ReportUnseen(document, record);
            break;
    }
    return nullptr;
}

void Checker::CheckImage(const PackageDocument& part, int entry)
{
    const Document& document = *part.document;
    const Element& record = document.At(entry);
    const DUI::CDUIImageListPtr list = LoadImage(document, record);
    if (!list)
        return;
    DUI::CDUIImageList& image = *list;
    const Attribute* const count = record.Find("count");
    const bool isVertical = EqualNoCase(record.Value("direction"), "vert");
    const int icons = count ? std::max(1, std::atoi(count->value.c_str())) : 1;
    image.SetItemCount(static_cast<DWORD>(icons));
    image.SetImageDirection(isVertical);
    if ((isVertical ? image.GetHeight() : image.GetWidth()) % icons != 0)
        m_report.Add(Severity::Warning, document, count->valueOffset,
                     "a picture of " + Text(image.GetWidth(), image.GetHeight()) +
                         " pixels does not divide into " + std::to_string(icons) + " icons");
    if (const Attribute* const corner = record.Find("corner"))
        CheckCorner({document, record, part.name}, *corner, image);
}

void Checker::CheckCorner(const Place& place, const Attribute& corner, const DUI::CDUIImageList& image)
{
    // What is no pair at all is told with the other values.
    if (corner.value.empty() || CheckForm(ValueKind::IntPair, corner.value, {}))
        return;
    int width = 0;
    int height = 0;
    if (std::sscanf(corner.value.c_str(), "%d,%d", &width, &height) != 2) {
        m_report.Add(
            Severity::Warning, place.document, corner.valueOffset,
            "corner: \"" + corner.value + "\" counts as 0,0: the comma stands right behind the first number");
        return;
    }
    const int drawStyle =
        DUI::DrawStyleWords().Find(place.element.Value("drawstyle"), DUI::DRAW_STYLE_NORMAL);
    for (const CornerUse& use : kCornerUses)
        if (drawStyle == use.drawStyle &&
            IsTooLarge(use, {width, height}, {image.GetIconWidth(), image.GetIconHeight()}))
            m_report.Add(Severity::Warning, place.document, corner.valueOffset,
                         "the corners do not fit into an icon of " +
                             Text(image.GetIconWidth(), image.GetIconHeight()) + " pixels");
}

}  // namespace qvui::skin_tool
