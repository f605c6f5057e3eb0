#include "tests/support/panel_test.h"
#include "tests/support/rows.h"

#include <QAction>
#include <QBackingStore>
#include <QLineEdit>
#include <QPaintEvent>
#include <QScreen>
#include <QTableWidget>

#include <cmath>

/// Qt's own, of which no header is public: what a desktop's settings do.
class Q_GUI_EXPORT QHighDpiScaling
{
public:
    static void setScreenFactor(QScreen* screen, qreal factor);
};

namespace
{
/// What was drawn of a widget last.
struct PaintedRect : QObject {
    explicit PaintedRect(QWidget& widget) { widget.installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            rect = static_cast<QPaintEvent*>(event)->rect();
        return false;
    }

    QRect rect;
};
} // namespace

/// Everything that the window shows, larger or smaller.
class ZoomTest : public PanelTest
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        PanelTest::cleanup();
        qputenv("QT_SCALE_FACTOR", m_chosenBefore);
        QHighDpiScaling::setScreenFactor(QGuiApplication::primaryScreen(), 1.0);
    }

    void everythingIsZoomed_data()
    {
        testColumns<QByteArray, double, double, double>("chosen", "ofScreen", "plain", "least");
        testRow("plain desktop", QByteArray(), 1.0, 1.0, 1.0);
        testRow("a little above", QByteArray(), 100.0 / 96.0, 1.0, 1.0);
        testRow("scaled screen", QByteArray(), 1.25, 1.25, 0.8);
        testRow("scaled by choice", QByteArray("1.25"), 1.0, 1.25, 0.8);
        testRow("doubled by choice", QByteArray("2"), 1.0, 2.0, 0.8);
        testRow("both", QByteArray("1.5"), 1.05, 1.575, 0.8);
        testRow("as chosen", QByteArray("1"), 1.05, 1.05, 1.0);
    }

    /// At once, and a number that is half typed stays so.
    void everythingIsZoomed()
    {
        QFETCH(QByteArray, chosen);
        QFETCH(double, ofScreen);
        QFETCH(double, plain);
        QFETCH(double, least);
        qputenv("QT_SCALE_FACTOR", chosen);
        QHighDpiScaling::setScreenFactor(QGuiApplication::primaryScreen(), ofScreen);
        beginConnected();
        auto& field = m_rig->get<QLineEdit>("FREQ");
        field.setFocus();
        QTest::keyClicks(&field, "7");
        const QString typed = field.text();
        const QSize size = m_rig->window().size();
        const auto isAt = [&](double factor) {
            QVERIFY(isScaled(plain * factor));
            QCOMPARE(slit(), 0);
            QVERIFY(m_rig->window().isVisible());
            QCOMPARE(m_rig->window().size(), size);
            QTRY_COMPARE(drawnWidth(), qRound(size.width() * plain * factor));
            QVERIFY(field.hasFocus());
            QCOMPARE(field.text(), typed);
            QCOMPARE(m_demo->takeSent(), QStringList());
        };
        isAt(1.0);
        zoomAll("action_zoom_out");
        isAt(least);
        zoom("action_zoom_reset");
        isAt(1.0);
        zoom("action_zoom_in");
        isAt(1.1);
        zoomAll("action_zoom_in");
        isAt(2.0);
        begin();
        QVERIFY(isScaled(plain * 2.0));
        StartOptions clean = PanelRig::defaultOptions();
        clean.isClean = true;
        begin(clean);
        QVERIFY(isScaled(plain));
    }

    /// A cell that is drawn alone leaves gaps in the grid.
    void tablesAreDrawnWhole()
    {
        beginConnected();
        m_rig->openPanel("open_list");
        m_rig->clickAll("List_is_Checked");
        zoomAll("action_zoom_in");
        auto& cells = m_rig->get<QTableWidget>("table_List");
        cells.setRowCount(3);
        cells.setCurrentCell(2, 0);
        PaintedRect painted(*cells.viewport());
        for (int row = 0; row < cells.rowCount(); ++row) {
            QCoreApplication::processEvents();
            painted.rect = {};
            cells.setCurrentCell(row, 1);
            QTRY_COMPARE(painted.rect, cells.viewport()->rect());
        }
    }

    void whatIsTypedIsSentOnLeaving_data()
    {
        testColumns<bool>("isWindowLeft");
        testRow("for another field", false);
        testRow("for another window", true);
    }

    /// However soon after a zoom.
    void whatIsTypedIsSentOnLeaving()
    {
        QFETCH(bool, isWindowLeft);
        beginConnected();
        auto& field = m_rig->get("FREQ");
        field.setFocus();
        QTest::keyClicks(&field, "7");
        zoom("action_zoom_in");
        QVERIFY(QTest::qWaitForWindowActive(&m_rig->window()));
        QTest::keyClicks(&field, "G");
        QCOMPARE(m_demo->takeSent(), QStringList());
        QWidget elsewhere;
        if (isWindowLeft) {
            elsewhere.show();
            elsewhere.activateWindow();
        } else {
            m_rig->get("POW").setFocus(Qt::MouseFocusReason);
        }
        QTRY_VERIFY(!field.hasFocus());
        QCOMPARE(m_demo->takeCommands(), QStringList("FREQ 7000000000.000000 Hz;FREQ?!"));
    }

private:
    /// By the menu, as soon as that is reached by the keys.
    void zoom(const char* action)
    {
        QVERIFY(QTest::qWaitForWindowActive(&m_rig->window()));
        m_rig->get<QAction>(action).trigger();
    }

    void zoomAll(const char* action)
    {
        while (m_rig->get<QAction>(action).isEnabled() && !QTest::currentTestFailed())
            zoom(action);
    }

    /// In pixels of the screen; 0 until something is drawn.
    int drawnWidth()
    {
        const QPaintDevice* drawn = m_rig->window().backingStore()->paintDevice();
        return drawn ? drawn->width() : 0;
    }

    /// An edge that is at one pixel for what is cleared and at another for what is drawn;
    /// 0 if there is none.
    int slit()
    {
        const double cleared = m_rig->window().screen()->devicePixelRatio();
        const double drawn = m_rig->window().devicePixelRatioF();
        int edge = largestEdge;
        while (edge > 0 && qRound(edge * cleared) == qRound(edge * drawn))
            --edge;
        return edge;
    }

    bool isScaled(double factor)
    {
        // A widget knows it in parts of 65536.
        return std::abs(m_rig->window().devicePixelRatioF() - factor) < 1e-3;
    }

    static constexpr int largestEdge = 2000;
    const QByteArray m_chosenBefore = qgetenv("QT_SCALE_FACTOR");
};

QTEST_MAIN(ZoomTest)
#include "zoom_test.moc"
