#pragma once

#include "data/values/value.h"

/// What a cell's number format makes of its number.
enum class NumberKind { Plain, Money, Date };

/// By the format's number, for those that every spreadsheet program knows, else by its text ("mm/dd/yyyy",
/// "$#,##0.00").
NumberKind kindOfNumberFormat(int identifier, const QString &format);

/// What day 0 is in a workbook that counts its days from 1904, as a date's number; 0 in the others.
constexpr double FirstDayOf1904 = 1462;

/// The cell's value; a number that is too large for money or for a date stays a number.
Value numberValue(double number, NumberKind kind, double firstDay = 0);

/// The date of a text such as "2003-02-14T12:00:00"; another text as it stands.
Value isoDate(const QString &text);
