#pragma once

#include <QMetaType>
#include <QObject>
#include <QStringList>

#include <functional>
#include <vector>

/// A text for the status line that can be made again in another language; an empty one shows
/// nothing.
using StatusWords = std::function<QString()>;
Q_DECLARE_METATYPE(StatusWords)

/// Something that takes time, from its construction to its destruction: a search, a set-up, a
/// transfer.
class Activity
{
public:
    /// `blocks`: what follows is known to block the event loop.
    explicit Activity(const StatusWords& words, bool blocks = false);
    ~Activity();
    Activity(const Activity&) = delete;
    Activity& operator=(const Activity&) = delete;

    /// Reports its next step.
    void say(const StatusWords& words);
};

/// All current activities of the program. Does not know who shows them.
class Activities : public QObject
{
    Q_OBJECT

public:
    static Activities& global();

    /// In the order in which they began, in the current language.
    QStringList texts() const;

signals:
    /// To be shown at once, since I/O may block right after; `blocks` when that is known.
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
