#include "bench/oldfiles/jetwriter.h"

#include "data/dao/database.h"
#include "data/schema/schema.h"
#include <QtEndian>
#include <numeric>

namespace {

constexpr int Catalogue = 2, Maps = 3, CatalogueRows = 4, MapBytes = 64;
/// Each table tells of some; a reader has to pass over them.
constexpr int Indexes = 2;

template <typename T> QByteArray little(T number)
{
    QByteArray bytes(sizeof(T), '\0');
    qToLittleEndian(number, bytes.data());
    return bytes;
}

void put(QByteArray &page, int offset, const QByteArray &bytes)
{
    page.replace(offset, bytes.size(), bytes);
}

QByteArray rc4(const QByteArray &key, QByteArray data)
{
    std::array<uchar, 256> state;
    std::iota(state.begin(), state.end(), 0);
    for (int i = 0, j = 0; i < 256; ++i) {
        j = (j + state[size_t(i)] + uchar(key[i % key.size()])) & 255;
        std::swap(state[size_t(i)], state[size_t(j)]);
    }
    size_t i = 0, j = 0;
    for (char &byte : data) {
        i = (i + 1) & 255;
        j = (j + state[i]) & 255;
        std::swap(state[i], state[j]);
        byte = char(uchar(byte) ^ state[(state[i] + state[j]) & 255]);
    }
    return data;
}

bool isFixed(JetWriter::Type type)
{
    return type < JetWriter::Binary;
}

int sizeOf(JetWriter::Type type)
{
    constexpr int sizes[] = {0, 0, 1, 2, 4, 8, 4, 8, 8};
    return isFixed(type) ? sizes[type] : type == JetWriter::Text ? 510 : 0;
}

/// The type that a column of ours had in an old database.
JetWriter::Type typeOf(const ColumnDef &column)
{
    switch (column.type) {
    case ColumnType::YesNo:
        return JetWriter::YesNo;
    case ColumnType::Long:
        return JetWriter::Long;
    case ColumnType::Double:
        return JetWriter::Double;
    case ColumnType::Currency:
        return JetWriter::Money;
    case ColumnType::Date:
        return JetWriter::DateTime;
    case ColumnType::Memo:
        return JetWriter::Memo;
    default:
        return JetWriter::Text;
    }
}

} // namespace

JetWriter::JetWriter(Version version, int codePage) : m_version(version), m_codePage(codePage)
{
    for (char kind : {0, 1, 2, 1, 1}) // header, free pages, catalogue, maps, the catalogue's first rows
        newPage(kind);
    put(m_pages[CatalogueRows], 4, little(quint32(Catalogue)));
    m_maps = 1; // the catalogue's own
    place(Maps, QByteArray(5 + MapBytes, '\0'));
}

int JetWriter::newPage(char kind)
{
    QByteArray page(pageSize(), '\0');
    page[0] = kind;
    page[1] = 1;
    m_pages.push_back(page);
    return int(m_pages.size()) - 1;
}

/// Rows grow from the page's end; their places stand in the list that grows from its beginning.
void JetWriter::place(int page, const QByteArray &row, int flags)
{
    QByteArray &bytes = m_pages[size_t(page)];
    const int list = m_version == Jet3 ? 8 : 12;
    const int count = qFromLittleEndian<quint16>(bytes.constData() + list);
    const int end = count == 0 ? pageSize() : qFromLittleEndian<quint16>(bytes.constData() + list + 2 * count) & 0x1fff;
    const int start = end - int(row.size());
    put(bytes, start, row);
    put(bytes, list + 2 + 2 * count, little(quint16(start | flags)));
    put(bytes, list, little(quint16(count + 1)));
}

bool JetWriter::fits(int page, qsizetype size) const
{
    const QByteArray &bytes = m_pages[size_t(page)];
    const int list = m_version == Jet3 ? 8 : 12;
    const int count = qFromLittleEndian<quint16>(bytes.constData() + list);
    const int end = count == 0 ? pageSize() : qFromLittleEndian<quint16>(bytes.constData() + list + 2 * count) & 0x1fff;
    return list + 2 + 2 * (count + 2) + size + 4 <= end;
}

void JetWriter::add(const QString &name, const std::vector<Column> &columns, const std::vector<Row> &rows, int told)
{
    const int definition = newPage(2);
    m_objects.push_back({Value(definition), Value(name), Value(1), Value(0), {}});
    place(Maps, QByteArray(5 + MapBytes, '\0'));
    ++m_maps;
    writeTable(definition, columns, rows, told);
    writeRows(definition, columns, rows, m_maps - 1);
}

void JetWriter::writeTable(int definition, const std::vector<Column> &columns, const std::vector<Row> &rows, int told)
{
    const bool jet3 = m_version == Jet3;
    const int map = definition == Catalogue ? 0 : m_maps - 1;
    const auto variable =
        std::count_if(columns.begin(), columns.end(), [](const Column &c) { return !isFixed(c.type); });
    QByteArray head(jet3 ? 43 : 63, '\0');
    put(head, jet3 ? 12 : 16, little(qint32(told < 0 ? int(rows.size()) : told)));
    put(head, jet3 ? 23 : 43, little(quint16(variable)));
    put(head, jet3 ? 25 : 45, little(quint16(columns.size())));
    put(head, jet3 ? 31 : 51, little(quint32(Indexes)));
    put(head, jet3 ? 35 : 55, little(quint32(Maps << 8 | map)));
    put(head, jet3 ? 39 : 59, little(quint32(Maps << 8 | map)));
    head += QByteArray(Indexes * (jet3 ? 8 : 12), '\0');
    QByteArray entries, names;
    int offset = 0, number = 0, place = 0;
    for (const Column &column : columns) {
        QByteArray entry(jet3 ? 18 : 25, '\0');
        entry[0] = char(column.type);
        put(entry, jet3 ? 1 : 5, little(quint16(number)));
        put(entry, jet3 ? 3 : 7, little(quint16(place)));
        put(entry, jet3 ? 5 : 9, little(quint16(number)));
        entry[jet3 ? 13 : 15] = char(isFixed(column.type) ? 3 : 2);
        put(entry, jet3 ? 14 : 21, little(quint16(offset)));
        put(entry, jet3 ? 16 : 23, little(quint16(sizeOf(column.type))));
        entries += entry;
        const QByteArray name =
            jet3 ? column.name.toLatin1()
                 : QByteArray(reinterpret_cast<const char *>(column.name.utf16()), column.name.size() * 2);
        names += (jet3 ? QByteArray(1, char(name.size())) : little(quint16(name.size()))) + name;
        offset += isFixed(column.type) ? sizeOf(column.type) : 0;
        place += !isFixed(column.type);
        ++number;
    }
    writeDefinition(definition, head + entries + names);
}

/// The first page holds what it can; the others follow, each with the place of the next one in its head.
void JetWriter::writeDefinition(int definition, const QByteArray &bytes)
{
    constexpr int Head = 8;
    put(m_pages[size_t(definition)], Head, bytes.sliced(Head, std::min<qsizetype>(bytes.size(), pageSize()) - Head));
    int last = definition;
    for (qsizetype done = pageSize(); done < bytes.size(); done += pageSize() - Head) {
        const int page = newPage(2);
        put(m_pages.back(), Head, bytes.mid(done, pageSize() - Head));
        put(m_pages[size_t(last)], 4, little(quint32(page)));
        last = page;
    }
}

/// Which pages are a table's: a bit each behind the first of them or, where the row of the map is too short for that,
/// on pages that the row names.
void JetWriter::writeMap(const std::vector<int> &pages, int map)
{
    const auto set = [](QByteArray &bits, int bit) { bits[bit / 8] = char(bits[bit / 8] | 1 << bit % 8); };
    QByteArray row(5 + MapBytes, '\0');
    if (pages.back() - pages.front() < MapBytes * 8) {
        put(row, 1, little(quint32(pages.front())));
        for (int page : pages)
            set(row, 5 * 8 + page - pages.front());
    } else {
        const int bits = (pageSize() - 4) * 8;
        row[0] = 1;
        for (int first = 0; first <= pages.back(); first += bits) {
            put(row, 1 + first / bits * 4, little(quint32(newPage(5))));
            for (int page : pages) {
                if (page >= first && page < first + bits)
                    set(m_pages.back(), 4 * 8 + page - first);
            }
        }
    }
    const int list = m_version == Jet3 ? 8 : 12;
    put(m_pages[Maps], qFromLittleEndian<quint16>(m_pages[Maps].constData() + list + 2 + 2 * map), row);
}

void JetWriter::writeRows(int definition, const std::vector<Column> &columns, const std::vector<Row> &rows, int map)
{
    std::vector<int> pages(definition == Catalogue ? 1 : 0, CatalogueRows);
    const auto pageFor = [&](qsizetype size) {
        if (pages.empty() || !fits(pages.back(), size)) {
            pages.push_back(newPage(1));
            put(m_pages.back(), 4, little(quint32(definition)));
        }
        return pages.back();
    };
    int number = 0;
    for (const Row &row : rows) {
        const QByteArray bytes = rowOf(columns, row);
        if (number == 0)
            place(pageFor(bytes.size()), bytes, 0xc000); // a deleted one
        const bool moved = ++number % 5 == 0;
        if (moved)
            place(pageFor(4), little(quint32(0)), 0x4000);
        place(pageFor(bytes.size()), bytes, moved ? 0x8000 : 0);
    }
    if (!pages.empty())
        writeMap(pages, map);
}

QByteArray JetWriter::rowOf(const std::vector<Column> &columns, const Row &row)
{
    QByteArray bytes = m_version == Jet3 ? QByteArray(1, char(columns.size())) : little(quint16(columns.size()));
    QByteArray mask((qsizetype(columns.size()) + 7) / 8, '\0');
    for (size_t i = 0; i < columns.size(); ++i) {
        const bool set = columns[i].type == YesNo ? row[i].toBoolean() : !row[i].isNull();
        mask[qsizetype(i / 8)] = char(mask[qsizetype(i / 8)] | set << i % 8);
        if (isFixed(columns[i].type))
            bytes += row[i].isNull() ? QByteArray(sizeOf(columns[i].type), '\0') : fixedBytes(columns[i].type, row[i]);
    }
    std::vector<int> offsets;
    for (size_t i = 0; i < columns.size(); ++i) {
        if (isFixed(columns[i].type))
            continue;
        offsets.push_back(int(bytes.size()));
        if (!row[i].isNull())
            bytes += columns[i].type == Memo   ? memoBytes(row[i].toText())
                     : columns[i].type == Text ? textBytes(row[i].toText())
                                               : row[i].toText().toLatin1();
    }
    const int count = int(offsets.size());
    offsets.push_back(int(bytes.size()));
    for (int i = count; i >= 0; --i)
        bytes += m_version == Jet3 ? QByteArray(1, char(offsets[size_t(i)])) : little(quint16(offsets[size_t(i)]));
    if (m_version != Jet3)
        return bytes + little(quint16(count)) + mask;
    // One byte an offset: the jumps tell from which column on another 256 is to be added. The length counts them in.
    const auto length = bytes.size() + 1 + mask.size();
    int jumps = 0;
    while ((length + jumps - 1) / 256 > jumps)
        ++jumps;
    QByteArray table;
    for (int jump = 1; jump <= jumps; ++jump) {
        const auto over = std::find_if(offsets.begin(), offsets.end(), [&](int o) { return o >= jump * 256; });
        table.prepend(over == offsets.end() ? char(0xff) : char(over - offsets.begin()));
    }
    return bytes + table + char(count) + mask;
}

QByteArray JetWriter::fixedBytes(Type type, const Value &value) const
{
    switch (type) {
    case Byte:
        return QByteArray(1, char(value.toLong()));
    case Integer:
        return little(qint16(value.toLong()));
    case Long:
        return little(value.toLong());
    case Money:
        return little(qint64(std::llround(value.toDouble() * 10000)));
    case Single:
        return little(float(value.toDouble()));
    case Double:
        return little(value.toDouble());
    case DateTime:
        return little(value.type() == Value::Type::Date ? value.toDate().serial() : value.toDouble());
    default:
        return {};
    }
}

QByteArray JetWriter::textBytes(const QString &text) const
{
    if (m_version == Jet3) {
        QString placed = text;
        for (QChar &c : placed) {
            if (m_codePage == 1251 && c.unicode() >= 0x410 && c.unicode() < 0x450)
                c = QChar(c.unicode() - 0x410 + 0xc0);
            else if (c == u'\u20ac')
                c = QChar(0x80);
        }
        return placed.toLatin1();
    }
    const QByteArray plain(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
    if (text.size() < 3 || std::any_of(text.begin(), text.end(), [](QChar c) { return (c.unicode() & 255) == 0; }))
        return plain;
    QByteArray packed("\xff\xfe");
    bool single = true;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if ((text[i].unicode() < 256) != single) {
            packed += '\0';
            single = !single;
        }
        packed += plain.mid(i * 2, single ? 1 : 2);
    }
    return packed;
}

/// Short ones lie in the row itself, longer ones on another page, and very long ones in a chain over several.
QByteArray JetWriter::memoBytes(const QString &text)
{
    constexpr int InRow = 60, OnPage = 1000;
    const QByteArray bytes = textBytes(text);
    const auto onPage = [&](const QByteArray &row) {
        const int page = newPage(1);
        put(m_pages.back(), 4, "LVAL");
        place(page, row);
        return quint32(page << 8);
    };
    if (bytes.size() <= InRow)
        return little(quint32(bytes.size()) | 0x80000000) + QByteArray(8, '\0') + bytes;
    if (bytes.size() <= OnPage)
        return little(quint32(bytes.size()) | 0x40000000) + little(onPage(bytes)) + QByteArray(4, '\0');
    quint32 next = 0;
    for (qsizetype start = (bytes.size() - 1) / OnPage * OnPage; start >= 0; start -= OnPage)
        next = onPage(little(next) + bytes.mid(start, OnPage));
    return little(quint32(bytes.size())) + little(next) + QByteArray(4, '\0');
}

QByteArray JetWriter::file(quint32 key)
{
    const std::vector<Column> columns{
        {"Id", Long}, {"Name", Text}, {"Type", Integer}, {"Flags", Long}, {"LvProp", Picture}};
    writeTable(Catalogue, columns, m_objects, -1);
    writeRows(Catalogue, columns, m_objects, 0);

    QByteArray &header = m_pages[0];
    header[0] = 0;
    put(header, 4, m_version == Accdb ? "Standard ACE DB" : "Standard Jet DB");
    header[0x14] = char(m_version); // in later generations of .accdb it goes up to 6
    put(header, 0x3c, little(quint16(m_codePage)));
    put(header, 0x3e, little(key));
    put(header, 0x42, key ? QByteArray("secret") : QByteArray());
    const int secret = m_version == Jet3 ? 126 : 128; // from 0x18 on, under a fixed key
    put(header, 0x18, rc4("\xC7\xDA\x39\x6B", header.mid(0x18, secret)));

    QByteArray file;
    for (quint32 page = 0; page < m_pages.size(); ++page)
        file += key && page ? rc4(little(key ^ page), m_pages[page]) : m_pages[page];
    return file;
}

QByteArray jetFileOf(Database &company, JetWriter::Version version, quint32 key)
{
    JetWriter old(version);
    for (const TableDef &table : Schema::permanentTables()) {
        std::vector<JetWriter::Column> columns;
        for (const ColumnDef &column : table.columns)
            columns.push_back({column.name.toUpper(), typeOf(column)});
        std::vector<JetWriter::Row> rows;
        Recordset all = company.OpenRecordset("SELECT * FROM [" + table.Name + "]");
        for (; !all.Eof(); all.MoveNext()) {
            rows.emplace_back();
            for (int i = 0; i < all.fieldCount(); ++i)
                rows.back().push_back(all.Fields(i).value());
        }
        old.add(table.Name.toLower(), columns, rows);
    }
    return old.file(key);
}
