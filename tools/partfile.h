#pragma once

#include <QFile>

/// A file that gets its name only when it is whole. Until then it is called `<name>.part`, and it goes away with the
/// object if it never gets there. Not QSaveFile, since engines and libraries write it by its name.
class PartFile
{
public:
    /// Begins with an empty file. A ToolError when something of that name is there already, or leftovers of a database
    /// of that name, which the engine would take for a part of the new one; errors 3055 for an empty name
    /// and 3044 for a folder that does not exist.
    explicit PartFile(const QString &name);
    PartFile(const PartFile &) = delete;
    PartFile &operator=(const PartFile &) = delete;
    ~PartFile();

    QString path() const { return m_path; } ///< of the file as long as it is a part
    /// Gives it its name, for good also if the power fails right after. The name must still be free.
    void publish();

private:
    QString m_name, m_path;
    bool m_published = false;
};
