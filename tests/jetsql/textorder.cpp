#include "data/values/textorder.h"
#include "data/engines/sqlite/functions.h"
#include "data/engines/sqlite/likepattern.h"

#include <QStringList>
#include <gtest/gtest.h>
#include <random>
#include <sqlite3.h>

namespace {

int compared(const QString &a, const QString &b)
{
    const QByteArray left = a.toUtf8(), right = b.toUtf8();
    const int order = compareTexts({left.constData(), size_t(left.size())}, {right.constData(), size_t(right.size())});
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

bool matches(const char *pattern, const char *text)
{
    return LikePattern(pattern).matches(text);
}

} // namespace

TEST(Collation, PutsBlankPunctuationDigitsAndLettersInThisOrderAndAccentsBesideTheirLetter)
{
    const QStringList sorted = {"",
                                " a",
                                "*** All Customers ***",
                                "*Beginning Balance",
                                "1",
                                "1, 2",
                                "10",
                                "2",
                                "Active",
                                "Adjustment ID - 7",
                                "Emil",
                                "Emile",
                                "Émile",
                                "emilf",
                                "InActive",
                                "Oeuvre",
                                "œuvre",
                                "oval",
                                "Øvre",
                                "ox",
                                "Shipment ID - 2",
                                "Transfer ID - 9",
                                "zebra",
                                "Ωmega"};
    for (int i = 0; i < sorted.size(); ++i) {
        for (int j = 0; j < sorted.size(); ++j) {
            const int expected = i < j ? -1 : i > j ? 1 : 0;
            EXPECT_EQ(expected, compared(sorted[i], sorted[j]))
                << sorted[i].toStdString() << " / " << sorted[j].toStdString();
        }
    }
}

TEST(Collation, TellsNeitherCaseNorBlanksAtTheEndNorTheWayAnAccentIsWritten)
{
    const QList<QPair<QString, QString>> equal = {
        {"Acme", "ACME"},   {"Acme", "acme   "}, {"ÉMILE & fils", "émile & FILS"},
        {"Ωμέγα", "ΩΜΈΓΑ"}, {"", "  "},          {"É", "E\u0301"}};
    for (const auto &[a, b] : equal)
        EXPECT_EQ(0, compared(a, b)) << a.toStdString();
    EXPECT_NE(0, compared("Émile", "Emile"));
    EXPECT_NE(0, compared(" Acme", "Acme"));
}

TEST(Collation, OrdersAsciiAsTheEnginesOwnNoCaseDoes)
{
    std::mt19937 random(3);
    const auto text = [&random] {
        QByteArray bytes;
        for (unsigned length = random() % 4; length > 0; --length)
            bytes.append(char('!' + random() % 94));
        return bytes;
    };
    for (int i = 0; i < 20000; ++i) {
        const QByteArray a = text(), b = text();
        int own = sqlite3_strnicmp(a.constData(), b.constData(), int(std::min(a.size(), b.size())));
        own = own ? own : int(a.size() - b.size());
        ASSERT_EQ(own < 0 ? -1 : own > 0, compared(a, b)) << a.constData() << " / " << b.constData();
    }
}

TEST(Collation, IsAnOrderForAnyThreeTexts)
{
    const QStringList parts = {"a", "A", "á", "e", "é", "ß", "ss", "æ", " ", "-", "1", "\u0301", "Ω", "z"};
    std::mt19937 random(9);
    const auto text = [&] {
        QString joined;
        for (unsigned length = random() % 4; length > 0; --length)
            joined += parts.at(qsizetype(random() % parts.size()));
        return joined;
    };
    for (int i = 0; i < 20000; ++i) {
        const QString a = text(), b = text(), c = text();
        ASSERT_EQ(compared(a, b), -compared(b, a)) << a.toStdString() << " / " << b.toStdString();
        if (compared(a, b) <= 0 && compared(b, c) <= 0) {
            ASSERT_LE(compared(a, c), 0) << a.toStdString() << " / " << b.toStdString() << " / " << c.toStdString();
        }
    }
}

TEST(LikePatterns, MatchWholeTexts)
{
    struct Row
    {
        const char *pattern, *text;
        bool matches;
    };
    const Row rows[] = {
        {"", "", true},
        {"", "a", false},
        {"*", "", true},
        {"**", "abc", true},
        {"a*c", "abbc", true},
        {"a*c", "abcd", false},
        {"*a*b*", "xxaxxbxx", true},
        {"*ab", "aab", true},
        {"?", "é", true},
        {"??", "é", false},
        {"#", "7", true},
        {"#", "x", false},
        {"[abc]", "B", true},
        {"[!abc]", "b", false},
        {"[!abc]", "d", true},
        {"[!abc]", "", false},
        {"[a-c-]", "-", true},
        {"[*]", "*", true},
        {"[*]", "a", false},
        {"[!]", "!", true},
        {"a[]b", "ab", true},
        {"]", "]", true},
        {"É*", "émile", true},
        {"E*", "émile", false},
        {"*ÉTÉ", "l'été", true},
        {"[0-9]#", "42", true},
        {"%", "x", false},
        {"a_c", "abc", false},
    };
    for (const Row &row : rows)
        EXPECT_EQ(row.matches, matches(row.pattern, row.text)) << row.pattern << " / " << row.text;
}

TEST(LikePatterns, AreInvalidWithAnOpenBracketOrABackwardRange)
{
    for (const char *pattern : {"[", "a[b", "*[!", "[z-a]"})
        EXPECT_FALSE(LikePattern(pattern).isValid()) << pattern;
}

TEST(LikePatterns, OfManyWildcardsEndInReasonableTime)
{
    const std::string text(20000, 'a');
    EXPECT_FALSE(LikePattern("*a*a*a*a*a*a*a*b").matches(text));
}

TEST(Functions, TellTheirErrorsFromTheEnginesOwn)
{
    EXPECT_EQ(3464, runtimeErrorFrom("JET:3464")->number());
    EXPECT_EQ("Data type mismatch in criteria expression.", runtimeErrorFrom("JET:3464")->description());
    EXPECT_FALSE(runtimeErrorFrom("no such table: JET:3464"));
}
