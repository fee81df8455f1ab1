#pragma once

#include "tests/support/desk.h"

/// The program over a small company of its own, on 30 March 2011 at 14:05:09:
///
///     warehouses  Main, North; Old is not active
///     parts       AX-100 (Axles, cost 2.5, price 10), BR-200 (Brackets, 1.25, 2.5), CX-300 (Brackets, 0.05, 0.1);
///                 ZZ-900 is not active
///     customers   Acme Rail (30 days, sheet "Gold", a dock to ship to), Birch Mill (0 days); Cobb Yard (10 days) is
///     not
///                 active
///     sheet       "Gold": AX-100 at 8.75, CX-300 at 0
///
/// Fails a test that leaves the hourglass standing.
class CompanyTest : public DeskTest
{
protected:
    CompanyTest();
    void TearDown() override;

    struct Line
    {
        const char *part;
        double qty, price;
    };
    /// Adds an order, due eight days later, of lines for the customer's numbers "C1", "C2" ...; returns its ID.
    static QString addOrder(const char *number, const char *customer, const std::vector<Line> &lines = {},
                            const char *status = "Open", const char *warehouse = "Main", Date date = Date(2011, 3, 1));
    /// Adds a shipment of an order with these quantities of its lines; returns its ID.
    static QString addShipment(const QString &orderID, const std::vector<int> &quantities, Date date = Date(2011, 3, 5),
                               double freight = 0, double adjustment = 0);

    /// The steps lead to one box, which is answered.
    void expectBox(FormDriver &form, const QString &steps, const QString &title, const QString &prompt,
                   const QString &answer = QStringLiteral("OK"));

    /// Previews standing in the main window.
    qsizetype viewers() const { return mdi->findChildren<QWidget *>("Viewer").size(); }
    /// A run-time error that comes while the hourglass stands, and leaves it standing; see expectRuntimeError.
    static void expectErrorUnderHourglass(int number, const std::function<void()> &action);

    QString status(const QString &order) const;
    QStringList ledger() const;
    /// All rows of a table in the order of some columns.
    QStringList table(const QString &name, const QString &order = "ID") const;

    TestClock clock{"2011-03-30 14:05:09"};
};

/// The data rows of a grid.
QStringList lines(const FormDriver &form, const QString &grid);
/// One column of a grid's data rows, blanks between the cells.
QString column(const FormDriver &form, const QString &grid, int col);
/// The entries of a combo box with "|" between them.
QString entries(const FormDriver &form, const QString &combo);
