#pragma once

#include "link/activity.h"

/// A sentence for the status line, to be read once.
struct Notice {
    enum class About {
        Program,
        Instrument,    ///< about the connected instrument, or that there is none: dropped when that
                       ///< changes
        InstrumentToo, ///< the same, shown beside the notice about the instrument just before
    };

    int number;
    StatusWords words;
    About about;
    bool isDone; ///< something wanted has been done: nothing to worry about
};

/// Short-lived messages. Those who have one are given a reference; does not know who shows them.
class Notices : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Returns the number by which the notice can be taken back.
    int say(const StatusWords& words, Notice::About about = Notice::About::Program);
    int sayOfInstrument(const StatusWords& words) { return say(words, Notice::About::Instrument); }
    /// The same of something that was wanted and is done.
    int sayDone(const StatusWords& words, Notice::About about = Notice::About::Program);
    /// Takes back a notice that is no longer true; ignored when it is not shown any more.
    void takeBack(int number) { emit takenBack(number); }

signals:
    void said(const Notice& notice);
    void takenBack(int number);

private:
    int tell(const StatusWords& words, Notice::About about, bool isDone);

    int m_last = 0;
};
