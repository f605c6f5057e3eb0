#pragma once

#include "link/notices.h"
#include "sweep/picture/run_words.h"

#include <QObject>
#include <QVector>

#include <optional>

class List;
class LfGeneratorCommands;
class Modulat;
class ModulationCommands;
class SweepCommands;
class TriggerCommands;
class generator;

/// Modulations, LF generator and runs exclude one another in the instrument: what is switched on
/// last switches the others off, and a notice says so. Owns none of them.
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
        Notices& notices;
    };

    explicit Exclusions(const Parts& parts, QObject* parent = nullptr);

private:
    void modulationStarted();
    void lfGeneratorStarting();
    void lfGeneratorStarted();
    void runStarting();
    void runStopped();

    void endModulation();
    void endLfGenerator();
    RunKind checkedRun() const;
    static StatusWords stopWords(RunKind kind);
    void tell(const StatusWords& cause);

    Parts m_parts;
    /// What was switched off and not yet announced.
    QVector<StatusWords> m_ended;
    RunKind m_running = RunKind::Sweep;
    /// The run that has ended just now.
    std::optional<RunKind> m_justStopped;
};
