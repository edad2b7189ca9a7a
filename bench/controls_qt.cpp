#include "controls_qt.h"

#include <QBuffer>
#include <QGridLayout>
#include <QImage>
#include <QLayout>
#include <QLinearGradient>
#include <QPainter>
#include <QPushButton>
#include <QUiLoader>

#include "qt_application.h"

namespace qvui::bench {
namespace {

// Finding its plugins is the loader's cost once per process, not per form.
QUiLoader& Loader()
{
    static QUiLoader loader;
    return loader;
}

}  // namespace

struct QtForm::Widgets {
    std::unique_ptr<QWidget> top;
};

QtForm::QtForm(const std::string& form, int width, int height)
{
    Application();
    QByteArray bytes = QByteArray::fromRawData(form.data(), static_cast<int>(form.size()));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    m_widgets = std::make_unique<Widgets>();
    m_widgets->top.reset(Loader().load(&buffer));
    m_widgets->top->resize(width, height);
    m_widgets->top->layout()->activate();
}

QtForm::~QtForm() = default;

void QtForm::ShowUnpainted()
{
    m_widgets->top->setUpdatesEnabled(false);
    m_widgets->top->show();
    QApplication::processEvents();
}

void QtForm::Resize(int width, int height)
{
    m_widgets->top->resize(width, height);
}

int QtForm::PlacedButtons() const
{
    int count = 0;
    for (const QPushButton* button : m_widgets->top->findChildren<QPushButton*>())
        count += button->width() > 0 && m_widgets->top->rect().contains(button->geometry());
    return count;
}

struct QtButtonGrid::Widgets {
    QWidget top;
    QImage image;
};

QtButtonGrid::QtButtonGrid(int width, int height, int columns, int rows, const std::string& imagePath,
                           int corner)
{
    Application();
    m_widgets = std::make_unique<Widgets>();
    QWidget& top = m_widgets->top;
    top.setStyleSheet(QString("QPushButton { border-image: url(%1) %2 %2 %2 %2 stretch stretch; "
                              "border-width: %2px; padding: 0px; font: 13px \"DejaVu Sans\"; color: black; }")
                          .arg(QString::fromStdString(imagePath))
                          .arg(corner));
    for (int i = 0; i < columns * rows; ++i) {
        auto* const button = new QPushButton(QString::number(i), &top);
        button->setGeometry(i % columns * (width / columns), i / columns * (height / rows), width / columns,
                            height / rows);
    }
    top.resize(width, height);
    top.show();
    QApplication::processEvents();
    m_widgets->image = QImage(width, height, QImage::Format_ARGB32_Premultiplied);
}

QtButtonGrid::~QtButtonGrid() = default;

void QtButtonGrid::Paint()
{
    m_widgets->top.render(&m_widgets->image);
}

bool QtButtonGrid::Save(const std::string& path) const
{
    return m_widgets->image.save(QString::fromStdString(path));
}

std::string ButtonStrip(int size, int count)
{
    QImage strip(size * count, size, QImage::Format_ARGB32);
    strip.fill(Qt::transparent);
    QPainter painter(&strip);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient gradient(0, 0, 0, size);
    gradient.setColorAt(0, QColor(250, 250, 255));
    for (int i = 0; i < count; ++i) {
        gradient.setColorAt(1, QColor(180, 190 + 10 * i, 220));
        painter.setBrush(gradient);
        painter.setPen(QColor(90, 100, 120));
        painter.drawRoundedRect(QRectF(i * size + 0.5, 0.5, size - 1, size - 1), 6, 6);
    }
    painter.end();
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    strip.save(&buffer, "PNG");
    return buffer.data().toStdString();
}

}  // namespace qvui::bench
