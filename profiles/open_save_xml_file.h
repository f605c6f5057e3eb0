#pragma once

#include "link/activity.h"
#include "profiles/profile_replay.h"
#include "profiles/profile_store.h"
#include "profiles/profile_writer.h"
#include "profiles/quick_numbers.h"
#include "profiles/recalled_profile.h"

#include <QObject>

#include <functional>

class Notices;

/// Writes profiles and replays them. Owns the store that defines a profile's contents; the folder,
/// the window and the instrument belong to its owner.
class openSave_XML_FILE : public QObject
{
    Q_OBJECT

public:
    /// Services that the owner provides.
    struct Owner {
        /// Waits milliseconds while events go on; false when the program is being ended.
        ProfileReplay::Pause pause;
        /// Why no profile may be applied now; no words if one may.
        std::function<StatusWords()> refusal;
        /// The text that a file holds for a field. Saving changes no field.
        FieldText fieldText;
        /// Converts the fields to the form in which files hold them, before a replay.
        std::function<void()> settle;
        /// Updates what is derived from the controls, after a replay.
        std::function<void()> refresh;
        /// A replay that may wait begins: from now on the user's input has to be blocked.
        std::function<void(bool isBusy)> setBusy;
    };

    /// `documentName` names the files' documents. Quick profiles are the files of `folder`, which
    /// is made when the first is saved. Dialogs belong to `window`. What becomes of a file is said
    /// to the notices, but for error().
    openSave_XML_FILE(const QString& documentName, const QString& folder, const Owner& owner,
                      Notices& notices, QWidget* window);

    ProfileStore& store() { return m_store; }
    const QString& folder() const { return m_folder; }
    /// The name stored in a quick profile's file.
    QString nameOf(const QString& path) const;
    bool hasQuickProfile(const QString& name) const;
    /// The profile applied or saved last, and whether the panels still are as it says.
    RecalledProfile& recalled() { return m_recalled; }
    /// The number that a reported quick profile keeps; counts from 1.
    int numberOf(const QString& path) const { return m_numbers.numberOf(path); }
    /// Gives a quick profile a number, and the one that has it the number that gets free.
    void exchangeNumber(const QString& path, int number) { m_numbers.exchange(path, number); }

    /// Writes the current state of everything. False, with error(), if no file was written.
    bool save(const QString& path, const QString& name);
    /// Replays a file. False, with a notice, if not all of it has been applied.
    bool open(const QString& path);
    /// Renames a quick profile. False, with error() or a notice, if it keeps its name.
    bool renameQuickProfile(const QString& path, const QString& name);

    /// Saves the state for the next start; reports nothing.
    bool saveLast();
    /// Applies the state saved by the last run, or the file given instead, at once and without
    /// waiting. For a start, before there is an instrument. Without a saved state everything stays.
    void applyAtStart(const QString& path = QString());

    /// Notes that an entry of the replay was refused, though it continues.
    void leaveOut();
    /// Ends a replay after the entry that is under way.
    void stop();

    /// The quick profile that deleteProfile() deletes.
    void choose(const QString& path) { m_chosen = path; }

signals:
    void error(const QString& text);
    /// One of the folder's quick profiles, by its file.
    void sendQuickProfile(const QString& path);

public slots:
    /// Reports every quick profile, in the order of their numbers.
    void getQuickProfiles();
    /// Asks for a file and applies it.
    void openProfile();
    /// Asks for a file and saves into it.
    void saveProfile();
    /// Saves under a name, replacing an older quick profile of that name. False, with error() or a
    /// notice, if none was saved.
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
    void noteMoved(const QString& path, const QString& newPath);
    void sayFault(ProfileFault fault, const QString& path);
    static QString faultText(ProfileFault fault, const QString& name);

    ProfileStore m_store;
    QString m_folder;
    Owner m_owner;
    Notices& m_notices;
    QWidget* m_window;
    ProfileReplay m_replay;
    QString m_chosen;
    QuickNumbers m_numbers;
    RecalledProfile m_recalled;
};
