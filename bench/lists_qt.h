#pragma once

#include <memory>

/// The peers of bench_lists, kept apart from the platform's declarations.
namespace qvui::bench {

/// A shown widget of the same size as ours.
class QtList {
public:
    enum class Kind { List, Tree };

    explicit QtList(Kind kind);
    ~QtList();

    /// Appends items, or nodes below an expanded top node, one by one.
    void Append(int count);
    /// One notch of the wheel's way.
    void Scroll(int direction);
    void PaintNow();

private:
    struct Widgets;
    std::unique_ptr<Widgets> m_widgets;
};

}  // namespace qvui::bench
