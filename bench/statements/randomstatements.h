#pragma once

#include "data/schema/tabledef.h"
#include <QStringList>
#include <random>

/// Statements of the dialect and untidy rows to run them over, made at random and the same for the same seed.
class RandomStatements
{
public:
    struct Statement
    {
        QString sql;
        QString table;        ///< what it writes, if it does
        bool grouped = false; ///< equal texts may show another spelling
    };

    explicit RandomStatements(unsigned seed) : m_random(seed) {}

    /// The tables that statements speak of.
    static std::vector<TableDef> tables();
    /// What empties the tables and fills them anew.
    QStringList rows();
    Statement next();

private:
    enum class Type { Number, Text, Date, YesNo };
    /// A table as the statement being made calls it.
    using Scope = std::vector<const TableDef *>;

    int below(int limit) { return int(m_random() % unsigned(limit)); }
    QString pick(const QStringList &list) { return list.at(below(int(list.size()))); }
    bool oneIn(int chances) { return below(chances) == 0; }
    QString literal(ColumnType type);
    static Type typeOf(const ColumnDef &column);
    const TableDef &table();
    QString column(const Scope &scope, Type type);
    QString expression(const Scope &scope, Type type, int depth);
    QString number(const Scope &scope, int depth);
    QString condition(const Scope &scope, int depth);
    QString where(const Scope &scope);
    QString order(const Scope &scope);
    QString join(Scope &scope);
    QString failing(const Scope &scope);
    QString aggregate(const Scope &scope);
    Statement select();
    Statement group();
    Statement write();

    std::mt19937_64 m_random;
};
