#include "data/engine/readaheadrows.h"

#include <cstring>

// A column stands as one byte for its kind and its payload: nothing for Null, 8 bytes for numbers, and for text
// a 4-byte length and the bytes.

namespace {
constexpr size_t ChunkSize = 256 * 1024;
} // namespace

void ReadAheadRows::put(const void *data, size_t size)
{
    m_pending.append(static_cast<const char *>(data), size);
}

void ReadAheadRows::append(const engine::Rows &rows)
{
    m_pending.clear();
    for (int column = 0; column < int(m_offsets.size()); ++column) {
        const Cell cell = rows.cell(column);
        m_pending.push_back(char(cell.kind));
        switch (cell.kind) {
        case Cell::Null:
            break;
        case Cell::Integer:
            put(&cell.whole, sizeof(cell.whole));
            break;
        case Cell::Real:
            put(&cell.real, sizeof(cell.real));
            break;
        case Cell::Text: {
            const quint32 size = quint32(cell.utf8.size());
            put(&size, sizeof(size));
            put(cell.utf8.data(), size);
        }
        }
    }
    // A chunk is never grown beyond what it reserved, so that the current row stays where it is.
    if (m_chunks.empty() || m_chunks.back().size() + m_pending.size() > m_chunks.back().capacity()) {
        m_chunks.emplace_back();
        // The first chunk is small, since most results that are kept aside have a few rows.
        m_chunks.back().reserve(std::max(m_chunks.size() == 1 ? m_pending.size() * 4 : ChunkSize, m_pending.size()));
    }
    m_chunks.back() += m_pending;
}

bool ReadAheadRows::next()
{
    if (!m_chunks.empty() && m_next == m_chunks.front().size()) {
        // A row that was walked is never asked for again; its memory goes with its chunk.
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
        quint32 size = kind == Cell::Null ? 0 : sizeof(qint64);
        if (kind == Cell::Text) {
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
    // Copied out: a payload begins wherever the one before it ended, and a number may not be read at any address.
    std::memcpy(&value, m_row + m_offsets[size_t(column)] + 1, sizeof(value));
    return value;
}

Cell ReadAheadRows::cell(int column) const
{
    switch (kind(column)) {
    case Cell::Integer:
        return {Cell::Integer, payload<qint64>(column)};
    case Cell::Real:
        return {Cell::Real, 0, payload<double>(column)};
    case Cell::Text: {
        const char *text = m_row + m_offsets[size_t(column)] + 1 + sizeof(quint32);
        return {Cell::Text, 0, 0, {text, payload<quint32>(column)}};
    }
    default:
        return {};
    }
}
