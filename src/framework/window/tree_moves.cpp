#include "framework/window/tree_moves.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace DUI {

TreeMoves::Controls TreeMoves::End(const IDUIControl* control)
{
    const auto ended = std::find(m_moves.rbegin(), m_moves.rend(), control);
    if (ended != m_moves.rend())
        m_moves.erase(std::next(ended).base());
    return m_moves.empty() ? std::exchange(m_away, {}) : Controls();
}

bool TreeMoves::Holds(const IDUIControl* control) const
{
    for (; control && !m_moves.empty(); control = control->GetParent())
        if (std::find(m_moves.begin(), m_moves.end(), control) != m_moves.end())
            return true;
    return false;
}

std::vector<CWeakPtr<IDUIControl>> TreeMoves::Below(const IDUIControl* parent) const
{
    std::vector<CWeakPtr<IDUIControl>> moving;
    for (const CWeakPtr<IDUIControl>& move : m_moves)
        if (move && move->GetParent() == parent)
            moving.push_back(move);
    return moving;
}

void TreeMoves::Clear()
{
    m_moves.clear();
    m_away.clear();
}

}  // namespace DUI
