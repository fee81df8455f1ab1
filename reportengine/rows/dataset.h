#pragma once

#include <QString>
#include <vector>

/// Types of dataset fields: text to 50 or 100 characters, floating-point number, whole number, money, date, date with
/// time, and text of any length.
enum class FieldType { Text, Text100, Number, Integer, Currency, Date, DateTime, Memo };

constexpr bool isText(FieldType type)
{
    return type == FieldType::Text || type == FieldType::Text100 || type == FieldType::Memo;
}
constexpr bool isDate(FieldType type)
{
    return type == FieldType::Date || type == FieldType::DateTime;
}

/// A field of the one table a layout is made for; recordset columns are bound to it by name, in any case.
struct DatasetField
{
    QString name;
    FieldType type;
};

using Dataset = std::vector<DatasetField>;

/// Reads "Customer T, Total N, Orders.ID I": names with their type letters T, T100, N, I, C, D, DT, M.
Dataset datasetOf(const QString &fields);
