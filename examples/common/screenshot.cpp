#include "common/screenshot.h"

#include <qvui/platform/cimage.h>

namespace example {

bool SaveScreenshot(HWND window, const char* path)
{
    RECT client{};
    CImage image;
    UpdateWindow(window);
    if (!GetClientRect(window, &client) || !image.Create(client.right, client.bottom, 24))
        return false;
    const HDC screen = GetDC(window);
    const HDC memory = CreateCompatibleDC(screen);
    const HGDIOBJ old = SelectObject(memory, image);
    BitBlt(memory, 0, 0, client.right, client.bottom, screen, 0, 0, SRCCOPY);
    SelectObject(memory, old);
    DeleteDC(memory);
    ReleaseDC(window, screen);
    return SUCCEEDED(image.Save(path));
}

}  // namespace example
