#pragma once

#include <memory>
#include <string>

/// The peers of bench_text, kept apart from the platform's declarations.
namespace qvui::bench {

/// A shown text widget of the same size as ours.
class QtText {
public:
    enum class Kind { Rich, Plain };

    explicit QtText(Kind kind);
    ~QtText();

    void SetText(const std::string& text);
    void AppendLine(const std::string& line);
    void PutCaretInMiddle();
    void PutCaretAtEnd();
    void Type(char character);
    void TakeBack();
    void PaintNow();

private:
    struct Widgets;
    std::unique_ptr<Widgets> m_widgets;
};

/// Makes a window with so many widgets in rows and shows it.
void ShowManyTexts(QtText::Kind kind, int count);
/// The same with fields of one line.
void ShowManyFields(int count);

}  // namespace qvui::bench
