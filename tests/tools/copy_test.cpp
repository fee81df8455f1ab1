#include "data/schema/schema.h"
#include "tests/support/enginesundertest.h"
#include "tests/tools/toolstest.h"

namespace {

using CopyTest = ToolsTest;

TEST_F(CopyTest, MovesACompanyToAServerAndBackAsItIs)
{
    const auto server = DatabasePlace::on(EngineKind::Postgres);
    ASSERT_EQ(run({"demo", path("a.db"), "--until", "2011-03-30"}).status, 0);
    const Outcome there = run({"copy", path("a.db"), server->name()});
    EXPECT_EQ(there.err, "");
    EXPECT_TRUE(there.out.endsWith(" rows copied and compared\n")) << there.out.toStdString();
    EXPECT_EQ(run({"copy", server->name(), path("b.db")}).out, there.out);
    for (const TableDef &table : Schema::permanentTables()) {
        const QString rows = run({"export", path("a.db"), table.Name}).out;
        EXPECT_EQ(run({"export", server->name(), table.Name}).out, rows) << table.Name.toStdString();
        EXPECT_EQ(run({"export", path("b.db"), table.Name}).out, rows) << table.Name.toStdString();
    }
    EXPECT_EQ(run({"check", path("b.db")}).out, run({"check", path("a.db")}).out);

    // Nothing is written over, and what cannot be finished leaves nothing.
    EXPECT_EQ(run({"copy", server->name(), path("b.db")}).status, 1);
    EXPECT_EQ(run({"copy", path("a.db"), server->name()}).err, "tamrick-db: Database already exists.\n");
    EXPECT_EQ(run({"copy", path("none.db"), path("c.db")}).status, 1);
    EXPECT_FALSE(QFile::exists(path("c.db")));
}

} // namespace
