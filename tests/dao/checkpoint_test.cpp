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
    for (int row = 0; row < 20; ++row)
        file.plain("INSERT INTO Warehouse (Warehouse) VALUES (hex(randomblob(2000)))");
    EXPECT_EQ(file.plain("SELECT count(*) FROM Warehouse"), "20");
    file.plain("PRAGMA wal_checkpoint(PASSIVE)");
    atCheckpoints([&](CheckpointMoment moment) {
        if (moment != CheckpointMoment::HeaderRead || std::exchange(tried, true))
            return;
        // Refused or not: what is written must be there afterwards.
        file.plain("INSERT INTO Part (PartNo) VALUES ('in the gap')");
    });
    database->Execute("SELECT * INTO tmpSecond FROM Warehouse"); // empties the log first
    EXPECT_TRUE(tried);
    atCheckpoints({});
    EXPECT_EQ(file.plain("INSERT INTO Customer (Customer) VALUES ('later')"), "no row");
    EXPECT_EQ(file.plain("SELECT count(*) FROM tmpSecond"), "20");
    EXPECT_EQ(file.plain("SELECT count(*) FROM Customer"), "1");
    EXPECT_EQ(file.plain("PRAGMA integrity_check"), "ok");
}

} // namespace
