#pragma once

namespace Reports {

/// Writes the date of the invoice that covers a shipment into `Shipment.InvoiceDate`, anew for all shipments; the sales
/// and production reports select by it. A shipment that no invoice names gets Null, one that several name gets the
/// date of the last in the order of their shipment lists. Takes a statement per invoice, whatever the period.
void RefillShipmentInvoiceDates();

} // namespace Reports
