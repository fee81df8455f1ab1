#include "bench/pictures/studio.h"
#include "tests/support/formdriver.h"

#include <QComboBox>

namespace {

/// The text of a combo box's entry, counted from 0.
QString entry(const FormDriver &form, const QString &name, int index)
{
    return form.control<QComboBox>(name)->itemText(index);
}

void addLine(FormDriver &order, int part, const QString &quantity)
{
    order.choose("cmbPart", entry(order, "cmbPart", part));
    order.type("txtQty", quantity);
    order.click("txtPriceEach");
    order.click("btnSaveItem");
}

void takeOrderDesk(Studio &studio)
{
    studio.menu("OrderEntry");
    FormDriver order("frmOrderEntry");
    order.choose("cmbCustomer", entry(order, "cmbCustomer", 3));
    order.type("txtOrderNumber", "26-1184");
    addLine(order, 4, "24");
    addLine(order, 11, "6");
    addLine(order, 27, "150");
    order.choose("cmbPart", entry(order, "cmbPart", 33));
    order.type("txtQty", "12");
    order.click("txtPriceEach");
    order.click("txtCustomerNumber");
    studio.takeWindow("order-entry");
    order.click("btnSave");
    studio.takeWindow("pick-ticket-viewer");
    studio.takeReport("pick-ticket");

    studio.menu("OrdNav");
    FormDriver navigator("frmOrderNavigator");
    navigator.choose("cmbStatus", "Open");
    navigator.click("btnFind");
    navigator.clickCell("vsfgOrders", 4, 1);
    studio.takeWindow("order-navigator");
    studio.clear();
}

void takeShipping(Studio &studio)
{
    studio.menu("ShipmentEntry");
    FormDriver shipment("frmShipmentEntry");
    for (int customer = 0; shipment.control<QComboBox>("cmbOrder")->count() == 0; ++customer)
        shipment.choose("cmbCustomer", entry(shipment, "cmbCustomer", customer));
    shipment.choose("cmbOrder", entry(shipment, "cmbOrder", 0));
    shipment.click("btnShipAll");
    studio.takeWindow("shipment-entry");
    studio.clear();

    studio.menu("ShipmentNav");
    FormDriver navigator("frmShipmentNavigator");
    navigator.clickCell("vsfgShipments", 5, 1);
    studio.takeWindow("shipment-navigator");
    studio.clear();
}

/// A form that shows the document whose number is typed into it, once the box is left for the next one.
void takeDocument(Studio &studio, const QString &entry, const QString &form, const QString &number, const QString &next,
                  const QString &picture, QSize size)
{
    studio.menu(entry);
    FormDriver driver(form);
    driver.type(number, "1");
    driver.click(next);
    studio.takeWindow(picture, size);
}

void takeReceivables(Studio &studio)
{
    studio.menu("CreateInvoices");
    studio.takeWindow("create-invoices", {760, 460});
    studio.clear();
    takeDocument(studio, "ReceivePayment", "frmReceivePayment", "txtInvoice", "txtPayment", "receive-payments",
                 {760, 460});
    FormDriver("frmReceivePayment").type("txtPayment", "0");
    studio.clear();
}

void takeStock(Studio &studio)
{
    takeDocument(studio, "Adjust", "frmInventoryAdjust", "txtID", "dtDate", "adjust-inventory", {980, 660});
    studio.clear();
    takeDocument(studio, "Transfer", "frmTransfer", "txtID", "dtDate", "transfer-inventory", {980, 660});
    studio.clear();
}

void takeMasters(Studio &studio)
{
    const QList<QStringList> forms{{"CustomerEntry", "frmCustomerEntry", "cmbCustomer", "customer-entry"},
                                   {"PartEntry", "frmPartEntry", "cmbPartNo", "part-entry"},
                                   {"LocationEntry", "frmWarehouseEntry", "cmbWarehouse", "warehouse-entry"}};
    for (const QStringList &form : forms) {
        studio.menu(form[0]);
        FormDriver driver(form[1]);
        driver.choose(form[2], entry(driver, form[2], 1));
        studio.takeWindow(form[3], {900, 640});
        studio.clear();
    }
}

} // namespace

void takeWindows(Studio &studio)
{
    studio.takeWindow("main-window");
    takeOrderDesk(studio);
    takeShipping(studio);
    takeReceivables(studio);
    takeStock(studio);
    takeMasters(studio);
    studio.menu("About");
    studio.takeWindow("about", {760, 460});
    studio.clear();
}
