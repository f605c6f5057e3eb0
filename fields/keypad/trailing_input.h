#pragma once

#include <QObject>

/// Discards the rest of the input that closed a popup, so that it does not reach what lies beneath:
/// the second half of a double click and the repetitions of a held key. The next press that is
/// neither ends it. Deletes itself.
class TrailingInput : public QObject
{
    Q_OBJECT

public:
    static void swallow();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    TrailingInput();

    bool m_isOver = false;
};
