#pragma once

#include "data/engine/made.h"
#include "tools/partfile.h"
#include <optional>

/// A database of the program's tables that is being made and filled, and goes away with the object unless it gets to
/// its end: on a server under its own name, as a file under that of a part. One that stood on the server before, empty,
/// is then empty again.
class NewDatabase
{
public:
    /// Makes the tables, empty. Errors as at making a database; a ToolError where a file of that name is there.
    explicit NewDatabase(const QString &name, const QByteArray &salt = {});
    NewDatabase(const NewDatabase &) = delete;
    NewDatabase &operator=(const NewDatabase &) = delete;
    ~NewDatabase();

    const QString &name() const { return m_name; } ///< under which it can be opened as long as it is being made
    /// Leaves it for good, also if the power fails right after.
    void publish();

private:
    std::optional<PartFile> m_file; ///< of a file
    QString m_name;
    engine::Made m_made = engine::Made::Database;
    bool m_published = false;
};
