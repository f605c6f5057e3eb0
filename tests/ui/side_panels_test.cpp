#include "app/side_panels.h"
#include "tests/support/rows.h"

#include <QAbstractAnimation>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QScreen>
#include <QtTest>

#include <memory>

namespace
{
constexpr int panelWidth = 424;
constexpr int gap = 16;
constexpr int windowHeight = 160;

/// A window with a field, a drawer and two panels, wired as the program's window is.
struct Bench {
    Bench()
    {
        window->centralWidget()->setMinimumHeight(windowHeight);
        auto* row = new QHBoxLayout(window->centralWidget());
        row->setSpacing(0);
        field = new QLineEdit;
        row->addWidget(field);
        drawer = new QWidget;
        drawer->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
        for (QPushButton** toggle : {&toggleA, &toggleB}) {
            *toggle = new QPushButton;
            (*toggle)->setCheckable(true);
            row->addWidget(*toggle);
        }
        row->addWidget(drawer);
        panels = new SidePanels(window.get(), drawer);
        panelA = addPanel(toggleA);
        panelB = addPanel(toggleB);
        QObject::connect(panels, &SidePanels::allMoved, window.get(), [this] {
            if (allowsMove)
                SidePanels::setMoving(false);
        });
        window->move(0, 0);
        window->show();
        QCoreApplication::processEvents();
    }
    ~Bench() { SidePanels::setMoving(false); }

    QWidget* addPanel(QPushButton* toggle)
    {
        auto* panel = new QWidget;
        panel->setMinimumSize(panelWidth, 100);
        new QLineEdit(panel);
        panels->add(panel, toggle);
        QObject::connect(toggle, &QPushButton::clicked, panels,
                         [this, panel] { panels->toggle(panel); });
        return panel;
    }

    static QMainWindow* makeWindow()
    {
        auto* window = new QMainWindow;
        window->setCentralWidget(new QWidget);
        return window;
    }

    std::unique_ptr<QMainWindow> window{makeWindow()};
    QLineEdit* field = nullptr;
    QWidget* drawer = nullptr;
    QPushButton* toggleA = nullptr;
    QPushButton* toggleB = nullptr;
    SidePanels* panels = nullptr;
    QWidget* panelA = nullptr;
    QWidget* panelB = nullptr;
    bool allowsMove = true;
};
} // namespace

class SidePanelsTest : public QObject
{
    Q_OBJECT

private slots:
    void openingGrowsTheWindowAndClosingShrinksIt()
    {
        Bench bench;
        const QSize closedSize = bench.window->size();
        const QRect fieldPlace = bench.field->geometry();
        QSignalSpy opened(bench.panels, &SidePanels::opened);

        bench.toggleA->click();
        QVERIFY(SidePanels::moving());
        QVERIFY(bench.toggleA->isChecked());
        int widthBefore = bench.window->width();
        while (SidePanels::moving()) {
            QTest::qWait(1);
            QVERIFY(bench.window->width() >= widthBefore);
            widthBefore = bench.window->width();
            QCOMPARE(bench.field->geometry(), fieldPlace);
        }
        QCOMPARE(opened.count(), 1);
        QCOMPARE(bench.panels->current(), bench.panelA);
        QTRY_COMPARE(bench.window->width(), closedSize.width() + panelWidth + gap);
        QCOMPARE(bench.panelA->geometry(), QRect(gap, 0, panelWidth, bench.drawer->height()));

        bench.toggleA->click();
        QTRY_VERIFY(!SidePanels::moving());
        QVERIFY(!bench.toggleA->isChecked());
        QVERIFY(bench.panelA->isHidden());
        QTRY_COMPARE(bench.window->size(), closedSize);
        QTRY_VERIFY(bench.panels->findChildren<QAbstractAnimation*>().isEmpty());
    }

    void aTallPanelIsShownWhole()
    {
        Bench bench;
        bench.panelA->setMinimumHeight(2 * windowHeight);
        bench.toggleA->click();
        QTRY_VERIFY(!SidePanels::moving());
        QTRY_VERIFY(bench.drawer->height() >= 2 * windowHeight);
        QCOMPARE(bench.panelA->height(), bench.drawer->height());
        bench.toggleA->click();
        QTRY_VERIFY(!SidePanels::moving());
        QTRY_COMPARE(bench.window->height(), windowHeight);
    }

    void anotherPanelWaitsForTheOpenOne()
    {
        Bench bench;
        bench.toggleA->click();
        QTRY_VERIFY(!SidePanels::moving());
        const int openWidth = bench.window->width();

        QStringList order;
        connect(bench.panels, &SidePanels::opened, this, [&](QWidget* panel) {
            order << "opened";
            QCOMPARE(panel, bench.panelB);
        });
        connect(bench.panels, &SidePanels::allMoved, this, [&] { order << "all"; });
        bench.toggleB->click();
        QVERIFY(!bench.toggleA->isChecked());
        QVERIFY(bench.toggleB->isChecked());
        while (SidePanels::moving()) {
            QTest::qWait(1);
            QCOMPARE(bench.window->width(), openWidth);
            QVERIFY(bench.panelA->isHidden() || bench.panelB->isHidden());
        }
        QCOMPARE(order.join(' '), QString("opened all"));
        QVERIFY(bench.panelA->isHidden());
        QVERIFY(bench.panelB->isVisible());
    }

    void clicksWhileMovingSpringBack()
    {
        Bench bench;
        bench.toggleA->click();
        QVERIFY(SidePanels::moving());
        bench.toggleB->click();
        bench.toggleA->click();
        bench.panels->close(bench.panelA);
        QVERIFY(bench.toggleA->isChecked());
        QVERIFY(!bench.toggleB->isChecked());
        QTRY_VERIFY(!SidePanels::moving());
        QCOMPARE(bench.panels->current(), bench.panelA);
        QVERIFY(bench.panelB->isHidden());
    }

    void panelsAreHeldUntilTheWindowAllows()
    {
        Bench bench;
        bench.allowsMove = false;
        QSignalSpy allMoved(bench.panels, &SidePanels::allMoved);
        bench.toggleA->click();
        QTRY_COMPARE(allMoved.count(), 1);
        QVERIFY(SidePanels::moving());
        bench.toggleA->click();
        QVERIFY(bench.toggleA->isChecked());
        QCOMPARE(bench.panels->current(), bench.panelA);
        SidePanels::setMoving(false);
        bench.toggleA->click();
        QTRY_COMPARE(allMoved.count(), 2);
        QVERIFY(bench.panelA->isHidden());
    }

    void theWindowMayGoInAnyPhase_data()
    {
        testColumns<bool>("switching");
        testRow("opening", false);
        testRow("switching", true);
    }

    void theWindowMayGoInAnyPhase()
    {
        QFETCH(bool, switching);
        Bench bench;
        bench.toggleA->click();
        if (switching) {
            QTRY_VERIFY(!SidePanels::moving());
            bench.toggleB->click();
        }
        QTest::qWait(30);
        QVERIFY(SidePanels::moving());
        bench.window.reset();
        QVERIFY(!SidePanels::moving());
        QCoreApplication::processEvents();
    }

    void theWindowStaysOnTheScreen()
    {
        Bench bench;
        const QRect screen = bench.window->screen()->availableGeometry();
        const QPoint home(screen.right() - bench.window->width() - 20, screen.top() + 40);
        bench.window->move(home);
        bench.toggleA->click();
        QTRY_VERIFY(!SidePanels::moving());
        QTRY_VERIFY(bench.window->width() > panelWidth);
        QVERIFY(bench.window->geometry().right() <= screen.right());
        QCOMPARE(bench.window->y(), home.y());
        bench.toggleA->click();
        QTRY_VERIFY(!SidePanels::moving());
        QCOMPARE(bench.window->pos(), home);
    }

    void aMovedWindowIsNotCalledHome()
    {
        Bench bench;
        const QRect screen = bench.window->screen()->availableGeometry();
        bench.window->move(screen.right() - bench.window->width(), screen.top());
        bench.toggleA->click();
        QTRY_VERIFY(!SidePanels::moving());
        bench.window->move(screen.topLeft() + QPoint(5, 7));
        bench.toggleA->click();
        QTRY_VERIFY(!SidePanels::moving());
        QCOMPARE(bench.window->pos(), screen.topLeft() + QPoint(5, 7));
    }

    void theFocusLeavesAClosingPanel()
    {
        Bench bench;
        QVERIFY(QTest::qWaitForWindowActive(bench.window.get()));
        bench.toggleA->click();
        QTRY_VERIFY(!SidePanels::moving());
        bench.panelA->findChild<QLineEdit*>()->setFocus();
        bench.panels->close(bench.panelA);
        QCOMPARE(bench.window->focusWidget(), bench.toggleA);
    }
};

QTEST_MAIN(SidePanelsTest)
#include "side_panels_test.moc"
