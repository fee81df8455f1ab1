#include "data/engines/sqlite/preparedstatement.h"

#include "data/engines/sqlite/errors.h"

PreparedStatement::PreparedStatement(sqlite3_stmt *handle, QByteArray sql) : m_handle(handle), m_sql(std::move(sql)) {}

void PreparedStatement::bind(int parameter, const Value &value)
{
    switch (value.type()) {
    case Value::Type::Null:
        sqlite3_bind_null(handle(), parameter);
        break;
    // Stored as 1, though True counts as -1: the file stays readable for other tools.
    case Value::Type::Boolean:
        sqlite3_bind_int(handle(), parameter, value.toBoolean() ? 1 : 0);
        break;
    case Value::Type::Long:
        sqlite3_bind_int(handle(), parameter, value.toLong());
        break;
    case Value::Type::Double:
    case Value::Type::Currency:
        sqlite3_bind_double(handle(), parameter, value.toDouble());
        break;
    case Value::Type::Date:
        bind(parameter, value.toDate().toIso().toUtf8());
        break;
    case Value::Type::Text:
        bind(parameter, value.toText().toUtf8());
        break;
    }
}

void PreparedStatement::bind(int parameter, const QByteArray &utf8)
{
    // A null pointer would bind Null, and an empty text is not that.
    const int code = sqlite3_bind_text64(handle(), parameter, utf8.isNull() ? "" : utf8.constData(),
                                         sqlite3_uint64(utf8.size()), SQLITE_TRANSIENT, SQLITE_UTF8);
    if (code != SQLITE_OK)
        fail(code); // Null would be written in its place
}

void PreparedStatement::bind(const std::vector<Value> &values)
{
    int parameter = 0;
    for (const Value &value : values)
        bind(++parameter, value);
}

void PreparedStatement::setErrorContext(const QString &file, const ErrorContext &context)
{
    m_file = file;
    m_context = context;
}

bool PreparedStatement::next()
{
    const int code = sqlite3_step(handle());
    sqlite3 *connection = sqlite3_db_handle(handle());
    if (!m_begun) {
        // Before anything else is asked: SQLite tells the reason of its latest failure only.
        m_begun = true;
        m_sawOtherTables = sqlite3_stmt_status(handle(), SQLITE_STMTSTATUS_REPREPARE, 1) > 0 ||
                           sqlite3_errcode(connection) == SQLITE_ERROR;
    }
    if (code == SQLITE_ROW || code == SQLITE_DONE)
        return code == SQLITE_ROW;
    fail(code);
}

void PreparedStatement::fail(int code) const
{
    const char *words = sqlite3_errmsg(sqlite3_db_handle(handle()));
    throw errorFor(code, QString::fromUtf8(words), m_file, m_context);
}

void PreparedStatement::finish()
{
    while (next()) {
    }
}

void PreparedStatement::reset()
{
    // The bindings too, or a long text bound last would stay in memory with the idle statement.
    sqlite3_reset(handle());
    sqlite3_clear_bindings(handle());
    m_begun = m_sawOtherTables = false;
}

const char *PreparedStatement::utf8(int column) const
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(handle(), column));
    if (!text && sqlite3_errcode(sqlite3_db_handle(handle())) == SQLITE_NOMEM)
        fail(SQLITE_NOMEM);
    return text;
}

QString PreparedStatement::text(int column) const
{
    return QString::fromUtf8(utf8(column), sqlite3_column_bytes(handle(), column));
}

QByteArray PreparedStatement::bytes(int column) const
{
    const auto *data = static_cast<const char *>(sqlite3_column_blob(handle(), column));
    return QByteArray(data, sqlite3_column_bytes(handle(), column));
}

Cell PreparedStatement::cell(int column) const
{
    switch (sqlite3_column_type(handle(), column)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return {Cell::Integer, sqlite3_column_int64(handle(), column)};
    case SQLITE_FLOAT:
        return {Cell::Real, 0, sqlite3_column_double(handle(), column)};
    default: {
        const char *text = utf8(column);
        return {Cell::Text, 0, 0, {text, size_t(sqlite3_column_bytes(handle(), column))}};
    }
    }
}
