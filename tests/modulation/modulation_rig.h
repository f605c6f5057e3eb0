#pragma once

#include "link/scpi_session.h"
#include "modulation/generator.h"
#include "modulation/lf_generator_commands.h"
#include "modulation/modulat.h"
#include "modulation/modulation_commands.h"
#include "tests/support/demo.h"
#include "tests/support/fields.h"
#include "ui/resources.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include <clocale>

/// Both panels and their commands over the simulated instrument, joined as the window joins them.
class ModulationRig
{
public:
    ModulationRig()
    {
        std::setlocale(LC_NUMERIC, "C");
        visa.load(Demo::libraryPath().toLocal8Bit().constData());
        session.openResourceManager();
        if (!session.open(QStringLiteral("USB0::0x5645::0x0040::20215678::0::INSTR")))
            qFatal("no instrument");
        session.setConnected();
        fields.limits.readLimits(session);
        QObject::connect(&session, &ScpiSession::connectionFailed, [this] { session.close(); });
        QObject::connect(&modulation, &ModulationCommands::switchedOn, [this] {
            if (lfPanel.isOn())
                lfPanel.autoOff();
            ++sweepOffs;
        });
        QObject::connect(&lf, &LfGeneratorCommands::wantsModulationOff,
                         [this] { modulation.switchEverythingOff(false); });
        QObject::connect(&lf, &LfGeneratorCommands::wantsSweepOff, [this] { ++sweepOffs; });
        demo.takeTranscript();
    }

    ~ModulationRig() { session.close(); }

    template <typename Widget = QPushButton>
    Widget* get(const QString& name)
    {
        auto* widget = host.findChild<Widget*>(name);
        if (!widget)
            qFatal("no %s", qUtf8Printable(name));
        return widget;
    }

    /// Returns when all the sequences that this starts are over.
    void click(const QString& name) { get(name)->click(); }
    /// Clicks one after the other, separated by blanks.
    void clickAll(const QString& names)
    {
        for (const QString& name : names.split(QLatin1Char(' '), Qt::SkipEmptyParts))
            click(name);
    }
    void enter(const QString& name, const QString& text)
    {
        auto* field = get<QLineEdit>(name);
        field->setText(text);
        emit field->editingFinished();
    }
    QString text(const QString& name) { return get<QLineEdit>(name)->text(); }

    /// Once a text has been sent, in a pause of whatever sends it.
    void whenSent(const QString& text, const std::function<void()>& action)
    {
        auto* timer = new QTimer(&host);
        QObject::connect(timer, &QTimer::timeout, &host, [=] {
            if (!demo(QStringLiteral("transcript")).contains(text))
                return;
            timer->stop();
            action();
        });
        timer->start(1);
    }

    /// What has been sent since the last call, without line feeds; "!" stands for each look into
    /// the error queue, behind the command that it checks.
    QStringList sent()
    {
        QStringList commands;
        for (QString line : demo.takeSent()) {
            if (line == QLatin1String("SYSTem:ERRor?\\n") && !commands.isEmpty())
                commands.last() += QLatin1Char('!');
            else if (line.endsWith(QLatin1String("\\n")))
                commands << line.chopped(2);
            else
                commands << line + QLatin1String(" without line feed");
        }
        return commands;
    }

    /// What panels, indicators and instrument say is on, when they agree; else all that they say.
    /// The transcript starts afresh.
    QString whatIsOn()
    {
        const auto lit = [](const QLabel& label) { return label.pixmap(Qt::ReturnByValue); };
        QStringList buttons;
        QStringList instrument;
        for (const QString name : {"AM", "FM", "PM", "PULM", "LFO"}) {
            const bool isOn = name == "LFO"    ? lfPanel.isOn()
                              : name == "PULM" ? get("Pulse")->isChecked()
                                               : get(name)->isChecked();
            if (isOn)
                buttons << name;
            if (session.query(name + ":STATe?").toInt() != 0)
                instrument << name;
        }
        demo.takeTranscript();
        QStringList lamps;
        for (const QString name : {"AM", "FM", "PM"}) {
            const QPushButton* button = get(name);
            const QPixmap icon = button->icon().pixmap(button->iconSize());
            if (!lit(amPmFm).isNull() && lit(amPmFm).toImage() == icon.toImage())
                lamps << name;
        }
        if (!lit(pulse).isNull())
            lamps << "PULM";
        if (!lit(gener).isNull())
            lamps << "LFO";
        if (buttons == instrument && buttons == lamps)
            return buttons.join(' ');
        return QString("panel %1, lamps %2, instrument %3")
            .arg(buttons.join(' '), lamps.join(' '), instrument.join(' '));
    }

    Demo demo;
    VisaLibrary visa;
    ScpiSession session{visa};
    Fields fields;
    QWidget host;
    Modulat panel{fields.context, &host};
    generator lfPanel{fields.context, &host};
    QLabel amPmFm;
    QLabel pulse;
    QLabel gener;
    ModulationCommands modulation{session, panel, {amPmFm, pulse}};
    LfGeneratorCommands lf{session, lfPanel, gener};
    /// How often sweep or list had to go off.
    int sweepOffs = 0;
};
