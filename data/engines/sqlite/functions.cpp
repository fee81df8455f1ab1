#include "data/engines/sqlite/functions.h"

#include "data/engines/sqlite/likepattern.h"
#include "data/values/datetext.h"
#include "data/values/limits.h"
#include "data/values/numbers.h"
#include "data/values/value.h"
#include <cmath>
#include <limits>
#include <memory>
#include <sqlite3.h>

namespace {

constexpr char errorPrefix[] = "JET:";

void raise(sqlite3_context *context, int number)
{
    const std::string message = errorPrefix + std::to_string(number);
    sqlite3_result_error(context, message.c_str(), int(message.size()));
}

bool isNull(sqlite3_value *value)
{
    return sqlite3_value_type(value) == SQLITE_NULL;
}

std::string_view bytesOf(sqlite3_value *value)
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_value_text(value));
    return text ? std::string_view(text, size_t(sqlite3_value_bytes(value))) : std::string_view();
}

QString textOfValue(sqlite3_value *value)
{
    const std::string_view bytes = bytesOf(value);
    return QString::fromUtf8(bytes.data(), qsizetype(bytes.size()));
}

void give(sqlite3_context *context, const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    sqlite3_result_text(context, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
}

void give(sqlite3_context *context, double number)
{
    sqlite3_result_double(context, number);
}

/// The function of one argument that gives Null for Null, without calling `convert`.
template <auto convert> void ofOne(sqlite3_context *context, int, sqlite3_value **values)
{
    if (!isNull(values[0]))
        convert(context, values[0]);
}

// Which error a conversion raises: 3464 for a text that is no such value at all, 3421 for a value that the column's
// type has no room for, and 6 where computing leaves the range.

void number(sqlite3_context *context, sqlite3_value *value)
{
    const std::optional<double> number = numberFromText(textOfValue(value));
    number ? give(context, *number) : raise(context, 3464);
}

void serial(sqlite3_context *context, sqlite3_value *value)
{
    const std::optional<Date> date = Date::fromIso(textOfValue(value));
    date ? give(context, date->serial()) : raise(context, 3464);
}

void date(sqlite3_context *context, sqlite3_value *value)
{
    const double serial = sqlite3_value_double(value);
    serial >= Date::Least &&serial < Date::Beyond ? give(context, Date(serial).toIso()) : raise(context, 3421);
}

void dateOfText(sqlite3_context *context, sqlite3_value *value)
{
    const std::optional<Date> date = dateFromText(textOfValue(value));
    date ? give(context, date->toIso()) : raise(context, 3464);
}

void dateText(sqlite3_context *context, sqlite3_value *value)
{
    const std::optional<Date> date = Date::fromIso(textOfValue(value));
    date ? give(context, date->toText()) : raise(context, 3464);
}

void text(sqlite3_context *context, sqlite3_value *value)
{
    give(context, textOf(sqlite3_value_double(value)));
}

bool fitsLong(double number)
{
    return number >= std::numeric_limits<qint32>::min() && number <= std::numeric_limits<qint32>::max();
}

void toLong(sqlite3_context *context, sqlite3_value *value)
{
    // Halves to even, by the default rounding mode.
    const double number = std::nearbyint(sqlite3_value_double(value));
    fitsLong(number) ? sqlite3_result_int64(context, sqlite3_int64(number)) : raise(context, 3421);
}

void range(sqlite3_context *context, sqlite3_value *value)
{
    fitsLong(sqlite3_value_double(value)) ? sqlite3_result_value(context, value) : raise(context, 6);
}

void money(sqlite3_context *context, sqlite3_value *value)
{
    const double amount = sqlite3_value_double(value);
    std::abs(amount) < BeyondMoney ? give(context, Currency::of(amount).amount()) : raise(context, 3421);
}

void yesNo(sqlite3_context *context, sqlite3_value *value)
{
    const QString text = textOfValue(value).trimmed();
    const auto is = [&text](QStringView word) { return word.compare(text, Qt::CaseInsensitive) == 0; };
    // The engine's own list of words, wider than that of an assigned field.
    if (is(u"True") || is(u"Yes") || is(u"On"))
        return sqlite3_result_int(context, 1);
    if (is(u"False") || is(u"No") || is(u"Off"))
        return sqlite3_result_int(context, 0);
    const std::optional<double> number = numberFromText(text);
    number ? sqlite3_result_int(context, *number != 0) : raise(context, 3464);
}

/// The text, if it has no more characters than the column takes.
void fit(sqlite3_context *context, int, sqlite3_value **values)
{
    if (isNull(values[0]))
        return;
    const std::string_view bytes = bytesOf(values[0]);
    const size_t limit = size_t(sqlite3_value_int(values[1]));
    // No text has more characters than bytes, so mostly the bytes decide.
    if (bytes.size() > limit && size_t(textOfValue(values[0]).size()) > limit)
        return raise(context, 3163);
    sqlite3_result_value(context, values[0]);
}

/// All texts that are not Null in one; Null when none is left.
void concat(sqlite3_context *context, int count, sqlite3_value **values)
{
    std::string joined;
    bool any = false;
    for (int i = 0; i < count; ++i) {
        any = any || !isNull(values[i]);
        joined.append(bytesOf(values[i]));
    }
    // A function that gives nothing gives Null.
    if (any)
        sqlite3_result_text(context, joined.data(), int(joined.size()), SQLITE_TRANSIENT);
}

void like(sqlite3_context *context, int, sqlite3_value **values)
{
    if (isNull(values[0]) || isNull(values[1]))
        return;
    auto *pattern = static_cast<LikePattern *>(sqlite3_get_auxdata(context, 0));
    std::unique_ptr<LikePattern> parsed;
    if (!pattern) {
        parsed = std::make_unique<LikePattern>(bytesOf(values[0]));
        pattern = parsed.get();
    }
    if (!pattern->isValid())
        return raise(context, 93);
    sqlite3_result_int(context, pattern->matches(bytesOf(values[1])));
    // Kept by SQLite for the next row where the pattern is a constant.
    if (parsed)
        sqlite3_set_auxdata(context, 0, parsed.release(), [](void *kept) { delete static_cast<LikePattern *>(kept); });
}

/// A function of two numbers that gives Null for Null.
template <auto compute> void ofTwo(sqlite3_context *context, int, sqlite3_value **values)
{
    if (!isNull(values[0]) && !isNull(values[1]))
        compute(context, sqlite3_value_double(values[0]), sqlite3_value_double(values[1]));
}

/// The platform knows no infinity: what is too large for a Double is an overflow.
void giveFinite(sqlite3_context *context, double result)
{
    std::isfinite(result) ? give(context, result) : raise(context, 6);
}

void giveWhole(sqlite3_context *context, double result)
{
    fitsLong(result) ? sqlite3_result_int64(context, sqlite3_int64(result)) : raise(context, 6);
}

void divide(sqlite3_context *context, double a, double b)
{
    b == 0 ? raise(context, 11) : giveFinite(context, a / b);
}

/// \ and MOD round their operands to whole numbers first.
void divideWhole(sqlite3_context *context, double a, double b)
{
    const double divisor = std::nearbyint(b);
    divisor == 0 ? raise(context, 11) : giveWhole(context, std::trunc(std::nearbyint(a) / divisor));
}

void remainderOf(sqlite3_context *context, double a, double b)
{
    const double divisor = std::nearbyint(b);
    divisor == 0 ? raise(context, 11) : giveWhole(context, std::fmod(std::nearbyint(a), divisor));
}

void power(sqlite3_context *context, double a, double b)
{
    giveFinite(context, std::pow(a, b));
}

/// SQLite hands it out filled with zeros, which is an empty sum.
struct Sum
{
    double total;
    qint64 units;
    bool any;
};

/// Plain addition of Doubles in row order. SQLite's own sum adds whole numbers as such, and corrects its rounding
/// errors in later versions.
void sumStep(sqlite3_context *context, int, sqlite3_value **values)
{
    auto *sum = static_cast<Sum *>(sqlite3_aggregate_context(context, sizeof(Sum)));
    if (!sum || isNull(values[0]))
        return;
    sum->any = true;
    sum->total += sqlite3_value_double(values[0]);
}

void sumFinal(sqlite3_context *context)
{
    const auto *sum = static_cast<Sum *>(sqlite3_aggregate_context(context, 0));
    if (sum && sum->any)
        give(context, sum->total);
}

void moneyStep(sqlite3_context *context, int, sqlite3_value **values)
{
    auto *sum = static_cast<Sum *>(sqlite3_aggregate_context(context, sizeof(Sum)));
    if (!sum || isNull(values[0]))
        return;
    sum->any = true;
    // In ten-thousandths, so that cents add up exactly in whatever order the rows come.
    if (qAddOverflow(sum->units, Currency::of(sqlite3_value_double(values[0])).units, &sum->units))
        raise(context, 6);
}

void moneyFinal(sqlite3_context *context)
{
    const auto *sum = static_cast<Sum *>(sqlite3_aggregate_context(context, 0));
    if (sum && sum->any)
        give(context, Currency{sum->units}.amount());
}

using Function = void (*)(sqlite3_context *, int, sqlite3_value **);
struct Entry
{
    const char *name;
    int arguments;
    Function function;
};

/// None is declared deterministic: SQLite would call one with constant arguments before the first row, and a text
/// that cannot be converted is an error only where there is a row to convert it for.
constexpr Entry entries[] = {
    {"jet_number", 1, ofOne<number>},
    {"jet_serial", 1, ofOne<serial>},
    {"jet_date", 1, ofOne<date>},
    {"jet_date_of", 1, ofOne<dateOfText>},
    {"jet_date_text", 1, ofOne<dateText>},
    {"jet_text", 1, ofOne<text>},
    {"jet_long", 1, ofOne<toLong>},
    {"jet_range", 1, ofOne<range>},
    {"jet_money", 1, ofOne<money>},
    {"jet_yesno", 1, ofOne<yesNo>},
    {"jet_fit", 2, fit},
    {"jet_concat", -1, concat},
    {"jet_like", 2, like},
    {"jet_divide", 2, ofTwo<divide>},
    {"jet_int_divide", 2, ofTwo<divideWhole>},
    {"jet_mod", 2, ofTwo<remainderOf>},
    {"jet_power", 2, ofTwo<power>},
};

} // namespace

void registerJetFunctions(sqlite3 *connection)
{
    for (const Entry &entry : entries) {
        sqlite3_create_function(connection, entry.name, entry.arguments, SQLITE_UTF8, nullptr, entry.function, nullptr,
                                nullptr);
    }
    sqlite3_create_function(connection, "jet_sum", 1, SQLITE_UTF8, nullptr, nullptr, sumStep, sumFinal);
    sqlite3_create_function(connection, "jet_sum_money", 1, SQLITE_UTF8, nullptr, nullptr, moneyStep, moneyFinal);
}

std::optional<RuntimeError> runtimeErrorFrom(const QString &message)
{
    // A statement may be in order and still be nested deeper than SQLite's own parser can follow.
    if (message.startsWith(QLatin1String("parser stack overflow")) ||
        message.startsWith(QLatin1String("Expression tree is too large")))
        return runtimeError(3360, {}, message);
    const QLatin1String prefix(errorPrefix);
    if (!message.startsWith(prefix))
        return {};
    return runtimeError(QStringView(message).sliced(prefix.size()).toInt());
}
