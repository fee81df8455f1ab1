#include "data/engines/sqlite/dialect.h"

namespace {

class SqliteDialect : public jetsql::Dialect
{
    QString null(const jetsql::ExprType &) const override { return "NULL"; }
    QString boolean(bool value) const override { return value ? "1" : "0"; }
    QString date(const QString &iso) const override { return jetsql::quotedText(iso); }
    QString fraction(const QString &digits) const override { return digits; }
    QString parameter(int, ColumnType) const override { return "?"; }

    QString yesNoAsNumber(const QString &yesNo) const override { return u'-' + yesNo; }
    QString moneyAsNumber(const QString &money) const override { return money; }
    // SQLite counts with 64 bits and goes over to floating point beyond them.
    QString wide(const QString &whole) const override { return whole; }
    QString concatenated(const QStringList &texts) const override { return "jet_concat(" + texts.join(", ") + ')'; }
    bool concatenatesNumbers() const override { return true; }

    // Columns are declared with the order of texts; only what is computed has to be told.
    QString key(const QString &text, bool column) const override { return column ? text : text + " COLLATE NOCASE"; }
    bool comparesByKeys() const override { return false; }
    QString shownInGroup(const QString &text) const override { return text; }
    QString like(const jetsql::Expr &, const QString &pattern, const QString &text) const override
    {
        return "jet_like(" + pattern + ", " + text + ')';
    }

    QString sum(const QString &number, bool money) const override
    {
        return (money ? "jet_sum_money(" : "jet_sum(") + number + ')';
    }
    QString average(const QString &number) const override { return "avg(" + number + ')'; }
    QString extreme(bool least, const QString &value, const jetsql::Expr &expr) const override
    {
        const QString compared = expr.type.isText() ? key(value, expr.as<jetsql::Column>() != nullptr) : value;
        return (least ? "min(" : "max(") + compared + ')';
    }

    QString row(const jetsql::Source &source) const override
    {
        // A column of one of these names hides the number behind it, but not behind the others.
        for (const char *name : {"rowid", "_rowid_", "oid"}) {
            if (source.def->indexOf(QLatin1String(name)) < 0)
                return source.handle + u'.' + QLatin1String(name);
        }
        return {};
    }
    // SQLite does not know the rowids of tables joined inside brackets.
    bool numbersJoinedRows() const override { return false; }
    QString ordered(const QString &key, bool descending) const override { return key + (descending ? " DESC" : ""); }
    // The sign keeps SQLite from walking an index for the order's sake, whatever that costs in the other tables.
    QString unindexed(const QString &key) const override { return u'+' + key; }
    QString noGroupKey() const override { return "NULL"; }
    bool takesFirstRow() const override { return true; }
};

} // namespace

const jetsql::Dialect &sqliteDialect()
{
    static const SqliteDialect dialect;
    return dialect;
}
