#pragma once

#include <tuple>
#include <vector>

/// The cases of a test, one row each; `for (const auto& [name, …] : cases)` names the columns.
template <class... Columns>
using Table = std::vector<std::tuple<Columns...>>;
