#include "tools/check/findings.h"

#include "data/engine/connection.h"
#include "data/engines/postgres/functions.h"
#include "data/schema/schema.h"
#include <QRegularExpression>
#include <QSet>

namespace check {

namespace {

QSet<QString> namesFrom(engine::Connection &connection, const QByteArray &sql)
{
    QSet<QString> names;
    const auto rows = connection.open(sql, {}, {ErrorContext::Reading, {}, QString::fromUtf8(sql)});
    while (rows->next())
        names += rows->value(0, ColumnType::Text).toText();
    return names;
}

} // namespace

void checkServer(engine::Connection &connection, Findings &findings)
{
    const QString server = "Server";
    const QSet<QString> functions =
        namesFrom(connection, "SELECT proname::text FROM pg_proc WHERE pronamespace = 'public'::regnamespace");
    // The list of what must be there is the text that makes it.
    static const QRegularExpression made("CREATE FUNCTION (\\w+)");
    for (auto all = made.globalMatch(QString::fromUtf8(postgres::functions())); all.hasNext();) {
        const QString name = all.next().captured(1);
        if (!functions.contains(name))
            findings.add(server, "functions are missing, which ends the program where it needs them", name);
    }
    const QSet<QString> indexes =
        namesFrom(connection, "SELECT c.relname::text FROM pg_index AS i JOIN pg_class AS c ON c.oid = i.indexrelid "
                              "WHERE i.indisvalid AND c.relnamespace = 'public'::regnamespace");
    for (const Schema::Index &index : Schema::indexes()) {
        if (Schema::permanentTable(index.table) && !indexes.contains(index.name))
            findings.add(server, "indexes are missing, which makes the program slow", index.name);
    }
}

} // namespace check
