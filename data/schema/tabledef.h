#pragma once

#include <QHash>
#include <QStringList>
#include <vector>

/// The column types of the engine. An AutoNumber is a Long with `autoNumber` set.
enum class ColumnType { Text, Memo, Long, Double, Currency, Date, YesNo };

struct ColumnDef
{
    QString name;
    ColumnType type = ColumnType::Text;
    int size = 0; ///< characters of a Text column, else 0
    bool autoNumber = false;
    bool defaultZero = false; ///< a new row holds 0 (or False) instead of Null
};

/// A table's name as stored and its columns in order.
class TableDef
{
public:
    QString Name;
    std::vector<ColumnDef> columns;
    bool keyed = false; ///< its AutoNumber, if it has one, is its key

    /// Position of a column by its name in any case, or -1.
    int indexOf(QAnyStringView column) const;
    QStringList columnNames() const;
};

/// The tables of one database, found by name in any case.
class Catalog
{
public:
    const TableDef *find(QAnyStringView name) const;
    void add(TableDef table);
    const std::vector<TableDef> &tables() const { return m_tables; }

private:
    std::vector<TableDef> m_tables;
    QHash<QString, int> m_index; ///< by case-folded name
};
