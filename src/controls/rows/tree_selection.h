#pragma once

#include <qvui/controls/rows/tree_view.h>

namespace DUI {

/// The selected node of a tree view, and the keys that move it and expand what is selected.
class TreeSelection {
public:
    explicit TreeSelection(CDUITreeViewImpl& tree) : m_tree(tree) {}
    TreeSelection(const TreeSelection&) = delete;
    TreeSelection& operator=(const TreeSelection&) = delete;

    /// Not owned; null for none.
    CDUITreeNode* Get() const { return m_node.GetPtr(); }
    /// A node of the tree, or null, which clears the selection without a notification.
    void Select(CDUITreeNode* node);
    /// When the selected node is inside a collapsed one, selects the one that is still shown.
    void SelectShownAbove();
    /// The selected node left the tree.
    void Unmark();
    /// Takes a node that is marked already, or none.
    void Adopt(CDUITreeNode* node) { m_node = node; }

    // True when the key is used up.
    bool OnKeyDown(WPARAM key);
    bool OnChar(WPARAM character);

private:
    /// To the first enabled node from this row on, in steps of 1 or -1.
    void MoveTo(int row, int step);
    void MoveLeft();
    void MoveRight();

    CDUITreeViewImpl& m_tree;
    CRefPtr<CDUITreeNode> m_node;
};

}  // namespace DUI
