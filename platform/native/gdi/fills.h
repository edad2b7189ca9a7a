#pragma once

#include "native/gdi/device_context.h"

namespace qvui::native {

/// Fills a rectangle in surface coordinates with a pixel.
void FillPixels(DeviceContext& context, const RECT& rect, std::uint32_t pixel);
/// Fills a rectangle in logical coordinates with the context's background colour. The rectangle is
/// normalised.
void FillOpaqueRectangle(DeviceContext& context, RECT rect);
/// Fill a rectangle or a region in surface coordinates with a brush.
void FillRectangle(DeviceContext& context, const RECT& rect, const BrushObject& brush);
void FillRegion(DeviceContext& context, const Region& region, const BrushObject& brush);
/// Fills a part of a surface that may be drawn on, at any colour depth.
void FillPart(const Surface& surface, const RECT& part, std::uint32_t pixel);

}  // namespace qvui::native
