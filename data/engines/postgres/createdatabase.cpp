#include "data/engines/postgres/createdatabase.h"

#include "data/engine/passwordhash.h"
#include "data/engines/postgres/errors.h"
#include "data/engines/postgres/functions.h"
#include "data/engines/postgres/session.h"
#include "data/engines/postgres/tables.h"
#include <QUrl>

namespace {

using namespace postgres;

const Doing Defining{Doing::Defining, {}, QStringLiteral("create database")};
/// A database that every server has, to make others from.
const QString Maintenance = QStringLiteral("postgres");

QByteArray passwordTable(const QString &password, const QByteArray &given)
{
    const QByteArray salt = given.isEmpty() ? randomSalt() : given;
    return "CREATE TABLE \"MSysPassword\" (\"Salt\" bytea, \"Rounds\" int, \"Hash\" bytea, \"Version\" int);"
           "INSERT INTO \"MSysPassword\" VALUES ('\\x" +
           salt.toHex() + "', " + QByteArray::number(PasswordRounds) + ", '\\x" +
           passwordHash(password, salt, PasswordRounds).toHex() + "', " + QByteArray::number(FunctionsVersion) + ')';
}

QByteArray allTables(int serverVersion)
{
    QByteArrayList statements;
    for (const TableDef &table : Schema::permanentTables()) {
        statements += Tables::createStatements(table, engine::Key::AutoNumberIsKey);
        if (serverVersion >= 140000) // older ones know no statistics of expressions
            statements += Tables::statisticsFor(table);
        for (const Schema::Index &index : Schema::indexes()) {
            if (index.table == table.Name)
                statements += Tables::createStatement(index, table);
        }
    }
    return statements.join("; ");
}

void fill(PGconn *connection, const Uri &uri, const QString &password, const QByteArray &salt)
{
    run(connection, "SET client_min_messages = error; SET search_path = public; BEGIN", uri, Defining);
    run(connection, functions(), uri, Defining);
    run(connection, passwordTable(password, salt), uri, Defining);
    run(connection, allTables(PQserverVersion(connection)), uri, Defining);
    run(connection,
        "GRANT ALL ON ALL TABLES IN SCHEMA public TO PUBLIC; GRANT ALL ON ALL SEQUENCES IN SCHEMA public TO PUBLIC;"
        "REVOKE INSERT, UPDATE, DELETE, TRUNCATE ON \"MSysPassword\" FROM PUBLIC",
        uri, Defining);
    run(connection, "COMMIT", uri, Defining);
}

/// The URI's database, or nothing where there is none of that name.
Handle existing(const Uri &uri)
{
    try {
        return openSession(uri);
    } catch (const RuntimeError &error) {
        if (error.number() != 3024)
            throw;
        return {};
    }
}

QByteArray databaseOf(const QString &uri)
{
    return quoted(QUrl(uri).path().mid(1));
}

bool isEmpty(PGconn *connection, const Uri &uri)
{
    const Result tables =
        run(connection, "SELECT 1 FROM pg_class WHERE relnamespace = 'public'::regnamespace LIMIT 1", uri, Defining);
    return PQntuples(tables.get()) == 0;
}

} // namespace

void postgres::dropDatabase(const QString &name)
{
    try {
        const Uri uri(name);
        run(openSession(uri, Maintenance).get(), "DROP DATABASE IF EXISTS " + databaseOf(name), uri, Defining);
    } catch (const RuntimeError &) {
    }
}

void postgres::createDatabase(const QString &name, const QString &password, const QByteArray &salt)
{
    const Uri uri(name);
    if (const Handle there = existing(uri)) {
        if (!isEmpty(there.get(), uri))
            throw RuntimeError(3204, QStringLiteral("Database already exists."), withoutPassword(name));
        return fill(there.get(), uri, password, salt);
    }
    const Handle maker = openSession(uri, Maintenance);
    const QByteArray database = databaseOf(name);
    // Letters are compared by keys of the program's own; the server needs no idea of any language.
    run(maker.get(), "CREATE DATABASE " + database + " TEMPLATE template0 ENCODING 'UTF8' LC_COLLATE 'C' LC_CTYPE 'C'",
        uri, Defining);
    try {
        fill(openSession(uri).get(), uri, password, salt);
    } catch (...) {
        run(maker.get(), "DROP DATABASE " + database, uri, Defining);
        throw;
    }
}
