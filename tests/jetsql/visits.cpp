#include "data/engines/sqlite/dialect.h"
#include "data/jetsql/parser.h"
#include "data/jetsql/plan.h"
#include "data/jetsql/resolver.h"
#include "data/jetsql/typing.h"
#include "data/jetsql/writer.h"
#include "data/schema/schema.h"
#include "data/values/runtimeerror.h"
#include <gtest/gtest.h>

// How often the passes behind the parser come by each part of a statement. No clock: time follows the visits.

namespace {

int mostVisits(const jetsql::Select &select);

int mostVisits(const jetsql::Expr &expr)
{
    int most = expr.visits;
    for (const jetsql::ExprPtr &operand : expr.operands)
        most = std::max(most, mostVisits(*operand));
    return expr.select ? std::max(most, mostVisits(*expr.select)) : most;
}

int mostVisits(const jetsql::Select &select)
{
    int most = select.where ? mostVisits(*select.where) : 0;
    for (const jetsql::SelectItem &item : select.items)
        most = std::max(most, mostVisits(*item.expr));
    return most;
}

/// The most visits of any expression of a SELECT, its writing included; minus the number of the error it ends in.
int visitsOf(const QString &sql)
{
    static const Catalog catalog = [] {
        Catalog catalog;
        for (const TableDef &table : Schema::permanentTables())
            catalog.add(table);
        return catalog;
    }();
    try {
        jetsql::ParsedStatement statement = jetsql::Parser(sql).parse();
        jetsql::resolveNames(statement, catalog);
        jetsql::typeExpressions(statement);
        jetsql::improvePlan(statement);
        const auto &select = std::get<jetsql::Select>(statement);
        EXPECT_FALSE(jetsql::writtenSelect(sqliteDialect(), select, false).isEmpty());
        return mostVisits(select);
    } catch (const RuntimeError &error) {
        return -error.number();
    }
}

QString nested(int levels, const QString &before, const QString &inside, const QString &behind)
{
    return before.repeated(levels) + inside + behind.repeated(levels);
}

} // namespace

TEST(Visits, DoNotMultiplyWithTheLengthOfAChainOrTheDepthOfBrackets)
{
    const QString chains[] = {"1*1.0%1",     "ID%1",       "Total%1",   "'a'%1",
                              "OrderDate%1", "Customer%1", "(ID%1) %1", "(1=1%1) = ID"};
    const QString links[] = {"+1",     "-Total", " & 'x'", "*ID",     "/2",     "\\3",
                             " MOD 7", "+'x'",   " = 1",   " OR 1=1", " AND ID"};
    for (const QString &chain : chains) {
        for (const QString &link : links) {
            const QString sql = "SELECT " + chain.arg(link.repeated(60)) + " AS X FROM Orders";
            const int visits = visitsOf(sql);
            EXPECT_LE(visits, 4) << sql.left(100).toStdString();
            EXPECT_TRUE(visits > 0 || visits == -3464) << visits << sql.left(100).toStdString();
        }
    }
    for (const QString open : {"(1 + ", "-(", "NOT (", "(1=2 OR ", "(1=2 AND ", "(2 ^ ", "('a' & ", "SUM(1)*("}) {
        const QString deep = nested(18, open, "1", ")");
        const QString left = nested(18, "(", "1", open.sliced(open.indexOf(u' ') + 1).remove(u'(') + "1)");
        EXPECT_LE(visitsOf("SELECT " + deep + " AS X FROM Orders WHERE ID = 1 OR " + deep), 4) << open.toStdString();
        EXPECT_LE(visitsOf("SELECT 1 FROM Orders WHERE " + left), 4) << left.toStdString();
    }
}

TEST(Visits, EndInAnErrorWhereTheyWouldMultiply)
{
    const QString rows[] = {
        nested(15, "SELECT TOP 1 ID FROM Orders ORDER BY (", "SELECT 1", ")"),
        nested(15, "SELECT TOP 5 PERCENT * FROM (", "SELECT ID FROM Orders WHERE ID > 1", ")"),
        nested(10, "SELECT *,* FROM (", "SELECT * FROM Orders", ")"),
        "SELECT " + nested(15, "(", "ID", QString("+1").repeated(90) + QString("*1").repeated(90) + ")"),
        "SELECT 1 FROM Orders WHERE " +
            nested(15, "(ID IN (SELECT 1 FROM Orders WHERE ", "1=1", QString(" AND 1=1").repeated(90) + "))"),
        "SELECT " + nested(3, "(", "Customer", QString(" & Customer").repeated(50) + ")") + " FROM Orders",
        "SELECT 1 FROM Orders" + QString(",Orders").repeated(40),
        "SELECT 1 FROM Orders ORDER BY ID" + QString(",ID+1").repeated(100),
    };
    for (const QString &sql : rows) {
        const int visits = visitsOf(sql);
        EXPECT_TRUE(visits == -3360 || visits == -3190) << visits << ": " << sql.left(200).toStdString();
    }
}
