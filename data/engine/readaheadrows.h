#pragma once

#include "data/engine/rows.h"
#include <deque>

/// Rows read ahead and kept in memory, a few bytes more than their contents, walked once from the first to the
/// last; what lies behind the walk is freed.
class ReadAheadRows
{
public:
    explicit ReadAheadRows(int columns) : m_offsets(size_t(columns)) {}

    /// Adds the current row of a walk.
    void append(const engine::Rows &rows);
    /// Goes to the next row, at first the first one; false behind the last.
    bool next();
    /// A column of the current row.
    Cell cell(int column) const;

private:
    void put(const void *data, size_t size);
    char kind(int column) const { return m_row[m_offsets[size_t(column)]]; }
    template <typename T> T payload(int column) const;

    std::deque<std::string> m_chunks; ///< whole rows each
    std::string m_pending;            ///< the row being added
    std::vector<quint32> m_offsets;   ///< of the current row's columns
    const char *m_row = nullptr;      ///< the current row, in the first chunk
    size_t m_next = 0;                ///< where the next row begins in the first chunk
};
