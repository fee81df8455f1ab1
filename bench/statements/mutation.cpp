#include "bench/statements/mutation.h"

#include "data/engines/sqlite/dialect.h"
#include "data/jetsql/translator.h"
#include "data/values/runtimeerror.h"
#include <QRegularExpression>

QString mutated(const QStringList &corpus, std::mt19937_64 &random)
{
    const auto below = [&random](qsizetype limit) { return qsizetype(random() % std::max<qsizetype>(limit, 1)); };
    const auto pick = [&](const QStringList &list) { return list.at(below(list.size())); };
    static const QStringList pieces = {
        "'",     "\"",         "#",        "[",           "]",        "(",        ")",
        ",",     ";",          "*",        "-",           "--",       "/*",       "&",
        ".",     "!",          "$",        "%",           "\\",       "^",        "0",
        "1e999", "9999999999", "''",       "##",          "é",        "NULL",     "NOT",
        "AND",   "SELECT",     "FROM",     "WHERE",       "GROUP BY", "ORDER BY", "IN (",
        "LIKE",  "SUM(",       "COUNT(*)", "DISTINCT",    "TOP 3",    "UNION",    "LEFT JOIN",
        "ON",    "TRUE",       "Date",     "ID",          "Customer", "ISNULL(",  "EXISTS (SELECT",
        "AS",    "rowid",      "t1",       "IS NOT NULL", "BETWEEN",  "MOD"};
    static const QRegularExpression blanks("\\s+");
    QString statement = pick(corpus);
    for (qsizetype changes = 1 + below(2); changes > 0; --changes) {
        QStringList words = statement.split(blanks);
        switch (below(7)) {
        case 0:
            statement.remove(below(statement.size()), 1);
            break;
        case 1:
            statement.insert(below(statement.size() + 1), pick(pieces));
            break;
        case 2:
            words.removeAt(below(words.size()));
            statement = words.join(u' ');
            break;
        case 3:
            words.insert(below(words.size() + 1), pick(pick(corpus).split(blanks)));
            statement = words.join(u' ');
            break;
        case 5:
            words[below(words.size())] = pick(words);
            statement = words.join(u' ');
            break;
        case 4:
            words.swapItemsAt(below(words.size()), below(words.size()));
            statement = words.join(u' ');
            break;
        default: {
            const QString other = pick(corpus);
            statement = statement.first(below(statement.size())) + other.sliced(below(other.size()));
        }
        }
        if (statement.isEmpty())
            statement = pick(corpus);
    }
    return statement;
}

namespace {

/// Whether the constants taken out of a statement are those that its parser sees.
bool fingerprintAgrees(const QString &statement)
{
    std::vector<jetsql::Token> tokens = jetsql::tokensOf(statement);
    std::erase_if(tokens, [](const jetsql::Token &token) { return token.constant < 0; });
    const std::vector<jetsql::Token> constants = jetsql::fingerprintOf(statement).constants;
    return std::equal(tokens.begin(), tokens.end(), constants.begin(), constants.end(),
                      [](const jetsql::Token &a, const jetsql::Token &b) {
                          return a.kind == b.kind && a.text == b.text && a.number == b.number && a.whole == b.whole &&
                                 a.start == b.start && a.end == b.end && a.constant == b.constant;
                      });
}

} // namespace

QString faultOf(const SqliteParser &parser, const QString &statement)
{
    if (!fingerprintAgrees(statement))
        return QStringLiteral("the fingerprint has other constants than the statement");
    for (const jetsql::Plan plan : {jetsql::Plan::Improved, jetsql::Plan::AsWritten}) {
        try {
            const jetsql::Translation translation =
                jetsql::translate(statement, parser.catalog(), sqliteDialect(), plan);
            const bool fillsNewTable = translation.kind == jetsql::StatementKind::SelectInto;
            for (const QByteArray &sql : {translation.sql, translation.sqlWithParameters}) {
                if (sql.isEmpty() || fillsNewTable)
                    continue;
                if (const QString complaint = parser.complaint(sql); !complaint.isEmpty())
                    return complaint;
            }
        } catch (const RuntimeError &) {
        }
    }
    return {};
}

QString withOtherConstants(const QString &statement, const std::vector<jetsql::BindParameter> &parameters,
                           std::mt19937_64 &random)
{
    using jetsql::TokenKind;
    static const QStringList texts = {"''",          "'x'",    "\"It's\"",
                                      "'Open'",      "'a*'",   "'5'",
                                      "'3/30/2011'", "'é  é'", QString("'%1'").arg(QString(60, u'm'))};
    static const QStringList wholes = {"0", "1", "2", "17", "2147483647"};
    static const QStringList reals = {"0.0", "1.5", ".25", "3000000000", "1e30"};
    static const QStringList dates = {"#1/1/2000#", "#12/31/1999 5:00:00 PM#", "#3/30#"};
    const jetsql::Fingerprint fingerprint = jetsql::fingerprintOf(statement);
    QStringList constants;
    for (const jetsql::Token &constant : fingerprint.constants)
        constants.append(statement.sliced(constant.start, constant.end - constant.start));
    for (const jetsql::BindParameter &parameter : parameters) {
        const jetsql::Token &constant = fingerprint.constants[size_t(parameter.constant)];
        const QStringList &pool = constant.kind == TokenKind::Text   ? texts
                                  : constant.kind == TokenKind::Date ? dates
                                  : constant.whole                   ? wholes
                                                                     : reals;
        const QString other = pool.at(qsizetype(random() % size_t(pool.size())));
        if (parameter.fits(jetsql::fingerprintOf(other).constants.front()))
            constants[parameter.constant] = other;
    }
    QString result;
    qsizetype at = 0;
    for (int i = 0; i < constants.size(); ++i) {
        const jetsql::Token &constant = fingerprint.constants[size_t(i)];
        result += statement.sliced(at, constant.start - at) + constants[i];
        at = constant.end;
    }
    return result + statement.sliced(at);
}
