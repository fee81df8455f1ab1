#pragma once

#include "data/jetsql/ast.h"

namespace jetsql {

/// SQLite's text of an expression, and how tightly it binds.
struct Piece
{
    /// SQLite's levels, loosest first, as far as the writer tells them apart.
    enum Level { Or, And, Not, Equality, Order, Sum, Product, Concat, Unary, Primary };

    QString text;
    Level level = Primary;

    /// The text, in brackets unless it binds at least as tightly.
    QString at(Level least) const { return level >= least ? text : u'(' + text + u')'; }
};

/// Writes a SELECT inside an expression; what `asNumber` asks for holds for its one column.
using SubselectWriter = QString (*)(const Select &select, bool asNumber);

/// Writes typed expressions. Values stand in the form they are stored in: dates as text, Yes/No as 1 or 0, so that
/// indexes serve and results need no conversion; where the engine would count with them they are converted.
class ExpressionWriter
{
public:
    explicit ExpressionWriter(SubselectWriter subselect) : m_subselect(subselect) {}

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
    Piece column(const Expr &expr) const;
    Piece junction(const Expr &expr) const;
    Piece unary(const Expr &expr) const;
    Piece binary(const Expr &expr) const;
    Piece comparison(const Expr &expr) const;
    Piece joinedTexts(const Expr &expr) const;
    Piece arithmetic(const Expr &expr) const;
    Piece counted(const Expr &expr) const;
    Piece inList(const Expr &expr) const;
    Piece inSelect(const Expr &expr) const;
    Piece between(const Expr &expr) const;
    Piece like(const Expr &expr) const;
    Piece aggregate(const Expr &expr) const;
    Piece fitted(const Expr &expr, const ColumnDef &column) const;
    QString comparand(const Expr &expr, bool asNumber) const;

    SubselectWriter m_subselect;
};

/// A name or a text as SQLite reads it.
QString quotedName(QStringView name);
QString quotedText(QStringView text);

} // namespace jetsql
