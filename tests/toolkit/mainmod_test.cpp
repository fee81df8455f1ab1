#include "tests/support/printers.h"
#include "tests/support/testdatabase.h"
#include "toolkit/forms/mainmod.h"

#include <QFile>
#include <QTemporaryDir>

namespace {
class ReadConfigTest : public testing::Test
{
protected:
    void read(const QByteArray &content)
    {
        QFile file(folder.filePath("config.txt"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        ReadConfig(file.fileName());
    }
    QTemporaryDir folder;
};

TEST_F(ReadConfigTest, SettingsAreTakenByPositionWhateverTheLabelsSay)
{
    read("Settings\r\nAny label,\"C:\\Data, old\\x.db\"\r\nLabel, Main Hall "
         "\r\nReserved,0\r\nAuto,YES\r\nSeconds,1.5s\r\n");
    EXPECT_EQ(gDatabasePath, "C:\\Data, old\\x.db");
    EXPECT_EQ(gDefaultWarehouse, "Main Hall");
    EXPECT_EQ(gConfigReserved, "0");
    EXPECT_EQ(gAutoPriceFlag, "YES");
    EXPECT_EQ(gTypeAheadSeconds, 1.5);
    read("Settings\nPath,x\nWhse,Main\nX,0\nAuto,yes\nSeconds,soon");
    EXPECT_EQ(gTypeAheadSeconds, 0) << "a text that is no number gives no idle time";
}

TEST_F(ReadConfigTest, AShortFileIsError62AndAMissingOneError53)
{
    EXPECT_EQ(errorNumberOf([&] { read("Settings\nPath,new\nWhse,Main\nX,0\nAuto,YES\nSeconds"); }), 62);
    EXPECT_EQ(gDatabasePath, "new") << "what was read before stays";
    EXPECT_EQ(errorNumberOf([&] { ReadConfig(folder.filePath("none.txt")); }), 53);
    EXPECT_EQ(errorNumberOf([&] { ReadConfig(folder.filePath("none/config.txt")); }), 76);
}

TEST(DropTableIfExistsTest, DropsATableAndIgnoresEveryFailure)
{
    TestDatabase database;
    database.execute("SELECT PartNo INTO tmpShipped FROM Part");
    EXPECT_EQ(database.count("tmpShipped"), 4);
    DropTableIfExists("tmpShipped");
    EXPECT_EQ(errorNumberOf([&] { database.count("tmpShipped"); }), 3078);
    DropTableIfExists("tmpShipped");
    DropTableIfExists("not a name");

    const Recordset open = gDatabase->OpenRecordset("SELECT * FROM PriceSheet");
    DropTableIfExists("PriceSheet");
    EXPECT_FALSE(open.Eof());
}
} // namespace
