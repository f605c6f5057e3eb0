#pragma once

#include "sweep/run_words.h"

#include <QObject>
#include <QStringList>

#include <optional>

class List;
class LfGeneratorCommands;
class Modulat;
class ModulationCommands;
class SweepCommands;
class TriggerCommands;
class generator;

/// Modulations, LF generator and runs exclude one another in the instrument: what is switched on
/// last switches the others off, and the user is told. Owns none of them.
class Exclusions : public QObject
{
    Q_OBJECT

public:
    struct Parts {
        Modulat& modulation;
        ModulationCommands& modulationCommands;
        generator& lfGenerator;
        LfGeneratorCommands& lfCommands;
        List& list;
        SweepCommands& runs;
        TriggerCommands& triggers;
    };

    explicit Exclusions(const Parts& parts, QObject* parent = nullptr);

signals:
    void statusMessage(const QString& message);

private:
    void modulationStarted();
    void lfGeneratorStarting();
    void lfGeneratorStarted();
    void runStarting();
    void runStopped();

    void endModulation();
    void endLfGenerator();
    RunKind checkedRun() const;
    static QString stopWords(RunKind kind);
    void tell(const QString& cause);

    Parts m_parts;
    /// What has gone off and was not told of yet.
    QStringList m_ended;
    RunKind m_running = RunKind::Sweep;
    /// The run that has ended just now.
    std::optional<RunKind> m_justStopped;
};
