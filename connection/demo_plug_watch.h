#pragma once

#include "connection/hot_plug_watch.h"

#include <QFileSystemWatcher>
#include <QTimer>

/// The watch over a file of simulated instruments: a section is an instrument, its name the
/// serial number, and deleting it pulls the cable. Reads section names only.
class DemoPlugWatch : public HotPlugWatch
{
    Q_OBJECT

public:
    /// How long the file must have been unchanged before it is read.
    static constexpr int QuietMs = 250;

    /// The file need not exist yet, its folder must; a missing file has no instruments.
    explicit DemoPlugWatch(const QString& filePath);

    QStringList presentSerials() const override;
    void noteLoss() override;

private:
    void watchPaths();
    void noteChange(bool isRewritten);
    static QStringList serialsIn(const QByteArray& content);
    void compareContent();
    QByteArray readFile() const;

    QString m_filePath;
    QByteArray m_content;
    QStringList m_absent; ///< were away for a moment; not listed until that has been reported
    QFileSystemWatcher m_watcher;
    QTimer m_quiet;
};
