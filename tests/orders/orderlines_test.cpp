#include "tests/orders/orderdesk.h"

namespace {

class OrderLines : public OrderDesk
{
protected:
    static QStringList rows(const FormDriver &form) { return form.grid("vsfgItems").mid(1); }
    static QString lineFields(const FormDriver &form)
    {
        return texts(form, {"lblItem", "cmbPart", "txtQty", "txtPriceEach", "lblPriceExt", "txtCustomerNumber"});
    }
    /// The next box refuses the deletion.
    void expectRefusal()
    {
        boxes.expect("Cannot Delete Line Item",
                     "One or more Shipments exists for this Order. The Line Item cannot be deleted.");
    }
};

TEST_F(OrderLines, LeavingThePartShowsAvailabilityAndPrice)
{
    struct Leaving
    {
        const char *title, *flag, *customer, *part, *avail, *price;
    };
    const QString other = order("X", 0);
    addRow("OrderItem", {{"OrderID", other}, {"ItemNumber", 1}, {"PartNo", "P2"}, {"Qty", 4.0}});
    const Leaving cases[] = {
        {"sheet price", "YES", "Acme", "P1", "0", "8.75"},
        {"list price, short stock", "YES", "Acme", "P2", "-4", "2.5"},
        {"a sheet price of nothing counts", "YES", "Acme", "P3", "0", "0"},
        {"a customer without a sheet", "YES", "Bolt Bros", "P1", "0", "10"},
        {"no customer gives 0, not the list price", "YES", "", "P1", "0", "0"},
        {"no part", "YES", "Acme", "", "N/A", "0"},
        {"prices off", "Yes", "Acme", "P1", "0", ""},
    };
    for (const Leaving &row : cases) {
        gAutoPriceFlag = row.flag;
        FormDriver form("frmOrderEntry");
        if (*row.customer)
            form.choose("cmbCustomer", row.customer);
        form.control<QWidget>("cmbPart")->setFocus();
        if (*row.part)
            form.choose("cmbPart", row.part);
        form.key(Qt::Key_Tab);
        EXPECT_EQ(form.text("lblQtyAvail"), row.avail) << row.title;
        EXPECT_EQ(form.text("txtPriceEach"), row.price) << row.title;
        EXPECT_EQ(form.text("lblPriceExt"), "") << "the amount waits for quantity or price";
        EXPECT_FALSE(QGuiApplication::overrideCursor());
        leave(form, "btnExit");
    }
}

TEST_F(OrderLines, WithoutAWarehouseThereIsNoAvailability)
{
    FormDriver form("frmOrderEntry");
    form.control<ComboBox>("cmbWarehouse")->setListIndex(-1);
    enterLine(form, "P1", "1");
    EXPECT_EQ(form.text("lblQtyAvail"), "N/A");
}

TEST_F(OrderLines, AmountIsLeadingNumberTimesLeadingNumber)
{
    FormDriver form = newOrder();
    const std::tuple<const char *, const char *, const char *> cases[] = {
        {"3", "1.1", "3.3"}, {"2", "$5", "0"}, {"1,000", "2", "2"}, {"(2)", "5", "0"}, {"-2", "1.5", "-3"}};
    for (const auto &[qty, price, amount] : cases) {
        enterLine(form, "P1", qty, price);
        EXPECT_EQ(form.text("lblPriceExt"), amount) << qty << " x " << price;
    }
    form.type("txtPriceEach", "");
    form.click("txtQty");
    EXPECT_EQ(form.text("lblPriceExt"), "0");
}

TEST_F(OrderLines, AddsLinesNumbersThemAndIsReadyForTheNext)
{
    FormDriver form = newOrder();
    enterLine(form, "P1", "4");
    EXPECT_EQ(lineFields(form), ",P1,4,8.75,35,");
    form.click("btnSaveItem");
    EXPECT_EQ(lineFields(form), ",,,,,");
    EXPECT_EQ(form.text("lblQtyAvail"), "");
    EXPECT_EQ(form.focus(), "cmbPart");
    EXPECT_EQ(form.text("lblTotal"), "35");
    addLine(form, "P2", "0.1", "0.2");
    addLine(form, "P3", "-1", "0.5");
    EXPECT_EQ(rows(form), (QStringList{"1|4|P1|Bolts|8.75|35|", "2|0.1|P2|Nuts|0.2|0.02|", "3|-1|P3|Nuts|0.5|-0.5|"}));
    EXPECT_EQ(form.text("lblTotal"), "34.52");
}

TEST_F(OrderLines, RefusesALineWithoutPartQuantityOrPrice)
{
    FormDriver form = newOrder();
    struct Line
    {
        const char *part, *qty, *price;
    };
    for (const Line &line : {Line{"", "1", "1"}, Line{"P1", "", "1"}, Line{"P1", "few", "1"}, Line{"P1", "1", "abc"},
                             Line{"P1", "1/2", "1"}}) {
        form.control<ComboBox>("cmbPart")->setListIndex(-1);
        if (*line.part)
            form.choose("cmbPart", line.part);
        form.type("txtQty", line.qty);
        form.type("txtPriceEach", line.price);
        boxes.expect("Not Enough Information", "You must enter a Part, Quantity, and Price before saving.");
        form.click("btnSaveItem");
        boxes.verify();
        EXPECT_EQ(form.focus(), "cmbPart");
    }
    form.type("txtPriceEach", "");
    boxes.expect("Not Enough Information", "You must enter a Part, Quantity, and Price before saving.");
    form.click("btnSaveItem"); // an empty price
    EXPECT_EQ(rows(form), QStringList());
}

TEST_F(OrderLines, PickingARowLoadsItAndSavingChangesItButNotItsCategory)
{
    FormDriver form = opened(order("A-7", 2));
    form.clickCell("vsfgItems", 2, 3);
    EXPECT_EQ(lineFields(form), "2,P1,2,10,20,C2");
    EXPECT_EQ(form.focus(), "txtQty");
    enterLine(form, "P2", "3", "4");
    form.click("btnSaveItem");
    EXPECT_EQ(rows(form), (QStringList{"1|1|P1|Bolts|10|10|C1", "2|3|P2|Bolts|4|12|C2"}));
    EXPECT_EQ(lineFields(form), ",,,,,");
    EXPECT_EQ(form.focus(), "txtQty");
    EXPECT_EQ(form.text("lblTotal"), "22");
}

TEST_F(OrderLines, TheTotalIsTheStoredOneUntilALineChanges)
{
    const QString id = order("A-7", 2);
    gDatabase->Execute("UPDATE Orders SET Total = 777 WHERE ID = " + id);
    FormDriver form = opened(id);
    EXPECT_EQ(form.text("lblTotal"), "777");
    addLine(form, "P2", "2", "1");
    EXPECT_EQ(form.text("lblTotal"), "32");
}

TEST_F(OrderLines, ARowOfAnInactivePartCannotBePicked)
{
    const QString id = order("A-7", 0);
    addRow("OrderItem", {{"OrderID", id}, {"ItemNumber", 1}, {"PartNo", "Gone"}, {"Qty", 1.0}});
    FormDriver form = opened(id);
    expectRuntimeError(383, [&] { form.clickCell("vsfgItems", 1); });
}

TEST_F(OrderLines, DeletingAMiddleLineRenumbersTheRest)
{
    const QString id = order("A-7", 3);
    FormDriver form = opened(id);
    form.clickCell("vsfgItems", 2);
    boxes.expect("Delete Confirmation", "Are you sure you want to delete Line Item 2?", "No");
    form.click("btnDeleteItem");
    EXPECT_EQ(rows(form).size(), 3);
    boxes.expect("Delete Confirmation", "Are you sure you want to delete Line Item 2?", "Yes");
    form.click("btnDeleteItem");
    EXPECT_EQ(rows(form), (QStringList{"1|1|P1|Bolts|10|10|C1", "2|3|P1|Bolts|10|30|C3"}));
    EXPECT_EQ(lineFields(form), ",,,,,");
    EXPECT_EQ(form.focus(), "txtQty");
    EXPECT_EQ(form.text("lblTotal"), "40");
    form.click("btnSave");
    EXPECT_EQ(lines(id), (QStringList{id + "|1|1|P1|Bolts|10|10|C1", id + "|2|3|P1|Bolts|10|30|C3"}));
}

TEST_F(OrderLines, NothingIsDeletedWithoutAPickedLine)
{
    FormDriver form = opened(order("A-7", 2));
    form.click("btnDeleteItem");
    form.clickCell("vsfgItems", 2);
    form.click("btnSaveItem"); // the row stays current, its line is no longer picked
    form.click("btnDeleteItem");
    EXPECT_EQ(rows(form).size(), 2);
}

TEST_F(OrderLines, ANewLineIsNumberedBehindTheLastOneAndAmountsAddUpAsTheyRead)
{
    const QString id = order("A-7", 2);
    gDatabase->Execute("UPDATE OrderItem SET ItemNumber = 5 WHERE ItemNumber = 2");
    FormDriver form = opened(id);
    form.control<FlexGrid>("vsfgItems")->setTextMatrix(1, 5, "$1,010.00");
    addLine(form, "P2", "2", "1");
    EXPECT_EQ(rows(form).constLast(), "6|2|P2|Nuts|1|2|");
    EXPECT_EQ(form.text("lblTotal"), "1032");
}

TEST_F(OrderLines, NoLineIsDeletedOnceGoodsHaveLeftNorOnAnOrderNeverSaved)
{
    const QString id = order("A-7", 2);
    addRow("Shipment", {{"OrderID", id}});
    FormDriver form = opened(id);
    form.clickCell("vsfgItems", 1);
    expectRefusal();
    form.click("btnDeleteItem");
    EXPECT_EQ(rows(form).size(), 2);
    leave(form, "btnExit");

    form = newOrder();
    addLine(form, "P1", "1");
    form.clickCell("vsfgItems", 1);
    expectRefusal();
    form.click("btnDeleteItem");
    EXPECT_EQ(rows(form).size(), 1);
}

} // namespace
