#include "tests/dao/databasefile.h"
#include "tests/support/checkpointgap.h"

namespace {

struct ForgottenGap
{
    ~ForgottenGap() { atCheckpoints({}); }
};

TEST(Checkpoints, LetNobodyBeginTheLogAnewWhileTheyLookAtIt)
{
    bool tried = false;
    const ForgottenGap forgotten;
    atCheckpoints([](CheckpointMoment) {});
    const DatabaseFile file;
    const auto database = file.open(";journal=log");
    database->Execute("SELECT * INTO tmpFirst FROM Part");
    // Another program copies its own commit, so that whoever writes next begins the log anew.
    PlainConnection other(file.path());
    for (int row = 0; row < 20; ++row)
        other.run("INSERT INTO Warehouse (Warehouse) VALUES (hex(randomblob(2000)))");
    EXPECT_EQ(other.text("SELECT count(*) FROM Warehouse"), "20");
    other.text("PRAGMA wal_checkpoint(PASSIVE)");
    atCheckpoints([&](CheckpointMoment moment) {
        if (moment != CheckpointMoment::HeaderRead || std::exchange(tried, true))
            return;
        // Refused or not: what is written must be there afterwards.
        other.text("INSERT INTO Part (PartNo) VALUES ('in the gap')");
    });
    const QString before = other.text("SELECT count(*) FROM Part");
    database->Execute("SELECT * INTO tmpSecond FROM Warehouse"); // empties the log first
    EXPECT_TRUE(tried);
    atCheckpoints({});
    other.run("INSERT INTO Customer (Customer) VALUES ('later')");
    EXPECT_EQ(PlainConnection(file.path()).text("SELECT count(*) FROM tmpSecond"), "20");
    EXPECT_EQ(PlainConnection(file.path()).text("SELECT count(*) FROM Customer"), "1");
    EXPECT_EQ(PlainConnection(file.path()).text("PRAGMA integrity_check"), "ok");
}

} // namespace
