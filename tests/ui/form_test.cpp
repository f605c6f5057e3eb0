#include "ui/theme.h"
#include "ui_mainwindow.h"

#include <QToolTip>
#include <QTranslator>
#include <QtTest>

#include <memory>

namespace
{
constexpr int grid = 8;

/// The form in a window, in either language, with every indicator shown.
struct Panel {
    explicit Panel(bool russian)
    {
        applyTheme(*qApp, ThemeName::Light, russian);
        if (russian) {
            if (!translator.load(":/translations/klv_ru.qm"))
                qFatal("no Russian translation");
            QCoreApplication::installTranslator(&translator);
        }
        ui.setupUi(&window);
        window.show();
    }

    void showEverything()
    {
        ui.errors->setText(translator.isEmpty() ? "23 errors" : "23 ошибки");
        for (QWidget* hidden :
             std::initializer_list<QWidget*>{ui.wgtMaxPow, ui.label_328, ui.label_329, ui.ROSC_FREQ,
                                             ui.stop_run, ui.run_progress, ui.errors})
            hidden->show();
        for (QLabel* label :
             {static_cast<QLabel*>(ui.label_AmPmFm), static_cast<QLabel*>(ui.label_PULM),
              static_cast<QLabel*>(ui.label_Gener)})
            label->setPixmap(QIcon(":/images/Sin.png").pixmap(24));
        ui.FREQ->setText("20 000 000 000");
        ui.ROSC->setText(translator.isEmpty() ? "100 MHz" : "100 МГц");
        QCoreApplication::processEvents();
    }

    QTranslator translator;
    QMainWindow window;
    Ui::MainWindow ui;
};

/// The lowest row of `widget` on the display that is brighter than half way to its brightest.
int lowestInkRow(const QWidget& display, const QWidget& widget, const QColor& ink)
{
    const QImage image = const_cast<QWidget&>(display).grab().toImage();
    const QRect area(widget.mapTo(&display, QPoint(2, 2)), widget.size() - QSize(4, 4));
    for (int y = area.bottom(); y >= area.top(); --y)
        for (int x = area.left(); x <= area.right(); ++x)
            if (image.pixelColor(x, y).green() > ink.green() * 3 / 4)
                return y;
    return -1;
}
} // namespace

class FormTest : public QObject
{
    Q_OBJECT

private:
    static void addLanguages()
    {
        QTest::addColumn<bool>("russian");
        QTest::newRow("English") << false;
        QTest::newRow("Russian") << true;
    }

private slots:
    void noTextIsClipped_data() { addLanguages(); }
    void noTextIsClipped()
    {
        QFETCH(bool, russian);
        Panel panel(russian);
        const QSize idle = panel.window.sizeHint();
        panel.showEverything();
        QCOMPARE(panel.window.sizeHint(), idle);
        for (const bool checked : {false, true}) {
            for (auto* button : panel.window.findChildren<StateButton*>())
                if (button->isCheckable())
                    button->setChecked(checked);
            QCoreApplication::processEvents();
            for (const QWidget* widget : panel.window.findChildren<QWidget*>()) {
                const auto* label = qobject_cast<const QLabel*>(widget);
                const auto* button = qobject_cast<const QAbstractButton*>(widget);
                if ((label && !label->text().isEmpty()) || (button && !button->text().isEmpty()))
                    QVERIFY2(widget->sizeHint().width() <= widget->width(),
                             qPrintable(widget->objectName()));
            }
        }
        const QLineEdit& field = *panel.ui.FREQ;
        QVERIFY(field.fontMetrics().horizontalAdvance(field.text()) < field.width() - 16);
    }

    void deviceNameFitsItsWidth()
    {
        Panel panel(false);
        QLabel& device = *panel.ui.device;
        QCOMPARE(device.width(), 131);
        device.setProperty("connected", true);
        device.setText("KLV-20G 5678");
        device.setFixedWidth(171);
        QVERIFY(device.sizeHint().width() <= device.width());
    }

    void aLongDeviceNameIsElided()
    {
        Panel panel(false);
        panel.showEverything();
        QLabel& device = *panel.ui.device;
        device.setFixedWidth(171);
        const QString name = "KLV-20G with all options 5678";
        device.setText(name);
        const QImage elided = device.grab().toImage();
        QCOMPARE(device.text(), name);
        QHelpEvent hover(QEvent::ToolTip, QPoint(5, 5), device.mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(&device, &hover);
        QVERIFY(QToolTip::text().startsWith(name));
        QVERIFY(QToolTip::text().contains(device.toolTip()));
        // What comes behind the ellipsis does not show.
        device.setText(name + "9");
        QCOMPARE(device.grab().toImage(), elided);
        device.setText("KLV-20G 5678");
        QVERIFY(device.grab().toImage() != elided);
    }

    void keysClickTheirButton_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("keys");
        const QList<QPair<QString, QString>> table = {
            {"connect", "Ctrl+D"},     {"menuButton", "F10"},  {"minimize", "Ctrl+M"},
            {"closeWindow", "Ctrl+Q"}, {"key_FREQ", "Ctrl+F"}, {"key_POW", "Ctrl+P"},
            {"Output", "Ctrl+R"},      {"ROSC", "Ctrl+T"},     {"open_ROSC_FREQ", "Ctrl+Shift+E"},
            {"open_mod", "F2"},        {"open_list", "F3"},    {"open_gener", "F4"},
            {"profiles", "F5"},        {"service", "F6"},      {"butSetModePow", "Ctrl+B"}};
        for (const auto& [name, keys] : table)
            QTest::newRow(qPrintable(name)) << name << keys;
    }

    void keysClickTheirButton()
    {
        QFETCH(QString, name);
        QFETCH(QString, keys);
        Panel panel(false);
        QVERIFY(QTest::qWaitForWindowActive(&panel.window));
        panel.ui.FREQ->setFocus();
        auto* button = panel.window.findChild<QAbstractButton*>(name);
        QVERIFY(button);
        QVERIFY(button->toolTip().contains("(" + keys + ")"));
        QSignalSpy clicks(button, &QAbstractButton::clicked);
        if (!button->text().isEmpty())
            button->setText(button->text() + "*");
        panel.ui.retranslateUi(&panel.window);
        QTest::keySequence(&panel.window, QKeySequence(keys));
        QCOMPARE(clicks.count(), 1);
    }

    void tabGoesAsTheEyeDoes()
    {
        Panel panel(false);
        panel.showEverything();
        QVERIFY(QTest::qWaitForWindowActive(&panel.window));
        panel.ui.FREQ->setFocus();
        QStringList order;
        for (int i = 0; i < 18; ++i) {
            order << panel.window.focusWidget()->objectName();
            QTest::keyClick(panel.window.focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(order.join(' '),
                 QString("FREQ POW Output ROSC open_ROSC_FREQ ROSC_FREQ open_mod "
                         "open_list open_gener profiles service stop_run butSetModePow "
                         "connect menuButton minimize closeWindow errors"));
        QCOMPARE(panel.window.focusWidget(), panel.ui.FREQ);
    }

    void aNewLanguageKeepsDataAndState()
    {
        Panel panel(false);
        panel.ui.FREQ->setText("5");
        panel.ui.ROSC->setText("20 MHz");
        panel.ui.Output->setChecked(true);
        QCOMPARE(panel.ui.Output->text(), QString("RF ON"));
        QTranslator russian;
        QVERIFY(russian.load(":/translations/klv_ru.qm"));
        QCoreApplication::installTranslator(&russian);
        panel.ui.retranslateUi(&panel.window);
        QCOMPARE(panel.ui.FREQ->text(), QString("5"));
        QCOMPARE(panel.ui.ROSC->text(), QString("20 MHz"));
        QCOMPARE(panel.ui.Output->text(), QString::fromUtf8("ВЧ ВКЛ."));
        QCOMPARE(panel.ui.connect->text(), QString::fromUtf8("Подключиться"));
        QCOMPARE(panel.window.windowTitle(), QString("KLV"));
    }

    void figuresAndUnitShareABaseline()
    {
        Panel panel(false);
        const auto& ui = panel.ui;
        ui.FREQ->setText("1");
        ui.Output->setFocus();
        const QColor figures = themeColour(ThemeName::Light, "figures");
        const QColor muted = themeColour(ThemeName::Light, "displayMuted");
        const int figureRow = lowestInkRow(*ui.display, *ui.FREQ, figures);
        QVERIFY(figureRow > 0);
        QCOMPARE(lowestInkRow(*ui.display, *ui.unit_FREQ, muted), figureRow);
    }

    void buttonsStandOnTheGrid_data() { addLanguages(); }
    void buttonsStandOnTheGrid()
    {
        QFETCH(bool, russian);
        Panel panel(russian);
        panel.showEverything();
        for (const auto* button : panel.window.findChildren<QAbstractButton*>()) {
            if (panel.ui.display->isAncestorOf(button) || button == panel.ui.errors)
                continue;
            const QPoint corner = button->mapTo(&panel.window, QPoint(0, 0));
            QVERIFY2(corner.x() % grid == 0 && corner.y() % grid == 0,
                     qPrintable(button->objectName()));
            QVERIFY2(button->height() == 32 && button->width() % grid == 0,
                     qPrintable(button->objectName()));
        }
        QCOMPARE(panel.ui.ROSC_FREQ->height(), 30);
    }
};

QTEST_MAIN(FormTest)
#include "form_test.moc"
