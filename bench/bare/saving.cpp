#include "bench/bare/ledger.h"
#include "bench/bare/operations.h"

namespace {

/// Takes a table's next number, as it has to be taken: committed before the row that bears it.
class Numbers
{
public:
    Numbers(BareEngine &engine, const QByteArray &table)
        : m_take(engine, "UPDATE sqlite_sequence SET seq = seq + 1 WHERE name = '" + table + "' RETURNING seq")
    {
    }
    qint64 take()
    {
        m_take.step();
        const auto number = qint64(m_take.number(0));
        m_take.step();
        m_take.reset();
        return number;
    }

private:
    BareEngine::Statement m_take;
};

/// Sets an order's status from what was shipped of its lines.
class OrderStatus
{
public:
    explicit OrderStatus(BareEngine &engine)
        : m_lines(engine, "SELECT I.Qty,SUM(S.Qty) FROM OrderItem I LEFT JOIN ShipmentItems S ON I.OrderID = S.OrderID "
                          "AND I.ItemNumber = S.OrderLineItem WHERE I.OrderID = ? GROUP BY I.ItemNumber,I.Qty"),
          m_set(engine, "UPDATE Orders SET Status = ? WHERE ID = ?")
    {
    }
    void update(qint64 order)
    {
        bool complete = true;
        m_lines.bind(1, order);
        while (m_lines.step())
            complete &= !m_lines.isNull(1) && m_lines.number(0) <= m_lines.number(1);
        m_lines.reset();
        m_set.bind(1, QByteArray(complete ? "Closed" : "Open")).bind(2, order).step();
        m_set.reset();
    }

private:
    BareEngine::Statement m_lines, m_set;
};

/// The rows of a packing slip and of an invoice.
const QByteArray DocumentJoin = " FROM Shipment S JOIN Orders O ON O.ID = S.OrderID JOIN ShipmentItems L ON "
                                "L.ShipmentID = S.ID JOIN OrderItem I ON "
                                "I.OrderID = O.ID AND I.ItemNumber = L.OrderLineItem LEFT JOIN Customer C ON "
                                "C.Customer = O.Customer LEFT JOIN Part P "
                                "ON P.PartNo = I.PartNo WHERE S.ID ";

const QByteArray DocumentHead =
    "SELECT O.ID,O.OrderNumber,O.OrderDate,O.Customer,C.Address1,C.Address2,C.City,C.State,C.Zip,O.ShipTo,"
    "O.ShipToAddress1,O.ShipToAddress2,O.ShipToCity,O.ShipToState,O.ShipToZip,S.ID,S.Date,I.ItemNumber,I.Qty,L.Qty,"
    "I.PartNo,P.Category,I.CustomerNumber";

/// Reads a statement's rows through.
void readAll(BareEngine::Statement &statement, int columns)
{
    while (statement.step())
        for (int column = 0; column < columns; ++column)
            statement.text(column);
    statement.reset();
}

} // namespace

void Bare::saveOrders(BareEngine &engine, const std::vector<Order> &orders, const QByteArray &today)
{
    Numbers numbers(engine, "Orders");
    BareEngine::Statement header(
        engine, "INSERT INTO Orders (ID,OrderNumber,Customer,Warehouse,Status,OrderDate,DueDate,ShipTo,ShipToAddress1,"
                "ShipToAddress2,ShipToCity,ShipToState,ShipToZip,ShipToPhone,ShipToFax,DateAdded,Total) VALUES "
                "(?1,?2,?3,?4,'Open',?5,?5,?6,?7,?8,?9,?10,?11,?12,?13,?5,0)");
    BareEngine::Statement clear(engine, "DELETE FROM OrderItem WHERE OrderID = ?");
    BareEngine::Statement item(engine, "INSERT INTO OrderItem VALUES (?,?,10.0,?,?,2.5,25.0,'')");
    BareEngine::Statement ticket(
        engine, "SELECT O.Warehouse,O.ID,O.OrderNumber,O.Customer,O.OrderDate,O.DueDate,O.ShipTo,O.ShipToAddress1,"
                "O.ShipToAddress2,O.ShipToCity,O.ShipToState,O.ShipToZip,O.ShipToPhone,O.ShipToFax,I.ItemNumber,I.Qty,"
                "I.PartNo,P.Category,P.BinLocation FROM Orders O LEFT JOIN OrderItem I ON I.OrderID = O.ID LEFT JOIN "
                "Part P ON P.PartNo = I.PartNo WHERE O.ID = ? ORDER BY O.ID,P.Category,I.PartNo");
    for (const Order &order : orders) {
        const qint64 id = numbers.take();
        header.bind(1, id).bind(2, order.number).bind(3, order.customer).bind(4, order.warehouse).bind(5, today);
        for (int i = 0; i < order.shipTo.size(); ++i)
            header.bind(i + 6, order.shipTo[i]);
        header.step();
        header.reset();
        clear.bind(1, id).step();
        clear.reset();
        for (const Line &line : order.lines) {
            item.bind(1, id).bind(2, line.item).bind(3, line.part).bind(4, line.category).step();
            item.reset();
        }
        ticket.bind(1, id);
        readAll(ticket, 19);
    }
}

void Bare::saveShipments(BareEngine &engine, const std::vector<Shipment> &shipments, const QByteArray &today)
{
    Numbers numbers(engine, "Shipment");
    OrderStatus status(engine);
    Ledger ledger(engine);
    BareEngine::Statement header(engine,
                                 "INSERT INTO Shipment (ID,OrderID,Date,Via,Freight,Adjustment,Invoiced) VALUES "
                                 "(?,?,?,'UPS Ground',0,0,0)");
    BareEngine::Statement warehouse(engine, "SELECT Warehouse FROM Orders WHERE ID = ?");
    BareEngine::Statement clear(engine, "DELETE FROM ShipmentItems WHERE ShipmentID = ?");
    BareEngine::Statement item(engine,
                               "INSERT INTO ShipmentItems (ShipmentID,OrderID,OrderLineItem,Qty) VALUES (?,?,?,1)");
    BareEngine::Statement slip(engine, DocumentHead + DocumentJoin + "= ? ORDER BY O.ID,I.ItemNumber");
    for (const Shipment &shipment : shipments) {
        const qint64 id = numbers.take();
        header.bind(1, id).bind(2, shipment.order).bind(3, today).step();
        header.reset();
        warehouse.bind(1, shipment.order).step();
        const QByteArray from = warehouse.text(0);
        warehouse.reset();
        clear.bind(1, id).step();
        clear.reset();
        for (const Line &line : shipment.lines) {
            item.bind(1, id).bind(2, shipment.order).bind(3, line.item).step();
            item.reset();
            ledger.post(from, line.part, 1);
        }
        slip.bind(1, id);
        readAll(slip, 23);
        status.update(shipment.order);
    }
}

namespace {

/// What makes one invoice out of a list of shipments.
class InvoiceMaker
{
public:
    InvoiceMaker(BareEngine &engine, QByteArray today)
        : m_engine(engine), m_today(std::move(today)), m_numbers(engine, "Invoice"), m_status(engine),
          m_terms(engine, "SELECT Terms,Days FROM Customer WHERE Customer = ?"),
          m_insert(engine, "INSERT INTO Invoice (ID,Invoice,InvoiceDate,DueDate,Total,Cost,Shipment,Customer,Terms) "
                           "VALUES (?1,CAST(?1 AS TEXT),?7,datetime(?7,'+'||?8||' days'),?2,?3,?4,?5,?6)"),
          m_order(engine, "SELECT OrderID FROM Shipment WHERE ID = ?"),
          m_mark(engine, "UPDATE Shipment SET Invoiced = 1 WHERE ID = ?")
    {
    }

    void make(const QByteArray &customer, const std::vector<qint64> &shipments)
    {
        QByteArray list;
        for (const qint64 id : shipments)
            list += (list.isEmpty() ? "" : ", ") + QByteArray::number(id);
        m_terms.bind(1, customer).step();
        const QByteArray terms = m_terms.text(0), days = m_terms.text(1);
        m_terms.reset();
        const qint64 number = m_numbers.take();
        m_engine.run(DocumentHead + ",O.Warehouse,S.Via,I.PriceEach,S.Freight,S.Adjustment" + DocumentJoin + "IN (" +
                     list + ") ORDER BY O.ID,I.ItemNumber");
        const double charges = one("SELECT SUM(Freight) + SUM(Adjustment) FROM Shipment WHERE ID IN (" + list + ")");
        const double goods = one("SELECT SUM(L.Qty * I.PriceEach)" + DocumentJoin + "IN (" + list + ")");
        const double cost = one("SELECT SUM(P.Cost * L.Qty)" + DocumentJoin + "IN (" + list + ")");
        m_insert.bind(1, number).bind(2, goods + charges).bind(3, cost).bind(4, list).bind(5, customer).bind(6, terms);
        m_insert.bind(7, m_today).bind(8, days.isEmpty() ? QByteArray("0") : days);
        m_insert.step();
        m_insert.reset();
        for (const qint64 id : shipments) {
            m_order.bind(1, id).step();
            const auto order = qint64(m_order.number(0));
            m_order.reset();
            m_status.update(order);
            m_mark.bind(1, id).step();
            m_mark.reset();
        }
    }

private:
    double one(const QByteArray &sql)
    {
        BareEngine::Statement statement(m_engine, sql);
        statement.step();
        return statement.number(0);
    }

    BareEngine &m_engine;
    QByteArray m_today;
    Numbers m_numbers;
    OrderStatus m_status;
    BareEngine::Statement m_terms, m_insert, m_order, m_mark;
};

} // namespace

void Bare::invoiceRun(BareEngine &engine, const QByteArray &today)
{
    std::vector<std::pair<QByteArray, std::vector<qint64>>> invoices;
    BareEngine::Statement open(engine, "SELECT O.Customer,S.ID FROM Shipment S LEFT JOIN Orders O ON S.OrderID = O.ID "
                                       "WHERE S.Invoiced = 0 ORDER BY O.Customer,S.ID");
    while (open.step()) {
        const QByteArray customer = open.text(0);
        if (invoices.empty() || invoices.back().first != customer)
            invoices.push_back({customer, {}});
        invoices.back().second.push_back(qint64(open.number(1)));
    }
    open.reset();
    InvoiceMaker maker(engine, today);
    for (const auto &[customer, shipments] : invoices)
        maker.make(customer, shipments);
}
