#pragma once

#include "data/engine/errorcontext.h"
#include "data/engine/storedvalue.h"
#include <QByteArray>
#include <memory>
#include <sqlite3.h>
#include <vector>

/// One prepared statement of SQLite's C interface. Knows for whom it runs, so that a step that fails raises the error
/// that a user sees.
class PreparedStatement
{
public:
    PreparedStatement() = default;
    PreparedStatement(sqlite3_stmt *handle, QByteArray sql);

    /// The file and the action that a failing step is told of.
    void setErrorContext(const QString &file, const ErrorContext &context);

    explicit operator bool() const { return m_handle != nullptr; }
    sqlite3_stmt *handle() const { return m_handle.get(); }
    const QByteArray &sql() const { return m_sql; }

    /// Binds a value in its stored form to the parameter of that number, counted from 1.
    void bind(int parameter, const Value &value);
    void bind(int parameter, const QByteArray &utf8);
    /// Binds values to the first parameters.
    void bind(const std::vector<Value> &values);
    void bind(int parameter, qint64 number) { sqlite3_bind_int64(handle(), parameter, number); }

    /// Goes to the next row, at first the first one; false behind the last. Errors as errorFor.
    bool next();
    /// Runs to the end.
    void finish();
    /// True when the first step found other tables in the file than the statement was prepared for, and either failed
    /// or went on with the new ones.
    bool sawOtherTables() const { return m_sawOtherTables; }
    /// Ends the walk and frees its locks; the bound values are dropped too.
    void reset();

    qint64 integer(int column) const { return sqlite3_column_int64(handle(), column); }
    QString text(int column) const;
    QByteArray bytes(int column) const;
    /// The column of the current row as it is stored, and as a value of that type.
    Cell cell(int column) const;
    Value value(int column, ColumnType type) const { return StoredValue::from(cell(column), type); }

private:
    [[noreturn]] void fail(int code) const;
    /// A column's text, nullptr for Null. SQLite has none to give either where it has no memory for it: error 7.
    const char *utf8(int column) const;

    struct Finalizer
    {
        void operator()(sqlite3_stmt *handle) const { sqlite3_finalize(handle); }
    };

    std::unique_ptr<sqlite3_stmt, Finalizer> m_handle;
    QByteArray m_sql;
    QString m_file;
    ErrorContext m_context;
    bool m_begun = false;
    bool m_sawOtherTables = false;
};
