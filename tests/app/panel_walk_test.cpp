#include "tests/app/panel_walk.h"

#include "link/instrument_limits.h"
#include "modulation/fold_box.h"
#include "service/about_box.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"
#include "ui/error_box.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>
#include <QWindow>

#include <algorithm>
#include <functional>

namespace
{
const QString panelButtons = QStringLiteral("open_mod open_list open_gener profiles service");

/// Something to look at: what has the program show it, and in which window it stands.
struct Surface {
    const char* name;
    const char* clicks; ///< "connected" connects
    const char* window = "MainWindow";
    const char* grip = ""; ///< by which it is moved
    std::function<void(PanelRig&, Demo&)> prepare = [](PanelRig&, Demo&) {};
};

/// The longest that the front panel ever shows.
void fillDisplay(PanelRig& rig, Demo&)
{
    // A click would fade.
    for (const char* name : {"Output", "ROSC"})
        rig.get<QAbstractButton>(name).setChecked(true);
    rig.connectDevice();
    for (const char* name : {"wgtMaxPow", "label_328", "label_329"})
        rig.get(name).show();
    rig.get<QLineEdit>("FREQ").setText(QStringLiteral("20 000 000 000"));
    rig.get<QAction>("action_reading_3").trigger();
    rig.get<QAction>("action_offset").trigger();
    rig.get<QLineEdit>("line_offset").setText(QStringLiteral("-123.45"));
    rig.click("take_offset");
}

void fillList(PanelRig& rig, Demo&)
{
    auto& table = rig.get<QTableWidget>("table_List");
    table.setRowCount(3);
    const char* const cells[] = {"20 000 000 000", "-120", "100 000 000"};
    for (int column = 0; column < 3; ++column)
        table.setItem(0, column, new QTableWidgetItem(QLatin1String(cells[column])));
}

void fillSweep(PanelRig& rig, Demo&)
{
    for (const char* name : {"Start", "Stop", "Freq_Pow"})
        rig.get<QLineEdit>(name).setText(QStringLiteral("20 000 000 000"));
}

void saveProfiles(PanelRig& rig, Demo&)
{
    rig.saveProfile(QStringLiteral("a"));
    rig.saveProfile(QStringLiteral("The set-up of the long name that no row has the room for"));
}

void raisePower(PanelRig& rig, Demo&)
{
    rig.connectDevice();
    rig.enter("POW", QStringLiteral("-20"));
    rig.click("Output");
    rig.enter("POW", QStringLiteral("10"));
}

const Surface surfaces[] = {
    {"idle", "", "MainWindow", "title"},
    {"connected", "open_ROSC_FREQ", "MainWindow", "", fillDisplay},
    {"AM", "open_mod fold_AM_ Rect_Ampl"},
    {"FM", "open_mod fold_FM_ Random_FREQ"},
    {"PM", "open_mod fold_PM_ IntExt_PM"},
    {"pulse", "open_mod fold_PULM_"},
    {"LF sine", "open_gener sine_select"},
    {"LF square", "open_gener rectangle_select"},
    {"LF DC", "open_gener dc_select"},
    {"frequency sweep", "open_list", "MainWindow", "", fillSweep},
    {"power sweep", "open_list power_toFrom_freq logarithmicFrequency"},
    {"sweep that runs", "connected open_list button_Sweep", "MainWindow", "",
     [](PanelRig& rig, Demo&) { rig.get<QLineEdit>("Time").setText("1 000 000"); }},
    {"run with its panel closed", "connected open_list button_Sweep open_list", "MainWindow", "",
     [](PanelRig& rig, Demo&) { rig.get<QLineEdit>("Time").setText("1 000 000"); }},
    {"modulation with its panel closed", "open_mod Pulse open_mod"},
    {"list", "open_list List_is_Checked int_select", "MainWindow", "", fillList},
    {"list that runs", "connected open_list List_is_Checked button_List", "MainWindow", "",
     fillList},
    {"list by hand", "open_list List_is_Checked time_select"},
    {"profiles", "profiles rename_1", "MainWindow", "", saveProfiles},
    {"profile that differs", "profiles", "MainWindow", "",
     [](PanelRig& rig, Demo& demo) {
         saveProfiles(rig, demo);
         rig.enter("FREQ", QStringLiteral("5M"));
     }},
    {"question", "profiles delete_1", "Question", "dialog_title", saveProfiles},
    {"service", "connected service"},
    {"keypad of a frequency", "connected unit_FREQ", "keypad"},
    {"keypad of a step", "connected unit_POW keypad_step", "keypad"},
    {"keypad of a time", "connected open_list key_Time", "keypad"},
    {"keypad of the DAC", "connected service key_REF_OSC", "keypad"},
    {"About", "", "Form", "title",
     [](PanelRig& rig, Demo&) {
         rig.connectDevice();
         rig.get<Form>("Form").showAbout();
     }},
    {"log", "connected action_log", "ScpiLog", "dialog_title"},
    {"firmware", "", "Firmware", "lblCaption",
     [](PanelRig& rig, Demo&) { rig.get("Firmware").show(); }},
    {"power prompt", "connected butSetModePow", "WgtModePow", "lblModePowFirst"},
    {"last power prompt", "connected butSetModePow butYes butSetModePow", "WgtModePow"},
    {"power question", "", "PowerQuestion", "dialog_title", raisePower},
    {"highest power", "action_ceiling", "PowerCeiling", "dialog_title"},
    {"level at the device", "action_offset", "LevelOffset", "dialog_title"},
    {"error", "", "modal", "dialog_title",
     [](PanelRig& rig, Demo&) {
         ErrorBox::report(QStringLiteral("first \n second"), &rig.window());
     }},
    {"chooser", "connected", "modal", "dialog_title",
     [](PanelRig&, Demo& demo) {
         demo("instruments [1111]\nmodel=KLV-6G\n[22222222]\nmodel=KLV-20G\n[33333333]\n"
              "model=KLV-20G\n");
     }},
};

QWidget& open(const Surface& surface, PanelRig& rig, Demo& demo)
{
    surface.prepare(rig, demo);
    for (const QString& name : QString(surface.clicks).split(' ', Qt::SkipEmptyParts)) {
        if (name == QLatin1String("connected"))
            rig.connectDevice();
        else if (panelButtons.split(' ').contains(name))
            rig.openPanel(qPrintable(name));
        else if (name.startsWith(QLatin1String("action_")))
            rig.get<QAction>(qPrintable(name)).trigger();
        else
            rig.clickAll(name);
    }
    const auto folds = rig.window().findChildren<FoldBox*>();
    (void)QTest::qWaitFor([&] {
        return std::none_of(folds.begin(), folds.end(),
                            [](const FoldBox* box) { return box->isMoving(); });
    });
    if (QLatin1String(surface.window) == QLatin1String("MainWindow"))
        return rig.window();
    return QLatin1String(surface.window) == QLatin1String("modal")
               ? *QApplication::activeModalWidget()
               : rig.get(surface.window);
}
} // namespace

/// Every window and panel of the program in both languages, looked at and walked through by keys.
/// The environment says at which scale, since one process has one, and may name one language.
class PanelWalkTest : public PanelTest
{
    Q_OBJECT

private slots:
    void nothingIsInTheWay_data()
    {
        testColumns<int, QString>("index", "language");
        const QString languages = qEnvironmentVariable("KLV_TEST_LANGUAGES", "en ru");
        for (const QString& language : languages.split(' ')) {
            int index = 0;
            for (const Surface& surface : surfaces)
                testRow(QString("%1, %2").arg(surface.name, language), index++, language);
        }
    }

    void nothingIsInTheWay()
    {
        QFETCH(int, index);
        QFETCH(QString, language);
        StartOptions options = PanelRig::defaultOptions();
        options.language = language;
        begin(options);
        QWidget& window = open(surfaces[index], *m_rig, *m_demo);
        QVERIFY(window.isVisible());
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCoreApplication::processEvents();
        const QStringList faults = unnamedControls(window) + clippedTexts(window) +
                                   tooLarge(window) + overlaps(window) + ambiguousKeys(window) +
                                   tabFaults(window) + tabDetours(window);
        if (*surfaces[index].grip != '\0')
            isMovedBy(*window.findChild<QLabel*>(surfaces[index].grip));
        window.close();
        QVERIFY2(faults.isEmpty(), qPrintable('\n' + faults.join('\n')));
    }

private:
    static void isMovedBy(const QWidget& grip)
    {
        QWidget& window = *grip.window();
        window.move(50, 50);
        const QPoint at = grip.mapTo(&window, QPoint(5, 5));
        QWindow* const hand = window.windowHandle();
        // By none of its controls, nor by the unrest of a hand.
        const auto buttons = window.findChildren<QAbstractButton*>();
        const auto* control = *std::find_if(buttons.begin(), buttons.end(), [](auto* button) {
            return button->isVisible() && button->isEnabled();
        });
        const QPoint held = control->mapTo(&window, QPoint(5, 5));
        QTest::mousePress(hand, Qt::LeftButton, {}, held);
        QTest::mouseMove(hand, held + QPoint(60, 400));
        QTest::mouseRelease(hand, Qt::LeftButton, {}, held + QPoint(60, 400));
        QTest::mousePress(hand, Qt::LeftButton, {}, at);
        QTest::mouseMove(hand, at + QPoint(1, 1));
        QCOMPARE(window.pos(), QPoint(50, 50));
        QTest::mouseMove(hand, at + QPoint(60, 40));
        QTest::mouseRelease(hand, Qt::LeftButton, {}, at);
        QCOMPARE(window.pos(), QPoint(110, 90));
        QTest::mouseMove(hand, at + QPoint(20, 20));
        QCOMPARE(window.pos(), QPoint(110, 90));
    }
};

QTEST_MAIN(PanelWalkTest)
#include "panel_walk_test.moc"
