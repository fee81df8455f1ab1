#include "reportengine/formula/formulafunctions.h"

#include "data/values/datetext.h"
#include "data/values/numbers.h"
#include "reportengine/formula/formulanodes.h"
#include "reportengine/rows/rowstore.h"
#include <QLocale>
#include <QMap>

namespace {

using Type = FormulaType;
using Values = std::vector<Value>;

struct Function
{
    std::vector<Type> arguments;
    Type result;
    std::function<Value(const Values &)> compute;
};

/// Halves go away from zero.
double rounded(double number, double places)
{
    const double scale = std::pow(10.0, places);
    return std::round(number * scale) / scale;
}

/// With that many decimals, and separators for thousands.
QString numberText(double number, int decimals)
{
    return QLocale(QLocale::English, QLocale::UnitedStates).toString(number, 'f', decimals);
}

QString dateText(const Date &date, const QString &picture)
{
    return QLocale(QLocale::English, QLocale::UnitedStates).toString(QDateTime(date.date(), date.time()), picture);
}

/// The same date is mostly asked for row after row.
Date dateOf(const QString &text)
{
    static QString lastText;
    static Date lastDate;
    if (text != lastText || lastText.isEmpty()) {
        lastDate = CDate(text);
        lastText = text;
    }
    return lastDate;
}

/// A function may stand here several times, with other arguments.
const QMultiMap<QString, Function> &functions()
{
    static const QMultiMap<QString, Function> all{
        {"totext", {{Type::Number}, Type::Text, [](const Values &v) { return Value(textOf(v[0].toDouble())); }}},
        {"totext",
         {{Type::Number, Type::Number},
          Type::Text,
          [](const Values &v) { return Value(numberText(v[0].toDouble(), int(v[1].toDouble()))); }}},
        {"totext", {{Type::Text}, Type::Text, [](const Values &v) { return v[0]; }}},
        {"totext", {{Type::Date}, Type::Text, [](const Values &v) { return Value(v[0].toDate().toText()); }}},
        {"totext",
         {{Type::Date, Type::Text},
          Type::Text,
          [](const Values &v) { return Value(dateText(v[0].toDate(), v[1].toText())); }}},
        {"totext", {{Type::Boolean}, Type::Text, [](const Values &v) { return Value(v[0].toText()); }}},
        {"cdbl", {{Type::Number}, Type::Number, [](const Values &v) { return v[0]; }}},
        {"cdbl", {{Type::Text}, Type::Number, [](const Values &v) { return Value(CDbl(v[0].toText())); }}},
        {"val", {{Type::Text}, Type::Number, [](const Values &v) { return Value(Val(v[0].toText())); }}},
        {"cdate", {{Type::Text}, Type::Date, [](const Values &v) { return Value(dateOf(v[0].toText())); }}},
        {"date", {{Type::Date}, Type::Date, [](const Values &v) { return Value(Date(v[0].toDate().date())); }}},
        {"date", {{Type::Text}, Type::Date, [](const Values &v) { return Value(dateOf(v[0].toText())); }}},
        {"date",
         {{Type::Number, Type::Number, Type::Number},
          Type::Date,
          [](const Values &v) { return Value(Date(v[0].toLong(), v[1].toLong(), v[2].toLong())); }}},
        {"year", {{Type::Date}, Type::Number, [](const Values &v) { return Value(v[0].toDate().date().year()); }}},
        {"month", {{Type::Date}, Type::Number, [](const Values &v) { return Value(v[0].toDate().date().month()); }}},
        {"day", {{Type::Date}, Type::Number, [](const Values &v) { return Value(v[0].toDate().date().day()); }}},
        {"round", {{Type::Number}, Type::Number, [](const Values &v) { return Value(rounded(v[0].toDouble(), 0)); }}},
        {"round",
         {{Type::Number, Type::Number},
          Type::Number,
          [](const Values &v) { return Value(rounded(v[0].toDouble(), v[1].toDouble())); }}},
        {"int", {{Type::Number}, Type::Number, [](const Values &v) { return Value(std::floor(v[0].toDouble())); }}},
        {"abs", {{Type::Number}, Type::Number, [](const Values &v) { return Value(std::abs(v[0].toDouble())); }}},
        {"trim", {{Type::Text}, Type::Text, [](const Values &v) { return Value(v[0].toText().trimmed()); }}},
        {"ucase", {{Type::Text}, Type::Text, [](const Values &v) { return Value(v[0].toText().toUpper()); }}},
        {"length", {{Type::Text}, Type::Number, [](const Values &v) { return Value(double(v[0].toText().size())); }}},
    };
    return all;
}

bool accepts(const Function &function, const std::vector<FormulaPtr> &arguments)
{
    return std::equal(function.arguments.begin(), function.arguments.end(), arguments.begin(), arguments.end(),
                      [](Type type, const FormulaPtr &argument) { return argument->type() == type; });
}

FormulaPtr call(const Function &function, const std::vector<FormulaPtr> &arguments)
{
    // A function of constants alone is evaluated once for all rows.
    const bool varies = std::any_of(arguments.begin(), arguments.end(),
                                    [](const FormulaPtr &argument) { return argument->variesByRow(); });
    return computed(
        function.result,
        [compute = function.compute, arguments](const FormulaContext &context, int row) {
            Values values;
            values.reserve(arguments.size());
            for (const FormulaPtr &argument : arguments) {
                values.push_back(operand(*argument, context, row));
                // Where Null is not taken for a default it makes every result Null.
                if (values.back().isNull())
                    return Value();
            }
            return compute(values);
        },
        varies);
}

QString pageText(const FormulaContext &context)
{
    const QString page = "Page " + QString::number(context.pageNumber);
    return context.pageCount == 0 ? page : page + " of " + QString::number(context.pageCount);
}

/// Those that read the context instead of arguments.
FormulaPtr contextFunction(const QString &name)
{
    if (name == "pagenumber")
        return computed(Type::Number, [](const FormulaContext &c, int) { return Value(double(c.pageNumber)); });
    // 0 while pages are being counted. Those made until then are thrown away when the number is known.
    if (name == "totalpagecount")
        return computed(Type::Number, [](const FormulaContext &c, int) { return Value(double(c.pageCount)); });
    if (name == "pagenofm")
        return computed(Type::Text, [](const FormulaContext &c, int) { return Value(pageText(c)); });
    if (name == "recordcount")
        return computed(Type::Number, [](const FormulaContext &c, int) { return Value(double(c.rows->rowCount())); });
    if (name == "printdate")
        return computed(Type::Date, [](const FormulaContext &c, int) { return Value(Date(c.printed.date())); });
    if (name == "printtime")
        return computed(Type::Text, [](const FormulaContext &c, int) {
            return Value(QLocale(QLocale::English, QLocale::UnitedStates).toString(c.printed.time(), "h:mm AP"));
        });
    if (name == "inrepeatedgroupheader")
        return computed(Type::Boolean, [](const FormulaContext &c, int) { return Value(c.repeatedHeader); });
    return nullptr;
}

} // namespace

FormulaPtr functionCall(const QString &name, const std::vector<FormulaPtr> &arguments)
{
    if (arguments.empty())
        return contextFunction(name);
    // Null is what IsNull asks for: it takes its argument before anything is made of it.
    if (name == "isnull" && arguments.size() == 1)
        return computed(Type::Boolean, [of = arguments[0]](const FormulaContext &context, int row) {
            return Value(of->value(context, row).isNull());
        });
    const auto [first, last] = functions().equal_range(name);
    for (auto function = first; function != last; ++function) {
        if (accepts(*function, arguments))
            return call(*function, arguments);
    }
    return nullptr;
}
