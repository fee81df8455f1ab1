#include "tests/support/testdatabase.h"

#include "data/dao/createdatabase.h"
#include "data/schema/schema.h"
#include "toolkit/forms/mainmod.h"

namespace {
const char *const MasterRows[] = {
    "INSERT INTO Warehouse (Warehouse, City, Status) VALUES ('Main', 'Dayton', 'Active')",
    "INSERT INTO Warehouse (Warehouse, City, Status) VALUES ('East', 'Albany', 'Active')",
    "INSERT INTO Warehouse (Warehouse, City, Status) VALUES ('Old Hall', 'Dayton', 'InActive')",
    "INSERT INTO Customer (Customer, Address1, City, State, Zip, Status, ShipTo, ShipToAddress1, ShipToCity, "
    "ShipToState, ShipToZip, ShipToPhone, Terms, Days, PriceSheet, Territory) VALUES ('Acme Supply', '1 First St', "
    "'Akron', 'OH', '44301', 'Active', 'Acme Dock', '2 Dock Rd', 'Akron', 'OH', '44302', '330-555-0100', 'Net 30', 30, "
    "'Dealer', 'North')",
    "INSERT INTO Customer (Customer, City, State, Status, Terms, Days, Territory) VALUES ('Baker Tools', 'Boise', "
    "'ID', "
    "'Active', 'Net 10', 10, 'West')",
    "INSERT INTO Customer (Customer, City, State, Status, Terms, Days, Territory) VALUES ('Bolt & Sons', 'Boston', "
    "'MA', "
    "'Active', 'Net 30', 30, 'East')",
    "INSERT INTO Customer (Customer, Status) VALUES ('Closed Works', 'InActive')",
    "INSERT INTO Part (PartNo, Category, BinLocation, Cost, SalePrice, Status) VALUES ('A-100', 'Pumps', 'R1', 6, 10, "
    "'Active')",
    "INSERT INTO Part (PartNo, Category, BinLocation, Cost, SalePrice, Status) VALUES ('A-200', 'Pumps', 'R2', 12, "
    "20.5, "
    "'Active')",
    "INSERT INTO Part (PartNo, Category, BinLocation, Cost, SalePrice, Status) VALUES ('B-100', 'Valves', 'S1', 2.5, "
    "5, "
    "'Active')",
    "INSERT INTO Part (PartNo, Category, Cost, SalePrice, Status) VALUES ('Z-900', 'Valves', 1, 2, 'InActive')",
    "INSERT INTO PriceSheet (PriceSheet, Part, Price) VALUES ('Dealer', 'A-100', 9.25)",
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
    for (const char *sql : MasterRows)
        execute(QString::fromUtf8(sql));
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
