#include "bench/oldfiles/jetwriter.h"
#include "data/engines/engines.h"
#include "data/schema/schema.h"
#include "tests/support/enginesundertest.h"
#include "tests/support/testclock.h"
#include "tests/tools/toolstest.h"
#include <QDir>

namespace {

/// Databases on the tests' own server, and files.
class CopyTest : public ToolsTest
{
protected:
    void expectSameRows(const QString &one, const QString &other) const
    {
        for (const TableDef &table : Schema::permanentTables())
            EXPECT_TRUE(done({"export", one, table.Name}) == done({"export", other, table.Name}))
                << table.Name.toStdString();
    }
    QString tablesIn(const DatabasePlace &place) const
    {
        return place.plain("SELECT (SELECT count(*) FROM pg_class WHERE relnamespace = 'public'::regnamespace)"
                           " + (SELECT count(*) FROM pg_proc WHERE pronamespace = 'public'::regnamespace)");
    }

    std::unique_ptr<DatabasePlace> server = DatabasePlace::on(EngineKind::Postgres);
    std::unique_ptr<DatabasePlace> other = DatabasePlace::on(EngineKind::Postgres);
};

TEST_F(CopyTest, MovesACompanyToAServerAndBackAsItIs)
{
    makeDemo(path("a.db"));
    const QString copied = done({"copy", path("a.db"), server->name()});
    EXPECT_TRUE(copied.endsWith(" rows copied and compared\n")) << copied.toStdString();
    EXPECT_EQ(done({"copy", server->name(), path("b.db")}), copied);
    expectSameRows(path("a.db"), server->name());
    expectSameRows(path("a.db"), path("b.db"));
    EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files), (QStringList{"a.db", "b.db"}));
    EXPECT_EQ(refusal({"copy", path("a.db"), server->name()}), "Database already exists. (" + server->name() + ')');
}

TEST_F(CopyTest, WhatIsReadForACopyStaysOfOneMomentWhileOthersWrite)
{
    for (const QString &name : {path("company.db"), server->name()}) {
        done({"create", name});
        const auto clerk = open(name);
        clerk->Execute("INSERT INTO Warehouse (Warehouse) VALUES ('Main')");
        const auto count = [](Database &database, const char *table) {
            return database.OpenRecordset(QString("SELECT Count(*) FROM ") + table).Fields(0).value();
        };
        const auto copy = DBEngine::OpenDatabase(name, false, true, ";snapshot=yes;pwd=QZV");
        EXPECT_EQ(count(*copy, "Warehouse"), Value(1));
        clerk->Execute("INSERT INTO Warehouse (Warehouse) VALUES ('East')");
        clerk->Execute("INSERT INTO Part (PartNo) VALUES ('A')");
        EXPECT_EQ(count(*clerk, "Part"), Value(1));
        EXPECT_EQ(count(*copy, "Warehouse"), Value(1));
        EXPECT_EQ(count(*copy, "Part"), Value(0));
    }
}

TEST_F(CopyTest, ABackupOfAServerIsAFileAndGoesBackOntoAnyServer)
{
    makeDemo(server->name());
    // As the server does by itself, and a dump that is read back: nothing is found by a bare name.
    EXPECT_EQ(server->plain("SET search_path = pg_catalog; ANALYZE public.\"Part\""), "no row");
    ASSERT_TRUE(QDir(m_folder.path()).mkdir("kept"));
    const QString stem = "kept/" + engines::databaseName(server->name());
    fileWith(stem + "-2010-01-01-000000.db", "older");
    fileWith(stem + "-2010-01-02-000000.db.part-journal", "killed");
    // The database's name stands in a service of libpq's alone.
    const QString host = QUrlQuery(QUrl(server->name())).queryItemValue("host");
    fileWith("services", "[office]\nuser=tamrick\nhost=" + host.toUtf8() +
                             "\ndbname=" + engines::databaseName(server->name()).toUtf8());
    qputenv("PGSERVICEFILE", path("services").toUtf8());
    QString outcome;
    {
        const TestClock clock("2011-03-30 14:05:09");
        outcome = done({"backup", "postgresql:///?service=office", path("kept"), "--keep=1"});
    }
    qunsetenv("PGSERVICEFILE");
    const QString made = path(stem + "-2011-03-30-140509.db");
    EXPECT_EQ(outcome, made + '\n');
    EXPECT_EQ(QDir(path("kept")).entryList(QDir::Files), QStringList{QFileInfo(made).fileName()});
    EXPECT_EQ(QFile::permissions(made) & 0x77, 0);

    for (const QString &to : {path("file.db"), other->name()}) {
        done({"restore", made, to});
        expectSameRows(server->name(), to);
    }
    EXPECT_EQ(refusal({"restore", made, other->name()}), "Database already exists. (" + other->name() + ')');
    EXPECT_EQ(done({"check", other->name()}), "ok\n");

    // A session's own number goes on where the other's ended.
    open(other->name())->Execute("INSERT INTO Payments (Amount) VALUES (1)");
    EXPECT_EQ(other->plain("SELECT count(*) FROM \"Payments\" GROUP BY \"ID\" ORDER BY 1 DESC"), "1");
}

TEST_F(CopyTest, CheckFindsOnAServerWhatItFindsInAFile)
{
    makeDemo(server->name());
    server->plain("UPDATE \"Invoice\" SET \"Shipment\" = 'x' WHERE \"ID\" = 7");
    server->plain("INSERT INTO \"Customer\" (\"Customer\", \"Terms\") VALUES ('O''Hara', 'Net')");
    const Outcome found = run({"check", server->name()});
    EXPECT_EQ(found.status, 1);
    EXPECT_EQ(found.err, "");
    EXPECT_TRUE(
        found.out.contains("Invoice: Shipment is no list of IDs, which ends the program in the sales reports: ID 7\n"));
    EXPECT_TRUE(found.out.contains("an apostrophe in Customer, which ends the program where it is used: O'Hara\n"));
    done({"copy", server->name(), path("copy.db")});
    EXPECT_EQ(found.out, run({"check", path("copy.db")}).out);

    server->plain("ALTER TABLE \"Part\" DROP COLUMN \"Cost\"; DROP TABLE \"Payments\"; DROP INDEX \"ixPart\";"
                  "DROP FUNCTION jet_power");
    EXPECT_EQ(run({"check", server->name()}).out,
              "Server: functions are missing, which ends the program where it needs them: jet_power\n"
              "Server: indexes are missing, which makes the program slow: ixPart; ixPaymentsInvoice; ixPaymentsDate\n"
              "Part: missing columns: Cost\nPayments: the table is missing\n");
}

TEST_F(CopyTest, AnOldCompanyGoesOverToAServerOrLeavesNothingThere)
{
    JetWriter old(JetWriter::Jet4);
    old.add("Payments", {{"ID", JetWriter::Long}, {"Amount", JetWriter::Double}}, {{41, 10.0}, {7, 20.5}});
    const QString sound = fileWith("old.mdb", old.file());
    EXPECT_TRUE(done({"takeover", sound, server->name()}).contains("Payments: both sides agree: 2 rows, ID 48"));
    EXPECT_EQ(server->plain("SELECT string_agg(\"ID\" || ' ' || \"Amount\", ',' ORDER BY \"ID\") FROM \"Payments\""),
              "7 20.5,41 10");

    JetWriter bad(JetWriter::Jet4);
    bad.add("AvailInv", {{"Avail", JetWriter::Text}}, {{"none"}, {"7"}});
    const QString refused = fileWith("refused.mdb", bad.file());
    EXPECT_EQ(run({"takeover", refused, other->name()}).status, 1);
    const QString name = engines::databaseName(other->name());
    EXPECT_EQ(server->plain("SELECT count(*) FROM pg_database WHERE datname = '" + name + '\''), "0");
    EXPECT_EQ(run({"takeover", refused, other->name(), "--keep"}).status, 1);
    EXPECT_EQ(other->plain("SELECT sum(\"Avail\") FROM \"AvailInv\""), "7");
}

TEST_F(CopyTest, AnEmptyDatabaseThatStoodThereIsLeftEmptyByAFailure)
{
    done({"create", server->name()});
    EXPECT_EQ(server->plain("CREATE DATABASE " + engines::databaseName(other->name())), "no row");
    const QString empty = tablesIn(*other);
    const QString junk = fileWith("junk.db", "no database at all");
    for (const char *command : {"copy", "restore", "takeover"}) {
        refusal({command, junk, other->name()});
        EXPECT_EQ(tablesIn(*other), empty) << command;
    }
    makeDemo(other->name());
    EXPECT_EQ(other->plain("SELECT count(*) > 1000 FROM \"Orders\""), "t");
}

} // namespace
