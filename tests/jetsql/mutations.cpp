#include "tests/jetsql/mutation.h"

#include <QFile>
#include <gtest/gtest.h>

// The short form of the fuzz target, the same statements in every run.
TEST(Mutations, OfStatementsNeverReachTheEngineUnparsed)
{
    const SqlCompany company;
    const QStringList corpus = corpusStatements();
    ASSERT_GT(corpus.size(), 150);
    std::mt19937 random(20110330);
    int translated = 0;
    for (int i = 0; i < 20000; ++i) {
        const QString statement = mutated(corpus, random);
        const QString fault = faultOf(company, statement);
        ASSERT_TRUE(fault.isEmpty()) << statement.toStdString() << "\n" << fault.toStdString();
        try {
            company.translate(statement);
            ++translated;
        } catch (const RuntimeError &error) {
            ASSERT_FALSE(error.description().isEmpty()) << statement.toStdString();
        }
    }
    // Enough of them get through for the writer to be tried as well as the parser.
    EXPECT_GT(translated, 500);
}

// What the fuzzer kept since it reached something new.
TEST(Mutations, OfFormerFuzzingNeverReachTheEngineUnparsed)
{
    const SqlCompany company;
    QFile kept(TAMRICK_TEST_DATA "/../bench/fuzz/corpus/jetsql.txt");
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    for (const QString &statement : QString::fromUtf8(kept.readAll()).split(u'\n', Qt::SkipEmptyParts))
        EXPECT_EQ(faultOf(company, statement).toStdString(), "") << statement.toStdString();
}

TEST(Mutations, NestedTooDeepForTheEngineAreTooComplex)
{
    const SqlCompany company;
    const auto nested = [](const char *head, const char *core, const char *tail, int times) {
        return QString(head).repeated(times) + core + QString(tail).repeated(times);
    };
    for (int times : {1, 5, 10, 15, 19, 40, 1000}) {
        const QStringList conditions = {nested("ID IN (SELECT ID FROM Orders WHERE ", "ID = 1", ")", times),
                                        nested("ID = (SELECT SUM(ID) FROM Orders WHERE ID + ", "ID = 1", ")", times),
                                        nested("NOT ", "ID = 1", "", times),
                                        nested("ID / (", "ID", ")", times),
                                        nested("ISNULL(", "ID", ")", times),
                                        nested("- ", "ID", "", times),
                                        nested("ID = 1 AND (ID = 2 OR (", "ID = 3", "))", times),
                                        nested("'a' Like (", "'a'", ")", times),
                                        nested("ID ^ ", "ID", "", times),
                                        "ID = " + nested("ID + ", "ID", "", times),
                                        nested("ID = 1 AND ", "ID = 2", "", times),
                                        "ID = " + nested("ID / ", "ID", "", times),
                                        "'' = " + nested("ID & ", "ID", "", times)};
        for (const QString &condition : conditions) {
            const QString statement = "SELECT ID FROM Orders WHERE " + condition;
            try {
                EXPECT_EQ("", company.complaint(company.translate(statement).sql).toStdString());
            } catch (const RuntimeError &error) {
                EXPECT_EQ(3360, error.number()) << statement.toStdString();
                EXPECT_GT(times, 9) << statement.toStdString();
            }
        }
    }
}
