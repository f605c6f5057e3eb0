#include "tests/app/panel_walk.h"

#include "app/side_panels.h"
#include "connection/gui_list_klv.h"
#include "fields/keypad/keypad.h"
#include "link/instrument_limits.h"
#include "modulation/fold_box.h"
#include "service/about_box.h"
#include "service/firmware_dialog.h"
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
const char* const threeInstruments =
    "instruments [1111]\nmodel=KLV-6G\n[22222222]\nmodel=KLV-20G\n[33333333]\nmodel=KLV-20G\n";

/// Something to look at: has the program show it and tells in which window it stands.
struct Surface {
    const char* name;
    std::function<QWidget*(PanelRig&)> open;
};

/// The window with one side panel, and in it what the clicks have brought up.
QWidget* openPanel(PanelRig& rig, const char* toggle, std::initializer_list<const char*> clicks)
{
    rig.click(toggle);
    if (!QTest::qWaitFor([] { return !SidePanels::moving(); }))
        return nullptr;
    for (const char* click : clicks)
        rig.get<QAbstractButton>(click).click();
    const auto isFolding = [](const FoldBox* box) { return box->isMoving(); };
    const auto folds = rig.window().findChildren<FoldBox*>();
    const auto isSettled = [&] { return std::none_of(folds.begin(), folds.end(), isFolding); };
    return QTest::qWaitFor(isSettled) ? &rig.window() : nullptr;
}

QWidget* openSet(PanelRig& rig)
{
    // The longest that the front panel ever shows.
    rig.connectDevice();
    for (const char* name : {"wgtMaxPow", "label_328", "label_329"})
        rig.get(name).show();
    rig.get<QLineEdit>("FREQ").setText(QStringLiteral("20 000 000 000"));
    rig.click("Output");
    rig.click("ROSC");
    rig.click("open_ROSC_FREQ");
    return &rig.window();
}

QWidget* openList(PanelRig& rig)
{
    auto& table = rig.get<QTableWidget>("table_List");
    table.setRowCount(3);
    const char* const cells[] = {"20 000 000 000", "-120", "100 000 000"};
    for (int column = 0; column < 3; ++column)
        table.setItem(0, column, new QTableWidgetItem(QLatin1String(cells[column])));
    return openPanel(rig, "open_list", {"List_is_Checked", "int_select"});
}

QWidget* openRun(PanelRig& rig)
{
    rig.connectDevice();
    rig.get<QLineEdit>("Time").setText(QStringLiteral("1 000 000"));
    return openPanel(rig, "open_list", {"button_Sweep"});
}

QWidget* openProfiles(PanelRig& rig)
{
    openPanel(rig, "profiles", {});
    for (const char* name : {"a", "The set-up of the long name that no row has the room for"}) {
        rig.get<QLineEdit>("profile_name").setText(QLatin1String(name));
        rig.click("save_quick");
    }
    rig.click("rename_1");
    return &rig.window();
}

QWidget* openService(PanelRig& rig)
{
    rig.connectDevice();
    return openPanel(rig, "service", {});
}

QWidget* openKeypad(PanelRig& rig, const char* toggle, std::initializer_list<const char*> clicks)
{
    rig.connectDevice();
    if (toggle)
        openPanel(rig, toggle, {});
    for (const char* click : clicks)
        rig.get<QAbstractButton>(click).click();
    return rig.window().findChild<Keypad*>();
}

QWidget* openAbout(PanelRig& rig)
{
    rig.connectDevice();
    auto* about = rig.window().findChild<Form*>();
    about->showAbout();
    return about;
}

QWidget* openLog(PanelRig& rig)
{
    rig.connectDevice();
    rig.window().findChild<QAction*>("action_log")->trigger();
    return &rig.get("ScpiLog");
}

QWidget* openFirmware(PanelRig& rig)
{
    auto* dialog = rig.window().findChild<Firmware*>();
    dialog->show();
    return dialog;
}

QWidget* openPrompt(PanelRig& rig, bool isLast)
{
    rig.connectDevice();
    rig.click("butSetModePow");
    QWidget& prompt = rig.get("WgtModePow");
    if (isLast) {
        prompt.findChild<QAbstractButton*>("butYes")->click();
        rig.click("butSetModePow");
    }
    return &prompt;
}

QWidget* openQuestion(PanelRig& rig)
{
    rig.connectDevice();
    rig.enter("POW", QStringLiteral("-20"));
    rig.click("Output");
    rig.enter("POW", QStringLiteral("10"));
    return &rig.get("PowerQuestion");
}

QWidget* openCeiling(PanelRig& rig)
{
    rig.window().findChild<QAction*>("action_ceiling")->trigger();
    return &rig.get("PowerCeiling");
}

QWidget* openChooser(PanelRig& rig)
{
    rig.connectDevice();
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (window->isVisible() && qobject_cast<GuiListKLV*>(window))
            return window;
    }
    return nullptr;
}

const Surface surfaces[] = {
    {"idle", [](PanelRig& rig) { return &rig.window(); }},
    {"connected", openSet},
    {"AM",
     [](PanelRig& rig) {
         return openPanel(rig, "open_mod", {"fold_AM_", "Rect_Ampl"});
     }},
    {"FM",
     [](PanelRig& rig) {
         return openPanel(rig, "open_mod", {"fold_FM_", "Random_FREQ"});
     }},
    {"PM",
     [](PanelRig& rig) {
         return openPanel(rig, "open_mod", {"fold_PM_", "IntExt_PM"});
     }},
    {"pulse", [](PanelRig& rig) { return openPanel(rig, "open_mod", {"fold_PULM_"}); }},
    {"LF sine", [](PanelRig& rig) { return openPanel(rig, "open_gener", {"sine_select"}); }},
    {"LF square", [](PanelRig& rig) { return openPanel(rig, "open_gener", {"rectangle_select"}); }},
    {"LF DC", [](PanelRig& rig) { return openPanel(rig, "open_gener", {"dc_select"}); }},
    {"frequency sweep", [](PanelRig& rig) { return openPanel(rig, "open_list", {}); }},
    {"power sweep",
     [](PanelRig& rig) {
         return openPanel(rig, "open_list", {"power_toFrom_freq", "logarithmicFrequency"});
     }},
    {"sweep that runs", openRun},
    {"list", openList},
    {"list by hand",
     [](PanelRig& rig) {
         return openPanel(rig, "open_list", {"List_is_Checked", "time_select"});
     }},
    {"profiles", openProfiles},
    {"service", openService},
    {"keypad of a frequency", [](PanelRig& rig) { return openKeypad(rig, nullptr, {"key_FREQ"}); }},
    {"keypad of a step",
     [](PanelRig& rig) {
         return openKeypad(rig, nullptr, {"key_POW", "keypad_step"});
     }},
    {"keypad of a time", [](PanelRig& rig) { return openKeypad(rig, "open_list", {"key_Time"}); }},
    {"keypad of the DAC",
     [](PanelRig& rig) { return openKeypad(rig, "service", {"key_REF_OSC"}); }},
    {"About", openAbout},
    {"log", openLog},
    {"firmware", openFirmware},
    {"power prompt", [](PanelRig& rig) { return openPrompt(rig, false); }},
    {"last power prompt", [](PanelRig& rig) { return openPrompt(rig, true); }},
    {"power question", openQuestion},
    {"highest power", openCeiling},
    {"error",
     [](PanelRig& rig) {
         return ErrorBox::report(QStringLiteral("first \n second"), &rig.window());
     }},
    {"chooser", openChooser},
};
} // namespace

/// Every window and panel of the program in both languages, looked at and walked through by keys.
/// At which scale is the environment's: one process has one.
class PanelWalkTest : public PanelTest
{
    Q_OBJECT

private slots:
    void nothingIsInTheWay_data();
    void nothingIsInTheWay();
    void everyWindowIsMovedByItsTitle_data();
    void everyWindowIsMovedByItsTitle();
};

void PanelWalkTest::nothingIsInTheWay_data()
{
    testColumns<int, QString>("index", "language");
    for (const QString& language : {QStringLiteral("en"), QStringLiteral("ru")}) {
        int index = 0;
        for (const Surface& surface : surfaces)
            QTest::addRow("%s, %s", surface.name, qPrintable(language)) << index++ << language;
    }
}

void PanelWalkTest::nothingIsInTheWay()
{
    QFETCH(int, index);
    QFETCH(QString, language);
    const Surface& surface = surfaces[index];
    if (QLatin1String(surface.name) == QLatin1String("chooser"))
        (*m_demo)(QString::fromLatin1(threeInstruments));
    StartOptions options = PanelRig::defaultOptions();
    options.language = language;
    options.isClean = true;
    PanelRig rig(options);
    QWidget* window = surface.open(rig);
    QVERIFY(window && window->isVisible());
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QCoreApplication::processEvents();
    const QStringList faults = unnamedControls(*window) + clippedTexts(*window) +
                               overlaps(*window) + ambiguousKeys(*window) + tabFaults(*window);
    window->close();
    QVERIFY2(faults.isEmpty(), qPrintable('\n' + faults.join('\n')));
}

void PanelWalkTest::everyWindowIsMovedByItsTitle_data()
{
    testColumns<QString, QString>("surface", "grip");
    for (const char* const dialog : {"power question", "highest power", "error"})
        testRow(dialog, dialog, "dialog_title");
    testRow("window", "idle", "title");
    testRow("About", "About", "title");
    testRow("log", "log", "dialog_title");
    testRow("firmware", "firmware", "lblCaption");
    testRow("power prompt", "power prompt", "lblModePowFirst");
}

void PanelWalkTest::everyWindowIsMovedByItsTitle()
{
    QFETCH(QString, surface);
    QFETCH(QString, grip);
    PanelRig rig;
    const auto* const found =
        std::find_if(std::begin(surfaces), std::end(surfaces),
                     [&](const Surface& each) { return QLatin1String(each.name) == surface; });
    QWidget* window = found->open(rig);
    QVERIFY(QTest::qWaitForWindowExposed(window));
    window->move(50, 50);
    const QPoint at = window->findChild<QLabel*>(grip)->mapTo(window, QPoint(5, 5));
    QWindow* const hand = window->windowHandle();
    QTest::mousePress(hand, Qt::LeftButton, {}, at);
    QTest::mouseMove(hand, at + QPoint(60, 40));
    QTest::mouseRelease(hand, Qt::LeftButton, {}, at);
    QCOMPARE(window->pos(), QPoint(110, 90));
    QTest::mouseMove(hand, at + QPoint(20, 20));
    QCOMPARE(window->pos(), QPoint(110, 90));
}

QTEST_MAIN(PanelWalkTest)
#include "panel_walk_test.moc"
