#pragma once

#include <memory>

#include <qvui/controls/button.h>
#include <qvui/controls/label.h>
#include <qvui/controls/rows/list_box.h>
#include <qvui/controls/text/rich_edit.h>
#include <qvui/framework/control_builder.h>
#include <qvui/render/background.h>

namespace DUI {

class CDUIComboBox;
class CDUIComboList;
class TypeAhead;

/// What a combo box shows its text in.
enum COMBOSTYLE : unsigned long {
    COMBOSTYLE_DROPDOWN = 1,  // a field that can be edited
    COMBOSTYLE_DROPLIST = 2,  // a label
};

/// The editable part of a combo box: it tells the combo box what is typed.
class QVUI_API CComboEdit : public ControlOf<CComboEdit, CDUIRichEdit> {
    friend ControlOf;

public:
    CComboEdit() = default;
    static const ControlClass& Class();

    void OnTxNotify(DWORD code, void* data) override;
    /// Not owned; null for none.
    void SetComboOwner(CDUIComboBox* owner) { m_pOwner = owner; }

protected:
    CComboEdit(const CComboEdit& other) : ControlOf(other) {}
    void OnCreate() override;

private:
    CDUIComboBox* m_pOwner = nullptr;
};

/// A text with a list that drops down to choose it from. The list is shown in a popup window that never takes
/// the activation: below the combo box, or above it where only there is room for it on the screen. It closes
/// when an item is clicked, on Return, Escape, a press elsewhere, when the window moves or changes its size,
/// and when the combo box loses the focus, is hidden or leaves its window. In a droplist what is typed picks
/// the next item that starts with it; letters that follow within a second belong together, and the same
/// letter again goes on.
///
/// The elements inside a combo box in a template become items of its list. A copy has a list of its own.
///
/// Skin attributes: combobox_style, arrow_image, back_image, list_frame, list_height.
/// Notifications: DUINOTIFY_COMBOBOX, wParam 1 the list is about to drop down, 2 it was closed (both with the
/// combo box as lParam), 3 an item was picked (lParam its index); DUINOTIFY_EDITNOTIFY as from a rich edit.
class QVUI_API CDUIComboBox : public ControlOf<CDUIComboBox, CDUIControlBase>, public IDUIItemOwner {
    friend ControlOf;

public:
    CDUIComboBox();
    ~CDUIComboBox() override;
    static const ControlClass& Class();

    /// Also "item_owner", the place for items that the builder asks for.
    void* GetInterface(const CString& name) override;
    /// Drops the list down; 0 when hidden or disabled.
    BOOL Activate() override;
    void SetText(const CString& text) override;
    void SetControlRect(const RECT& rect) override;
    void SetTextStyle(CRefPtr<CTextStyle> style) override;
    void ModifyStyle(DWORD remove, DWORD add) override;
    void OnParentVisibleStatusChange(BOOL bVisible) override;

protected:
    void OnCreate() override;
    void OnDestroy() override;
    LRESULT ProcessEvent(const tagDUIEvent& event, BOOL& bHandled) override;
    void PaintBkgnd(HDC hdc) override;

public:
    /// COMBOSTYLE_ values.
    virtual void SetComboStyle(unsigned long style);
    virtual unsigned long GetComboStyle() { return m_dwComboStyle; }
    /// Picks an item, with its notification; 0 when there is none of that index.
    virtual int SetCurSel(int index);
    /// -1 without a selection.
    virtual int GetCurSel();
    virtual void SetListFrameBK(CRefPtr<CDUIFrameBK> frame) { m_pListFrame = frame; }
    virtual CRefPtr<CDUIFrameBK> GetListFrameBK() { return m_pListFrame; }
    /// Adds an item in the control style "def_listitem_style".
    virtual BOOL AddString(const CString& text);
    BOOL AddItem(CRefPtr<IDUIControl> item) override;
    virtual int GetItemCount();
    /// Borrowed; null when there is none.
    virtual IDUIControl* GetItem(int index);
    virtual BOOL RemoveItem(CRefPtr<IDUIControl> item);
    virtual void RemoveAllItems();
    /// The field; null in a droplist.
    virtual CDUIRichEdit* GetEdit();

    bool IsDroppedDown() const;
    /// The first visible item whose text was that of the combo box when the list dropped down; -1 while it is
    /// closed.
    int GetMatchedIndex() const { return m_nMatched; }

protected:
    CDUIComboBox(const CDUIComboBox& other);

private:
    friend class CComboEdit;
    friend class CDUIComboList;
    /// How far the list scrolls with a pick.
    enum class Pick { Plain, Down, Up };

    static const AttributeTable<CDUIComboBox>& Attributes();
    template <class Part>
    Part* FindPart(const char* name);
    CDUIButton* ArrowButton() { return FindPart<CDUIButton>("button"); }
    CComboEdit* EditPart();
    CDUILabel* LabelPart() { return FindPart<CDUILabel>("label"); }
    bool HasPopup() const;
    void StoreText(const CString& text);
    void OnEdited();
    void OnListClosed();
    void OnItemClicked(IDUIControl* item);
    int PickItem(int index, Pick mode);
    void DropDown();
    void CloseUp();
    void HidePopup();
    RECT PlaceOfList(int itemsHeight);
    bool OnKey(WPARAM key);
    void OnCharacter(char byte);
    void OnPress();
    bool IsEditLeft(const IDUIControl* sender);

    CRefPtr<CDUIListBox> m_pList;
    unsigned long m_dwComboStyle = 0;
    CDUIImageListPtr m_pBackImage;
    int m_nListHeight = 100;
    int m_nMatched = -1;
    CRefPtr<CDUIFrameBK> m_pListFrame;
    std::shared_ptr<CDUIComboList> m_pPopup;
    std::unique_ptr<TypeAhead> m_pTypeAhead;
    bool m_isFromEdit = false;
};

}  // namespace DUI
