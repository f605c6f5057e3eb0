#include "sweep/picture/list_plot.h"
#include "sweep/picture/run_plot.h"
#include "tests/support/rows.h"

#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>

namespace
{
RunPoints listOf(const QVector<RowTexts>& rows)
{
    return RunPoints::ofTable(
        rows.size(), [&](int row) { return rows.at(row); }, QStringLiteral("0"));
}

const RunPoints sweep =
    RunPoints::ofSweep({false, "0", "25 000 000", "1 000 000 000", "100", "1 000"});
} // namespace

class ListPlotTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_plot = std::make_unique<ListPlot>();
        m_plot->resize(500, 260);
        m_plot->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_plot.get()));
    }

    void words()
    {
        const auto row =
            freshRows(this, [this](RunKind kind, const RunPoints& points, const QString& words) {
                m_plot->showRun(kind, points);
                // Many changes at once are drawn once.
                QCOMPARE(m_plot->accessibleDescription(),
                         QString("The sweep settings define no points"));
                QVERIFY(shows("The sweep settings define no points"));
                QCoreApplication::processEvents();
                QCOMPARE(m_plot->accessibleDescription(), words);
                QVERIFY(!shows("The sweep settings define no points"));
            });
        row("falling power sweep", RunKind::Sweep,
            RunPoints::ofSweep({true, "1 000", "5", "-5", "2", "1 000 000"}),
            "Sweep of 2 points: 1 kHz, 5 dBm to \u22125 dBm, 2 s per pass");
        row("list from lowest to highest", RunKind::List,
            listOf({{"2 000", "1", "5"}, {"1 000", "1", "5"}, {"3 000", "2", "5"}}),
            "List of 3 points: 1 kHz to 3 kHz, 1 dBm to 2 dBm, 15 µs per pass");
        row("one point, hours", RunKind::List, listOf({{"2 000", "1", "3 723 000 000"}}),
            "List of one point: 2 kHz, 1 dBm, 1:02:03 per pass");
        row("unreadable", RunKind::List, listOf({{"a", "1", "0"}}),
            "List of one point: not readable, 1 dBm, 0 s per pass");
    }

    void header()
    {
        const auto* header = m_plot->findChild<QLabel*>("plot_List_header");
        show(RunKind::Sweep, sweep);
        QCOMPARE(header->text(), QString("Points: 100, 100 ms per pass"));
        m_plot->setRun(RunClock::Pace::Free);
        m_plot->setReached(38);
        m_plot->setTime(37.4, 100.0);
        QCOMPARE(header->text(), QString("Point 38 of 100  ·  37 ms of 100 ms"));
        m_plot->setTime(61000.0, 3600000.0);
        QVERIFY(header->text().endsWith("0:01:01 of 1:00:00"));
        m_plot->setRun({});
        show(RunKind::List, listOf({{"1", "0", "1"}, {"1", "-", "1"}}));
        const QImage unmarked = canvas(0).grab().toImage();
        m_plot->setRun(RunClock::Pace::Free);
        for (const int number : {1, 2}) {
            m_plot->setReached(number);
            QVERIFY(canvas(0).grab().toImage() != unmarked);
        }
        m_plot->setRun({});
        QVERIFY(header->text().endsWith("Point 2 cannot run with these values"));
    }

    void times()
    {
        const auto row =
            freshRows(this, [this](const QString& dwellUs, int zooms, const QString& labels) {
                show(RunKind::List, listOf({{"1", "0", dwellUs}, {"2", "0", dwellUs}}));
                for (int i = 0; i < zooms; ++i)
                    QTest::keyClick(m_plot.get(), Qt::Key_Plus);
                QCoreApplication::processEvents();
                const RunPlot& plot = *m_plot->findChildren<RunPlot*>().at(1);
                QStringList found;
                for (const double tick :
                     plot.axisScaleDiv(QwtPlot::xBottom).ticks(QwtScaleDiv::MajorTick))
                    found << plot.axisScaleDraw(QwtPlot::xBottom)->label(tick).text();
                QCOMPARE(found.join(", "), labels);
            });
        row("two minutes", "60 000 000", 0, "0 s, 50 s, 100 s");
        row("minutes", "150 000 000", 0, "0, 1 min, 2 min, 3 min, 4 min, 5 min");
        row("half minutes", "70 000 000", 0, "0:00:00, 0:00:30, 0:01:00, 0:01:30, 0:02:00");
        row("hours", "9 000 000 000", 0, "0, 1 h, 2 h, 3 h, 4 h, 5 h");
        row("a part of hours", "9 000 000 000", 5, "2 h, 2 h 20 min, 2 h 40 min, 3 h");
        row("days", "200 000 000 000", 0, "0, 24 h, 48 h, 72 h, 96 h");
        row("a second of hours", "9 000 000 000", 43, "2:29:59.5, 2:30:00.0, 2:30:00.5");
    }

    /// Whatever the points are, both axes cope, zoomed and marked as well.
    void pointsWithoutPicture()
    {
        const auto row = freshRows(this, [this](const RunPoints& points) {
            m_plot->showRun(RunKind::List, points);
            m_plot->setRun(RunClock::Pace::Free);
            m_plot->setReached(points.count());
            for (int i = 0; i < 2; ++i) {
                m_plot->findChild<QPushButton*>("logarithmicFrequency")->click();
                for (int zoom = 0; zoom < 40; ++zoom)
                    QTest::keyClick(m_plot.get(), Qt::Key_Plus);
                moveMouse(0, QPoint(20, 20));
                QCoreApplication::processEvents();
                QVERIFY(!canvas(0).grab().isNull());
                QVERIFY(m_plot->toUs() > m_plot->fromUs());
            }
            QCOMPARE(canvas(0).isVisible(), !points.isEmpty());
        });
        row("none", RunPoints());
        row("no time", listOf({{"1 000", "0", "0"}, {"2 000", "1", "0"}}));
        row("negative", listOf({{"-5", "-500", "-5"}, {"-6", "-1", "5"}}));
        row("zero hertz", listOf({{"0", "0", "5"}, {"1 000", "0", "5"}}));
        row("nothing readable", listOf({{"a", "b", "c"}, {"d", "e", "5"}}));
        row("enormous", listOf({{"1e15", "1e15", "1e15"}, {"1e-15", "-1e15", "1e-15"}}));
    }

    void zoomsAndMoves()
    {
        show(RunKind::Sweep, sweep);
        // What cannot zoom out further leaves the wheel to what scrolls around it.
        QVERIFY(!turnWheel(-1));
        QVERIFY(turnWheel(5));
        const double fromUs = m_plot->fromUs();
        const double zoomedUs = lengthUs();
        QVERIFY(zoomedUs < 40000.0);
        // What was under the mouse stays there.
        QVERIFY(std::abs(fromUs + 0.25 * zoomedUs - 25000.0) < 200.0);
        drag(200, 100);
        QVERIFY(std::abs(m_plot->fromUs() - fromUs - zoomedUs * 100 / canvas(0).width()) < 200.0);
        drag(10, 400);
        drag(10, 400);
        QCOMPARE(m_plot->fromUs(), 0.0);
        QVERIFY(std::abs(lengthUs() - zoomedUs) < 1e-6);
        QTest::keyClick(m_plot.get(), Qt::Key_Right);
        QVERIFY(m_plot->fromUs() > 100.0);
        QTest::keyClick(m_plot.get(), Qt::Key_Home);
        QCOMPARE(lengthUs(), 100000.0);

        // The zoom stays with runs of the same kind.
        QTest::keyClick(m_plot.get(), Qt::Key_Plus);
        QTest::keyClick(m_plot.get(), Qt::Key_End);
        const double onceUs = lengthUs();
        QVERIFY(onceUs < 99000.0);
        show(RunKind::Sweep, RunPoints::ofSweep({false, "0", "1", "2", "90", "1 000"}));
        QCOMPARE(lengthUs(), onceUs);
        QVERIFY(m_plot->toUs() <= 90000.0);
        QTest::mouseDClick(&canvas(1), Qt::LeftButton, {}, QPoint(20, 20));
        QCOMPARE(lengthUs(), 90000.0);
        QTest::keyClick(m_plot.get(), Qt::Key_Plus);
        show(RunKind::List, sweep);
        QCOMPARE(lengthUs(), 100000.0);
    }

    void tellsThePointUnderTheMouse()
    {
        show(RunKind::List, listOf({{"1 234 567 891", "-5.5", "1 000"}, {"2 000", "0", "1 000"}}));
        moveMouse(0, QPoint(canvas(0).width() / 4, 20));
        QTRY_COMPARE(
            QToolTip::text(),
            QString("Point 1 of 2, from 0 s on\n1 234 567 891 Hz\n\u22125.5 dBm\n1 000 µs"));
    }

private:
    void show(RunKind kind, const RunPoints& points)
    {
        m_plot->showRun(kind, points);
        QCoreApplication::processEvents();
    }
    bool shows(const QString& text) const
    {
        const auto labels = m_plot->findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(), [&](const QLabel* label) {
            return label->isVisible() && label->text() == text;
        });
    }
    QWidget& canvas(int index) { return *m_plot->findChildren<RunPlot*>().at(index)->canvas(); }
    double lengthUs() const { return m_plot->toUs() - m_plot->fromUs(); }
    /// At a quarter of the width. Whether it was for the plot.
    bool turnWheel(int notches)
    {
        const QPointF place(0.25 * canvas(0).width(), 10.0);
        QWheelEvent event(place, canvas(0).mapToGlobal(place.toPoint()), QPoint(),
                          QPoint(0, notches * 120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(&canvas(0), &event);
        return event.isAccepted();
    }
    void moveMouse(int index, const QPoint& place, Qt::MouseButton held = Qt::NoButton)
    {
        QMouseEvent move(QEvent::MouseMove, place, canvas(index).mapToGlobal(place), Qt::NoButton,
                         held, Qt::NoModifier);
        QApplication::sendEvent(&canvas(index), &move);
    }
    void drag(int fromX, int toX)
    {
        QTest::mousePress(&canvas(0), Qt::LeftButton, {}, QPoint(fromX, 20));
        moveMouse(0, QPoint(toX, 20), Qt::LeftButton);
        QTest::mouseRelease(&canvas(0), Qt::LeftButton, {}, QPoint(toX, 20));
    }

    std::unique_ptr<ListPlot> m_plot;
};

QTEST_MAIN(ListPlotTest)
#include "list_plot_test.moc"
