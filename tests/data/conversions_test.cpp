#include "data/values/clock.h"
#include "data/values/datetext.h"
#include "data/values/format.h"
#include "data/values/numbers.h"
#include "data/values/runtimeerror.h"
#include "tests/support/datafile.h"
#include "tests/support/printers.h"
#include "tests/support/testclock.h"

#include <QLocale>
#include <cmath>

namespace {

QString shown(double number)
{
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

/// What a function of the platform gives for a text or, where it takes numbers too, for the number that the text is.
QString resultOf(const QString &function, const QString &text)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    const auto same = [isNumber](const QString &ofText, const auto &ofNumber) {
        if (isNumber) {
            EXPECT_EQ(ofNumber(), ofText);
        }
        return ofText;
    };
    if (function == "Val")
        return shown(Val(text));
    if (function == "CDbl")
        return shown(CDbl(text));
    if (function == "CInt")
        return same(QString::number(CInt(text)), [&] { return QString::number(CInt(number)); });
    if (function == "CLng")
        return same(QString::number(CLng(text)), [&] { return QString::number(CLng(number)); });
    if (function == "textOf")
        return textOf(number);
    if (function == "roundTo2")
        return shown(roundTo2(number));
    if (function == "CDate")
        return CDate(text).toIso();
    if (function == "toText") {
        const std::optional<Date> date = Date::fromIso(text);
        return date ? date->toText() : "no date";
    }
    static const QHash<QString, QStringView> pictures{
        {"box", MoneyBoxFormat}, {"grid", MoneyGridFormat}, {"total", InvoiceTotalFormat}};
    const QString name = function.section(' ', 1);
    const QStringView picture = pictures.value(name, name);
    return same(Format(text, picture), [&] { return Format(number, picture); });
}

QString unquoted(const QString &cell)
{
    const bool quoted = cell.size() > 1 && cell.startsWith('\'') && cell.endsWith('\'');
    QString text = quoted ? cell.sliced(1, cell.size() - 2) : cell;
    return text.replace("\\t", "\t").replace("\\n", "\n");
}

TEST(Conversions, GiveWhatTheTableSays)
{
    const TestClock clock("2011-06-01 08:00:00");
    for (const QString &line : linesOf("data/conversions.txt")) {
        if (line.isEmpty() || line.startsWith('#'))
            continue;
        const QStringList cells = line.split(" | ");
        ASSERT_EQ(cells.size(), 3) << line.toStdString();
        const QString text = unquoted(cells[1]);
        QString result;
        const int error = errorNumberOf([&] { result = resultOf(cells[0], text); });
        EXPECT_EQ(error ? QString("error %1").arg(error) : result, unquoted(cells[2])) << line.toStdString();
        if (cells[0] == "CDbl") {
            EXPECT_EQ(IsNumeric(text), error == 0) << line.toStdString();
        }
        if (cells[0] == "CDate") {
            EXPECT_EQ(dateFromText(text).has_value(), error == 0) << line.toStdString();
        }
    }
}

TEST(Conversions, OverflowWhereTheNumberIsNone)
{
    EXPECT_EQ(errorNumberOf([] { CInt(std::nan("")); }), 6);
}

} // namespace
