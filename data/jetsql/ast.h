#pragma once

#include "data/schema/tabledef.h"
#include <QString>
#include <QStringView>
#include <memory>
#include <variant>
#include <vector>

/// What the parser makes of a statement. The resolver fills in what names mean, the typing what values are; both
/// are marked. All QStringViews look into the statement's text.
namespace jetsql {

struct Select;

enum class Op {
    Or,
    And,
    Not,
    Equal,
    NotEqual,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    Concat,
    Add,
    Subtract,
    Mod,
    IntDivide,
    Multiply,
    Divide,
    Power,
    Negate
};

enum class Aggregate { Sum, Count, Min, Max, Avg };

/// A table of a FROM clause, or a SELECT standing in for one.
struct Source
{
    QString table;
    QString alias;                   ///< empty without one
    std::unique_ptr<Select> derived; ///< the SELECT in brackets, `table` being empty then
    TableDef derivedDef;             ///< its columns (resolver)
    const TableDef *def = nullptr;   ///< (resolver)
    QString handle;                  ///< its name in the statement written, unique there (resolver)

    const QString &shownName() const { return alias.isEmpty() ? table : alias; }
};

/// What values an expression gives.
struct ExprType
{
    bool null = false; ///< nothing but Null
    ColumnType type = ColumnType::Text;
    int size = 0;
    bool autoNumber = false;

    bool isText() const { return !null && (type == ColumnType::Text || type == ColumnType::Memo); }
    bool isDate() const { return !null && type == ColumnType::Date; }
    bool isYesNo() const { return !null && type == ColumnType::YesNo; }
    bool isNumber() const { return !null && !isText() && !isDate() && !isYesNo(); }
};

struct Expr;
using ExprPtr = std::unique_ptr<Expr>;

// What an expression is; what it is made of stands in the Expr.

struct Constant
{
    enum class Kind { Null, Text, Number, Date, Boolean };

    Kind kind = Kind::Null;
    QString text = {};        ///< of a Text, without its delimiters
    double number = 0;        ///< Number, the serial of a Date, 1 or 0 for a Boolean
    bool whole = false;       ///< a Number without fraction, within 32 bits
    bool minus = false;       ///< a Number with an odd count of minus signs before it
    int place = -1;           ///< of a Text, Number or Date: which of the statement's constants it is
    bool isParameter = false; ///< written as a parameter (parameter marks)

    /// The same value; it may be typed in another way.
    bool operator==(const Constant &other) const
    {
        return kind == other.kind && text == other.text && number == other.number;
    }
};

struct Column
{
    QString qualifier = {}; ///< empty without one
    QString name = {};
    const Source *from = nullptr; ///< (resolver)
    int index = -1;               ///< position in its table (resolver)

    const ColumnDef &def() const { return from->def->columns[index]; }
    bool operator==(const Column &other) const { return from == other.from && index == other.index; }
};

/// Not and Negate have one operand, And and Or any number, all others two.
struct Operation
{
    Op op;
    bool operator==(const Operation &) const = default;
};

/// COUNT(*) has no operand.
struct AggregateCall
{
    Aggregate function;
    const Source *own =
        nullptr; ///< one of its SELECT's, where it reads tables of the statements around alone (resolver)
    bool operator==(const AggregateCall &) const = default;
};

struct IsNull
{
    bool negated = false;
    bool called = false; ///< ISNULL(x), which is another expression than x IS NULL for GROUP BY
    bool operator==(const IsNull &) const = default;
};

/// The text and its pattern.
struct Like
{
    bool negated = false;
    bool operator==(const Like &) const = default;
};

/// The value and the list's.
struct InList
{
    bool negated = false;
    bool operator==(const InList &) const = default;
};

/// The value; the list comes from the SELECT.
struct InSelect
{
    bool negated = false;
    bool operator==(const InSelect &) const = default;
};

/// The value, the least and the greatest.
struct Between
{
    bool negated = false;
    bool operator==(const Between &) const = default;
};

/// A SELECT as a value.
struct Subselect
{
    bool operator==(const Subselect &) const = default;
};

struct Exists
{
    bool operator==(const Exists &) const = default;
};

struct Expr
{
    using Node = std::variant<Constant, Column, Operation, AggregateCall, IsNull, Like, InList, InSelect, Between,
                              Subselect, Exists>;

    Node node;
    std::vector<ExprPtr> operands;
    std::unique_ptr<Select> select; ///< of an InSelect, Subselect or Exists
    QStringView source;             ///< as typed
    ExprType type;                  ///< (typing)
    int height = 1;         ///< levels of operators and brackets down to its deepest constant or column (parser)
    mutable int visits = 0; ///< how often a pass has come by

    template <class T> const T *as() const { return std::get_if<T>(&node); }
    template <class T> T *as() { return std::get_if<T>(&node); }
    bool is(Op op) const { return as<Operation>() && as<Operation>()->op == op; }
    bool is(Constant::Kind kind) const { return as<Constant>() && as<Constant>()->kind == kind; }

    /// Counts a pass coming by. Each expression is visited a few times and no more, so that the time a statement takes
    /// is that of its length; one that multiplies the visits by nesting is error 3360.
    void visit() const;
};

/// A table, or two joined.
struct FromNode
{
    enum class Join { None, Inner, Left, Right };

    Join join = Join::None;
    Source *source = nullptr;
    std::unique_ptr<FromNode> left, right;
    ExprPtr on;
};

struct SelectItem
{
    bool star = false;
    QString starTable; ///< of "Table.*"
    ExprPtr expr;      ///< none with a star
    QString alias;
};

struct OrderItem
{
    ExprPtr expr;
    bool descending = false;
    int position = -1; ///< of the result column it names by position or AS name; `expr` means nothing then (resolver)
};

struct Select
{
    bool distinct = false;
    int top = -1; ///< -1: all rows
    bool topPercent = false;
    std::vector<SelectItem> items;                ///< stars are replaced by their columns (resolver)
    QString into;                                 ///< the table to make, else empty
    std::vector<std::unique_ptr<Source>> sources; ///< in FROM order
    std::vector<std::unique_ptr<FromNode>> from;  ///< the comma list
    ExprPtr where;
    std::vector<ExprPtr> groupBy;
    ExprPtr having;
    std::vector<OrderItem> orderBy;

    int height = 1;          ///< that of its highest expression or inner SELECT, and one (parser)
    bool aggregates = false; ///< an aggregate stands in the list, HAVING or ORDER BY (resolver)
    bool grouped() const { return aggregates || !groupBy.empty() || having; }
};

struct Insert
{
    QString table;
    QStringList columns; ///< empty: all of them
    std::unique_ptr<Select> select;
    std::vector<ExprPtr> values;   ///< without `select`
    const TableDef *def = nullptr; ///< (resolver)
    std::vector<int> targets;      ///< positions of the columns (resolver)
};

struct Update
{
    struct Assignment
    {
        QString qualifier, column;
        ExprPtr value;
        int target = -1;
    };

    std::unique_ptr<Source> source;
    std::vector<Assignment> assignments;
    ExprPtr where;
};

struct Delete
{
    std::unique_ptr<Source> source;
    ExprPtr where;
};

struct CreateTable
{
    TableDef table;
};
struct DropTable
{
    QString table;
};

using ParsedStatement = std::variant<Select, Insert, Update, Delete, CreateTable, DropTable>;

} // namespace jetsql
