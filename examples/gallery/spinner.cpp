#include "gallery/spinner.h"

namespace {

constexpr int kAnimation = 1;
constexpr int kMilliseconds = 70;

const DUI::AttributeTable<Spinner>& Attributes()
{
    static const DUI::AttributeTable<Spinner> table{
        {"icon", DUI::AttributeKind::Image, "The strip whose icons are shown in turn.",
         [](Spinner& spinner, const CString& value) {
             spinner.SetIcons(DUIGetAppInstance()->GetSkinMgr()->GetImage(value, 1));
         }},
    };
    return table;
}

}  // namespace

const DUI::ControlClass& Spinner::Class()
{
    static const DUI::ControlClass info("Spinner", &CDUIControlBase::Class(), "Turns while something lasts.",
                                        {"spinner"}, &Attributes());
    return info;
}

void Spinner::Start()
{
    if (m_pIcons && m_pIcons->GetItemCount() > 1)
        StartAnimation(kMilliseconds, m_pIcons->GetItemCount(), kAnimation, TRUE);
}

void Spinner::Stop()
{
    StopAnimation(kAnimation);
}

void Spinner::OnAnimationStep(int nTotalFrame, int nCurFrame, int)
{
    m_nIcon = nCurFrame % nTotalFrame;
    UpdateLayout(FALSE, nullptr);
}

void Spinner::PaintForgnd(HDC hdc)
{
    if (!m_pIcons || m_pIcons->IsNull())
        return;
    const RECT content = GetContentRect();
    const int width = m_pIcons->GetIconWidth();
    const int height = m_pIcons->GetIconHeight();
    const int left = content.left + (content.right - content.left - width) / 2;
    const int top = content.top + (content.bottom - content.top - height) / 2;
    m_pIcons->DrawImage(hdc, {left, top, left + width, top + height}, m_nIcon);
}
