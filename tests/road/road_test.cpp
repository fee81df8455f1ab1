#include "tests/support/company.h"
#include "toolkit/forms/mainmod.h"

namespace {

/// The road of an order through every table, each step on its day.
class Road : public CompanyTest
{
protected:
    void stockIn()
    {
        FormDriver form("frmInventoryAdjust");
        pick(form, "cmbWarehouse", "Main");
        for (const auto &[part, quantity] : {std::pair{"AX-100", "200"}, {"BR-200", "100"}}) {
            pick(form, "cmbPart", part);
            form.type("txtAdjustment", quantity);
            form.click("btnUpdate");
        }
        form.click("btnSave");
        settle();
    }
    void moveToNorth()
    {
        FormDriver form("frmTransfer");
        pick(form, "cmbFrom", "Main");
        pick(form, "cmbTo", "North");
        pick(form, "cmbPart", "AX-100");
        form.type("txtAdjustment", "50");
        form.click("btnUpdate");
        form.click("btnSave");
        settle();
    }
    static FormDriver beginOrder(const QString &customer, const QString &number)
    {
        FormDriver form("frmOrderEntry");
        pick(form, "cmbCustomer", customer);
        form.type("txtOrderNumber", number);
        return form;
    }
    static void enterLine(FormDriver &form, const QString &part, const QString &quantity)
    {
        pick(form, "cmbPart", part);
        form.type("txtQty", quantity);
        form.click("btnSaveItem");
    }
    static FormDriver beginShipment()
    {
        FormDriver form("frmShipmentEntry");
        pick(form, "cmbCustomer", "Acme Rail");
        pick(form, "cmbOrder", "SO-1 - 3/29/2011");
        return form;
    }
    void saveShipment(FormDriver &form)
    {
        boxes.expect("Print Confirmation", "Did the Shipping Ticket Print OK?", "Yes");
        form.click("btnSave");
        settle();
    }
    QStringList masters() const
    {
        return table("Customer", "Customer") + table("Part", "PartNo") + table("Warehouse", "Warehouse");
    }
    /// Previews standing in the main window.
    qsizetype viewers() const { return mdi->findChildren<QWidget *>("Viewer").size(); }
    void expectRows(const QString &name, const QString &order, const QStringList &rows)
    {
        EXPECT_EQ(table(name, order), rows) << name.toStdString();
        m_compared += name;
    }

    QStringList m_compared{"Customer", "Part", "Warehouse"};
};

TEST_F(Road, FromStockReceivedToTheOverdueBalanceLeavesExactlyTheseRows)
{
    const QStringList mastersBefore = masters();
    {
        const TestClock day("2011-03-28 09:15:00");
        stockIn();
        moveToNorth();
    }
    {
        const TestClock day("2011-03-29 09:15:00");
        FormDriver order = beginOrder("Acme Rail", "SO-1");
        EXPECT_EQ(order.text("txtOverDue"), "0");
        pick(order, "cmbPart", "AX-100");
        EXPECT_EQ(order.text("lblQtyAvail"), "150");
        enterLine(order, "AX-100", "60");
        enterLine(order, "BR-200", "40");
        EXPECT_EQ(order.text("lblTotal"), "373");
        order.click("btnSave");
        settle();
        EXPECT_EQ(viewers(), 1) << "the pick ticket";
    }
    {
        const TestClock day("2011-03-30 09:15:00");
        FormDriver partial = beginShipment();
        partial.typeCell("vsfgItems", 1, 3, "25");
        partial.type("txtFreight", "12.5");
        saveShipment(partial);
        EXPECT_EQ(status("1"), "Open");
    }
    {
        const TestClock day("2011-04-01 09:15:00");
        FormDriver rest = beginShipment();
        rest.click("btnShipAll");
        rest.type("txtAdjustment", "-3.25");
        saveShipment(rest);
        EXPECT_EQ(status("1"), "Closed");

        FormDriver dropped = beginOrder("Birch Mill", "SO-2");
        enterLine(dropped, "AX-100", "4");
        dropped.tick("chkDropShip");
        dropped.type("txtFreight", "9.99");
        dropped.click("btnSave");
        settle();
        EXPECT_EQ(viewers(), 1) << "a drop shipment opens no ticket";
        EXPECT_EQ(status("2"), "Open");
    }
    {
        const TestClock day("2011-04-02 09:15:00");
        FormDriver("frmCreateInvoices").click("btnPrint");
        settle();
    }
    {
        const TestClock day("2011-04-20 09:15:00");
        FormDriver payment("frmReceivePayment");
        payment.type("txtInvoice", "1");
        payment.key(Qt::Key_Tab);
        EXPECT_EQ(payment.text("txtBalance"), "382.25");
        payment.type("txtPayment", "300");
        payment.type("txtAdjustment", "2.25");
        payment.click("btnSave");
    }
    {
        const TestClock day("2011-06-01 09:15:00");
        FormDriver next = beginOrder("Acme Rail", "SO-3");
        EXPECT_EQ(next.text("txtOverDue"), "80");
        pick(next, "cmbPart", "AX-100");
        EXPECT_EQ(next.text("lblQtyAvail"), "86");
        next.click("btnExit");
    }

    EXPECT_EQ(masters(), mastersBefore);
    expectRows("AdjustmentHeader", "ID",
               {"1|3/28/2011|3/28/2011 9:15:00 AM|Main", "2|3/28/2011|3/28/2011 9:15:00 AM|Main",
                "3|3/28/2011|3/28/2011 9:15:00 AM|North"});
    expectRows("AdjustmentDetail", "AdjustmentID, PartNo",
               {"1|AX-100|200", "1|BR-200|100", "2|AX-100|-50", "3|AX-100|50"});
    expectRows("TransferHeader", "ID", {"1|2|3"});
    expectRows("Orders", "ID",
               {"1|SO-1|Acme Rail|Main|Closed|3/29/2011|3/29/2011|||||||||3/29/2011|373",
                "2|SO-2|Birch Mill|Main|Closed|4/1/2011|4/1/2011|||||||||4/1/2011|19"});
    expectRows("OrderItem", "OrderID, ItemNumber",
               {"1|1|60|AX-100|Axles|4.75|285|", "1|2|40|BR-200|Brackets|2.2|88|", "2|1|4|AX-100|Axles|4.75|19|"});
    expectRows("Shipment", "ID",
               {"1|1|3/30/2011|UPS Ground|12.5|0|True|", "2|1|4/1/2011|UPS Ground|0|-3.25|True|",
                "3|2|4/1/2011||9.99|0|True|"});
    expectRows("ShipmentItems", "ShipmentID, OrderLineItem", {"1|1|1|25", "2|1|1|35", "2|1|2|40", "3|2|1|4"});
    expectRows(
        "Invoice", "ID",
        {"1|1|Acme Rail|4/2/2011|5/2/2011|Net 30|1, 2|382.25|200", "2|2|Birch Mill|4/2/2011|4/2/2011|COD|3|28.99|10"});
    expectRows("Payments", "ID", {"1|1|4/20/2011|300|2.25"});
    // Shipments add to the ledger; the drop shipment leaves it alone.
    expectRows("AvailInv", "Whse, Part", {"Main|AX-100|210", "Main|BR-200|140", "North|AX-100|50"});
    for (const TableDef &other : gDatabase->TableDefs()) {
        if (!m_compared.contains(other.Name)) {
            EXPECT_EQ(database.count(other.Name), 0) << other.Name.toStdString();
        }
    }
}

} // namespace
