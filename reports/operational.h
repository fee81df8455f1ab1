#pragma once

#include <QString>

// The documents that go with the goods and the bill. IDs come as text and go into the statements as they stand, so
// an empty one is error 3075.

namespace Reports {

/// Previews the pick ticket of an order, lines by category and part.
void PrintPickTicket(const QString &OrderID);

/// The packing slip of a shipment: previewed, or (`Preview` false) printed in two copies without a prompt.
/// Error 482 when printing fails.
void PrintPackingSlip(const QString &ShipmentID, bool Preview);

/// The invoice over a list of shipments ("12, 15"): previewed, or (`Preview` false) printed in two copies.
/// Returns the total as printed ("$1,234.50"), recomputed from the present prices and freight, whatever the invoice's
/// row holds. `InvoiceDate` is printed as given; `DueDate` is shown nowhere. Error 94 when none of the shipments is
/// there any more, 482 when printing fails.
QString PrintInvoice(const QString &ShipmentIDs, const QString &InvoiceNumber, const QString &InvoiceDate,
                     const QString &DueDate, const QString &Terms, bool Preview);

} // namespace Reports
