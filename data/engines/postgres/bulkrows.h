#pragma once

#include "data/engine/bulkrows.h"
#include "data/engines/postgres/session.h"

namespace postgres {

/// Many rows put into a database on a server in one transaction. Into a new one they are copied in bulk; into one in
/// use they go one by one, so that a row refused is told as that row.
class BulkRows : public engine::BulkRows
{
public:
    /// Errors as at opening a database.
    BulkRows(const QString &uri, const QString &password, State state);
    ~BulkRows() override;

    const Catalog &tables() const override { return m_tables; }
    std::unique_ptr<engine::RowSink> into(const TableDef &table, const QStringList &columns) override;
    void commit() override;

private:
    Uri m_uri;
    Handle m_handle;
    Catalog m_tables;
    State m_state;
};

} // namespace postgres
