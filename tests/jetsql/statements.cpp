#include "data/engines/sqlite/dialect.h"
#include "data/jetsql/translator.h"
#include "data/values/runtimeerror.h"
#include "tests/dao/databasefile.h"
#include "tests/jetsql/corpus.h"

#include <QFile>

namespace {

/// The company in a database of one engine, reached as the program reaches it.
class StoredCompany
{
public:
    explicit StoredCompany(EngineKind engine) : m_engine(engine) {}

    /// The company as it was in the beginning.
    std::unique_ptr<Database> open()
    {
        const bool isFile = m_engine == EngineKind::Sqlite;
        if (!isFile || !m_filled)
            m_copy = std::make_unique<DatabaseFile>(m_engine);
        if (isFile && m_filled) {
            QFile::remove(m_copy->path());
            EXPECT_TRUE(QFile::copy(m_filled->path(), m_copy->path()));
            return m_copy->open(";journal=rollback");
        }
        auto database = m_copy->open(";journal=rollback");
        for (const QString &insert : corpus::companyInserts())
            database->Execute(insert);
        if (!isFile)
            return database;
        database.reset();
        m_filled = std::exchange(m_copy, std::make_unique<DatabaseFile>(m_engine));
        return open();
    }

private:
    EngineKind m_engine;
    std::unique_ptr<DatabaseFile> m_filled; ///< a file to copy from
    std::unique_ptr<DatabaseFile> m_copy;
};

bool isQuery(const QString &statement)
{
    return statement.startsWith(u"SELECT", Qt::CaseInsensitive) && !statement.contains(u" INTO ");
}

QString shown(const Value &value)
{
    if (value.isNull())
        return "Null";
    return value.type() == Value::Type::Text ? corpus::shownText(value.toText()) : value.toText();
}

QString shown(const TableDef &table)
{
    static const char *const words[] = {"text", "memo", "long", "double", "currency", "date", "yesno"};
    QStringList columns;
    for (const ColumnDef &column : table.columns) {
        columns.append(column.name + u' ' + (column.autoNumber ? "counter" : words[int(column.type)]));
        if (column.size > 0)
            columns.last() += u'(' + QString::number(column.size) + u')';
    }
    return "+ " + columns.join(" | ");
}

/// The rows of a SELECT below their columns: all of them, or those that `limit` names.
QStringList rowsOf(Database &database, const QString &statement, const QString &limit = {})
{
    QStringList names = corpus::cells(limit.mid(1));
    Recordset rows = database.OpenRecordset(statement);
    if (limit.isEmpty()) {
        names.clear();
        for (int i = 0; i < rows.fieldCount(); ++i)
            names += rows.Fields(i).Name();
    }
    QStringList lines{(limit.isEmpty() ? "> " : "~ ") + names.join(" | ")};
    for (; !rows.Eof(); rows.MoveNext()) {
        QStringList values;
        for (int i = 0; i < names.size(); ++i)
            values += shown((limit.isEmpty() ? rows.Fields(i) : rows.Fields(names[i])).value());
        lines += "| " + values.join(" | ");
    }
    return lines;
}

QStringList allRows(Database &database)
{
    QStringList rows;
    for (const TableDef &table : std::vector(database.TableDefs())) {
        for (const QString &row : rowsOf(database, "SELECT * FROM [" + table.Name + ']').mid(1))
            rows += table.Name + row;
    }
    rows.sort();
    return rows;
}

QStringList changesOf(Database &database, const QString &statement)
{
    const QStringList before = allRows(database);
    const size_t tables = database.TableDefs().size();
    runNow(database, statement);
    const QStringList after = allRows(database);
    QStringList lines, gone, come;
    if (database.TableDefs().size() > tables)
        lines += shown(database.TableDefs().back());
    std::set_difference(before.begin(), before.end(), after.begin(), after.end(), std::back_inserter(gone));
    std::set_difference(after.begin(), after.end(), before.begin(), before.end(), std::back_inserter(come));
    if (!statement.startsWith("CREATE", Qt::CaseInsensitive) && !statement.startsWith("DROP", Qt::CaseInsensitive))
        lines += "= " + QString::number(std::max(gone.size(), come.size()));
    return lines;
}

QStringList outcome(Database &database, const corpus::Step &step)
{
    const QString head = step.expected.value(0);
    try {
        return isQuery(step.statement) ? rowsOf(database, step.statement, head.startsWith(u'~') ? head : QString())
                                       : changesOf(database, step.statement);
    } catch (const RuntimeError &error) {
        return {"! " + QString::number(error.number()) + u' ' + error.description()};
    }
}

void expectTranslated(const corpus::Step &step, const Database &database)
{
    Catalog catalog;
    for (const TableDef &table : database.TableDefs())
        catalog.add(table);
    const jetsql::Translation translation = jetsql::translate(step.statement, catalog, sqliteDialect());
    for (const QString &line : step.translated) {
        const QByteArray &sql = line.startsWith(u'%') ? translation.sql : translation.sqlWithParameters;
        EXPECT_TRUE(QString::fromUtf8(sql).contains(line.sliced(2))) << line.toStdString() << "\n" << sql.toStdString();
    }
}

using Statements = testing::TestWithParam<EngineKind>;

TEST_P(Statements, BringWhatTheCorpusSaysThroughADatabaseThatHasRunOthersBefore)
{
    StoredCompany company(GetParam());
    std::unique_ptr<Database> database;
    const std::vector<corpus::Case> cases = corpus::cases(GetParam() != EngineKind::Sqlite);
    ASSERT_GT(cases.size(), 150u);
    for (const corpus::Case &one : cases) {
        if (!database)
            database = company.open();
        bool changed = false;
        for (const corpus::Step &step : one.steps) {
            SCOPED_TRACE(
                QString("statements.txt:%1: %2\n%3").arg(one.line).arg(one.name, step.statement).toStdString());
            if (GetParam() == EngineKind::Sqlite && !step.translated.isEmpty())
                expectTranslated(step, *database);
            EXPECT_EQ(outcome(*database, step).join(u'\n').toStdString(), step.expected.join(u'\n').toStdString());
            changed = changed || !isQuery(step.statement);
        }
        if (changed)
            database.reset();
    }
}

INSTANTIATE_TEST_SUITE_P(Engines, Statements, testing::Values(EngineKind::Sqlite, EngineKind::Postgres), nameOfEngine);

} // namespace
