#pragma once

#include "reportengine/output/outcome.h"
#include <QFile>

/// A file in the making: written under a name of its own beside the wanted one, which it takes when it is complete
/// and safe on the disk. Goes away without a trace otherwise. (Qt's own kind can't be handed to a library that writes
/// by name.)
class NewFile
{
public:
    explicit NewFile(const QString &path);
    ~NewFile();

    /// For reading and writing. False when the folder does not let a file be made.
    bool open();
    QFile *device() { return &m_file; }
    QString temporaryPath() const { return m_file.fileName(); }
    /// Puts the file in its place, instead of any that was there.
    Outcome commit();
    /// What the system says went wrong with the file.
    Outcome failure() const { return Outcome::failed(m_file.errorString()); }

private:
    QString m_path;
    QFile m_file;
};
