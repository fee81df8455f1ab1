#include "bench/campaign/forms/books.h"

#include "bench/campaign/forms/clerk.h"
#include "toolkit/forms/mainmod.h"
#include <QMap>
#include <QSet>

namespace {

/// The first column of every row.
QStringList column(const QString &sql)
{
    QStringList values;
    for (Recordset rs = gDatabase->OpenRecordset(sql); !rs.Eof(); rs.MoveNext())
        values += rs.Fields(0).joined();
    return values;
}

/// The numbers in the second column, summed by the first.
QMap<QString, double> sums(const QString &sql)
{
    QMap<QString, double> totals;
    for (Recordset rs = gDatabase->OpenRecordset(sql); !rs.Eof(); rs.MoveNext())
        totals[rs.Fields(0).joined()] += rs.Fields(1).value().toDouble();
    return totals;
}

} // namespace

void Books::expect(bool good, const QString &fault)
{
    if (!good && m_faults.size() < 10)
        m_faults += fault;
}

void Books::add(const QStringList &lines)
{
    for (const QString &line : lines) {
        const QString kind = line.section(' ', 0, 0), number = line.section(' ', 1);
        if (number.isEmpty() || kind == u"ready")
            continue;
        m_documents += kind == u"slip" || kind == u"paper" ? 0 : 1;
        expect(number == u"0" || !m_promised[kind].contains(number), "promised twice: " + line);
        m_promised[kind] += number;
    }
}

void Books::compare(const QString &file, const QString &connect, int openOrders, int cut)
{
    gDatabase = DBEngine::OpenDatabase(file, false, false, connect);
    compareOrders(openOrders, cut);
    compareShipments(cut);
    compareInvoices(cut);
    compareTable("TransferHeader", "transfer", 0, cut);
    const QStringList adjustments = column("SELECT ID FROM AdjustmentHeader");
    for (const QString &id : m_promised["adjustment"])
        expect(adjustments.contains(id), "adjustment " + id + " is lost");
    const qsizetype payments = column("SELECT ID FROM Payments").size() - m_promised["payment"].size();
    expect(payments >= 0 && payments <= cut, QString("payments beyond those promised: %1").arg(payments));
    compareLedger(cut);
    comparePapers(cut);
    gDatabase.reset();
}

void Books::compareTable(const QString &table, const QString &document, int before, int cut)
{
    const QStringList there = column("SELECT ID FROM " + table);
    const QSet<QString> ids(there.begin(), there.end());
    expect(ids.size() == there.size(), "a number twice in " + table);
    for (const QString &id : m_promised[document])
        expect(ids.contains(id), document + ' ' + id + " is lost");
    const qsizetype beyond = there.size() - before - m_promised[document].size();
    expect(beyond >= 0 && beyond <= cut, QString("rows of %1 beyond those promised: %2").arg(table).arg(beyond));
}

void Books::compareOrders(int openOrders, int cut)
{
    compareTable("Orders", "order", openOrders, cut);
    QMap<QString, QStringList> lines;
    for (Recordset rs =
             gDatabase->OpenRecordset("SELECT OrderID, ItemNumber FROM OrderItem ORDER BY OrderID, ItemNumber");
         !rs.Eof(); rs.MoveNext())
        lines[rs.Fields(0).text()] += rs.Fields(1).text();
    for (const QString &id : m_promised["order"])
        expect(lines[id] == QStringList({"1", "2", "3"}), "order " + id + " has lines " + lines[id].join(','));
    int partial = 0;
    for (const QStringList &items : std::as_const(lines)) {
        partial += items.size() < Clerk::LinesPerOrder;
        expect(items == QStringList({"1", "2", "3"}).mid(0, items.size()), "lines out of order: " + items.join(','));
    }
    expect(partial <= cut, QString("%1 orders with missing lines").arg(partial));
}

void Books::compareShipments(int cut)
{
    // A promised shipment ships all that is left of its order: less than the whole only where a save that was cut off
    // had shipped the rest.
    const auto items = sums("SELECT ShipmentID, Qty FROM ShipmentItems");
    const auto ofOrder = sums("SELECT OrderID, Qty FROM ShipmentItems");
    for (const QString &id : m_promised["shipment"] + m_promised["slip"]) {
        const QString order = column("SELECT OrderID FROM Shipment WHERE ID = " + id).value(0);
        const bool isRest = cut > 0 && items.value(id) > 0 && ofOrder.value(order) >= Clerk::LinesPerOrder;
        expect(items.value(id) == Clerk::LinesPerOrder || isRest,
               QString("shipment %1 has %2 pieces").arg(id).arg(items.value(id)));
    }
    const QStringList there = column("SELECT ID FROM Shipment");
    expect(QSet<QString>(there.begin(), there.end()).size() == there.size(), "a number twice in Shipment");
    int partial = 0;
    for (const QString &id : there)
        partial += items.value(id) < Clerk::LinesPerOrder;
    expect(partial <= cut, QString("%1 shipments with missing lines").arg(partial));
    for (auto order = ofOrder.begin(); order != ofOrder.end(); ++order)
        expect(order.value() <= Clerk::LinesPerOrder + cut, "order " + order.key() + " is shipped twice");
}

/// Every marked shipment stands in an invoice and every listed one is marked; a run cut off after storing an invoice
/// leaves its shipments to be billed once more.
void Books::compareInvoices(int cut)
{
    QStringList listed;
    for (const QString &list : column("SELECT Shipment FROM Invoice"))
        listed += list.split(", ");
    const QSet<QString> billed(listed.begin(), listed.end());
    const QStringList marked = column("SELECT ID FROM Shipment WHERE Invoiced = True");
    for (const QString &id : marked)
        expect(billed.contains(id), "shipment " + id + " is marked and on no invoice");
    const qsizetype twice = listed.size() - billed.size();
    const qsizetype unmarked = billed.size() - marked.size();
    expect(cut > 0 || twice == 0, QString("%1 shipments billed twice").arg(twice));
    expect(cut > 0 || unmarked == 0, QString("%1 shipments billed and not marked").arg(unmarked));
    const QStringList numbers = column("SELECT ID FROM Invoice");
    expect(numbers == column("SELECT Invoice FROM Invoice"), "an invoice whose number is not its ID");
    expect(QSet<QString>(numbers.begin(), numbers.end()).size() == numbers.size(), "a number twice in Invoice");
}

/// The ledger is the sum of what was posted: adjustments, both halves of transfers, and shipments, but for drop
/// shipments, which have no carrier and post nothing. A kill loses at most the posting of one line.
void Books::compareLedger(int cut)
{
    const QMap<QString, double> ledger = sums("SELECT Whse, Avail FROM AvailInv");
    QMap<QString, double> posted = sums("SELECT Warehouse, Qty FROM AdjustmentHeader INNER JOIN AdjustmentDetail ON "
                                        "AdjustmentHeader.ID = AdjustmentDetail.AdjustmentID");
    const auto shipped = sums("SELECT Via, Qty FROM Shipment INNER JOIN ShipmentItems ON Shipment.ID = "
                              "ShipmentItems.ShipmentID WHERE Via IS NOT NULL");
    for (const double quantity : shipped)
        posted["Main"] += quantity;
    for (auto warehouse = posted.begin(); warehouse != posted.end(); ++warehouse) {
        const double gap = warehouse.value() - ledger.value(warehouse.key());
        expect(std::abs(gap) <= cut, QString("%1: posted %2, ledger %3")
                                         .arg(warehouse.key())
                                         .arg(warehouse.value())
                                         .arg(ledger.value(warehouse.key())));
    }
    expect(column("SELECT Whse FROM AvailInv").size() == ledger.size(), "a pair twice in the ledger");
}

/// An invoice is printed before its row is stored; so of each process that was cut off one may be on paper alone, and
/// its number must not come again.
void Books::comparePapers(int cut)
{
    const QStringList stored = column("SELECT Invoice FROM Invoice");
    int missing = 0, highest = 0;
    for (const QString &number : m_promised["paper"]) {
        missing += !stored.contains(number);
        highest = std::max(highest, number.toInt());
    }
    expect(missing <= cut, QString("%1 printed invoices have no row").arg(missing));
    if (highest == 0)
        return;
    Recordset next = gDatabase->OpenRecordset("SELECT * FROM Invoice");
    next.AddNew();
    expect(next.Fields("ID").value().toLong() > highest, "the number of a printed invoice is given out again");
}

bool Books::isHalfDone(const QString &finding)
{
    return finding.startsWith("Orders: Total is not the sum of the lines") ||
           finding.startsWith("TransferHeader: halves that do not cancel out") ||
           finding.startsWith("Shipment: on an invoice, and not marked as invoiced") ||
           finding.startsWith("Shipment: billed twice") ||
           finding.startsWith("AvailInv: figures that documents do not account for");
}
