#include <qvui/controls/combo/combo_box.h>

#include <algorithm>
#include <cstdlib>

#include "controls/combo/combo_list.h"
#include "controls/combo/type_ahead.h"
#include "controls/pointer_state.h"
#include "foundation/rect.h"
#include "framework/control_guard.h"
#include "render/dc_scopes.h"
#include "skin/skin_access.h"
#include "tooltip/popup_placement.h"

namespace DUI {

using namespace geometry;

namespace {

constexpr DWORD kArrowStyle = BTNSTYLE_CENTER_ICON | BTNSTYLE_NO_TEXT | BTNSTYLE_AUTO_FIT;
constexpr DWORD kLabelBit = 0x20;
constexpr int kListMargin = 2;
constexpr int kDefaultListHeight = 100;
enum : WPARAM { kDropDown = 1, kClosed = 2, kPicked = 3 };

CRefPtr<CDUIFrameBK> PlainFrame()
{
    CRefPtr<CDUIFrameBK> frame = new CDUIFrameBK;
    frame->SetBKColor(CARGB(255, 255, 255, 255));
    frame->SetFrameColor(CARGB(0, 0, 0, 255));
    frame->SetFrameBorder({1, 1, 1, 1});
    return frame;
}

int LineHeight(const CRefPtr<CFontObject>& font)
{
    if (font.IsNull() || !font->GetFont())
        return 0;
    const HDC dc = GetDC(nullptr);
    TEXTMETRICA metrics{};
    {
        const SelectScope scope(dc, font->GetFont());
        GetTextMetricsA(dc, &metrics);
    }
    ReleaseDC(nullptr, dc);
    return metrics.tmHeight;
}

}  // namespace

// --- the field ---------------------------------------------------------------------------------------------

const ControlClass& CComboEdit::Class()
{
    static const ControlClass theClass("CComboEdit", &CDUIRichEdit::Class(), "The field of a combo box.",
                                       {"richedit"}, nullptr);
    return theClass;
}

void CComboEdit::OnCreate()
{
    CDUIRichEdit::OnCreate();
    SetEventMask(ENM_CHANGE);
}

void CComboEdit::OnTxNotify(DWORD code, void* data)
{
    if (!m_pOwner)
        return;
    const ControlGuard keep(m_pOwner);
    const ControlGuard keepThis(this);
    CDUIComboBox& owner = *m_pOwner;
    if (code == EN_CHANGE)
        owner.OnEdited();
    owner.SendNotify(DUINOTIFY_EDITNOTIFY, code, reinterpret_cast<LPARAM>(data));
}

// --- what tools know ---------------------------------------------------------------------------------------

const AttributeTable<CDUIComboBox>& CDUIComboBox::Attributes()
{
    static const AttributeTable<CDUIComboBox> attributes{
        {"combobox_style",
         {AttributeKind::Keywords, "dropdown", "dropdown|droplist"},
         "Whether the text can be edited, or only be chosen from the list.",
         [](CDUIComboBox& combo, const CString& value) {
             if (value.Find("dropdown") >= 0)
                 combo.SetComboStyle(COMBOSTYLE_DROPDOWN);
             else if (value.Find("droplist") >= 0)
                 combo.SetComboStyle(COMBOSTYLE_DROPLIST);
         }},
        {"arrow_image", AttributeKind::Image, "Strip of the arrow button, which has the size of its icons.",
         [](CDUIComboBox& combo, const CString& value) {
             if (CDUIButton* const button = combo.ArrowButton()) {
                 CButtonUIData data = button->GetButtonUIData();
                 data.m_pBackImage = skin::Image(value);
                 button->SetButtonUIData(data);
             }
         }},
        {"back_image", AttributeKind::Image, "Strip behind everything: normal, hot, pushed, unused, focused.",
         &CDUIComboBox::m_pBackImage},
        {"list_frame", AttributeKind::FrameStyle, "The frame and background of the list that drops down.",
         &CDUIComboBox::m_pListFrame},
        {"list_height",
         {AttributeKind::Integer, "100"},
         "The most pixels that the list is high; below 1 it is 100.",
         [](CDUIComboBox& combo, const CString& value) {
             const int height = static_cast<int>(std::atol(value));
             combo.m_nListHeight = height < 1 ? kDefaultListHeight : height;
         }},
    };
    return attributes;
}

const ControlClass& CDUIComboBox::Class()
{
    static const ControlClass theClass(
        "CDUIComboBox", &CDUIControlBase::Class(), "A text with a list that drops down to choose it from.",
        {"combobox"}, &Attributes(),
        {{"DUINOTIFY_COMBOBOX",
          "wParam 1: the list is about to drop down; 2: it was closed; lParam is the combo box. wParam "
          "3: an item was picked; lParam is its index."},
         {"DUINOTIFY_EDITNOTIFY", "wParam is the text services' code, lParam its data."}});
    return theClass;
}

void* CDUIComboBox::GetInterface(const CString& name)
{
    if (name.CompareNoCase("item_owner") == 0)
        return static_cast<IDUIItemOwner*>(this);
    return ControlOf::GetInterface(name);
}

// --- life --------------------------------------------------------------------------------------------------

CDUIComboBox::CDUIComboBox() : m_pList(new CDUIListBox), m_pTypeAhead(std::make_unique<TypeAhead>())
{
    m_pList->SetName("CDUIComboBox::ListBox");
    const CRefPtr<CDUIButton> button = new CDUIButton;
    button->CDUIButton::ModifyStyle(DUISTYLE_TABSTOP, 0);
    button->SetButtonStyle(kArrowStyle);
    const CRefPtr<CComboEdit> edit = new CComboEdit;
    edit->SetEditStyle(ES_AUTOHSCROLL);
    const CRefPtr<CDUILabel> label = new CDUILabel;
    label->ModifyExStyle(kLabelBit, 0);
    AddControl(button.GetPtr());
    AddControl(edit.GetPtr());
    AddControl(label.GetPtr());
    CDUIComboBox::SetComboStyle(COMBOSTYLE_DROPDOWN);
}

CDUIComboBox::CDUIComboBox(const CDUIComboBox& other)
    : ControlOf(other),
      m_dwComboStyle(other.m_dwComboStyle),
      m_pBackImage(other.m_pBackImage),
      m_nListHeight(other.m_nListHeight),
      m_nMatched(other.m_nMatched),
      m_pListFrame(other.m_pListFrame),
      m_pTypeAhead(std::make_unique<TypeAhead>())
{
    if (!other.m_pList.IsNull()) {
        const CRefPtr<IDUIControl> copy = other.m_pList->Clone();
        m_pList = InterfaceOf<CDUIListBox>(copy.GetPtr(), "listbox");
    }
}

CDUIComboBox::~CDUIComboBox()
{
    if (m_pPopup) {
        m_pPopup->Forget();
        m_pPopup->Destroy();
    }
    if (CComboEdit* const edit = EditPart())
        edit->SetComboOwner(nullptr);
}

void CDUIComboBox::OnCreate()
{
    CDUIButton* const button = ArrowButton();
    CComboEdit* const edit = EditPart();
    CDUILabel* const label = LabelPart();
    if (!button || !edit || !label || m_pList.IsNull())
        return;
    for (IDUIControl* const part : {static_cast<IDUIControl*>(edit), static_cast<IDUIControl*>(label),
                                    static_cast<IDUIControl*>(button)})
        SubclassControl(part, TRUE);
    SetTextStyle(GetTextStyle());
    SetText(CDUIControlBase::GetText());
    m_pList->SetHoverSelect(1);
    m_pList->SetExtraExpandHeight(0);
    if (!m_pPopup) {
        const auto popup = std::make_shared<CDUIComboList>(*this);
        if (popup->Create(GetManagerWnd(FALSE)))
            m_pPopup = popup;
    }
    edit->SetComboOwner(this);
}

void CDUIComboBox::OnDestroy()
{
    const ControlGuard keep(this);
    if (CComboEdit* const edit = EditPart()) {
        edit->SetComboOwner(nullptr);
        SubclassControl(edit, FALSE);
    }
    if (CDUILabel* const label = LabelPart())
        SubclassControl(label, FALSE);
    if (CDUIButton* const button = ArrowButton())
        SubclassControl(button, FALSE);
    if (const std::shared_ptr<CDUIComboList> popup = std::move(m_pPopup)) {
        popup->Close();
        popup->Forget();
        popup->Destroy();
    }
    CDUIControlBase::OnDestroy();
}

// --- parts -------------------------------------------------------------------------------------------------

template <class Part>
Part* CDUIComboBox::FindPart(const char* name)
{
    for (const CRefPtr<IDUIControl>& child : GetChildren())
        if (Part* const part = InterfaceOf<Part>(child.GetPtr(), name))
            return part;
    return nullptr;
}

CComboEdit* CDUIComboBox::EditPart()
{
    return dynamic_cast<CComboEdit*>(FindPart<CDUIRichEdit>("richedit"));
}

CDUIRichEdit* CDUIComboBox::GetEdit()
{
    CComboEdit* const edit = EditPart();
    return (m_dwComboStyle & COMBOSTYLE_DROPDOWN) && edit && edit->IsVisible(FALSE) ? edit : nullptr;
}

void CDUIComboBox::SetComboStyle(unsigned long style)
{
    if (style == m_dwComboStyle)
        return;
    m_dwComboStyle = style;
    CComboEdit* const edit = EditPart();
    CDUILabel* const label = LabelPart();
    if (!edit || !label)
        return;
    const auto setTabStop = [](CDUIControlBase& control, bool isOne) {
        isOne ? control.ModifyStyle(0, DUISTYLE_TABSTOP) : control.ModifyStyle(DUISTYLE_TABSTOP, 0);
    };
    if (style & COMBOSTYLE_DROPDOWN) {
        edit->SetVisible(TRUE);
        label->SetVisible(FALSE);
        setTabStop(*this, false);
        setTabStop(*edit, true);
    }
    if (style & COMBOSTYLE_DROPLIST) {
        edit->SetVisible(FALSE);
        label->SetVisible(TRUE);
        setTabStop(*this, true);
        setTabStop(*edit, false);
    }
    UpdateLayout(TRUE, nullptr);
}

// The base stores no text that differs in letter case alone.
void CDUIComboBox::StoreText(const CString& text)
{
    if (CDUIControlBase::GetText() == text)
        return;
    CDUIControlBase::SetText("");
    CDUIControlBase::SetText(text);
}

void CDUIComboBox::SetText(const CString& text)
{
    const CString kept = text;
    StoreText(kept);
    if (CDUILabel* const label = LabelPart(); label && label->IsVisible(FALSE))
        label->SetText(kept);
    // What was typed is in the field already.
    if (CComboEdit* const edit = EditPart(); edit && edit->IsVisible(FALSE) && !m_isFromEdit)
        edit->SetText(kept);
}

void CDUIComboBox::OnEdited()
{
    CComboEdit* const edit = EditPart();
    if (!edit || m_isFromEdit)
        return;
    m_isFromEdit = true;
    SetText(edit->GetText());
    m_isFromEdit = false;
}

void CDUIComboBox::SetTextStyle(CRefPtr<CTextStyle> style)
{
    CDUIControlBase::SetTextStyle(style);
    if (!m_pList.IsNull())
        m_pList->SetTextStyle(style);
    if (CDUILabel* const label = LabelPart())
        label->SetTextStyle(style);
    if (CComboEdit* const edit = EditPart())
        edit->SetTextStyle(style);
}

void CDUIComboBox::SetControlRect(const RECT& rect)
{
    StoreControlRect(rect);
    CDUIButton* const button = ArrowButton();
    CComboEdit* const edit = EditPart();
    CDUILabel* const label = LabelPart();
    if (!button || !edit || !label)
        return;
    const RECT content = GetContentRect();
    SIZE arrow{0, 0};
    button->EstimateSize({Narrow(Width(content)), Narrow(Height(content))}, arrow);
    const LONG border = Narrow(Wide(content.right) - arrow.cx);
    RECT buttonRect{border, content.top, content.right, content.bottom};
    RECT textRect{content.left, content.top, border, content.bottom};
    if (IsRectEmpty(&buttonRect))
        buttonRect.left = buttonRect.right;
    if (IsRectEmpty(&textRect))
        textRect.right = textRect.left;
    button->SetControlRect(buttonRect);
    // The field's line stands in the middle, as the label's text does.
    const CRefPtr<CTextStyle> style = GetTextStyle();
    const int line = style.IsNull() ? 0 : LineHeight(style->GetNormalFont());
    const LONG space = Narrow(std::max<LONGLONG>(0, (Height(textRect) - line) / 2));
    if (line > 0 && edit->GetMargin().top != space)
        edit->SetMargin({0, space, 0, space});
    edit->SetControlRect(textRect);
    label->SetControlRect(textRect);
}

void CDUIComboBox::PaintBkgnd(HDC hdc)
{
    if (!skin::IsLoaded(m_pBackImage))
        return;
    const DWORD status = GetStatus();
    const int icon = status & DUISTATUS_HOT       ? 1
                     : status & DUISTATUS_PUSHED  ? 2
                     : status & DUISTATUS_FOCUSED ? 4
                                                  : 0;
    m_pBackImage->DrawImage(hdc, GetControlRect(), skin::IconIndex(m_pBackImage, icon));
}

// --- items -------------------------------------------------------------------------------------------------

BOOL CDUIComboBox::AddString(const CString& text)
{
    const CRefPtr<CDUIListItem> item = new CDUIListItem;
    item->SetText(text);
    item->SetAttribute("control_style", "def_listitem_style");
    return AddItem(item.GetPtr());
}

BOOL CDUIComboBox::AddItem(CRefPtr<IDUIControl> item)
{
    return m_pList.IsNull() ? FALSE : m_pList->AddControl(item);
}

int CDUIComboBox::GetItemCount()
{
    return m_pList.IsNull() ? 0 : m_pList->GetControlCount();
}

IDUIControl* CDUIComboBox::GetItem(int index)
{
    return m_pList.IsNull() ? nullptr : m_pList->GetControlByIndex(index);
}

BOOL CDUIComboBox::RemoveItem(CRefPtr<IDUIControl> item)
{
    return m_pList.IsNull() ? FALSE : m_pList->RemoveControl(item);
}

void CDUIComboBox::RemoveAllItems()
{
    if (!m_pList.IsNull())
        m_pList->RemoveAllControl();
}

int CDUIComboBox::GetCurSel()
{
    return m_pList.IsNull() ? -1 : m_pList->GetCurSel();
}

int CDUIComboBox::SetCurSel(int index)
{
    return PickItem(index, Pick::Plain);
}

int CDUIComboBox::PickItem(int index, Pick mode)
{
    if (index < 0 || index >= GetItemCount())
        return 0;
    const ControlGuard keep(this);
    const CRefPtr<IDUIControl> item = m_pList->GetControlByIndex(index);
    m_pList->SetCurSel(index);
    if (mode == Pick::Plain)
        m_pList->SetTopIndex(index);
    else if (mode == Pick::Down && index > m_pList->GetLastIndex())
        m_pList->SetTopIndex(m_pList->GetTopIndex() + 1);
    else if (mode == Pick::Up && index < m_pList->GetTopIndex())
        m_pList->SetTopIndex(m_pList->GetTopIndex() - 1);
    SetText(item->GetText());
    SendNotify(DUINOTIFY_COMBOBOX, kPicked, index);
    if (CDUIRichEdit* const edit = GetEdit())
        edit->SetSelAll();
    return 1;
}

// --- the list ----------------------------------------------------------------------------------------------

bool CDUIComboBox::HasPopup() const
{
    return m_pPopup && m_pPopup->PopupHandle() && ::IsWindow(m_pPopup->PopupHandle());
}

bool CDUIComboBox::IsDroppedDown() const
{
    return m_pPopup && m_pPopup->IsShown();
}

BOOL CDUIComboBox::Activate()
{
    if (!IsVisible(FALSE) || !IsEnabled())
        return FALSE;
    DropDown();
    return TRUE;
}

RECT CDUIComboBox::PlaceOfList(int itemsHeight)
{
    const RECT border = m_pListFrame->GetFrameBorder();
    const int extra = 2 * kListMargin + border.top + border.bottom;
    int height = m_nListHeight;
    if (itemsHeight + extra < m_nListHeight) {
        height = itemsHeight + extra;
    } else if (const auto* const first = static_cast<CDUIListItem*>(
                   GetItemCount() > 0 ? InterfaceOf<CDUIListItem>(GetItem(0), "listItem") : nullptr)) {
        // Only whole items show.
        if (const int row = const_cast<CDUIListItem*>(first)->GetHeight(0))
            height = std::max(1, m_nListHeight / row) * row + extra;
    }
    const RECT own = GetControlRect();
    const HWND window = GetManagerWnd(FALSE);
    POINT corners[] = {{own.left, own.top}, {own.right, own.bottom}};
    ClientToScreen(window, &corners[0]);
    ClientToScreen(window, &corners[1]);
    const RECT anchor{corners[0].x, corners[0].y, corners[1].x, corners[1].y};
    const SIZE size{Narrow(Width(own)), height};
    const POINT place = PlaceMenu(WorkAreaAt({anchor.left, anchor.bottom}), anchor, size, false);
    return {place.x, place.y, place.x + size.cx, place.y + size.cy};
}

void CDUIComboBox::DropDown()
{
    if (!HasPopup() || m_pList.IsNull() || IsDroppedDown())
        return;
    const ControlGuard keep(this);
    if (m_pListFrame.IsNull())
        m_pListFrame = PlainFrame();
    const std::shared_ptr<CDUIComboList> popup = m_pPopup;
    popup->SetFrameBkgnd(m_pListFrame);
    popup->SetClientRectMargin({kListMargin, kListMargin, kListMargin, kListMargin});
    SendNotify(DUINOTIFY_COMBOBOX, kDropDown, reinterpret_cast<LPARAM>(this));
    if (m_pPopup != popup || !HasPopup())
        return;
    int roundWidth = 0;
    int roundHeight = 0;
    m_pListFrame->GetFrameRound(roundWidth, roundHeight);
    if (skin::IsLoaded(m_pListFrame->GetFrameImage()) || (roundWidth > 0 && roundHeight > 0))
        popup->SetDUIStyle(0, DUINCSTYLE_CUSTOM_NC | DUINCSTYLE_REGION_NC);
    popup->Show(m_pList.GetPtr(), PlaceOfList(m_pList->CalculateTotalHeight()));
    m_nMatched = -1;
    const CString text = CDUIControlBase::GetText();
    for (int i = 0; i < GetItemCount() && m_nMatched < 0; ++i) {
        IDUIControl* const item = GetItem(i);
        if (item && item->IsVisible(FALSE) && item->GetText().CompareNoCase(text) == 0)
            m_nMatched = i;
    }
    // What is current is in view.
    if (m_nMatched >= 0)
        m_pList->SetCurSel(m_nMatched);
    if (const int current = m_pList->GetCurSel(); current > m_pList->GetLastIndex())
        m_pList->SetTopIndex(current);
}

void CDUIComboBox::CloseUp()
{
    if (const std::shared_ptr<CDUIComboList> popup = m_pPopup; popup && popup->IsShown())
        popup->Close();
}

void CDUIComboBox::HidePopup()
{
    if (const std::shared_ptr<CDUIComboList> popup = m_pPopup; popup && popup->IsShown()) {
        m_nMatched = -1;
        popup->Dismiss();
    }
}

void CDUIComboBox::OnListClosed()
{
    const ControlGuard keep(this);
    m_nMatched = -1;
    SendNotify(DUINOTIFY_COMBOBOX, kClosed, reinterpret_cast<LPARAM>(this));
}

void CDUIComboBox::OnItemClicked(IDUIControl* item)
{
    const ControlGuard keep(this);
    const int index = m_pList.IsNull() ? -1 : m_pList->GetControlIndex(item);
    if (index < 0)
        return;
    PickItem(index, Pick::Plain);
    CloseUp();
}

// A combo box that is not seen has no list open.
void CDUIComboBox::ModifyStyle(DWORD remove, DWORD add)
{
    CDUIControlBase::ModifyStyle(remove, add);
    if (!IsVisible(FALSE))
        CloseUp();
}

void CDUIComboBox::OnParentVisibleStatusChange(BOOL bVisible)
{
    CDUIControlBase::OnParentVisibleStatusChange(bVisible);
    if (!bVisible)
        CloseUp();
}

// --- input -------------------------------------------------------------------------------------------------

LRESULT CDUIComboBox::ProcessEvent(const tagDUIEvent& event, BOOL& bHandled)
{
    const ControlGuard keep(this);
    switch (event.Type) {
        case DUIEVENT_KILLFOCUS:
            if (!event.pSender || (event.pSender != LabelPart() && event.pSender != GetEdit()) ||
                IsEditLeft(event.pSender))
                HidePopup();
            break;
        case DUIEVENT_WINDOWSIZE:
        case DUIEVENT_WINDOWMOVE:
            CloseUp();
            break;
        case DUIEVENT_LBUTTONDOWN:
        case DUIEVENT_LBUTTONDBLCLK:
            if (IsEnabled())
                OnPress();
            break;
        case DUIEVENT_MOUSEENTER:
        case DUIEVENT_MOUSELEAVE:
            pointer_state::Follow(*this, event.Type, DUISTATUS_HOT);
            break;
        case DUIEVENT_MOUSEWHEEL:
            if (IsDroppedDown()) {
                BOOL bListHandled = FALSE;
                m_pList->OnDUIEvent(event, bListHandled);
            }
            bHandled = HasPopup();
            break;
        case DUIEVENT_BUTTONDOWN_ELSEWHERE: {
            const RECT own = GetControlRect();
            if (!PtInRect(&own, event.ptMouse))
                CloseUp();
            break;
        }
        case DUIEVENT_KEYDOWN:
            if (m_pPopup && IsEnabled() && OnKey(event.wParam))
                bHandled = TRUE;
            break;
        case DUIEVENT_CHAR:
            if (IsEnabled() && !GetEdit())
                OnCharacter(event.chKey);
            break;
        default:
            break;
    }
    return bHandled ? 0 : CDUIControlBase::ProcessEvent(event, bHandled);
}

// Whether the edit part is what loses the focus: a control that asks for the focus takes it in the loser's
// name.
bool CDUIComboBox::IsEditLeft(const IDUIControl* sender)
{
    const CDUIRichEdit* const edit = GetEdit();
    return edit && sender == edit && edit->GetFocus();
}

void CDUIComboBox::OnPress()
{
    if (CDUIRichEdit* const edit = GetEdit()) {
        if (!edit->GetFocus())
            edit->SetFocus(TRUE);
    } else if (!GetFocus()) {
        SetFocus(TRUE);
    }
    if (IsDroppedDown())
        CloseUp();
    else
        DropDown();
}

bool CDUIComboBox::OnKey(WPARAM key)
{
    switch (key) {
        case VK_UP:
        case VK_DOWN: {
            if (!HasPopup()) {
                DropDown();
                return true;
            }
            const int count = GetItemCount();
            if (count == 0)
                return false;
            const bool isDown = key == VK_DOWN;
            PickItem(std::clamp(GetCurSel() + (isDown ? 1 : -1), 0, count - 1),
                     isDown ? Pick::Down : Pick::Up);
            return true;
        }
        case VK_RETURN:
            if (GetCurSel() < 0)
                return false;
            PickItem(GetCurSel(), Pick::Plain);
            CloseUp();
            return true;
        case VK_ESCAPE:
            CloseUp();
            return true;
        case VK_F4:
            DropDown();
            return true;
        default:
            return false;
    }
}

void CDUIComboBox::OnCharacter(char byte)
{
    if (m_pList.IsNull())
        return;
    const int index = m_pTypeAhead->Type(byte, *m_pList.GetPtr(), GetCurSel(), GetTickCount());
    if (index >= 0)
        PickItem(index, Pick::Plain);
}

}  // namespace DUI
