#include "data/values/runtimeerror.h"
#include "tests/dao/databasefile.h"

namespace {

QString outcomeOf(Database &database, const QString &statement)
{
    try {
        runNow(database, statement);
        return "done";
    } catch (const RuntimeError &error) {
        return QString::number(error.number());
    }
}

using SharedTranslations = testing::TestWithParam<EngineKind>;

TEST_P(SharedTranslations, DoNotMixUpConstants)
{
    const DatabaseFile file(GetParam());
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

TEST_P(SharedTranslations, StopWhereAConstantCountsForMoreThanItsValue)
{
    const DatabaseFile file(GetParam());
    const auto database = file.open();
    const QString insert = "INSERT INTO Shipment (Via, Date, Invoiced) VALUES ('%1', '%2', %3)";
    const struct
    {
        QString via, date, invoiced, outcome;
    } cases[] = {
        {"a", "3/30/2011", "0", "done"},
        {QString(51, u'x'), "3/30/2011", "0", "3163"},
        {QString(50, u'x'), "3/31/2011", "-1", "done"},
        {"b", "no date", "0", "3464"},
        {"c", "2/29/2012", "2", "done"},
    };
    for (const auto &row : cases)
        EXPECT_EQ(outcomeOf(*database, insert.arg(row.via, row.date, row.invoiced)), row.outcome);
    EXPECT_EQ(column(*database, "SELECT Date FROM Shipment WHERE Invoiced = 0"), "3/30/2011");
    EXPECT_EQ(column(*database, "SELECT Date FROM Shipment WHERE Invoiced = -1"), "3/31/2011 2/29/2012");
    EXPECT_EQ(column(*database, "SELECT Date FROM Shipment WHERE Invoiced = 2"), "");
    EXPECT_EQ(column(*database, "SELECT TOP 1 Date FROM Shipment ORDER BY 1 DESC"), "2/29/2012");
    EXPECT_EQ(column(*database, "SELECT TOP 2 Date FROM Shipment ORDER BY 1 DESC"), "2/29/2012 3/31/2011");
    EXPECT_EQ(column(*database, "SELECT TOP 1 ID & 'a' FROM Shipment"), "1a");
    EXPECT_EQ(column(*database, "SELECT TOP 1 ID & 'b' FROM Shipment"), "1b");
    EXPECT_EQ(column(*database, "SELECT ID FROM Shipment WHERE Via LIKE 'a*'"), "1");
    EXPECT_EQ(column(*database, "SELECT Via FROM Shipment WHERE Via LIKE 'c*'"), "c");
}

INSTANTIATE_TEST_SUITE_P(Engines, SharedTranslations, allEngines(), nameOfEngine);

} // namespace
