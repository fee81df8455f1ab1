#pragma once

#include "data/jetsql/dialect.h"

namespace jetsql {

/// The engine's text of an expression, and how tightly it binds.
struct Piece
{
    /// Levels that hold for the engines alike, loosest first, as far as the writer tells them apart.
    enum Level { Or, And, Not, Equality, Order, Sum, Product, Concat, Unary, Primary };

    QString text;
    Level level = Primary;

    /// The text, in brackets unless it binds at least as tightly.
    QString at(Level least) const { return level >= least ? text : u'(' + text + u')'; }
};

/// What a SELECT inside an expression is there for, which holds for its one column.
enum class Inner {
    Value,  ///< the value of its first row, in stored form
    Number, ///< the same as a number
    List,   ///< its rows, in stored form
    Numbers ///< its rows, as numbers
};

/// Writes a SELECT inside an expression.
using SubselectWriter = QString (*)(const Dialect &dialect, const Select &select, Inner use);

/// Writes typed expressions. Values stand in the form they are stored in, so that indexes serve and results need no
/// conversion; where the engine would count with them they are converted.
class ExpressionWriter
{
public:
    ExpressionWriter(const Dialect &dialect, SubselectWriter subselect) : m_dialect(dialect), m_subselect(subselect) {}

    /// For what a grouped SELECT shows: a text among its keys is written as the spelling that the group shows.
    void showGroupsOf(const std::vector<ExprPtr> &keys) { m_groupKeys = &keys; }

    /// In stored form.
    Piece plain(const Expr &expr) const;
    /// As a number: Yes is -1, a date its serial, a text read as a number (3464).
    Piece number(const Expr &expr) const;
    /// As the text that `&` makes of it.
    Piece text(const Expr &expr) const;
    /// As a condition.
    Piece condition(const Expr &expr) const;
    /// Converted to a column's type (3464, 3421) and checked to fit into it (3163).
    Piece assigned(const Expr &expr, const ColumnDef &column) const;
    /// In stored form, a text being told to sort and compare without regard to case.
    QString collated(const Expr &expr) const;

private:
    Piece stored(const Expr &expr) const;
    bool isTextKey(const Expr &expr) const;
    Piece written(const Constant &constant, const Expr &expr) const;
    Piece written(const Column &column, const Expr &expr) const;
    Piece written(const Operation &operation, const Expr &expr) const;
    Piece written(const AggregateCall &call, const Expr &expr) const;
    Piece written(const IsNull &test, const Expr &expr) const;
    Piece written(const Like &like, const Expr &expr) const;
    Piece written(const InList &in, const Expr &expr) const;
    Piece written(const InSelect &in, const Expr &expr) const;
    Piece written(const Between &between, const Expr &expr) const;
    Piece written(const Subselect &subselect, const Expr &expr) const;
    Piece written(const Exists &exists, const Expr &expr) const;
    Piece junction(const Expr &expr, Op op) const;
    Piece comparison(const Expr &expr, Op op) const;
    Piece joinedTexts(const Expr &expr) const;
    Piece arithmetic(const Expr &expr, Op op) const;
    Piece counted(const Expr &expr, Op op) const;
    Piece fitted(const Expr &expr, const ColumnDef &column) const;
    Piece literal(const Constant &constant) const;
    QString comparand(const Expr &expr, bool asNumber) const;

    const Dialect &m_dialect;
    SubselectWriter m_subselect;
    const std::vector<ExprPtr> *m_groupKeys = nullptr;
};

} // namespace jetsql
