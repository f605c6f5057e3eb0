#pragma once

#include "ui/files/whole_file.h"

#include <QPointer>
#include <QString>
#include <QWidget>

#include <vector>

class ProfileStore;

/// One control's or variable's entry in a profile file.
struct ProfileEntry {
    bool isVariable;
    QPointer<QWidget> panel; ///< of a control
    QString name;
    QString text; ///< as in the file, with its kind code
};

enum class ProfileFault { None, Missing, Unreadable, TooLarge, Cancelled, Damaged, Foreign };

/// A complete, valid profile file, or why there is none.
struct ProfileFile {
    ProfileFault fault = ProfileFault::None;
    QString name; ///< as given when it was saved
    std::vector<ProfileEntry> entries;
};

/// Reads a file to its end before anything is done with it. Entries that the store does not know
/// are left out; of repeated entries the first counts.
ProfileFile readProfile(const QString& path, const ProfileStore& store);

/// The same in two steps: reading may run outside the GUI thread, interpreting may not.
FileBytes profileBytes(const QString& path, FileProgress* progress = nullptr);
ProfileFile profileOf(const FileBytes& read, const ProfileStore& store);

/// Only the name stored in a profile file; empty if none can be read.
QString readProfileName(const QString& path, const ProfileStore& store);
