#pragma once

#include "data/engine/errorcontext.h"
#include "data/engine/rows.h"
#include "data/jetsql/dialect.h"
#include "data/schema/schema.h"
#include "data/values/runtimeerror.h"
#include <QHash>
#include <functional>
#include <optional>

/// What the layers above ask of a database engine. Each engine stands in a folder of its own below data/engines and
/// is spoken to through these classes alone. Everything that fails raises the run-time error a user knows.
namespace engine {

/// How a database is opened.
struct Options
{
    QString name; ///< a file's path, or the URI of a database on a server
    QString password;
    bool exclusive = false;
    bool readOnly = false;
    QHash<QString, QString> entries; ///< what else the connect string holds, by lower-case name
};

/// Several statements that are committed as one. Rolls back unless committed.
class Transaction
{
public:
    virtual ~Transaction() = default;
    virtual void commit() = 0;
};

/// A statement in the engine's words, and the values for its parameters.
struct Written
{
    QByteArray sql;
    std::vector<Value> values;
};

/// How a table made by CREATE TABLE and one made from a result differ: the numbers copied into the latter may
/// repeat, so that an AutoNumber is no key there.
enum class Key { AutoNumberIsKey, None };

/// Reads, adds and changes single rows of one table, for a recordset over it.
class RowEdit
{
public:
    virtual ~RowEdit() = default;

    /// The row of that number in the recordset's columns, or none where it is gone. `locked`: inside a transaction,
    /// so that it stays as it is until that ends.
    virtual std::unique_ptr<Rows> read(qint64 row, bool locked, const ErrorContext &context) = 0;
    /// Adds a row, a value for each column of the table. Returns its number if `tell` asks for that.
    virtual qint64 add(const std::vector<std::optional<Value>> &values, bool tell, const ErrorContext &context) = 0;
    /// Changes the columns that have a value. False when the row is gone.
    virtual bool change(qint64 row, const std::vector<std::optional<Value>> &values, const ErrorContext &context) = 0;
};

/// One open database. An engine that need not be waited for may do what returns nothing later, in its order; what
/// fails then is raised by a later call, and nothing behind it is done.
class Connection
{
public:
    virtual ~Connection() = default;

    virtual const jetsql::Dialect &dialect() const = 0;

    /// All tables but the system's own, in the order in which they were made.
    virtual Catalog readCatalog() = 0;
    /// False after somebody made, changed or dropped a table since the catalogue was read, as far as that can be told
    /// without waiting.
    virtual bool catalogIsCurrent() = 0;
    /// The same, and waits to know for sure.
    virtual bool catalogIsSurelyCurrent() { return catalogIsCurrent(); }

    /// Told how a statement is written for the tables as they are by then: an engine that does things later may meet
    /// others than those it was written for.
    virtual void setRewrite(std::function<Written(const QString &statement)>) {}

    /// The rows of a SELECT with values for its parameters. Raises what can be told before the first row is asked for.
    virtual std::unique_ptr<Rows> open(const QByteArray &sql, const std::vector<Value> &values,
                                       const ErrorContext &context) = 0;
    virtual std::unique_ptr<RowEdit> edit(const TableDef &table, const std::vector<QString> &columns) = 0;
    /// Takes the next number for a table's AutoNumber column. It stands above every number taken before by anybody
    /// and above every one found in the table, and is spent for good, whatever becomes of the row.
    virtual qint32 takeAutoNumber(const TableDef &table, const QString &column) = 0;

    /// Told before anything is written.
    virtual void prepareToWrite() = 0;
    /// Told before a statement that may write a table's worth of rows.
    virtual void prepareToCopyRows() = 0;
    virtual std::unique_ptr<Transaction> begin(const ErrorContext &context) = 0;
    /// Runs what context.statement was written to.
    virtual void execute(const QByteArray &sql, const std::vector<Value> &values, const ErrorContext &context) = 0;
    virtual void createTable(const TableDef &table, Key key, const ErrorContext &context) = 0;
    virtual void createIndex(const Schema::Index &index, const ErrorContext &context) = 0;
    virtual void dropTable(const TableDef &table, const ErrorContext &context) = 0;

    /// Waits until everything asked for is done.
    virtual void flush() = 0;
    /// Makes what was committed survive a power failure.
    virtual void sync() = 0;
};

} // namespace engine
