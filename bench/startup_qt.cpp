#include <cstdio>

#include <QApplication>
#include <QCheckBox>
#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

// The peer of bench_startup: the gallery's page of buttons with Qt's widgets and a style sheet, as a program
// of its own.

namespace {

constexpr const char* kStyleSheet = R"(
    #window { background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #fafbff, stop:1 #e9edf7); }
    * { font: 13px "DejaVu Sans"; color: #1b2130; }
    QLabel#title { font: bold 21px "DejaVu Sans"; }
    QLabel#heading { font: bold 13px "DejaVu Sans"; }
    QLabel#hint { color: #667085; }
    QFrame#card { background: white; border: 1px solid #dfe3ee; border-radius: 8px; }
    QPushButton { background: white; border: 1px solid #c8cede; border-radius: 6px; min-height: 32px; }
    QPushButton:checked { background: #dde6fc; border-color: #4c75f2; color: #4c75f2; }
    QPushButton:disabled { background: #f3f4f8; color: #a5adbd; }
    QPushButton#main { background: #4c75f2; color: white; }
    QPushButton#flat { background: transparent; border: none; }
    QPushButton#page { background: transparent; border: none; text-align: left; padding-left: 14px; }
    QPushButton#page:checked { background: #dbe5ff; border-radius: 6px; color: #4c75f2; }
)";

class PaintedWidget : public QWidget {
public:
    bool IsPainted() const { return m_isPainted; }

protected:
    bool event(QEvent* event) override
    {
        m_isPainted = m_isPainted || event->type() == QEvent::Paint;
        return QWidget::event(event);
    }

private:
    bool m_isPainted = false;
};

class ButtonsPage {
public:
    explicit ButtonsPage(const QString& images) : m_images(images)
    {
        m_window.setObjectName("window");
        m_window.setAttribute(Qt::WA_StyledBackground);
        m_window.setStyleSheet(kStyleSheet);
        auto* const columns = new QHBoxLayout(&m_window);
        columns->addLayout(Pages());
        auto* const page = new QVBoxLayout;
        page->addWidget(Text("Buttons", "title"));
        page->addWidget(Text("Push buttons, check boxes and radio buttons in every state", "hint"));
        auto* const cards = new QGridLayout;
        cards->addWidget(PushButtons(), 0, 0);
        cards->addWidget(Icons(), 0, 1);
        cards->addWidget(Choices<QCheckBox>("Check boxes", {"Remember this window", "Show tooltips"}), 1, 0);
        cards->addWidget(Choices<QRadioButton>("Radio buttons", {"Small", "Medium", "Large"}), 1, 1);
        page->addLayout(cards);
        page->addStretch();
        columns->addLayout(page, 1);
        m_window.resize(1100, 760);
    }

    PaintedWidget& Window() { return m_window; }

private:
    static QLabel* Text(const char* text, const char* name)
    {
        auto* const label = new QLabel(text);
        label->setObjectName(name);
        return label;
    }
    static QPushButton* Button(const char* text, const char* name = "")
    {
        auto* const button = new QPushButton(text);
        button->setObjectName(name);
        return button;
    }
    QPushButton* IconButton(const char* text, const char* icon) const
    {
        QPushButton* const button = Button(text);
        button->setIcon(QIcon(m_images + "/icon_" + icon + ".png"));
        return button;
    }
    static QVBoxLayout* Pages()
    {
        auto* const list = new QVBoxLayout;
        for (const char* name : {"Buttons", "Labels", "Pictures", "Progress and sliders", "Lists", "Trees",
                                 "Tabs", "Tool bars", "Layouts", "Splitters", "Panels", "Scrolling",
                                 "Animation", "Frames and gradients", "Tooltips"}) {
            QPushButton* const button = Button(name, "page");
            button->setCheckable(true);
            button->setChecked(list->count() == 0);
            button->setFixedWidth(196);
            list->addWidget(button);
        }
        list->addStretch();
        return list;
    }
    static QFrame* Card(const char* heading, QGridLayout*& grid)
    {
        auto* const card = new QFrame;
        card->setObjectName("card");
        auto* const content = new QVBoxLayout(card);
        content->addWidget(Text(heading, "heading"));
        grid = new QGridLayout;
        content->addLayout(grid);
        content->addStretch();
        return card;
    }
    static QFrame* PushButtons()
    {
        QGridLayout* grid = nullptr;
        QFrame* const card = Card("Push buttons", grid);
        const char* const kinds[] = {"", "main", "flat"};
        const char* const texts[] = {"Plain", "Main", "Flat"};
        const char* const others[] = {"Checked", "Tooltip", "Alt + B"};
        for (int i = 0; i < 3; ++i) {
            grid->addWidget(Button(texts[i], kinds[i]), 0, i);
            QPushButton* const disabled = Button("Disabled", kinds[i]);
            disabled->setEnabled(false);
            grid->addWidget(disabled, 1, i);
            grid->addWidget(Button(others[i]), 2, i);
        }
        return card;
    }
    QFrame* Icons() const
    {
        QGridLayout* grid = nullptr;
        QFrame* const card = Card("With icons", grid);
        const struct {
            const char* text;
            const char* icon;
        } buttons[] = {
            {"Left", "star"}, {"Right", "heart"}, {"", "gear"}, {"Top", "mail"}, {"Bottom", "user"}};
        for (int i = 0; i < 5; ++i)
            grid->addWidget(IconButton(buttons[i].text, buttons[i].icon), i / 3, i % 3);
        return card;
    }
    template <class Choice>
    static QFrame* Choices(const char* heading, std::initializer_list<const char*> texts)
    {
        QGridLayout* grid = nullptr;
        QFrame* const card = Card(heading, grid);
        for (const char* text : texts)
            grid->addWidget(new Choice(text));
        return card;
    }

    QString m_images;
    PaintedWidget m_window;
};

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: startup_qt IMAGES\n");
        return 2;
    }
    if (qEnvironmentVariableIsEmpty("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    ButtonsPage page(argv[1]);
    page.Window().show();
    while (!page.Window().IsPainted())
        QApplication::processEvents();
    std::printf("ready\n");
    std::fflush(stdout);
    return QApplication::exec();
}
