#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>

/// Writes a file of these bytes, in a folder that is made where there is none. Returns its path.
inline QString writeFile(const QString& path, const QByteArray& bytes = {})
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("no %s", qUtf8Printable(path));
    return path;
}

/// What is in a file.
inline QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("not there");
}
