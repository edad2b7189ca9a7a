#pragma once

#include "support/controls/test_skin.h"

namespace qvui::test {

/// A text style "big" whose strokes are wide enough for pixels of the pure colour, and whose states differ in
/// colour (white, hover cyan, select yellow, disable magenta) and in font: the select font is smaller than
/// the others, and there is no hover font.
inline SkinAdditions BigText()
{
    SkinAdditions additions;
    additions.fonts =
        "<font name=\"big\" facename=\"#DejaVu Sans\" height=\"-32\" weight=\"700\"/>"
        "<font name=\"small\" facename=\"#DejaVu Sans\" height=\"-20\" weight=\"700\"/>";
    additions.colors =
        "<color name=\"cyan\" value=\"#FF00FFFF\"/><color name=\"yellow\" value=\"#FFFFFF00\"/>"
        "<color name=\"magenta\" value=\"#FFFF00FF\"/>";
    additions.textStyles =
        "<text_style name=\"big\" format=\"DT_SINGLELINE\" font=\"big\" font_select=\"small\" "
        "normal_color=\"white\" "
        "hover_color=\"cyan\" select_color=\"yellow\" disable_color=\"magenta\"/>";
    return additions;
}

}  // namespace qvui::test
