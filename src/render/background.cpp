#include <qvui/render/background.h>

#include <algorithm>
#include <climits>

#include <qvui/render/bitmap_functions.h>
#include <qvui/render/render_engine.h>

#include "foundation/rect.h"
#include "render/dc_scopes.h"

namespace DUI {
namespace {

using namespace wrapping;

// The position of the middle colour. For an offset in pixels the sum is truncated, for a fraction the
// distance; the results differ at negative coordinates.
int SplitOf(int start, int length, double separator)
{
    if (separator > 1)
        return static_cast<int>(std::min<double>(start + separator, INT_MAX));
    return Sum(start, static_cast<int>(length * separator));
}

}  // namespace

BOOL CDUIColorBK::IsEmpty() const
{
    return IsOneColorEmpty() && IsTwoColorEmpty();
}

void CDUIColorBK::SetBKColor(const CARGB& start, const CARGB& end, int vertical)
{
    m_start = start;
    m_end = end;
    m_nVertical = vertical;
}

void CDUIColorBK::SetBKColor(const CARGB& start, const CARGB& end, const CARGB& middle, double separator,
                             int vertical)
{
    SetBKColor(start, end, vertical);
    m_fSepPos = separator;
    m_middle = middle;
}

void CDUIColorBK::GetBKColor(CARGB& start, CARGB& end, int& vertical) const
{
    start = m_start;
    end = m_end;
    vertical = m_nVertical;
}

void CDUIColorBK::GetBKCOlor(CARGB& start, CARGB& end, CARGB& middle, double& separator, int& vertical) const
{
    GetBKColor(start, end, vertical);
    middle = m_middle;
    separator = m_fSepPos;
}

void CDUIColorBK::DrawBK(HDC hdc, const RECT& rect)
{
    if (!IsTreeColorEmpty()) {
        RECT first = rect;
        RECT second = rect;
        if (m_fSepPos >= 0) {
            const int split = m_nVertical ? SplitOf(rect.top, Height(rect), m_fSepPos)
                                          : SplitOf(rect.left, Width(rect), m_fSepPos);
            (m_nVertical ? first.bottom : first.right) = split;
            LONG& nearEdge = m_nVertical ? second.top : second.left;
            LONG& farEdge = m_nVertical ? second.bottom : second.right;
            nearEdge = split;
            farEdge = std::max<LONG>(farEdge, split);
        }
        CDUIRenderEngine::DrawGradien(hdc, first, m_start, m_middle, m_nVertical);
        CDUIRenderEngine::DrawGradien(hdc, second, m_middle, m_end, m_nVertical);
    } else if (!IsTwoColorEmpty()) {
        CDUIRenderEngine::DrawGradien(hdc, rect, m_start, m_end, m_nVertical);
    } else if (!IsOneColorEmpty()) {
        CDUIRenderEngine::FillRect(hdc, rect, m_color);
    }
}

BOOL CDUIColorImageBK::IsEmpty() const
{
    return CDUIColorBK::IsEmpty() && !m_pSkinImage;
}

void CDUIColorImageBK::DrawBK(HDC hdc, const RECT& rect)
{
    CDUIColorBK::DrawBK(hdc, rect);
    if (m_pSkinImage && !m_pSkinImage->IsNull())
        m_pSkinImage->DrawImage(hdc, rect, 0);
}

RECT CDUIColorImageBK::GetSkinImageRect(RECT rect) const
{
    if (!m_pSkinImage || m_pSkinImage->IsNull())
        return rect;
    const int width = m_pSkinImage->GetIconWidth();
    const int height = m_pSkinImage->GetIconHeight();
    const RECT inner = Deflated(rect, {m_imagePos.x, m_imagePos.y, m_imagePos.x, m_imagePos.y});
    const int fromRight = Difference(inner.right, width);
    const int fromBottom = Difference(inner.bottom, height);
    RECT place = rect;
    switch (m_imagePos.kind) {
        case 0:
            place = {inner.left, inner.top, Sum(inner.left, width), Sum(inner.top, height)};
            break;
        case 1:
            place = {inner.left, fromBottom, Sum(inner.left, width), inner.bottom};
            break;
        case 2:
            place = {fromRight, inner.top, inner.right, Sum(inner.top, height)};
            break;
        case 3:
            place = {fromRight, fromBottom, inner.right, inner.bottom};
            break;
        case 4:
            if (Width(rect) > width) {
                place.left = Sum(rect.left, (Width(rect) - width) / 2);
                place.right = Sum(place.left, width);
            }
            if (Height(rect) > height) {
                place.top = Sum(rect.top, (Height(rect) - height) / 2);
                place.bottom = Sum(place.top, height);
            }
            break;
        default:
            break;
    }
    RECT common;
    if (!IntersectRect(&common, &place, &rect))
        place = {place.left, place.top, place.left, place.top};
    return place;
}

BOOL CDUIFrameBK::IsEmpty() const
{
    return CDUIColorImageBK::IsEmpty() && !IsColorFrameAvailable() && !IsImageFrameAvailable();
}

BOOL CDUIFrameBK::IsFrameEmpty() const
{
    return m_rcBorder.left == 0 && m_rcBorder.top == 0 && m_rcBorder.right == 0 && m_rcBorder.bottom == 0;
}

void CDUIFrameBK::SetFrameRound(int width, int height)
{
    m_nRoundWidth = width;
    m_nRoundHeight = height;
}

void CDUIFrameBK::GetFrameRound(int& width, int& height) const
{
    width = m_nRoundWidth;
    height = m_nRoundHeight;
}

void CDUIFrameBK::DrawBK(HDC hdc, const RECT& rect)
{
    if (IsImageFrameAvailable())
        DrawImageFrame(hdc, rect);
    else if (IsColorFrameAvailable())
        DrawColorFrame(hdc, rect);
    else
        CDUIColorImageBK::DrawBK(hdc, rect);
}

void CDUIFrameBK::DrawImageFrame(HDC hdc, const RECT& rect)
{
    CDUIColorImageBK::DrawBK(hdc, rect);
    const RECT inner = Deflated(rect, m_rcBorder);
    if (IsRectEmpty(&inner)) {
        m_pFrameImage->DrawImage(hdc, rect, 0);
        return;
    }
    const HRGN ring = CreateRectRgnIndirect(&rect);
    const HRGN hole = CreateRectRgnIndirect(&inner);
    CombineRgn(ring, ring, hole, RGN_DIFF);
    DeleteObject(hole);
    const ClipRegionScope clip(hdc, ring);
    m_pFrameImage->DrawImage(hdc, rect, 0);
}

void CDUIFrameBK::DrawColorFrame(HDC hdc, const RECT& rect)
{
    if (m_nRoundWidth > 0 && m_nRoundHeight > 0) {
        const ClipRegionScope clip(hdc, CreateRoundRectRgn(rect.left, rect.top, rect.right, rect.bottom,
                                                           m_nRoundWidth, m_nRoundHeight));
        CDUIColorImageBK::DrawBK(hdc, rect);
        CDUIRenderEngine::DrawRoundRectBorder(hdc, rect, m_nRoundWidth, m_nRoundHeight, m_rcBorder.top,
                                              m_frameColor);
        return;
    }
    CDUIColorImageBK::DrawBK(hdc, rect);
    const int right = Difference(rect.right, m_rcBorder.right);
    const int bottom = Difference(rect.bottom, m_rcBorder.bottom);
    CDUIRenderEngine::DrawLine(hdc, rect.left, rect.top, rect.right, rect.top, m_rcBorder.top, m_frameColor);
    CDUIRenderEngine::DrawLine(hdc, rect.left, rect.top, rect.left, rect.bottom, m_rcBorder.left,
                               m_frameColor);
    CDUIRenderEngine::DrawLine(hdc, right, rect.top, right, rect.bottom, m_rcBorder.right, m_frameColor);
    CDUIRenderEngine::DrawLine(hdc, rect.left, bottom, rect.right, bottom, m_rcBorder.bottom, m_frameColor);
}

HRGN CDUIFrameBK::CreateImageShape(HWND hwnd, const RECT& client)
{
    const HDC hdc = GetDC(hwnd);
    HRGN shape = nullptr;
    if (const HBITMAP icon = m_pFrameImage->GetIconBitmap(hdc, 0)) {
        const HBITMAP stretched =
            CBitmapCommonFunction::GetMiddleStretchBitmap(hdc, icon, SIZE{Width(client), Height(client)});
        if (stretched) {
            shape = CBitmapCommonFunction::BitmapToRgn(stretched, CARGB(255, 0, 255, 255), 0);
            DeleteObject(stretched);
        }
        DeleteObject(icon);
    }
    ReleaseDC(hwnd, hdc);
    return shape;
}

int CDUIFrameBK::SetWinFrameRgn(HWND hwnd)
{
    RECT client{};
    if (!hwnd || !IsWindow(hwnd) || !GetClientRect(hwnd, &client))
        return FALSE;
    HRGN shape = nullptr;
    if (IsImageFrameAvailable())
        shape = CreateImageShape(hwnd, client);
    else if (IsColorFrameAvailable() && m_nRoundWidth > 0 && m_nRoundHeight > 0)
        shape = CreateRoundRectRgn(client.left, client.top, client.right, client.bottom, m_nRoundWidth,
                                   m_nRoundHeight);
    if (!shape)
        return FALSE;
    if (!SetWindowRgn(hwnd, shape, TRUE))
        DeleteObject(shape);  // on success the window owns the region
    return TRUE;
}

}  // namespace DUI
