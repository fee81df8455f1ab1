#include "tests/support/printers.h"

#include "data/values/runtimeerror.h"

void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}

void PrintTo(const Date &date, std::ostream *out)
{
    *out << date.toIso().toStdString();
}

void PrintTo(const Value &value, std::ostream *out)
{
    static const char *const types[] = {"Null", "Boolean", "Long", "Double", "Currency", "Date", "Text"};
    *out << types[int(value.type())];
    if (!value.isNull())
        *out << ' ' << value.toText().toStdString();
}

static bool unwound = false;

void noteUnwindingThroughQt()
{
    unwound = true;
}

/// Asked by the leak sanitizer, where there is one, before it looks for leaks.
extern "C" int __lsan_is_turned_off()
{
    return unwound;
}

int errorNumberOf(const std::function<void()> &call)
{
    try {
        call();
    } catch (const RuntimeError &error) {
        return error.number();
    }
    return 0;
}

QString errorTextOf(const std::function<void()> &call)
{
    try {
        call();
    } catch (const RuntimeError &error) {
        return error.description();
    }
    return {};
}
