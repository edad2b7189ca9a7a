// What the host sees of the text services: properties, layout, drawing, scrolling and notifications.

#include "native/text_services/services.h"

#include <algorithm>
#include <chrono>
#include <climits>

#include "native/gdi/fills.h"
#include "native/text/text_drawing.h"
#include "native/text_services/timers.h"

namespace qvui::native {
namespace {

// Scroll bars of hosts count to this; beyond it their positions are scaled.
constexpr std::int64_t kLongestRange = 65535;
constexpr int kMeasureEvery = 10;   // milliseconds
constexpr int kMeasureAtOnce = 16;  // segments between two looks at the clock
constexpr auto kMeasureFor = std::chrono::milliseconds(4);
constexpr int kMostRounds = 8;
// A document up to this size is measured as soon as its exact size is asked for.
constexpr int kSmallText = 1 << 16;
constexpr COLORREF kLinkColour = RGB(0, 0, 255);

int Scaled(std::int64_t value, std::int64_t range)
{
    return static_cast<int>(range > kLongestRange ? value * kLongestRange / range : value);
}

}  // namespace

TextServices::Call::Call(TextServices& services) : m_services(services)
{
    ++m_services.m_references;
    ++m_services.m_inner;
}

TextServices::Call::~Call()
{
    if (m_services.m_inner == 1 && !m_services.m_isSettling)
        m_services.Settle();
    --m_services.m_inner;
    m_services.Release();
}

TextServices::TextServices(ITextHost* host) : m_host(host)
{
    m_properties = m_host.PropertyBits();
    m_bars = m_host.ScrollBars();
    m_editor.SetRich((m_properties & TXTBIT_RICHTEXT) != 0);
    ReadFormats();
    m_selectionBar = m_host.SelectionBarWidth();
    if (const DWORD limit = m_host.MaxLength())
        m_limit = static_cast<int>(std::min<DWORD>(limit, INT_MAX));
    m_editor.SetMultiLine((m_properties & TXTBIT_MULTILINE) != 0);
    m_client = m_host.ClientRect();
    m_inset = m_host.ViewInset();
    Configure();
    m_seenChanges = m_editor.Changes();
    if (HasBar(ES_DISABLENOSCROLL) && HasBar(WS_VSCROLL) && m_host.Host()) {
        constexpr int kDisableBoth = 3;
        m_host.Host()->TxSetScrollRange(SB_VERT, 0, 1, TRUE);
        m_host.Host()->TxEnableScrollBar(SB_VERT, kDisableBoth);
    }
}

HRESULT TextServices::QueryInterface(REFIID iid, void** object)
{
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (!(iid == IID_IUnknown) && !(iid == IID_ITextServices))
        return E_NOINTERFACE;
    *object = static_cast<ITextServices*>(this);
    AddRef();
    return S_OK;
}

ULONG TextServices::Release()
{
    const ULONG left = --m_references;
    if (left == 0)
        delete this;
    else if (left == m_inner)
        m_host.Cut();  // nobody but the calls under way holds them: the host may be gone
    return left;
}

void TextServices::ReadFormats()
{
    CharFormat character = m_editor.DefaultFormat();
    if (m_host.ReadFormat(character))
        m_editor.SetDefaultFormat(character);
    ParaFormat paragraph = m_editor.ParaFormats()[kDefaultFormat];
    if (m_host.ReadFormat(paragraph))
        m_editor.SetDefaultParagraphFormat(paragraph);
}

RECT TextServices::TextArea() const
{
    RECT area = m_client;
    area.left += m_inset.left + m_selectionBar;
    area.top += m_inset.top;
    area.right = std::max(area.left, area.right - m_inset.right);
    area.bottom = std::max(area.top, area.bottom - m_inset.bottom);
    return area;
}

void TextServices::Configure()
{
    const RECT area = TextArea();
    LayoutSettings settings;
    settings.width = area.right - area.left;
    settings.wraps =
        (m_properties & TXTBIT_WORDWRAP) && (m_properties & TXTBIT_MULTILINE) && settings.width > 0;
    settings.hasFixedLineHeight = !m_editor.IsRich();
    settings.password = IsPassword() ? m_host.PasswordCharacter() : char16_t{0};
    m_editor.SetPassword(IsPassword());
    m_editor.View().Configure(settings);
    m_needsRepaint = true;
}

HRESULT TextServices::OnTxPropertyBitsChange(DWORD mask, DWORD bits)
{
    const Call call(*this);
    constexpr DWORD kStored = TXTBIT_RICHTEXT | TXTBIT_MULTILINE | TXTBIT_READONLY | TXTBIT_USEPASSWORD |
                              TXTBIT_HIDESELECTION | TXTBIT_SAVESELECTION | TXTBIT_AUTOWORDSEL |
                              TXTBIT_WORDWRAP | TXTBIT_ALLOWBEEP;
    m_properties = (m_properties & ~(mask & kStored)) | (bits & mask & kStored);
    ReadProperties(mask);
    return S_OK;
}

// The bits that announce a change of what only the host knows.
void TextServices::ReadProperties(DWORD mask)
{
    if (mask & TXTBIT_MULTILINE)
        m_editor.SetMultiLine((m_properties & TXTBIT_MULTILINE) != 0);
    if (mask & TXTBIT_CLIENTRECTCHANGE) {
        m_client = m_host.ClientRect();
        m_updatesNow = true;
    }
    if (mask & TXTBIT_VIEWINSETCHANGE)
        m_inset = m_host.ViewInset();
    if (mask & TXTBIT_SELBARCHANGE)
        m_selectionBar = m_host.SelectionBarWidth();
    if (mask & TXTBIT_SCROLLBARCHANGE)
        m_bars = m_host.ScrollBars();
    if (mask & (TXTBIT_CHARFORMATCHANGE | TXTBIT_PARAFORMATCHANGE))
        ReadFormats();
    if (mask & TXTBIT_MAXLENGTHCHANGE)
        if (const DWORD limit = m_host.MaxLength())
            m_limit = static_cast<int>(std::min<DWORD>(limit, INT_MAX));
    Configure();
}

HRESULT TextServices::OnTxInPlaceActivate(LPCRECT client)
{
    const Call call(*this);
    m_isActive = true;
    m_client = client ? Saturated(*client) : m_host.ClientRect();
    Configure();
    return S_OK;
}

HRESULT TextServices::OnTxInPlaceDeactivate()
{
    const Call call(*this);
    m_isActive = false;
    if (m_host.Host()) {
        for (const UINT timer : {kMeasureTimer, kDragTimer})
            if (timer == kMeasureTimer ? std::exchange(m_isMeasuring, false)
                                       : std::exchange(m_isScrollingDrag, false))
                m_host.Host()->TxKillTimer(timer);
    }
    return S_OK;
}

HRESULT TextServices::TxGetText(BSTR* text)
{
    if (!text)
        return E_INVALIDARG;
    const std::u16string all = m_editor.Text().Text(0, m_editor.Text().Length());
    *text = all.empty() ? nullptr : SysAllocStringLen(all.data(), static_cast<UINT>(all.size()));
    return S_OK;
}

HRESULT TextServices::TxSetText(LPCWSTR text)
{
    const Call call(*this);
    m_editor.SetText(text ? std::u16string(text) : std::u16string());
    m_left = 0;
    m_needsRepaint = true;
    return S_OK;
}

HRESULT TextServices::TxGetNaturalSize(DWORD, HDC, HDC, DVTARGETDEVICE*, DWORD, const SIZEL*, LONG* width,
                                       LONG* height)
{
    if (!width || !height)
        return E_INVALIDARG;
    TextView& view = m_editor.View();
    if (m_editor.Text().Length() <= kSmallText)
        view.MeasureThrough(m_editor.Text().Length());
    *width = static_cast<LONG>(std::min<std::int64_t>(view.Width(), INT_MAX));
    *height = static_cast<LONG>(std::min<std::int64_t>(view.Height(), INT_MAX));
    return S_OK;
}

bool TextServices::IsSelectionHidden() const
{
    return m_hidesSelection || (!m_hasFocus && (m_properties & TXTBIT_HIDESELECTION));
}

HRESULT TextServices::TxDraw(DWORD, LONG, void*, DVTARGETDEVICE*, HDC dc, HDC, LPCRECT bounds, LPCRECT,
                             LPRECT update, BOOL(CALLBACK*)(DWORD), DWORD, LONG)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context || (!bounds && !m_isActive))
        return E_INVALIDARG;
    const RECT area = bounds ? Saturated(*bounds) : m_client;
    const ScopedClip clip(*context, update ? Intersection(area, *update) : area);
    if (m_host.IsOpaque())
        FillPixels(*context, context->ToSurface(area), PixelOf(m_host.SystemColour(COLOR_WINDOW)));
    const RECT text{area.left + m_inset.left + m_selectionBar, area.top + m_inset.top,
                    area.right - m_inset.right, area.bottom - m_inset.bottom};
    if (text.left >= text.right || text.top >= text.bottom)
        return S_OK;
    const ScopedClip inner(*context, text);
    TextView& view = m_editor.View();
    view.MeasureView(text.bottom - text.top);
    const POINT origin = context->ToSurface(text.left - m_left, text.top);
    const ViewColours colours{m_host.SystemColour(COLOR_WINDOWTEXT), m_host.SystemColour(COLOR_HIGHLIGHTTEXT),
                              m_host.SystemColour(COLOR_HIGHLIGHT), kLinkColour};
    const Selection& selection = m_editor.Selected();
    const bool isHidden = IsSelectionHidden();
    view.Draw(*context, origin.x, origin.y - view.Top(), context->Drawable().Bounds(),
              isHidden ? 0 : selection.First(), isHidden ? 0 : selection.Last(), colours);
    return S_OK;
}

HRESULT TextServices::OnTxSetCursor(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, HDC, LPCRECT client, INT x,
                                    INT y)
{
    const Call call(*this);
    const RECT shown = client ? *client : m_client;
    int shape = 32513;  // the I-beam
    if (x < shown.left) {
        shape = 32512;
    } else {
        const RECT area = TextArea();
        const auto character = m_editor.View().CharacterAt(
            std::int64_t{x} - area.left + m_left, std::int64_t{y} - area.top + m_editor.View().Top());
        const Selection& selection = m_editor.Selected();
        if (character && *character >= selection.First() && *character < selection.Last() &&
            !IsSelectionHidden())
            shape = 32512;
        else if (character &&
                 (m_editor.CharFormats()[m_editor.Text().FormatAt(*character)].effects & CFE_LINK))
            shape = 32649;
    }
    if (m_host.Host())
        m_host.Host()->TxSetCursor(LoadCursorA(nullptr, MAKEINTRESOURCEA(shape)), shape == 32513);
    return S_OK;
}

std::int64_t TextServices::MostTop() const
{
    const RECT area = TextArea();
    return std::max<std::int64_t>(0, m_editor.View().Height() - (area.bottom - area.top));
}

// One pixel more than the text, for the caret after it.
int TextServices::MostLeft()
{
    const RECT area = TextArea();
    if (m_editor.View().Settings().wraps)
        return 0;
    return static_cast<int>(
        std::clamp<std::int64_t>(m_editor.View().Width() + 1 - (area.right - area.left), 0, INT_MAX));
}

void TextServices::ScrollTo(int left, std::int64_t top)
{
    m_editor.View().SetTop(std::clamp<std::int64_t>(top, 0, MostTop()));
    m_left = std::clamp(left, 0, MostLeft());
}

POINT TextServices::ToClient(const TextView::Box& box) const
{
    const RECT area = TextArea();
    const auto clamped = [](std::int64_t value) {
        return static_cast<LONG>(std::clamp<std::int64_t>(value, INT_MIN / 2, INT_MAX / 2));
    };
    return {clamped(area.left + box.x - m_left), clamped(area.top + box.y - m_editor.View().Top())};
}

Caret TextServices::HitClient(POINT client)
{
    const RECT area = TextArea();
    return m_editor.View().Hit(std::int64_t{client.x} - area.left + m_left,
                               std::int64_t{client.y} - area.top + m_editor.View().Top());
}

void TextServices::ShowCaretInView()
{
    TextView& view = m_editor.View();
    const RECT area = TextArea();
    const int width = area.right - area.left;
    const int height = area.bottom - area.top;
    if (width <= 0 || height <= 0)
        return;
    const TextView::Box box = view.Locate(m_editor.CaretPlace());
    std::int64_t top = view.Top();
    if (HasBar(ES_AUTOVSCROLL)) {
        if (box.y + box.height > top + height)
            top = box.y + box.height - height;
        if (box.y < top)
            top = box.y;
    }
    int left = m_left;
    if (HasBar(ES_AUTOHSCROLL)) {
        const int x = static_cast<int>(std::min<std::int64_t>(box.x, INT_MAX / 2));
        if (x >= left + width)
            left = x - width + 1;
        else if (x < left)
            left = std::max(0, x - (x > width / 4 ? width / 4 : x));
    }
    ScrollTo(left, top);
}

LRESULT TextServices::Scroll(int bar, WPARAM code)
{
    TextView& view = m_editor.View();
    const RECT area = TextArea();
    const bool isVertical = bar == SB_VERT;
    const int page = isVertical ? area.bottom - area.top : area.right - area.left;
    std::int64_t position = isVertical ? view.Top() : m_left;
    const std::int64_t most = isVertical ? MostTop() : MostLeft();
    switch (LOWORD(code)) {
        case SB_LINEUP:
            position -= view.LineHeight();
            break;
        case SB_LINEDOWN:
            position += view.LineHeight();
            break;
        case SB_PAGEUP:
            position -= page;
            break;
        case SB_PAGEDOWN:
            position += page;
            break;
        case SB_TOP:
            position = 0;
            break;
        case SB_BOTTOM:
            position = most;
            break;
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION: {
            const std::int64_t content = isVertical ? view.Height() : view.Width();
            position = HIWORD(code);
            if (content > kLongestRange)
                position = position * content / kLongestRange;
            break;
        }
        default:
            return 0;
    }
    isVertical ? ScrollTo(m_left, position)
               : ScrollTo(static_cast<int>(std::min(position, most)), view.Top());
    m_updatesNow = true;
    return 0;
}

HRESULT TextServices::TxGetVScroll(LONG* least, LONG* most, LONG* position, LONG* page, BOOL* isEnabled)
{
    const Call call(*this);
    TextView& view = m_editor.View();
    const RECT area = TextArea();
    if (m_editor.Text().Length() <= kSmallText)
        view.MeasureThrough(m_editor.Text().Length());
    const auto put = [](LONG* to, std::int64_t value) {
        if (to)
            *to = static_cast<LONG>(std::min<std::int64_t>(value, INT_MAX));
    };
    put(least, 0);
    put(most, view.Height());
    put(position, view.Top());
    put(page, area.bottom - area.top);
    if (isEnabled)
        *isEnabled = HasBar(WS_VSCROLL) && MostTop() > 0;
    return S_OK;
}

HRESULT TextServices::TxGetHScroll(LONG* least, LONG* most, LONG* position, LONG* page, BOOL* isEnabled)
{
    const Call call(*this);
    TextView& view = m_editor.View();
    const RECT area = TextArea();
    if (m_editor.Text().Length() <= kSmallText)
        view.MeasureThrough(m_editor.Text().Length());
    const auto put = [](LONG* to, std::int64_t value) {
        if (to)
            *to = static_cast<LONG>(std::min<std::int64_t>(value, INT_MAX));
    };
    put(least, 0);
    put(most, view.Width());
    put(position, m_left);
    put(page, area.right - area.left);
    if (isEnabled)
        *isEnabled = HasBar(WS_HSCROLL) && view.Width() > area.right - area.left;
    return S_OK;
}

// Brings the view in line with what has changed and tells the host. What the host does meanwhile is settled
// in another round.
void TextServices::Settle()
{
    m_isSettling = true;
    for (int round = 0; round < kMostRounds && !m_host.IsCut(); ++round) {
        TextView& view = m_editor.View();
        const RECT area = TextArea();
        const int changes = m_editor.Changes();
        const Selection selection = m_editor.Selected();
        const bool isChanged = changes != m_seenChanges;
        if (std::exchange(m_wantsCaretInView, false))
            ShowCaretInView();
        view.MeasureView(area.bottom - area.top);
        if (view.Top() > MostTop() || m_left > MostLeft())
            ScrollTo(m_left, view.Top());
        const bool isSelectionChanged = !(selection == m_told.selection);
        TellScrollBars();
        TellDamage();
        TellCaret();
        TellMeasuring();
        if (std::exchange(m_hitLimit, false))
            m_host.Notify(EN_MAXTEXT);
        if (!isChanged && !isSelectionChanged && !m_needsRepaint)
            break;
        if (isChanged || isSelectionChanged)
            TellChanges();
    }
    m_isSettling = false;
}

void TextServices::TellDamage()
{
    TextView& view = m_editor.View();
    const RECT area = TextArea();
    const std::int64_t top = view.Top();
    const bool isScrolled = top != m_told.top || m_left != m_told.left;
    const auto damage = m_editor.TakeDamage();
    const Selection selection = m_editor.Selected();
    const Selection before = std::exchange(m_told.selection, selection);
    const std::int64_t height = view.Height();
    const bool hasRest = std::exchange(m_needsRepaint, false) || isScrolled;
    bool isDirty = hasRest;
    RECT rect = m_client;
    if (!hasRest) {
        std::int64_t from = INT64_MAX;
        std::int64_t to = INT64_MIN;
        const auto add = [&](Position first, Position last) {
            const TextView::Box start = view.Locate({std::min(first, m_editor.Text().Length()), true});
            const TextView::Box end = view.Locate({std::min(last, m_editor.Text().Length()), false});
            from = std::min(from, start.y);
            to = std::max(to, end.y + end.height);
        };
        if (damage) {
            add(damage->first, damage->last);
            // A paragraph that wraps may have changed up to its end, and what follows when it became longer
            // or shorter.
            if (height != m_told.height)
                to = INT64_MAX / 2;
            else if (view.Settings().wraps)
                add(damage->first,
                    m_editor.Text().ParagraphEnd(std::min(damage->last, m_editor.Text().Length())));
        }
        if (!(selection == before) && (!selection.IsEmpty() || !before.IsEmpty()) && !IsSelectionHidden()) {
            if (selection.First() != before.First() || before.IsEmpty() || selection.IsEmpty())
                add(std::min(selection.First(), before.First()), std::max(selection.First(), before.First()));
            if (selection.Last() != before.Last() || before.IsEmpty() || selection.IsEmpty())
                add(std::min(selection.Last(), before.Last()), std::max(selection.Last(), before.Last()));
        }
        isDirty = from < to;
        if (isDirty) {
            rect.top = static_cast<LONG>(
                std::clamp<std::int64_t>(area.top + from - top, m_client.top, m_client.bottom));
            rect.bottom = static_cast<LONG>(std::clamp<std::int64_t>(
                area.top + std::min(to, top + INT_MAX) - top, m_client.top, m_client.bottom));
        }
    }
    m_told.top = top;
    m_told.left = m_left;
    m_told.height = height;
    const bool updatesNow = std::exchange(m_updatesNow, false);
    if (!m_isActive || !isDirty)
        return;
    if (m_host.Host() && rect.top < rect.bottom)
        m_host.Host()->TxInvalidateRect(&rect, TRUE);
    if (m_host.Host())
        m_host.Host()->TxViewChange(updatesNow);
}

void TextServices::TellScrollBars()
{
    TextView& view = m_editor.View();
    const RECT area = TextArea();
    if (HasBar(WS_VSCROLL))
        TellBar(SB_VERT, m_told.vertical, view.Height(), area.bottom - area.top, view.Top());
    if (HasBar(WS_HSCROLL))
        TellBar(SB_HORZ, m_told.horizontal, view.Settings().wraps ? 0 : view.Width(), area.right - area.left,
                m_left);
}

void TextServices::TellBar(int bar, BarState& told, std::int64_t content, int page, std::int64_t position)
{
    constexpr int kDisableBoth = 3;
    const bool isShown = content > page;
    const bool keepsBar = HasBar(ES_DISABLENOSCROLL);
    ITextHost* host = m_host.Host();
    if (isShown != told.isShown) {
        told.isShown = isShown;
        if (host && (isShown || keepsBar))
            host->TxEnableScrollBar(bar, isShown ? 0 : kDisableBoth);
        host = m_host.Host();
        if (host && !keepsBar)
            host->TxShowScrollBar(bar, isShown);
        told.range = told.position = -1;
    }
    if (!isShown)
        return;
    if (content != told.range) {
        told.range = content;
        told.position = -1;
        if ((host = m_host.Host()))
            host->TxSetScrollRange(bar, 0, Scaled(content, content), FALSE);
    }
    if (position != told.position) {
        told.position = position;
        if ((host = m_host.Host()))
            host->TxSetScrollPos(bar, Scaled(position, content), TRUE);
    }
}

void TextServices::TellCaret()
{
    if (!m_hasFocus || !m_host.Host())
        return;
    const TextView::Box box = m_editor.View().Locate(m_editor.CaretPlace());
    const RECT area = TextArea();
    POINT at = ToClient(box);
    at.x = std::min(at.x, std::max(area.left, area.right - 1));
    if (box.height != m_told.caretHeight) {
        m_told.caretHeight = box.height;
        m_told.isCaretShown = false;
        m_told.caret = {-1, -1};
        m_host.Host()->TxCreateCaret(nullptr, 0, box.height);
    }
    const bool isShown = m_editor.Selected().IsEmpty() && at.y + box.height > area.top &&
                         at.y < area.bottom && at.x >= area.left;
    if (!isShown && m_told.isCaretShown && m_host.Host()) {
        m_told.isCaretShown = false;
        m_host.Host()->TxShowCaret(FALSE);
    }
    if ((at.x != m_told.caret.x || at.y != m_told.caret.y) && m_host.Host()) {
        m_told.caret = at;
        m_host.Host()->TxSetCaretPos(at.x, at.y);
    }
    if (isShown && !m_told.isCaretShown && m_host.Host()) {
        m_told.isCaretShown = true;
        m_host.Host()->TxShowCaret(TRUE);
    }
}

void TextServices::TellChanges()
{
    const bool isChanged = m_editor.Changes() != m_seenChanges;
    SELCHANGE change{};
    change.nmhdr.code = EN_SELCHANGE;
    change.chrg = {m_editor.Selected().First(), m_editor.Selected().Last()};
    change.seltyp =
        m_editor.Selected().IsEmpty()
            ? SEL_EMPTY
            : static_cast<WORD>(SEL_TEXT | (change.chrg.cpMax - change.chrg.cpMin > 1 ? SEL_MULTICHAR : 0));
    const bool isSelectionTold =
        change.chrg.cpMin == m_notifiedRange.cpMin && change.chrg.cpMax == m_notifiedRange.cpMax;
    m_notifiedRange = change.chrg;
    if (!isSelectionTold && (m_eventMask & ENM_SELCHANGE))
        m_host.Notify(EN_SELCHANGE, &change);
    if (!isChanged)
        return;
    if (m_eventMask & ENM_CHANGE)
        m_host.Notify(EN_CHANGE);
    // What the handler of a change changes is not told again.
    m_seenChanges = m_editor.Changes();
    if ((m_eventMask & ENM_REQUESTRESIZE) && m_editor.View().Height() != m_requestedHeight) {
        m_requestedHeight = m_editor.View().Height();
        REQRESIZE request{};
        request.nmhdr.code = EN_REQUESTRESIZE;
        request.rc = {m_client.left, m_client.top, m_client.right,
                      static_cast<LONG>(std::min<std::int64_t>(m_client.top + m_requestedHeight, INT_MAX))};
        m_host.Notify(EN_REQUESTRESIZE, &request);
    }
}

// What is not measured yet is measured in idle time.
void TextServices::TellMeasuring()
{
    const bool needsMore = m_isActive && m_editor.Text().Segments().Total().unmeasured > 0;
    if (needsMore == m_isMeasuring || !m_host.Host())
        return;
    if (needsMore)
        m_isMeasuring = m_host.Host()->TxSetTimer(kMeasureTimer, kMeasureEvery) != FALSE;
    else {
        m_isMeasuring = false;
        m_host.Host()->TxKillTimer(kMeasureTimer);
    }
}

bool TextServices::OnTimer(WPARAM id)
{
    if (id == kMeasureTimer) {
        const auto end = std::chrono::steady_clock::now() + kMeasureFor;
        while (m_isMeasuring && m_editor.View().MeasureMore(kMeasureAtOnce) &&
               std::chrono::steady_clock::now() < end) {
        }
        return true;
    }
    if (id == kDragTimer && m_isScrollingDrag)
        DragTo(m_dragPoint);
    return id == kDragTimer;
}

}  // namespace qvui::native
