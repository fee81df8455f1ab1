#include "reports/receivables.h"
#include "data/values/datetext.h"
#include "data/values/numbers.h"
#include "reportengine/report.h"
#include "reports/handover.h"
#include "toolkit/forms/mainmod.h"

namespace {

constexpr QLatin1String NameSeparator("*SPACE*");

/// Payments up to that day alone, so that the listing tells how the accounts stood then.
void copyPayments(const QString &AsOfDate)
{
    // Both are made anew, which fails on a table that is there.
    DropTableIfExists("tmpOpenInvoices");
    DropTableIfExists("tmpPayments");
    gDatabase->Execute("SELECT * INTO tmpPayments FROM Payments WHERE Date <= #" + AsOfDate + "#");
}

/// Invoices without any payment have Null sums.
void zeroNullSums()
{
    gDatabase->Execute("UPDATE tmpOpenInvoices SET Received = 0 WHERE ISNULL(Received)");
    gDatabase->Execute("UPDATE tmpOpenInvoices SET Adjustment = 0 WHERE ISNULL(Adjustment)");
}

/// The customers in `tmpOpenInvoices` without an invoice that is older than the limit and still has a balance, each
/// followed by the separator. Customers are told apart by their exact spelling, though the rows come sorted without
/// regard to it.
QString customersWithoutOverdue(const Date &limit)
{
    auto invoices = gDatabase->OpenRecordset(
        "SELECT Customer,Invoice, InvoiceDate,Total,Adjustment, Received  FROM tmpOpenInvoices ORDER BY Customer");
    const Field Customer = invoices.Fields("Customer");
    const Field InvoiceDate = invoices.Fields("InvoiceDate");
    const Field Total = invoices.Fields("Total");
    const Field Adjustment = invoices.Fields("Adjustment");
    const Field Received = invoices.Fields("Received");
    QString names;
    // With no invoice at all this is error 3021. Nothing guards the pass against it.
    QString customer = Customer.text();
    bool overdue = false;
    while (!invoices.Eof()) {
        const double balance =
            Total.value().leadingNumber() - (Received.value().leadingNumber() + Adjustment.value().leadingNumber());
        // Less than a tenth of a cent is what Doubles leave behind of a paid invoice, and no debt.
        if (InvoiceDate.value().toDate() < limit && balance > 0.001)
            overdue = true;
        invoices.MoveNext();
        const QString next = invoices.Eof() ? QString() : Customer.text();
        if (next != customer) {
            if (!overdue)
                names += customer + NameSeparator;
            overdue = false;
        }
        customer = next;
    }
    invoices.Close();
    return names;
}

/// Each name goes by a statement of its own, which finds it in any spelling: a customer spelled in two ways is dropped
/// with both when one of them has nothing overdue.
void dropCustomers(const QString &names)
{
    qsizetype begin = 0;
    while (begin < names.size()) {
        const auto end = names.indexOf(NameSeparator, begin);
        gDatabase->Execute("DELETE * FROM tmpOpenInvoices WHERE Customer = '" + names.mid(begin, end - begin) + "'");
        begin = end + NameSeparator.size();
    }
}

/// The limit counts from the day of the invoice, not from its due date.
void keepOverdueCustomers(const QString &AsOfDate, const QString &OverDays)
{
    const Date limit(CDate(AsOfDate).serial() - Val(OverDays));
    dropCustomers(customersWithoutOverdue(limit));
}

/// An invoice of no shipments ("0") has no charges to sum.
double sumOrZero(const Field &sum)
{
    const Value value = sum.value();
    return value.isNull() ? 0 : value.leadingNumber();
}

/// The invoices of a period with the charges of their shipments.
void fillInvoiceRegister(const QString &BeginDate, const QString &EndDate)
{
    gDatabase->Execute("DELETE * FROM tmpARTran");
    // Kept open and added to while the invoices are read, one statement for the charges of each.
    auto transactions = gDatabase->OpenRecordset("SELECT * FROM tmpARTran");
    auto invoices = gDatabase->OpenRecordset(
        "SELECT Invoice.Customer, Invoice.Invoice, Invoice.InvoiceDate, Invoice.DueDate, Invoice.Terms, "
        "Invoice.Shipment, Invoice.Total, Invoice.Cost FROM Invoice WHERE Invoice.InvoiceDate >= #" +
        BeginDate + "# AND Invoice.InvoiceDate <= #" + EndDate + "# ORDER BY Invoice.InvoiceDate,Invoice.Invoice");
    std::vector<std::pair<Field, Field>> copied;
    for (const char *column : {"Customer", "Invoice", "InvoiceDate", "DueDate", "Terms", "Shipment", "Total", "Cost"})
        copied.emplace_back(transactions.Fields(column), invoices.Fields(column));
    const Field Freight = transactions.Fields("Freight");
    const Field Adjustment = transactions.Fields("Adjustment");
    const Field Shipment = invoices.Fields("Shipment");
    while (!invoices.Eof()) {
        // An invoice whose list is empty breaks this statement, and the register stays filled up to it.
        auto charges = gDatabase->OpenRecordset(
            "SELECT SUM(Freight) AS TotalFreight, SUM(Adjustment) AS TotalAdjustment FROM Shipment WHERE ID IN (" +
            Shipment.joined() + ")");
        const double TotalFreight = sumOrZero(charges.Fields("TotalFreight"));
        const double TotalAdjustment = sumOrZero(charges.Fields("TotalAdjustment"));
        charges.Close();

        transactions.AddNew();
        for (const auto &[to, from] : copied)
            to = from.value();
        Freight = TotalFreight;
        Adjustment = TotalAdjustment;
        transactions.Update();
        invoices.MoveNext();
    }
    invoices.Close();
    transactions.Close();
}

/// Whether the file holds a table, as a fresh look at it tells.
bool databaseHasTable(const QString &name)
{
    const auto database = DBEngine::OpenDatabase(gDatabasePath, false, false, DatabaseConnect);
    for (const auto &table : database->TableDefs()) {
        if (table.Name.compare(name, Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

} // namespace

/// Paid invoices are in the dataset too; what becomes of them is for the layout. Days typed filter whether the check
/// box beside them is set or not.
void Reports::ShowOpenInvoicesReport(const QString &AsOfDate, bool SummaryOnly, const QString &OverDays)
{
    HandOver handOver(HandOver::Pointer::Owned);
    copyPayments(AsOfDate);
    gDatabase->Execute(
        "SELECT Invoice.Customer, Invoice.ID, Invoice.Invoice, Invoice.InvoiceDate, Invoice.DueDate, Invoice.Terms, "
        "Invoice.Shipment, Invoice.Total,SUM(tmpPayments.Adjustment) AS Adjustment, SUM(tmpPayments.Amount) AS "
        "Received INTO tmpOpenInvoices FROM  Invoice LEFT JOIN tmpPayments ON Invoice.ID = tmpPayments.Invoice WHERE "
        "Invoice.InvoiceDate <= #" +
        AsOfDate +
        "# GROUP BY Invoice.Customer,Invoice.ID, Invoice.Invoice, Invoice.InvoiceDate, Invoice.DueDate, "
        "Invoice.Terms, Invoice.Shipment, Invoice.Total ORDER BY Invoice.Customer,Invoice.Invoice");
    zeroNullSums();
    if (!OverDays.isEmpty())
        keepOverdueCustomers(AsOfDate, OverDays);

    // The date is asked once more, though the table holds nothing later.
    Report &report = handOver.read(
        "crptOpenInvoicesReport",
        gDatabase->OpenRecordset(
            "SELECT tmpOpenInvoices.Customer,Phone, Fax, Invoice, InvoiceDate, DueDate, tmpOpenInvoices.Terms, "
            "Shipment, Total,Adjustment, Received FROM  tmpOpenInvoices LEFT JOIN Customer ON "
            "tmpOpenInvoices.Customer = Customer.Customer  WHERE InvoiceDate <= #" +
            AsOfDate + "# ORDER BY tmpOpenInvoices.Customer,ID"));
    report.object("txtAsOfDate").SetText(AsOfDate);
    // The layout's three sections that show single invoices.
    if (SummaryOnly) {
        for (const char *object : {"Details", "InvoiceHeads", "CustomerHeader"})
            report.object(object).setSuppress(true);
    }
    if (OverDays.isEmpty()) {
        report.object("txtOver").setSuppress(true);
        report.object("txtDays").setSuppress(true);
    } else {
        report.object("txtOverDays").SetText(OverDays);
    }
    handOver.deliver("Accounts Receivable Listing, as of " + AsOfDate +
                     (OverDays.isEmpty() ? QString() : ", over " + OverDays + " days") +
                     (SummaryOnly ? ", summary" : ""));
}

/// The condition on the customer drops invoices of names that are no customer, though the join keeps them.
void Reports::ShowStatementReport(const QString &AsOfDate)
{
    HandOver handOver(HandOver::Pointer::Owned);
    copyPayments(AsOfDate);
    gDatabase->Execute(
        "SELECT Invoice.Customer,Customer.Address1,Customer.Address2,Customer.City,Customer.State,Customer.Zip, "
        "Invoice.ID, Invoice.Invoice, Invoice.InvoiceDate, Invoice.DueDate, Invoice.Terms, Invoice.Shipment, "
        "Invoice.Total, SUM(tmpPayments.Adjustment) AS Adjustment, SUM(tmpPayments.Amount) AS Received INTO "
        "tmpOpenInvoices FROM ((Invoice LEFT JOIN tmpPayments ON Invoice.ID = tmpPayments.Invoice) LEFT JOIN Customer "
        "ON Invoice.Customer = Customer.Customer) WHERE Invoice.InvoiceDate <= #" +
        AsOfDate +
        "# AND Customer.PrintStatements = TRUE GROUP BY "
        "Invoice.Customer,Customer.Address1,Customer.Address2,Customer.City,Customer.State,Customer.Zip, Invoice.ID, "
        "Invoice.Invoice, Invoice.InvoiceDate, Invoice.DueDate, Invoice.Terms, Invoice.Shipment, Invoice.Total ORDER "
        "BY Invoice.Customer,Invoice.Invoice");
    zeroNullSums();

    Report &report = handOver.read(
        "crptStatementReport",
        gDatabase->OpenRecordset(
            "SELECT Customer,Address1,Address2,City,State,Zip, Invoice, InvoiceDate, DueDate, Terms, Shipment, Total, "
            "Adjustment, Received FROM  tmpOpenInvoices WHERE InvoiceDate <= #" +
            AsOfDate + "# ORDER BY Customer,ID"));
    report.object("txtAsOfDate").SetText(AsOfDate);
    handOver.deliver("Statements, as of " + AsOfDate);
}

void Reports::ShowInvoiceRegister(const QString &BeginDate, const QString &EndDate)
{
    HandOver handOver(HandOver::Pointer::Owned);
    fillInvoiceRegister(BeginDate, EndDate);
    Report &report = handOver.read(
        "crptARTranReport",
        gDatabase->OpenRecordset("SELECT Customer, Invoice, InvoiceDate, DueDate, Terms, Shipment, Total, Freight, "
                                 "Adjustment, Cost FROM tmpARTran ORDER BY InvoiceDate,Invoice"));
    report.object("txtBeginDate").SetText(BeginDate);
    report.object("txtEndDate").SetText(EndDate);
    handOver.deliver("Invoice Register, " + BeginDate + " to " + EndDate);
}

void Reports::ShowCashReceipts(const QString &BeginDate, const QString &EndDate)
{
    HandOver handOver(HandOver::Pointer::Owned);
    Report &report = handOver.read(
        // The bare date is the payment's, since invoices have no column of that name.
        "crptCashReceiptsReport",
        gDatabase->OpenRecordset(
            "SELECT "
            "Payments.ID,Invoice.Invoice,Customer,Payments.Date,Invoice.Total,Payments.Adjustment,Payments.Amount "
            "FROM Payments LEFT JOIN Invoice ON Payments.Invoice = Invoice.ID WHERE Date >= #" +
            BeginDate + "# AND Date <= #" + EndDate + "# ORDER BY Payments.Date,Payments.Invoice"));
    report.object("txtBeginDate").SetText(BeginDate);
    report.object("txtEndDate").SetText(EndDate);
    handOver.deliver("Cash Receipts Register, " + BeginDate + " to " + EndDate);
}

void Reports::ShowCustomerRegister(const QString &Customer, const QString &BeginDate, const QString &EndDate)
{
    HandOver handOver(HandOver::Pointer::Owned);
    if (databaseHasTable("tmpCustomerRegister"))
        gDatabase->Execute("DELETE * FROM tmpCustomerRegister");
    else
        gDatabase->Execute("CREATE TABLE tmpCustomerRegister (TranDate Datetime, TranType text(50), InvoiceNumber "
                           "text(50), ID text(50), Amount money)");

    // The first stores the invoice's number, the other two the invoice's ID; the program numbers invoices by their ID.
    gDatabase->Execute("INSERT INTO tmpCustomerRegister (TranDate,TranType,InvoiceNumber,ID,Amount) SELECT "
                       "InvoiceDate,'Invoice',Invoice,ID,Total FROM Invoice WHERE Customer = '" +
                       Customer + "' AND InvoiceDate >= #" + BeginDate + "# AND InvoiceDate <= #" + EndDate + "#");
    gDatabase->Execute("INSERT INTO tmpCustomerRegister (TranDate,TranType,InvoiceNumber,ID,Amount) SELECT "
                       "Date,'Payment',Payments.Invoice,Payments.ID,Amount FROM Payments LEFT JOIN Invoice ON "
                       "Payments.Invoice = Invoice.ID WHERE Invoice.Customer = '" +
                       Customer + "' and Date >= #" + BeginDate + "# AND Date <= #" + EndDate + "#");
    gDatabase->Execute("INSERT INTO tmpCustomerRegister (TranDate,TranType,InvoiceNumber,ID,Amount) SELECT "
                       "Date,'Adjustment',Payments.Invoice,Payments.ID,Adjustment FROM Payments LEFT JOIN Invoice ON "
                       "Payments.Invoice = Invoice.ID WHERE Adjustment <> 0.0 AND Invoice.Customer = '" +
                       Customer + "' and Date >= #" + BeginDate + "# AND Date <= #" + EndDate + "#");

    // Amounts keep the sign they are stored with; which of them lower a balance the layout tells by their type.
    Report &report = handOver.read("crptCustomerRegister",
                                   gDatabase->OpenRecordset("SELECT * FROM tmpCustomerRegister ORDER BY TranDate, "
                                                            "TranType "));
    report.object("txtCustomer").SetText(Customer);
    report.object("txtBeginDate").SetText(BeginDate);
    report.object("txtEndDate").SetText(EndDate);
    handOver.deliver("Customer Register, " + (Customer.isEmpty() ? QString() : Customer + ", ") + BeginDate + " to " +
                     EndDate);
}
