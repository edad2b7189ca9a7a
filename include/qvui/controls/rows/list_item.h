#pragma once

#include <qvui/framework/control_of.h>
#include <qvui/render/background.h>

namespace DUI {

class CDUIListBox;

/// The icons of a list item; copies share them, and each may be null.
struct CIconTextItemUIData {
    CDUIImageListPtr m_pNormalIcon;
    CDUIImageListPtr m_pExpandIcon;
};

/// An item of a list box: an icon in a square at its left, a text in the list box's text style, a frame for
/// each state and two heights. A group header hides or shows the items that follow it, up to the next header.
///
/// Setters store and ask for nothing, except where they say so; the list box's operations do the rest.
///
/// Skin attributes: normal_icon, expand_icon, normal_frame, hover_frame, select_frame, normal_height,
/// expand_height, group, expand.
class QVUI_API CDUIListItem : public ControlOf<CDUIListItem, CDUIControlBase> {
    friend ControlOf;

public:
    CDUIListItem();
    ~CDUIListItem() override;
    static const ControlClass& Class();

    void SetParent(IDUIControl* parent) override;
    /// An item that is shown, hidden or made higher or lower repaints its list box; one out of view repaints
    /// nothing.
    void UpdateLayout(BOOL bNeedLayout, RECT* prcInvalid) override;

protected:
    LRESULT ProcessEvent(const tagDUIEvent& event, BOOL& bHandled) override;
    void PaintBkgnd(HDC hdc) override;
    void PaintForgnd(HDC hdc) override;
    void PaintText(HDC hdc) override;

public:
    virtual void SetUIData(const CIconTextItemUIData& data) { m_uiData = data; }
    virtual const CIconTextItemUIData& GetUIdata() { return m_uiData; }
    /// The icon of the strip; the first one when the strip is too short.
    virtual void SetIconIndex(int index) { m_nIconIndex = index; }
    virtual int GetIconIndex() { return m_nIconIndex; }
    virtual void SetSelect(int bSelect) { m_bSelect = bSelect; }
    virtual int GetSelect() { return m_bSelect; }
    /// Takes the expanded or the normal height, with a new layout when that is another height.
    virtual void SetExpand(int bExpand);
    virtual int GetExpand() { return m_bExpand; }
    virtual void SetGroup(int bGroup) { m_bGroup = bGroup; }
    virtual int GetGroup() { return m_bGroup; }
    /// The height in pixels in the expanded or the normal state, and at once when the item is in that state.
    virtual void SetHeight(int bExpand, int nHeight);
    virtual int GetHeight(int bExpand) { return bExpand ? m_nExpandHeight : m_nNormalHeight; }
    /// Free for the application, wide enough for a pointer.
    virtual void SetItemData(ULONG_PTR data) { m_nItemData = data; }
    virtual ULONG_PTR GetItemData() { return m_nItemData; }
    virtual void SetHoverFrameBK(CRefPtr<CDUIFrameBK> frame) { m_pHoverFrame = frame; }
    virtual CRefPtr<CDUIFrameBK> GetHoverFrameBK() { return m_pHoverFrame; }
    virtual void SetSelectFrameBK(CRefPtr<CDUIFrameBK> frame) { m_pSelectFrame = frame; }
    virtual CRefPtr<CDUIFrameBK> GetSelectFrameBK() { return m_pSelectFrame; }
    virtual void SetFrameBK(CRefPtr<CDUIFrameBK> frame) { m_pFrame = frame; }
    virtual CRefPtr<CDUIFrameBK> GetFrameBK() { return m_pFrame; }

protected:
    CDUIListItem(const CDUIListItem& other);

    RECT GetTextRect();
    RECT GetIconRect();
    RECT GetBKRect() { return GetControlRect(); }

private:
    friend class CDUIListBox;
    static const AttributeTable<CDUIListItem>& Attributes();
    IDUIControl* TargetOf(const tagDUIEvent& event);
    const CDUIImageListPtr& GetIcon() const
    {
        return m_bExpand ? m_uiData.m_pExpandIcon : m_uiData.m_pNormalIcon;
    }

    int m_bSelect = 0;
    int m_bExpand = 0;
    int m_bGroup = 0;
    int m_nIconIndex = 0;
    int m_nNormalHeight = 25;
    int m_nExpandHeight = 50;
    ULONG_PTR m_nItemData = 0;
    CIconTextItemUIData m_uiData;
    CRefPtr<CDUIFrameBK> m_pFrame;
    CRefPtr<CDUIFrameBK> m_pHoverFrame;
    CRefPtr<CDUIFrameBK> m_pSelectFrame;
    CDUIListBox* m_pList = nullptr;  // the parent, when that is a list box
    int m_nPlace = 0;                // where the list box last found it
    bool m_isPressForOther = false;  // the double press was meant for another item
};

}  // namespace DUI
