#include "data/workbook/package.h"

#include "data/workbook/bytereader.h"
#include "data/workbook/limits.h"
#include <QStringList>
#include <gsf/gsf-infile-zip.h>

namespace {

void checkDirectory(const QByteArray &content)
{
    constexpr qsizetype nameLength = 28;
    int entries = 0;
    for (qsizetype at = content.indexOf("PK\x01\x02"); at >= 0; at = content.indexOf("PK\x01\x02", at + 4)) {
        if (++entries > WorkbookLimits::Parts || ByteReader(content, at + nameLength).u16() > WorkbookLimits::PartName)
            throw DamagedFile();
    }
}

} // namespace

Package::Package(const QByteArray &content)
    : m_content(content), m_bytesLeft(std::min(WorkbookLimits::SmallParts + WorkbookLimits::PartGrowth * content.size(),
                                               WorkbookLimits::PartBytes))
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
