#include "writer/commands.h"

#include <algorithm>
#include <string_view>

namespace writer {
namespace {

constexpr CommandEntry kCommands[] = {{Command::New, "new", 'N', true, false},
                                      {Command::Open, "open", 'O', true, false},
                                      {Command::Save, "save", 'S', true, false},
                                      {Command::SaveAs, "save_as", 'S', true, true},
                                      {Command::Close, "close_tab", 'W', true, false},
                                      {Command::Undo, "undo", 0, false, false},
                                      {Command::Redo, "redo", 0, false, false},
                                      {Command::Bold, "bold", 'B', true, false},
                                      {Command::Italic, "italic", 'I', true, false},
                                      {Command::Underline, "underline", 'U', true, false},
                                      {Command::Left, "left", 0, false, false},
                                      {Command::Centre, "centre", 0, false, false},
                                      {Command::Right, "right", 0, false, false},
                                      {Command::Black, "black", 0, false, false},
                                      {Command::Blue, "blue", 0, false, false},
                                      {Command::Red, "red", 0, false, false},
                                      {Command::Green, "green", 0, false, false},
                                      {Command::Find, "find", 'F', true, false},
                                      {Command::FindNext, "find_next", VK_F3, false, false},
                                      {Command::FindPrevious, "find_previous", VK_F3, false, true},
                                      {Command::Dismiss, "find_close", VK_ESCAPE, false, false},
                                      {Command::Dismiss, "prompt_cancel", 0, false, false},
                                      {Command::Accept, "prompt_accept", 0, false, false},
                                      {Command::Discard, "prompt_discard", 0, false, false},
                                      {Command::Language, "language", 0, false, false}};

template <class Predicate>
const CommandEntry* Find(Predicate matches)
{
    const auto* const found = std::find_if(std::begin(kCommands), std::end(kCommands), matches);
    return found == std::end(kCommands) ? nullptr : found;
}

}  // namespace

const CommandEntry* FindCommand(const char* control)
{
    return Find([control](const CommandEntry& entry) { return std::string_view(entry.control) == control; });
}

const CommandEntry* FindCommand(WPARAM key, bool isCtrl, bool isShift)
{
    return Find([=](const CommandEntry& entry) {
        return entry.key != 0 && entry.key == key && entry.isCtrl == isCtrl && entry.isShift == isShift;
    });
}

}  // namespace writer
