#pragma once

#include "data/engine/readaheadrows.h"
#include "data/engines/postgres/queue.h"

namespace postgres {

/// A column of a result's row.
Cell cellOf(const PGresult *result, int row, int column);

/// The rows of one SELECT, fetched one by one as they are asked for. A session answers one statement at a time: when
/// anything else is asked, the rest is read into memory first.
class Rows : public engine::Rows, private Walk
{
public:
    Rows(Queue &queue, QByteArray sql, Parameters parameters, ErrorContext context);
    ~Rows() override;

    bool next() override;
    bool metOtherTables() const override { return m_metOtherTables; }
    Cell cell(int column) const override;

private:
    enum class State { Unread, Walking, Stored, Done };

    bool begin();
    bool fetch();
    void readAhead() override;

    Queue &m_queue;
    QByteArray m_sql;
    Parameters m_parameters;
    ErrorContext m_context;
    State m_state = State::Unread;
    bool m_metOtherTables = false;
    Result m_row;
    ReadAheadRows m_store{0};
};

/// The one row of a result that is here.
class SingleRow : public engine::Rows
{
public:
    explicit SingleRow(Result row) : m_row(std::move(row)) {}
    bool next() override { return false; }
    Cell cell(int column) const override { return cellOf(m_row.get(), 0, column); }

private:
    Result m_row;
};

} // namespace postgres
