#include "reportengine/pages/valuetext.h"

#include "data/values/format.h"
#include "data/values/numbers.h"
#include <QLocale>

namespace {

/// Up to four decimals, as many as are left after rounding: a sum of thirds may miss a whole number by a hair.
QString quantityText(double number)
{
    const double rounded = std::round(number * 10000) / 10000;
    return Format(rounded, rounded == std::floor(rounded) ? u"#,##0;(#,##0)" : u"#,##0.####;(#,##0.####)");
}

/// A residue too small to be printed prints as zero, without sign or parentheses.
QString moneyText(double number, QStringView picture)
{
    return Format(std::abs(number) < 0.005 ? 0.0 : number, picture);
}

QString numberText(double number, Picture picture)
{
    switch (picture) {
    case Picture::Whole:
        return Format(std::abs(number) < 0.5 ? 0.0 : number, u"#,##0;(#,##0)");
    case Picture::Quantity:
        return quantityText(number);
    case Picture::Money:
        return moneyText(number, u"#,##0.00;(#,##0.00)");
    case Picture::Price:
        // No sum, so there is no residue to hide.
        return Format(number, u"#,##0.00##;(#,##0.00##)");
    case Picture::Dollars:
        return moneyText(number, u"$#,##0.00;($#,##0.00)");
    case Picture::Percent:
        return Format(std::abs(number) < 0.0005 ? 0.0 : number * 100, u"#,##0.0%;(#,##0.0%)");
    default:
        return textOf(number);
    }
}

QString dateText(const Date &date, Picture picture)
{
    if (picture == Picture::DateTime)
        // The office's form, whatever language the desktop speaks.
        return QLocale(QLocale::English, QLocale::UnitedStates)
            .toString(QDateTime(date.date(), date.time()), "M/d/yyyy h:mm AP");
    // A column of days shows no time of day, though a row may have one.
    return picture == Picture::Date ? Date(date.date()).toText() : date.toText();
}

} // namespace

QString printedValue(const Value &value, Picture picture)
{
    switch (value.type()) {
    case Value::Type::Null:
        return {};
    case Value::Type::Long:
    case Value::Type::Double:
    case Value::Type::Currency:
        return numberText(value.toDouble(), picture);
    case Value::Type::Date:
        return dateText(value.toDate(), picture);
    default:
        return value.toText();
    }
}

bool isFigure(const Value &value)
{
    return !value.isNull() && value.type() != Value::Type::Text && value.type() != Value::Type::Boolean;
}
