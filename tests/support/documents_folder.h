#pragma once

#include <QString>

#include <memory>

/// The user's documents folder, somewhere else for as long as this lives: tests touch no real one.
class DocumentsFolder
{
public:
    /// Makes "Documents" in `home`.
    explicit DocumentsFolder(const QString& home);
    ~DocumentsFolder();

    QString path() const { return m_path; }

private:
    struct Before;

    QString m_path;
    std::unique_ptr<Before> m_before;
};
