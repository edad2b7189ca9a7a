#pragma once

#include <memory>

#include <qvui/controls/rows/tree_node.h>
#include <qvui/controls/scrolling/scroll_bar.h>
#include <qvui/render/background.h>

namespace DUI {

class PressedRow;
class TreeSelection;

/// What a DUINOTIFY_TREEEXPAND notification tells, in its wParam; the lParam is the node.
enum DUITREENOTIFY : WPARAM {
    DUITREENOTIFY_COLLAPSED = 0,
    DUITREENOTIFY_EXPANDED = 1,
    DUITREENOTIFY_SELECTED = 2,
    DUITREENOTIFY_ACTIVATED = 3,  // double-clicked, or Enter was pressed on it
};

/// Nodes in a tree, one row each, of which one can be selected.
///
/// A press on a row selects it when it is released there; a press on an expander and a double press on a row
/// expand and collapse. Keys: the arrows up and down, Home, End, Page Up and Page Down move the selection
/// over the shown rows; right expands, then goes to the first node below, left collapses, then goes to the
/// node above; plus and minus expand and collapse, asterisk expands everything below. Nodes that are disabled
/// are passed over. When the selected node disappears in a collapsing one, that one is selected.
///
/// The view scrolls by whole rows with a scroll bar of its own, of the control style "cs_v_scrollbar".
///
/// Costs: expanding, scrolling, painting and hit-testing cost the rows in view and the depth of the tree,
/// however many nodes there are; a node that is added where it cannot be seen asks for no layout of the
/// window. Window events that are broadcast, and the news that a parent was shown or hidden, end at the view:
/// no node holds anything but nodes. A search for what is visible or hit looks at the rows in view, any other
/// search (a node's name) at all nodes.
///
/// Removing the selected node clears the selection, without a notification. A copy has its own scroll bar and
/// the same node selected.
///
/// Skin attributes: expander_image, indent, item_height, hover_frame, select_frame.
/// Notifications: DUINOTIFY_TREEEXPAND, see DUITREENOTIFY. Its handler may do anything, also remove the node.
class QVUI_API CDUITreeViewImpl : public ControlOf<CDUITreeViewImpl, CDUIControlBase> {
    friend ControlOf;

public:
    CDUITreeViewImpl();
    ~CDUITreeViewImpl() override;
    static const ControlClass& Class();

    void SetControlRect(const RECT& rect) override;
    void DoPaint(HDC hdc, const RECT& rcPaint) override;
    IDUIControl* FindControl(FindControlProc proc, void* pData, UINT flags) override;
    void BroadcastEvent(const tagDUIEvent& event) override;
    void OnParentVisibleStatusChange(BOOL) override {}
    void RemoveAllControl() override;
    int GetControlIndex(CRefPtr<IDUIControl> child) override;
    CDUIVerticalSB* GetVerticalSB() override { return m_pScrollBar.GetPtr(); }
    int GetScrollLineStep() override { return m_nItemHeight; }

protected:
    void OnCreate() override;
    void OnDestroy() override;
    LRESULT ProcessEvent(const tagDUIEvent& event, BOOL& bHandled) override;
    /// Accepts tree nodes only.
    BOOL BeforeAddControl(CRefPtr<IDUIControl> child) override;
    void AfterAddControl(CRefPtr<IDUIControl> child) override;
    void BeforeRemoveControl(CRefPtr<IDUIControl> child) override;
    void AfterRemoveControl(CRefPtr<IDUIControl> child) override;

public:
    // Nodes. Null stands for the top of the tree where a parent is asked for; results are borrowed.
    /// Adds a node below `parent`, behind the nodes that are there, with the control style of the skin.
    CDUITreeNode* AddNode(CDUITreeNode* parent, const CString& text, const CString& style = CString());
    /// The same before the node at `index`, or behind the last one. Null for an index that is not there.
    CDUITreeNode* InsertNode(CDUITreeNode* parent, int index, const CString& text,
                             const CString& style = CString());
    /// Removes the node and those below; FALSE when it is none of this tree.
    BOOL RemoveNode(CDUITreeNode* node);
    /// The node after `node` in the order of the rows, whether it is shown or not; the first one after null.
    CDUITreeNode* GetNextNode(CDUITreeNode* node) const;
    /// The first node of exactly this text behind `after`; null when there is none.
    CDUITreeNode* FindNode(const CString& text, CDUITreeNode* after = nullptr) const;
    CDUITreeNode* FindNodeByData(LPARAM data, CDUITreeNode* after = nullptr) const;

    // What the user does too, with the same notifications
    /// FALSE when the node is in that state already, cannot be expanded or is none of this tree.
    BOOL ExpandNode(CDUITreeNode* node, BOOL bExpand);
    /// The node and everything below it; null for the whole tree.
    void ExpandAll(CDUITreeNode* node, BOOL bExpand);
    /// Selects the node and brings it into view; null clears the selection, without a notification.
    BOOL SelectNode(CDUITreeNode* node);
    CDUITreeNode* GetSelectedNode() const;
    /// Expands the nodes above it and scrolls as little as needed; FALSE for a hidden node.
    BOOL EnsureVisible(CDUITreeNode* node);

    // Rows: the nodes that are shown, counted from the top of the tree
    int GetRowCount() const;
    /// -1 for a node that is hidden or inside a collapsed one.
    int GetRowOfNode(CDUITreeNode* node) const;
    CDUITreeNode* GetNodeAtRow(int row) const;
    int GetTopRow() const { return m_nTopRow; }
    void SetTopRow(int row);
    /// How many rows fit wholly into the view; at least 1.
    int GetPageRows();

    // The look
    /// A strip: the expander of a collapsed and of an expanded node.
    void SetExpanderImage(CDUIImageListPtr image);
    const CDUIImageListPtr& GetExpanderImage() const { return m_pExpanderImage; }
    /// Pixels per level.
    void SetIndent(int indent);
    int GetIndent() const { return m_nIndent; }
    /// Pixels per row, at least 1.
    void SetItemHeight(int height);
    int GetItemHeight() const { return m_nItemHeight; }
    void SetHoverFrameBK(CRefPtr<CDUIFrameBK> frame);
    CRefPtr<CDUIFrameBK> GetHoverFrameBK() const { return m_pHoverFrame; }
    void SetSelectFrameBK(CRefPtr<CDUIFrameBK> frame);
    CRefPtr<CDUIFrameBK> GetSelectFrameBK() const { return m_pSelectFrame; }

protected:
    CDUITreeViewImpl(const CDUITreeViewImpl& other);

private:
    friend class TreeBranch;
    friend class CDUITreeNode;
    friend class TreeSelection;

    bool Has(const CDUITreeNode* node) const;
    bool IsBelow(const CDUITreeNode* node, const CDUITreeNode* above) const;
    CDUITreeNode* NextRow(CDUITreeNode* node) const;
    template <class Visit>
    void ForEachRowInView(Visit visit);
    void PlaceRows(const RECT& view);
    int RowsHeight() const;
    void UpdateScrollRange();
    /// Rows changed from this one on: whether that can be seen, so that the window must be laid out.
    bool TakeChange(int row, bool wasArranged);
    void Forget(const CDUITreeNode& node, bool withItself);
    void Notify(DUITREENOTIFY code, CDUITreeNode& node);

    void OnNodeClick(const tagDUIEvent& event);
    void OnNodeDoubleClick(const tagDUIEvent& event);

    std::unique_ptr<TreeBranch> m_pBranch;
    CRefPtr<CDUIVerticalSB> m_pScrollBar;
    const std::unique_ptr<TreeSelection> m_pSelection;
    std::unique_ptr<PressedRow> m_pPressed;
    CDUIImageListPtr m_pExpanderImage;
    CRefPtr<CDUIFrameBK> m_pHoverFrame;
    CRefPtr<CDUIFrameBK> m_pSelectFrame;
    int m_nIndent = 18;
    int m_nItemHeight = 25;
    int m_nTopRow = 0;
    int m_nRowsInView = 0;      // from the top row on, as they were last placed
    unsigned m_nLayout = 1;     // counts layouts, so that nodes know whether the last one placed them
    bool m_isArranged = false;  // the rectangles are those of the present rows
    bool m_isViewFull = false;
};

}  // namespace DUI
