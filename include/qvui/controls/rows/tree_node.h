#pragma once

#include <memory>

#include <qvui/controls/button.h>

namespace DUI {

class CDUITreeViewImpl;
class TreeBranch;

/// A node of a tree view: one row with an expander, an icon and a text, and the nodes below it, which are its
/// children. In a template nodes stand inside nodes.
///
/// A row begins at the node's left margin and is indented by its level. The expander is one indent wide; then
/// come the icon, the padding (4 pixels unless set) and the text, in the tree view's text style. The icon
/// strip's second icon, when there is one, shows while the node is expanded. A node with a back_image shows
/// that strip (normal, hot, selected, disabled) in place of the tree view's frames. Rows are as high as the
/// tree view says.
///
/// The setters ask for what layout and repaint they need and send nothing; the tree view's operations notify.
/// A row that is out of view repaints nothing.
///
/// Skin attributes: expand, has_children, and of the button text, icon and back_image.
class QVUI_API CDUITreeNode : public ControlOf<CDUITreeNode, CDUIButton> {
    friend ControlOf;

public:
    CDUITreeNode();
    ~CDUITreeNode() override;
    static const ControlClass& Class();

    /// Selects the node.
    BOOL Activate() override;
    /// The tree view has the focus for all its nodes.
    void SetFocus(BOOL bFocus) override;
    void SetParent(IDUIControl* parent) override;
    void UpdateLayout(BOOL bNeedLayout, RECT* prcInvalid) override;
    /// The row alone; the nodes below are rows of their own.
    void DoPaint(HDC hdc, const RECT& rcPaint) override;
    IDUIControl* FindControl(FindControlProc proc, void* pData, UINT flags) override;
    void SetControlRect(const RECT& rect) override;
    /// Not passed on, like all that concerns the nodes below.
    void OnParentVisibleStatusChange(BOOL) override {}
    void RemoveAllControl() override;
    int GetControlIndex(CRefPtr<IDUIControl> child) override;

protected:
    LRESULT ProcessEvent(const tagDUIEvent& event, BOOL& bHandled) override;
    void PaintBkgnd(HDC hdc) override;
    void PaintForgnd(HDC hdc) override;
    void PaintText(HDC hdc) override;
    /// Accepts tree nodes only.
    BOOL BeforeAddControl(CRefPtr<IDUIControl> child) override;
    void AfterAddControl(CRefPtr<IDUIControl> child) override;
    void BeforeRemoveControl(CRefPtr<IDUIControl> child) override;
    void AfterRemoveControl(CRefPtr<IDUIControl> child) override;

public:
    /// Whether the nodes below are shown.
    void SetExpand(BOOL bExpand);
    BOOL GetExpand() const { return m_bExpand; }
    /// Shows an expander before there are nodes below; the application adds them when it hears of the
    /// expansion.
    void SetHasChildren(BOOL bHasChildren);
    BOOL GetHasChildren() const { return m_bHasChildren; }
    /// Whether the node can be expanded: it has nodes below that are not hidden, or says that it will.
    bool HasExpander() const;
    bool GetSelect() const { return (GetStatus() & DUISTATUS_CHECKED) != 0; }
    /// Free for the application.
    void SetItemData(LPARAM data) { m_nItemData = data; }
    LPARAM GetItemData() const { return m_nItemData; }

    /// Null while the node is in no tree view; borrowed like all that follow.
    CDUITreeViewImpl* GetTree() const;
    /// Null for a node at the top.
    CDUITreeNode* GetParentNode() const;
    CDUITreeNode* GetChildNode(int index) const;
    /// 0 for a node at the top.
    int GetLevel() const;
    /// Where expander, icon and text stand in the row; the expander's and the icon's width may be 0.
    RECT GetExpanderRect();
    RECT GetNodeIconRect();
    RECT GetNodeTextRect();

protected:
    CDUITreeNode(const CDUITreeNode& other);

private:
    friend class TreeBranch;
    friend class CDUITreeViewImpl;

    TreeBranch& Branch();
    int RowCount() const;
    bool IsInView() const;
    void OnPress(const tagDUIEvent& event, BOOL& bHandled);
    void ForwardToTree(const tagDUIEvent& event, UINT type, BOOL& bHandled);

    BOOL m_bExpand = FALSE;
    BOOL m_bHasChildren = FALSE;
    LPARAM m_nItemData = 0;
    std::unique_ptr<TreeBranch> m_pBranch;  // null until the first child
    TreeBranch* m_pParentBranch = nullptr;
    int m_nPlace = 0;        // where the parent last found it
    unsigned m_nLayout = 0;  // the tree view's layout that last placed it
    bool m_isExpanderPress = false;
    bool m_isPressForOther = false;  // the double press was meant for another node
};

}  // namespace DUI
