#include "app/side_panels.h"
#include "link/activity.h"
#include "link/pause.h"
#include "numbers/number_text.h"
#include "tests/soak/soak_hands.h"
#include "tests/support/documents_folder.h"
#include "tests/support/panel_rig.h"

#include <QApplication>
#include <QLineEdit>
#include <QTemporaryDir>

#include <clocale>
#include <cmath>
#include <cstdio>

namespace
{

constexpr int calmMs = 1200; // longer than any pause of a sequence
constexpr int calmAtMostMs = 60000;
constexpr int actionsBetween = 40;
constexpr int restMs = 20;

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
    QStringList round();
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
    void act();
    bool comeToRest();
    QStringList differences();
    bool isChecked(const char* name) { return m_rig.get<QPushButton>(name).isChecked(); }
    QString ask(const char* query) { return m_demo("ask " + QString(query)).trimmed(); }

    Demo& m_demo;
    PanelRig m_rig;
    SoakHands m_hands;
    int m_left = 0; ///< actions of this round
    int m_compared = 0;
};

// From a timer, so that the hands go on in dialogs and in the pauses of sequences, also of those
// that they began themselves.
void Soak::act()
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

QStringList Soak::round()
{
    if (!m_rig.isConnected())
        m_rig.click("connect");
    m_left = actionsBetween;
    (void)QTest::qWaitFor([this] { return m_left == 0; }, calmAtMostMs);
    return comeToRest() ? differences()
                        : QStringList("it does not come to rest: " +
                                      Activities::global().texts().join(", "));
}

bool Soak::comeToRest()
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

QStringList Soak::differences()
{
    if (!m_rig.isConnected())
        return {};
    ++m_compared;
    QStringList found;
    const auto compare = [&found](const QString& what, const QString& panel, const QString& there) {
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
            isOn = isOn || isChecked(qPrintable(name));
        compare(row.query, isOn ? "1" : "0", ask(row.query));
    }
    compare("RF lamp", m_rig.get("label_RF").isEnabled() ? "1" : "0", ask("OUTP?"));
    compare("max power", m_rig.get("wgtMaxPow").isHidden() ? "0" : "1", ask("POW:BOOS?"));
    compare("reference", isChecked("ROSC") ? "EXT" : "INT", ask("ROSC:SOUR?"));
    const bool isRunning = isChecked("button_Sweep") || isChecked("button_List");
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

} // namespace

/// soak MINUTES SEED: ends with 1 at the first difference, and says what was done before it.
int main(int count, char* arguments[])
{
    QTemporaryDir folder;
    const QString instruments = folder.filePath("instruments.ini");
    QFile file(instruments);
    if (count != 3 || !file.open(QIODevice::WriteOnly) ||
        file.write("[20215678]\nmodel=KLV-20G\n") < 0)
        return 2;
    file.close();
    qputenv("KLV_DEMO_FILE", QFile::encodeName(instruments));
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
