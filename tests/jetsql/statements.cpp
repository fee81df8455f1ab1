#include "tests/jetsql/sqlcompany.h"

#include <QFile>
#include <gtest/gtest.h>

// The corpus statements.txt: "# " and the case's name, then statements, each followed by what it brings:
//   > the result's columns, or ~ some of them      | a row, in the result's order
//   + the columns of the table made                = how many rows were written
//   ! the run-time error
// Each case runs on the company of company.txt as if it were the first.
namespace {

struct Step
{
    QString statement;
    QStringList expected;
};

struct Case
{
    QString name;
    int line = 0;
    std::vector<Step> steps;
};

std::vector<Case> readCases()
{
    QFile file(TAMRICK_TEST_DATA "/jetsql/statements.txt");
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    std::vector<Case> cases;
    int number = 0;
    for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        ++number;
        if (line.startsWith(u"# "))
            cases.push_back({line.sliced(2), number, {}});
        else if (line.size() > 1 && line.at(1) == u' ' && QStringView(u">~|+=!").contains(line.front()))
            cases.back().steps.back().expected.append(line);
        else if (!line.trimmed().isEmpty())
            cases.back().steps.push_back({line, {}});
    }
    return cases;
}

} // namespace

TEST(Statements, BringWhatTheCorpusSays)
{
    SqlCompany company;
    company.fill(TAMRICK_TEST_DATA "/jetsql/company.txt");
    const std::vector<Case> cases = readCases();
    ASSERT_GT(cases.size(), 150u);
    for (const Case &one : cases) {
        company.begin();
        for (const Step &step : one.steps) {
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
