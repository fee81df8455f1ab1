#include "data/dao/bulkload.h"

#include "data/engines/sqlite/passwordgate.h"
#include "data/engines/sqlite/tables.h"

namespace {

const Doing Defining{Doing::Defining, {}, QStringLiteral("bulk load")};

ConnectionOptions optionsFor(const QString &path, BulkLoad::File file)
{
    ConnectionOptions options;
    options.file = path;
    // The log would take everything first and have it copied into the file afterwards.
    options.journal = file == BulkLoad::File::New ? Journal::Rollback : Journal::ByMount;
    return options;
}

} // namespace

BulkLoad::BulkLoad(const QString &path, const QString &password, File file)
    : m_connection(optionsFor(path, file)), m_file(file)
{
    // The same gate as for everybody: a file of another program is not written to.
    PasswordGate::check(m_connection, password, path);
    if (m_file == File::New)
        m_connection.run("PRAGMA synchronous=OFF", Defining);
    m_transaction = std::make_unique<Transaction>(m_connection, Doing{Doing::Writing, {}, Defining.statement});
    m_tables = Tables::readCatalog(m_connection);
    if (m_file == File::New) {
        for (const Schema::Index &index : Schema::indexes())
            m_connection.run("DROP INDEX IF EXISTS " + Tables::quoted(index.name), Defining);
    }
}

BulkLoad::Inserter BulkLoad::into(const QString &table, const QStringList &columns)
{
    return Inserter(*this, *m_tables.find(table), columns);
}

void BulkLoad::commit()
{
    if (m_file == File::New)
        makeIndexes();
    m_transaction->commit();
    // Whoever ran the tool takes the rows for stored once it has ended, also through a power failure.
    m_connection.syncLog();
}

void BulkLoad::makeIndexes()
{
    for (const Schema::Index &index : Schema::indexes()) {
        if (m_tables.find(index.table))
            m_connection.run(Tables::createStatement(index), Defining);
    }
}

BulkLoad::Inserter::Inserter(BulkLoad &load, const TableDef &table, const QStringList &columns)
    : m_load(load), m_doing{Doing::Writing, table.Name, QStringLiteral("bulk load into ") + table.Name}
{
    QByteArrayList names, places;
    for (const QString &column : columns) {
        names += Tables::quoted(column);
        places += "?";
    }
    const QByteArray sql =
        "INSERT INTO " + Tables::quoted(table.Name) + " (" + names.join(", ") + ") VALUES (" + places.join(", ") + ')';
    m_insert = m_load.m_connection.prepare(sql, m_doing);
}

void BulkLoad::Inserter::add(std::span<const Value> row)
{
    int parameter = 0;
    for (const Value &value : row)
        m_insert.bind(++parameter, value);
    const int code = m_insert.step();
    // A row refused leaves the others of the transaction standing; the caller decides whether to commit them.
    if (code != SQLITE_DONE)
        m_load.m_connection.raise(code, m_doing);
    m_insert.reset();
}
