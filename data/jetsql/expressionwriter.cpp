#include "data/jetsql/expressionwriter.h"

#include "data/jetsql/errors.h"
#include "data/jetsql/limits.h"
#include "data/jetsql/parametermarks.h"
#include "data/jetsql/typing.h"
#include "data/values/datetext.h"
#include "data/values/numbers.h"

namespace jetsql {
namespace {

using Kind = Constant::Kind;
using Level = Piece::Level;

Piece call(const char *function, const QString &arguments)
{
    return {QLatin1String(function) + u'(' + arguments + u')'};
}

QString columnText(const Source &source, int index)
{
    return source.handle + u'.' + quotedName(source.def->columns[size_t(index)].name);
}

/// True where `&` need not turn a Null into the empty text.
bool neverNull(const Expr &expr)
{
    return expr.as<Constant>() && !expr.is(Kind::Null);
}

/// The most characters an expression can have as a text, or a number beyond any column's size.
int longestText(const Expr &expr)
{
    constexpr int unknown = 1 << 20;
    if (expr.is(Kind::Text))
        return int(expr.as<Constant>()->text.size());
    if (expr.is(Op::Concat))
        return std::min(unknown, longestText(*expr.operands[0]) + longestText(*expr.operands[1]));
    if (expr.type.null)
        return 0;
    if (expr.type.isText())
        return expr.as<Column>() && expr.type.size > 0 ? expr.type.size : unknown;
    // "-2147483648" has 11 characters; no other number and no date comes to 24.
    return expr.type.type == ColumnType::Long ? 11 : 24;
}

bool isWholeArithmetic(const Expr &expr)
{
    return (expr.is(Op::Add) || expr.is(Op::Subtract) || expr.is(Op::Multiply)) && expr.type.isNumber() &&
           expr.type.type == ColumnType::Long;
}

/// The parts of a chain of `&`.
void flatten(const Expr &expr, std::vector<const Expr *> &parts)
{
    if (!expr.is(Op::Concat)) {
        parts.push_back(&expr);
        return;
    }
    for (const ExprPtr &operand : expr.operands)
        flatten(*operand, parts);
}

/// 0 and -1 are the numbers that a Yes/No can equal.
bool isYesNoNumber(const Expr &expr)
{
    const auto *number = expr.as<Constant>();
    return expr.is(Kind::Number) && (number->number == 0 || number->number == -1);
}

QString operatorText(Op op)
{
    switch (op) {
    case Op::Equal:
        return " = ";
    case Op::NotEqual:
        return " <> ";
    case Op::Less:
        return " < ";
    case Op::LessEqual:
        return " <= ";
    case Op::Greater:
        return " > ";
    case Op::GreaterEqual:
        return " >= ";
    case Op::Add:
        return " + ";
    case Op::Subtract:
        return " - ";
    case Op::Multiply:
        return " * ";
    default:
        return {};
    }
}

/// What computes an operator that SQLite has not, or has with other results.
const char *arithmeticFunction(Op op)
{
    switch (op) {
    case Op::Divide:
        return "jet_divide";
    case Op::IntDivide:
        return "jet_int_divide";
    case Op::Mod:
        return "jet_mod";
    case Op::Power:
        return "jet_power";
    default:
        return nullptr;
    }
}

} // namespace

Piece ExpressionWriter::plain(const Expr &expr) const
{
    if (isTextKey(expr))
        return {m_dialect.shownInGroup(stored(expr).text)};
    return stored(expr);
}

bool ExpressionWriter::isTextKey(const Expr &expr) const
{
    return m_groupKeys && expr.type.isText() && !expr.as<Constant>() &&
           std::any_of(m_groupKeys->begin(), m_groupKeys->end(),
                       [&expr](const ExprPtr &key) { return sameExpression(*key, expr); });
}

Piece ExpressionWriter::literal(const Constant &constant) const
{
    const Level level = constant.number < 0 ? Level::Unary : Level::Primary;
    if (constant.isParameter)
        return {parameterMark(constant), level};
    if (constant.whole)
        return {QString::number(qint64(constant.number)), level};
    QString text = QString::number(constant.number, 'g', QLocale::FloatingPointShortest);
    // Without a point the engines would divide it as a whole number.
    if (!text.contains(u'.') && !text.contains(u'e'))
        text += QLatin1String(".0");
    return {m_dialect.fraction(text), level};
}

Piece ExpressionWriter::stored(const Expr &expr) const
{
    expr.visit();
    return std::visit([this, &expr](const auto &node) { return written(node, expr); }, expr.node);
}

Piece ExpressionWriter::written(const Constant &constant, const Expr &expr) const
{
    switch (constant.kind) {
    case Kind::Text:
        return {constant.isParameter ? parameterMark(constant) : quotedText(constant.text)};
    case Kind::Number:
        return literal(constant);
    case Kind::Date:
        return {constant.isParameter ? parameterMark(constant) : m_dialect.date(Date(constant.number).toIso())};
    case Kind::Boolean:
        return {m_dialect.boolean(constant.number != 0)};
    case Kind::Null:
        break;
    }
    return {m_dialect.null(expr.type)};
}

Piece ExpressionWriter::written(const IsNull &test, const Expr &expr) const
{
    return {plain(*expr.operands[0]).at(Level::Sum) + (test.negated ? " IS NOT NULL" : " IS NULL"), Level::Equality};
}

Piece ExpressionWriter::written(const Subselect &, const Expr &expr) const
{
    return {u'(' + m_subselect(m_dialect, *expr.select, Inner::Value) + u')'};
}

Piece ExpressionWriter::written(const Exists &, const Expr &expr) const
{
    return {"EXISTS (" + m_subselect(m_dialect, *expr.select, Inner::List) + u')'};
}

Piece ExpressionWriter::written(const Column &column, const Expr &) const
{
    return {columnText(*column.from, column.index)};
}

Piece ExpressionWriter::number(const Expr &expr) const
{
    if (expr.is(Kind::Boolean))
        return {expr.as<Constant>()->number != 0 ? "-1" : "0", Level::Unary};
    if (expr.is(Kind::Date))
        // With 17 digits a Double comes back as it was, the time of day with it.
        return {QString::number(expr.as<Constant>()->number, 'g', 17)};
    if (expr.as<Subselect>()) {
        expr.visit();
        return {u'(' + m_subselect(m_dialect, *expr.select, Inner::Number) + u')'};
    }
    const Piece stored = plain(expr);
    if (expr.type.isText())
        return call("jet_number", stored.text);
    if (expr.type.isDate())
        return call("jet_serial", stored.text);
    if (expr.type.isYesNo())
        return {m_dialect.yesNoAsNumber(stored.at(Level::Primary)), Level::Unary};
    if (!expr.type.null && expr.type.type == ColumnType::Currency)
        return {m_dialect.moneyAsNumber(stored.text), stored.level};
    return stored;
}

Piece ExpressionWriter::text(const Expr &expr) const
{
    if (expr.is(Kind::Number))
        return {quotedText(textOf(expr.as<Constant>()->number))};
    if (expr.type.null || expr.type.isText())
        return plain(expr);
    if (expr.type.isDate())
        return call("jet_date_text", plain(expr).text);
    // Whole numbers the engine turns into the same text as the platform; others have digits of their own.
    if (expr.type.type == ColumnType::Long || expr.type.isYesNo())
        return {"CAST(" + number(expr).text + " AS TEXT)"};
    return call("jet_text", number(expr).text);
}

Piece ExpressionWriter::condition(const Expr &expr) const
{
    if (expr.type.null || expr.type.isYesNo())
        return plain(expr);
    return {number(expr).at(Level::Sum) + " <> 0", Level::Equality};
}

QString ExpressionWriter::collated(const Expr &expr) const
{
    const Piece piece = plain(expr);
    if (!expr.type.isText())
        return piece.text;
    return m_dialect.key(piece.at(Level::Primary), expr.as<Column>() != nullptr);
}

Piece ExpressionWriter::written(const Operation &operation, const Expr &expr) const
{
    switch (operation.op) {
    case Op::Not:
        return {"NOT " + condition(*expr.operands[0]).at(Level::Not), Level::Not};
    case Op::Negate:
        return {u'-' + number(*expr.operands[0]).at(Level::Primary), Level::Unary};
    case Op::Or:
    case Op::And:
        return junction(expr, operation.op);
    case Op::Concat:
        return joinedTexts(expr);
    case Op::Equal:
    case Op::NotEqual:
    case Op::Less:
    case Op::LessEqual:
    case Op::Greater:
    case Op::GreaterEqual:
        return comparison(expr, operation.op);
    default:
        return arithmetic(expr, operation.op);
    }
}

Piece ExpressionWriter::junction(const Expr &expr, Op op) const
{
    const bool both = op == Op::And;
    const Level level = both ? Level::And : Level::Or;
    QStringList parts;
    for (const ExprPtr &operand : expr.operands)
        parts.append(condition(*operand).at(level));
    return {parts.join(QLatin1String(both ? " AND " : " OR ")), level};
}

Piece ExpressionWriter::comparison(const Expr &expr, Op op) const
{
    const Expr &left = *expr.operands[0];
    const Expr &right = *expr.operands[1];
    const bool equality = op == Op::Equal || op == Op::NotEqual;
    const Level level = equality ? Level::Equality : Level::Order;
    const auto joined = [&](const QString &a, const QString &b) { return Piece{a + operatorText(op) + b, level}; };
    const auto stored = [this](const Expr &side) { return plain(side).at(Level::Sum); };
    const auto counted = [this](const Expr &side) { return number(side).at(Level::Sum); };

    if (left.type.isText() || right.type.isText()) {
        if (m_dialect.comparesByKeys())
            return joined(collated(left), collated(right));
        // The column's own collation decides, without a word at the comparison, and its index serves.
        const bool column = left.as<Column>() || right.as<Column>();
        return joined(column ? stored(left) : collated(left), stored(right));
    }
    if (left.type.null || right.type.null || (left.type.isDate() && right.type.isDate()))
        return joined(stored(left), stored(right));
    // A Yes/No is stored as 1 or 0; only its order has to be that of -1 and 0.
    if (equality && left.type.isYesNo() && (right.type.isYesNo() || isYesNoNumber(right)))
        return joined(stored(left),
                      right.type.isYesNo() ? stored(right) : m_dialect.boolean(right.as<Constant>()->number != 0));
    return joined(counted(left), counted(right));
}

/// Null counts as empty; only Nulls on all sides give Null.
Piece ExpressionWriter::joinedTexts(const Expr &expr) const
{
    std::vector<const Expr *> parts;
    flatten(expr, parts);
    const bool filled = std::any_of(parts.begin(), parts.end(), [](const Expr *part) { return neverNull(*part); });
    QStringList texts;
    for (const Expr *part : parts) {
        // A whole number turns into the digits that the platform gives it by itself; others are printed by ours.
        const bool digits = !part->type.null && part->type.type == ColumnType::Long;
        const Piece piece = digits && m_dialect.concatenatesNumbers() ? number(*part) : text(*part);
        if (!filled)
            texts.append(piece.text);
        else
            texts.append(neverNull(*part) ? piece.at(Level::Unary) : "coalesce(" + piece.text + ", '')");
    }
    if (!filled && parts.size() > Limits::Arguments)
        fail(3360);
    if (!filled)
        return {m_dialect.concatenated(texts)};
    return {texts.join(" || "), Level::Concat};
}

/// The bare sum or product. Whole numbers in a chain are checked once, at its end.
Piece ExpressionWriter::counted(const Expr &expr, Op op) const
{
    const Level level = op == Op::Multiply ? Level::Product : Level::Sum;
    const auto side = [this](const Expr &operand) {
        if (isWholeArithmetic(operand))
            return counted(operand, operand.as<Operation>()->op);
        const Piece piece = number(operand);
        const bool whole = operand.type.isNumber() && operand.type.type == ColumnType::Long;
        return whole ? Piece{m_dialect.wide(piece.text), piece.level} : piece;
    };
    // The right side binds tighter by one, or a - (b - c) would lose its brackets.
    return {side(*expr.operands[0]).at(level) + operatorText(op) + side(*expr.operands[1]).at(Level(level + 1)), level};
}

Piece ExpressionWriter::arithmetic(const Expr &expr, Op op) const
{
    const Expr &left = *expr.operands[0];
    const Expr &right = *expr.operands[1];
    if (const char *function = arithmeticFunction(op))
        return call(function, number(left).text + ", " + number(right).text);
    if (expr.type.isText())
        // Unlike &, + gives Null for a Null on either side, and so does || by itself.
        return {text(left).at(Level::Concat) + " || " + text(right).at(Level::Unary), Level::Concat};
    const Piece result = counted(expr, op);
    if (expr.type.isDate())
        return call("jet_date", result.text);
    if (expr.type.isNumber() && expr.type.type == ColumnType::Currency)
        return call("jet_money", result.text);
    // Whole numbers overflow at 32 bits, which a factor of 1 or -1 cannot bring about.
    const auto unit = [](const Expr &side) {
        return side.is(Kind::Number) && std::abs(side.as<Constant>()->number) <= 1;
    };
    if (!isWholeArithmetic(expr) || (op == Op::Multiply && (unit(left) || unit(right))))
        return result;
    return call("jet_range", result.text);
}

/// One side of an IN: stored form among equals, numbers where the types are mixed.
QString ExpressionWriter::comparand(const Expr &expr, bool asNumber) const
{
    if (expr.type.isText() && m_dialect.comparesByKeys())
        return collated(expr);
    return (asNumber ? number(expr) : plain(expr)).at(Level::Sum);
}

Piece ExpressionWriter::written(const InList &in, const Expr &expr) const
{
    const Expr &left = *expr.operands[0];
    bool mixed = false;
    for (const ExprPtr &operand : expr.operands)
        // Among values of one type the stored form serves, and its index; in a mixed list all are counted as numbers.
        mixed = mixed || (!operand->type.null && !operand->type.isText() && operand->type.type != left.type.type);
    QStringList values;
    for (size_t i = 1; i < expr.operands.size(); ++i)
        values.append(comparand(*expr.operands[i], mixed));
    const QString head = left.type.isText() ? collated(left) : comparand(left, mixed);
    return {head + (in.negated ? " NOT IN (" : " IN (") + values.join(", ") + u')', Level::Equality};
}

Piece ExpressionWriter::written(const InSelect &in, const Expr &expr) const
{
    const Expr &left = *expr.operands[0];
    const ExprType &inner = expr.select->items.front().expr->type;
    const bool mixed = !left.type.isText() && !inner.null && !left.type.null && inner.type != left.type.type;
    const QString head = left.type.isText() ? collated(left) : comparand(left, mixed);
    return {head + (in.negated ? " NOT IN (" : " IN (") +
                m_subselect(m_dialect, *expr.select, mixed ? Inner::Numbers : Inner::List) + u')',
            Level::Equality};
}

Piece ExpressionWriter::written(const Between &between, const Expr &expr) const
{
    const Expr &left = *expr.operands[0];
    bool mixed = false;
    for (const ExprPtr &operand : expr.operands)
        mixed = mixed || operand->type.isYesNo() || (!operand->type.isText() && operand->type.type != left.type.type);
    // Typing lets texts be compared with texts alone.
    mixed = mixed && !left.type.isText();
    const QString head = left.type.isText() ? collated(left) : comparand(left, mixed);
    return {head + (between.negated ? " NOT BETWEEN " : " BETWEEN ") + comparand(*expr.operands[1], mixed) + " AND " +
                comparand(*expr.operands[2], mixed),
            Level::Equality};
}

Piece ExpressionWriter::written(const Like &like, const Expr &expr) const
{
    const Expr &pattern = *expr.operands[1];
    const Piece match{m_dialect.like(pattern, text(pattern).text, text(*expr.operands[0]).text)};
    return like.negated ? Piece{"NOT " + match.text, Level::Not} : match;
}

Piece ExpressionWriter::written(const AggregateCall &call, const Expr &expr) const
{
    // Inside of it the rows of the group are met one by one.
    if (m_groupKeys)
        return ExpressionWriter(m_dialect, m_subselect).written(call, expr);
    // Engines give an aggregate to the statement whose tables it reads; so it is made to read one of its own, in a
    // condition that always holds and that no engine sees through.
    const auto owned = [&call](const Piece &value) {
        if (!call.own)
            return value;
        const QString own = columnText(*call.own, 0);
        return Piece{"CASE WHEN " + own + " = " + own + " OR " + own + " IS NULL THEN " + value.text + " END"};
    };
    if (call.function == Aggregate::Count)
        return {"count(" + (expr.operands.empty() ? QString("*") : owned(plain(*expr.operands[0])).text) + u')'};
    const Expr &operand = *expr.operands[0];
    if (call.function == Aggregate::Sum) {
        const bool money = expr.type.type == ColumnType::Currency;
        return {m_dialect.sum(owned(number(operand)).text, money)};
    }
    if (call.function == Aggregate::Avg)
        return {m_dialect.average(owned(number(operand)).text)};
    // Yes is the lesser: -1.
    const bool least = (call.function == Aggregate::Min) != operand.type.isYesNo();
    const Piece value = owned(plain(operand));
    return {m_dialect.extreme(least, operand.type.isText() ? value.at(Level::Primary) : value.text, operand)};
}

Piece ExpressionWriter::assigned(const Expr &expr, const ColumnDef &column) const
{
    const ExprType &from = expr.type;
    if (from.null)
        // Of the column's type, not of that which it has where it stands.
        return {m_dialect.null({false, column.type, column.size, false})};
    switch (column.type) {
    case ColumnType::Memo:
        return text(expr);
    case ColumnType::Text:
        return fitted(expr, column);
    // A constant is converted here, once; what rows bring is converted row by row and may fail there.
    case ColumnType::Date: {
        if (from.isDate())
            return plain(expr);
        const auto *constant = expr.as<Constant>();
        const std::optional<Date> date = expr.is(Kind::Text) ? dateFromText(constant->text) : std::nullopt;
        if (date)
            return {constant->isParameter ? parameterMark(*constant) : m_dialect.date(date->toIso())};
        return from.isText() ? call("jet_date_of", plain(expr).text) : call("jet_date", number(expr).text);
    }
    case ColumnType::YesNo:
        if (from.isYesNo())
            return plain(expr);
        return from.isText() ? call("jet_yesno", plain(expr).text) : condition(expr);
    case ColumnType::Long: {
        const bool fits = from.isYesNo() || (from.isNumber() && from.type == ColumnType::Long);
        return fits ? number(expr) : call("jet_long", number(expr).text);
    }
    case ColumnType::Currency: {
        const bool exact = from.isYesNo() || (from.isNumber() && from.type != ColumnType::Double);
        if (from.isNumber() && from.type == ColumnType::Currency)
            return plain(expr);
        return exact ? number(expr) : call("jet_money", number(expr).text);
    }
    case ColumnType::Double:
        return number(expr);
    }
    return {};
}

/// Texts are never cut: one that may be too long is measured row by row.
Piece ExpressionWriter::fitted(const Expr &expr, const ColumnDef &column) const
{
    const Piece value = text(expr);
    const bool fits = column.size <= 0 || longestText(expr) <= column.size;
    return fits ? value : call("jet_fit", value.text + ", " + QString::number(column.size));
}

} // namespace jetsql
