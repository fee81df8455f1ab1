#pragma once

#include "data/values/value.h"
#include "tests/support/enginesundertest.h"
#include <QStringList>

using Cells = std::vector<std::pair<const char *, Value>>;

/// Adds a row to a table of gDatabase, the columns not named at their defaults; returns its ID where it has one.
QString addRow(const char *table, const Cells &cells);

/// A fresh database of a small company, open as `gDatabase` while this object stands:
///
///     warehouses  Main, North; Old is not active
///     parts       AX-100 (Axles, cost 2.5, price 10), BR-200 (Brackets, 1.25, 2.5), CX-300 (Brackets, 0.05, 0.1);
///                 ZZ-900 is not active
///     customers   Acme Rail (30 days, sheet "Gold", a dock to ship to), Birch Mill (0 days); Cobb Yard (10 days) is
///     not
///                 active
///     sheet       "Gold": AX-100 at 8.75, CX-300 at 0
class TestDatabase
{
public:
    explicit TestDatabase(EngineKind engine = chosenEngine());
    ~TestDatabase();
    TestDatabase(const TestDatabase &) = delete;
    TestDatabase &operator=(const TestDatabase &) = delete;

    /// What the program opens it by: a file's path, or a URI.
    QString path() const { return m_place->name(); }
    bool isOnServer() const { return m_engine != EngineKind::Sqlite; }
    /// Runs a statement as another tool does; see DatabasePlace.
    QString plain(const QString &sql) const { return m_place->plain(sql); }
    /// Opens another one in its place, which `make` creates under the name that it is given.
    void replaceBy(const std::function<void(const QString &)> &make);

    /// Runs one action statement.
    void execute(const QString &sql);
    /// The first column of the first row; Null when there is none.
    Value value(const QString &sql) const;
    /// Every row, its columns as text with "|" between them; a Null is empty.
    QStringList rows(const QString &sql) const;
    int count(const QString &table) const;

private:
    EngineKind m_engine;
    std::unique_ptr<DatabasePlace> m_place;
};
