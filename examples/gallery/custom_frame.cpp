#include "gallery/custom_frame.h"

namespace {

constexpr int kBorder = 6;            // pixels at the edges by which the window is sized
constexpr int kCorner = 18;           // how far a corner reaches along them: the window is round there
constexpr POINT kSmallest{760, 620};  // with all tabs of the pages
constexpr BYTE kLayeredOpacity = 235;

POINT PointOf(LPARAM lParam)
{
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

}  // namespace

std::optional<LRESULT> CustomFrame::Handle(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!m_window.IsDUICustomNC())
        return std::nullopt;
    switch (message) {
        case WM_NCCALCSIZE:
        case WM_NCPAINT:
            return 0;
        case WM_NCHITTEST:
            return HitTest(hWnd, PointOf(lParam));
        case WM_NCLBUTTONDOWN:
            // Not a press on a control: the platform moves or sizes the window.
            return wParam == HTCLIENT ? std::nullopt
                                      : std::optional(DefWindowProcA(hWnd, message, wParam, lParam));
        case WM_GETMINMAXINFO:
            DefWindowProcA(hWnd, message, wParam, lParam);
            LimitSize(*reinterpret_cast<MINMAXINFO*>(lParam));
            return 0;
        case WM_SIZE:
            Shape();
            return std::nullopt;
        case WM_PAINT:
            if (!(m_window.GetExStyle() & WS_EX_LAYERED))
                return std::nullopt;
            PaintLayered(hWnd);
            return 0;
        default:
            return std::nullopt;
    }
}

LRESULT CustomFrame::HitTest(HWND hWnd, POINT screen) const
{
    POINT client = screen;
    ScreenToClient(hWnd, &client);
    if (const int border = HitBorder(hWnd, client))
        return border;
    return IsCaption(client) ? HTCAPTION : HTCLIENT;
}

int CustomFrame::HitBorder(HWND hWnd, POINT client) const
{
    constexpr int kHits[3][3] = {
        {HTTOPLEFT, HTTOP, HTTOPRIGHT}, {HTLEFT, 0, HTRIGHT}, {HTBOTTOMLEFT, HTBOTTOM, HTBOTTOMRIGHT}};
    if (!m_window.IsDUINCSizable() || IsZoomed(hWnd))
        return 0;
    RECT size{};
    GetClientRect(hWnd, &size);
    const auto third = [](int at, int end, int length) {
        return at < length ? 0 : at >= end - length ? 2 : 1;
    };
    const bool isAtSide = third(client.x, size.right, kBorder) != 1;
    const bool isAtTopOrBottom = third(client.y, size.bottom, kBorder) != 1;
    return kHits[third(client.y, size.bottom, isAtSide ? kCorner : kBorder)]
                [third(client.x, size.right, isAtTopOrBottom ? kCorner : kBorder)];
}

// The caption is where no control is that takes presses.
bool CustomFrame::IsCaption(POINT client) const
{
    if (client.y >= m_window.GetCaptionHeight())
        return false;
    DUI::IDUIControl* const control = m_window.FindControl(&client);
    return m_window.IsTrasparentCtrl(control) || control->GetInterface("label");
}

void CustomFrame::LimitSize(MINMAXINFO& limits) const
{
    limits.ptMinTrackSize = kSmallest;
    limits.ptMaxPosition = {0, 0};
    limits.ptMaxSize = {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

void CustomFrame::Shape()
{
    const DUI::CRefPtr<DUI::CDUIFrameBK> frame = m_window.GetFrameBkgnd();
    if (!m_window.IsWindow() || !m_window.IsDUISetNCRgn() || frame.IsNull())
        return;
    if (IsZoomed(m_window.GetHWND()) || !frame->SetWinFrameRgn(m_window.GetHWND()))
        SetWindowRgn(m_window.GetHWND(), nullptr, TRUE);
}

// A layered window has no paint context of its own: it is drawn into a bitmap, which the platform then shows.
void CustomFrame::PaintLayered(HWND hWnd)
{
    RECT rect{};
    GetWindowRect(hWnd, &rect);
    SIZE size{rect.right - rect.left, rect.bottom - rect.top};
    DUI::CDibSection picture;
    if (!picture.Create(static_cast<DWORD>(size.cx), static_cast<DWORD>(size.cy), 32))
        return;
    const HDC memory = CreateCompatibleDC(nullptr);
    const HGDIOBJ old = SelectObject(memory, picture.GetBitmap());
    m_window.DoPaint(memory);
    POINT position{rect.left, rect.top};
    POINT source{0, 0};
    BLENDFUNCTION blend{AC_SRC_OVER, 0, kLayeredOpacity, 0};
    DUI::CBitmapCommonFunction::UpdateLayeredWindow(hWnd, nullptr, &position, &size, memory, &source, 0,
                                                    &blend, ULW_ALPHA);
    SelectObject(memory, old);
    DeleteDC(memory);
    ValidateRect(hWnd, nullptr);
}
