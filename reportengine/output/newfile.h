#pragma once

#include <QFile>

/// A file in the making: written under a name of its own beside the wanted one, which it takes when it is complete.
/// Goes away without a trace otherwise.
class NewFile
{
public:
    explicit NewFile(const QString &path);
    ~NewFile();

    /// For reading and writing. False when the folder does not let a file be made.
    bool open();
    QFile *device() { return &m_file; }
    QString temporaryPath() const { return m_file.fileName(); }
    /// Puts the file in its place, instead of any that was there. False when anything about it failed.
    bool commit();

private:
    QString m_path;
    QFile m_file;
};
