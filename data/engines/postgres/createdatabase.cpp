#include "data/engines/postgres/createdatabase.h"

#include "data/engine/passwordhash.h"
#include "data/engines/postgres/answers.h"
#include "data/engines/postgres/errors.h"
#include "data/engines/postgres/functions.h"
#include "data/engines/postgres/session.h"
#include "data/engines/postgres/tables.h"

namespace {

using namespace postgres;

const ErrorContext Defining{ErrorContext::Defining, {}, "create database"};
/// A database that every server has, to make others from.
const QString Maintenance = "postgres";

QByteArray passwordTable(const QString &password, const QByteArray &given)
{
    // The version stands beside the password, where every session looks before its first statement.
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
    // In one transaction: a database that stood there before is empty again if anything fails.
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

bool isEmpty(PGconn *connection, const Uri &uri)
{
    const Result tables =
        run(connection, "SELECT 1 FROM pg_class WHERE relnamespace = 'public'::regnamespace LIMIT 1", uri, Defining);
    return PQntuples(tables.get()) == 0;
}

/// Makes a database empty again that was filled here.
QByteArray dropTables()
{
    QByteArrayList tables{"\"MSysPassword\""};
    for (const TableDef &table : Schema::permanentTables())
        tables += quoted(table.Name);
    return "DROP TABLE IF EXISTS " + tables.join(", ") +
           "; DROP SEQUENCE IF EXISTS jet_row; DO $$ DECLARE name regprocedure; BEGIN "
           "FOR name IN SELECT oid FROM pg_proc WHERE pronamespace = 'public'::regnamespace AND proname LIKE 'jet\\_%' "
           "LOOP EXECUTE 'DROP FUNCTION ' || name; END LOOP; END $$";
}

} // namespace

void postgres::discardDatabase(const QString &name, engine::Made made)
{
    try {
        const Uri uri(name);
        // The database itself was the administrator's, with rights and settings that nobody else knows to give it
        // again.
        if (made == engine::Made::Tables)
            run(openSession(uri).get(), "SET client_min_messages = error; " + dropTables(), uri, Defining);
        else
            run(openSession(uri, Maintenance).get(), "DROP DATABASE IF EXISTS " + quoted(databaseName(uri)), uri,
                Defining);
    } catch (const RuntimeError &) {
    }
}

engine::Made postgres::createDatabase(const QString &name, const QString &password, const QByteArray &salt)
{
    const Uri uri(name);
    if (const Handle there = existing(uri)) {
        if (!isEmpty(there.get(), uri))
            throw runtimeError(3204, {}, withoutPassword(name));
        fill(there.get(), uri, password, salt);
        return engine::Made::Tables;
    }
    const Handle maker = openSession(uri, Maintenance);
    const QByteArray database = quoted(databaseName(uri));
    // Letters are compared by keys of the program's own; the server needs no idea of any language.
    run(maker.get(), "CREATE DATABASE " + database + " TEMPLATE template0 ENCODING 'UTF8' LC_COLLATE 'C' LC_CTYPE 'C'",
        uri, Defining);
    try {
        fill(openSession(uri).get(), uri, password, salt);
    } catch (...) {
        run(maker.get(), "DROP DATABASE " + database, uri, Defining);
        throw;
    }
    return engine::Made::Database;
}
