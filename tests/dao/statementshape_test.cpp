#include "data/engines/sqlite/statementshape.h"
#include "tests/dao/databasefile.h"

namespace {

TEST(StatementShape, TakesConstantsOutAndLeavesEverythingElse)
{
    const struct
    {
        const char *sql, *shape;
    } cases[] = {
        {"DELETE FROM \"OrderItem\" AS t1 WHERE t1.\"OrderID\" = 5",
         "DELETE FROM \"OrderItem\" AS t1 WHERE t1.\"OrderID\" = ?"},
        {"UPDATE \"T 1\" SET \"A'1\" = -2.5e-3 + 1e5 WHERE t12.\"B\" IN (17, 18,'x')",
         "UPDATE \"T 1\" SET \"A'1\" = -? + ? WHERE t12.\"B\" IN (?, ?,?)"},
        {"SELECT a1, 'it''s \"b\"' FROM t WHERE jet_like('*5 ORDER BY 1*', c) ORDER BY 1, 2 LIMIT 7",
         "SELECT a1, ? FROM t WHERE jet_like(?, c) ORDER BY 1, 2 LIMIT 7"},
        {"SELECT t1.\"ID\" FROM \"Orders\" AS t1 LIMIT 1", "SELECT t1.\"ID\" FROM \"Orders\" AS t1 LIMIT 1"},
        // The condition of an index that holds open orders alone.
        {"SELECT 1 FROM t WHERE s = 'Open' AND s <> 'Void'", "SELECT ? FROM t WHERE s = 'Open' AND s <> ?"},
        {"", ""},
    };
    for (const auto &row : cases)
        EXPECT_EQ(QString(StatementShape::withoutConstants(row.sql).sql()), row.shape);
}

TEST(StatementShape, StatementsThatDifferInConstantsDoNotMixThemUp)
{
    const DatabaseFile file;
    const auto database = file.open();
    const QStringList names = {"Smith", "O''Neil", "", "Ä", "'5'", "5"};
    for (int i = 0; i < names.size(); ++i) {
        QString quoted = names[i];
        quoted.replace("'", "''");
        database->Execute(
            QString("INSERT INTO Part (PartNo, Cost, MinOnHand) VALUES ('%1', %2, -%2.5)").arg(quoted).arg(i));
        Recordset kept = database->OpenRecordset("SELECT Cost FROM Part WHERE PartNo = '" + quoted + "'");
        Recordset both = database->OpenRecordset(QString("SELECT PartNo FROM Part WHERE Cost = %1").arg(i));
        EXPECT_EQ(both.Fields("PartNo").value(), Value(names[i]));
        EXPECT_EQ(kept.Fields("Cost").value(), Value(double(i)));
    }
    EXPECT_EQ(column(*database, "SELECT MinOnHand FROM Part WHERE Cost IN (1, 2, 5)"), "-1.5 -2.5 -5.5");
}

} // namespace
