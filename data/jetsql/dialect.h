#pragma once

#include "data/jetsql/ast.h"

namespace jetsql {

/// What two engines write differently. Everything else about a statement is written the same way for both.
/// Texts handed in are expressions already written, in brackets where they need them; those handed out bind like a
/// call or a name, unless something else is said.
class Dialect
{
public:
    virtual ~Dialect() = default;

    // Constants
    virtual QString null(const ExprType &type) const = 0;
    virtual QString boolean(bool value) const = 0;
    virtual QString date(const QString &iso) const = 0;
    /// A number with a point or an exponent in it.
    virtual QString fraction(const QString &digits) const = 0;
    /// The n-th parameter of a statement, counted from 1, for a constant of that type.
    virtual QString parameter(int n, ColumnType type) const = 0;

    // Conversions
    /// Binds like a minus sign.
    virtual QString yesNoAsNumber(const QString &yesNo) const = 0;
    virtual QString moneyAsNumber(const QString &money) const = 0;
    /// A Long about to be counted with, so that only the result can be beyond its range.
    virtual QString wide(const QString &whole) const = 0;
    /// Texts in a row, Null where all of them are Null and the Nulls counting as empty elsewhere.
    virtual QString concatenated(const QStringList &texts) const = 0;
    /// Whether a number between texts becomes a text by itself.
    virtual bool concatenatesNumbers() const = 0;

    // Texts without regard to case
    /// The form in which a text is compared, sorted and grouped; `column` for one that stands in a table.
    virtual QString key(const QString &text, bool column) const = 0;
    /// Whether both sides of a comparison have to be in that form; otherwise one is enough, and a column has it.
    virtual bool comparesByKeys() const = 0;
    /// The spelling that a group of equal texts shows; only asked where texts are compared by their keys.
    virtual QString shownInGroup(const QString &text) const = 0;
    /// `pattern` is the expression that `writtenPattern` was written for.
    virtual QString like(const Expr &pattern, const QString &writtenPattern, const QString &text) const = 0;

    // Aggregates
    virtual QString sum(const QString &number, bool money) const = 0;
    virtual QString average(const QString &number) const = 0;
    virtual QString extreme(bool least, const QString &value, const Expr &expr) const = 0;

    // Rows and their order
    /// What numbers the rows of a table as they were inserted.
    virtual QString row(const Source &source) const = 0;
    /// Whether the rows of tables joined inside brackets can be told by their numbers.
    virtual bool numbersJoinedRows() const = 0;
    /// A sort key, Null being the least.
    virtual QString ordered(const QString &key, bool descending) const = 0;
    /// A sort key over a join for whose sake no index is worth walking.
    virtual QString unindexed(const QString &key) const = 0;
    /// What groups by constants alone.
    virtual QString noGroupKey() const = 0;
    /// Whether a sub-select of several rows stands for its first one by itself.
    virtual bool takesFirstRow() const = 0;
};

/// A name or a text as engines read it.
QString quotedName(QStringView name);
QString quotedText(QStringView text);

} // namespace jetsql
