#include "data/engines/postgres/dialect.h"

namespace {

using jetsql::Expr;
using jetsql::ExprType;

QString inBrackets(const QString &text)
{
    return u'(' + text + u')';
}

QString cast(const QString &text, ColumnType type)
{
    return inBrackets(text) + "::" + postgres::typeName(type);
}

/// A pattern of LIKE with no more in it than `*` and `?`, as one of the server's own.
std::optional<QString> serverPattern(const QString &pattern)
{
    QString result;
    for (const QChar c : pattern) {
        if (c == u'#' || c == u'[')
            return {};
        if (c == u'*')
            result += u'%';
        else if (c == u'?')
            result += u'_';
        else if (c == u'%' || c == u'_' || c == u'\\')
            result += QString(u'\\') + c;
        else
            result += c;
    }
    return result;
}

class PostgresDialect : public jetsql::Dialect
{
    // A Null without a type is a text to the server in many places, which it refuses where a number belongs.
    QString null(const ExprType &type) const override
    {
        return type.null ? "NULL" : "NULL::" + postgres::typeName(type.type);
    }
    QString boolean(bool value) const override { return value ? "TRUE" : "FALSE"; }
    QString date(const QString &iso) const override { return "timestamp " + jetsql::quotedText(iso); }
    // Without a type it would be counted with exactly, digit by digit.
    QString fraction(const QString &digits) const override { return digits + "::float8"; }
    // With its type, or the server infers one from the place, and refuses the statement where that gives none or
    // another.
    QString parameter(int n, ColumnType type) const override
    {
        return u'$' + QString::number(n) + "::" + postgres::typeName(type);
    }

    QString yesNoAsNumber(const QString &yesNo) const override { return "-(" + yesNo + ")::int4"; }
    QString moneyAsNumber(const QString &money) const override { return cast(money, ColumnType::Double); }
    QString wide(const QString &whole) const override { return inBrackets(whole) + "::int8"; }
    // concat() takes Null for empty; only Nulls on all sides give Null.
    QString concatenated(const QStringList &texts) const override
    {
        const QString all = texts.join(", ");
        return "CASE WHEN num_nonnulls(" + all + ") > 0 THEN concat(" + all + ") END";
    }
    bool concatenatesNumbers() const override { return false; }

    // Letters are compared by keys that a function of ours makes, so that both engines have one order.
    QString key(const QString &text, bool) const override { return "jet_key(" + text + ')'; }
    bool comparesByKeys() const override { return true; }
    // Any spelling of the group would do; the least is the same at each run.
    QString shownInGroup(const QString &text) const override { return "min(" + text + ')'; }
    QString like(const Expr &pattern, const QString &written, const QString &text) const override
    {
        const auto *constant = pattern.as<jetsql::Constant>();
        const auto simple = pattern.is(jetsql::Constant::Kind::Text) ? serverPattern(constant->text) : std::nullopt;
        if (simple)
            return "(jet_fold(" + text + ") LIKE jet_fold(" + jetsql::quotedText(*simple) + "))";
        return "jet_like(" + written + ", " + text + ')';
    }

    // Money exactly; all else as Doubles, as the file adds them up.
    QString sum(const QString &number, bool money) const override
    {
        return "sum(" + (money ? inBrackets(number) + "::numeric(19,4)" : cast(number, ColumnType::Double)) + ')';
    }
    QString average(const QString &number) const override { return "avg(" + cast(number, ColumnType::Double) + ')'; }
    // The server knows no least text by our keys and no least boolean.
    QString extreme(bool least, const QString &value, const Expr &expr) const override
    {
        if (expr.type.isText())
            return "(array_agg(" + inBrackets(value) + "::text ORDER BY " + ordered(key(value, true), !least) +
                   ") FILTER (WHERE " + value + " IS NOT NULL))[1]";
        if (expr.type.isYesNo())
            return (least ? "bool_and(" : "bool_or(") + value + ')';
        return (least ? "min(" : "max(") + value + ')';
    }

    QString row(const jetsql::Source &source) const override
    {
        return source.handle + u'.' + jetsql::quotedName(postgres::rowColumn(*source.def));
    }
    bool numbersJoinedRows() const override { return true; }
    QString ordered(const QString &key, bool descending) const override
    {
        return key + (descending ? " DESC NULLS LAST" : " NULLS FIRST");
    }
    QString unindexed(const QString &key) const override { return key; }
    QString noGroupKey() const override { return "NULL::text"; }
    bool takesFirstRow() const override { return false; }
};

} // namespace

const jetsql::Dialect &postgres::dialect()
{
    static const PostgresDialect dialect;
    return dialect;
}

QByteArray postgres::typeName(ColumnType type)
{
    switch (type) {
    case ColumnType::Long:
        return "int4";
    case ColumnType::Double:
        return "float8";
    case ColumnType::Currency:
        return "numeric";
    case ColumnType::Date:
        return "timestamp";
    case ColumnType::YesNo:
        return "bool";
    case ColumnType::Text:
    case ColumnType::Memo:
        break;
    }
    return "text";
}

QString postgres::rowColumn(const TableDef &table)
{
    const auto number = std::find_if(table.columns.begin(), table.columns.end(),
                                     [](const ColumnDef &column) { return column.autoNumber; });
    return table.keyed && number != table.columns.end() ? number->name : "_row";
}
