#include "tests/support/company.h"

#include "app/formlist.h"
#include "toolkit/forms/mainmod.h"
#include <QApplication>

static std::unique_ptr<MDI> mainWindow()
{
    registerForms();
    return std::make_unique<MDI>();
}

CompanyTest::CompanyTest() : mdi(mainWindow()), hand(mdi.get())
{
    gDefaultWarehouse = QStringLiteral("Main");
    gAutoPriceFlag = QStringLiteral("YES");
    gTypeAheadSeconds = 1;
    gOrderNavigatorOpen = gShipmentNavigatorOpen = false;
    mdi->show();
    QApplication::setActiveWindow(mdi.get());
    settle();
}

void CompanyTest::TearDown()
{
    EXPECT_FALSE(QGuiApplication::overrideCursor()) << "the hourglass is left standing";
    boxes.verify();
    Forms::unloadAll();
    settle();
}

void CompanyTest::menu(const QString &name)
{
    auto *action = mdi->findChild<QAction *>(name);
    ASSERT_TRUE(action) << "no menu entry " << qPrintable(name);
    ASSERT_TRUE(action->isEnabled()) << "menu entry greyed: " << qPrintable(name);
    action->trigger();
}

QString CompanyTest::addOrder(const char *number, const char *customer, const std::vector<Line> &lines,
                              const char *status, const char *warehouse, Date date)
{
    double total = 0;
    for (const Line &line : lines)
        total += line.qty * line.price;
    const QString id = addRow("Orders", {{"OrderNumber", number},
                                         {"Customer", customer},
                                         {"Warehouse", warehouse},
                                         {"Status", status},
                                         {"OrderDate", date},
                                         {"DueDate", date.addDays(8)},
                                         {"ShipTo", "Dock 4"},
                                         {"ShipToAddress1", "1 Pier Rd"},
                                         {"ShipToAddress2", ""},
                                         {"ShipToCity", "Erie"},
                                         {"ShipToState", "PA"},
                                         {"ShipToZip", "16501"},
                                         {"DateAdded", date},
                                         {"Total", total}});
    int item = 0;
    for (const Line &line : lines)
        addRow("OrderItem", {{"OrderID", id},
                             {"ItemNumber", ++item},
                             {"PartNo", line.part},
                             {"Category", "Axles"},
                             {"Qty", line.qty},
                             {"PriceEach", line.price},
                             {"PriceExt", line.qty * line.price},
                             {"CustomerNumber", "C" + QString::number(item)}});
    return id;
}

QString CompanyTest::addShipment(const QString &orderID, const std::vector<int> &quantities, Date date, double freight,
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

void CompanyTest::expectBox(FormDriver &form, const QString &steps, const QString &title, const QString &prompt,
                            const QString &answer)
{
    boxes.expect(title, prompt, answer);
    form.act(steps);
    boxes.verify();
}

void CompanyTest::expectErrorUnderHourglass(int number, const std::function<void()> &action)
{
    expectRuntimeError(number, [&] {
        try {
            action();
        } catch (...) {
            EXPECT_TRUE(QGuiApplication::overrideCursor());
            throw;
        }
    });
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

QStringList lines(const FormDriver &form, const QString &grid)
{
    return form.grid(grid).mid(1);
}

QString column(const FormDriver &form, const QString &grid, int col)
{
    QStringList cells;
    for (const QString &row : lines(form, grid))
        cells += row.split(u'|').at(col);
    return cells.join(u' ');
}

QString entries(const FormDriver &form, const QString &combo)
{
    const auto *box = form.control<ComboBox>(combo);
    QStringList all;
    for (int i = 0; i < box->listCount(); ++i)
        all += box->list(i);
    return all.join(u'|');
}
