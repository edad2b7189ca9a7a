#include <qvui/controls/hyper_link.h>

#include "framework/control_guard.h"

namespace DUI {
namespace {

const AttributeTable<CDUIHyperLink>& Attributes()
{
    static const AttributeTable<CDUIHyperLink> attributes{
        {"href", AttributeKind::Text, "The link; it is the tooltip too unless one was given before.",
         &CDUIHyperLink::SetHyperLink},
    };
    return attributes;
}

}  // namespace

const ControlClass& CDUIHyperLink::Class()
{
    static const ControlClass theClass("CDUIHyperLink", &CDUILabel::Class(), "A label that carries a link.",
                                       {"hyper_link"}, &Attributes(),
                                       {{"DUINOTIFY_LINKCLICK", "The link was clicked."}}, false);
    return theClass;
}

CDUIHyperLink::CDUIHyperLink()
{
    ModifyStyle(DUISTYLE_TRANSPARENT, DUISTYLE_CURSOR | DUISTYLE_TABSTOP | DUISTYLE_TOOLTIP);
}

CDUIHyperLink::~CDUIHyperLink() = default;

BOOL CDUIHyperLink::Activate()
{
    if (!CDUILabel::Activate())
        return FALSE;
    SendNotify(DUINOTIFY_LINKCLICK, 0, 0);
    return TRUE;
}

LRESULT CDUIHyperLink::ProcessEvent(const tagDUIEvent& event, BOOL& bHandled)
{
    if (event.Type == DUIEVENT_SETCURSOR) {
        ::SetCursor(LoadCursorA(nullptr, IDC_HAND));
        return 0;
    }
    const ControlGuard keep(this);
    const RECT rect = GetControlRect();
    if (event.Type == DUIEVENT_LBUTTONUP && PtInRect(&rect, event.ptMouse))
        Activate();
    return CDUILabel::ProcessEvent(event, bHandled);
}

void CDUIHyperLink::SetHyperLink(const CString& link)
{
    m_strLink = link;
    if (GetTooltip().IsEmpty())
        SetTooltip(link);
}

const CString& CDUIHyperLink::GetHyperLink()
{
    return m_strLink;
}

}  // namespace DUI
