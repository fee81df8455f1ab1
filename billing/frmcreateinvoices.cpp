#include "billing/frmcreateinvoices.h"

#include "billing/billingroutines.h"
#include "data/values/numbers.h"
#include "orders/orderroutines.h"
#include "reports/operational.h"
#include "toolkit/controls/msgbox.h"
#include "toolkit/forms/fillcombo.h"
#include "toolkit/forms/formlayout.h"
#include "toolkit/forms/mainmod.h"

namespace {
const char *const AllCustomers = "*** All Customers ***";
} // namespace

frmCreateInvoices::frmCreateInvoices()
    : Form("frmCreateInvoices", "Create Invoices"), cmbCustomer(addList("cmbCustomer")), dtCutoff(addDate("dtCutoff")),
      dtDate(addDate("dtDate")), btnPrint(addButton("btnPrint", "Print")), btnCancel(addButton("btnCancel", "Cancel"))
{
    setTypeAhead(cmbCustomer);
    connect(btnPrint, &QPushButton::clicked, this, &frmCreateInvoices::btnPrint_Click);
    connect(btnCancel, &QPushButton::clicked, this, &frmCreateInvoices::unload);
    layOut();
}

void frmCreateInvoices::formLoad()
{
    dtCutoff->setValue(Date::today());
    dtDate->setValue(Date::today());
    cmbCustomer->addItem(AllCustomers);
    // Retired customers too: what they were sent is billed like anything else.
    fillCombo(cmbCustomer, "SELECT Customer FROM Customer ORDER BY Customer", "Customer");
    cmbCustomer->setText(AllCustomers);
}

void frmCreateInvoices::btnPrint_Click()
{
    if (cmbCustomer->text().isEmpty()) {
        MsgBox("You must choose one or more customers.", "Invalid Selection");
        return;
    }
    Recordset shipments = gDatabase->OpenRecordset(shipmentStatement());
    if (shipments.Bof() && shipments.Eof()) {
        MsgBox("There is nothing to invoice.", "Nothing to Invoice");
        shipments.Close();
        unload();
        return;
    }
    // Whose the row at hand is; behind the last one nobody's, which closes the last invoice.
    const auto customerNow = [&] {
        if (shipments.Eof())
            return QString();
        return allCustomers() ? shipments.Fields("Customer").text() : cmbCustomer->text();
    };
    QString shipmentIDs;
    while (!shipments.Eof()) {
        const QString customer = customerNow();
        shipmentIDs += (shipmentIDs.isEmpty() ? "" : ", ") + shipments.Fields("ID").text();
        shipments.MoveNext();
        // Compared letter by letter: one customer's shipments under two spellings are two invoices. The statement sorts
        // without regard to case, so the spellings may even take turns.
        if (customerNow() != customer) {
            createInvoice(customer, shipmentIDs);
            shipmentIDs.clear();
        }
    }
    shipments.Close();
    unload();
}

bool frmCreateInvoices::allCustomers() const
{
    return cmbCustomer->text() == AllCustomers;
}

/// A shipment whose order is gone has no customer and sorts first; reading its Null name as a text is error 94.
QString frmCreateInvoices::shipmentStatement() const
{
    const QString cutoff = dtCutoff->value().toText();
    if (allCustomers())
        return "SELECT Customer,Shipment.ID FROM Shipment LEFT JOIN Orders ON Shipment.OrderID = Orders.ID WHERE "
               "Invoiced = False AND Date <= #" +
               cutoff + "# ORDER BY Customer,Shipment.ID";
    return "SELECT Shipment.ID FROM Shipment LEFT JOIN Orders ON Shipment.OrderID = Orders.ID WHERE Invoiced = False "
           "AND Customer = '" +
           cmbCustomer->text() + "' AND Date <= #" + cutoff + "# ORDER BY Shipment.ID";
}

/// Prints the invoice while its row is pending, then stores it: when the print fails no row stands, but its number
/// is spent and the shipments stay unbilled.
void frmCreateInvoices::createInvoice(const QString &customer, const QString &shipmentIDs)
{
    const Conditions conditions = conditionsOf(customer);
    // TOP 1 only gives a recordset to add to; the row found is not looked at.
    Recordset invoice = gDatabase->OpenRecordset("SELECT TOP 1 * FROM Invoice");
    invoice.AddNew();
    const QString number = invoice.Fields("ID").text();
    invoice.Fields("Invoice") = number;
    invoice.Fields("InvoiceDate") = dtDate->value();
    invoice.Fields("DueDate") = conditions.DueDate;
    // The text as printed; the column reads the number out of it, so the invoice's amount is the printed one to the
    // cent.
    invoice.Fields("Total") = Reports::PrintInvoice(shipmentIDs, number, dtDate->value().toText(), conditions.DueDate,
                                                    conditions.Terms, false);
    invoice.Fields("Cost") = GetShipmentCost(shipmentIDs);
    invoice.Fields("Shipment") = shipmentIDs;
    invoice.Fields("Customer") = customer;
    invoice.Fields("Terms") = conditions.Terms;
    invoice.Update();
    invoice.Close();
    markInvoiced(shipmentIDs);
}

frmCreateInvoices::Conditions frmCreateInvoices::conditionsOf(const QString &customer) const
{
    Recordset rs = gDatabase->OpenRecordset("SELECT Terms, Days FROM Customer WHERE Customer = '" + customer + "'");
    // Without a row of that customer this is error 3021, and the run stops before anything was printed for him.
    const double days = Val(rs.Fields("Days").joined());
    const Conditions conditions{dtDate->value().addDays(days).toText(), rs.Fields("Terms").text()};
    rs.Close();
    return conditions;
}

/// Behind the invoice's row: stopped in between, the shipments are billed again by the next run.
void frmCreateInvoices::markInvoiced(const QString &shipmentIDs)
{
    for (const QString &id : shipmentIDs.split(", ")) {
        Recordset rs = gDatabase->OpenRecordset("SELECT OrderID FROM Shipment WHERE ID = " + id);
        if (!(rs.Bof() && rs.Eof()))
            UpdateOrderStatus(rs.Fields("OrderID").text());
        rs.Close();
        gDatabase->Execute("UPDATE Shipment SET Invoiced = True WHERE ID = " + id);
    }
}

void frmCreateInvoices::layOut()
{
    auto *form = new QVBoxLayout(this);
    auto *fields = new FieldLayout;
    form->addLayout(fields);
    for (QWidget *date : {dtCutoff, dtDate})
        setFieldWidth(date, 12);
    fields->add("Customer", cmbCustomer);
    fields->add("Cut-off Ship Date", dtCutoff);
    fields->add("Invoice Date", dtDate);
    form->addStretch(1);
    form->addLayout(buttonRow({btnPrint, btnCancel}));
    setTabOrder({cmbCustomer, dtCutoff, dtDate, btnPrint, btnCancel});
    resize(520, 160);
}
