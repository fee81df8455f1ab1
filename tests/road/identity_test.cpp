#include "inventory/ledger.h"
#include "tests/support/company.h"

namespace {

const char *const Adjustments = "SELECT Qty FROM AdjustmentDetail";
const char *const OrderLines = "SELECT Qty FROM OrderItem";
const char *const ShipmentLines = "SELECT Qty FROM ShipmentItems";

/// Some events of part AX-100, and what the system's figures show of them in the warehouses Main and North.
struct Event
{
    const char *name;
    const char *adjust, *transfer, *order, *ship; ///< quantities; null for none
    bool voided;
    const char *movements;
    const char *stored;            ///< the quantities of the movement rows
    const char *running, *rebuilt; ///< the ledger as the forms left it, and after a rebuild
    double main, north;            ///< what the order desk sees
};

class InventoryIdentity : public CompanyTest, public testing::WithParamInterface<Event>
{
protected:
    static void act(const char *form, const QString &steps) { FormDriver(form).act(steps); }
    static void adjust(const char *quantity)
    {
        act("frmInventoryAdjust", QString("cmbWarehouse: Main; <Tab>; cmbPart: AX-100; txtAdjustment: %1; btnUpdate; "
                                          "btnSave")
                                      .arg(quantity));
    }
    void ship(const char *quantity)
    {
        FormDriver form("frmShipmentEntry");
        form.act("cmbCustomer: Acme Rail");
        form.choose("cmbOrder", "A-1 - 3/30/2011");
        expectBox(form, QString("vsfgItems[1,3]: %1; btnSave").arg(quantity), "Print Confirmation",
                  "Did the Shipping Ticket Print OK?", "Yes");
    }
    void rebuild()
    {
        boxes.expect("Rebuild Confirmation", "Are you sure you want to rebuild the Available Inventory Report?", "Yes");
        RebuildAvailInv();
    }
    /// "Main 10 North 4"
    QString balances() const
    {
        return database.rows("SELECT Whse, Avail FROM AvailInv ORDER BY Whse").join(' ').replace('|', ' ');
    }
};

TEST_P(InventoryIdentity, HoldsInAllFourFigures)
{
    const Event &event = GetParam();
    if (event.adjust)
        adjust(event.adjust);
    if (event.transfer)
        act("frmTransfer", QString("cmbFrom: Main; cmbTo: North; <Tab>; cmbPart: AX-100; txtAdjustment: %1; "
                                   "btnUpdate; btnSave")
                               .arg(event.transfer));
    if (event.order)
        act("frmOrderEntry", QString("cmbCustomer: Acme Rail; txtOrderNumber: A-1; cmbPart: AX-100; txtQty: %1; "
                                     "btnSaveItem; btnSave")
                                 .arg(event.order));
    if (event.ship)
        ship(event.ship);
    if (event.voided)
        database.execute("UPDATE Orders SET Status = 'Void'");

    EXPECT_EQ(database.rows(event.movements).join(' '), event.stored);
    EXPECT_EQ(balances(), event.running);
    EXPECT_EQ(GetAvailableQty("AX-100", "Main"), event.main);
    EXPECT_EQ(GetAvailableQty("AX-100", "North"), event.north);
    rebuild();
    EXPECT_EQ(balances(), event.rebuilt);
    EXPECT_EQ(GetAvailableQty("AX-100", "Main"), event.main) << "a rebuild doesn't touch it";
}

const Event events[] = {
    {"adjustment", "10", nullptr, nullptr, nullptr, false, Adjustments, "10", "Main 10", "Main 10", 10, 0},
    {"decrease", "-3", nullptr, nullptr, nullptr, false, Adjustments, "-3", "Main -3", "Main -3", -3, 0},
    {"transfer", nullptr, "4", nullptr, nullptr, false, Adjustments, "-4 4", "Main -4 North 4", "Main 4 North 4", -4,
     4},
    {"order", nullptr, nullptr, "7", nullptr, false, OrderLines, "7", "", "", -7, 0},
    {"order_voided", nullptr, nullptr, "7", nullptr, true, OrderLines, "7", "", "", 0, 0},
    {"shipment", nullptr, nullptr, "7", "3", false, ShipmentLines, "3", "Main 3", "Main -3", -7, 0},
    {"order_closed", nullptr, nullptr, "7", "7", false, ShipmentLines, "7", "Main 7", "Main -7", -7, 0},
    {"shipment_voided", nullptr, nullptr, "7", "3", true, ShipmentLines, "3", "Main 3", "Main -3", 0, 0},
    {"all", "10", "4", "7", "3", false, Adjustments, "10 -4 4", "Main 9 North 4", "Main 11 North 4", -1, 4},
};

INSTANTIATE_TEST_SUITE_P(Events, InventoryIdentity, testing::ValuesIn(events),
                         [](const auto &info) { return std::string(info.param.name); });

TEST_F(InventoryIdentity, RepeatedSavesDriftUntilARebuild)
{
    adjust("10");
    act("frmInventoryAdjust", "txtID: 1; btnSave");
    EXPECT_EQ(balances(), "Main 20");
    rebuild();
    EXPECT_EQ(balances(), "Main 10");
}

} // namespace
