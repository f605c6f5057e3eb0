#pragma once

#include <QObject>
#include <QString>
#include <QTemporaryDir>

/// Where the simulated instrument comes from: its library beside the program, and the file that
/// says which instruments are plugged in. Owns that file when the user has named none.
class DemoMode : public QObject
{
    Q_OBJECT

public:
    DemoMode();
    ~DemoMode() override;

    /// Path of the simulated instrument's VISA library.
    static QString libraryPath();

    /// The file of plugged-in instruments; removing one there is pulling its cable.
    QString instrumentsFile() const { return m_instrumentsFile; }

    /// Brings instruments that are in their bootloader back to the bus after a few seconds, as a
    /// finished update would.
    void endBootloaderSoon();

private:
    bool m_ownsFile = false;
    QTemporaryDir m_folder;
    QString m_instrumentsFile;
};
