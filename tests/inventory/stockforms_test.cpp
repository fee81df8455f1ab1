#include "tests/support/company.h"

namespace {

const char *const Adjust = "frmInventoryAdjust";
const char *const Transfer = "frmTransfer";

class StockForms : public CompanyTest
{
protected:
    QStringList adjustments() const { return table("AdjustmentHeader"); }
    QStringList details() const { return database.rows("SELECT * FROM AdjustmentDetail"); }

    static void addLine(FormDriver &user, const QString &part, const QString &quantity)
    {
        pick(user, "cmbPart", part);
        user.type("txtAdjustment", quantity);
        user.click("btnUpdate");
    }
    /// A saved adjustment of the given lines in warehouse Main.
    static void saveAdjustment(const QList<QPair<QString, QString>> &lines)
    {
        FormDriver user(Adjust);
        pick(user, "cmbWarehouse", "Main");
        for (const auto &[part, quantity] : lines)
            addLine(user, part, quantity);
        user.click("btnSave");
        settle();
    }
    static void saveTransfer(const QString &from, const QString &to, const QString &part, const QString &quantity)
    {
        FormDriver user(Transfer);
        pick(user, "cmbFrom", from);
        pick(user, "cmbTo", to);
        addLine(user, part, quantity);
        user.click("btnSave");
        settle();
    }
    /// Opens a saved document by its number.
    static FormDriver open(const char *form, const QString &id)
    {
        FormDriver user(form);
        user.type("txtID", id);
        user.key(Qt::Key_Tab);
        return user;
    }
};

TEST_F(StockForms, ListsHoldActiveWarehousesAndPartsOnly)
{
    for (const auto &[form, lists] :
         {std::pair{Adjust, QStringList{"cmbWarehouse"}}, {Transfer, {"cmbFrom", "cmbTo"}}}) {
        FormDriver user(form);
        for (const QString &list : lists) {
            auto *warehouses = user.form()->findChild<ComboBox *>(list);
            EXPECT_EQ(warehouses->listCount(), 2);
            EXPECT_EQ(warehouses->list(1), "North");
        }
        EXPECT_EQ(user.control<ComboBox>("cmbPart")->listCount(), 2);
        EXPECT_EQ(user.control<ComboBox>("cmbType")->list(1), "Brackets");
        EXPECT_EQ(user.control<ComboBox>("cmbCost")->list(1), "1.25");
        EXPECT_EQ(user.text("dtDate"), "3/30/2011");
        const auto *grid = user.control<FlexGrid>("vsfgAdjustment");
        EXPECT_TRUE(grid->isColumnHidden(3));
        EXPECT_EQ(grid->model()->headerData(0, Qt::Horizontal, Qt::TextAlignmentRole).toInt(), int(Qt::AlignCenter));
    }
}

TEST_F(StockForms, LineEntryOpensWhenTheWarehousesAreLeftFilled)
{
    FormDriver adjust(Adjust);
    EXPECT_FALSE(adjust.enabled("Frame2"));
    adjust.click("cmbWarehouse");
    adjust.key(Qt::Key_Tab);
    EXPECT_FALSE(adjust.enabled("Frame2")) << "left empty";
    pick(adjust, "cmbWarehouse", "Main");
    EXPECT_TRUE(adjust.enabled("Frame2"));
    EXPECT_EQ(adjust.focus(), "cmbPart");

    adjust.click("btnExit");
    settle();
    FormDriver transfer(Transfer);
    pick(transfer, "cmbTo", "North");
    EXPECT_FALSE(transfer.enabled("Frame2")) << "one of the two";
    pick(transfer, "cmbFrom", "Main");
    EXPECT_TRUE(transfer.enabled("Frame2"));
    EXPECT_EQ(transfer.focus(), "cmbPart");
}

TEST_F(StockForms, LinesAreAppendedAsTypedAndTotalled)
{
    FormDriver user(Adjust);
    pick(user, "cmbWarehouse", "Main");
    user.click("btnUpdate");
    user.type("txtAdjustment", "5");
    user.click("btnUpdate");
    EXPECT_EQ(lines(user, "vsfgAdjustment"), QStringList()) << "no part chosen: nothing at all";
    addLine(user, "AX-100", "10");
    EXPECT_EQ(user.text("txtAdjustment"), "");
    EXPECT_EQ(user.focus(), "cmbPart");
    addLine(user, "AX-100", "-2.5");
    addLine(user, "BR-200", "3 dozen");
    user.click("btnUpdate");
    EXPECT_EQ(lines(user, "vsfgAdjustment"),
              (QStringList{"AX-100|Axles|10|2.5", "AX-100|Axles|-2.5|2.5", "BR-200|Brackets|3 dozen|1.25"}));
    EXPECT_EQ(user.text("lblTotal"), "10.5");
    EXPECT_TRUE(user.control<FlexGrid>("vsfgAdjustment")->isColumnHidden(3));

    user.click("btnDelete");
    EXPECT_EQ(lines(user, "vsfgAdjustment").size(), 3) << "no line selected";
    user.clickCell("vsfgAdjustment", 2, 0);
    user.click("btnDelete");
    EXPECT_EQ(lines(user, "vsfgAdjustment").size(), 2);
    EXPECT_EQ(user.text("lblTotal"), "13");
}

TEST_F(StockForms, SaveNeedsWarehousesAndALine)
{
    const auto refuse = [this](FormDriver &form, const char *prompt) {
        boxes.expect("Not Enough Data", prompt);
        form.click("btnSave");
        boxes.verify();
    };
    const char *const adjust = "You must select a Warehouse and add atleast one adjustment.";
    const char *const transfer = "You must select a To and From Location and add atleast one adjustment.";
    FormDriver first(Adjust);
    refuse(first, adjust);
    pick(first, "cmbWarehouse", "Main");
    refuse(first, adjust);
    addLine(first, "AX-100", "1");
    first.control<ComboBox>("cmbWarehouse")->setListIndex(-1);
    refuse(first, adjust);
    FormDriver second(Transfer);
    pick(second, "cmbFrom", "Main");
    refuse(second, transfer);
    pick(second, "cmbTo", "North");
    refuse(second, transfer);
    EXPECT_TRUE(first.isLoaded());
    EXPECT_EQ(adjustments(), QStringList());
}

TEST_F(StockForms, AdjustmentWritesHeaderLinesAndLedger)
{
    saveAdjustment({{"AX-100", "10"}, {"AX-100", "-2.5"}, {"BR-200", "1.5"}});
    EXPECT_FALSE(Forms::loaded(Adjust));
    EXPECT_EQ(adjustments(), QStringList{"1|3/30/2011|3/30/2011 2:05:09 PM|Main"});
    EXPECT_EQ(details(), (QStringList{"1|AX-100|10", "1|AX-100|-2.5", "1|BR-200|1.5"}));
    EXPECT_EQ(ledger(), (QStringList{"Main|AX-100|8", "Main|BR-200|2"}))
        << "each line rounds by itself, halves to even";
}

TEST_F(StockForms, SavingAnAdjustmentAgainPostsItAgainUnderTheWarehouseShown)
{
    saveAdjustment({{"AX-100", "10"}, {"BR-200", "4"}});
    FormDriver user = open(Adjust, "1");
    EXPECT_EQ(lines(user, "vsfgAdjustment"), (QStringList{"AX-100|Axles|10|", "BR-200|Brackets|4|"}))
        << "no cost on reload";
    EXPECT_EQ(user.text("cmbWarehouse"), "Main");
    EXPECT_EQ(user.text("lblTotal"), "14");
    EXPECT_TRUE(user.enabled("Frame2"));
    user.clickCell("vsfgAdjustment", 2, 0);
    user.click("btnDelete");
    pick(user, "cmbWarehouse", "North");
    user.click("btnSave");
    settle();
    EXPECT_EQ(adjustments(), QStringList{"1|3/30/2011|3/30/2011 2:05:09 PM|North"});
    EXPECT_EQ(details(), QStringList{"1|AX-100|10"});
    EXPECT_EQ(ledger(), (QStringList{"Main|AX-100|10", "Main|BR-200|4", "North|AX-100|10"})) << "nothing is taken back";
}

TEST_F(StockForms, PassingThroughTheNumberDropsLineChangesThatWereNotSaved)
{
    saveAdjustment({{"AX-100", "10"}});
    FormDriver user = open(Adjust, "1");
    addLine(user, "BR-200", "5");
    EXPECT_EQ(lines(user, "vsfgAdjustment").size(), 2);
    user.click("txtID");
    user.key(Qt::Key_Tab);
    EXPECT_EQ(lines(user, "vsfgAdjustment"), QStringList{"AX-100|Axles|10|"});
}

TEST_F(StockForms, UnknownNumberIsRefusedAndCleared)
{
    saveAdjustment({{"AX-100", "10"}});
    boxes.expect("Invalid Adjustment ID", "Invalid Adjustment ID. Please Re-enter.");
    boxes.expect("Invalid Transfer ID", "Invalid Transfer ID. Please Re-enter.");
    for (const char *form : {Adjust, Transfer}) {
        FormDriver user = open(form, form == Adjust ? "77" : "1") /* an adjustment's */;
        EXPECT_EQ(user.text("txtID"), "");
        EXPECT_EQ(user.focus(), "txtID");
    }
}

TEST_F(StockForms, HeaderWithoutLinesShowsOneBlankLineAndAnEmptiedAdjustmentIsRefused)
{
    addRow("AdjustmentHeader", {{"Warehouse", "Main"}, {"Date", Date(2011, 3, 1)}});
    FormDriver user = open(Adjust, "1");
    EXPECT_EQ(lines(user, "vsfgAdjustment"), QStringList{"|||"});
    EXPECT_EQ(user.text("dtDate"), "3/1/2011");
    user.clickCell("vsfgAdjustment", 1, 0);
    user.click("btnDelete");
    boxes.expect("Not Enough Data", "You must select a Warehouse and add atleast one adjustment.");
    user.click("btnSave");
    settle();
}

TEST_F(StockForms, TransferWritesTwoHalvesAndPostsBothWarehouses)
{
    saveTransfer("Main", "North", "AX-100", "5");
    EXPECT_EQ(adjustments(),
              (QStringList{"1|3/30/2011|3/30/2011 2:05:09 PM|Main", "2|3/30/2011|3/30/2011 2:05:09 PM|North"}));
    EXPECT_EQ(details(), (QStringList{"1|AX-100|-5", "2|AX-100|5"}));
    EXPECT_EQ(database.rows("SELECT * FROM TransferHeader"), QStringList{"1|1|2"});
    EXPECT_EQ(ledger(), (QStringList{"Main|AX-100|-5", "North|AX-100|5"}));

    saveTransfer("Main", "Main", "BR-200", "-7");
    EXPECT_EQ(details().mid(2), (QStringList{"3|BR-200|7", "4|BR-200|-7"}));
    EXPECT_EQ(ledger().at(1), "Main|BR-200|0") << "within one warehouse the two calls cancel";
}

TEST_F(StockForms, SavingATransferAgainKeepsItsHeadersAndPostsItAgain)
{
    saveTransfer("Main", "North", "AX-100", "5");
    FormDriver user = open(Transfer, "1");
    EXPECT_EQ(user.text("cmbFrom"), "Main");
    EXPECT_EQ(user.text("cmbTo"), "North");
    EXPECT_EQ(lines(user, "vsfgAdjustment"), QStringList{"AX-100|Axles|5|"}) << "the incoming half, so positive";
    EXPECT_EQ(user.text("lblTotal"), "5");
    user.click("btnSave");
    settle();
    EXPECT_EQ(adjustments().size(), 2);
    EXPECT_EQ(details(), (QStringList{"1|AX-100|-5", "2|AX-100|5"}));
    EXPECT_EQ(database.rows("SELECT * FROM TransferHeader"), QStringList{"1|1|2"});
    EXPECT_EQ(ledger(), (QStringList{"Main|AX-100|-10", "North|AX-100|10"}));
}

TEST_F(StockForms, HalfOfATransferOpensAsAnAdjustment)
{
    saveTransfer("Main", "North", "AX-100", "5");
    EXPECT_EQ(lines(open(Adjust, "1"), "vsfgAdjustment"), QStringList{"AX-100|Axles|-5|"});
}

TEST_F(StockForms, OutgoingHalfIsReadInSixteenBits)
{
    addRow("AdjustmentHeader", {{"Warehouse", "North"}, {"Date", Date(2011, 3, 1)}});
    database.execute("INSERT INTO TransferHeader (ID, FromID, ToID) VALUES (1, 32767, 1)");
    database.execute("INSERT INTO TransferHeader (ID, FromID, ToID) VALUES (2, 32768, 1)");
    FormDriver user = open(Transfer, "1");
    EXPECT_EQ(user.text("cmbFrom"), "") << "no such half: left alone";
    EXPECT_EQ(user.text("cmbTo"), "North");
    user.type("txtID", "2");
    expectRuntimeError(6, [&] { user.key(Qt::Key_Tab); });
}

struct Failure
{
    const char *form, *quantity;
    int error;
    QStringList details, ledger;
};
class StockFormFailures : public StockForms, public testing::WithParamInterface<Failure>
{
};

TEST_P(StockFormFailures, LeaveWhatWasWrittenBefore)
{
    const Failure &failure = GetParam();
    FormDriver user(failure.form);
    for (const auto &[warehouse, name] : {std::pair{"cmbWarehouse", "Main"}, {"cmbFrom", "Main"}, {"cmbTo", "North"}})
        if (user.form()->findChild<ComboBox *>(warehouse))
            pick(user, warehouse, name);
    addLine(user, "BR-200", "1");
    addLine(user, "AX-100", failure.quantity);
    expectRuntimeError(failure.error, [&] { user.click("btnSave"); });
    EXPECT_EQ(details(), failure.details);
    EXPECT_EQ(ledger(), failure.ledger);
}

INSTANTIATE_TEST_SUITE_P(
    Quantities, StockFormFailures,
    testing::Values(Failure{"frmInventoryAdjust", "ten", 3421, {"1|BR-200|1"}, {"Main|BR-200|1"}},
                    Failure{"frmInventoryAdjust", "32768", 6, {"1|BR-200|1", "1|AX-100|32768"}, {"Main|BR-200|1"}},
                    Failure{"frmTransfer",
                            "ten",
                            3421,
                            {"1|BR-200|-1", "1|AX-100|0", "2|BR-200|1"},
                            {"Main|BR-200|-1", "North|BR-200|1"}},
                    Failure{"frmTransfer",
                            "40000",
                            6,
                            {"1|BR-200|-1", "1|AX-100|-40000", "2|BR-200|1", "2|AX-100|40000"},
                            {"Main|BR-200|-1", "North|BR-200|1"}}),
    [](const auto &info) { return std::string(info.param.form) + "_" + info.param.quantity; });

TEST_F(StockForms, NumberThatIsNoneAndWarehouseNoLongerActiveAreRunTimeErrors)
{
    addRow("AdjustmentHeader", {{"Warehouse", "Old"}, {"Date", Date(2011, 3, 1)}});
    FormDriver user(Adjust);
    user.type("txtID", "1 2");
    expectRuntimeError(3075, [&] { user.key(Qt::Key_Tab); });
    user.click("txtID");
    user.type("txtID", "1");
    expectRuntimeError(383, [&] { user.key(Qt::Key_Tab); });
}

TEST_F(StockForms, ExitLeavesWithoutSavingOrAsking)
{
    FormDriver user(Adjust);
    pick(user, "cmbWarehouse", "Main");
    addLine(user, "AX-100", "1");
    user.click("btnExit");
    EXPECT_FALSE(user.isLoaded());
    EXPECT_EQ(adjustments(), QStringList());
}

} // namespace
