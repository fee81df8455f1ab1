#include "reportengine/formula/formulaparser.h"

#include "reportengine/formula/formulafunctions.h"
#include "reportengine/formula/formulalexer.h"
#include "reportengine/formula/formulanodes.h"
#include <QMap>

namespace {

using Kind = FormulaToken::Kind;
using Type = FormulaType;

/// Recursive descent, a function per level of binding: or, and, not, comparison, sum and join, product, sign, primary.
class Parser
{
public:
    Parser(const QString &text, FormulaScope &scope) : m_text(text), m_tokens(formulaTokens(text)), m_scope(scope) {}

    FormulaPtr whole()
    {
        FormulaPtr formula = expression();
        if (current().kind != Kind::End)
            fail("The rest of the text does not belong to the formula");
        return formula;
    }

private:
    const FormulaToken &current() const { return m_tokens[m_at]; }
    [[noreturn]] void fail(const QString &reason) const { formulaError(m_text, current().position, reason); }

    bool accept(Kind kind, const char *text)
    {
        if (current().kind != kind || current().text != QLatin1String(text))
            return false;
        ++m_at;
        return true;
    }
    bool word(const char *text) { return accept(Kind::Word, text); }
    bool symbol(const char *text) { return accept(Kind::Symbol, text); }
    void expectSymbol(const char *text)
    {
        if (!symbol(text))
            fail(QString("The %1 is missing").arg(text));
    }

    void require(const FormulaPtr &formula, Type type, const char *reason) const
    {
        if (formula->type() != type)
            fail(reason);
    }

    // An if without an else gives the type's default there: 0, an empty text, False.
    FormulaPtr expression()
    {
        // Of the loosest binding, so that a branch takes in all that follows.
        if (!word("if"))
            return disjunction();
        const FormulaPtr condition = expression();
        require(condition, Type::Boolean, "A condition is wanted behind if");
        if (!word("then"))
            fail("The then is missing");
        const FormulaPtr then = expression();
        FormulaPtr otherwise;
        if (word("else")) {
            otherwise = expression();
            require(otherwise, then->type(), "Both branches must be of one type");
        }
        return conditional(condition, then, otherwise);
    }

    FormulaPtr disjunction()
    {
        FormulaPtr left = conjunction();
        while (word("or"))
            left = logicalOf(false, left, conjunction());
        return left;
    }

    FormulaPtr conjunction()
    {
        FormulaPtr left = negation();
        while (word("and"))
            left = logicalOf(true, left, negation());
        return left;
    }

    FormulaPtr logicalOf(bool isAnd, const FormulaPtr &left, const FormulaPtr &right)
    {
        require(left, Type::Boolean, "A condition is wanted here");
        require(right, Type::Boolean, "A condition is wanted here");
        return logical(isAnd, left, right);
    }

    FormulaPtr negation()
    {
        // Weaker than a comparison: it denies the whole of "not {a} = {b}".
        if (!word("not"))
            return relation();
        const FormulaPtr condition = negation();
        require(condition, Type::Boolean, "A condition is wanted behind not");
        return inverted(condition);
    }

    FormulaPtr relation()
    {
        // Comparisons do not chain: behind one of them stands and, or, or the end.
        const FormulaPtr left = sum();
        for (const char *operation : {"=", "<>", "<=", ">=", "<", ">"}) {
            if (!symbol(operation))
                continue;
            const FormulaPtr right = sum();
            require(right, left->type(), "Only values of one type can be compared");
            return comparison(operation, left, right);
        }
        return left;
    }

    FormulaPtr sum()
    {
        FormulaPtr left = product();
        while (true) {
            if (symbol("&"))
                left = joinedTexts(left, product());
            else if (symbol("+"))
                left = plus(left, product());
            else if (symbol("-"))
                left = minus(left, product());
            else
                return left;
        }
    }

    FormulaPtr joinedTexts(FormulaPtr left, FormulaPtr right)
    {
        // Numbers and dates join as ToText prints them.
        if (left->type() != Type::Text)
            left = functionCall("totext", {left});
        if (right->type() != Type::Text)
            right = functionCall("totext", {right});
        return joined(left, right);
    }

    // Adds numbers, moves a day by a number of days, and joins two texts.
    FormulaPtr plus(const FormulaPtr &left, const FormulaPtr &right)
    {
        if (left->type() == Type::Text && right->type() == Type::Text)
            return joined(left, right);
        require(right, Type::Number, "A number is wanted here");
        if (left->type() != Type::Date)
            require(left, Type::Number, "A number is wanted here");
        return arithmetic('+', left, right);
    }

    // A day less a day is a number of days, a day less a number of days is a day.
    FormulaPtr minus(const FormulaPtr &left, const FormulaPtr &right)
    {
        if (left->type() != Type::Date)
            require(left, Type::Number, "A number is wanted here");
        if (left->type() != Type::Date || right->type() != Type::Date)
            require(right, Type::Number, "A number is wanted here");
        return arithmetic('-', left, right);
    }

    FormulaPtr product()
    {
        FormulaPtr left = sign();
        while (true) {
            const char operation = symbol("*") ? '*' : symbol("/") ? '/' : 0;
            if (!operation)
                return left;
            const FormulaPtr right = sign();
            require(left, Type::Number, "A number is wanted here");
            require(right, Type::Number, "A number is wanted here");
            left = arithmetic(QChar(operation), left, right);
        }
    }

    FormulaPtr sign()
    {
        if (!symbol("-"))
            return primary();
        const FormulaPtr operand = sign();
        require(operand, Type::Number, "A number is wanted behind the sign");
        return negated(operand);
    }

    FormulaPtr primary()
    {
        const FormulaToken token = current();
        switch (token.kind) {
        case Kind::Number:
            ++m_at;
            return std::make_shared<ConstantFormula>(Type::Number, token.number);
        case Kind::Text:
            ++m_at;
            return std::make_shared<ConstantFormula>(Type::Text, token.text);
        case Kind::Reference:
            return reference();
        case Kind::Word:
            return named();
        default:
            break;
        }
        if (!symbol("("))
            fail("A value is missing");
        FormulaPtr inner = expression();
        expectSymbol(")");
        return inner;
    }

    FormulaPtr reference()
    {
        const QString name = current().text.trimmed();
        FormulaPtr found;
        if (name.startsWith('@'))
            found = m_scope.formula(name.mid(1));
        else if (name.startsWith('#'))
            found = m_scope.runningTotal(name.mid(1));
        else if (name.startsWith('?'))
            found = m_scope.parameter(name.mid(1));
        else
            found = m_scope.field(name);
        if (!found)
            fail("This field name is not known");
        // Passed only now, so that the error tells where the name stands.
        ++m_at;
        return found;
    }

    FormulaPtr named()
    {
        static const QMap<QString, Aggregate::Kind> aggregates{{"sum", Aggregate::Kind::Sum},
                                                               {"count", Aggregate::Kind::Count},
                                                               {"average", Aggregate::Kind::Average},
                                                               {"minimum", Aggregate::Kind::Minimum},
                                                               {"maximum", Aggregate::Kind::Maximum}};
        const QString name = current().text;
        if (name == "true" || name == "false") {
            ++m_at;
            return std::make_shared<ConstantFormula>(Type::Boolean, name == "true");
        }
        if (aggregates.contains(name))
            return aggregate(aggregates[name]);
        if (name == "groupname")
            return groupName();
        const int start = m_at++;
        std::vector<FormulaPtr> arguments;
        if (symbol("(")) {
            do
                arguments.push_back(expression());
            while (symbol(","));
            expectSymbol(")");
        }
        // Overloads are told apart by the types of their arguments, so a wrong type is an unknown function.
        const FormulaPtr call = functionCall(name, arguments);
        if (!call) {
            m_at = start;
            fail("No function of this name takes these arguments");
        }
        return call;
    }

    FormulaPtr aggregate(Aggregate::Kind kind)
    {
        const int start = current().position;
        ++m_at;
        expectSymbol("(");
        const int inner = current().position;
        Aggregate wanted{.kind = kind, .of = expression(), .argument = {}, .level = -1};
        // Compared as text: two totals of one spelling are one computation.
        wanted.argument = m_text.mid(inner, current().position - inner).simplified().toLower();
        if (kind == Aggregate::Kind::Sum || kind == Aggregate::Kind::Average)
            require(wanted.of, Type::Number, "Only numbers can be added up");
        if (symbol(","))
            wanted.level = group();
        // What stands from the name to the bracket, its group included, tells one total from another.
        const int end = current().position;
        expectSymbol(")");
        return m_scope.aggregate(wanted, m_text.mid(start, end - start).simplified().toLower());
    }

    /// "{field}" of one of the report's groups; answers its level.
    int group()
    {
        if (current().kind != Kind::Reference)
            fail("A group field is wanted here");
        const int level = m_scope.groupLevel(current().text.trimmed());
        if (level < 0)
            fail("There is no group on this field");
        ++m_at;
        return level;
    }

    FormulaPtr groupName()
    {
        ++m_at;
        expectSymbol("(");
        const int level = group();
        expectSymbol(")");
        return m_scope.groupName(level);
    }

    QString m_text;
    std::vector<FormulaToken> m_tokens;
    FormulaScope &m_scope;
    int m_at = 0;
};

} // namespace

FormulaPtr parseFormula(const QString &text, FormulaScope &scope)
{
    return Parser(text, scope).whole();
}
