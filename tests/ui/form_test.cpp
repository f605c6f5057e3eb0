#include "tests/support/rows.h"
#include "ui/theme.h"
#include "ui_mainwindow.h"

#include <QToolTip>
#include <QTranslator>
#include <QtTest>

#include <memory>

namespace
{
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

} // namespace

class FormTest : public QObject
{
    Q_OBJECT

private slots:
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
        testColumns<QString, QString>("name", "keys");
        const QList<QPair<QString, QString>> table = {
            {"connect", "Ctrl+D"},     {"menuButton", "F10"},  {"minimize", "Ctrl+M"},
            {"closeWindow", "Ctrl+Q"}, {"key_FREQ", "Ctrl+F"}, {"key_POW", "Ctrl+P"},
            {"Output", "Ctrl+R"},      {"ROSC", "Ctrl+T"},     {"open_ROSC_FREQ", "Ctrl+Shift+E"},
            {"open_mod", "F2"},        {"open_list", "F3"},    {"open_gener", "F4"},
            {"profiles", "F5"},        {"service", "F6"},      {"butSetModePow", "Ctrl+B"}};
        for (const auto& [name, keys] : table)
            testRow(name, name, keys);
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
};

QTEST_MAIN(FormTest)
#include "form_test.moc"
