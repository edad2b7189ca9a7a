#pragma once

#include "native/user/input.h"

namespace qvui::native {

bool RouteKey(const InputEvent& event, RoutedInput& routed);
void CommitKey(const InputEvent& event, const RoutedInput& routed);
/// Posts the characters that a key message types, in the system code page. Returns false if there are none.
bool PostCharactersOf(const MSG& message);
/// Posts a WM_CHAR for each byte of a text that was not typed by a key.
void PostText(const std::string& utf8);

}  // namespace qvui::native
