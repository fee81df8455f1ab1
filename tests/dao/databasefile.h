#pragma once

#include "data/dao/createdatabase.h"
#include "data/dao/database.h"
#include "tests/support/printers.h"
#include <QTemporaryDir>

/// A new database in a folder of its own, gone with the object.
class DatabaseFile
{
public:
    static constexpr auto Password = "secret";

    DatabaseFile() { createDatabase(path(), Password); }

    QString path() const { return m_folder.filePath("company.db"); }
    QString folder() const { return m_folder.path(); }

    /// `options` are entries of the connect string besides the password.
    std::unique_ptr<Database> open(const QString &options = {}) const
    {
        return DBEngine::OpenDatabase(path(), false, false, options + ";pwd=" + Password);
    }

private:
    QTemporaryDir m_folder;
};

/// The text of one column of every row, joined by blanks; "-" for Null.
inline QString column(Database &database, const QString &sql, int position = 0)
{
    QStringList texts;
    for (Recordset rows = database.OpenRecordset(sql); !rows.Eof(); rows.MoveNext())
        texts += rows.Fields(position).isNull() ? QStringLiteral("-") : rows.Fields(position).text();
    return texts.join(' ');
}
