#include "inventory/ledger.h"
#include "tests/support/company.h"

namespace {

const char *const Adjustments = "SELECT Qty FROM AdjustmentDetail";
const char *const OrderLines = "SELECT Qty FROM OrderItem";
const char *const ShipmentLines = "SELECT Qty FROM ShipmentItems";

/// One kind of event with its quantities of part AX-100, and what the system's figures show of it in the warehouses
/// Main and North.
struct Event
{
    const char *name;
    QString adjust, transfer, order, ship;
    bool voided;
    const char *movements;
    QStringList stored;  ///< the quantities of the movement rows
    QStringList running; ///< the ledger as the forms left it
    QStringList rebuilt; ///< the ledger after a rebuild
    double main, north;  ///< what the order desk sees
};

class InventoryIdentity : public CompanyTest, public testing::WithParamInterface<Event>
{
protected:
    static void addLine(FormDriver &form, const QString &quantity)
    {
        pick(form, "cmbPart", "AX-100");
        form.type("txtAdjustment", quantity);
        form.click("btnUpdate");
        form.click("btnSave");
        settle();
    }
    static void adjust(const QString &quantity)
    {
        FormDriver form("frmInventoryAdjust");
        pick(form, "cmbWarehouse", "Main");
        addLine(form, quantity);
    }
    static void transfer(const QString &quantity)
    {
        FormDriver form("frmTransfer");
        pick(form, "cmbFrom", "Main");
        pick(form, "cmbTo", "North");
        addLine(form, quantity);
    }
    static void order(const QString &quantity)
    {
        FormDriver form("frmOrderEntry");
        pick(form, "cmbCustomer", "Acme Rail");
        form.type("txtOrderNumber", "A-1");
        pick(form, "cmbPart", "AX-100");
        form.type("txtQty", quantity);
        form.click("btnSaveItem");
        form.click("btnSave");
        settle();
    }
    void ship(const QString &quantity)
    {
        FormDriver form("frmShipmentEntry");
        pick(form, "cmbCustomer", "Acme Rail");
        pick(form, "cmbOrder", entries(form, "cmbOrder").constFirst());
        form.typeCell("vsfgItems", 1, 3, quantity);
        boxes.expect("Print Confirmation", "Did the Shipping Ticket Print OK?", "Yes");
        form.click("btnSave");
        settle();
    }
    void rebuild()
    {
        boxes.expect("Rebuild Confirmation", "Are you sure you want to rebuild the Available Inventory Report?", "Yes");
        RebuildAvailInv();
    }
};

TEST_P(InventoryIdentity, HoldsInAllFourFigures)
{
    const Event &event = GetParam();
    if (!event.adjust.isEmpty())
        adjust(event.adjust);
    if (!event.transfer.isEmpty())
        transfer(event.transfer);
    if (!event.order.isEmpty())
        order(event.order);
    if (!event.ship.isEmpty())
        ship(event.ship);
    if (event.voided)
        database.execute("UPDATE Orders SET Status = 'Void'");

    EXPECT_EQ(database.rows(event.movements), event.stored);
    EXPECT_EQ(ledger(), event.running);
    EXPECT_EQ(GetAvailableQty("AX-100", "Main"), event.main);
    EXPECT_EQ(GetAvailableQty("AX-100", "North"), event.north);
    rebuild();
    EXPECT_EQ(ledger(), event.rebuilt);
    EXPECT_EQ(GetAvailableQty("AX-100", "Main"), event.main) << "a rebuild doesn't touch it";
}

const QStringList none;
const auto at = [](const char *main, const char *north = "") {
    QStringList rows{QString("Main|AX-100|") + main};
    if (*north)
        rows += QString("North|AX-100|") + north;
    return rows;
};

INSTANTIATE_TEST_SUITE_P(
    Events, InventoryIdentity,
    testing::Values(
        Event{"adjustment", "10", "", "", "", false, Adjustments, {"10"}, at("10"), at("10"), 10, 0},
        Event{"decrease", "-3", "", "", "", false, Adjustments, {"-3"}, at("-3"), at("-3"), -3, 0},
        Event{"transfer", "", "4", "", "", false, Adjustments, {"-4", "4"}, at("-4", "4"), at("4", "4"), -4, 4},
        Event{"order", "", "", "7", "", false, OrderLines, {"7"}, none, none, -7, 0},
        Event{"order_voided", "", "", "7", "", true, OrderLines, {"7"}, none, none, 0, 0},
        Event{"shipment", "", "", "7", "3", false, ShipmentLines, {"3"}, at("3"), at("-3"), -7, 0},
        Event{"order_closed_by_shipment", "", "", "7", "7", false, ShipmentLines, {"7"}, at("7"), at("-7"), -7, 0},
        Event{"shipment_of_a_voided_order", "", "", "7", "3", true, ShipmentLines, {"3"}, at("3"), at("-3"), 0, 0},
        Event{"all_together",
              "10",
              "4",
              "7",
              "3",
              false,
              Adjustments,
              {"10", "-4", "4"},
              at("9", "4"),
              at("11", "4"),
              -1,
              4}),
    [](const auto &info) { return std::string(info.param.name); });

TEST_F(InventoryIdentity, RepeatedSavesDriftUntilARebuild)
{
    adjust("10");
    FormDriver form("frmInventoryAdjust");
    form.type("txtID", "1");
    form.click("btnSave");
    EXPECT_EQ(ledger(), at("20"));
    rebuild();
    EXPECT_EQ(ledger(), at("10"));
}

} // namespace
