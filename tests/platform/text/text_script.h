#pragma once

#include "platform/script/script.h"
#include "platform/text/text_canvas.h"

/// A script of text on one canvas. Since measurements depend on the machine's font, numbers may be sums of
/// w("TEXT"), the width of a text, 2L, two line heights, H, half a line height, and 2A, two average widths.
///
///     calc TEXT RECT FORMAT              what DT_CALCRECT makes of the rectangle, and the result
///     fits TEXT WIDTH                    how many bytes fit, and the width up to each byte
///     draw TEXT RECT FORMAT [LENGTH]     draws on a clear canvas; the result
///     looks [X,Y TEXT]...                whether the canvas shows these texts and nothing else
///     looks-in RECT X,Y TEXT             the same with what lies in the rectangle
///     underlined TEXT FIRST LAST         the same with a text at 0,0 that is underlined between two places
///     column X TEXT                      whether the text stands at X and nothing comes after it
///     modified TEXT WIDTH FORMAT [HEIGHT]     the text that DT_MODIFYSTRING leaves
class TextScript : public qvui::test::Script {
public:
    TextScript();

    std::optional<long long> Parsed(const std::string& word) const override;

protected:
    void EndCase() override;

private:
    bool Shows(const Canvas& expected, const RECT& part) const;

    std::unique_ptr<TextCanvas> m_canvas = std::make_unique<TextCanvas>();
};
