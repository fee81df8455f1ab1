#include "bench/fuzz/containers.h"

#include <QtEndian>

namespace {

template <class Number> void put(QByteArray &bytes, Number number)
{
    const Number little = qToLittleEndian(number);
    bytes.append(reinterpret_cast<const char *>(&little), sizeof(little));
}

/// 0 outside of the bytes.
template <class Number> Number get(const QByteArray &bytes, qsizetype at)
{
    if (at < 0 || at + qsizetype(sizeof(Number)) > bytes.size())
        return 0;
    return qFromLittleEndian<Number>(bytes.constData() + at);
}

/// An archive: each part behind a head of its own, then the list of all, then where that list begins.
constexpr quint32 PartMark = 0x04034b50, ListMark = 0x02014b50, EndMark = 0x06054b50;
constexpr qsizetype PartHead = 30, ListHead = 46, EndSize = 22;

/// What the heads of a part and of its place in the list have in common. Nobody looks at the check sum.
void putHead(QByteArray &bytes, const QByteArray &name, const QByteArray &part)
{
    put<quint16>(bytes, 20); // the version needed
    bytes.append(12, '\0');  // flags, as it is, time, date, check sum
    put(bytes, quint32(part.size()));
    put(bytes, quint32(part.size()));
    put(bytes, quint16(name.size()));
    put<quint16>(bytes, 0);
}

/// A compound file: the header, the table of the sectors' followers, the directory, the streams.
constexpr quint32 Free = 0xFFFFFFFF, ChainEnd = 0xFFFFFFFE, TableSector = 0xFFFFFFFD;
constexpr qsizetype SectorSize = 512, SmallestStream = 4096;

void putEntry(QByteArray &bytes, const QByteArray &name, char type, quint32 right, quint32 child, quint32 first,
              quint32 size)
{
    QByteArray wide;
    for (const char c : name)
        wide.append(c).append('\0');
    bytes.append(wide.leftJustified(64, '\0', true));
    put(bytes, quint16(name.isEmpty() ? 0 : wide.size() + 2));
    bytes.append(type).append('\1');
    put(bytes, Free);
    put(bytes, right);
    put(bytes, child);
    bytes.append(36, '\0');
    put(bytes, first);
    put(bytes, size);
    put<quint32>(bytes, 0);
}

void putChain(QByteArray &table, quint32 &next, qsizetype sectors)
{
    for (qsizetype i = 0; i < sectors; ++i, ++next)
        put(table, i + 1 < sectors ? next + 1 : ChainEnd);
}

} // namespace

Parts archiveParts(const QByteArray &content)
{
    Parts parts;
    const qsizetype end = content.size() - EndSize;
    if (get<quint32>(content, end) != EndMark)
        return {};
    qsizetype at = get<quint32>(content, end + 16);
    for (int left = get<quint16>(content, end + 10); left > 0; --left) {
        const quint32 size = get<quint32>(content, at + 20);
        const auto nameSize = get<quint16>(content, at + 28);
        const qsizetype head = get<quint32>(content, at + 42);
        const qsizetype begin = head + PartHead + get<quint16>(content, head + 26) + get<quint16>(content, head + 28);
        const bool isStored = get<quint16>(content, at + 10) == 0;
        if (get<quint32>(content, at) != ListMark || !isStored || begin + qsizetype(size) > content.size())
            return {};
        parts[content.mid(at + ListHead, nameSize)] = content.mid(begin, size);
        at += ListHead + nameSize + get<quint16>(content, at + 30) + get<quint16>(content, at + 32);
    }
    return parts;
}

QByteArray archive(const Parts &parts)
{
    QByteArray bytes, list;
    for (auto part = parts.begin(); part != parts.end(); ++part) {
        put(list, ListMark);
        put<quint16>(list, 20);
        putHead(list, part.key(), *part);
        list.append(10, '\0'); // no remark, disk, attributes
        put(list, quint32(bytes.size()));
        list.append(part.key());
        put(bytes, PartMark);
        putHead(bytes, part.key(), *part);
        bytes.append(part.key()).append(*part);
    }
    const auto listAt = quint32(bytes.size());
    bytes.append(list);
    put(bytes, EndMark);
    put<quint32>(bytes, 0);
    put(bytes, quint16(parts.size()));
    put(bytes, quint16(parts.size()));
    put(bytes, quint32(list.size()));
    put(bytes, listAt);
    put<quint16>(bytes, 0);
    return bytes;
}

QByteArray compoundFile(const Parts &streams)
{
    QByteArray content;
    for (const QByteArray &stream : streams)
        content.append(stream.leftJustified(
            std::max(SmallestStream, (stream.size() + SectorSize - 1) / SectorSize * SectorSize), '\0'));
    const qsizetype contentSectors = content.size() / SectorSize;
    const qsizetype numbersInSector = SectorSize / 4;
    const qsizetype tableSectors = contentSectors / (numbersInSector - 1) + 1;

    QByteArray table, directory;
    for (qsizetype i = 0; i < tableSectors; ++i)
        put(table, TableSector);
    auto next = quint32(tableSectors);
    const quint32 directoryAt = next;
    putChain(table, next, 1);
    putEntry(directory, "Root Entry", 5, Free, streams.isEmpty() ? Free : 1, ChainEnd, 0);
    for (auto stream = streams.begin(); stream != streams.end(); ++stream) {
        const qsizetype size = std::max(stream->size(), SmallestStream);
        const bool isLast = std::next(stream) == streams.end();
        putEntry(directory, stream.key(), 2, isLast ? Free : 2, Free, next, quint32(size));
        putChain(table, next, (size + SectorSize - 1) / SectorSize);
    }

    QByteArray bytes("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", 8);
    bytes.append(16, '\0');
    for (const quint16 number : {0x3E, 3, 0xFFFE, 9, 6}) // versions, byte order, sizes of sectors
        put(bytes, number);
    bytes.append(10, '\0');
    put(bytes, quint32(tableSectors));
    put(bytes, directoryAt);
    put<quint32>(bytes, 0);
    put(bytes, quint32(SmallestStream));
    for (const quint32 number : {ChainEnd, 0U, ChainEnd, 0U}) // no small sectors, no further table
        put(bytes, number);
    for (quint32 i = 0; i < 109; ++i)
        put(bytes, i < tableSectors ? i : Free);
    bytes.append(table.leftJustified(tableSectors * SectorSize, '\xFF'));
    bytes.append(directory.leftJustified(SectorSize, '\0'));
    bytes.append(content);
    return bytes;
}
