#include "tests/support/company.h"
#include "toolkit/forms/mainmod.h"

namespace {

/// The road of an order through every table, each step on its day.
class Road : public CompanyTest
{
protected:
    /// Ships of the first order what the steps tell.
    void ship(const QString &steps)
    {
        FormDriver form("frmShipmentEntry", "cmbCustomer: Acme Rail");
        form.choose("cmbOrder", "SO-1 - 3/29/2011");
        form.act(steps);
        expectBox(form, "btnSave", "Print Confirmation", "Did the Shipping Ticket Print OK?", "Yes");
    }
    QStringList masters() const
    {
        return table("Customer", "Customer") + table("Part", "PartNo") + table("Warehouse", "Warehouse") +
               table("PriceSheet", "Part");
    }
    void expectRows(const QString &name, const QString &order, const QStringList &rows)
    {
        EXPECT_EQ(table(name, order), rows) << name.toStdString();
        m_compared += name;
    }

    QStringList m_compared{"Customer", "Part", "Warehouse", "PriceSheet"};
};

TEST_F(Road, FromStockReceivedToTheOverdueBalanceLeavesExactlyTheseRows)
{
    const QStringList mastersBefore = masters();
    {
        const TestClock day("2011-03-28 09:15:00");
        FormDriver("frmInventoryAdjust", "cmbWarehouse: Main; <Tab>; cmbPart: AX-100; txtAdjustment: 200; btnUpdate;"
                                         "cmbPart: BR-200; txtAdjustment: 100; btnUpdate; btnSave");
        FormDriver("frmTransfer", "cmbFrom: Main; cmbTo: North; <Tab>; cmbPart: AX-100; txtAdjustment: 50; btnUpdate;"
                                  "btnSave");
    }
    {
        const TestClock day("2011-03-29 09:15:00");
        FormDriver order("frmOrderEntry", "cmbCustomer: Acme Rail; txtOrderNumber: SO-1; cmbPart: AX-100; <Tab>");
        EXPECT_EQ(order.shows("txtOverDue lblQtyAvail"), "0|150");
        order.act("txtQty: 60; btnSaveItem; cmbPart: BR-200; txtQty: 40; btnSaveItem");
        EXPECT_EQ(order.text("lblTotal"), "625");
        order.act("btnSave");
        EXPECT_EQ(viewers(), 1) << "the pick ticket";
    }
    {
        const TestClock day("2011-03-30 09:15:00");
        ship("vsfgItems[1,3]: 25; txtFreight: 12.5");
        EXPECT_EQ(status("1"), "Open");
    }
    {
        const TestClock day("2011-04-01 09:15:00");
        ship("btnShipAll; txtAdjustment: -3.25");
        EXPECT_EQ(status("1"), "Closed");
        FormDriver("frmOrderEntry", "cmbCustomer: Birch Mill; txtOrderNumber: SO-2; cmbPart: AX-100; txtQty: 4;"
                                    "btnSaveItem; chkDropShip; txtFreight: 9.99; btnSave");
        EXPECT_EQ(viewers(), 1) << "a drop shipment opens no ticket";
        EXPECT_EQ(status("2"), "Open");
    }
    {
        const TestClock day("2011-04-02 09:15:00");
        FormDriver("frmCreateInvoices", "btnPrint");
    }
    {
        const TestClock day("2011-04-20 09:15:00");
        FormDriver payment("frmReceivePayment", "txtInvoice: 1; <Tab>");
        EXPECT_EQ(payment.text("txtBalance"), "634.25");
        payment.act("txtPayment: 300; txtAdjustment: 2.25; btnSave");
    }
    {
        const TestClock day("2011-06-01 09:15:00");
        EXPECT_EQ(ledger(), (QStringList{"Main|AX-100|210", "Main|BR-200|140", "North|AX-100|50"}))
            << "shipments add, and the drop shipment does not reach it";
        boxes.expect("Rebuild Confirmation", "Are you sure you want to rebuild the Available Inventory Report?", "Yes");
        menu("RebuildInv");
        FormDriver next("frmOrderEntry", "cmbCustomer: Acme Rail; cmbPart: AX-100; <Tab>");
        EXPECT_EQ(next.shows("txtOverDue lblQtyAvail"), "332|86") << "whatever the ledger holds";
        next.act("btnExit");
    }

    EXPECT_EQ(masters(), mastersBefore);
    expectRows("AdjustmentHeader", "ID",
               {"1|3/28/2011|3/28/2011 9:15:00 AM|Main", "2|3/28/2011|3/28/2011 9:15:00 AM|Main",
                "3|3/28/2011|3/28/2011 9:15:00 AM|North"});
    expectRows("AdjustmentDetail", "AdjustmentID, PartNo",
               {"1|AX-100|200", "1|BR-200|100", "2|AX-100|-50", "3|AX-100|50"});
    expectRows("TransferHeader", "ID", {"1|2|3"});
    expectRows("Orders", "ID",
               {"1|SO-1|Acme Rail|Main|Closed|3/29/2011|3/29/2011|Acme Dock|1 Quay|Gate 3|Erie|PA|16501|555-1|555-2|"
                "3/29/2011|625",
                "2|SO-2|Birch Mill|Main|Closed|4/1/2011|4/1/2011|||||||||4/1/2011|40"});
    expectRows("OrderItem", "OrderID, ItemNumber",
               {"1|1|60|AX-100|Axles|8.75|525|", "1|2|40|BR-200|Brackets|2.5|100|", "2|1|4|AX-100|Axles|10|40|"});
    expectRows("Shipment", "ID",
               {"1|1|3/30/2011|UPS Ground|12.5|0|True|", "2|1|4/1/2011|UPS Ground|0|-3.25|True|",
                "3|2|4/1/2011||9.99|0|True|"});
    expectRows("ShipmentItems", "ShipmentID, OrderLineItem", {"1|1|1|25", "2|1|1|35", "2|1|2|40", "3|2|1|4"});
    expectRows(
        "Invoice", "ID",
        {"1|1|Acme Rail|4/2/2011|5/2/2011|Net 30|1, 2|634.25|200", "2|2|Birch Mill|4/2/2011|4/2/2011|COD|3|49.99|10"});
    expectRows("Payments", "ID", {"1|1|4/20/2011|300|2.25"});
    // The rebuild takes off all that was shipped, and gives back what the transfer took.
    expectRows("AvailInv", "Whse, Part", {"Main|AX-100|186", "Main|BR-200|60", "North|AX-100|50"});
    for (const TableDef &other : gDatabase->TableDefs()) {
        if (!m_compared.contains(other.Name)) {
            EXPECT_EQ(database.count(other.Name), 0) << other.Name.toStdString();
        }
    }
}

} // namespace
