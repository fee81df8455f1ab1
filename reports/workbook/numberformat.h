#pragma once

#include "data/values/value.h"

/// What a cell's number format makes of its number.
enum class NumberKind { Plain, Money, Date };

/// By the format's number, for those that every spreadsheet program knows, else by its text ("mm/dd/yyyy",
/// "$#,##0.00").
NumberKind kindOfNumberFormat(int identifier, const QString &format);

/// The cell's value; `firstDay` is the date that the sheet counts its days from, as a date's number.
Value numberValue(double number, NumberKind kind, double firstDay);
