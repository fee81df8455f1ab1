#include "data/workbook/compoundfile.h"
#include "data/workbook/bytereader.h"

namespace {

constexpr qsizetype HeaderSize = 512;
constexpr quint32 LastSectorNumber = 0xFFFFFFFA; ///< greater ones mark ends and unused places
constexpr int EntrySize = 128;
constexpr int StreamEntry = 2;
constexpr int RootEntry = 5;

} // namespace

CompoundFile::CompoundFile(QByteArray content) : m_content(std::move(content))
{
    ByteReader header(m_content);
    if (header.bytes(8) != QByteArrayView("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", 8))
        throw DamagedFile();
    header.skip(22);
    const int sectorBits = header.u16();
    const int smallSectorBits = header.u16();
    if (sectorBits < 7 || sectorBits > 16 || smallSectorBits >= sectorBits)
        throw DamagedFile();
    m_sectorSize = 1 << sectorBits;
    m_smallSectorSize = 1 << smallSectorBits;
    header.skip(14);
    const quint32 directory = header.u32();
    header.skip(4);
    m_smallStreams = header.u32();
    const quint32 smallTable = header.u32();
    header.skip(4);
    quint32 moreTable = header.u32();
    header.skip(4);

    // The sectors of the sector table: the header lists the first ones, the rest stand in a chain of lists.
    std::vector<quint32> tableSectors;
    const auto addSectors = [&](ByteReader &list, int count) {
        for (int i = 0; i < count; ++i) {
            if (const quint32 number = list.u32(); number <= LastSectorNumber)
                tableSectors.push_back(number);
        }
    };
    addSectors(header, 109);
    for (qsizetype turns = m_content.size() / m_sectorSize; moreTable <= LastSectorNumber; --turns) {
        if (turns < 0)
            throw DamagedFile();
        ByteReader list(sector(moreTable));
        addSectors(list, m_sectorSize / 4 - 1);
        moreTable = list.u32();
    }
    m_next = readTable(tableSectors);
    readDirectory(directory);
    if (smallTable <= LastSectorNumber) {
        const QByteArray table = follow(smallTable);
        ByteReader numbers(table);
        while (numbers.left() >= 4)
            m_nextSmall.push_back(numbers.u32());
    }
}

QByteArrayView CompoundFile::sector(quint32 number) const
{
    // The header takes the place of a first sector, whatever the sectors' size.
    const qsizetype begin = std::max<qsizetype>(HeaderSize, m_sectorSize) + qsizetype(number) * m_sectorSize;
    if (begin >= m_content.size())
        throw DamagedFile();
    return QByteArrayView(m_content).sliced(begin, std::min<qsizetype>(m_sectorSize, m_content.size() - begin));
}

CompoundFile::Chain CompoundFile::readTable(const std::vector<quint32> &sectors) const
{
    Chain next;
    for (const quint32 number : sectors) {
        ByteReader numbers(sector(number));
        while (numbers.left() >= 4)
            next.push_back(numbers.u32());
    }
    return next;
}

void CompoundFile::readDirectory(quint32 firstSector)
{
    const QByteArray directory = follow(firstSector);
    for (qsizetype begin = 0; begin + EntrySize <= directory.size(); begin += EntrySize) {
        ByteReader entry(QByteArrayView(directory).sliced(begin, EntrySize));
        QString name;
        for (int i = 0; i < 32; ++i) {
            if (const quint16 letter = entry.u16())
                name += QChar(letter);
        }
        entry.skip(2);
        const int type = entry.u8();
        entry.skip(49);
        const quint32 first = entry.u32();
        const quint32 size = entry.u32();
        if (type == RootEntry && first <= LastSectorNumber)
            m_small = follow(first);
        m_directory.push_back({name, type, first, size});
    }
}

QByteArray CompoundFile::follow(quint32 first) const
{
    QByteArray content;
    size_t turns = 0;
    for (quint32 number = first; number <= LastSectorNumber; number = m_next[number]) {
        if (number >= m_next.size() || ++turns > m_next.size())
            throw DamagedFile();
        content += sector(number);
    }
    return content;
}

std::optional<QByteArray> CompoundFile::stream(const QString &name) const
{
    for (const Entry &entry : m_directory) {
        if (entry.type != StreamEntry || entry.name.compare(name, Qt::CaseInsensitive) != 0)
            continue;
        if (entry.size >= m_smallStreams)
            return follow(entry.firstSector).left(entry.size);
        QByteArray content;
        size_t turns = 0;
        for (quint32 number = entry.firstSector; number <= LastSectorNumber; number = m_nextSmall[number]) {
            if (number >= m_nextSmall.size() || ++turns > m_nextSmall.size())
                throw DamagedFile();
            content += m_small.mid(qsizetype(number) * m_smallSectorSize, m_smallSectorSize);
        }
        return content.left(entry.size);
    }
    return {};
}
