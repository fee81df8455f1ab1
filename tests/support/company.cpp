#include "tests/support/company.h"

CompanyTest::CompanyTest()
{
    for (const char *master : {"Customer", "Warehouse", "Part", "PriceSheet"})
        database.execute(QStringLiteral("DELETE * FROM ") + master);
    for (const auto &[name, status] : {std::pair{"Main", "Active"}, {"North", "Active"}, {"Old", "InActive"}})
        addRow("Warehouse", {{"Warehouse", name}, {"Status", status}});
    const auto part = [](const char *name, const char *category, double cost, double price, const char *status) {
        addRow("Part",
               {{"PartNo", name}, {"Category", category}, {"Cost", cost}, {"SalePrice", price}, {"Status", status}});
    };
    part("AX-100", "Axles", 2.5, 4.75, "Active");
    part("BR-200", "Brackets", 1.25, 2.2, "Active");
    part("ZZ-900", "Axles", 9, 20, "InActive");
    const auto customer = [](const char *name, const char *terms, int days, const char *status) {
        addRow("Customer", {{"Customer", name}, {"Terms", terms}, {"Days", days}, {"Status", status}});
    };
    customer("Acme Rail", "Net 30", 30, "Active");
    customer("Birch Mill", "COD", 0, "Active");
    customer("Cobb Yard", "Net 10", 10, "InActive");
}

QString CompanyTest::addOrder(const char *number, const char *customer, const std::vector<Line> &lines,
                              const char *status)
{
    const QString id = addRow("Orders", {{"OrderNumber", number},
                                         {"Customer", customer},
                                         {"Warehouse", "Main"},
                                         {"Status", status},
                                         {"OrderDate", Date(2011, 3, 1)},
                                         {"DueDate", Date(2011, 3, 9)},
                                         {"ShipTo", "Dock 4"},
                                         {"ShipToAddress1", "1 Pier Rd"},
                                         {"ShipToAddress2", ""},
                                         {"ShipToCity", "Erie"},
                                         {"ShipToState", "PA"},
                                         {"ShipToZip", "16501"}});
    int item = 0;
    for (const Line &line : lines)
        addRow("OrderItem", {{"OrderID", id},
                             {"ItemNumber", ++item},
                             {"PartNo", line.part},
                             {"Category", "Axles"},
                             {"Qty", line.qty},
                             {"PriceEach", line.price},
                             {"PriceExt", line.qty * line.price}});
    return id;
}

QString CompanyTest::addShipment(const QString &orderID, Date date, const std::vector<int> &quantities, double freight,
                                 double adjustment)
{
    const QString id = addRow(
        "Shipment",
        {{"OrderID", orderID}, {"Date", date}, {"Via", "Truck"}, {"Freight", freight}, {"Adjustment", adjustment}});
    for (size_t i = 0; i < quantities.size(); ++i)
        if (quantities[i] != 0)
            addRow("ShipmentItems",
                   {{"ShipmentID", id}, {"OrderID", orderID}, {"OrderLineItem", int(i) + 1}, {"Qty", quantities[i]}});
    return id;
}

QString CompanyTest::status(const QString &order) const
{
    return database.value("SELECT Status FROM Orders WHERE ID = " + order).joined();
}

QStringList CompanyTest::ledger() const
{
    return database.rows("SELECT Whse, Part, Avail FROM AvailInv ORDER BY Whse, Part");
}

QStringList CompanyTest::table(const QString &name, const QString &order) const
{
    return database.rows("SELECT * FROM " + name + " ORDER BY " + order);
}

void pick(FormDriver &form, const QString &combo, const QString &entry)
{
    form.choose(combo, entry);
    form.key(Qt::Key_Tab);
}

QStringList lines(const FormDriver &form, const QString &grid)
{
    return form.grid(grid).mid(1);
}

QStringList column(const FormDriver &form, const QString &grid, int col)
{
    QStringList cells;
    for (const QString &row : lines(form, grid))
        cells += row.split(u'|').at(col);
    return cells;
}

QStringList entries(const FormDriver &form, const QString &combo)
{
    const auto *box = form.control<ComboBox>(combo);
    QStringList all;
    for (int i = 0; i < box->listCount(); ++i)
        all += box->list(i);
    return all;
}
