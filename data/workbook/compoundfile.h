#pragma once

#include <QByteArray>
#include <QString>
#include <optional>
#include <vector>

/// A file of the office programs up to 2003: streams by name, each a chain of sectors.
class CompoundFile
{
public:
    /// DamagedFile when it is none.
    explicit CompoundFile(QByteArray content);

    /// Nothing when there is no stream of that name in the file's root; DamagedFile when its chain is broken.
    std::optional<QByteArray> stream(const QString &name) const;

private:
    using Chain = std::vector<quint32>; ///< the sector that follows each one

    struct Entry
    {
        QString name;
        int type;
        quint32 firstSector;
        quint32 size;
    };

    QByteArrayView sector(quint32 number) const;
    Chain readTable(const std::vector<quint32> &sectors) const;
    void readDirectory(quint32 firstSector);
    QByteArray follow(quint32 first) const;

    QByteArray m_content;
    int m_sectorSize = 0;
    int m_smallSectorSize = 0;
    quint32 m_smallStreams = 0; ///< streams below this size lie in the small sectors
    Chain m_next, m_nextSmall;
    std::vector<Entry> m_directory;
    QByteArray m_small; ///< all small sectors
};
