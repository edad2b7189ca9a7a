#include "texts_qt.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

#include "qt_application.h"

namespace qvui::bench {

struct QtText::Widgets {
    std::unique_ptr<QTextEdit> rich;
    std::unique_ptr<QPlainTextEdit> plain;

    QAbstractScrollArea& Area()
    {
        return rich ? static_cast<QAbstractScrollArea&>(*rich) : static_cast<QAbstractScrollArea&>(*plain);
    }
    QTextCursor Cursor() { return rich ? rich->textCursor() : plain->textCursor(); }
    void SetCursor(const QTextCursor& cursor)
    {
        rich ? rich->setTextCursor(cursor) : plain->setTextCursor(cursor);
    }
};

QtText::QtText(Kind kind)
{
    Application();
    m_widgets = std::make_unique<Widgets>();
    if (kind == Kind::Rich)
        m_widgets->rich = std::make_unique<QTextEdit>();
    else
        m_widgets->plain = std::make_unique<QPlainTextEdit>();
    m_widgets->Area().resize(600, 400);
    m_widgets->Area().show();
    PaintNow();
}

QtText::~QtText() = default;

void QtText::SetText(const std::string& text)
{
    const QString string = QString::fromStdString(text);
    m_widgets->rich ? m_widgets->rich->setPlainText(string) : m_widgets->plain->setPlainText(string);
}

void QtText::AppendLine(const std::string& line)
{
    const QString string = QString::fromStdString(line);
    m_widgets->rich ? m_widgets->rich->append(string) : m_widgets->plain->appendPlainText(string);
}

void QtText::PutCaretInMiddle()
{
    QTextCursor cursor = m_widgets->Cursor();
    cursor.setPosition(cursor.document()->characterCount() / 2);
    m_widgets->SetCursor(cursor);
}

void QtText::PutCaretAtEnd()
{
    QTextCursor cursor = m_widgets->Cursor();
    cursor.movePosition(QTextCursor::End);
    m_widgets->SetCursor(cursor);
}

void QtText::Type(char character)
{
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
    QApplication::sendEvent(&m_widgets->Area(), &press);
}

void QtText::TakeBack()
{
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Backspace, Qt::NoModifier);
    QApplication::sendEvent(&m_widgets->Area(), &press);
}

void QtText::PaintNow()
{
    QApplication::processEvents();
    m_widgets->Area().viewport()->repaint();
}

namespace {

template <class Widget>
void ShowMany(int count)
{
    Application();
    constexpr int kColumns = 25;
    QWidget window;
    auto* const grid = new QGridLayout(&window);
    for (int i = 0; i < count; ++i)
        grid->addWidget(new Widget, i / kColumns, i % kColumns);
    window.resize(1000, 800);
    window.show();
    QApplication::processEvents();
    window.repaint();
}

}  // namespace

void ShowManyTexts(QtText::Kind kind, int count)
{
    kind == QtText::Kind::Rich ? ShowMany<QTextEdit>(count) : ShowMany<QPlainTextEdit>(count);
}

void ShowManyFields(int count)
{
    ShowMany<QLineEdit>(count);
}

}  // namespace qvui::bench
