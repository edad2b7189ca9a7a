// Fonts.

#include "native/text/font_object.h"

using namespace qvui::native;

HFONT CreateFontIndirectA(const LOGFONTA* description)
{
    return description ? static_cast<HFONT>(AddGdiObject(std::make_shared<FontObject>(*description)))
                       : nullptr;
}
