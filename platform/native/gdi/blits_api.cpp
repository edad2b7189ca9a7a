// Copies between contexts.

#include "native/gdi/blit.h"

using namespace qvui::native;

BOOL BitBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
            DWORD operation)
{
    DeviceContext* target = LookUpContext(dc);
    if (!target)
        return FALSE;
    if (operation == PATCOPY || operation == PATINVERT || operation == DSTINVERT || operation == BLACKNESS ||
        operation == WHITENESS)
        return PatBlt(dc, x, y, width, height, operation);
    DeviceContext* from = LookUpContext(source);
    if (!from)
        return FALSE;
    // Only the part that lies inside the source surface is copied.
    const RECT wanted = from->ToSurface(sourceX, sourceY, width, height);
    const RECT available = Intersection(wanted, from->Target().Bounds());
    if (IsEmptyRect(available))
        return TRUE;
    const POINT at = target->ToSurface(x, y);
    const POINT shift{at.x - wanted.left, at.y - wanted.top};
    const RECT to{available.left + shift.x, available.top + shift.y, available.right + shift.x,
                  available.bottom + shift.y};
    DrawBlit(PrepareBlit(*target, to, from->Target(), available), operation);
    return TRUE;
}

BOOL StretchBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                int sourceWidth, int sourceHeight, DWORD operation)
{
    const std::optional<Blit> blit =
        PrepareBlit(dc, x, y, width, height, source, sourceX, sourceY, sourceWidth, sourceHeight);
    if (!blit)
        return FALSE;
    DrawBlit(*blit, operation);
    return TRUE;
}

BOOL TransparentBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                    int sourceWidth, int sourceHeight, UINT key)
{
    const std::optional<Blit> blit =
        PrepareBlit(dc, x, y, width, height, source, sourceX, sourceY, sourceWidth, sourceHeight);
    if (!blit || width < 0 || height < 0 || sourceWidth < 0 || sourceHeight < 0)
        return FALSE;
    if (blit->IsEmpty())
        return TRUE;
    // A key with a high byte matches nothing, unless it is marked as an RGB value by kByParts. Copied pixels
    // lose their alpha.
    constexpr std::uint32_t kColourBits = 0x00FFFFFF;
    constexpr UINT kByParts = 0x02000000;
    const bool isColour = (key & ~kColourBits & ~kByParts) == 0;
    const std::uint32_t keyed = PixelOf(key);
    JoinScaled(*blit, blit->Shrinks() ? Sampling::And : Sampling::Point,
               [=](std::uint32_t pixel, std::uint32_t destination) {
                   return (isColour && pixel == keyed ? destination : pixel) & kColourBits;
               });
    return TRUE;
}
