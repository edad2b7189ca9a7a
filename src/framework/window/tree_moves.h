#pragma once

#include <unordered_set>
#include <vector>

#include "framework/window/host_window.h"

namespace DUI {

/// Controls that change their place in the tree: between the begin and the end of a move, they and what is
/// below them leave the tree and come back without being forgotten.
class TreeMoves {
public:
    using Controls = std::unordered_set<const IDUIControl*>;  // for comparing only

    void Begin(IDUIControl* control) { m_moves.emplace_back(control); }
    /// The controls that left during moves and are not back, when this was the last move.
    Controls End(const IDUIControl* control);
    /// Whether the control or one above it moves.
    bool Holds(const IDUIControl* control) const;
    /// The controls that move and have this parent.
    std::vector<CWeakPtr<IDUIControl>> Below(const IDUIControl* parent) const;

    void Leave(const IDUIControl* control) { m_away.insert(control); }
    void Return(const IDUIControl* control) { m_away.erase(control); }
    void Clear();

private:
    std::vector<CWeakPtr<IDUIControl>> m_moves;  // the innermost last
    Controls m_away;
};

}  // namespace DUI
