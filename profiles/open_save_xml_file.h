#pragma once

#include "profiles/profile_replay.h"
#include "profiles/profile_store.h"
#include "profiles/profile_writer.h"

#include <QObject>

#include <functional>

/// Writes profiles and replays them. Owns the record of what a profile consists of; the folder, the
/// window and how an instrument is spoken to are its owner's.
class openSave_XML_FILE : public QObject
{
    Q_OBJECT

public:
    /// What the owner does for it.
    struct Owner {
        /// Waits milliseconds while events go on; false when the program is being ended.
        ProfileReplay::Pause pause;
        /// Why nothing may be applied just now, for the user to read; empty if it may.
        std::function<QString()> refusal;
        /// What a file holds of a field. Saving changes none.
        FieldText fieldText;
        /// Brings the fields into the form in which files hold them, before a replay.
        std::function<void()> settle;
        /// Brings what is derived from the controls into line with them, after a replay.
        std::function<void()> refresh;
        /// A replay begins that may wait: from now on the user's clicks are to go nowhere.
        std::function<void(bool isBusy)> setBusy;
    };

    /// `documentName` names the files' documents. Quick profiles are the files of `folder`, which
    /// is made when the first is saved. Dialogs belong to `window`.
    openSave_XML_FILE(const QString& documentName, const QString& folder, const Owner& owner,
                      QWidget* window);

    ProfileStore& store() { return m_store; }
    const QString& folder() const { return m_folder; }
    /// The name that a quick profile's file bears.
    QString nameOf(const QString& path) const;
    bool hasQuickProfile(const QString& name) const;

    /// Writes the present state of everything. False, with error(), if there is no new file.
    bool save(const QString& path, const QString& name);
    /// Replays a file. False, with message(), if not all of it has been applied.
    bool open(const QString& path);
    /// Names a quick profile anew. False, with error() or message(), if it stays as it is.
    bool renameQuickProfile(const QString& path, const QString& name);

    /// Keeps the state for the next start; reports nothing.
    bool saveLast();
    /// Applies what the last run has kept, or the file given instead, at once and without waiting.
    /// For a start, before there is an instrument. With nothing kept everything stays.
    void applyAtStart(const QString& path = QString());

    /// Tells of a replay that something of it has been refused, though it goes on.
    void leaveOut();
    /// Ends a replay after what is under way of it.
    void stop();

    /// The quick profile that deleteProfile() is about.
    void choose(const QString& path) { m_chosen = path; }

signals:
    void error(const QString& text);
    void message(const QString& text);
    /// One of the folder's quick profiles, by its file.
    void sendQuickProfile(const QString& path);

public slots:
    /// Tells of every quick profile, in the order of their names.
    void getQuickProfiles();
    /// Asks for a file and applies it.
    void openProfile();
    /// Asks for a file and saves into it.
    void saveProfile();
    /// Saves under a name, over an older quick profile of that name. False, with error() or
    /// message(), if there is no new one.
    bool saveQuickProfile(const QString& name);
    /// Deletes the chosen quick profile.
    void deleteProfile();

private:
    bool isRefused();
    FileBytes read(const QString& path) const;
    bool write(const QString& path, const QByteArray& document);
    bool isNameRefused(const QString& name);
    void saveAs(const QString& path);
    bool replay(const ProfileFile& file, bool isWaiting);
    QString faultText(ProfileFault fault, const QString& path) const;

    ProfileStore m_store;
    QString m_folder;
    Owner m_owner;
    QWidget* m_window;
    ProfileReplay m_replay;
    QString m_chosen;
};
