#include "tests/dao/databasefile.h"
#include "tests/jetsql/corpus.h"
#include "tests/jetsql/sqlcompany.h"

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
        for (const QByteArray &insert : corpus::companyInserts())
            database->Execute(QString::fromUtf8(insert));
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

/// What a statement brings to a caller of the database; a result in the columns that `head` names.
QStringList outcome(Database &database, const QString &statement, const QString &head)
{
    try {
        if (head.isEmpty()) {
            if (isQuery(statement))
                database.OpenRecordset(statement).Eof();
            else
                runNow(database, statement);
            return {};
        }
        QStringList lines{head};
        const QStringList names = corpus::cells(head.sliced(2));
        const bool whole = head.startsWith(u'>');
        Recordset rows = database.OpenRecordset(statement);
        EXPECT_TRUE(!whole || rows.fieldCount() == names.size());
        for (; !rows.Eof(); rows.MoveNext()) {
            QStringList values;
            for (int i = 0; i < names.size(); ++i)
                values += shown((whole ? rows.Fields(i) : rows.Fields(names[i])).value());
            lines += "| " + values.join(" | ");
        }
        return lines;
    } catch (const RuntimeError &error) {
        return {"! " + QString::number(error.number()) + u' ' + error.description()};
    }
}

} // namespace

TEST(Statements, BringWhatTheCorpusSays)
{
    SqlCompany company;
    company.fill(corpus::companyInserts());
    const std::vector<corpus::Case> cases = corpus::cases();
    ASSERT_GT(cases.size(), 150u);
    for (const corpus::Case &one : cases) {
        company.begin();
        for (const corpus::Step &step : one.steps) {
            const QString limit =
                !step.expected.isEmpty() && step.expected.first().startsWith(u'~') ? step.expected.first() : QString();
            const QStringList actual = company.outcome(step.statement, limit);
            EXPECT_EQ(step.expected.join(u'\n').toStdString(), actual.join(u'\n').toStdString())
                << "statements.txt:" << one.line << ": " << one.name.toStdString() << "\n"
                << step.statement.toStdString();
        }
        company.rollback();
    }
}

class StoredStatements : public testing::TestWithParam<EngineKind>
{
};

TEST_P(StoredStatements, BringTheSameThroughADatabaseThatHasRunOthersBefore)
{
    StoredCompany company(GetParam());
    std::unique_ptr<Database> database;
    for (const corpus::Case &one : corpus::cases(GetParam() != EngineKind::Sqlite)) {
        if (!database)
            database = company.open();
        bool changed = false;
        for (const corpus::Step &step : one.steps) {
            QStringList expected = step.expected;
            expected.removeIf([](const QString &line) { return line.startsWith(u'=') || line.startsWith(u'+'); });
            const QString first = expected.value(0);
            const QString head = first.startsWith(u'>') || first.startsWith(u'~') ? first : QString();
            EXPECT_EQ(expected.join(u'\n').toStdString(),
                      outcome(*database, step.statement, head).join(u'\n').toStdString())
                << "statements.txt:" << one.line << ": " << one.name.toStdString() << "\n"
                << step.statement.toStdString();
            changed = changed || !isQuery(step.statement);
        }
        if (changed)
            database.reset();
    }
}

INSTANTIATE_TEST_SUITE_P(Engines, StoredStatements, testing::Values(EngineKind::Sqlite, EngineKind::Postgres),
                         nameOfEngine);
