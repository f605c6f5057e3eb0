#include "tests/modulation/modulation_rig.h"
#include "tests/support/rows.h"

/// Times of pulses in another unit than the instrument's microseconds.
class PulseTimeTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_rig = std::make_unique<ModulationRig>();
        m_rig->session.close();
        m_field = &m_rig->panel.pulsePeriod();
        m_rig->host.show();
        m_rig->host.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&m_rig->host));
        m_field->setFocus();
    }
    void cleanup() { m_rig.reset(); }

    void cyclesWithoutLoss()
    {
        const auto row = freshRows(this, [this](const QStringList& views) {
            m_field->setText(views.first());
            const double microseconds = m_field->value();
            const char* const units[] = {"µs", "ms", "s", "ns"};
            for (int i = 1; i <= 4; ++i) {
                m_rig->click("us_per");
                QCOMPARE(m_rig->get("us_per")->text(), QString(units[i % 4]));
                QCOMPARE(m_field->text(), views.at(i % 4));
                QCOMPARE(m_field->value(), microseconds);
                QCOMPARE(m_field->ownText(), views.first());
            }
            // Each field has its own unit; files hold both in microseconds.
            QCOMPARE(m_rig->get("us_wid")->text(), QString("µs"));
            m_rig->click("us_per us_wid us_wid us_wid");
            m_rig->panel.pulseWidth().setEdited(true);
            m_rig->panel.pulseWidth().showAccepted("20.00");
            QCOMPARE(m_rig->text("line_width"), QString("20 000"));
            QVERIFY(!m_rig->panel.pulseWidth().property("edited").toBool());
            m_rig->panel.usePulseMicroseconds();
            QCOMPARE(m_field->text(), views.first());
            QCOMPARE(m_rig->text("line_width"), QString("20.00"));
        });
        row("1 000", QStringList{"1 000", "1", "0.001", "1 000 000"});
        row("decimals", QStringList{"12 345.678", "12.345678", "0.012345678", "12 345 678"});
        row("smallest", QStringList{"0.000001", "0.000000001", "0.000000000001", "0.001"});
        row("empty", QStringList{"", "", "", ""});
    }

    void typing()
    {
        const auto row = freshRows(this, [this](const QString& unit, const QString& keys,
                                                const QString& shown, const QString& microseconds) {
            QVERIFY(m_rig->fields.steps.setStep(StepKind::PulsePeriod, 100.0));
            useUnit(unit);
            if (keys.isEmpty())
                QTest::keyClick(m_field, Qt::Key_Up);
            else
                m_field->clear();
            QTest::keyClicks(m_field, keys);
            QCOMPARE(m_field->text(), shown);
            QCOMPARE(m_field->ownText(), microseconds);
            QCOMPARE(m_field->property("edited").toBool(), !keys.isEmpty());
        });
        row("µs", "µs", "2500", "2 500", "2 500");
        row("ms", "ms", "2500", "2 500", "2 500 000");
        row("ms letter into µs", "µs", "2.5m", "2 500", "2 500");
        row("ms letter into ns", "ns", "2m", "2 000 000", "2 000");
        row("letter without a number", "s", "m2", "2", "2 000 000");
        // One step up from 1 000 µs is 100 µs, whatever unit is shown.
        row("µs step", "µs", "", "1 100", "1 100");
        row("ms step", "ms", "", "1.1", "1 100");
        row("s step", "s", "", "0.0011", "1 100");
        row("ns step", "ns", "", "1 100 000", "1 100");
    }

    void newUnitCommitsNothing()
    {
        QSignalSpy announced(m_field, &QLineEdit::editingFinished);
        auto* other = m_rig->get<QLineEdit>("line_width");
        m_rig->click("us_per");
        other->setFocus();
        QCOMPARE(announced.size(), 0);
        // What was typed before is still to be committed, in whatever unit.
        m_field->setFocus();
        m_field->selectAll();
        QTest::keyClicks(m_field, "2");
        m_rig->click("us_per");
        QCOMPARE(m_field->property("edited").toBool(), true);
        other->setFocus();
        QCOMPARE(announced.size(), 1);
        QCOMPARE(m_field->ownText(), QString("2 000"));
    }

private:
    void useUnit(const QString& symbol)
    {
        for (int i = 0; i < 4 && m_rig->get("us_per")->text() != symbol; ++i)
            m_rig->click("us_per");
        QCOMPARE(m_rig->get("us_per")->text(), symbol);
    }

    std::unique_ptr<ModulationRig> m_rig;
    NumberEdit* m_field = nullptr;
};

QTEST_MAIN(PulseTimeTest)
#include "pulse_time_test.moc"
