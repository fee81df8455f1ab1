#include "data/values/textorder.h"
#include "tests/dao/databasefile.h"
#include <QRandomGenerator>

namespace {

/// A key as people and other tools leave them: in any case, with blanks at the end, with accents.
QString untidyKey(QRandomGenerator &random)
{
    static const QStringList stems{"A-1", "a-1", "B 20", "b 20", "É-3", "é-3", "", "ax", "AX", "straße", "STRASSE"};
    return stems[random.bounded(stems.size())] + QString(random.bounded(3), ' ');
}

bool equal(const QString &a, const QString &b)
{
    return compareTexts(a.toStdString(), b.toStdString()) == 0;
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

TEST(TextJoins, FindEveryEqualKeyWithAnIndexAndWithout)
{
    QRandomGenerator random(20111123);
    for (int round = 0; round < 10; ++round) {
        SCOPED_TRACE(round);
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
        QStringList inner, outer, member;
        for (int item = 0; item < items.size(); ++item) {
            const qsizetype before = inner.size();
            for (int part = 0; part < parts.size(); ++part)
                if (equal(items[item], parts[part]))
                    inner += QString("%1|%2").arg(item).arg(part);
            outer += inner.size() > before ? inner.mid(before) : QStringList{QString("%1|").arg(item)};
            if (inner.size() > before)
                member += QString("%1|").arg(item) + items[item];
        }
        const std::pair<const char *, QStringList> statements[] = {
            {"SELECT OrderID, Part.Cost FROM OrderItem, Part WHERE OrderItem.PartNo = Part.PartNo", inner},
            {"SELECT OrderID, Part.Cost FROM OrderItem INNER JOIN Part ON OrderItem.PartNo = Part.PartNo", inner},
            {"SELECT OrderID, Part.Cost FROM OrderItem LEFT JOIN Part ON OrderItem.PartNo = Part.PartNo", outer},
            {"SELECT OrderID, PartNo FROM OrderItem WHERE PartNo IN (SELECT PartNo FROM Part)", member},
        };
        for (const bool indexed : {true, false}) {
            if (!indexed) {
                database.reset();
                PlainConnection plain(file.path());
                for (QString name; (name = plain.text("SELECT name FROM sqlite_schema WHERE type = 'index'"
                                                      " AND tbl_name IN ('Part', 'OrderItem')")) != "no row";)
                    plain.run(("DROP INDEX \"" + name + '"').toUtf8());
                database = file.open();
            }
            for (auto [sql, expected] : statements) {
                expected.sort();
                EXPECT_EQ(rowsOf(*database, sql), expected) << sql << (indexed ? " with" : " without") << " indexes";
            }
        }
    }
}

} // namespace
