#include "data/workbook/package.h"

#include "data/workbook/bytereader.h"
#include <QStringList>
#include <gsf/gsf-infile-zip.h>

namespace {

/// The archive's library compares each entry's name with all before it, and takes a step down for each folder in it.
constexpr int MostEntries = 4096;
constexpr int LongestName = 512;
/// Sheets shrink to a tenth or a twentieth.
constexpr qint64 MostGrowth = 100, AlwaysFits = 4 << 20, MostBytes = 256 << 20;

void checkDirectory(const QByteArray &content)
{
    constexpr qsizetype nameLength = 28;
    int entries = 0;
    for (qsizetype at = content.indexOf("PK\x01\x02"); at >= 0; at = content.indexOf("PK\x01\x02", at + 4)) {
        if (++entries > MostEntries || ByteReader(content, at + nameLength).u16() > LongestName)
            throw DamagedFile();
    }
}

} // namespace

Package::Package(const QByteArray &content)
    : m_content(content), m_bytesLeft(std::min(AlwaysFits + MostGrowth * content.size(), MostBytes))
{
    checkDirectory(m_content);
    m_archive.reset(gsf_infile_zip_new(gsfInput(m_content).get(), nullptr));
    if (!m_archive)
        throw DamagedFile();
}

std::optional<QByteArray> Package::part(const QString &name)
{
    const QStringList path = name.split(u'/');
    GsfInputPtr found;
    for (const QString &step : path) {
        GsfInfile *folder = found ? (GSF_IS_INFILE(found.get()) ? GSF_INFILE(found.get()) : nullptr) : m_archive.get();
        GsfInput *next = folder ? gsf_infile_child_by_name(folder, step.toUtf8().constData()) : nullptr;
        if (!next)
            return {};
        found.reset(next);
    }
    // All parts share one allowance, or a small archive of many parts could unpack without end.
    const QByteArray content = gsfContents(found.get(), m_bytesLeft);
    m_bytesLeft -= content.size();
    return content;
}
