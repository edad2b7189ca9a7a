#include "lists_qt.h"

#include <QListWidget>
#include <QScrollBar>
#include <QTreeWidget>

#include "qt_application.h"

namespace qvui::bench {
struct QtList::Widgets {
    std::unique_ptr<QListWidget> list;
    std::unique_ptr<QTreeWidget> tree;
    QTreeWidgetItem* top = nullptr;

    QAbstractScrollArea& Area()
    {
        return list ? static_cast<QAbstractScrollArea&>(*list) : static_cast<QAbstractScrollArea&>(*tree);
    }
};

QtList::QtList(Kind kind)
{
    Application();
    m_widgets = std::make_unique<Widgets>();
    if (kind == Kind::List) {
        m_widgets->list = std::make_unique<QListWidget>();
    } else {
        m_widgets->tree = std::make_unique<QTreeWidget>();
        m_widgets->tree->setHeaderHidden(true);
        m_widgets->top = new QTreeWidgetItem(m_widgets->tree.get(), QStringList("top"));
        m_widgets->top->setExpanded(true);
    }
    m_widgets->Area().resize(300, 400);
    m_widgets->Area().show();
    PaintNow();
}

QtList::~QtList() = default;

void QtList::Append(int count)
{
    for (int i = 0; i < count; ++i) {
        const QString text = QString("Item %1").arg(i);
        if (m_widgets->list)
            m_widgets->list->addItem(text);
        else
            new QTreeWidgetItem(m_widgets->top, QStringList(text));
    }
}

void QtList::Scroll(int direction)
{
    QScrollBar& bar = *m_widgets->Area().verticalScrollBar();
    bar.setValue(bar.value() + direction * bar.singleStep());
}

void QtList::PaintNow()
{
    QApplication::processEvents();
    m_widgets->Area().viewport()->repaint();
}

}  // namespace qvui::bench
