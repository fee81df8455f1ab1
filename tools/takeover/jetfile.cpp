#include "tools/takeover/jetfile.h"

#include "tools/toolerror.h"
#include <QFile>
#include <QFileInfo>
#include <cstring>

// In this order: mdbtools.h includes glib.h inside of extern "C", and glib's templates cannot stand there.
#include <glib.h>
#include <mdbtools.h>

namespace {

/// The flags of a row's place on its page. A row that was moved to another page leaves a pointer with the second one;
/// a deleted row has both, and the moved row itself, where it lies now, the first.
constexpr int PlaceMask = 0x1fff, PointerOrDeleted = 0x4000;

struct Closer
{
    void operator()(MdbHandle *handle) const { mdb_close(handle); }
    void operator()(MdbTableDef *table) const { mdb_free_tabledef(table); }
};
using Handle = std::unique_ptr<MdbHandle, Closer>;
using Definition = std::unique_ptr<MdbTableDef, Closer>;

template <typename T> T numberAt(const char *bytes)
{
    T number;
    std::memcpy(&number, bytes, sizeof(T)); // Jet stores as this machine does, the low byte first
    return number;
}

/// A text of Jet 4: UTF-16 with the low byte first, or behind the bytes FF FE compressed: there one byte stands for a
/// character of Latin-1, and a zero byte switches to two bytes for each and back. (The library's conversion would put
/// question marks for what it does not know.)
QString jetText(const QByteArray &bytes)
{
    const auto pair = [&](qsizetype at) { return QChar(ushort(uchar(bytes[at]) | ushort(uchar(bytes[at + 1])) << 8)); };
    const bool packed = bytes.startsWith("\xff\xfe");
    bool single = packed;
    QString text;
    for (qsizetype at = packed ? 2 : 0; at < bytes.size();) {
        if (packed && bytes[at] == 0) {
            single = !single;
            ++at;
        } else if (single) {
            text += QLatin1Char(bytes[at++]);
        } else if (at + 1 < bytes.size()) {
            text += pair(at);
            at += 2;
        } else {
            break;
        }
    }
    return text;
}

/// Reads the rows of one table.
class Rows
{
public:
    Rows(MdbHandle *mdb, MdbTableDef *table, qint64 pages) : m_mdb(mdb), m_table(table), m_pages(pages) {}

    /// Returns how many rows and pages could not be read.
    qint64 readInto(JetSink &sink)
    {
        qint64 damaged = 0;
        for (qint64 page = nextPage(0); page > 0; page = nextPage(page)) {
            if (!mdb_read_pg(m_mdb, ulong(page)) || !isOurs()) {
                // The library's own walk ends at such a page without a word.
                damaged += !m_searching;
                continue;
            }
            const int count = mdb_get_int16(m_mdb->pg_buf, m_mdb->fmt->row_count_offset);
            for (int row = 0; row < count; ++row)
                damaged += !readRow(row, sink);
        }
        return damaged;
    }

private:
    /// The page behind one that belongs to the table, 0 behind the last. Where the map of them cannot be read, all
    /// pages of the file are tried.
    qint64 nextPage(qint64 page)
    {
        if (!m_searching) {
            const qint64 next = mdb_map_find_next(m_mdb, m_table->usage_map, uint(m_table->map_sz), guint32(page));
            if (next >= 0)
                return next > page ? next : 0;
            m_searching = true;
            page = 0;
        }
        return page + 1 < m_pages ? page + 1 : 0;
    }

    bool isOurs() const
    {
        return m_mdb->pg_buf[0] == MDB_PAGE_DATA && mdb_get_int32(m_mdb->pg_buf, 4) == long(m_table->entry->table_pg);
    }

    /// False for a row that is there and cannot be read.
    bool readRow(int row, JetSink &sink)
    {
        int start = 0;
        size_t size = 0;
        if (mdb_find_row(m_mdb, row, &start, &size) != 0)
            return false;
        if (start & PointerOrDeleted)
            return true;
        start &= PlaceMask;
        // It fills one field for each column of the table, and returns the row's own count of columns, which is
        // higher where columns have been deleted and lower where some were added: no bound for the fields.
        std::vector<MdbField> fields(m_table->num_cols);
        const int columns = size > 0 ? mdb_crack_row(m_table, start, size, fields.data()) : -1;
        if (columns < 0)
            return false;
        // Reading a memo swaps pages under the row.
        const QByteArray bytes(reinterpret_cast<const char *>(m_mdb->pg_buf), int(m_mdb->fmt->pg_size));
        std::vector<JetCell> cells;
        for (uint i = 0; i < m_table->num_cols; ++i) {
            const auto *column = static_cast<const MdbColumn *>(g_ptr_array_index(m_table->columns, i));
            const MdbField &field = fields[i];
            // A row older than the column has no bit for it.
            const bool null = field.is_null || column->col_num >= columns;
            if (column->col_type == MDB_BOOL) {
                cells.emplace_back(Value(!null)); // the bit itself is the value
            } else if (null) {
                cells.emplace_back(Value());
            } else if (field.siz < 0 || field.start < start || field.start + field.siz > start + int(size)) {
                return false;
            } else {
                cells.push_back(cell(*column, bytes.mid(field.start, field.siz)));
            }
        }
        sink.row(cells);
        return true;
    }

    JetCell cell(const MdbColumn &column, const QByteArray &bytes)
    {
        const char *data = bytes.constData();
        const auto has = [&](qsizetype count) { return bytes.size() >= count; };
        switch (column.col_type) {
        case MDB_BYTE:
            return has(1) ? JetCell(Value(int(numberAt<quint8>(data)))) : JetCell();
        case MDB_INT:
            return has(2) ? JetCell(Value(int(numberAt<qint16>(data)))) : JetCell();
        case MDB_LONGINT:
            return has(4) ? JetCell(Value(numberAt<qint32>(data))) : JetCell();
        case MDB_MONEY:
            return has(8) ? JetCell(Value(Currency{numberAt<qint64>(data)})) : JetCell();
        case MDB_FLOAT:
            return has(4) ? JetCell(Value(double(numberAt<float>(data)))) : JetCell();
        case MDB_DOUBLE:
            return has(8) ? JetCell(Value(numberAt<double>(data))) : JetCell();
        case MDB_DATETIME:
            return has(8) ? date(numberAt<double>(data)) : JetCell();
        case MDB_TEXT:
            return text(bytes);
        case MDB_MEMO:
            return memo(bytes);
        default:
            return {};
        }
    }

    /// By the number itself: as a text the library gives dates from 1900 to about 4637 only.
    static JetCell date(double serial)
    {
        if (!(serial >= Date::Least && serial < Date::Beyond))
            return {};
        return Value(Date(serial));
    }

    JetCell text(const QByteArray &bytes) const
    {
        if (!IS_JET3(m_mdb))
            return jetText(bytes);
        // One byte a character, in the code page of the file's header; in UTF-8 it takes up to three.
        QByteArray utf8(bytes.size() * 4 + 1, '\0');
        const int length =
            mdb_unicode2ascii(m_mdb, bytes.constData(), size_t(bytes.size()), utf8.data(), size_t(utf8.size()));
        return Value(QString::fromUtf8(utf8.constData(), length));
    }

    /// The twelve bytes in the row tell how long a memo is and where: behind them, in one row of another page, or in
    /// a chain of rows, each with the place of the next one before its bytes.
    JetCell memo(const QByteArray &bytes)
    {
        if (bytes.size() < MDB_MEMO_OVERHEAD)
            return {};
        const auto head = numberAt<quint32>(bytes.constData());
        const qsizetype length = head & 0x3fffffff;
        quint32 place = numberAt<quint32>(bytes.constData() + 4);
        QByteArray whole;
        if (head & 0x80000000) {
            whole = bytes.mid(MDB_MEMO_OVERHEAD);
        } else if (head & 0x40000000) {
            whole = rowAt(place);
        } else {
            for (qint64 rows = 0; place != 0 && whole.size() < length; ++rows) {
                const QByteArray piece = rowAt(place);
                if (piece.size() < 4 || rows > m_pages * 256) // a chain that bites its tail
                    return {};
                place = numberAt<quint32>(piece.constData());
                whole += piece.mid(4);
            }
        }
        if (whole.size() < length)
            return {};
        return text(whole.first(length));
    }

    /// The bytes of a row anywhere in the file, empty if there is none.
    QByteArray rowAt(quint32 place)
    {
        void *page = nullptr;
        int start = 0;
        size_t size = 0;
        if (mdb_find_pg_row(m_mdb, int(place), &page, &start, &size) != 0)
            return {};
        return QByteArray(static_cast<const char *>(page) + start, qsizetype(size));
    }

    MdbHandle *m_mdb;
    MdbTableDef *m_table;
    qint64 m_pages; ///< of the whole file
    bool m_searching = false;
};

/// Only counts.
class Counter : public JetSink
{
public:
    void begin(const JetTable &) override {}
    void row(const std::vector<JetCell> &) override { ++rows; }
    void end(qint64) override {}

    qint64 rows = 0;
};

/// The list of all tables is a table too. The library passes over what it cannot read of it, and with it over tables.
void countCatalogue(MdbHandle *mdb, qint64 pages, JetSink &sink)
{
    MdbCatalogEntry entry = {};
    entry.mdb = mdb;
    entry.object_type = MDB_TABLE;
    entry.table_pg = 2; // where it lies in every file
    const Definition definition(mdb_read_table(&entry));
    if (!definition || !mdb_read_columns(definition.get()))
        throw ToolError{"the list of its tables cannot be read: it is encrypted or damaged"};
    Counter counter;
    const qint64 damaged = Rows(mdb, definition.get(), pages).readInto(counter);
    JetTable table;
    table.name = JetCatalogue;
    table.rows = definition->num_rows;
    sink.begin(table);
    sink.end(std::max(damaged, table.rows - counter.rows));
}

void readTable(MdbHandle *mdb, MdbCatalogEntry *entry, qint64 pages, bool wanted, JetSink &sink)
{
    JetTable table;
    table.name = QString::fromUtf8(entry->object_name);
    table.linked = entry->object_type == MDB_LINKED_TABLE;
    // Its rows lie in a file whose path may mean nothing on this machine.
    if (table.linked) {
        sink.begin(table);
        sink.end(0);
        return;
    }
    const Definition definition(mdb_read_table(entry));
    if (!definition || !mdb_read_columns(definition.get()))
        throw ToolError{QString("the table '%1' cannot be read: the file is damaged").arg(table.name)};
    table.rows = definition->num_rows;
    for (uint i = 0; i < definition->num_cols; ++i)
        table.columns +=
            QString::fromUtf8(static_cast<const MdbColumn *>(g_ptr_array_index(definition->columns, i))->name);
    sink.begin(table);
    sink.end(wanted ? Rows(mdb, definition.get(), pages).readInto(sink) : 0);
}

} // namespace

void readJet(const QString &path, const std::function<bool(const QString &table)> &wanted, JetSink &sink)
{
    const Handle mdb(mdb_open(QFile::encodeName(path).constData(), MDB_NOFLAGS));
    const qint64 pages = mdb ? QFileInfo(path).size() / mdb->fmt->pg_size : 0;
    if (pages == 0)
        throw ToolError{"no Jet database, or of a version that cannot be read"};
    // The password of such a file stands in its header and protects nothing: it is not asked for.
    if (!mdb_read_catalog(mdb.get(), MDB_ANY))
        throw ToolError{"the list of its tables cannot be read: it is encrypted or damaged"};
    countCatalogue(mdb.get(), pages, sink);
    for (uint i = 0; i < mdb->num_catalog; ++i) {
        auto *entry = static_cast<MdbCatalogEntry *>(g_ptr_array_index(mdb->catalog, i));
        if (mdb_is_user_table(entry) || entry->object_type == MDB_LINKED_TABLE)
            readTable(mdb.get(), entry, pages, wanted(QString::fromUtf8(entry->object_name)), sink);
    }
}
