#include "data/workbook/compoundfile.h"

#include "data/workbook/bytereader.h"
#include "data/workbook/limits.h"
#include <gsf/gsf-infile-msole.h>
#include <vector>

namespace {

/// Greater ones mark ends and unused places.
constexpr quint32 LastSectorNumber = 0xFFFFFFFA;
constexpr qsizetype HeaderSize = 512, HeaderTableSectors = 109, EntrySize = 128, EntrySiblings = 68;

/// As much of the file's structure as tells how large its directory is. The library walks through a directory by
/// recursion and sorts it entry by entry, so that a long enough one takes minutes, or more stack than there is.
class Directory
{
public:
    explicit Directory(const QByteArray &content) : m_content(content)
    {
        ByteReader header(content);
        header.skip(30);
        const int sectorBits = header.u16();
        const int smallSectorBits = header.u16();
        if ((sectorBits != 9 && sectorBits != 12) || smallSectorBits != 6)
            throw DamagedFile();
        m_sectorSize = qsizetype(1) << sectorBits;
        header.skip(14);
        m_first = header.u32();
        header.skip(16);
        quint32 moreTable = header.u32();
        header.skip(4);
        addTableSectors(header, HeaderTableSectors);
        while (moreTable <= LastSectorNumber) {
            ByteReader list = sector(moreTable);
            addTableSectors(list, m_sectorSize / 4 - 1);
            moreTable = list.u32();
        }
    }

    void check() const
    {
        qsizetype entries = 0;
        for (quint32 number = m_first; number <= LastSectorNumber; number = next(number)) {
            entries += m_sectorSize / EntrySize;
            if (entries > WorkbookLimits::Streams)
                throw DamagedFile();
        }
        // The root stands alone. The library would read entries beside it, and give none of them back.
        ByteReader root = sector(m_first);
        root.skip(EntrySiblings);
        const quint32 siblings[] = {root.u32(), root.u32()};
        for (const quint32 sibling : siblings) {
            if (sibling != 0 && sibling <= LastSectorNumber)
                throw DamagedFile();
        }
    }

private:
    ByteReader sector(quint32 number) const
    {
        // The header takes the place of a first sector, whatever the sectors' size.
        return ByteReader(m_content, std::max(HeaderSize, m_sectorSize) + qsizetype(number) * m_sectorSize);
    }

    void addTableSectors(ByteReader &list, qsizetype count)
    {
        for (qsizetype i = 0; i < count; ++i)
            m_table.push_back(list.u32());
        if (qsizetype(m_table.size()) > m_content.size() / m_sectorSize + HeaderTableSectors)
            throw DamagedFile(); // more than the file has: the lists go round
    }

    quint32 next(quint32 number) const
    {
        const size_t place = number / (m_sectorSize / 4);
        if (place >= m_table.size())
            throw DamagedFile();
        ByteReader numbers = sector(m_table[place]);
        numbers.skip(number % (m_sectorSize / 4) * 4);
        return numbers.u32();
    }

    const QByteArray &m_content;
    qsizetype m_sectorSize = 0;
    quint32 m_first = 0;
    std::vector<quint32> m_table; ///< the sectors that tell of each sector which one follows
};

} // namespace

CompoundFile::CompoundFile(const QByteArray &content) : m_content(content)
{
    Directory(m_content).check();
    m_folder.reset(gsf_infile_msole_new(gsfInput(m_content).get(), nullptr));
    if (!m_folder)
        throw DamagedFile();
}

std::optional<QByteArray> CompoundFile::stream(const QString &name) const
{
    for (int i = 0; i < gsf_infile_num_children(m_folder.get()); ++i) {
        const char *child = gsf_infile_name_by_index(m_folder.get(), i);
        // Programs write the names in whatever case.
        if (!child || name.compare(QString::fromUtf8(child), Qt::CaseInsensitive) != 0)
            continue;
        const GsfInputPtr stream(gsf_infile_child_by_index(m_folder.get(), i));
        if (!stream)
            throw DamagedFile();
        return gsfContents(stream.get(), m_content.size());
    }
    return {};
}
