#pragma once

#include <QObject>

class List;
class QAbstractButton;
class QString;
class ScpiSession;

/// Sends triggers and point steps: what is chosen in the list panel's trigger group goes to the
/// instrument, at the start of a run and during it. Keeps whether the instrument is prepared for
/// manual steps. Owns no widget, and starts and stops no run.
class TriggerCommands : public QObject
{
    Q_OBJECT

public:
    /// `pulse` is the pulse modulation's switch: an external trigger clicks it off, since both use
    /// the same input.
    TriggerCommands(ScpiSession& session, List& panel, QAbstractButton& pulse,
                    QObject* parent = nullptr);

    /// A run is about to start: manual stepping has to be prepared again.
    void forgetPreparation() { m_isManualPrepared = false; }

    /// Sends the trigger commands of the panel's choice; for manual stepping only once.
    void setUpTrigger();

    /// Sends whether the run repeats. Only in a run, and not while a table is being transferred.
    void setUpContinuousMode();

public slots:
    /// Previous or next point, by the sender's name. A sweep steps; a list is only prepared for
    /// steps.
    void sharedCommand_List_Sweep();
    /// Moves a running list to a point, counted from 1.
    void dowloadPointList(int number);
    /// In a run: a trigger runs one point (true) or all of them.
    void slotModeIntFront(bool isManual);

signals:
    /// The state shown in the window may have changed.
    void refreshWanted();
    /// The instrument has stepped a sweep by one point: 1 up, -1 down.
    void stepped(int direction);
    /// The instrument has gone to this point of a list, counted from 1.
    void movedTo(int number);
    /// The pulse modulation was switched off for an external trigger.
    void pulseExcluded();

private:
    bool isRunConnected() const;
    void choiceChanged();
    void pointChosen(int number);
    void setUpExternal(const QString& slopeCommand);
    void prepareManual();
    QString advanceCommand(bool isManual);

    ScpiSession& m_session;
    List& m_panel;
    QAbstractButton& m_pulse;
    /// The instrument waits for triggers from the bus, point by point.
    bool m_isManualPrepared = false;
};
