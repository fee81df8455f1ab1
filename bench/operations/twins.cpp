#include "bench/operations/twins.h"

#include "bench/bare/engine.h"
#include "bench/operations/meter.h"
#include "bench/operations/operation.h"
#include "toolkit/forms/mainmod.h"

namespace {

/// A row's cells without their order. Numbers are compared by 11 digits: the engines add them up in an order of their
/// own.
QStringList comparable(QStringList row)
{
    for (QString &cell : row) {
        bool isNumber = false;
        const double number = cell.toDouble(&isNumber);
        if (isNumber)
            cell = QString::number(number + 0.0, 'g', 11);
    }
    row.sort();
    return row;
}

/// The program's rows must be there one by one; what the bare engine reads beside them does no harm.
QString differenceOfRows(const std::vector<QStringList> &program, const std::vector<QStringList> &bare)
{
    if (program.size() != bare.size())
        return QStringLiteral("%1 rows instead of %2").arg(bare.size()).arg(program.size());
    for (size_t row = 0; row < program.size(); ++row) {
        const QStringList ours = comparable(program[row]), its = comparable(bare[row]);
        if (!std::includes(its.begin(), its.end(), ours.begin(), ours.end()))
            return QStringLiteral("row %1 is (%2) instead of (%3)").arg(row + 1).arg(its.join('|'), ours.join('|'));
    }
    return {};
}

/// A table's rows as one SELECT, fractions cut to what does not depend on the order of adding.
QByteArray selectOf(BareEngine &engine, const QByteArray &schema, const QByteArray &table)
{
    engine.run("SELECT name FROM " + schema + ".pragma_table_info('" + table + "')");
    QByteArrayList columns;
    for (const QStringList &row : engine.rows()) {
        const QByteArray column = '"' + row[0].toUtf8() + '"';
        columns += "CASE typeof(" + column + ") WHEN 'real' THEN round(" + column + ",6) ELSE " + column + " END";
    }
    return "SELECT " + columns.join(',') + " FROM " + schema + '.' + table;
}

/// Which tables hold other rows; those that only one of both has made are none of the twins' business.
QString differenceOfTables(BareEngine &engine, const QString &programFile)
{
    engine.run("ATTACH '" + programFile.toUtf8() + "' AS program");
    engine.run("SELECT name FROM program.sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite_%' AND name NOT "
               "LIKE 'MSys%' AND name COLLATE NOCASE IN (SELECT name FROM main.sqlite_master)");
    const std::vector<QStringList> tables = engine.rows();
    QStringList differences;
    for (const QStringList &name : tables) {
        const QByteArray table = name[0].toUtf8();
        const QByteArray its = selectOf(engine, "main", table), ours = selectOf(engine, "program", table);
        engine.run("SELECT (SELECT count(*) FROM (" + its + " EXCEPT " + ours + ")), (SELECT count(*) FROM (" + ours +
                   " EXCEPT " + its + ")), (SELECT count(*) FROM main." + table + ") - (SELECT count(*) FROM program." +
                   table + ")");
        if (engine.rows()[0] != QStringList{"0", "0", "0"})
            differences += name[0] + " (" + engine.rows()[0].join(", ") + ")";
    }
    engine.run("DETACH program");
    return differences.join(", ");
}

} // namespace

QString differenceOfTwins(const Operation &operation, BareEngine &engine, const QString &programFile)
{
    Meter meter;
    meter.keepRows();
    operation.program(meter);
    gDatabase->sync();
    engine.keepRows();
    operation.bare(engine);
    if (!meter.rows().empty()) {
        if (const QString rows = differenceOfRows(meter.rows(), engine.rows()); !rows.isEmpty())
            return rows;
    }
    return differenceOfTables(engine, programFile);
}
