#pragma once

#include <QString>
#include <optional>

// The platform's conversions between text and numbers. English (US) whatever the machine's locale.

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
