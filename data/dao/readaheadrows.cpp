#include "data/dao/readaheadrows.h"

#include "data/engines/sqlite/storedvalue.h"
#include <cstring>

// A column stands as one byte for its kind and its payload: nothing for Null, 8 bytes for numbers, and for text
// a 4-byte length and the bytes.

namespace {
constexpr size_t ChunkSize = 256 * 1024;
constexpr char Null = 0, Integer = 1, Real = 2, Text = 3;
} // namespace

void ReadAheadRows::put(const void *data, size_t size)
{
    m_pending.append(static_cast<const char *>(data), size);
}

void ReadAheadRows::append(const Statement &statement)
{
    m_pending.clear();
    for (int column = 0; column < int(m_offsets.size()); ++column) {
        sqlite3_stmt *handle = statement.handle();
        switch (sqlite3_column_type(handle, column)) {
        case SQLITE_NULL:
            m_pending.push_back(Null);
            break;
        case SQLITE_INTEGER: {
            const qint64 number = sqlite3_column_int64(handle, column);
            m_pending.push_back(Integer);
            put(&number, sizeof(number));
            break;
        }
        case SQLITE_FLOAT: {
            const double number = sqlite3_column_double(handle, column);
            m_pending.push_back(Real);
            put(&number, sizeof(number));
            break;
        }
        default: {
            const unsigned char *text = sqlite3_column_text(handle, column);
            const quint32 size = quint32(sqlite3_column_bytes(handle, column));
            m_pending.push_back(Text);
            put(&size, sizeof(size));
            put(text, size);
        }
        }
    }
    // A chunk is never grown beyond what it reserved, so that the current row stays where it is.
    if (m_chunks.empty() || m_chunks.back().size() + m_pending.size() > m_chunks.back().capacity()) {
        m_chunks.emplace_back();
        m_chunks.back().reserve(std::max(m_chunks.size() == 1 ? m_pending.size() * 4 : ChunkSize, m_pending.size()));
    }
    m_chunks.back() += m_pending;
}

bool ReadAheadRows::next()
{
    if (!m_chunks.empty() && m_next == m_chunks.front().size()) {
        m_chunks.pop_front();
        m_next = 0;
    }
    m_row = nullptr;
    if (m_chunks.empty())
        return false;
    m_row = m_chunks.front().data() + m_next;
    size_t offset = 0;
    for (quint32 &start : m_offsets) {
        start = quint32(offset);
        const char kind = m_row[offset++];
        quint32 size = kind == Null ? 0 : sizeof(qint64);
        if (kind == Text) {
            std::memcpy(&size, m_row + offset, sizeof(size));
            offset += sizeof(size);
        }
        offset += size;
    }
    m_next += offset;
    return true;
}

template <typename T> T ReadAheadRows::payload(int column) const
{
    T value;
    std::memcpy(&value, m_row + m_offsets[size_t(column)] + 1, sizeof(value));
    return value;
}

Value ReadAheadRows::value(int column, ColumnType type) const
{
    switch (kind(column)) {
    case Null:
        return {};
    case Integer:
        return StoredValue::fromInteger(payload<qint64>(column), type);
    case Real:
        return StoredValue::fromReal(payload<double>(column), type);
    default: {
        const char *text = m_row + m_offsets[size_t(column)] + 1 + sizeof(quint32);
        return StoredValue::fromText({text, payload<quint32>(column)}, type);
    }
    }
}

qint64 ReadAheadRows::integer(int column) const
{
    return kind(column) == Integer ? payload<qint64>(column) : 0;
}
