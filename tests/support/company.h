#pragma once

#include "app/mdi.h"
#include "tests/support/boxes.h"
#include "tests/support/formdriver.h"
#include "tests/support/hand.h"
#include "tests/support/printers.h"
#include "tests/support/testclock.h"
#include "tests/support/testdatabase.h"

/// The program over the small company of a TestDatabase on 30 March 2011 at 14:05:09: the settings (automatic prices
/// on, warehouse "Main", type-ahead one second), the main window with every form known, and boxes answered by `boxes`.
/// Fails a test that leaves the hourglass standing.
class CompanyTest : public testing::Test
{
protected:
    CompanyTest();
    void TearDown() override;

    /// Clicks a menu entry by the menu control's name. It must be enabled.
    void menu(const QString &name);

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
    TestDatabase database;
    std::unique_ptr<MDI> mdi;
    Hand hand;
    Boxes boxes;
};

/// The data rows of a grid.
QStringList lines(const FormDriver &form, const QString &grid);
/// One column of a grid's data rows, blanks between the cells.
QString column(const FormDriver &form, const QString &grid, int col);
/// The entries of a combo box with "|" between them.
QString entries(const FormDriver &form, const QString &combo);
