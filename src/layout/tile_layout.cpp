#include <qvui/layout/tile_layout.h>

#include <algorithm>

#include "controls/scrolling/owned_scroll_bar.h"
#include "layout/children.h"
#include "layout/placement/tile_grid.h"

namespace DUI {
namespace {

using namespace geometry;
using namespace layout;

constexpr int kScrollBarWidth = 7;
// The height offered to a tile, which imposes no limit.
constexpr LONG kUnlimited = 32767;

const AttributeTable<CDUITileLayout>& Attributes()
{
    static const AttributeTable<CDUITileLayout> table{
        {"column_count",
         {AttributeKind::Integer, "0"},
         "The number of columns; 0: as many as the width holds.",
         &CDUITileLayout::SetColumnCount},
        {"padding_height",
         {AttributeKind::Integer, "0"},
         "The gap between rows, in pixels.",
         &CDUITileLayout::SetRowGap},
        {"vscroll_style", AttributeKind::ControlStyle,
         "The style of the scroll bar that the layout has; a bar made later has \"cs_v_scrollbar\".",
         [](CDUITileLayout& tiles, const CString& value) {
             if (CDUIVerticalSB* const bar = tiles.GetVerticalSB())
                 bar->SetAttribute("control_style", value);
         }},
    };
    return table;
}

// Counts the tile layouts that are currently laying out, nested in one another.
class Nesting {
public:
    Nesting() { ++s_depth; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;
    ~Nesting() { --s_depth; }

    static bool IsOutermost() { return s_depth == 1; }

private:
    inline static int s_depth = 0;
};

// Returns the heights that the tiles ask for. They are not asked if the row height is fixed.
std::vector<LONG> AskHeights(const Children& tiles, LONG columnWidth, LONG rowHeight)
{
    std::vector<LONG> heights(tiles.size(), rowHeight);
    for (std::size_t i = 0; rowHeight == 0 && i < tiles.size(); ++i) {
        SIZE size{0, 0};
        if (tiles[i]->EstimateSize({columnWidth, kUnlimited}, size))
            heights[i] = size.cy;
    }
    return heights;
}

TilePlaces Arrange(CDUITileLayout& layout, const RECT& view, int position, int columns, const Children& tiles)
{
    TileGrid grid;
    grid.view = view;
    grid.position = position;
    grid.columns = columns;
    grid.columnGap = layout.GetPaddingWidth();
    grid.rowGap = layout.GetRowGap();
    grid.rowHeight = layout.GetFixedSize().cy;
    const LONG columnWidth = ColumnWidth(Width(view), columns, grid.columnGap);
    return PlaceTiles(grid, AskHeights(tiles, columnWidth, grid.rowHeight));
}

}  // namespace

const ControlClass& CDUITileLayout::Class()
{
    static const ControlClass info("CDUITileLayout", &CDUICanvas::Class(),
                                   "Places its children in columns of equal width, and scrolls.",
                                   {"tile_layout"}, &Attributes());
    return info;
}

CDUITileLayout::CDUITileLayout()
{
    ModifyStyle(0, DUISTYLE_TRANSPARENT);
}

CDUITileLayout::CDUITileLayout(const CDUITileLayout& other)
    : ControlOf(other),
      m_pScrollBar(owned_scroll_bar::Clone(other.m_pScrollBar, this)),
      m_nColumnCount(other.m_nColumnCount),
      m_nRowGap(other.m_nRowGap)
{
    ModifyStyle(0, DUISTYLE_TRANSPARENT);
}

CDUITileLayout::~CDUITileLayout()
{
    owned_scroll_bar::ReportTo(m_pScrollBar, nullptr);
}

void CDUITileLayout::SetControlRect(const RECT& rect)
{
    const Nesting nesting;
    StoreControlRect(rect);
    if (GetControlCount() == 0)
        return;
    RECT view = GetContentRect();
    const int position = owned_scroll_bar::Reserve(GetVerticalSB(), view);
    if (IsRectEmpty(&view)) {
        PlaceAll(*this, view);
        return;
    }
    const int columns = ColumnsIn(view);
    if (columns == 0)
        return;
    const Children tiles = VisibleChildren(*this);
    const TilePlaces places = Arrange(*this, view, position, columns, tiles);
    for (std::size_t i = 0; i < tiles.size(); ++i)
        tiles[i]->SetControlRect(places.rects[i]);
    ReportContent(view, Narrow(places.content));
    Repaint();
}

int CDUITileLayout::ColumnsIn(RECT& view)
{
    return m_nColumnCount > 0 ? m_nColumnCount : CalculateColumnCount(view);
}

// More columns may make the content higher, if a high tile moves into a row of low ones. Content that fits
// beside the scroll bar but not without it keeps the bar; otherwise showing and hiding it would repeat
// endlessly.
void CDUITileLayout::ReportContent(const RECT& view, int content)
{
    RECT whole = GetContentRect();
    const bool fitsBesideBar = content <= Height(view) && whole.right != view.right;
    if (fitsBesideBar &&
        Arrange(*this, whole, 0, ColumnsIn(whole), VisibleChildren(*this)).content > Height(whole)) {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_RANGE | SIF_PAGE;
        info.nPage = static_cast<UINT>(Height(view));
        GetVerticalSB()->SetScrollBarInfo(&info);
        return;
    }
    ProcessVerticalSB(view, content, 0);
}

int CDUITileLayout::CalculateColumnCount(RECT& rect)
{
    const SIZE available{Narrow(Width(rect)), Narrow(Height(rect))};
    const Children tiles = VisibleChildren(*this);
    LONG widest = 0;
    for (const CRefPtr<IDUIControl>& tile : tiles) {
        SIZE size{0, 0};
        if (tile->EstimateSize(available, size))
            widest = std::max(widest, size.cx);
    }
    return CountColumns(Width(rect), widest, GetPaddingWidth(), static_cast<int>(tiles.size()));
}

// Repaints immediately, so that the content does not lag behind the scroll bar. A nested tile layout leaves
// the repaint to the outer one; otherwise every nesting level would paint all levels below it.
void CDUITileLayout::Repaint()
{
    const HWND window = GetManagerWnd(FALSE);
    if (!IsWindow(window))
        return;
    const RECT content = GetContentRect();
    InvalidateRect(window, &content, FALSE);
    if (Nesting::IsOutermost())
        UpdateWindow(window);
}

void CDUITileLayout::MakeSureControlVisible(IDUIControl* child)
{
    if (m_nColumnCount != 1)
        return;
    LONGLONG bottom = 0;
    const int count = GetControlCount();
    int index = 0;
    for (; index < count; ++index) {
        IDUIControl* const tile = GetControlByIndex(index);
        bottom += Height(tile->GetControlRect()) + (index + 1 < count ? m_nRowGap : 0);
        if (tile == child)
            break;
    }
    CDUIVerticalSB* const bar = GetVerticalSB();
    if (index == count || !bar || !bar->IsVisible(FALSE))
        return;
    owned_scroll_bar::ScrollTo(*bar, std::max<LONGLONG>(0, bottom - Height(GetControlRect())));
    UpdateLayout(TRUE, nullptr);
}

void CDUITileLayout::OnCreate()
{
    owned_scroll_bar::Open(m_pScrollBar, *this, kScrollBarWidth);
}

void CDUITileLayout::OnDestroy()
{
    owned_scroll_bar::Release(m_pScrollBar);
    IDUITileLayout::OnDestroy();
}

}  // namespace DUI
