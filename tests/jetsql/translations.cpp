#include "tests/jetsql/corpus.h"
#include "tests/jetsql/mutation.h"

#include <gtest/gtest.h>

// What a translation tells besides its text.

TEST(Translations, NameTheTableThatASelectCanEdit)
{
    const SqlCompany company;
    struct Row
    {
        const char *statement, *table;
    };
    const Row rows[] = {
        {"SELECT * FROM customer WHERE Customer = 'x'", "Customer"},
        {"SELECT TOP 1 *  FROM Shipment", "Shipment"},
        {"SELECT TOP 2 ID FROM Orders ORDER BY Total", "Orders"},
        {"SELECT ID,Total * 2 FROM Orders AS O WHERE ID IN (SELECT OrderID FROM Shipment)", "Orders"},
        {"SELECT DISTINCT Category FROM Part", ""},
        {"SELECT SUM(Total) AS S FROM Invoice", ""},
        {"SELECT Customer FROM Orders GROUP BY Customer", ""},
        {"SELECT Orders.ID FROM Orders LEFT JOIN Shipment ON Orders.ID = Shipment.OrderID", ""},
        {"SELECT ID FROM (SELECT ID FROM Orders)", ""},
    };
    for (const Row &row : rows) {
        const jetsql::Translation translation = company.translate(row.statement);
        EXPECT_EQ(row.table, translation.updatableTable.toStdString()) << row.statement;
        EXPECT_TRUE(company.complaint(translation.sql).isEmpty()) << row.statement;
    }
}

TEST(Translations, GiveTheRowidOfAnEditableRowBehindItsColumns)
{
    SqlCompany company;
    company.fill(corpus::companyInserts());
    const jetsql::Translation lines = company.translate("SELECT Qty FROM OrderItem WHERE OrderID = 2");
    EXPECT_EQ((QList<QStringList>{{"7.0", "3"}, {"3.0", "4"}}), company.rows(lines.sql));
    const jetsql::Translation top = company.translate("SELECT TOP 1 Qty FROM OrderItem ORDER BY Qty");
    EXPECT_EQ((QList<QStringList>{{"1.0", "6"}, {"1.0", "7"}}), company.rows(top.sql));
}

TEST(Translations, DescribeEachColumn)
{
    const SqlCompany company;
    const auto columns =
        company
            .translate("SELECT o.ID,o.customer,Shipment.ID,Via & 'x' AS Way,SUM(Freight) AS F,COUNT(*) "
                       "FROM orders AS o LEFT JOIN Shipment ON o.ID = Shipment.OrderID "
                       "GROUP BY o.ID,Customer,Shipment.ID,Via")
            .columns;
    struct Row
    {
        const char *name, *table, *column;
        ColumnType type;
        int size;
        bool autoNumber;
    };
    const Row rows[] = {{"o.ID", "o", "ID", ColumnType::Long, 0, true},
                        {"Customer", "o", "Customer", ColumnType::Text, 50, false},
                        {"Shipment.ID", "Shipment", "ID", ColumnType::Long, 0, true},
                        {"Way", "", "", ColumnType::Text, 255, false},
                        {"F", "", "", ColumnType::Double, 0, false},
                        {"Expr1000", "", "", ColumnType::Long, 0, false}};
    ASSERT_EQ(std::size(rows), columns.size());
    for (size_t i = 0; i < columns.size(); ++i) {
        EXPECT_EQ(rows[i].name, columns[i].name.toStdString());
        EXPECT_EQ(rows[i].table, columns[i].sourceTable.toStdString()) << rows[i].name;
        EXPECT_EQ(rows[i].column, columns[i].sourceColumn.toStdString()) << rows[i].name;
        EXPECT_EQ(rows[i].type, columns[i].type) << rows[i].name;
        EXPECT_EQ(rows[i].size, columns[i].size) << rows[i].name;
        EXPECT_EQ(rows[i].autoNumber, columns[i].autoNumber) << rows[i].name;
    }
}

TEST(Translations, NameTheTableThatAnActionChanges)
{
    const SqlCompany company;
    struct Row
    {
        const char *statement, *table;
        jetsql::StatementKind kind;
    };
    using Kind = jetsql::StatementKind;
    const Row rows[] = {{"DELETE * FROM availinv", "AvailInv", Kind::Delete},
                        {"UPDATE orders SET Status = 'Open'", "Orders", Kind::Update},
                        {"INSERT INTO TMPTRANSFERHEADERIDS (ID) SELECT FromID FROM TransferHeader",
                         "tmpTransferHeaderIDs", Kind::Insert},
                        {"SELECT ID INTO tmpNew FROM Orders", "tmpNew", Kind::SelectInto},
                        {"CREATE TABLE tmpNew (ID long)", "tmpNew", Kind::CreateTable},
                        {"DROP TABLE AVAILINV", "AvailInv", Kind::DropTable}};
    for (const Row &row : rows) {
        const jetsql::Translation translation = company.translate(row.statement);
        EXPECT_EQ(row.table, translation.targetTable.toStdString()) << row.statement;
        EXPECT_EQ(row.kind, translation.kind) << row.statement;
    }
}

// What keeps statements apart that may not share a translation.
TEST(Translations, AreTheSameWhateverStandsInTheirPlaces)
{
    const SqlCompany company;
    std::mt19937 random(20110330);
    int parameters = 0, others = 0;
    for (const QString &statement : corpusStatements()) {
        jetsql::Translation translation;
        try {
            translation = company.translate(statement);
        } catch (const RuntimeError &) {
            continue;
        }
        parameters += int(translation.parameters.size());
        for (int i = 0; i < 20 && !translation.parameters.empty(); ++i) {
            const QString other = withOtherConstants(statement, translation.parameters, random);
            ASSERT_EQ(jetsql::fingerprintOf(other).key, jetsql::fingerprintOf(statement).key) << other.toStdString();
            const jetsql::Translation same = company.translate(other);
            EXPECT_EQ(same.sqlWithParameters, translation.sqlWithParameters) << other.toStdString();
            EXPECT_EQ(same.columns.size(), translation.columns.size()) << other.toStdString();
            others += other != statement;
        }
    }
    EXPECT_GT(parameters, 200);
    EXPECT_GT(others, 1000);
}

TEST(Translations, KeepConstantsThatTheyDependOn)
{
    const SqlCompany company;
    const struct
    {
        const char *statement, *sql;
    } cases[] = {
        {"SELECT ID FROM Orders WHERE Customer = 'a' AND Total >= -5 AND OrderDate < #1/2/2003#",
         "t1.\"Customer\" = ? AND t1.\"Total\" >= ? AND t1.\"OrderDate\" < ?"},
        // The condition of an index names the status.
        {"SELECT ID FROM Orders WHERE Status = 'Void' AND ID IN (3, 4)",
         "t1.\"Status\" = 'Void' AND t1.\"ID\" IN (?, ?)"},
        {"SELECT TOP 3 ID FROM Orders WHERE ShipTo LIKE 'a*' ORDER BY 1", "jet_like('a*', t1.\"ShipTo\")"},
        {"UPDATE Shipment SET Invoiced = 1, Via = 'x', Date = 'x', Freight = 5 WHERE Invoiced = -1",
         "SET \"Invoiced\" = 1 <> 0, \"Via\" = ?, \"Date\" = jet_date_of('x'), \"Freight\" = ? WHERE t1.\"Invoiced\" = "
         "1"},
        {"SELECT ID FROM Orders WHERE Customer & 'a' = 'b' OR Total * 1 = 2 OR 5 = 5", "= 2 OR 5 = 5"},
    };
    for (const auto &row : cases)
        EXPECT_TRUE(QString(company.translate(row.statement).sqlWithParameters).contains(row.sql))
            << company.translate(row.statement).sqlWithParameters.toStdString();
}
