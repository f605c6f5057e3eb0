#include "ui_mainwindow.h"

#include <QtTest>

class FormTest : public QObject
{
    Q_OBJECT

private slots:
    /// Also after the captions have been changed and a new language has come.
    void keysClickTheirButton()
    {
        const std::pair<const char*, const char*> table[] = {
            {"connect", "Ctrl+D"},     {"menuButton", "F10"},  {"minimize", "Ctrl+M"},
            {"closeWindow", "Ctrl+Q"}, {"key_FREQ", "Ctrl+F"}, {"key_POW", "Ctrl+P"},
            {"Output", "Ctrl+R"},      {"ROSC", "Ctrl+T"},     {"open_ROSC_FREQ", "Ctrl+Shift+E"},
            {"open_mod", "F2"},        {"open_list", "F3"},    {"open_gener", "F4"},
            {"profiles", "F5"},        {"service", "F6"},      {"butSetModePow", "Ctrl+B"}};
        for (const auto& [name, keys] : table) {
            QMainWindow window;
            Ui::MainWindow ui;
            ui.setupUi(&window);
            window.show();
            QVERIFY(QTest::qWaitForWindowActive(&window));
            ui.FREQ->setFocus();
            auto* button = window.findChild<QAbstractButton*>(name);
            QVERIFY2(button->toolTip().contains(QString("(%1)").arg(keys)), name);
            QSignalSpy clicks(button, &QAbstractButton::clicked);
            if (!button->text().isEmpty())
                button->setText(button->text() + "*");
            ui.retranslateUi(&window);
            // The frequency of the reference is the user's.
            QVERIFY(button != ui.ROSC || button->text().endsWith('*'));
            QTest::keySequence(&window, QKeySequence(keys));
            QVERIFY2(clicks.count() == 1, name);
        }
    }
};

QTEST_MAIN(FormTest)
#include "form_test.moc"
