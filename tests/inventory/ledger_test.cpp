#include "inventory/ledger.h"

#include "tests/support/company.h"
#include "tests/support/printers.h"
#include "toolkit/controls/mousepointer.h"

namespace {

class Ledger : public CompanyTest
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
        return addOrder("A-1", "Acme Rail", {{"P1", qty, 1}}, status, warehouse);
    }
    QStringList rebuilt(const char *answer = "Yes")
    {
        boxes.expect("Rebuild Confirmation", "Are you sure you want to rebuild the Available Inventory Report?",
                     answer);
        RebuildAvailInv();
        boxes.verify();
        return ledger();
    }
};

TEST_F(Ledger, UpdateMakesTheRowOfAPairAndThenAddsToTheFirstOne)
{
    UpdateAvailInv("North", "P1", 3);
    EXPECT_EQ(ledger(), QStringList{"North|P1|3"});
    addRow("AvailInv", {{"Whse", "North"}, {"Part", "P1"}, {"Avail", 100}});
    UpdateAvailInv("north", "p1", -5);
    UpdateAvailInv("North", "P2", 0);
    UpdateAvailInv("South", "P1", 1);
    EXPECT_EQ(database.rows("SELECT Whse, Part, Avail FROM AvailInv ORDER BY Whse, Part, Avail"),
              (QStringList{"North|P1|-2", "North|P1|100", "North|P2|0", "South|P1|1"}));
    database.execute("UPDATE AvailInv SET Avail = NULL");
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
    addShipment(order("North", 1, "Closed"), {1});
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
    for (const char *former : {"P1", "P1", "Gone"})
        UpdateAvailInv("North", former, 7);
    adjust("North", 10);
    adjust("North", -1);
    transfer("East", "West", 4);
    addShipment(order("South", 3), {3});
    addShipment(order("South", 2, "Void"), {2});
    EXPECT_EQ(rebuilt("No"), (QStringList{"North|Gone|7", "North|P1|14"})) << "everything as it was";
    const QStringList balances{"East|P1|4", "North|P1|9", "South|P1|-5", "West|P1|4"};
    EXPECT_EQ(rebuilt(), balances);
    // What the joins leave over is passed over.
    addRow("AdjustmentHeader", {{"Warehouse", "North"}}); // no lines
    adjust("", 5);
    adjust("North", 5, "");
    adjust("North", Value());
    addRow("TransferHeader", {{"FromID", 900}, {"ToID", 901}});
    addShipment(order("North", 1), {0, 1}); // the order line is gone
    addShipment("999", {1});                // the order is gone
    EXPECT_EQ(rebuilt(), balances) << "a second one starts from nothing again";
}

TEST_F(Ledger, RebuildRoundsEachGroupOnceHalvesToEvenWithinSixteenBits)
{
    for (const auto &[warehouse, qty] : {std::pair{"A", 1.5}, {"A", 1.5}, {"B", 2.5}, {"C", -0.5}, {"D", 32767.4}})
        adjust(warehouse, qty);
    transfer("E", "F", 2.5);
    const QStringList balances{"A|P1|3", "B|P1|2", "C|P1|0", "D|P1|32767", "E|P1|2", "F|P1|2"};
    EXPECT_EQ(rebuilt(), balances);
    adjust("G", 32767.5);
    boxes.expect("Rebuild Confirmation", "Are you sure you want to rebuild the Available Inventory Report?", "Yes");
    EXPECT_EQ(errorNumberOf([] { RebuildAvailInv(); }), 6);
    EXPECT_EQ(ledger(), balances.mid(0, 4)) << "as it is then";
    EXPECT_TRUE(QGuiApplication::overrideCursor()) << "nothing took the hourglass back";
    setDefaultPointer();
}

} // namespace
