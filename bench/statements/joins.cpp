#include "bench/statements/campaigns.h"
#include "data/values/textorder.h"
#include "tests/dao/databasefile.h"

#include <QRandomGenerator>
#include <cstdio>

namespace {

/// A key as people and other tools leave them: in any case, with blanks at the end, with accents.
QString untidyKey(QRandomGenerator &random)
{
    static const QStringList stems{"A-1", "a-1", "B 20", "b 20", "É-3", "é-3", "", "ax", "AX", "straße", "STRASSE"};
    return stems[random.bounded(stems.size())] + QString(random.bounded(3), ' ');
}

/// The rows a statement gives, in no order.
QStringList rowsOf(Database &database, const QString &sql)
{
    QStringList rows;
    for (Recordset rs = database.OpenRecordset(sql); !rs.Eof(); rs.MoveNext())
        rows += rs.Fields(0).joined() + '|' + rs.Fields(1).joined();
    rows.sort();
    return rows;
}

void dropIndexes(const DatabaseFile &file)
{
    for (QString name; (name = file.plain("SELECT name FROM sqlite_schema WHERE type = 'index'"
                                          " AND tbl_name IN ('Part', 'OrderItem')")) != "no row";)
        file.plain("DROP INDEX \"" + name + '"');
}

/// What each statement must give by the order of texts alone.
std::vector<std::pair<const char *, QStringList>> expectedRows(const QStringList &parts, const QStringList &items)
{
    QStringList inner, outer, member;
    for (int item = 0; item < items.size(); ++item) {
        const qsizetype before = inner.size();
        for (int part = 0; part < parts.size(); ++part) {
            if (compareTexts(items[item].toStdString(), parts[part].toStdString()) == 0)
                inner += QString("%1|%2").arg(item).arg(part);
        }
        const bool found = inner.size() > before;
        outer += found ? inner.mid(before) : QStringList{QString("%1|").arg(item)};
        if (found)
            member += QString("%1|").arg(item) + items[item];
    }
    return {{"SELECT OrderID, Part.Cost FROM OrderItem, Part WHERE OrderItem.PartNo = Part.PartNo", inner},
            {"SELECT OrderID, Part.Cost FROM OrderItem INNER JOIN Part ON OrderItem.PartNo = Part.PartNo", inner},
            {"SELECT OrderID, Part.Cost FROM OrderItem LEFT JOIN Part ON OrderItem.PartNo = Part.PartNo", outer},
            {"SELECT OrderID, PartNo FROM OrderItem WHERE PartNo IN (SELECT PartNo FROM Part)", member}};
}

} // namespace

QStringList joins(Extent extent)
{
    QRandomGenerator random(extent.seed);
    QStringList faults;
    for (int round = 0; round < extent.count; ++round) {
        const DatabaseFile file;
        QStringList parts, items;
        auto database = file.open();
        for (int i = 0; i < 30; ++i) {
            parts += untidyKey(random);
            items += untidyKey(random);
            database->Execute(QString("INSERT INTO Part (PartNo, Cost) VALUES ('%1', %2)").arg(parts[i]).arg(i));
            database->Execute(
                QString("INSERT INTO OrderItem (OrderID, PartNo) VALUES (%1, '%2')").arg(i).arg(items[i]));
        }
        for (const bool indexed : {true, false}) {
            if (!indexed) {
                database.reset();
                dropIndexes(file);
                database = file.open();
            }
            for (auto [sql, expected] : expectedRows(parts, items)) {
                expected.sort();
                if (rowsOf(*database, sql) != expected)
                    faults +=
                        QString("company %1 %2 indexes: %3").arg(round).arg(indexed ? "with" : "without").arg(sql);
            }
        }
    }
    std::printf("joins: %d companies\n", extent.count);
    return faults;
}
