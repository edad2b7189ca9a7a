#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qvui::skin_tool {

/// The least number of letters to insert, delete, replace, or swap with their neighbour, that turns one word
/// into the other. Words count up to their 64th byte.
int EditDistance(std::string_view from, std::string_view to);

/// The candidate nearest to a word that is probably misspelt, whatever its letter case; empty when none is
/// near enough: one step for up to three letters, two for up to eight, then a third of the letters.
std::string Nearest(std::string_view word, const std::vector<std::string>& candidates);

}  // namespace qvui::skin_tool
