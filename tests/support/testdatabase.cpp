#include "tests/support/testdatabase.h"

#include "data/dao/createdatabase.h"
#include "data/schema/schema.h"
#include "toolkit/forms/mainmod.h"

namespace {
const char *const Company[] = {
    "INSERT INTO Warehouse (Warehouse, Status) VALUES ('North', 'Active')",
    "INSERT INTO Warehouse (Warehouse, Status) VALUES ('Main', 'Active')",
    "INSERT INTO Warehouse (Warehouse, Status) VALUES ('Old', 'InActive')",
    "INSERT INTO Part (PartNo, Category, Cost, SalePrice, Status) VALUES ('BR-200', 'Brackets', 1.25, 2.5, 'Active')",
    "INSERT INTO Part (PartNo, Category, Cost, SalePrice, Status) VALUES ('AX-100', 'Axles', 2.5, 10, 'Active')",
    "INSERT INTO Part (PartNo, Category, Cost, SalePrice, Status) VALUES ('CX-300', 'Brackets', 0.05, 0.1, 'Active')",
    "INSERT INTO Part (PartNo, Category, Cost, SalePrice, Status) VALUES ('ZZ-900', 'Axles', 9, 20, 'InActive')",
    "INSERT INTO PriceSheet (PriceSheet, Part, Price) VALUES ('Gold', 'AX-100', 8.75)",
    "INSERT INTO PriceSheet (PriceSheet, Part, Price) VALUES ('Gold', 'CX-300', 0)",
    "INSERT INTO Customer (Customer, Status, Terms, Days, PriceSheet, ShipTo, ShipToAddress1, ShipToAddress2, "
    "ShipToCity, ShipToState, ShipToZip, ShipToPhone, ShipToFax) VALUES ('Acme Rail', 'Active', 'Net 30', 30, 'Gold', "
    "'Acme Dock', '1 Quay', 'Gate 3', 'Erie', 'PA', '16501', '555-1', '555-2')",
    "INSERT INTO Customer (Customer, Status, Terms, Days) VALUES ('Birch Mill', 'Active', 'COD', 0)",
    "INSERT INTO Customer (Customer, Status, Terms, Days) VALUES ('Cobb Yard', 'InActive', 'Net 10', 10)",
};
} // namespace

QString addRow(const char *table, const Cells &cells)
{
    Recordset rs = gDatabase->OpenRecordset(QStringLiteral("SELECT * FROM ") + QLatin1String(table));
    rs.AddNew();
    for (const auto &[column, value] : cells)
        rs.Fields(column) = value;
    const Field first = rs.Fields(0);
    const QString id = first.Name() == QLatin1String("ID") ? first.text() : QString();
    rs.Update();
    return id;
}

TestDatabase::TestDatabase(EngineKind engine) : m_engine(engine)
{
    replaceBy([](const QString &name) { createDatabase(name, Schema::Password.toString()); });
    for (const char *sql : Company)
        execute(QLatin1String(sql));
}

TestDatabase::~TestDatabase()
{
    gDatabase.reset();
}

void TestDatabase::replaceBy(const std::function<void(const QString &)> &make)
{
    gDatabase.reset();
    m_place = DatabasePlace::on(m_engine);
    make(path());
    gDatabasePath = path();
    gDatabase = DBEngine::OpenDatabase(path(), false, false, DatabaseConnect);
}

void TestDatabase::execute(const QString &sql)
{
    gDatabase->Execute(sql);
}

Value TestDatabase::value(const QString &sql) const
{
    const Recordset rows = gDatabase->OpenRecordset(sql);
    return rows.Eof() ? Value() : rows.Fields(0).value();
}

QStringList TestDatabase::rows(const QString &sql) const
{
    QStringList all;
    for (Recordset rows = gDatabase->OpenRecordset(sql); !rows.Eof(); rows.MoveNext()) {
        QStringList row;
        for (int column = 0; column < rows.fieldCount(); ++column)
            row += rows.Fields(column).joined();
        all += row.join(u'|');
    }
    return all;
}

int TestDatabase::count(const QString &table) const
{
    return value(QStringLiteral("SELECT COUNT(*) FROM ") + table).toLong();
}
