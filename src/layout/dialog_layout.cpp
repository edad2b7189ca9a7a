#include <qvui/layout/dialog_layout.h>

#include <algorithm>

#include "foundation/rect.h"
#include "layout/children.h"

namespace DUI {
namespace {

const AttributeTable<CDUIDialogLayout>& Attributes()
{
    static const AttributeTable<CDUIDialogLayout> table{
        {"recalc",
         {AttributeKind::Boolean, "false"},
         "\"true\" works the size out anew.",
         [](CDUIDialogLayout& dialog, const CString& value) {
             if (!IsTrue(value))
                 return false;
             dialog.Recalculate();
             return true;
         }},
    };
    return table;
}

}  // namespace

const ControlClass& CDUIDialogLayout::Class()
{
    static const ControlClass info("CDUIDialogLayout", &CDUICanvas::Class(),
                                   "Leaves its children where their positions put them.", {"dialog_layout"},
                                   &Attributes());
    return info;
}

CDUIDialogLayout::CDUIDialogLayout()
{
    ModifyStyle(0, DUISTYLE_TRANSPARENT);
}

void CDUIDialogLayout::Recalculate()
{
    m_nRecalculate = 1;
    UpdateLayout(TRUE, nullptr);
}

void CDUIDialogLayout::CalculateDlgSize()
{
    if (!m_nRecalculate)
        return;
    m_nRecalculate = 0;
    RECT bounds{0, 0, 0, 0};
    for (const CRefPtr<IDUIControl>& child : layout::AllChildren(*this)) {
        const RECT rect = child->GetControlRect();
        child->SetControlRect(rect);
        bounds = {std::min(bounds.left, rect.left), std::min(bounds.top, rect.top),
                  std::max(bounds.right, rect.right), std::max(bounds.bottom, rect.bottom)};
    }
    m_nWidth = geometry::Narrow(geometry::Width(bounds));
    m_nHeight = geometry::Narrow(geometry::Height(bounds));
}

BOOL CDUIDialogLayout::EstimateSize(SIZE, SIZE& size)
{
    CalculateDlgSize();
    size = {m_nWidth, m_nHeight};
    return TRUE;
}

void CDUIDialogLayout::SetControlRect(const RECT& rect)
{
    // Computing the size lays out the children; laying them out again would double the work at every nesting
    // level.
    const bool areChildrenPlaced = m_nRecalculate != 0;
    CalculateDlgSize();
    StoreControlRect(rect);
    if (!areChildrenPlaced)
        for (const CRefPtr<IDUIControl>& child : layout::AllChildren(*this))
            child->SetControlRect(child->GetControlRect());
    UpdateLayout(FALSE, nullptr);
}

}  // namespace DUI
