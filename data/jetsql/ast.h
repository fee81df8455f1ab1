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
    None,
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

struct Expr
{
    enum class Kind {
        Null,
        Text,
        Number,
        Date,
        Boolean,
        Column,
        Unary,
        Binary,
        Like,
        InList,
        InSelect,
        Between,
        IsNull,
        Aggregate,
        Subselect,
        Exists
    };

    Kind kind = Kind::Null;
    Op op = Op::None;                     ///< of Unary and Binary; And and Or take any number of operands
    Aggregate aggregate = Aggregate::Sum; ///< of an Aggregate
    bool negated = false;                 ///< NOT LIKE, NOT IN, NOT BETWEEN, IS NOT NULL
    bool whole = false;                   ///< a Number without fraction, within 32 bits
    double number = 0;                    ///< Number, the serial of a Date, 1 or 0 for a Boolean
    int constant = -1;                    ///< of a Text, Number or Date: which of the statement's constants it is
    bool minus = false;                   ///< a Number with an odd count of minus signs before it
    QString qualifier;                    ///< of a Column, empty without one
    QString name;                         ///< of a Column, the characters of a Text, "ISNULL" of a call of it
    QStringView source;                   ///< as typed
    std::vector<ExprPtr> operands;        ///< COUNT(*) has none
    std::unique_ptr<Select> select;

    const Source *from = nullptr; ///< of a Column (resolver)
    int column = -1;              ///< position in its table (resolver)
    ExprType type;                ///< (typing)
    bool isParameter = false;     ///< of a constant: written as a parameter (parameter marks)
    int height = 1;               ///< levels of operators and brackets down to its deepest constant or column (parser)
    mutable int visits = 0;       ///< how often a pass has come by

    /// Counts a pass coming by. Each expression is visited a few times and no more, so that the time a statement takes
    /// is that of its length; one that multiplies the visits by nesting is error 3360.
    void visit() const;
    bool isConstant() const { return kind <= Kind::Boolean; }
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
