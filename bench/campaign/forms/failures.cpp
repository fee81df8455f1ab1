#include "bench/campaign/forms/failures.h"

#include "bench/campaign/place.h"
#include "data/engines/engines.h"
#include "data/schema/schema.h"

namespace {

constexpr auto Routines = {"order", "shipment", "invoices", "rebuild"};

struct Failure
{
    const char *name, *action;
};
constexpr Failure Failures[] = {
    {"an error", "RAISE 'full' USING ERRCODE = 'disk_full'"},
    {"a lock", "RAISE 'locked' USING ERRCODE = 'lock_not_available'"},
    {"a deadlock", "RAISE 'deadlock' USING ERRCODE = 'deadlock_detected'"},
    {"a cut", "PERFORM pg_terminate_backend(pg_backend_pid()); PERFORM pg_sleep(10)"},
};

QString otherDatabase(const QString &uri, const QString &database)
{
    return QString(uri).replace('/' + engines::databaseName(uri) + '?', '/' + database + '?');
}

/// Has the server count the statements that write, and one of them fail. What is counted stays so when it is undone.
QByteArray trap(const QString &action, int statement)
{
    const QString sql = "CREATE SEQUENCE met; CREATE FUNCTION fail() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN "
                        "IF nextval('met') = %1 THEN %2; END IF; RETURN NULL; END $$;"
                        "DO $$ DECLARE name regclass; BEGIN FOR name IN SELECT oid FROM pg_class WHERE relkind = 'r' "
                        "AND relnamespace = 'public'::regnamespace LOOP EXECUTE 'CREATE TRIGGER fail BEFORE INSERT OR "
                        "UPDATE OR DELETE ON ' || name || ' EXECUTE FUNCTION fail()'; END LOOP; END $$";
    return sql.arg(statement).arg(action).toUtf8();
}

} // namespace

StatementFailures::Outcome StatementFailures::run(const QString &role, const QString &failure, int statement,
                                                  bool behind)
{
    ++m_runs;
    const QString name = engines::databaseName(m_company) + "_failing";
    const Place server(otherDatabase(m_company, "postgres")), place(otherDatabase(m_company, name));
    server.rows("CREATE DATABASE " + name.toUtf8() + " TEMPLATE " + engines::databaseName(m_company).toUtf8());
    place.rows(trap(failure, statement));
    Outcome outcome;
    outcome.told = m_clerk(place.name() + (behind ? "" : "&behind=no"), role);
    place.waitUntilLeft();
    for (const TableDef &table : Schema::permanentTables()) {
        const QByteArray quoted = '"' + table.Name.toUtf8() + '"';
        outcome.rows += table.Name;
        outcome.rows += place.rows("SELECT " + quoted + "::text FROM " + quoted + " ORDER BY 1");
    }
    outcome.statements = place.rows("SELECT last_value FROM met WHERE is_called").value(0).toInt();
    server.rows("DROP DATABASE " + name.toUtf8() + " WITH (FORCE)");
    return outcome;
}

void StatementFailures::tryAll(int count)
{
    for (const char *role : Routines) {
        const Outcome whole = run(role, "NULL", 0, true);
        if (whole.statements < 3 || !whole.told.endsWith(" 0"))
            m_faults += QString("%1: %2 statements, %3").arg(role).arg(whole.statements).arg(whole.told);
        const int tried = std::min(count, whole.statements);
        for (int i = 0; i < tried; ++i) {
            const int statement = 1 + i * whole.statements / tried;
            for (const Failure &failure : Failures) {
                const Outcome behind = run(role, failure.action, statement, true);
                const Outcome oneByOne = run(role, failure.action, statement, false);
                const QString what = QString("%1, statement %2, %3: ").arg(role).arg(statement).arg(failure.name);
                if (behind.told != oneByOne.told)
                    m_faults += what + behind.told + " instead of " + oneByOne.told;
                for (qsizetype row = 0; row < std::max(behind.rows.size(), oneByOne.rows.size()); ++row) {
                    if (behind.rows.value(row) == oneByOne.rows.value(row))
                        continue;
                    m_faults += what + behind.rows.value(row) + " instead of " + oneByOne.rows.value(row);
                    break;
                }
                const bool passes = qstrcmp(failure.name, "a deadlock") == 0;
                if (oneByOne.statements < statement || (!passes && !oneByOne.told.endsWith(" 1")))
                    m_faults += what + "met nothing: " + oneByOne.told;
            }
        }
        std::printf("%s: %d statements, %d tried\n", role, whole.statements, tried);
    }
}
