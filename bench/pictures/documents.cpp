#include "bench/pictures/studio.h"
#include "reports/handover.h"
#include "reports/operational.h"
#include "tests/support/formdriver.h"

#include "toolkit/forms/mainmod.h"
#include <QComboBox>
#include <QDateEdit>

namespace {

/// The first value that a statement finds.
QString firstOf(const QString &sql)
{
    Recordset rows = gDatabase->OpenRecordset(sql);
    return rows.Fields(0).text();
}

void takeDocument(Studio &studio)
{
    const QString longest = firstOf("SELECT ShipmentID FROM ShipmentItems GROUP BY ShipmentID ORDER BY COUNT(*) DESC");
    Reports::PrintPackingSlip(longest, true);
    studio.takeReport("packing-slip");

    studio.menu("InvoiceReport");
    FormDriver dialog("frmInvoiceReport");
    dialog.choose("cmbReport", dialog.control<QComboBox>("cmbReport")->itemText(2));
    dialog.click("btnPrint");
    studio.takeReport("invoice");

    // Many shipments on one invoice, as after a busy month.
    QStringList shipments;
    const QString customer = firstOf("SELECT Customer FROM Invoice ORDER BY ID DESC");
    Recordset rows =
        gDatabase->OpenRecordset("SELECT Shipment.ID FROM Shipment LEFT JOIN Orders ON Shipment.OrderID = Orders.ID "
                                 "WHERE Orders.Customer = '" +
                                 customer + "' ORDER BY Shipment.ID DESC");
    for (; !rows.Eof() && shipments.size() < 40; rows.MoveNext())
        shipments.prepend(rows.Fields(0).text());
    rows.Close();
    Reports::PrintInvoice(shipments.join(", "), "90001", "11/20/2026", "12/20/2026", "Net 30", true);
    studio.takeReport("invoice-of-many-pages");
}

/// Opens a report's dialog, sets its dates, presses its button.
void takeDated(Studio &studio, const QString &menu, const QString &form, const QString &picture,
               const std::function<void(FormDriver &)> &fill = {})
{
    studio.menu(menu);
    FormDriver dialog(form);
    for (const char *begin : {"dtStart", "dtBeginDate"}) {
        if (dialog.form()->findChild<QDateEdit *>(begin))
            dialog.act(begin + QString(": 9/1/2026"));
    }
    if (fill)
        fill(dialog);
    for (const char *button : {"btnOK", "btnOk", "btnPrint"}) {
        if (dialog.isLoaded() && dialog.form()->findChild<QPushButton *>(button)) {
            dialog.click(button);
            break;
        }
    }
    studio.takeReport("reports/" + picture);
}

/// Picks an entry of the dialog's list.
std::function<void(FormDriver &)> pick(const QString &combo, int index)
{
    return [=](FormDriver &dialog) { dialog.choose(combo, dialog.control<QComboBox>(combo)->itemText(index)); };
}

std::function<void(FormDriver &)> tick(const QString &box)
{
    return [=](FormDriver &dialog) { dialog.click(box); };
}

void takeReceivablesReports(Studio &studio)
{
    takeDated(studio, "OpenInvoice", "frmOpenInvoicesReport", "accounts-receivable-listing");
    takeDated(studio, "OpenInvoice", "frmOpenInvoicesReport", "accounts-receivable-over-60-days",
              [](FormDriver &dialog) {
                  dialog.click("chkOver");
                  dialog.type("txtDays", "60");
              });
    takeDated(studio, "OpenInvoice", "frmOpenInvoicesReport", "accounts-receivable-summary", tick("chkSummary"));
    takeDated(studio, "StatementsReport", "frmStatementReport", "statements");
    takeDated(studio, "ARTran", "frmARTranReport", "invoice-register");
    takeDated(studio, "CashReceipts", "frmCashReceiptsReport", "cash-receipts-register");
    takeDated(studio, "CustomerRegister", "frmCustomerRegister", "customer-register", pick("cmbCustomer", 3));
}

void takeSalesReports(Studio &studio)
{
    takeDated(studio, "SalesByPart", "frmSalesByPart", "sales-by-part");
    takeDated(studio, "SalesByWhsePart", "frmSalesByWhsePart", "sales-by-warehouse-and-part");
    takeDated(studio, "SalesByWhsePart", "frmSalesByWhsePart", "sales-by-warehouse-and-part-export", tick("chkExport"));
    takeDated(studio, "SalesByCustomer", "frmSalesByCustomer", "sales-by-customer");
    takeDated(studio, "SalesByCategory", "frmSalesByCategoryCustomer", "sales-by-category");
    takeDated(studio, "SalesByTerritory", "frmSalesByTerritoryCustomer", "sales-by-territory");
}

void takeInventoryReports(Studio &studio)
{
    takeDated(studio, "AvailInventory", "frmAvailableInventory", "available-inventory-details", tick("chkDetails"));
    takeDated(studio, "AvailInventory", "frmAvailableInventory", "available-inventory");
    takeDated(studio, "AvailInventory", "frmAvailableInventory", "available-inventory-export", tick("chkExport"));
    takeDated(studio, "AvailableInventoryByPart", "frmAvailableInventoryByPart", "available-inventory-by-part",
              tick("chkDetails"));
    takeDated(studio, "NewAvailInvWhse", "frmAvailInvReport", "quick-available-inventory", pick("cmbReport", 0));
    takeDated(studio, "InventorySalesReport", "frmInventorySalesReport", "inventory-sales-report");
    const auto requirements = [](FormDriver &dialog) { dialog.type("txtReq", "2"); };
    takeDated(studio, "ProdByWhsePart", "frmProductionByWhsePartReport", "production-by-warehouse-and-part",
              requirements);
    takeDated(studio, "ProdByPartWhse", "frmProductionByPartWhseReport", "production-by-part-and-warehouse",
              [](FormDriver &dialog) {
                  dialog.type("txtReq", "2");
                  dialog.click("chkSupp");
              });
}

void takeListings(Studio &studio)
{
    takeDated(studio, "AdjustmentControlReport", "frmAdjustmentControlReport", "adjustment-control-report",
              pick("cmbReport", 0));
    takeDated(studio, "TransferControlReport", "frmTransferControlReport", "transfer-control-report",
              pick("cmbReport", 0));
    const QList<QStringList> listings{{"OpenOrders", "open-orders"},
                                      {"PartListingReport", "part-listing"},
                                      {"CustomerListingReport", "customer-listing"},
                                      {"WarehouseListingReport", "warehouse-listing"}};
    for (const QStringList &listing : listings) {
        studio.menu(listing[0]);
        studio.takeReport("reports/" + listing[1]);
    }
}

/// The two old stock layouts over rows of the kind their workbooks would bring.
void takeOldReports(Studio &studio)
{
    for (const char *designer : {"crptAvailInv", "crptAvailInv2"}) {
        Recordset stock = gDatabase->OpenRecordset("SELECT Part,Whse AS Warehouse,Avail AS AvailQty FROM AvailInv");
        HandOver handOver(HandOver::Pointer::NotOwned);
        handOver.read(designer, std::move(stock));
        handOver.deliver("Available Inventory");
        studio.takeReport(QString("reports/old-available-inventory-by-") +
                          (designer == QLatin1String("crptAvailInv") ? "part" : "warehouse"));
    }
}

} // namespace

void takeDocuments(Studio &studio)
{
    takeDocument(studio);
    takeReceivablesReports(studio);
    takeSalesReports(studio);
    takeInventoryReports(studio);
    takeListings(studio);
    takeOldReports(studio);
}
