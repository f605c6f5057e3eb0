#pragma once

#include "ui/files/whole_file.h"

#include <QPointer>
#include <QString>
#include <QWidget>

#include <vector>

class ProfileStore;

/// What a profile file says of one control or variable.
struct ProfileEntry {
    bool isVariable;
    QPointer<QWidget> panel; ///< of a control
    QString name;
    QString text; ///< as in the file, with its kind code
};

enum class ProfileFault { None, Missing, Unreadable, TooLarge, Cancelled, Damaged, Foreign };

/// A whole, sound profile file, or why there is none.
struct ProfileFile {
    ProfileFault fault = ProfileFault::None;
    QString name; ///< as given when it was saved
    std::vector<ProfileEntry> entries;
};

/// Reads a file to its end before anything is done with it. What the store does not know is left
/// out; of an entry that comes twice the first counts.
ProfileFile readProfile(const QString& path, const ProfileStore& store);

/// The same in two steps: what is read need not be read beside the widgets, what it says must be.
FileBytes profileBytes(const QString& path, FileProgress* progress = nullptr);
ProfileFile profileOf(const FileBytes& read, const ProfileStore& store);

/// Only the name that a profile file bears; empty if none can be read.
QString readProfileName(const QString& path, const ProfileStore& store);
