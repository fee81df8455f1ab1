#pragma once

#include "data/values/date.h"
#include <QString>
#include <optional>

// The platform's conversions between text, numbers and dates. English (US) whatever the machine's locale.

/// The leading number of a text, skipping blanks inside; 0 when there is none. Never fails on malformed text;
/// a number outside the Double range is error 6.
double Val(QStringView text);
/// True when the whole text reads as a number ("$1,234.50", "(5)", "1e3", "&HFF"); false for the empty text.
bool IsNumeric(QStringView text);
/// The value IsNumeric would accept, or nothing.
std::optional<double> numberFromText(QStringView text);
/// The same, or error 13.
double CDbl(QStringView text);
/// To 16 and 32 bits: nearest whole number, halves to even; error 6 outside the range.
qint16 CInt(double number);
qint32 CLng(double number);
/// The same from text; error 13 when it is not numeric.
qint16 CInt(QStringView text);
qint32 CLng(QStringView text);

/// A Double as text: 15 significant digits, no trailing zeros, "1E+15" and "4.16666666666667E-02" at the ends.
QString textOf(double number);
/// "True" or "False".
QString textOf(bool value);

/// Two decimals, halves to even, as the platform does it: on number * 100 in double arithmetic.
double roundTo2(double number);

/// A date out of free text, month first; nothing when it is impossible in every reading.
std::optional<Date> dateFromText(QStringView text);
/// The same, or error 13.
Date CDate(QStringView text);

/// A number printed by a picture such as "$#,##0.00;($#,##0.00)".
QString Format(double number, QStringView picture);
/// Numeric text is converted and printed by the picture; other text is returned unchanged.
QString Format(const QString &text, QStringView picture);

/// The picture of the masked money boxes, of money columns in grids, and of the invoice total.
inline constexpr QStringView MoneyBoxFormat = u"$#,##0.00;($#,##0.00)";
inline constexpr QStringView MoneyGridFormat = u"$#,###.##";
inline constexpr QStringView InvoiceTotalFormat = u"$##,##0.00";
