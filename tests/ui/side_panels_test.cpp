#include "app/side_panels.h"
#include "app/window_place.h"
#include "tests/support/rows.h"
#include "ui/zoom.h"

#include <QAbstractAnimation>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QTemporaryDir>
#include <QWindow>
#include <QtTest>

#include <memory>

namespace
{
constexpr int panelWidth = 424;
constexpr int gap = 16;
constexpr int windowHeight = 160;

/// A window with a field, a drawer and two panels, wired as the program's window is.
struct Bench {
    explicit Bench(QSettings* settings = nullptr)
    {
        auto* central = new QWidget;
        central->setMinimumHeight(windowHeight);
        window->setCentralWidget(central);
        auto* row = new QHBoxLayout(central);
        row->setSpacing(0);
        drawer->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
        for (QWidget* widget : std::initializer_list<QWidget*>{field, toggleA, toggleB, drawer})
            row->addWidget(widget);
        place = new WindowPlace(window.get());
        panels = new SidePanels(window.get(), drawer, *place);
        addPanel(panelA, toggleA);
        addPanel(panelB, toggleB);
        QObject::connect(panels, &SidePanels::allMoved, window.get(), [this] {
            if (allowsMove)
                SidePanels::setMoving(false);
        });
        window->move(0, 0);
        if (settings)
            place->keepIn(*settings);
        window->show();
        QCoreApplication::processEvents();
    }
    ~Bench() { SidePanels::setMoving(false); }

    void addPanel(QWidget* panel, QPushButton* toggle)
    {
        panel->setMinimumSize(panelWidth, 100);
        new QLineEdit(panel);
        toggle->setCheckable(true);
        panels->add(panel, toggle);
        QObject::connect(toggle, &QPushButton::clicked, panels,
                         [this, panel] { panels->toggle(panel); });
    }

    /// Clicks and waits until all has moved.
    static void move(QPushButton* toggle)
    {
        toggle->click();
        QTRY_VERIFY(!SidePanels::moving());
    }

    std::unique_ptr<QMainWindow> window = std::make_unique<QMainWindow>();
    QLineEdit* field = new QLineEdit;
    QWidget* drawer = new QWidget;
    QPushButton* toggleA = new QPushButton;
    QPushButton* toggleB = new QPushButton;
    WindowPlace* place = nullptr;
    SidePanels* panels = nullptr;
    QWidget* panelA = new QWidget;
    QWidget* panelB = new QWidget;
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
        const int fieldWidth = bench.field->width();
        bench.panelA->setMinimumHeight(2 * windowHeight);
        QSignalSpy opened(bench.panels, &SidePanels::opened);

        bench.toggleA->click();
        QVERIFY(SidePanels::moving());
        QVERIFY(bench.toggleA->isChecked());
        int widthBefore = bench.window->width();
        while (SidePanels::moving()) {
            QTest::qWait(1);
            QVERIFY(bench.window->width() >= widthBefore);
            widthBefore = bench.window->width();
            QCOMPARE(bench.field->width(), fieldWidth);
        }
        QCOMPARE(opened.count(), 1);
        QCOMPARE(bench.panels->current(), bench.panelA);
        QTRY_COMPARE(bench.window->width(), closedSize.width() + panelWidth + gap);
        QTRY_VERIFY(bench.drawer->height() >= 2 * windowHeight);
        QCOMPARE(bench.panelA->geometry(), QRect(gap, 0, panelWidth, bench.drawer->height()));

        bench.move(bench.toggleA);
        QVERIFY(!bench.toggleA->isChecked());
        QVERIFY(bench.panelA->isHidden());
        QTRY_COMPARE(bench.window->size(), closedSize);
        QTRY_VERIFY(bench.panels->findChildren<QAbstractAnimation*>().isEmpty());
    }

    /// With a panel and without, and when the program is started again.
    void theUsersSizesAndPlaceAreKept()
    {
        const QTemporaryDir folder;
        QSettings settings(folder.filePath("settings.ini"), QSettings::IniFormat);
        QSize closed;
        QSize open;
        {
            Bench bench(&settings);
            closed = makeLarger(bench, {40, 60});
            bench.move(bench.toggleA);
            QTRY_VERIFY(bench.window->width() > panelWidth + gap);
            QTRY_VERIFY(bench.window->height() < closed.height());
            open = makeLarger(bench, {20, 30});
            bench.move(bench.toggleB);
            QTRY_COMPARE(bench.window->size(), open);
            bench.move(bench.toggleB);
            QTRY_COMPARE(bench.window->size(), closed);
            // Not what the program itself has asked for, nor all of the screen.
            bench.window->centralWidget()->setMinimumHeight(2 * closed.height());
            QTRY_VERIFY(bench.window->height() >= 2 * closed.height());
            bench.window->centralWidget()->setMinimumHeight(windowHeight);
            QTRY_COMPARE(bench.window->size(), closed);
            bench.window->move(30, 50);
            bench.window->close();
        }
        Bench bench(&settings);
        QTRY_COMPARE(bench.window->size(), closed);
        QCOMPARE(bench.window->pos(), QPoint(30, 50));
        bench.move(bench.toggleA);
        QTRY_COMPARE(bench.window->size(), open);
        bench.window->close();
        // A screen that is gone takes no window with it.
        settings.setValue("Window/place", QPoint(30000, 30000));
        const Bench again(&settings);
        QCOMPARE(again.window->pos(), QPoint(0, 0));
    }

    void anotherPanelWaitsForTheOpenOne()
    {
        Bench bench;
        bench.move(bench.toggleA);
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

    void clicksSpringBackUntilTheWindowAllows()
    {
        Bench bench;
        bench.allowsMove = false;
        QSignalSpy allMoved(bench.panels, &SidePanels::allMoved);
        bench.toggleA->click();
        for (const int moved : {0, 1}) {
            QTRY_COMPARE(allMoved.count(), moved);
            QVERIFY(SidePanels::moving());
            bench.toggleB->click();
            bench.toggleA->click();
            bench.panels->close(bench.panelA);
            QVERIFY(bench.toggleA->isChecked() && !bench.toggleB->isChecked());
            QCOMPARE(bench.panels->current(), bench.panelA);
        }
        QVERIFY(bench.panelB->isHidden());
        SidePanels::setMoving(false);
        bench.toggleA->click();
        QTRY_COMPARE(allMoved.count(), 2);
        QVERIFY(bench.panelA->isHidden());
    }

    void theWindowMayGoInAnyPhase()
    {
        for (const bool isSwitching : {false, true}) {
            Bench bench;
            if (isSwitching)
                bench.move(bench.toggleB);
            bench.toggleA->click();
            const QSize before = bench.drawer->minimumSize();
            const QPoint place = bench.panelB->pos();
            QVERIFY(QTest::qWaitFor([&] {
                return bench.drawer->minimumSize() != before || bench.panelB->pos() != place;
            }));
            QVERIFY(SidePanels::moving());
            bench.window.reset();
            QVERIFY(!SidePanels::moving());
            QCoreApplication::processEvents();
        }
    }

    void theWindowStaysOnTheScreen()
    {
        for (const bool isMovedByHand : {false, true}) {
            Bench bench;
            const QRect screen = bench.window->screen()->availableGeometry();
            const QPoint home(screen.right() - bench.window->width() - 20, screen.top() + 40);
            bench.window->move(home);
            bench.move(bench.toggleA);
            QTRY_VERIFY(bench.window->width() > panelWidth);
            QVERIFY(bench.window->geometry().right() <= screen.right());
            QCOMPARE(bench.window->y(), home.y());
            const QPoint elsewhere = screen.topLeft() + QPoint(5, 7);
            if (isMovedByHand)
                bench.window->move(elsewhere);
            bench.move(bench.toggleA);
            QCOMPARE(bench.window->pos(), isMovedByHand ? elsewhere : home);
        }
    }

    void aZoomKeepsHome_data()
    {
        testColumns<QList<int>, bool>("steps", "isMovedByHand"); // after the panel has opened
        testRow("larger", QList<int>({1}), false);
        testRow("larger than the screen", QList<int>({1, 1, 1, 1}), false);
        testRow("and back", QList<int>({1, 1, -1, -1}), false);
        testRow("moved then", QList<int>({1}), true);
    }

    /// Which is the same spot of the screen, as near as lengths of the new scale come to it.
    void aZoomKeepsHome()
    {
        QFETCH(QList<int>, steps);
        QFETCH(bool, isMovedByHand);
        Zoom zoom(nullptr);
        Bench bench;
        const auto spot = [&] { return QPointF(bench.window->pos()) * zoom.percent() / 100.0; };
        const QRect screen = bench.window->screen()->availableGeometry();
        bench.window->move(screen.right() - bench.window->width() - 20, screen.top() + 40);
        QPointF home = spot();
        bench.move(bench.toggleA);
        QVERIFY(spot().x() < home.x());
        for (const int step : steps) {
            zoom.step(step);
            QCoreApplication::processEvents();
        }
        if (isMovedByHand) {
            bench.window->move(30, 50);
            home = spot();
        }
        bench.move(bench.toggleA);
        // It is no larger than the screen.
        const QPoint last = bench.window->screen()->availableGeometry().bottomRight() -
                            QRect(QPoint(), bench.window->frameSize()).bottomRight();
        home.setX(std::min(home.x(), last.x() * zoom.percent() / 100.0));
        QVERIFY((spot() - home).manhattanLength() <= 2.0);
        zoom.reset();
    }

    /// Also where something has grown meanwhile that stays.
    void whatGrowsStaysOnTheScreen()
    {
        Bench bench;
        const QRect screen = bench.window->screen()->availableGeometry();
        bench.window->move(screen.left() + 9, screen.bottom() - bench.window->height() - 5);
        bench.move(bench.toggleA);
        bench.window->centralWidget()->setMinimumHeight(screen.height() / 2);
        bench.move(bench.toggleA);
        QTRY_VERIFY(bench.window->height() >= screen.height() / 2);
        QTRY_VERIFY(bench.window->geometry().bottom() <= screen.bottom());
    }

    /// Into the panel that opens; back where it was when the last one closes, or to the panel's
    /// button where that is not possible.
    void theFocusGoesInAndComesBack()
    {
        Bench bench;
        QVERIFY(QTest::qWaitForWindowActive(bench.window.get()));
        const auto focus = [&bench] { return bench.window->focusWidget(); };
        bench.panelA->findChild<QLineEdit*>()->setEnabled(false);
        auto* second = new QLineEdit(bench.panelA);
        bench.field->setFocus();
        bench.move(bench.toggleA);
        QCOMPARE(focus(), second);
        bench.move(bench.toggleB);
        QCOMPARE(focus(), bench.panelB->findChild<QLineEdit*>());
        bench.move(bench.toggleB);
        QCOMPARE(focus(), bench.field);

        // A click on its button has taken the focus.
        bench.move(bench.toggleA);
        bench.toggleA->setFocus();
        bench.move(bench.toggleA);
        QCOMPARE(focus(), bench.field);

        bench.move(bench.toggleA);
        bench.field->setEnabled(false);
        bench.move(bench.toggleA);
        QCOMPARE(focus(), bench.toggleA);

        // Elsewhere by then: it stays there.
        bench.move(bench.toggleA);
        bench.toggleB->setFocus();
        bench.move(bench.toggleA);
        QCOMPARE(focus(), bench.toggleB);
    }

private:
    /// As the user does by hand. Returns the new size.
    static QSize makeLarger(Bench& bench, const QSize& growth)
    {
        const QSize size = bench.window->size() + growth;
        bench.window->windowHandle()->resize(size);
        (void)QTest::qWaitFor([&] { return bench.window->size() == size; });
        return size;
    }
};

QTEST_MAIN(SidePanelsTest)
#include "side_panels_test.moc"
