#include "tests/orders/orderdesk.h"

namespace {

const char *const LineFields = "lblItem cmbPart txtQty txtPriceEach lblPriceExt txtCustomerNumber";

using OrderLines = OrderDesk;

TEST_F(OrderLines, LeavingThePartShowsAvailabilityAndPrice)
{
    addOrder("X", "Birch Mill", {{"BR-200", 4, 1}});
    const struct
    {
        const char *title, *flag, *steps, *shown;
    } cases[] = {
        {"sheet price", "YES", "cmbCustomer: Acme Rail; cmbPart: AX-100", "0|8.75"},
        {"list price, short stock", "YES", "cmbCustomer: Acme Rail; cmbPart: BR-200", "-4|2.5"},
        {"a sheet price of nothing counts", "YES", "cmbCustomer: Acme Rail; cmbPart: CX-300", "0|0"},
        {"a customer without a sheet", "YES", "cmbCustomer: Birch Mill; cmbPart: AX-100", "0|10"},
        {"no customer gives 0, not the list price", "YES", "cmbPart: AX-100", "0|0"},
        {"no part", "YES", "cmbCustomer: Acme Rail; cmbPart:; cmbPart", "N/A|0"},
        {"no warehouse", "YES", "cmbWarehouse:; cmbPart: AX-100", "N/A|0"},
        {"prices off", "Yes", "cmbCustomer: Acme Rail; cmbPart: AX-100", "0|"},
    };
    for (const auto &row : cases) {
        gAutoPriceFlag = row.flag;
        FormDriver form("frmOrderEntry", QString(row.steps) + "; <Tab>");
        EXPECT_EQ(form.shows("lblQtyAvail txtPriceEach"), row.shown) << row.title;
        EXPECT_EQ(form.text("lblPriceExt"), "") << "the amount waits for quantity or price";
        form.act("btnExit");
    }
    database.execute("UPDATE PriceSheet SET Price = NULL");
    gAutoPriceFlag = "YES";
    expectErrorUnderHourglass(94, [] { newOrder("cmbPart: AX-100; <Tab>"); });
}

TEST_F(OrderLines, AmountIsLeadingNumberTimesLeadingNumber)
{
    FormDriver form = newOrder("cmbPart: AX-100");
    for (const auto &[qty, price, amount] : {std::tuple{"3", "1.1", "3.3"},
                                             {"2", "$5", "0"},
                                             {"1,000", "2", "2"},
                                             {"(2)", "5", "0"},
                                             {"-2", "1.5", "-3"},
                                             {"2", "", "0"}}) {
        form.act(QString("txtQty: %1; txtPriceEach: %2; <Tab>").arg(qty, price));
        EXPECT_EQ(form.text("lblPriceExt"), amount) << qty << " x " << price;
    }
}

TEST_F(OrderLines, AddsLinesNumbersThemAndIsReadyForTheNext)
{
    FormDriver form = newOrder("cmbPart: AX-100; txtQty: 4; <Tab>");
    EXPECT_EQ(form.shows(LineFields), "|AX-100|4|8.75|35|");
    form.act("btnSaveItem");
    EXPECT_EQ(form.shows(LineFields), "|||||");
    EXPECT_EQ(form.shows("lblQtyAvail lblTotal"), "|35");
    EXPECT_EQ(form.focus(), "cmbPart");
    form.act("cmbPart: BR-200; txtQty: 0.1; txtPriceEach: 0.2; btnSaveItem;"
             "cmbPart: CX-300; txtQty: -1; txtPriceEach: 0.5; btnSaveItem");
    EXPECT_EQ(lines(form, "vsfgItems"), (QStringList{"1|4|AX-100|Axles|8.75|35|", "2|0.1|BR-200|Brackets|0.2|0.02|",
                                                     "3|-1|CX-300|Brackets|0.5|-0.5|"}));
    EXPECT_EQ(form.text("lblTotal"), "34.52");
}

TEST_F(OrderLines, RefusesALineWithoutPartQuantityOrPrice)
{
    FormDriver form = newOrder();
    for (const auto &[part, qty, price] : {std::tuple{"", "1", "1"},
                                           {"AX-100", "", "1"},
                                           {"AX-100", "few", "1"},
                                           {"AX-100", "1", "abc"},
                                           {"AX-100", "1", ""},
                                           {"AX-100", "1/2", "1"}}) {
        expectBox(form, QString("cmbPart: %1; txtQty: %2; txtPriceEach: %3; btnSaveItem").arg(part, qty, price),
                  "Not Enough Information", "You must enter a Part, Quantity, and Price before saving.");
        EXPECT_EQ(form.focus(), "cmbPart");
    }
    EXPECT_EQ(lines(form, "vsfgItems"), QStringList());
}

TEST_F(OrderLines, PickingARowLoadsItAndSavingChangesItButNotItsCategory)
{
    const QString id = twoLines();
    database.execute("UPDATE Orders SET Total = 777");
    FormDriver form = opened(id);
    form.act("vsfgItems[2]");
    EXPECT_EQ(form.shows(LineFields), "2|AX-100|2|10|20|C2");
    EXPECT_EQ(form.focus(), "txtQty");
    EXPECT_EQ(form.text("lblTotal"), "777") << "the stored one until a line changes";
    form.act("cmbPart: BR-200; txtQty: 3; txtPriceEach: 4; txtCustomerNumber: D2; btnSaveItem");
    EXPECT_EQ(lines(form, "vsfgItems"), (QStringList{"1|1|AX-100|Axles|10|10|C1", "2|3|BR-200|Axles|4|12|D2"}));
    EXPECT_EQ(form.shows(LineFields), "|||||");
    EXPECT_EQ(form.focus(), "txtQty");
    EXPECT_EQ(form.text("lblTotal"), "22");
    form.act("btnDeleteItem");
    EXPECT_EQ(lines(form, "vsfgItems").size(), 2) << "the row stays current, its line is no longer picked";
    form.act("btnExit");
    FormDriver inactive = opened(addOrder("A-8", "Acme Rail", {{"ZZ-900", 1, 1}}));
    expectRuntimeError(383, [&] { inactive.act("vsfgItems[1]"); });
}

TEST_F(OrderLines, ANewLineIsNumberedBehindTheLastOneAndAmountsAddUpAsTheyRead)
{
    const QString id = twoLines();
    database.execute("UPDATE OrderItem SET ItemNumber = 5 WHERE ItemNumber = 2");
    FormDriver form = opened(id);
    form.control<FlexGrid>("vsfgItems")->setTextMatrix(1, 5, "$1,010.00");
    form.act("cmbPart: BR-200; txtQty: 2; txtPriceEach: 1; btnSaveItem");
    EXPECT_EQ(lines(form, "vsfgItems").constLast(), "6|2|BR-200|Brackets|1|2|");
    EXPECT_EQ(form.text("lblTotal"), "1032");
}

TEST_F(OrderLines, DeletingAMiddleLineRenumbersTheRest)
{
    const QString id = addOrder("A-7", "Acme Rail", {{"AX-100", 1, 10}, {"AX-100", 2, 10}, {"AX-100", 3, 10}});
    FormDriver form = opened(id);
    const QString question = "Are you sure you want to delete Line Item 2?";
    form.act("btnDeleteItem");
    expectBox(form, "vsfgItems[2]; btnDeleteItem", "Delete Confirmation", question, "No");
    EXPECT_EQ(lines(form, "vsfgItems").size(), 3);
    expectBox(form, "btnDeleteItem", "Delete Confirmation", question, "Yes");
    EXPECT_EQ(lines(form, "vsfgItems"), (QStringList{"1|1|AX-100|Axles|10|10|C1", "2|3|AX-100|Axles|10|30|C3"}));
    EXPECT_EQ(form.shows(LineFields), "|||||");
    EXPECT_EQ(form.focus(), "txtQty");
    EXPECT_EQ(form.text("lblTotal"), "40");
    form.act("btnSave");
    EXPECT_EQ(savedLines(), (QStringList{"1|1|1|AX-100|Axles|10|10|C1", "1|2|3|AX-100|Axles|10|30|C3"}));
}

TEST_F(OrderLines, NoLineIsDeletedOnceGoodsHaveLeftNorOnAnOrderNeverSaved)
{
    const QString id = twoLines();
    addShipment(id, {});
    const auto expectRefusal = [this](FormDriver form) {
        expectBox(form, "vsfgItems[1]; btnDeleteItem", "Cannot Delete Line Item",
                  "One or more Shipments exists for this Order. The Line Item cannot be deleted.");
        EXPECT_EQ(form.row("vsfgItems", 1).left(2), "1|");
        form.act("btnExit");
    };
    expectRefusal(opened(id));
    expectRefusal(newOrder("cmbPart: AX-100; txtQty: 1; btnSaveItem"));
}

} // namespace
