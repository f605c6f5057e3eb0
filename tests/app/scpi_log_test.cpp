#include "link/pause.h"
#include "link/scpi_session.h"
#include "log/log_model.h"
#include "log/log_text.h"
#include "log/python_script.h"
#include "log/scpi_log.h"
#include "tests/support/files.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"
#include "ui/files/whole_file.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>

#include <algorithm>

namespace
{
Exchange exchangeOf(const QString& sent, const QString& answered = {})
{
    Exchange exchange;
    exchange.sent = sent;
    exchange.answered = answered;
    return exchange;
}

/// What a script sends to the simulated instrument, escaped, without its look at the error queue;
/// a failure to run at all as the only line.
QStringList sentByScript(const QByteArray& script, const QStringList& arguments = {})
{
    QTemporaryDir folder;
    const QString file = writeFile(folder.filePath("script.py"), script);
    QProcess python;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("KLV_DEMO_TRACE", "1");
    if (*KLV_PYTHON_PRELOAD) {
        environment.insert("LD_PRELOAD", KLV_PYTHON_PRELOAD);
        environment.insert("ASAN_OPTIONS", "detect_leaks=0");
    }
    python.setProcessEnvironment(environment);
    python.setProcessChannelMode(QProcess::MergedChannels);
    python.start(KLV_PYTHON, QStringList{file, "--visa", Demo::libraryPath()} + arguments);
    if (!python.waitForFinished(-1))
        return {python.errorString()};
    QStringList sent;
    const QStringList lines = QString::fromLatin1(python.readAll()).split('\n');
    for (const QString& line : lines) {
        const int arrow = line.indexOf(" <- ");
        if (arrow >= 0 && !line.endsWith("SYSTem:ERRor?"))
            sent << line.mid(arrow + 4);
    }
    return sent.isEmpty() ? lines : sent;
}
} // namespace

class ScpiLogTest : public PanelTest
{
    Q_OBJECT

    template <typename Widget = QWidget>
    Widget& get(const char* name)
    {
        return m_rig->get<Widget>(name);
    }

    void open()
    {
        m_rig = std::make_unique<PanelRig>();
        m_rig->connectDevice();
        get<QAction>("action_log").trigger();
        m_demo->takeSent();
    }

    void send(const QString& text)
    {
        QApplication::clipboard()->setText(text);
        get<QLineEdit>("log_send").paste();
        QTest::keyClick(&get("log_send"), Qt::Key_Return);
    }

    /// What the table shows in one column, once it shows this number of rows.
    QStringList column(int column)
    {
        const QAbstractItemModel& model = *get<QTableView>("table_log").model();
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row)
            texts << model.index(row, column).data().toString();
        return texts;
    }

    QStringList sentRows() { return column(LogModel::Sent); }

    void find(const QString& text) { get<QLineEdit>("log_find").setText(text); }

    void toggle(const char* name) { get<QPushButton>(name).click(); }

private slots:
    void rowsAndFilters()
    {
        open();
        QVERIFY(sentRows().contains("Connected: KLV-20G (20215678)"));
        toggle("log_clear");
        m_rig->enter("FREQ", "2450000000");
        send("FREQ:START 99999999999");
        const QString setting = "FREQ 2450000000.000000 Hz;FREQ?";
        const QString refused = "FREQ:START 99999999999";
        const QString queue = "SYSTem:ERRor?";
        QTRY_COMPARE(sentRows(), QStringList({setting, refused, queue}));
        QCOMPARE(column(LogModel::Answered).first(), QString("2450000000"));
        // The command is marked, and the entry that speaks of it.
        const QString said = "-222, Data out of range";
        QCOMPARE(column(LogModel::Status), QStringList({"ok", said, said}));
        toggle("log_errors");
        QCOMPARE(sentRows(), QStringList({refused, queue}));
        toggle("log_errors");
        toggle("log_polls");
        QVERIFY(sentRows().size() > 3);
        QCOMPARE(column(LogModel::Answered).last(), QString("0,\"No error\""));
        toggle("log_polls");
        find("hz;");
        QCOMPARE(sentRows(), QStringList(setting));
        find("/^FREQ:ST.*9$/");
        QCOMPARE(sentRows(), QStringList(refused));
        find("/(/");
        QCOMPARE(sentRows(), QStringList(refused));
        QVERIFY(!get<QLabel>("log_note").text().isEmpty());
        find({});
        toggle("log_pause");
        send("POW?");
        toggle("log_polls");
        toggle("log_polls");
        QCOMPARE(sentRows().size(), 3);
        toggle("log_pause");
        QCOMPARE(sentRows().last(), QString("POW?"));
        get<QTableView>("table_log").selectRow(0);
        get<QTableView>("table_log").actions().last()->trigger();
        QCOMPARE(QApplication::clipboard()->text(),
                 "frequency = instrument.query(\"" + setting + "\")");
    }

    void bounds()
    {
        ExchangeLog log;
        for (std::size_t i = 0; i <= ExchangeLog::mostExchanges; ++i)
            log.add(exchangeOf(QString()));
        QCOMPARE(log.first(), ExchangeLog::Number{1});
        QVERIFY(log.hasDropped());
        constexpr int characters = 65535;
        for (int i = 0; i < 1000; ++i)
            log.add(exchangeOf("LIST?", QString(characters, '1')));
        QVERIFY(qint64(log.end() - log.first()) * 2 * characters <= ExchangeLog::mostBytes);
        LogModel model(log);
        model.follow(true);
        QVERIFY(model.data(model.index(0, LogModel::Answered), Qt::DisplayRole).toString().size() <
                1000);
        QVERIFY(logLines({model.exchange(0)}).size() > characters);
        // A spreadsheet computes nothing, and takes the text for what it is.
        QVERIFY(logValues({exchangeOf("=1+1", "-7")}).contains(",\"'=1+1\",\"-7\","));
        QVERIFY(logValues({exchangeOf("\u041C")}).startsWith("\xEF\xBB\xBF"));
    }

    void viewKeepsItsPlace()
    {
        VisaLibrary visa;
        ScpiSession session(visa);
        ExchangeLog& log = session.log();
        const auto record = [&log](int count) {
            for (int i = 0; i < count; ++i)
                log.add(exchangeOf(QString::number(log.end())));
        };
        constexpr int most = int(ExchangeLog::mostExchanges);
        ScpiLog window(session, m_settings, nullptr);
        record(most + 1);
        window.open();
        // What was dropped before it was opened is said as well.
        QVERIFY(!window.findChild<QLabel*>("log_dropped")->text().isEmpty());
        auto& table = *window.findChild<QTableView*>("table_log");
        QScrollBar& bar = *table.verticalScrollBar();
        const auto topmost = [&] { return table.indexAt({}).siblingAtColumn(1).data(); };
        window.resize(window.minimumSize());
        QCoreApplication::processEvents();
        record(5);
        QTRY_COMPARE(table.model()->index(most - 1, 1).data(), QVariant(QString::number(most + 5)));
        QCOMPARE(bar.value(), bar.maximum());
        QCOMPARE(table.horizontalScrollBar()->maximum(), 0);
        bar.setValue(bar.maximum() - 2);
        const QVariant read = topmost();
        record(20);
        QTRY_COMPARE(table.model()->index(most - 1, 1).data(),
                     QVariant(QString::number(most + 25)));
        QCOMPARE(topmost(), read);
        // Held rows that are no more are not shown as something else.
        window.findChild<QPushButton*>("log_pause")->click();
        record(most - 1);
        QTRY_COMPARE(table.model()->rowCount(), 1);
    }

    void hostileAnswers()
    {
        const auto row = freshRows(this, [this](const QString& fault, const QString& note) {
            open();
            const int width = get("ScpiLog").width();
            (*m_demo)(fault);
            send("FREQ?");
            QCOMPARE(get<QLabel>("log_note").text(), note);
            QTRY_VERIFY(sentRows().contains("FREQ?"));
            QCOMPARE(get("ScpiLog").width(), width);
            QVERIFY(m_rig->isConnected());
        });
        row("NULs", "fault 1 reply \\x00\\x00\\n", "FREQ?: (ok)");
        row("line ends", "fault 1 reply \\n\\n\\n", "FREQ?: (-410, Query INTERRUPTED)");
        row("64 kB", "fault 1 length 65000", "FREQ?: " + QString(80, 'A') + "\u2026 (ok)");
        row("none", "fault 1 status 0xBFFF0015", "FREQ?: (no answer)");
    }

    void lostByHand()
    {
        open();
        (*m_demo)("fault 2 status 0xBFFF00A6");
        send("OUTP ON");
        QVERIFY(!m_rig->isConnected());
        QVERIFY(!get("log_push").isVisible());
        QCOMPARE(get<QLabel>("label_RF").text(), QString("RF"));
        m_rig->window().close();
        // The log's window goes with the program's, and its place is kept.
        QVERIFY(!get("ScpiLog").isVisible());
        QVERIFY(m_settings.contains("Log/geometry"));
    }

    void byHand()
    {
        const auto row =
            freshRows(this, [this](const QString& text, const QStringList& sent, bool offersPush,
                                   const QString& lamp, const QString& note) {
                open();
                send(text);
                QStringList commands = m_demo->takeSent();
                commands.removeAll("SYSTem:ERRor?\\n");
                QCOMPARE(commands, sent);
                QCOMPARE(get("log_push").isVisible(), offersPush);
                QCOMPARE(get<QLabel>("label_RF").text(), lamp);
                m_rig->choose("ru");
                m_rig->choose("en");
                QCOMPARE(get<QLabel>("label_RF").text(), lamp);
                // What was refused stays to be mended.
                QCOMPARE(get<QLineEdit>("log_send").text().isEmpty(), !sent.isEmpty());
                QCOMPARE(get<QLabel>("log_note").text(), note);
                QTest::keyClick(get("ScpiLog").windowHandle(), Qt::Key_R, Qt::ControlModifier);
                // In doubt the key switches off, though the button is released.
                QCOMPARE(m_demo->takeSent().contains("OUTPut OFF\\n"), lamp == "?");
                m_rig->click("connect");
                QVERIFY(!get("log_push").isVisible());
                QCOMPARE(get<QLabel>("label_RF").text(), QString("RF"));
                send("FREQ?");
                QVERIFY(!m_demo->takeSent().contains("FREQ?\\n"));
            });
        row("query", "FREQ?", QStringList("FREQ?\\n"), false, "RF", "FREQ?: 1000000000 (ok)");
        row("setting", "  POW 1", QStringList("  POW 1\\n"), true, "RF", "  POW 1: (ok)");
        row("percent", "FREQ %d", QStringList("FREQ %d\\n"), true, "RF",
            "FREQ %d: (-104, Data type error)");
        row("output", "outp on", QStringList("outp on\\n"), true, "?", "outp on: (ok)");
        row("set and asked", "FREQ 1e9;:OUTPut 1;OUTP?", QStringList("FREQ 1e9;:OUTPut 1;OUTP?\\n"),
            true, "?", "FREQ 1e9;:OUTPut 1;OUTP?: 1 (ok)");
        row("reset", " *rst", QStringList(" *rst\\n"), true, "?", " *rst: (ok)");
        row("two lines", "POW?\nFREQ?", QStringList({"POW?\\n", "FREQ?\\n"}), false, "RF",
            "FREQ?: 1000000000 (ok)");
        row("not ASCII", "FREQ 1 \u041C\u0413\u0446", QStringList(), false, "RF",
            "Not sent: \"\u041C\" (U+041C) is not an ASCII character");
        row("not in 16 bits", "\U0001F600", QStringList(), false, "RF",
            "Not sent: \"\U0001F600\" (U+1F600) is not an ASCII character");
        row("escape", "FREQ\x1b?", QStringList(), false, "RF",
            "Not sent: it holds a control character (U+001B)");
        row("delete", "FREQ\x7f?", QStringList(), false, "RF",
            "Not sent: it holds a control character (U+007F)");
        row("too long", QString(4097, 'A'), QStringList(), false, "RF",
            "Not sent: the command is too long");
    }

    void commandWaitsForTheEndOfASequence()
    {
        open();
        send("*RST");
        m_demo->takeSent();
        bool wasWaiting = false;
        QTimer::singleShot(0, this, [&] {
            send("FREQ?");
            wasWaiting = get<QLabel>("log_note").text().startsWith("Sent as soon as");
            m_rig->click("log_push");
            QCOMPARE(m_demo->takeSent(), QStringList());
        });
        pauses().share = 1.0;
        pause(60);
        QVERIFY(wasWaiting);
        QStringList sent;
        QTRY_VERIFY((sent += m_demo->takeSent()).contains("FREQ?\\n"));
        // Then the panel's settings, without the reset of a fresh connection.
        QTRY_VERIFY((sent += m_demo->takeSent()).contains("POW 0.000000;POW?\\n"));
        QVERIFY(sent.contains("OUTPut OFF\\n") && !sent.contains("*RST\\n"));
        QCOMPARE(get<QLabel>("label_RF").text(), QString("RF"));
        QVERIFY(!get("log_push").isVisible());
        QTest::keyClick(&get("log_send"), Qt::Key_Up);
        QCOMPARE(get<QLineEdit>("log_send").text(), QString("FREQ?"));
    }

    void fileHasEveryLine()
    {
        StartOptions options = PanelRig::defaultOptions();
        options.logPath = m_home.filePath("wire.log");
        m_rig = std::make_unique<PanelRig>(options);
        m_rig->connectDevice();
        send("FREQ:START 99999999999");
        const QByteArray written = readWholeFile(options.logPath, 1 << 20).bytes;
        QVERIFY(written.contains("\t-222, Data out of range\n"));
        QVERIFY(written.contains("\tOUTPut OFF\t\t"));
        QVERIFY(written.contains("\tFREQ 1000000000.000000 Hz;FREQ?\t1000000000\t"));
        m_rig.reset();
        QVERIFY(readWholeFile(options.logPath, 1 << 20).bytes.startsWith(written));
        (*m_demo)("reset");
        options.logPath = m_home.filePath("no such folder/wire.log");
        m_rig = std::make_unique<PanelRig>(options);
        QVERIFY2(m_rig->status().contains("No log is written"), qPrintable(m_rig->status()));
        m_rig->connectDevice();
        QVERIFY2(m_rig->isConnected(), qPrintable(m_rig->status()));
    }

    void savedAsTheChosenType()
    {
        open();
        toggle("log_save");
        auto* dialog = get("ScpiLog").findChild<QFileDialog*>();
        QVERIFY(dialog);
        QTest::keyClick(dialog->findChild<QComboBox*>("fileTypeCombo"), Qt::Key_End);
        QTest::keyClick(dialog, Qt::Key_Return);
        const auto note = [this] { return get<QLabel>("log_note").text(); };
        QTRY_VERIFY2(note().endsWith(".py"), qPrintable(note()));
        QVERIFY(readWholeFile(note().section(": ", 1), 1 << 20).bytes.startsWith("#!"));
    }

    void scriptSendsTheSame()
    {
        if (!*KLV_PYTHON)
            QSKIP("Python is not here.");
        open();
        toggle("log_clear");
        for (const QString action :
             {"POW=-7", "ROSC", "open_mod", "AM", "line_Ampl_1=2500", "Rect_Ampl",
              "percentLine_Ampl=30", "Pulse", "line_width=5", "open_gener", "rectangle_select",
              "VOLTAGE=2.5", "open_list", "Time=2m", "service", "REF_OSC=7", "Output"}) {
            const QString control = action.section('=', 0, 0);
            if (control.startsWith("open_") || control == "service")
                m_rig->openPanel(qPrintable(control));
            else if (action.contains('='))
                m_rig->enter(qPrintable(control), action.section('=', 1));
            else
                m_rig->click(qPrintable(control));
        }
        QStringList sent;
        for (QString line : m_demo->takeSent()) {
            if (line != "SYSTem:ERRor?\\n" && line != "TEMP?\\n")
                sent << line.remove("\\n");
        }
        QTRY_VERIFY(sentRows().contains("OUTPut ON"));
        LogModel& model = static_cast<LogModel&>(*get<QTableView>("table_log").model());
        const LoggedInstrument instrument{"KLV-20G \"\"\" @lines@ \\", "2.7",
                                          "USB0::0x5645::0x0040::20215678::0::INSTR"};
        const QByteArray script = pythonScript(model.exchanges(), instrument);
        // The panel holds the instrument for itself.
        m_rig->click("connect");
        // Its pauses are the program's.
        QVERIFY(script.contains("time.sleep(0.4)"));
        QCOMPARE(sentByScript(script), sent);
        QCOMPARE(sentByScript(pythonScript({}, instrument), {"--reset", "--hand-back"}),
                 QStringList({"MEM:MSC?", "*RST", "*IDN?", "*RST", "MEM:MSC ON"}));
    }

    void hostileTextsStayTexts()
    {
        if (!*KLV_PYTHON)
            QSKIP("Python is not here.");
        const QString nasty = "\"\"\"'); import os; os._exit(3) #\\";
        std::vector<Exchange> exchanges;
        for (const QString& text : {nasty, QString("%s {0} @lines@"), QString("A\\\nB\t\u00e9")})
            exchanges.push_back(exchangeOf(text, nasty));
        const QStringList sent = sentByScript(pythonScript(exchanges, {nasty, nasty, nasty}),
                                              {"USB0::0x5645::0x0040::20215678::0::INSTR"});
        QCOMPARE(sent, QStringList({"\"\"\"'); import os; os._exit(3) #\\\\", "%s {0} @lines@",
                                    "A\\\\\\nB\\t\\xE9"}));
        // A name is never a word of the script or of the language.
        QCOMPARE(pythonLines({exchangeOf("class?"), exchangeOf("time?"), exchangeOf("1a:import?"),
                              exchangeOf("SYST:ERR:ERA?")}),
                 QString("class_ = instrument.query(\"class?\")\n"
                         "time_ = instrument.query(\"time?\")\n"
                         "answer = instrument.query(\"1a:import?\")\n"
                         "syst_error_era = instrument.query(\"SYST:ERR:ERA?\")"));
    }
};

QTEST_MAIN(ScpiLogTest)
#include "scpi_log_test.moc"
