#pragma once

#include <QString>

// The routines about orders that several forms call.

/// What the customer owes on invoices due before today: their totals minus write-offs and payments. An overpaid
/// invoice subtracts. For information only; nothing is refused for it.
double OverdueBalance(const QString &Customer);

/// The price of a part on the customer's price sheet, as text; "-1" when the sheet has none. Error 94 when the
/// price is Null.
QString GetCustomerPrice(const QString &Part, const QString &Customer);

/// Sets the order to "Closed" when every line is fully shipped, else to "Open", whatever it was before, "Void"
/// included. An order without lines comes out "Closed".
void UpdateOrderStatus(const QString &OrderID);
