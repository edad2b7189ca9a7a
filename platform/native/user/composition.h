#pragma once

#include <string>

/// The text that an input method is composing. It is shown at the caret, underlined, over what is presented,
/// in every window that has a caret. It belongs to no document: when it is complete it comes as typed text,
/// and when the caret goes, it is dropped.
namespace qvui::native {

/// Shows the text of an input method, UTF-8, with a caret before the character of the given index; an empty
/// text ends the composition. Without a caret nothing is shown.
void ShowComposition(const std::string& utf8, int caret);
/// Ends the composition here and in the input method.
void DropComposition();

}  // namespace qvui::native
