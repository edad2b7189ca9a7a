#pragma once

#include <qvui/controls/label.h>

namespace DUI {

/// A label that carries a link and reports clicks; the application opens the link. It shows the hand cursor
/// and takes the focus. It answers to no interface name but its own.
///
/// Skin attributes: href.
/// Notifications: DUINOTIFY_LINKCLICK when it is activated; GetHyperLink of the sender is the link.
class QVUI_API CDUIHyperLink : public ControlOf<CDUIHyperLink, CDUILabel> {
    friend ControlOf;

public:
    CDUIHyperLink();
    ~CDUIHyperLink() override;
    static const ControlClass& Class();

    BOOL Activate() override;

protected:
    LRESULT ProcessEvent(const tagDUIEvent& event, BOOL& bHandled) override;

public:
    /// The link becomes the tooltip too when there is none yet.
    virtual void SetHyperLink(const CString& link);
    virtual const CString& GetHyperLink();

protected:
    CDUIHyperLink(const CDUIHyperLink& other) = default;

private:
    CString m_strLink;
};

}  // namespace DUI
