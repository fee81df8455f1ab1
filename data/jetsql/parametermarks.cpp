#include "data/jetsql/parametermarks.h"

#include "data/jetsql/limits.h"
#include "data/schema/schema.h"
#include "data/values/datetext.h"

namespace jetsql {
namespace {

using Kind = Constant::Kind;

/// Begins a parameterMark, before the constant's number. Unicode promises that it stands for nothing in a text.
constexpr QChar mark = u'\uFDD0';

bool isNamedByIndexCondition(const Column &column)
{
    const TableDef &table = *column.from->def;
    const auto &indexes = Schema::indexes();
    return std::any_of(indexes.begin(), indexes.end(), [&](const Schema::Index &index) {
        return index.table.compare(table.Name, Qt::CaseInsensitive) == 0 &&
               index.where.contains(column.def().name, Qt::CaseInsensitive);
    });
}

class Marking
{
public:
    std::vector<BindParameter> parameters;

    // Constants that are selected or sorted by stay as they are: only conditions are marked.
    void mark(Select &select)
    {
        for (auto &source : select.sources) {
            if (source->derived)
                mark(*source->derived);
        }
        for (auto &node : select.from)
            markJoins(*node);
        markCondition(select.where);
    }

    void mark(Insert &insert)
    {
        if (insert.select)
            return mark(*insert.select);
        for (size_t i = 0; i < insert.values.size(); ++i)
            markAssigned(*insert.values[i], insert.def->columns[insert.targets[i]]);
    }

    void mark(Update &update)
    {
        for (Update::Assignment &assignment : update.assignments)
            markAssigned(*assignment.value, update.source->def->columns[assignment.target]);
        markCondition(update.where);
    }

    void mark(Delete &statement) { markCondition(statement.where); }
    void mark(CreateTable &) {}
    void mark(DropTable &) {}

private:
    void markJoins(FromNode &node)
    {
        if (node.join == FromNode::Join::None)
            return;
        markJoins(*node.left);
        markJoins(*node.right);
        markCondition(node.on);
    }

    void markCondition(ExprPtr &condition)
    {
        if (condition)
            markCondition(*condition);
    }

    void markCondition(Expr &condition)
    {
        if (condition.select)
            mark(*condition.select);
        const bool chain = condition.is(Op::And) || condition.is(Op::Or) || condition.is(Op::Not);
        if (chain) {
            for (ExprPtr &operand : condition.operands)
                markCondition(*operand);
        } else if (condition.as<InList>() || condition.as<Between>() || comparesTwo(condition)) {
            markCompared(condition.operands);
        }
    }

    static bool comparesTwo(const Expr &expr)
    {
        const auto *operation = expr.as<Operation>();
        return operation && operation->op >= Op::Equal && operation->op <= Op::GreaterEqual;
    }

    /// A column and constants of its kind, in any order. With others among them they are written in another form.
    void markCompared(std::vector<ExprPtr> &operands)
    {
        const auto column = std::find_if(operands.begin(), operands.end(),
                                         [](const ExprPtr &operand) { return operand->as<Column>() != nullptr; });
        // A condition that an index is made for must be seen as it stands, or the index is not used.
        if (column == operands.end() || isNamedByIndexCondition(*(*column)->as<Column>()))
            return;
        const ExprType type = (*column)->type;
        // A text against a number column is error 3464, which must come at each run and not with one constant alone.
        const bool alike = std::all_of(operands.begin(), operands.end(), [&](const ExprPtr &operand) {
            const bool same = (type.isText() && operand->is(Kind::Text)) ||
                              (type.isDate() && operand->is(Kind::Date)) ||
                              (type.isNumber() && operand->is(Kind::Number));
            return operand == *column || same;
        });
        for (size_t i = 0; alike && i < operands.size(); ++i) {
            if (operands[i]->as<Constant>())
                add(*operands[i], BindParameter::Form::Stored);
        }
    }

    void markAssigned(Expr &value, const ColumnDef &column)
    {
        const ColumnType type = column.type;
        const QString text = value.is(Kind::Text) ? value.as<Constant>()->text : QString();
        const bool number = type == ColumnType::Long || type == ColumnType::Currency || type == ColumnType::Double;
        if ((value.is(Kind::Number) && number) || (value.is(Kind::Date) && type == ColumnType::Date) ||
            (value.is(Kind::Text) && type == ColumnType::Memo))
            add(value, BindParameter::Form::Stored);
        else if (value.is(Kind::Text) && type == ColumnType::Text && text.size() <= column.size)
            add(value, BindParameter::Form::Fitting, column.size);
        else if (value.is(Kind::Text) && type == ColumnType::Date && dateFromText(text))
            add(value, BindParameter::Form::DateText);
    }

    void add(Expr &expr, BindParameter::Form form, int size = 0)
    {
        auto &constant = *expr.as<Constant>();
        if (constant.place < 0 || constant.place >= Limits::Parameters)
            return;
        constant.isParameter = true;
        // A text that reads as a date is bound as that date.
        const ColumnType type = form == BindParameter::Form::DateText ? ColumnType::Date : expr.type.type;
        parameters.push_back({constant.place, constant.minus, form, size, type});
    }
};

} // namespace

std::vector<BindParameter> markParameters(ParsedStatement &statement)
{
    Marking marking;
    std::visit([&marking](auto &kind) { marking.mark(kind); }, statement);
    return std::move(marking.parameters);
}

bool canHaveParameters(const QString &sql)
{
    return !sql.contains(mark);
}

QString parameterMark(const Constant &constant)
{
    return QString(mark) + QChar(char16_t(constant.place));
}

void setParameters(Translation &translation, const QString &marked, const std::vector<BindParameter> &known,
                   const Dialect &dialect)
{
    QString sql;
    sql.reserve(marked.size());
    for (qsizetype i = 0; i < marked.size(); ++i) {
        if (marked[i] != mark) {
            sql += marked[i];
            continue;
        }
        const int constant = marked[++i].unicode();
        translation.parameters.push_back(
            *std::find_if(known.begin(), known.end(),
                          [constant](const BindParameter &parameter) { return parameter.constant == constant; }));
        sql += dialect.parameter(int(translation.parameters.size()), translation.parameters.back().type);
    }
    translation.sqlWithParameters = sql.toUtf8();
}

} // namespace jetsql
