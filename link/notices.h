#pragma once

#include "link/activity.h"

/// A sentence for the status line, to be read once.
struct Notice {
    enum class About {
        Program,
        Instrument,    ///< the one that is connected, or that there is none: ends with that
        InstrumentToo, ///< the same, beside what was said of the instrument just before
    };

    int number;
    StatusWords words;
    About about;
};

/// What is said in passing. Whoever has something to say is given a reference; knows nobody who
/// shows it.
class Notices : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Returns the number by which the notice can be taken back.
    int say(const StatusWords& words, Notice::About about = Notice::About::Program);
    int sayOfInstrument(const StatusWords& words) { return say(words, Notice::About::Instrument); }
    /// A notice that holds no longer; one that is not shown any more is left alone.
    void takeBack(int number) { emit takenBack(number); }

signals:
    void said(const Notice& notice);
    void takenBack(int number);

private:
    int m_last = 0;
};
