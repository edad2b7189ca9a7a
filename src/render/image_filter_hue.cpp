// The filters that work on hue and saturation.

#include <qvui/foundation/color.h>
#include <qvui/render/image_filter.h>

#include "render/image_rows.h"

namespace DUI {
namespace {

template <class Change>
int ChangeHls(CDibSection* section, Change change)
{
    if (!HasPixels(section))
        return FALSE;
    const int pixelSize = section->GetPixelWidth();
    ForEachRow(*section, [&](BYTE* row, int count) {
        for (BYTE* pixel = row; pixel < row + static_cast<std::ptrdiff_t>(count) * pixelSize;
             pixel += pixelSize) {
            CHLSColor color(pixel[2], pixel[1], pixel[0]);
            color.ToHLS();
            change(color);
            color.ToRGB();
            pixel[0] = color.m_blue;
            pixel[1] = color.m_green;
            pixel[2] = color.m_red;
        }
    });
    return TRUE;
}

}  // namespace

int CHueChangeFilter::Process(CDibSection* section, short amount)
{
    const double factor = (amount + 100.0) / 100.0;
    return ChangeHls(section, [factor](CHLSColor& color) { color.m_hue *= factor; });
}

int CSaturationChangeFilter::Process(CDibSection* section, short amount)
{
    const double factor = (amount + 100.0) / 100.0;
    return ChangeHls(section, [factor](CHLSColor& color) { color.m_saturation *= factor; });
}

}  // namespace DUI
