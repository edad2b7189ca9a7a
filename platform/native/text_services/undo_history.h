#pragma once

#include <cstddef>
#include <deque>
#include <variant>
#include <vector>

#include "native/text_services/document.h"

namespace qvui::native {

/// What is selected: from `anchor`, which stays, to `active`, where the caret is.
struct Selection {
    Document::Position anchor = 0;
    Document::Position active = 0;
    bool atEndOfLine = false;  // the caret is on the first of the two lines that meet at its position

    Document::Position First() const { return std::min(anchor, active); }
    Document::Position Last() const { return std::max(anchor, active); }
    bool IsEmpty() const { return anchor == active; }
    bool operator==(const Selection&) const = default;
};

/// The changes of a document, each with what undoes it, in steps as people count them.
class UndoHistory {
public:
    using Position = Document::Position;
    static constexpr int kDefaultLimit = 100;

    /// A replacement: `inserted` units at `first` stand where `removed` was.
    struct Edit {
        Position first;
        int inserted;
        Document::Removed removed;
    };
    /// Formats as they were before, of characters or of paragraphs.
    struct FormatChange {
        std::vector<Document::FormatSpan> before;
        bool isOfParagraphs;
    };
    using Record = std::variant<Edit, FormatChange>;

    struct Step {
        std::vector<Record> records;
        Selection before;
        Selection after;
        bool isTyping = false;
    };

    /// Opens a step; changes go into it until End. Typing goes on with the last step when that was typing
    /// that nothing has interrupted. Steps nest: an inner one is part of the outer one.
    void Begin(const Selection& before, bool isTyping);
    void Add(Record record);
    /// An empty step is dropped.
    void End(const Selection& after);
    /// Typing starts a new step from now on.
    void StopGrouping() { m_isGrouping = false; }

    bool CanUndo() const { return !m_done.empty(); }
    bool CanRedo() const { return !m_undone.empty(); }
    /// Take the newest step from one list; its inverse is to be given back by Undone or Redone.
    Step TakeUndo();
    Step TakeRedo();
    void Undone(Step inverse) { m_undone.push_back(std::move(inverse)); }
    void Redone(Step inverse) { m_done.push_back(std::move(inverse)); }
    void Clear();
    /// Keeps the newest `limit` steps; negative means the default. Returns what is in force.
    int SetLimit(int limit);

private:
    static bool Join(Edit& last, Edit& next);
    void Shrink();

    std::deque<Step> m_done;
    std::vector<Step> m_undone;
    Step m_open;
    int m_depth = 0;
    int m_limit = kDefaultLimit;
    bool m_isGrouping = false;
};

}  // namespace qvui::native
