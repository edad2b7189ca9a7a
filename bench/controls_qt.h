#pragma once

#include <memory>
#include <string>

/// The peers of bench_controls, kept apart from the platform's declarations.
namespace qvui::bench {

/// A widget tree from a form description.
class QtForm {
public:
    /// Loads the form and lays it out once; not shown.
    QtForm(const std::string& form, int width, int height);
    ~QtForm();

    /// Shows it with painting switched off, so that a resize costs the layout alone.
    void ShowUnpainted();
    /// Lays out the whole tree again.
    void Resize(int width, int height);
    /// Push buttons that the layout gave a place.
    int PlacedButtons() const;

private:
    struct Widgets;
    std::unique_ptr<Widgets> m_widgets;
};

/// A shown widget with a grid of push buttons whose style sheet draws a nine-grid image.
class QtButtonGrid {
public:
    /// `imagePath` is one picture with corners of `corner` pixels.
    QtButtonGrid(int width, int height, int columns, int rows, const std::string& imagePath, int corner);
    ~QtButtonGrid();

    /// Renders all of it into a picture of its size.
    void Paint();
    bool Save(const std::string& path) const;

private:
    struct Widgets;
    std::unique_ptr<Widgets> m_widgets;
};

/// A PNG with a strip of buttons, each with round corners, a border and a gradient; the bytes of its file.
std::string ButtonStrip(int size, int count);

}  // namespace qvui::bench
