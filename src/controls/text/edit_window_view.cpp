// A text field's window: measuring, painting and the pointer.

#include <qvui/controls/text/edit_window.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "controls/text/edit_line.h"
#include "controls/text/multibyte.h"
#include "foundation/rect.h"
#include "render/dc_scopes.h"
#include "render/memory_context.h"

namespace DUI {

using namespace geometry;

namespace {

constexpr BYTE kSelectionAlpha = 100;

/// A brush, pen or bitmap that goes with its scope.
class OwnedObject {
public:
    explicit OwnedObject(HGDIOBJ object) : m_object(object) {}
    OwnedObject(const OwnedObject&) = delete;
    OwnedObject& operator=(const OwnedObject&) = delete;
    ~OwnedObject() { DeleteObject(m_object); }

    template <class Handle>
    Handle As() const
    {
        return static_cast<Handle>(m_object);
    }

private:
    HGDIOBJ m_object;
};

}  // namespace

/// The window's context with the field's font, for measuring.
class CQVEdit::TextDC {
public:
    explicit TextDC(const CQVEdit& edit)
        : m_window(edit.m_hWnd),
          m_dc(GetDC(m_window)),
          m_old(SelectObject(m_dc, edit.Font()))
    {
    }
    TextDC(const TextDC&) = delete;
    TextDC& operator=(const TextDC&) = delete;
    ~TextDC()
    {
        SelectObject(m_dc, m_old);
        ReleaseDC(m_window, m_dc);
    }

    HDC Get() const { return m_dc; }
    int Width(const std::string& text) const
    {
        SIZE size{};
        GetTextExtentPoint32A(m_dc, text.c_str(), static_cast<int>(text.size()), &size);
        return static_cast<int>(size.cx);
    }
    /// The width up to and with each byte.
    std::vector<int> Widths(const std::string& text) const
    {
        std::vector<int> widths(text.size());
        SIZE size{};
        GetTextExtentExPointA(m_dc, text.c_str(), static_cast<int>(text.size()), 0, nullptr, widths.data(),
                              &size);
        return widths;
    }

private:
    HWND m_window;
    HDC m_dc;
    HGDIOBJ m_old;
};

// --- measuring ---------------------------------------------------------------------------------------------

std::string CQVEdit::Drawn(int first, int last) const
{
    if (m_look.isPassword)
        return std::string(static_cast<std::size_t>(last - first), '*');
    return m_line->Text().substr(static_cast<std::size_t>(first), static_cast<std::size_t>(last - first));
}

void CQVEdit::MeasureFont()
{
    RECT client{};
    if (!GetClientRect(m_hWnd, &client))
        return;
    TEXTMETRICA metrics{};
    GetTextMetricsA(TextDC(*this).Get(), &metrics);
    m_charHeight = static_cast<int>(metrics.tmHeight);
    const RECT& inset = m_look.inset;
    const LONG free = client.bottom - inset.top - inset.bottom - m_charHeight;
    m_textY = static_cast<int>(inset.top + free / 2);
}

int CQVEdit::TextWidth() const
{
    RECT client{};
    GetClientRect(m_hWnd, &client);
    return std::max(0, static_cast<int>(client.right - m_look.inset.right) - m_look.leftMargin);
}

// What lies far outside of the view is not measured exactly, since nobody sees it.
int CQVEdit::XOf(int index) const
{
    const int first = std::min(m_firstVisible, index);
    const int last = std::max(m_firstVisible, index);
    const int farthest = 4 * (TextWidth() + 16);
    const int width = last - first > farthest ? farthest : TextDC(*this).Width(Drawn(first, last));
    return m_look.leftMargin + (index < m_firstVisible ? -width : width);
}

int CQVEdit::IndexAt(int x) const
{
    const int count = FittingFrom(m_firstVisible);
    const int end = std::min(m_line->Length(), multibyte::Next(m_line->Text(), m_firstVisible + count));
    const std::vector<int> widths = TextDC(*this).Widths(Drawn(m_firstVisible, end));
    int start = m_firstVisible;
    int left = 0;
    while (start < end) {
        const int next = m_look.isPassword ? start + 1 : multibyte::Next(m_line->Text(), start);
        const int right = widths[static_cast<std::size_t>(next - 1 - m_firstVisible)];
        if (x - m_look.leftMargin < (left + right) / 2)
            break;
        start = next;
        left = right;
    }
    return start;
}

int CQVEdit::FittingFrom(int index) const
{
    const int width = TextWidth();
    // Most characters have a pixel at least for each byte.
    const int end = multibyte::Floor(m_line->Text(), std::min(m_line->Length(), index + 4 * (width + 16)));
    const std::vector<int> widths = TextDC(*this).Widths(Drawn(index, end));
    const auto fits = std::upper_bound(widths.begin(), widths.end(), width);
    return multibyte::Floor(m_line->Text(), index + static_cast<int>(fits - widths.begin())) - index;
}

int CQVEdit::FirstBefore(int last) const
{
    const int width = TextWidth();
    const int start = multibyte::Floor(m_line->Text(), std::max(0, last - 4 * (width + 16)));
    const std::vector<int> widths = TextDC(*this).Widths(Drawn(start, last));
    const int total = widths.empty() ? 0 : widths.back();
    int first = start;
    while (first < last &&
           total - (first == start ? 0 : widths[static_cast<std::size_t>(first - start - 1)]) > width)
        first = multibyte::Next(m_line->Text(), first);
    return first;
}

void CQVEdit::ScrollToCaret()
{
    const int caret = m_line->Caret();
    m_firstVisible = multibyte::Floor(m_line->Text(), std::min(m_firstVisible, caret));
    if (m_hWnd && caret > m_firstVisible + FittingFrom(m_firstVisible))
        m_firstVisible = FirstBefore(caret);
}

void CQVEdit::ShowCaretThere()
{
    DropBackBuffer();
    if (m_hWnd && ::GetFocus() == m_hWnd)
        SetCaretPos(XOf(m_line->Caret()), m_textY);
}

// --- painting ----------------------------------------------------------------------------------------------

void CQVEdit::DropBackBuffer()
{
    if (m_backBuffer)
        DeleteObject(m_backBuffer);
    m_backBuffer = nullptr;
    if (m_hWnd)
        InvalidateRect(m_hWnd, nullptr, FALSE);
}

LRESULT CQVEdit::OnEraseBackground(WPARAM, LPARAM)
{
    return 1;
}

LRESULT CQVEdit::OnPaint(WPARAM, LPARAM)
{
    PAINTSTRUCT paint{};
    const HDC hdc = BeginPaint(m_hWnd, &paint);
    RECT client{};
    GetClientRect(m_hWnd, &client);
    const bool isNew = !m_backBuffer;
    if (isNew)
        m_backBuffer = CreateCompatibleBitmap(hdc, std::max(1, static_cast<int>(client.right)),
                                              std::max(1, static_cast<int>(client.bottom)));
    {
        const MemoryContext memory(m_backBuffer);
        if (isNew) {
            DrawBackground(memory.Get(), client);
            DrawLine(memory.Get());
        }
        BitBlt(hdc, 0, 0, client.right, client.bottom, memory.Get(), 0, 0, SRCCOPY);
    }
    EndPaint(m_hWnd, &paint);
    return 0;
}

void CQVEdit::DrawBackground(HDC hdc, const RECT& client)
{
    const bool isHot = m_isHovered && !m_isReadOnly;
    if (m_look.backImage && !m_look.backImage->IsNull()) {
        constexpr int kStates = 4;
        CDUIImage& image = *m_look.backImage;
        const int height = image.GetHeight() / kStates;
        const int state = m_isDisabled ? 3 : isHot ? 1 : 0;
        image.DrawImage(hdc, client, RECT{0, state * height, image.GetWidth(), (state + 1) * height});
        return;
    }
    const bool isActive = isHot && !m_isDisabled;
    const OwnedObject pen(CreatePen(PS_SOLID, 1, isActive ? m_look.hoverBorder : m_look.border));
    const OwnedObject brush(
        CreateSolidBrush(m_isReadOnly || m_isDisabled ? m_look.readOnlyBack : m_look.back));
    const SelectScope usesPen(hdc, pen.As<HPEN>());
    const SelectScope usesBrush(hdc, brush.As<HBRUSH>());
    Rectangle(hdc, client.left, client.top, client.right, client.bottom);
}

void CQVEdit::DrawLine(HDC hdc)
{
    const SelectScope usesFont(hdc, Font());
    SetBkMode(hdc, TRANSPARENT);
    const bool showsDefault = m_line->Length() == 0;
    std::string text(m_defaultText.GetString());
    if (!showsDefault) {
        const int visible = FittingFrom(m_firstVisible);
        // The character that is cut at the right shows that the text goes on.
        text = Drawn(m_firstVisible, multibyte::Next(m_line->Text(), m_firstVisible + visible));
    }
    SetTextColor(hdc, showsDefault ? m_look.defaultText : m_isDisabled ? m_look.disabledText : m_look.text);
    const RECT clip{m_look.leftMargin, 0, m_look.leftMargin + TextWidth(), m_textY + m_charHeight};
    ExtTextOutA(hdc, m_look.leftMargin, m_textY, ETO_CLIPPED, &clip, text.c_str(),
                static_cast<UINT>(text.size()), nullptr);
    if (m_line->HasSelection())
        DrawSelection(hdc);
}

void CQVEdit::DrawSelection(HDC hdc)
{
    const int left = XOf(std::max(m_line->SelectionStart(), m_firstVisible));
    const int right = std::min(XOf(m_line->SelectionEnd()), m_look.leftMargin + TextWidth());
    const int width = right - left;
    if (width <= 0 || m_charHeight <= 0)
        return;
    const OwnedObject bitmap(CreateCompatibleBitmap(hdc, width, m_charHeight));
    const OwnedObject brush(CreateSolidBrush(m_look.selection));
    const MemoryContext memory(bitmap.As<HBITMAP>());
    const RECT all{0, 0, width, m_charHeight};
    FillRect(memory.Get(), &all, brush.As<HBRUSH>());
    AlphaBlend(hdc, left, m_textY, width, m_charHeight, memory.Get(), 0, 0, width, m_charHeight,
               BLENDFUNCTION{AC_SRC_OVER, 0, kSelectionAlpha, 0});
}

// --- pointer -----------------------------------------------------------------------------------------------

namespace {

POINT PointOf(LPARAM lParam)
{
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

}  // namespace

LRESULT CQVEdit::OnLButtonDown(WPARAM wParam, LPARAM lParam)
{
    const HWND window = m_hWnd;
    Default(WM_LBUTTONDOWN, wParam, lParam);
    if (m_isDisabled)
        return 0;
    ::SetFocus(window);
    if (FromHandlePermanent(window) != this)
        return 0;
    SetCapture(window);
    const POINT point = PointOf(lParam);
    const bool isThird = GetTickCount() - m_doubleClickTime < GetDoubleClickTime() &&
                         std::abs(point.x - m_doubleClickPoint.x) < GetSystemMetrics(SM_CXDOUBLECLK) &&
                         std::abs(point.y - m_doubleClickPoint.y) < GetSystemMetrics(SM_CYDOUBLECLK);
    m_pressIndex = IndexAt(point.x);
    m_isDragging = true;
    m_line->Press(m_pressIndex);
    if (isThird) {
        m_isDragging = false;
        m_line->Select(0, m_line->Length());
    }
    ShowCaretThere();
    return 0;
}

LRESULT CQVEdit::OnLButtonDoubleClick(WPARAM, LPARAM lParam)
{
    if (m_isDisabled)
        return 0;
    m_doubleClickPoint = PointOf(lParam);
    m_doubleClickTime = GetTickCount();
    if (m_look.isPassword) {
        m_line->Select(0, m_line->Length());
    } else {
        const std::string& text = m_line->Text();
        const int index = multibyte::Floor(text, IndexAt(m_doubleClickPoint.x));
        const int inside = index == m_line->Length() ? multibyte::Previous(text, index) : index;
        const int end = multibyte::WordEnd(text, inside);
        int start = inside;
        while (start > 0 && multibyte::WordEnd(text, multibyte::Previous(text, start)) == end)
            start = multibyte::Previous(text, start);
        m_line->Select(start, end);
    }
    ScrollToCaret();
    ShowCaretThere();
    return 0;
}

LRESULT CQVEdit::OnLButtonUp(WPARAM wParam, LPARAM lParam)
{
    m_isDragging = false;
    if (GetCapture() == m_hWnd)
        ReleaseCapture();
    return Default(WM_LBUTTONUP, wParam, lParam);
}

LRESULT CQVEdit::OnCaptureChanged(WPARAM wParam, LPARAM lParam)
{
    // The parent, which sees the press too, may take the mouse for a moment.
    if (reinterpret_cast<HWND>(lParam) != GetParent(m_hWnd))
        m_isDragging = false;
    return Default(WM_CAPTURECHANGED, wParam, lParam);
}

LRESULT CQVEdit::OnMouseMove(WPARAM wParam, LPARAM lParam)
{
    if (!m_tracksLeave) {
        TRACKMOUSEEVENT track{sizeof track, TME_HOVER | TME_LEAVE, m_hWnd, 1};
        m_tracksLeave = TrackMouseEvent(&track) != FALSE;
    }
    if (m_isDragging)
        DragTo(PointOf(lParam));
    return Default(WM_MOUSEMOVE, wParam, lParam);
}

void CQVEdit::DragTo(POINT point)
{
    RECT client{};
    GetClientRect(m_hWnd, &client);
    const int index = IndexAt(point.x);
    if (index > m_pressIndex && point.x > client.right)
        m_firstVisible = FirstBefore(m_line->Length());
    else if (index <= m_pressIndex && point.x < 0)
        m_firstVisible = 0;
    m_line->Select(m_pressIndex, IndexAt(point.x));
    ShowCaretThere();
}

LRESULT CQVEdit::OnMouseHover(WPARAM, LPARAM)
{
    m_isHovered = true;
    DropBackBuffer();
    return 0;
}

LRESULT CQVEdit::OnMouseLeave(WPARAM, LPARAM)
{
    m_isHovered = false;
    m_tracksLeave = false;
    DropBackBuffer();
    return 0;
}

}  // namespace DUI
