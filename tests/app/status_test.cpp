#include "fields/number_edit.h"
#include "link/activity.h"
#include "link/pause.h"
#include "tests/support/files.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"

#include <QDesktopServices>
#include <QLabel>
#include <QTableWidget>
#include <QTextDocument>

namespace
{
const QString loss =
    QStringLiteral("connection error: the instrument was switched off or unplugged");

/// The texts with which a label was painted since this was made.
class Painted : public QObject
{
public:
    explicit Painted(QLabel& label) : m_label(label) { label.installEventFilter(this); }

    const QStringList& texts() const { return m_texts; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            m_texts << m_label.text();
        return QObject::eventFilter(watched, event);
    }

private:
    QLabel& m_label;
    QStringList m_texts;
};
} // namespace

/// What the status line tells: what goes on, and why there is no connection.
class StatusTest : public PanelTest
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        connect(&Activities::global(), &Activities::changed, this, [this] {
            const QString now = Activities::global().texts().join(" / ");
            if (!now.isEmpty() && (m_said.isEmpty() || m_said.last() != now))
                m_said << now;
        });
    }

    void init()
    {
        PanelTest::init();
        pauses().messageShare = 0.1;
        beginConnected();
    }

    void aLossIsNotHidden()
    {
        (*m_demo)("unplug");
        m_rig->enter("FREQ", "5M");
        QCOMPARE(m_rig->status(), loss);
        m_rig->get<NumberEdit>("FREQ").context().notices.say([] { return QString("in passing"); });
        QCOMPARE(m_rig->status(), loss);
        // Once it has been read, the message has its turn, and then the loss is back.
        QTRY_COMPARE(m_rig->status(), QString("in passing"));
        QTRY_COMPARE(m_rig->status(), loss);
        // Beside the next search, too.
        (*m_demo)("plug");
        m_rig->click("connect");
        QVERIFY(m_rig->status().startsWith("Searching"));
        QVERIFY(m_rig->status().contains("connection error"));
        QTRY_VERIFY(m_rig->isConnected());
        QTRY_COMPARE(m_rig->status(), QString());
    }

    void whatIsGoneIsNotSpokenOf()
    {
        const auto row = freshRows(this, [this](const QString& set, const QString& status) {
            m_rig->click("ROSC");
            (*m_demo)(set);
            m_rig->enter("FREQ", "5M");
            QCOMPARE(m_rig->status(), status);
            (*m_demo)("unplug");
            m_rig->enter("FREQ", "6M");
            QCOMPARE(m_rig->status(), loss);
            // For as long as a message would wait for its turn, and a little more.
            QVERIFY(!QTest::qWaitFor([&] { return m_rig->status() != loss; }, 650));
        });
        row("reference", "condition 328 on", "The external reference is not locked");
        row("error", "error -222", "-222, Data out of range after FREQ 5000000.000000 Hz;FREQ?");
    }

    void instrumentTextsArePlain_data()
    {
        testNames("text", {"<b>bold</b>", "<img src=x>", "&lt;b&gt;", "<!DOCTYPE", "a\\x01b"});
        testRow("long", QString(3000, 'x'));
        testRow("long and rich", QString("<u>").repeated(1000));
    }

    void instrumentTextsArePlain()
    {
        QFETCH(QString, text);
        (*m_demo)("error 329 " + text);
        m_rig->enter("FREQ", "5M");
        QStringList shown(m_rig->get("label_329").toolTip());
        QVERIFY(shown.first().startsWith("329"));
        if (text.startsWith("<b>"))
            QVERIFY(QString(shown.first()).remove(QChar(0x2060)).contains(text));
        // The pattern of the identity reply leaves room in its last field.
        m_rig->click("connect");
        (*m_demo)("reply *IDN? -> Veltro,KLV-20G,1234,2.7 " + text);
        (*m_demo)("reply MEM:MSC? -> OFF");
        (*m_demo)("reply SERV:SOUR:CDUE? -> " + text);
        m_rig->connectDevice();
        QVERIFY(m_rig->isConnected());
        const auto labels = m_rig->window().findChildren<QLabel*>();
        for (const QLabel* label : labels) {
            if (label->text().contains("2.7 ") || label->objectName() == "lbl_CalibrateData")
                shown << label->text();
        }
        QVERIFY(shown.size() >= 4);
        for (const QString& each : qAsConst(shown))
            QVERIFY2(!Qt::mightBeRichText(each) && each.size() <= 220, qPrintable(each));
    }

    void helpOpensThePageOfThePanel()
    {
        const auto row = freshRows(this, [this](const QString& button, const QString& page) {
            m_rig->clickAll(button);
            const QString folder = QCoreApplication::applicationDirPath() + "/manual";
            const auto pressHelp = [this] {
                QTest::keyClick(m_rig->window().windowHandle(), Qt::Key_F1);
                return m_rig->status();
            };
            QVERIFY2(pressHelp().startsWith("There is no help file"), qPrintable(m_rig->status()));
            const QString file = writeFile(folder + "/en/" + page + ".html");
            if (QSysInfo::productType() != "windows") {
                QDesktopServices::setUrlHandler("file", this, "takeUrl");
                pressHelp();
                QDesktopServices::unsetUrlHandler("file");
                QCOMPARE(m_opened.toLocalFile(), file);
                // Nothing opens anything on the offscreen platform.
                QVERIFY2(pressHelp().startsWith("No program"), qPrintable(m_rig->status()));
            }
            QVERIFY(QDir(folder).removeRecursively());
        });
        row("none", "", "index");
        row("modulation", "open_mod", "modulation");
        row("sweep", "open_list", "sweep");
        row("LF generator", "open_gener", "lf-generator");
        row("profiles", "profiles", "profiles");
        row("service", "service", "service");
    }

    void tellsWhatGoesOn()
    {
        const auto row = freshRows(this, [this](const QString& clicked, const QString& text) {
            m_rig->get<QTableWidget>("table_List").setRowCount(70);
            if (clicked == "quick_1") {
                m_rig->clickAll("connect AM");
                m_rig->saveProfile("one");
                m_rig->clickAll("AM");
                (*m_demo)("reply MEM:MSC? -> OFF");
                m_rig->connectDevice();
            }
            if (clicked == "applyCalibrate")
                m_rig->openPanel("service");
            m_said.clear();
            m_rig->clickAll(clicked);
            QTRY_VERIFY2(!m_said.filter(text).isEmpty(), qPrintable(m_said.join('\n')));
            QTRY_VERIFY(Activities::global().texts().isEmpty());
            QVERIFY(m_rig->isConnected());
        });
        row("modulation", "AM", "Setting the modulation");
        row("pulses", "Pulse", "Setting the modulation");
        row("LF", "sine_select", "Setting the LF generator");
        row("sweep", "button_Sweep", "Starting the sweep");
        row("list", "List_is_Checked button_List",
            "Starting the list / Transferring the table: list 2");
        row("calibration", "applyCalibrate", "Writing the calibration table: row 2 of");
        row("service", "service", "Reading the calibration table");
        row("profile", "quick_1", "Applying the profile... / Setting the modulation");
    }

    /// What went well does not look like a warning.
    void successIsNoWarning()
    {
        const auto look = [this] {
            const QWidget& line = m_rig->get("status");
            return QString(line.property("warning").toBool() ? "warning" : "") +
                   (line.property("lit").toBool() ? "done" : "");
        };
        m_rig->saveProfile("one");
        m_rig->openPanel("profiles");
        m_rig->clickAll("quick_1");
        QTRY_COMPARE(m_rig->status(), QString("Profile applied: one"));
        QCOMPARE(look(), QString("done"));
        m_rig->enter("profile_name", "last");
        QTRY_COMPARE(m_rig->status(), QString("This name is reserved: last"));
        QCOMPARE(look(), QString("warning"));
        (*m_demo)("unplug");
        m_rig->enter("FREQ", "5M");
        QCOMPARE(look(), QString("warning"));
    }

    void tellsOfASlowInstrument()
    {
        m_said.clear();
        m_rig->enter("FREQ", "5M");
        QVERIFY(m_said.isEmpty());
        (*m_demo)("latency 320000");
        m_rig->enter("FREQ", "6M");
        const QString waiting = "waiting for the instrument to answer";
        QCOMPARE(m_said, QStringList(waiting));
        // To be seen, however soon it follows another text.
        const Painted painted(m_rig->get<QLabel>("status"));
        {
            const Activity step([] { return QStringLiteral("step"); });
            m_rig->enter("FREQ", "7M");
        }
        QVERIFY(!painted.texts().filter(waiting).isEmpty());
        (*m_demo)("latency 0");
        QCOMPARE(m_rig->status(), QString());
    }

    void followsTheLanguage()
    {
        (*m_demo)("unplug");
        m_rig->enter("FREQ", "5M");
        const QString lost = m_rig->status();
        {
            const Activity activity([] { return Connection::tr("Choose an instrument"); });
            const QString choosing = m_rig->status();
            QVERIFY(choosing != lost);
            m_rig->choose("ru");
            QVERIFY2(m_rig->status() != choosing, qPrintable(choosing));
        }
        QVERIFY2(m_rig->status() != lost, qPrintable(lost));
    }

public slots:
    void takeUrl(const QUrl& url) { m_opened = url; }

private:
    QUrl m_opened;
    QStringList m_said; ///< to go on, since it was cleared
};

QTEST_MAIN(StatusTest)
#include "status_test.moc"
