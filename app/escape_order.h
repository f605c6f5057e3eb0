#pragma once

#include <QObject>
#include <QVector>

#include <functional>

class QWidget;

/// Remembers the order in which widgets were opened, so that Escape closes the last one. Opens and
/// closes nothing by itself.
class EscapeOrder : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Watches a widget that is open while it is shown; `close` closes it.
    void add(QWidget* widget, const std::function<void()>& close);

    /// False when nothing is open.
    bool closeLast();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Entry {
        const QObject* widget;
        std::function<void()> close;
    };

    QVector<Entry> m_entries;
    QVector<const QObject*> m_open; ///< the last one opened last
};
