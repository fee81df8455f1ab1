#include "tools/check/findings.h"

#include "data/engines/sqlite/connection.h"
#include "data/values/numbers.h"
#include <QRegularExpression>

namespace check {

namespace {

/// What an invoice's list must agree with.
struct ShipmentFacts
{
    QString customer;
    double freight = 0, adjustment = 0, lines = 0;
    bool invoiced = false;
    QString invoice = {}; ///< the ID of the one that names it
};

using Shipments = QHash<int, ShipmentFacts>;

constexpr const char *ShipmentQuery =
    "SELECT s.ID, o.Customer, s.Freight, s.Adjustment, s.Invoiced, (SELECT sum(l.Qty * i.PriceEach) FROM ShipmentItems "
    "AS l JOIN OrderItem AS i ON i.OrderID = s.OrderID AND i.ItemNumber = l.OrderLineItem WHERE l.ShipmentID = s.ID) "
    "FROM Shipment AS s LEFT JOIN Orders AS o ON o.ID = s.OrderID ORDER BY s.ID";

/// A missing number counts as 0, as it does in the sums of the invoice.
double numberOrZero(const Value &value)
{
    return value.isNull() ? 0 : value.toDouble();
}

/// Goes through the rows of a query.
void forEachRow(Connection &connection, const char *sql, const std::function<void(const PreparedStatement &)> &use)
{
    const ErrorContext reading{ErrorContext::Reading, {}, QString::fromLatin1(sql)};
    PreparedStatement rows = connection.prepare(sql, reading);
    while (rows.next())
        use(rows);
}

/// All shipments by ID, read once: asking for each list by itself would take minutes on a large file.
Shipments readShipments(Connection &connection)
{
    Shipments shipments;
    forEachRow(connection, ShipmentQuery, [&](const PreparedStatement &row) {
        ShipmentFacts &facts = shipments[int(row.integer(0))];
        facts.customer = row.text(1);
        facts.freight = numberOrZero(row.value(2, ColumnType::Double));
        facts.adjustment = numberOrZero(row.value(3, ColumnType::Double));
        facts.invoiced = row.integer(4) != 0;
        facts.lines = numberOrZero(row.value(5, ColumnType::Double));
    });
    return shipments;
}

/// Takes the invoices one by one and remembers in the shipments which of them were named.
class InvoiceCheck
{
public:
    InvoiceCheck(Shipments &shipments, Findings &findings) : m_shipments(shipments), m_findings(findings) {}

    void check(const QString &id, const QString &customer, const QString &list, double total)
    {
        if (list == u"0")
            return; // taken over from elsewhere, without shipments
        static const QRegularExpression wellFormed("^[0-9]+(, [0-9]+)*$");
        if (!wellFormed.match(list).hasMatch()) {
            report(id, "Shipment is no list of IDs, which ends the program in the sales reports");
            return;
        }
        double freight = 0, adjustment = 0, lines = 0;
        bool complete = true;
        for (const QString &token : list.split(", ")) {
            const auto shipment = m_shipments.find(token.toInt());
            if (shipment == m_shipments.end()) {
                report(id, "shipments on the list that do not exist");
                complete = false;
                continue;
            }
            if (!shipment->invoice.isEmpty())
                m_findings.add("Shipment", "billed twice",
                               QString("ID %1 on the invoices %2 and %3").arg(token, shipment->invoice, id));
            if (shipment->customer.compare(customer, Qt::CaseInsensitive) != 0)
                report(id, "shipments on the list that went to another customer");
            shipment->invoice = id;
            freight += shipment->freight;
            adjustment += shipment->adjustment;
            lines += shipment->lines;
        }
        // Half a cent of doubt: the order of adding may turn a tie the other way.
        if (complete && std::fabs(roundTo2(freight + adjustment + lines) - total) > 0.015)
            report(id, "Total is not lines plus freight plus adjustment");
    }

private:
    void report(const QString &id, const QString &fault) { m_findings.add("Invoice", fault, "ID " + id); }

    Shipments &m_shipments;
    Findings &m_findings;
};

} // namespace

void checkInvoices(Connection &connection, Findings &findings)
{
    Shipments shipments = readShipments(connection);
    InvoiceCheck invoices(shipments, findings);
    forEachRow(
        connection, "SELECT ID, Customer, Shipment, Total FROM Invoice ORDER BY ID", [&](const PreparedStatement &row) {
            invoices.check(row.text(0), row.text(1), row.text(2), numberOrZero(row.value(3, ColumnType::Double)));
        });
    QList<int> ids = shipments.keys();
    // The hash has them in another order at each run.
    std::sort(ids.begin(), ids.end());
    for (int id : ids) {
        const ShipmentFacts &facts = shipments[id];
        if (facts.invoiced == !facts.invoice.isEmpty())
            continue;
        findings.add("Shipment",
                     facts.invoiced ? "marked as invoiced, and on no invoice"
                                    : "on an invoice, and not marked as invoiced",
                     QString("ID %1").arg(id));
    }
}

} // namespace check
