#include "common/screenshot.h"

#include <qvui/platform/cimage.h>

namespace example {
namespace {

// What a window with a shape leaves free is white in its picture.
void PaintOutside(HWND window, HDC hdc, const RECT& client)
{
    const HRGN shape = CreateRectRgn(0, 0, 0, 0);
    if (GetWindowRgn(window, shape) > NULLREGION) {
        const HRGN outside = CreateRectRgnIndirect(&client);
        CombineRgn(outside, outside, shape, RGN_DIFF);
        SelectClipRgn(hdc, outside);
        FillRect(hdc, &client, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        DeleteObject(outside);
    }
    DeleteObject(shape);
}

}  // namespace

bool SaveScreenshot(HWND window, const char* path)
{
    RECT client{};
    CImage image;
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    if (!GetClientRect(window, &client) || !image.Create(client.right, client.bottom, 24))
        return false;
    const HDC screen = GetDC(window);
    const HDC memory = CreateCompatibleDC(screen);
    const HGDIOBJ old = SelectObject(memory, image);
    BitBlt(memory, 0, 0, client.right, client.bottom, screen, 0, 0, SRCCOPY);
    PaintOutside(window, memory, client);
    SelectObject(memory, old);
    DeleteDC(memory);
    ReleaseDC(window, screen);
    return SUCCEEDED(image.Save(path));
}

}  // namespace example
