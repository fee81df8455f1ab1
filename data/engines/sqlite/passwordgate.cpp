#include "data/engines/sqlite/passwordgate.h"

#include "data/engine/passwordhash.h"
#include "data/engines/sqlite/connection.h"

namespace {

/// A file that wants more of any is not one of ours, or nobody would see the end of its opening.
constexpr qint64 MostRounds = 100'000;
constexpr qsizetype MostBytes = 1024;

} // namespace

void PasswordGate::create(Connection &connection, const QString &password, const QByteArray &given)
{
    const ErrorContext defining{ErrorContext::Defining, "MSysPassword", {}};
    connection.run("CREATE TABLE MSysPassword (Salt BLOB, Rounds INTEGER, Hash BLOB)", defining);
    const QByteArray salt = given.isEmpty() ? randomSalt() : given;
    connection.run("INSERT INTO MSysPassword VALUES (x'" + salt.toHex() + "', " + QByteArray::number(PasswordRounds) +
                       ", x'" + passwordHash(password, salt, PasswordRounds).toHex() + "')",
                   defining);
}

void PasswordGate::check(Connection &connection, const QString &password, const QString &file)
{
    const ErrorContext opening{ErrorContext::Opening, {}, {}};
    PreparedStatement tables = connection.prepare("SELECT 1 FROM sqlite_schema WHERE name = 'MSysPassword'", opening);
    // Any other database file is told from one of ours by this table.
    if (!tables.next())
        throw runtimeError(3343, {file});
    tables.reset();

    PreparedStatement gate = connection.prepare("SELECT Salt, Rounds, Hash FROM MSysPassword", opening);
    // A table of that name with nothing in it is not one of ours either.
    if (!gate.next())
        throw runtimeError(3343, {file});
    const qint64 rounds = gate.integer(1);
    if (rounds < 1 || rounds > MostRounds || gate.bytes(0).size() > MostBytes)
        throw runtimeError(3343, {file});
    if (passwordHash(password, gate.bytes(0), int(rounds)) != gate.bytes(2))
        throw runtimeError(3031);
}
