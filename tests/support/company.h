#pragma once

#include "tests/support/desk.h"
#include "tests/support/rows.h"

/// The program over a small company of its own, on 30 March 2011 at 14:05:09: warehouses "Main" and "North" ("Old" is
/// not active), parts "AX-100" (cost 2.5, price 4.75) and "BR-200" (1.25, 2.2; "ZZ-900" is not active), customers
/// "Acme Rail" (30 days), "Birch Mill" (0 days) and "Cobb Yard" (10 days, not active).
class CompanyTest : public DeskTest
{
protected:
    CompanyTest();

    struct Line
    {
        const char *part;
        double qty, price;
    };
    /// Adds an order of 1 March 2011 from warehouse "Main"; returns its ID.
    static QString addOrder(const char *number, const char *customer, const std::vector<Line> &lines,
                            const char *status = "Open");
    /// Adds a shipment of an order with these quantities of its lines; returns its ID.
    static QString addShipment(const QString &orderID, Date date, const std::vector<int> &quantities,
                               double freight = 0, double adjustment = 0);

    QString status(const QString &order) const;
    QStringList ledger() const;
    /// All rows of a table in the order of some columns.
    QStringList table(const QString &name, const QString &order = "ID") const;

    TestClock clock{"2011-03-30 14:05:09"};
};

/// Chooses an entry of a combo box and leaves the box by Tab.
void pick(FormDriver &form, const QString &combo, const QString &entry);
/// The data rows of a grid.
QStringList lines(const FormDriver &form, const QString &grid);
/// One column of a grid's data rows.
QStringList column(const FormDriver &form, const QString &grid, int col);
/// The entries of a combo box.
QStringList entries(const FormDriver &form, const QString &combo);
