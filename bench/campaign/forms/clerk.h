#pragma once

#include <QString>

/// The child's side of the campaigns through the forms: the program with its windows, and a clerk who saves documents
/// in them without pause. A line goes to the standard output for every save that has ended; a line that the parent
/// reads is a promise that the file holds the document.
namespace Clerk {

constexpr int LinesPerOrder = 3;
constexpr int Customers = 4; ///< of each kind: "Order 1" ... and "Ship 1" ...

/// Makes the masters, and that many open orders to ship from.
void prepare(const QString &file, const QString &connect, int openOrders);

/// Saves `count` documents in the role "orders", "shipments", "stock", "reports" or "everything" (until killed when
/// `count` is negative), or goes once through "order", "shipment", "invoices" or "rebuild".
/// Documents are promised where they would be printed; with `prints` they are printed as the program prints them.
/// Returns the exit status; a box that nobody expects, or a run-time error, is told on the standard error and is 1.
/// Where `endures` is set boxes are told like promises and answered, and errors end the program as they always do.
int run(int &argc, char **argv, const QString &file, const QString &connect, const QString &role, int count,
        bool prints, bool endures);

} // namespace Clerk
