#pragma once

#include "modulation/generator.h"
#include "modulation/lf_generator_commands.h"
#include "modulation/modulat.h"
#include "modulation/modulation_commands.h"
#include "tests/support/wire_rig.h"
#include "ui/indicator.h"
#include "ui/resources.h"

#include <QLineEdit>
#include <QtTest>

/// Both panels and their commands over the simulated instrument, joined as the window joins them.
class ModulationRig : public WireRig
{
public:
    ModulationRig()
    {
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

    void enter(const QString& name, const QString& text)
    {
        auto* field = get<QLineEdit>(name);
        field->setText(text);
        emit field->editingFinished();
    }
    QString text(const QString& name) { return get<QLineEdit>(name)->text(); }

    /// What panels, indicators and instrument say is on, when they agree; else all that they say.
    /// The transcript starts again.
    QString whatIsOn()
    {
        QStringList buttons;
        QStringList lamps;
        QStringList instrument;
        for (const QString name : {"AM", "FM", "PM", "PULM", "LFO"}) {
            const bool isLf = name == "LFO";
            const QPushButton* button = isLf ? nullptr : get(name == "PULM" ? "Pulse" : name);
            if (isLf ? lfPanel.isOn() : button->isChecked())
                buttons << name;
            const Indicator& lamp = isLf ? gener : name == "PULM" ? pulse : amPmFm;
            const QImage lit = lamp.pixmap(Qt::ReturnByValue).toImage();
            // AM, FM and PM share one.
            const bool isShared = &lamp == &amPmFm;
            if (isShared ? lit == button->icon().pixmap(button->iconSize()).toImage()
                         : !lit.isNull())
                lamps << name;
            if (session.query(name + ":STATe?").toInt() != 0)
                instrument << name;
        }
        demo.takeTranscript();
        if (buttons == instrument && buttons == lamps)
            return buttons.join(' ');
        return QString("panel %1, lamps %2, instrument %3")
            .arg(buttons.join(' '), lamps.join(' '), instrument.join(' '));
    }

    Modulat panel{fields.context, &host};
    generator lfPanel{fields.context, &host};
    Indicator amPmFm;
    Indicator pulse;
    Indicator gener;
    ModulationCommands modulation{session, panel, {amPmFm, pulse}};
    LfGeneratorCommands lf{session, lfPanel, gener};
    /// How often sweep or list had to be stopped.
    int sweepOffs = 0;
};
