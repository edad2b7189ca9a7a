#pragma once

#include <memory>

#include "platform/gdi/canvas.h"
#include "platform/script/script.h"

/// A script of drawing calls on canvases:
///
///     canvas NAME WIDTH HEIGHT [bits N] [fill PIXEL] [places] [letters TEXT]     a bitmap in a context, with
///         one pixel everywhere, pixels that tell where they stand, or letters as pixels, row by row;
///         top-down with a negative height
///     show NAME       its pixels: '.' for 0, '#' red, '*' blue, a letter for itself, else 'o'
///     pixel NAME X,Y  one pixel
///     hex NAME        all pixels as numbers
class GdiScript : public qvui::test::Script {
public:
    GdiScript();
    ~GdiScript() override { GdiScript::EndCase(); }

private:
    void EndCase() override;
    void AddCanvases();
    void AddRegions();
    void Make(const std::string& name, int width, int height, Words options);

    std::map<std::string, std::unique_ptr<Canvas>> m_canvases;
};
