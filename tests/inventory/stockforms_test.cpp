#include "tests/support/company.h"

namespace {

const char *const Adjust = "frmInventoryAdjust";
const char *const Transfer = "frmTransfer";

class StockForms : public CompanyTest
{
protected:
    QStringList adjustments() const { return table("AdjustmentHeader"); }
    QStringList details() const { return database.rows("SELECT * FROM AdjustmentDetail"); }

    static QString line(const char *part, const char *quantity)
    {
        return QString("cmbPart: %1; txtAdjustment: %2; btnUpdate;").arg(part, quantity);
    }
    /// A saved adjustment of warehouse Main, and a saved transfer from Main to North.
    static void adjust(const QString &lines) { FormDriver(Adjust, "cmbWarehouse: Main; <Tab>;" + lines + "btnSave"); }
    static void transfer(const QString &lines)
    {
        FormDriver(Transfer, "cmbFrom: Main; cmbTo: North; <Tab>;" + lines + "btnSave");
    }
    static QStringList lines(const FormDriver &user) { return ::lines(user, "vsfgAdjustment"); }
};

TEST_F(StockForms, ListsHoldActiveWarehousesAndPartsOnlyAndEndAtAPartWithoutCost)
{
    for (const auto &[form, list] : {std::pair{Adjust, "cmbWarehouse"}, {Transfer, "cmbFrom"}, {Transfer, "cmbTo"}}) {
        const FormDriver user(form);
        EXPECT_EQ(entries(user, list), "Main|North");
        EXPECT_EQ(entries(user, "cmbPart"), "AX-100|BR-200|CX-300");
        EXPECT_EQ(entries(user, "cmbType"), "Axles|Brackets|Brackets");
        EXPECT_EQ(entries(user, "cmbCost"), "2.5|1.25|0.05");
        EXPECT_EQ(user.text("dtDate"), "3/30/2011");
        const auto *grid = user.control<FlexGrid>("vsfgAdjustment");
        EXPECT_TRUE(grid->isColumnHidden(3));
        EXPECT_EQ(grid->model()->headerData(0, Qt::Horizontal, Qt::TextAlignmentRole).toInt(), int(Qt::AlignCenter));
    }
    Forms::unloadAll();
    database.execute("UPDATE Part SET Cost = NULL");
    for (const char *form : {Adjust, Transfer})
        expectErrorUnderHourglass(94, [&] { Load(form); });
}

TEST_F(StockForms, LineEntryOpensWhenTheWarehousesAreLeftFilled)
{
    for (const auto &[form, steps, open] : {std::tuple{Adjust, "cmbWarehouse:; txtID; cmbWarehouse; <Tab>", false},
                                            {Adjust, "cmbWarehouse: Main; <Tab>", true},
                                            {Transfer, "cmbTo: North; <Tab>", false},
                                            {Transfer, "cmbFrom: Main; <Tab>", true}}) {
        const FormDriver user(form, steps);
        EXPECT_EQ(user.enabled("Frame2"), open) << steps;
        EXPECT_TRUE(!open || user.focus() == "cmbPart") << steps;
    }
}

TEST_F(StockForms, LinesAreAppendedAsTypedAndTotalled)
{
    FormDriver user(Adjust, "cmbWarehouse: Main; <Tab>; btnUpdate; txtAdjustment: 5; btnUpdate;");
    EXPECT_EQ(lines(user), QStringList()) << "no part chosen: nothing at all";
    user.act(line("AX-100", "10"));
    EXPECT_EQ(user.text("txtAdjustment"), "");
    EXPECT_EQ(user.focus(), "cmbPart");
    user.act(line("AX-100", "-2.5") + line("BR-200", "3 dozen") + "btnUpdate");
    EXPECT_EQ(lines(user),
              (QStringList{"AX-100|Axles|10|2.5", "AX-100|Axles|-2.5|2.5", "BR-200|Brackets|3 dozen|1.25"}));
    EXPECT_EQ(user.text("lblTotal"), "10.5");
    EXPECT_TRUE(user.control<FlexGrid>("vsfgAdjustment")->isColumnHidden(3));
    user.act("btnDelete");
    EXPECT_EQ(lines(user).size(), 3) << "no line selected";
    user.act("vsfgAdjustment[2]; btnDelete");
    EXPECT_EQ(lines(user).size(), 2);
    EXPECT_EQ(user.text("lblTotal"), "13");
    user.act("btnExit");
    EXPECT_FALSE(user.isLoaded()) << "without asking";
    EXPECT_EQ(adjustments(), QStringList());
}

TEST_F(StockForms, SaveNeedsWarehousesAndALine)
{
    const char *const adjust = "You must select a Warehouse and add atleast one adjustment.";
    const char *const transfer = "You must select a To and From Location and add atleast one adjustment.";
    const QString oneLine = line("AX-100", "1");
    for (const auto &[form, steps, prompt] : {std::tuple{Adjust, QString(), adjust},
                                              {Adjust, "cmbWarehouse: Main; <Tab>", adjust},
                                              {Adjust, oneLine + "cmbWarehouse:", adjust},
                                              {Transfer, "cmbFrom: Main", transfer},
                                              {Transfer, "cmbTo: North; <Tab>", transfer},
                                              {Transfer, oneLine + "cmbTo:", transfer},
                                              {Transfer, "cmbTo: North; cmbFrom:", transfer}}) {
        FormDriver user(form);
        expectBox(user, steps + "; btnSave", "Not Enough Data", prompt);
        EXPECT_TRUE(user.isLoaded());
    }
    EXPECT_EQ(adjustments() + table("TransferHeader"), QStringList());
}

TEST_F(StockForms, SavingAnAdjustmentAgainPostsItAgainUnderTheWarehouseShown)
{
    adjust(line("AX-100", "10") + line("AX-100", "-2.5") + line("BR-200", "1.5"));
    EXPECT_FALSE(Forms::loaded(Adjust));
    EXPECT_EQ(adjustments(), QStringList{"1|3/30/2011|3/30/2011 2:05:09 PM|Main"});
    EXPECT_EQ(details(), (QStringList{"1|AX-100|10", "1|AX-100|-2.5", "1|BR-200|1.5"}));
    EXPECT_EQ(ledger(), (QStringList{"Main|AX-100|8", "Main|BR-200|2"}))
        << "each line rounds by itself, halves to even";

    const QStringList loaded{"AX-100|Axles|10|", "AX-100|Axles|-2.5|", "BR-200|Brackets|1.5|"};
    FormDriver user(Adjust, "txtID: 1; <Tab>");
    EXPECT_EQ(lines(user), loaded) << "no cost on reload";
    EXPECT_EQ(user.shows("cmbWarehouse lblTotal"), "Main|9");
    EXPECT_TRUE(user.enabled("Frame2"));
    user.act(line("BR-200", "5"));
    EXPECT_EQ(lines(user).size(), 4);
    user.act("txtID; <Tab>");
    EXPECT_EQ(lines(user), loaded) << "passing through the number drops what was not saved";
    user.act("vsfgAdjustment[3]; btnDelete; vsfgAdjustment[2]; btnDelete; dtDate: 3/28/2011; cmbWarehouse: North;"
             "<Tab>; btnSave");
    EXPECT_EQ(adjustments(), QStringList{"1|3/28/2011|3/30/2011 2:05:09 PM|North"});
    EXPECT_EQ(details(), QStringList{"1|AX-100|10"});
    EXPECT_EQ(ledger(), (QStringList{"Main|AX-100|8", "Main|BR-200|2", "North|AX-100|10"})) << "nothing is taken back";
}

TEST_F(StockForms, TransferWritesTwoHalvesAndPostsBothWarehousesAtEachSave)
{
    addRow("AdjustmentHeader", {}); // so that a transfer and its halves differ in their numbers
    transfer(line("AX-100", "5"));
    EXPECT_EQ(ledger(), (QStringList{"Main|AX-100|-5", "North|AX-100|5"}));
    FormDriver user(Transfer, "txtID: 1; <Tab>");
    EXPECT_EQ(user.shows("cmbFrom cmbTo lblTotal"), "Main|North|5");
    EXPECT_EQ(lines(user), QStringList{"AX-100|Axles|5|"}) << "the incoming half, so positive";
    user.act("dtDate: 3/28/2011; btnSave");
    EXPECT_EQ(adjustments().mid(1),
              (QStringList{"2|3/28/2011|3/30/2011 2:05:09 PM|Main", "3|3/28/2011|3/30/2011 2:05:09 PM|North"}));
    EXPECT_EQ(details(), (QStringList{"2|AX-100|-5", "3|AX-100|5"}));
    EXPECT_EQ(table("TransferHeader"), QStringList{"1|2|3"});
    EXPECT_EQ(ledger(), (QStringList{"Main|AX-100|-10", "North|AX-100|10"}));
    EXPECT_EQ(lines(FormDriver(Adjust, "txtID: 2; <Tab>")), QStringList{"AX-100|Axles|-5|"})
        << "half of it as an adjustment";

    FormDriver(Transfer, "cmbFrom: Main; cmbTo: Main; <Tab>;" + line("BR-200", "-7") + "btnSave");
    EXPECT_EQ(details().mid(2), (QStringList{"4|BR-200|7", "5|BR-200|-7"}));
    EXPECT_EQ(ledger().at(1), "Main|BR-200|0") << "within one warehouse the two calls cancel";
}

TEST_F(StockForms, NumbersThatOpenNothing)
{
    adjust(line("AX-100", "10"));
    for (const auto &[form, number, title] : {std::tuple{Adjust, "77", "Invalid Adjustment ID"},
                                              {Transfer, "1", "Invalid Transfer ID"}}) { // an adjustment's
        FormDriver user(form);
        expectBox(user, QString("txtID: %1; <Tab>").arg(number), title, QString(title) + ". Please Re-enter.");
        EXPECT_EQ(user.text("txtID"), "");
        EXPECT_EQ(user.focus(), "txtID");
    }
    Forms::unloadAll();
    addRow("AdjustmentHeader", {{"Warehouse", "North"}, {"Date", Date(2011, 3, 1)}});
    addRow("AdjustmentHeader", {{"Warehouse", "Old"}, {"Date", Date(2011, 3, 1)}});
    for (const int from : {32767, 32768})
        addRow("TransferHeader", {{"FromID", from}, {"ToID", 2}});
    FormDriver user(Transfer, "txtID: 1; <Tab>");
    EXPECT_EQ(user.shows("cmbFrom cmbTo dtDate"), "|North|3/1/2011") << "no such half: left alone";
    expectRuntimeError(6, [&] { user.act("txtID: 2; <Tab>"); }); // the outgoing half is read in sixteen bits
    user = FormDriver(Adjust, "txtID: 2; <Tab>");
    EXPECT_EQ(lines(user), QStringList{"|||"}) << "a header without lines";
    EXPECT_EQ(user.text("dtDate"), "3/1/2011");
    expectBox(user, "vsfgAdjustment[1]; btnDelete; btnSave", "Not Enough Data",
              "You must select a Warehouse and add atleast one adjustment.");
    expectRuntimeError(3075, [&] { user.act("txtID: 1 2; <Tab>"); });
    user.click("txtID");
    expectRuntimeError(383, [&] { user.act("txtID: 3; <Tab>"); }); // a warehouse no longer active
}

TEST_F(StockForms, FailuresLeaveWhatWasWrittenBefore)
{
    const struct
    {
        const char *form, *quantity;
        int error;
        const char *details, *ledger;
    } failures[] = {
        {Adjust, "ten", 3421, "1|BR-200|1", "Main|BR-200|1"},
        {Adjust, "32768", 6, "2|BR-200|1 2|AX-100|32768", "Main|BR-200|1"},
        {Transfer, "ten", 3421, "3|BR-200|-1 3|AX-100|0 4|BR-200|1", "Main|BR-200|-1 North|BR-200|1"},
        {Transfer, "40000", 6, "5|BR-200|-1 5|AX-100|-40000 6|BR-200|1 6|AX-100|40000",
         "Main|BR-200|-1 North|BR-200|1"},
    };
    for (const auto &failure : failures) {
        const QString lines = line("BR-200", "1") + line("AX-100", failure.quantity);
        expectRuntimeError(failure.error, [&] { failure.form == Adjust ? adjust(lines) : transfer(lines); });
        EXPECT_EQ(details().join(' '), failure.details);
        EXPECT_EQ(ledger().join(' '), failure.ledger);
        Forms::unloadAll();
        for (const char *written : {"AdjustmentDetail", "AvailInv"})
            database.execute(QStringLiteral("DELETE FROM ") + written);
    }
}

} // namespace
