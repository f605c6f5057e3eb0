#pragma once

#include <QMetaType>
#include <QObject>
#include <QStringList>

#include <functional>
#include <vector>

/// A text for the status line that can be said anew in another language; an empty one says nothing.
using StatusWords = std::function<QString()>;
Q_DECLARE_METATYPE(StatusWords)

/// Something that takes its time, from its making to its end: a search, a set-up, a transfer.
class Activity
{
public:
    /// `blocks`: what follows is known to keep the event loop waiting.
    explicit Activity(const StatusWords& words, bool blocks = false);
    ~Activity();
    Activity(const Activity&) = delete;
    Activity& operator=(const Activity&) = delete;

    /// Tells of its next step.
    void say(const StatusWords& words);
};

/// All that goes on in the program. Knows nobody who shows it.
class Activities : public QObject
{
    Q_OBJECT

public:
    static Activities& global();

    /// In the order of beginning, in the present language.
    QStringList texts() const;

signals:
    /// Said at once, for the wire may block right after; `blocks` when that is known.
    void changed(bool blocks);

private:
    friend class Activity;

    struct Entry {
        const Activity* activity;
        StatusWords words;
    };

    void set(const Activity* activity, const StatusWords& words, bool blocks);
    void remove(const Activity* activity);

    std::vector<Entry> m_entries;
};
