#pragma once

#include <qvui/controls/rows/tree_node.h>

#include "controls/rows/row_index.h"

namespace DUI {

/// The nodes directly below a node or a tree view, and the rows that each takes up with the shown nodes below
/// it. Counts are kept up to date towards the top, so a row is found by its number, and a number by its row,
/// in steps of the tree's depth.
class TreeBranch {
public:
    explicit TreeBranch(CDUITreeNode& node);
    explicit TreeBranch(CDUITreeViewImpl& tree);
    TreeBranch(const TreeBranch&) = delete;
    TreeBranch& operator=(const TreeBranch&) = delete;
    ~TreeBranch();

    /// The node whose children these are; null at the top of the tree.
    CDUITreeNode* Node() const { return m_pNode; }
    /// The tree view above; null when there is none.
    CDUITreeViewImpl* Tree() const;
    CDUITreeNode* ChildAt(int index) const;
    /// -1 when the node is no child of this branch.
    int PlaceOf(CDUITreeNode& child) const;
    const RowIndex& Rows() const { return m_rows; }
    int RowCount() const;

    /// Takes over the child's rows; true when that changes what the tree view shows.
    bool Take(CDUITreeNode& child);
    /// Takes all children over anew, as after copying.
    void TakeAll();

    // The hooks of the control that owns the branch
    void AfterAdd(const CRefPtr<IDUIControl>& child);
    void BeforeRemove(const CRefPtr<IDUIControl>& child);
    void AfterRemove(const CRefPtr<IDUIControl>& child);
    /// After all children were removed: true when that changes what the tree view shows.
    bool Clear();

private:
    struct Removal {
        int place = -1;
        int row = -1;
    };

    bool Update(CDUITreeNode& child);
    bool Spread();
    /// Shows that children came or went; what cannot be seen asks the window for no layout.
    void Show(CDUITreeViewImpl* tree, bool isSeen, bool hasExpanderChanged);

    CDUIControlBase& m_owner;
    CDUITreeNode* m_pNode;
    CDUITreeViewImpl* m_pTree;
    RowIndex m_rows;  // one for each child, as high as the rows that it takes up
    Removal m_removal;
};

}  // namespace DUI
