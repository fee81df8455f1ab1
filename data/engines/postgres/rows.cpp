#include "data/engines/postgres/rows.h"

#include <charconv>

namespace {

/// The server's numbers for its types.
constexpr Oid Bool = 16, Int8 = 20, Int2 = 21, Int4 = 23, Float4 = 700, Float8 = 701, Numeric = 1700;

/// Every number of every row comes by here as text; read without a copy, and never by the machine's locale.
template <typename Number> Number numberOf(std::string_view text)
{
    Number number{};
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

} // namespace

namespace postgres {

Cell cellOf(const PGresult *result, int row, int column)
{
    if (PQgetisnull(result, row, column))
        return {};
    const std::string_view text(PQgetvalue(result, row, column), size_t(PQgetlength(result, row, column)));
    switch (PQftype(result, column)) {
    case Bool:
        return {Cell::Integer, text == "t"};
    case Int2:
    case Int4:
    case Int8:
        return {Cell::Integer, numberOf<qint64>(text)};
    case Float4:
    case Float8:
    case Numeric:
        return {Cell::Real, 0, numberOf<double>(text)};
    default:
        return {Cell::Text, 0, 0, text};
    }
}

Rows::Rows(Queue &queue, QByteArray sql, Parameters parameters, ErrorContext context)
    : m_queue(queue), m_sql(std::move(sql)), m_parameters(std::move(parameters)), m_context(std::move(context))
{
}

Rows::~Rows()
{
    if (m_state != State::Walking)
        return;
    m_queue.setWalking(nullptr);
    try {
        m_queue.endWalk();
    } catch (const RuntimeError &) {
        // Nobody waits for these rows; a session that is lost tells so at the next thing asked of it.
    }
}

bool Rows::next()
{
    switch (m_state) {
    case State::Unread:
        return begin();
    case State::Walking:
        return fetch();
    case State::Stored:
        return m_store.next();
    case State::Done:
        break;
    }
    return false;
}

bool Rows::begin()
{
    m_queue.release();
    m_state = State::Done;
    try {
        m_queue.walk(m_sql, m_parameters, m_context);
        m_state = State::Walking;
        m_queue.setWalking(this);
        return fetch();
    } catch (const RuntimeError &) {
        m_metOtherTables = m_queue.failedForOtherTables();
        throw;
    }
}

bool Rows::fetch()
{
    try {
        m_row = m_queue.fetch();
    } catch (const RuntimeError &) {
        m_state = State::Done;
        m_queue.setWalking(nullptr);
        throw;
    }
    if (m_row)
        return true;
    m_state = State::Done;
    m_queue.setWalking(nullptr);
    return false;
}

void Rows::readAhead()
{
    // The row at hand comes first, and is the current one in the store too.
    m_store = ReadAheadRows(PQnfields(m_row.get()));
    do
        m_store.append(*this);
    while (fetch());
    m_store.next();
    m_state = State::Stored;
}

Cell Rows::cell(int column) const
{
    return m_state == State::Stored ? m_store.cell(column) : cellOf(m_row.get(), 0, column);
}

} // namespace postgres
