#pragma once

#include "data/values/value.h"
#include <QStringList>
#include <QTemporaryDir>

/// A fresh database file with a few master rows, open as `gDatabase` while this object stands:
///
///     customers   Acme Supply (sheet "Dealer", 30 days), Baker Tools, Bolt & Sons; Closed Works is InActive
///     warehouses  East, Main; Old Hall is InActive
///     parts       A-100, A-200 (Pumps), B-100 (Valves), sale prices 10, 20.5, 5; Z-900 is InActive
///     sheet       "Dealer": A-100 at 9.25
class TestDatabase
{
public:
    TestDatabase();
    ~TestDatabase();
    TestDatabase(const TestDatabase &) = delete;
    TestDatabase &operator=(const TestDatabase &) = delete;

    QString path() const;

    /// Runs one action statement.
    void execute(const QString &sql);
    /// The first column of the first row; Null when there is none.
    Value value(const QString &sql) const;
    /// Every row, its columns as text with "|" between them; a Null is empty.
    QStringList rows(const QString &sql) const;
    int count(const QString &table) const;

private:
    QTemporaryDir m_folder;
};
