#include "modulation/waveform_picture.h"
#include "tests/modulation/modulation_rig.h"
#include "tests/support/rows.h"

#include <algorithm>

/// The panels of modulation and LF generator without an instrument: what they keep consistent.
class ModulationPanelsTest : public QObject
{
    Q_OBJECT

private slots:
    // The lamps are lit by their icons.
    void initTestCase() { loadUiResources(); }
    void init()
    {
        m_rig = std::make_unique<ModulationRig>();
        m_rig->session.close();
        m_rig->panel.resize(m_rig->panel.sizeHint());
        m_rig->host.show();
        m_rig->host.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&m_rig->host));
    }
    void cleanup() { m_rig.reset(); }

    void shapes()
    {
        const auto row = freshRows(this, [this](const QString& names, const QString& fields) {
            const bool isLf = !names.contains("Sin_");
            QString others = "Sin_Ampl Sin_FREQ Sin_Phase";
            others.remove(names.section(' ', 0, 0));
            for (int round = 0; round < 2; ++round) {
                for (const QString& name : names.split(' ')) {
                    m_rig->click(name);
                    QCOMPARE(checked(names), name);
                    QCOMPARE(checked(others), others.simplified());
                    const bool hasRate = isLf || !name.startsWith("Random");
                    const bool hasDuty = name.startsWith("rect", Qt::CaseInsensitive);
                    QCOMPARE(enabled(fields),
                             QString(hasRate ? "++" : "-+") + QString(hasDuty ? "++" : "--"));
                }
            }
            // Once more on the chosen one switches the LF generator off.
            m_rig->click(names.section(' ', -1));
            QCOMPARE(checked(names), isLf ? QString() : names.section(' ', -1));
            if (isLf)
                return;
            // The button tells the duty, in each language.
            m_rig->enter(fields.section(' ', 2, 2), "35");
            QEvent languageChange(QEvent::LanguageChange);
            QCoreApplication::sendEvent(&m_rig->panel, &languageChange);
            QPushButton* button = m_rig->get(fields.section(' ', 3));
            QCOMPARE(button->text(), QString("35"));
            // In sight is the field's number alone, beside a word.
            m_rig->panel.expand(modulationOf(names), false);
            const QImage before = button->grab().toImage();
            m_rig->enter(fields.section(' ', 2, 2), "36");
            QCOMPARE(button->grab().toImage(), before);
        });
        const QString modulation = "Sin_%1 SawPos_%1 SawNeg_%1 Triangle_%1 Random_%1 Rect_%1";
        const QString fields = "line_%1_1 line_%1_2 percentLine_%1 percentButton_%1";
        for (const char* suffix : {"Ampl", "FREQ", "Phase"})
            row(suffix, modulation.arg(suffix), fields.arg(suffix));
        row("LF",
            "sine_select sawPos_select sawNeg_select triangle_select random_select "
            "rectangle_select dc_select",
            "FREQ VOLTAGE percent vvod_Percent");
    }

    void lamps()
    {
        const auto row = freshCases(this, [this](const QString& actions, const QString& words) {
            for (const QString& action : actions.split(' ')) {
                if (action.contains('='))
                    m_rig->enter(action.section('=', 0, 0), action.section('=', 1));
                else
                    m_rig->click(action);
            }
            // What is being typed is not at the output yet.
            for (const char* field : {"line_Ampl_2", "line_FREQ_1", "line_Phase_2", "VOLTAGE"})
                m_rig->get<QLineEdit>(field)->setText("7");
            QCOMPARE(m_rig->amPmFm.words() + '|' + m_rig->pulse.words() + '|' +
                         m_rig->gener.words(),
                     words);
        });
        // Clicks, and fields that are set; the words of the lamps of AM, FM and PM, the pulses and
        // the LF generator.
        row("AM AM", "||");
        row("AM", "AM 1 % 1 kHz||");
        row("AM line_Ampl_2=30 line_Ampl_1=2500", "AM 30 % 2.5 kHz||");
        row("AM Random_Ampl", "AM 1 %||");
        row("line_FREQ_2=10000 FM", "FM 10 kHz 1 kHz||");
        row("FM", "FM 1.5625 mHz 1 kHz||");
        row("line_Phase_2=0.5 AM PM IntExt_PM", "PM 500 mrad EXT||");
        row("Pulse line_width=20 AM", "AM 1 % 1 kHz|PulM 1 ms 20 µs|");
        row("Pulse IntExt_PULM", "|PulM EXT|");
        row("sine_select VOLTAGE=0.25", "||LF 250 mV 10 kHz");
        row("AM random_select", "||LF 1 V");
        row("dc_select", "||LF DC 1 V");
    }

    /// A number that nobody has set yet does not catch the eye while its group is folded.
    void headingsLeaveOutWhatIsNotSet()
    {
        QStringList seen;
        for (const char* entered : {"", "10000", "0.0015625"}) {
            if (*entered != '\0')
                m_rig->enter("line_FREQ_2", entered);
            seen << m_rig->get<QLabel>("label_7")->text();
        }
        QCOMPARE(seen, QStringList({"1 kHz", "1 kHz  \u00b7  10 kHz", "1 kHz"}));
        QCOMPARE(m_rig->text("line_FREQ_2"), QString("0.0015625"));
    }

    /// What is switched on is expanded; the headers fold without switching.
    void groups()
    {
        const auto row = freshCases(
            this, [this](const QString& clicks, const QString& expanded, const QString& on) {
                const QSize size = m_rig->panel.minimumSizeHint();
                auto* field = m_rig->get<QLineEdit>("line_Ampl_1");
                for (const QString& name : clicks.split(' ')) {
                    if (field->isVisible())
                        field->setFocus();
                    QTest::mouseClick(m_rig->get<QWidget>(name), Qt::LeftButton);
                }
                const auto boxes = m_rig->panel.findChildren<FoldBox*>();
                QTRY_VERIFY(std::none_of(boxes.begin(), boxes.end(),
                                         [](const FoldBox* box) { return box->isMoving(); }));
                for (const FoldBox* box : boxes) {
                    QCOMPARE(box->isExpanded(), expanded.contains(box->objectName()));
                    QCOMPARE(box->body()->isVisible(), box->isExpanded());
                }
                QCOMPARE(checked("AM FM PM Pulse"), on);
                QTRY_COMPARE(m_rig->panel.minimumSizeHint(), size);
                QVERIFY(field->isVisible() || !field->hasFocus());
            });
        row("titlePulse titlePulse", "PULM_", "");
        row("AM", "AM_ PULM_", "AM");
        row("AM PM", "PM_ PULM_", "PM");
        row("AM PM PM", "PULM_", "");
        row("fold_FM_", "FM_ PULM_", "");
        row("fold_FM_ titleAM", "AM_ PULM_", "");
        row("titleAM titleAM", "PULM_", "");
        row("titlePulse", "", "");
        row("titlePulse Pulse", "PULM_", "Pulse");
    }

    void thePictureIsOfWhatIsSet()
    {
        const auto row = freshCases(this, [this](const QString& clicks, const QString& heading) {
            for (const QString& name : clicks.split(' ', Qt::SkipEmptyParts)) {
                auto* widget = m_rig->get<QWidget>(name);
                if (qobject_cast<QLineEdit*>(widget))
                    widget->setFocus();
                else
                    QTest::mouseClick(widget, Qt::LeftButton);
            }
            QCOMPARE(m_rig->panel.picture().title().text(), heading);
        });
        const char* const pulses = "Pulse modulation  \u00b7  1 ms  \u00b7  1 µs";
        row("", pulses);
        row("AM", "Amplitude modulation  \u00b7  1 kHz  \u00b7  1 %");
        row("AM line_period", pulses);
        row("AM Pulse", pulses);
        row("AM AM", pulses);
        row("AM line_period line_Ampl_2", "Amplitude modulation  \u00b7  1 kHz  \u00b7  1 %");
        row("titlePM Random_Phase", "Phase modulation  \u00b7  1 mrad");
        row("titlePM titlePM", pulses);
        row("AM IntExt_PULM", "Pulse modulation");
        row("PM IntExt_FM titlePulse titlePulse", pulses);
    }

    void externalPulsesDisablePeriodAndWidth()
    {
        const QString settings = "line_period line_width us_per us_wid pulse_period";
        for (const char* expected : {"-----", "+++++"}) {
            m_rig->click("IntExt_PULM");
            QCOMPARE(enabled(settings), QString(expected));
        }
        // As a profile may switch it.
        m_rig->get("IntExt_PULM")->setChecked(true);
        QCOMPARE(enabled(settings), QString("-----"));
    }

    void picturesFollow()
    {
        m_rig->panel.expand(Modulation::Am, false);
        const auto words = [](const QWidget* place) {
            return place->findChild<WaveformPicture*>()->accessibleDescription();
        };
        const auto* am = m_rig->get<FoldBox>("AM_");
        QCOMPARE(words(am), QString("Sine, 1 kHz (period 1 ms), from \u22121 % to 1 %"));
        m_rig->click("Rect_Ampl");
        m_rig->get<QLineEdit>("line_Ampl_2")->setText("30.5");
        m_rig->get<QLineEdit>("line_Ampl_1")->setText("2 000");
        m_rig->get<QLineEdit>("percentLine_Ampl")->setText("20");
        QCOMPARE(words(am), QString("Rectangle, 2 kHz (period 500 µs), from \u221230.5 % to "
                                    "30.5 %, duty 20 %"));
        // Its heading says the same in short, for when it is folded.
        QStringList headings;
        for (const QLabel* label : am->findChildren<QLabel*>()) {
            if (label->property("sectionSummary").toBool())
                headings << label->text();
        }
        QCOMPARE(headings, QStringList("2 kHz  \u00b7  30.5 %"));
        m_rig->get<QLineEdit>("line_Ampl_1")->clear();
        QCOMPARE(words(am), QString("Rectangle, from \u221230.5 % to 30.5 %, duty 20 %"));
        m_rig->click("IntExt_AM");
        QCOMPARE(words(am), QString("External source"));
        m_rig->panel.pulsePeriod().showAccepted("500");
        QCOMPARE(words(m_rig->get<FoldBox>("PULM_")), QString("Pulses: period 500 µs, width 1 µs"));

        QCOMPARE(words(&m_rig->lfPanel), QString("The LF generator is off"));
        // What a click would bring is shown before it is switched on.
        m_rig->get("triangle_select")->setFocus();
        QTRY_COMPARE(words(&m_rig->lfPanel),
                     QString("Triangle, 10 kHz (period 100 µs), from \u22121 V to 1 V"));
        QVERIFY(!m_rig->lfPanel.isOn());
        m_rig->click("dc_select");
        m_rig->lfPanel.amplitude().setText("0.25");
        QCOMPARE(words(&m_rig->lfPanel), QString("DC, level 250 mV"));
    }

private:
    static Modulation modulationOf(const QString& names)
    {
        return names.contains("_Ampl")   ? Modulation::Am
               : names.contains("_FREQ") ? Modulation::Fm
                                         : Modulation::Pm;
    }
    QString checked(const QString& names)
    {
        QStringList checked;
        for (const QString& name : names.split(' ', Qt::SkipEmptyParts)) {
            if (m_rig->get(name)->isChecked())
                checked << name;
        }
        return checked.join(' ');
    }
    /// "+" for each that can be used, else "-".
    QString enabled(const QString& names)
    {
        QString enabled;
        for (const QString& name : names.split(' '))
            enabled += m_rig->get<QWidget>(name)->isEnabled() ? '+' : '-';
        return enabled;
    }

    std::unique_ptr<ModulationRig> m_rig;
};

QTEST_MAIN(ModulationPanelsTest)
#include "modulation_panels_test.moc"
