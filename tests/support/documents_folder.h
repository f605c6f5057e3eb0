#pragma once

#include <QString>

#include <memory>

/// The user's documents folder, in another place during its lifetime: tests touch no real one.
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
