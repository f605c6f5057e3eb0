#include "app/side_panels.h"
#include "link/activity.h"
#include "link/pause.h"
#include "numbers/number_text.h"
#include "tests/support/documents_folder.h"
#include "tests/support/files.h"
#include "tests/support/panel_rig.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>

#include <clocale>
#include <cmath>
#include <cstdio>
#include <random>

namespace
{
constexpr int saidAtMost = 40;

/// They end the program, leave it, or rewrite the instrument.
const QStringList untouched = {"closeWindow", "minimize",       "butUpdate",
                               "menuButton",  "applyCalibrate", "qt_"};
const QStringList texts = {"1",         "-7",    "13",  "2.5G", "20", "0",
                           "1 000 000", "33.3k", "--5", "1e9",  "",   "999999999999"};
const QList<Qt::Key> keys = {Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Up,     Qt::Key_Down,
                             Qt::Key_Left, Qt::Key_Space,   Qt::Key_Return, Qt::Key_Escape,
                             Qt::Key_5,    Qt::Key_Delete,  Qt::Key_Minus,  Qt::Key_PageUp};
const QStringList fileNames = {"one.csv", "two.csv", "one.xml", "two.xml", "three"};
const QStringList faults = {"status 0xBFFF0015", "status 0xBFFF00A6", "reply rubbish\\n",
                            "length 70000",      "endless",           "error -222",
                            "condition 328 on",  "condition 328 off", "trigger rising",
                            "trigger falling",   "latency 3000",      "latency 0"};
constexpr int faultsOfCalls = 5; ///< the first of them

template <typename Widget>
QList<Widget*> usable(QWidget& window)
{
    QList<Widget*> found;
    for (auto* widget : window.findChildren<Widget*>()) {
        const bool isLeftAlone =
            std::any_of(untouched.begin(), untouched.end(),
                        [&](const QString& name) { return widget->objectName().startsWith(name); });
        if (widget->isVisible() && widget->isEnabled() && !isLeftAlone)
            found << widget;
    }
    return found;
}

QWidget* inTheWay()
{
    QWidget* popup = QApplication::activePopupWidget();
    return popup ? popup : QApplication::activeModalWidget();
}

constexpr int calmMs = 1200; // longer than any pause of a sequence
constexpr int calmAtMostMs = 60000;
constexpr int actionsBetween = 40;
constexpr int restMs = 20;

/// Hands that do anything: clicks, keys and texts on what is to be seen, cables and faults behind
/// it. The same seed asks for the same; what it meets depends on time.
class SoakHands
{
public:
    /// `instrumentFile` is what KLV_DEMO_FILE names.
    SoakHands(unsigned seed, QWidget& window, Demo& demo, const QString& instrumentFile)
        : m_random(seed), m_window(window), m_demo(demo), m_instrumentFile(instrumentFile)
    {
        m_sincePlugged.start();
    }

    /// One action. Answers what stands in the way first: dialogs, menus, popups.
    void act()
    {
        QWidget* window = inTheWay();
        const int what = below(100);
        if (window && (what < 50 || qobject_cast<QFileDialog*>(window))) {
            answer(*window);
            return;
        }
        if (!window)
            window = &m_window;
        if (what < 3)
            disturb();
        else if (what < 60)
            click<QAbstractButton>(*window);
        else if (what < 80)
            type(*window, any(texts));
        else
            press(*window);
    }

    /// The cable in, what stands in the way answered, nothing half typed. To be called again until
    /// all is still: what is then seen can be compared.
    void rest()
    {
        if (!m_isPlugged)
            plug(true);
        m_demo(QStringLiteral("latency 0"));
        if (QWidget* window = inTheWay())
            answer(*window);
        else if (QWidget* focused = QApplication::focusWidget())
            focused->clearFocus();
    }

    /// The last actions, oldest first.
    QStringList said() const { return m_said; }

private:
    int below(int bound) { return static_cast<int>(m_random() % static_cast<unsigned>(bound)); }
    template <typename Item>
    Item any(const QList<Item>& items)
    {
        return items.at(below(items.size()));
    }

    void say(const QString& what)
    {
        m_said << what;
        if (m_said.size() > saidAtMost)
            m_said.removeFirst();
    }

    /// By its buttons or by Escape. What else there is in a file dialog leads to any folder and
    /// deletes.
    void answer(QWidget& window)
    {
        const bool isOfFiles = qobject_cast<QFileDialog*>(&window);
        if (isOfFiles && below(2) == 0) {
            type(window, any(fileNames));
        } else if (below(4) == 0 || !click<QPushButton>(window)) {
            say("Escape in " + window.objectName());
            QTest::keyClick(&window, Qt::Key_Escape);
        }
    }

    template <typename Button>
    bool click(QWidget& window)
    {
        const auto buttons = usable<Button>(window);
        if (buttons.isEmpty())
            return false;
        QAbstractButton* button = any(buttons);
        // Most rounds are to end connected, where there is something to compare.
        if (button->objectName() == "connect" && below(4) > 0)
            return true;
        say("click " + button->objectName() + ' ' + button->text());
        QTest::mouseClick(button, Qt::LeftButton);
        return true;
    }

    void type(QWidget& window, const QString& text)
    {
        const auto fields = usable<QLineEdit>(window);
        if (fields.isEmpty())
            return;
        QPointer<QLineEdit> field = any(fields);
        say("type \"" + text + "\" into " + field->objectName());
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, text);
        if (field && below(4) > 0)
            QTest::keyClick(field, Qt::Key_Return);
    }

    void press(QWidget& window)
    {
        QWidget* focused = QApplication::focusWidget();
        const Qt::Key key = any(keys);
        QWidget* target = focused && window.isAncestorOf(focused) ? focused : &window;
        say(QStringLiteral("key %1 in %2")
                .arg(QVariant::fromValue(key).toInt(), 0, 16)
                .arg(target->objectName()));
        QTest::keyClick(target, key);
    }

    void disturb()
    {
        if (!m_isPlugged || below(3) == 0) {
            plug(!m_isPlugged);
            return;
        }
        // What is plugged in is known a moment later.
        if (!m_sincePlugged.hasExpired(500))
            return;
        const QString fault = any(faults);
        const int call = 1 + below(4);
        say(fault + QStringLiteral(" at call %1").arg(call));
        if (faults.indexOf(fault) >= faultsOfCalls) {
            m_demo(fault);
            return;
        }
        // A session that fails goes on failing: a few lost commands alone, as many as are sent
        // without a look at what became of them, would not be noticed.
        const int failures = fault.startsWith("status") ? 8 : 1;
        for (int failing = call; failing < call + failures; ++failing)
            m_demo(QStringLiteral("fault %1 %2").arg(failing).arg(fault));
    }

    void plug(bool isIn)
    {
        say(isIn ? "plug in" : "pull the cable");
        m_isPlugged = isIn;
        m_sincePlugged.start();
        QSaveFile file(m_instrumentFile);
        if (!file.open(QIODevice::WriteOnly) ||
            file.write(isIn ? "[20215678]\nmodel=KLV-20G\n" : "# none\n") < 0 || !file.commit())
            qFatal("%s", qUtf8Printable(file.errorString()));
    }

    std::mt19937 m_random;
    QWidget& m_window;
    Demo& m_demo;
    QString m_instrumentFile;
    QStringList m_said;
    bool m_isPlugged = true;
    QElapsedTimer m_sincePlugged;
};

/// The panel over its instrument: acts for a while, lets both come to rest, and compares them.
class Soak
{
public:
    Soak(unsigned seed, Demo& demo, const QString& instrumentFile)
        : m_demo(demo), m_rig(options()), m_hands(seed, m_rig.window(), demo, instrumentFile)
    {
        m_rig.window().start();
        act();
    }

    /// What differs, or nothing.
    QStringList round()
    {
        if (!m_rig.isConnected())
            m_rig.click("connect");
        m_left = actionsBetween;
        (void)QTest::qWaitFor([this] { return m_left == 0; }, calmAtMostMs);
        return comeToRest() ? differences()
                            : QStringList("it does not come to rest: " +
                                          Activities::global().texts().join(", "));
    }

    QStringList said() const { return m_hands.said(); }
    /// Rounds at whose end an instrument was connected.
    int compared() const { return m_compared; }

private:
    static StartOptions options()
    {
        StartOptions options = PanelRig::defaultOptions();
        options.isDemo = true;
        return options;
    }

    // From a timer, so that the hands go on in dialogs and in the pauses of sequences, also of
    // those that they began themselves.
    void act()
    {
        QTimer::singleShot(m_left > 0 ? 10 + m_left % 7 * 25 : restMs, &m_rig.window(), [this] {
            act();
            if (m_left > 0) {
                --m_left;
                m_hands.act();
            } else {
                m_hands.rest();
            }
        });
    }

    bool comeToRest()
    {
        QElapsedTimer all;
        QElapsedTimer calm;
        all.start();
        for (calm.start(); calm.elapsed() < calmMs; QTest::qWait(20)) {
            const bool isBusy = QGuiApplication::overrideCursor() || SidePanels::moving() ||
                                QApplication::activeModalWidget() ||
                                QApplication::activePopupWidget() ||
                                !Activities::global().texts().isEmpty();
            if (isBusy)
                calm.restart();
            if (all.elapsed() > calmAtMostMs)
                return false;
        }
        return true;
    }

    QStringList differences()
    {
        if (!m_rig.isConnected())
            return {};
        ++m_compared;
        QStringList found;
        const auto compare = [&found](const QString& what, const QString& panel,
                                      const QString& there) {
            if (panel != there)
                found << what + ": " + panel + " on the panel, " + there + " at the instrument";
        };
        const auto number = [](double value) { return QString::number(value, 'g', 10); };
        const struct {
            const char* buttons;
            const char* query;
        } switches[] = {{"Output", "OUTP?"},
                        {"AM", "AM:STAT?"},
                        {"FM", "FM:STAT?"},
                        {"PM", "PM:STAT?"},
                        {"Pulse", "PULM:STAT?"},
                        {"sine_select rectangle_select triangle_select sawPos_select sawNeg_select "
                         "random_select dc_select",
                         "LFO:STAT?"}};
        for (const auto& row : switches) {
            bool isOn = false;
            for (const QString& name : QString(row.buttons).split(' '))
                isOn = isOn || m_rig.isChecked(qPrintable(name));
            compare(row.query, isOn ? "1" : "0", ask(row.query));
        }
        compare("RF lamp", m_rig.get("label_RF").isEnabled() ? "1" : "0", ask("OUTP?"));
        compare("max power", m_rig.get("wgtMaxPow").isHidden() ? "0" : "1", ask("POW:BOOS?"));
        compare("reference", m_rig.isChecked("ROSC") ? "EXT" : "INT", ask("ROSC:SOUR?"));
        const bool isRunning = m_rig.isChecked("button_Sweep") || m_rig.isChecked("button_List");
        const QString modes = ask("FREQ:MODE?;:POW:MODE?");
        compare("run", isRunning ? "on" : "off", modes == "FIX;FIX" ? "off" : "on");
        for (const char* name : {"FREQ", "POW"}) {
            // What is marked as edited does not claim to be what the instrument has.
            const auto& field = m_rig.get<QLineEdit>(name);
            if (!isRunning && !field.property("edited").toBool())
                compare(name, number(toNumber(field.text())),
                        number(ask(qPrintable(QString(name) + '?')).toDouble()));
        }
        return found;
    }

    QString ask(const char* query) { return m_demo("ask " + QString(query)).trimmed(); }

    Demo& m_demo;
    PanelRig m_rig;
    SoakHands m_hands;
    int m_left = 0; ///< actions of this round
    int m_compared = 0;
};
} // namespace

/// soak MINUTES SEED: ends with 1 at the first difference, and says what was done before it.
int main(int count, char* arguments[])
{
    QTemporaryDir folder;
    const QString instruments = folder.filePath("instruments.ini");
    if (count != 3)
        return 2;
    qputenv("KLV_DEMO_FILE",
            QFile::encodeName(writeFile(instruments, "[20215678]\nmodel=KLV-20G\n")));
    const DocumentsFolder documents(folder.path());
    QApplication application(count, arguments);
    std::setlocale(LC_NUMERIC, "C");
    QCoreApplication::setOrganizationName(QStringLiteral("Veltro"));
    QCoreApplication::setApplicationName(QStringLiteral("KLV"));
    const unsigned seed = QString(arguments[2]).toUInt();
    const qint64 longestMs = QString(arguments[1]).toInt() * 60000LL;

    Demo demo;
    pauses().share = 1.0; // as the program
    Soak soak(seed, demo, instruments);
    QElapsedTimer elapsed;
    elapsed.start();
    int rounds = 0;
    for (; elapsed.elapsed() < longestMs; ++rounds) {
        const QStringList differences = soak.round();
        demo(QStringLiteral("clear"));
        if (differences.isEmpty())
            continue;
        std::printf("seed %u, round %d\n  %s\nthe last actions:\n  %s\n", seed, rounds,
                    qPrintable(differences.join("\n  ")), qPrintable(soak.said().join("\n  ")));
        return 1;
    }
    std::printf("seed %u: %d rounds of %d actions, panel and instrument agreed in the %d of them "
                "that ended connected\n",
                seed, rounds, actionsBetween, soak.compared());
    return soak.compared() > 0 ? 0 : 1;
}
