#include "inventory/ledger.h"

#include "tests/support/boxes.h"
#include "tests/support/printers.h"
#include "tests/support/rows.h"
#include "tests/support/testdatabase.h"
#include "toolkit/controls/mousepointer.h"

namespace {

const char *const title = "Rebuild Confirmation";
const char *const question = "Are you sure you want to rebuild the Available Inventory Report?";

class Ledger : public testing::Test
{
protected:
    /// A stock document of one line; returns the header's ID.
    static QString adjust(const char *warehouse, const Value &qty, const char *part = "P1")
    {
        const QString id = addRow("AdjustmentHeader", {{"Warehouse", warehouse}, {"Date", Date(2011, 3, 1)}});
        addRow("AdjustmentDetail", {{"AdjustmentID", id}, {"PartNo", part}, {"Qty", qty}});
        return id;
    }
    static void transfer(const char *from, const char *to, double qty)
    {
        const QString out = adjust(from, -qty), in = adjust(to, qty);
        addRow("TransferHeader", {{"FromID", out}, {"ToID", in}});
    }
    static QString order(const char *warehouse, double qty, const char *status = "Open")
    {
        const QString id = addRow("Orders", {{"OrderNumber", "A-1"}, {"Warehouse", warehouse}, {"Status", status}});
        addRow("OrderItem", {{"OrderID", id}, {"ItemNumber", 1}, {"PartNo", "P1"}, {"Qty", qty}});
        return id;
    }
    static void ship(const QString &orderID, int line, int qty)
    {
        const QString id = addRow("Shipment", {{"OrderID", orderID}, {"Date", Date(2011, 3, 2)}});
        addRow("ShipmentItems", {{"ShipmentID", id}, {"OrderID", orderID}, {"OrderLineItem", line}, {"Qty", qty}});
    }
    QStringList ledger() const { return database.rows("SELECT Whse, Part, Avail FROM AvailInv ORDER BY Whse, Part"); }
    QStringList rebuilt() const
    {
        Boxes boxes;
        boxes.expect(title, question, "Yes");
        RebuildAvailInv();
        return ledger();
    }

    TestDatabase database;
};

TEST_F(Ledger, UpdateMakesTheRowOfAPairAndThenAddsToIt)
{
    UpdateAvailInv("North", "P1", 3);
    EXPECT_EQ(ledger(), QStringList{"North|P1|3"});
    UpdateAvailInv("north", "p1", -5);
    EXPECT_EQ(ledger(), QStringList{"North|P1|-2"});
    UpdateAvailInv("North", "P2", 0);
    EXPECT_EQ(ledger(), (QStringList{"North|P1|-2", "North|P2|0"}));
}

TEST_F(Ledger, UpdateLooksAtTheFirstOfTwoEqualRowsOnly)
{
    addRow("AvailInv", {{"Whse", "North"}, {"Part", "P1"}, {"Avail", 1}});
    addRow("AvailInv", {{"Whse", "North"}, {"Part", "P1"}, {"Avail", 100}});
    UpdateAvailInv("North", "P1", 2);
    EXPECT_EQ(database.rows("SELECT Avail FROM AvailInv ORDER BY Avail"), (QStringList{"3", "100"}));
}

TEST_F(Ledger, UpdateFailsOnANullBalanceAndOnAnApostrophe)
{
    addRow("AvailInv", {{"Whse", "North"}, {"Part", "P1"}, {"Avail", Value()}});
    EXPECT_EQ(errorNumberOf([] { UpdateAvailInv("North", "P1", 1); }), 94);
    EXPECT_EQ(errorNumberOf([] { UpdateAvailInv("Smith's", "P1", 1); }), 3075);
}

TEST_F(Ledger, AvailabilityIsAllAdjustmentsMinusAllOrdersThatAreNotVoid)
{
    EXPECT_EQ(GetAvailableQty("P1", "North"), 0) << "nothing has moved";
    order("North", 2.5);
    EXPECT_EQ(GetAvailableQty("P1", "North"), -2.5) << "orders alone";
    adjust("North", 10.0);
    transfer("North", "South", 4);
    EXPECT_EQ(GetAvailableQty("P1", "North"), 3.5) << "the outgoing half keeps its minus";
    EXPECT_EQ(GetAvailableQty("P1", "South"), 4);
    ship(order("North", 1, "Closed"), 1, 1);
    EXPECT_EQ(GetAvailableQty("P1", "North"), 2.5) << "a closed order goes on counting, its shipment doesn't count";
    order("North", 7, "Void");
    EXPECT_EQ(GetAvailableQty("P1", "North"), 2.5) << "a void one gives its goods back";
    EXPECT_EQ(GetAvailableQty("P2", "North"), 0);
    EXPECT_EQ(ledger(), QStringList()) << "orders never reach the ledger";
}

TEST_F(Ledger, WarehouseOfAnOrderIsEmptyForAnUnknownOrder)
{
    EXPECT_EQ(GetOrderWarehouse(order("North", 1)), "North");
    EXPECT_EQ(GetOrderWarehouse("999"), "");
    const QString without = addRow("Orders", {{"OrderNumber", "A-2"}});
    EXPECT_EQ(errorNumberOf([&] { GetOrderWarehouse(without); }), 94);
}

TEST_F(Ledger, RebuildAddsAdjustmentsAndBothHalvesOfTransfersAndSubtractsShipments)
{
    adjust("North", 10);
    adjust("North", -1);
    transfer("East", "West", 4);
    ship(order("South", 3), 1, 3);
    ship(order("South", 2, "Void"), 1, 2);
    EXPECT_EQ(rebuilt(), (QStringList{"East|P1|4", "North|P1|9", "South|P1|-5", "West|P1|4"}));
    EXPECT_EQ(rebuilt().constFirst(), "East|P1|4") << "a second one starts from nothing again";
}

TEST_F(Ledger, RebuildDropsWhatNoDocumentHoldsAnyMore)
{
    UpdateAvailInv("North", "P1", 10);
    UpdateAvailInv("North", "P1", 10);
    UpdateAvailInv("North", "Gone", 3);
    adjust("North", 10);
    EXPECT_EQ(rebuilt(), QStringList{"North|P1|10"});
    EXPECT_FALSE(QGuiApplication::overrideCursor());
}

TEST_F(Ledger, RebuildPassesOverLeftoversOfTheJoins)
{
    addRow("AdjustmentHeader", {{"Warehouse", "North"}}); // no lines
    adjust("", 5);
    adjust("North", 5, "");
    adjust("North", Value());
    addRow("TransferHeader", {{"FromID", 900}, {"ToID", 901}});
    ship(order("North", 1), 2, 1); // the order line is gone
    ship("999", 1, 1);             // the order is gone
    EXPECT_EQ(rebuilt(), QStringList());
}

TEST_F(Ledger, RebuildRoundsEachGroupOnceHalvesToEven)
{
    adjust("A", 1.5);
    adjust("A", 1.5);
    adjust("B", 2.5);
    adjust("C", -0.5);
    adjust("D", 3.5);
    transfer("E", "F", 2.5);
    EXPECT_EQ(rebuilt(), (QStringList{"A|P1|3", "B|P1|2", "C|P1|0", "D|P1|4", "E|P1|2", "F|P1|2"}));
}

TEST_F(Ledger, RebuildOverflowsBeyondSixteenBitsAndLeavesTheLedgerAsItIsThen)
{
    adjust("A", 32767.4);
    EXPECT_EQ(rebuilt(), QStringList{"A|P1|32767"});
    adjust("B", 32767.5);
    EXPECT_EQ(errorNumberOf([this] { rebuilt(); }), 6);
    EXPECT_EQ(ledger(), QStringList{"A|P1|32767"});
    EXPECT_TRUE(QGuiApplication::overrideCursor()) << "nothing took the hourglass back";
    setDefaultPointer();
}

TEST_F(Ledger, RebuildAsksAndNoLeavesEverythingAsItWas)
{
    UpdateAvailInv("North", "P1", 7);
    Boxes boxes;
    boxes.expect(title, question, "No");
    RebuildAvailInv();
    boxes.verify();
    EXPECT_EQ(ledger(), QStringList{"North|P1|7"});
    EXPECT_FALSE(QGuiApplication::overrideCursor());
}

} // namespace
