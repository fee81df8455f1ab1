#include "data/engines/sqlite/autonumber.h"

#include "data/engines/sqlite/connection.h"
#include "data/engines/sqlite/tables.h"
#include "data/jetsql/dialect.h"
#include <limits>

// The counter is SQLite's own for AUTOINCREMENT columns, so that an INSERT statement, of this program or of any
// other tool, draws from it too.

qint32 takeAutoNumber(Connection &connection, const TableDef &table, const QString &column)
{
    const ErrorContext writing{ErrorContext::Writing, table.Name, "AddNew in " + table.Name};
    const QByteArray highest =
        "coalesce((SELECT max(" + Tables::quoted(column) + ") FROM " + Tables::quoted(table.Name) + "), 0)";
    PreparedStatement take = connection.prepare("UPDATE sqlite_sequence SET seq = 1 + max(seq, " + highest +
                                                    ") WHERE name = ? COLLATE NOCASE RETURNING seq",
                                                writing);
    // Above any number in the table too, since other tools may have put rows in with numbers of their own.
    take.bind(1, Value(table.Name));
    qint64 number = 0;
    if (take.next()) {
        number = take.integer(0);
        take.finish(); // the commit comes with the end of the statement
    }
    connection.giveBack(std::move(take));

    if (number == 0) { // a table that never took a number has no counter yet
        Transaction transaction(connection, writing);
        const QByteArray name = jetsql::quotedText(table.Name).toUtf8();
        connection.run("INSERT INTO sqlite_sequence (name, seq) SELECT " + name +
                           ", 0 WHERE NOT EXISTS (SELECT 1 FROM sqlite_sequence WHERE name = " + name + ')',
                       writing);
        transaction.commit();
        return takeAutoNumber(connection, table, column);
    }
    // SQLite counts with 64 bits, the column and everybody who reads it with 32.
    if (number > std::numeric_limits<qint32>::max())
        throw runtimeError(6);
    return qint32(number);
}
