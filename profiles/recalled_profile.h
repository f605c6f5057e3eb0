#pragma once

#include "profiles/profile_store.h"
#include "profiles/profile_writer.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <vector>

/// Which profile the panels were brought to last, and whether they still are as it left them. Looks
/// after a control has been changed, never by itself; step sizes and the like do not count.
class RecalledProfile : public QObject
{
    Q_OBJECT

public:
    /// What the panels hold is taken as a file would hold it.
    RecalledProfile(const ProfileStore& store, const FieldText& fieldText,
                    QObject* parent = nullptr);

    /// The panels now are as the profile of that file says; if not all of it could be applied, they
    /// differ from the start.
    void take(const QString& path, bool isComplete);
    /// The profile's file has another name now.
    void moved(const QString& path, const QString& newPath);
    /// The file is no more.
    void forget(const QString& path);

    /// Empty while there is none.
    const QString& path() const { return m_path; }
    bool differs() const { return m_differs; }

public slots:
    /// Compares once what is going on is over.
    void look();

signals:
    /// Another profile, or it differs now, or does not any more.
    void changed();

private:
    struct Part {
        std::function<QString()> text; ///< now
        QString held;                  ///< when the profile had been recalled
    };

    void follow();
    template <typename Control, typename Signal>
    void followControls(Signal signal);
    bool isAsHeld() const;

    const ProfileStore& m_store;
    FieldText m_fieldText;
    QString m_path;
    bool m_isComplete = true;
    bool m_differs = false;
    std::vector<Part> m_parts;
    QTimer m_look;
};
