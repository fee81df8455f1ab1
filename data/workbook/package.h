#pragma once

#include "data/workbook/gsf.h"
#include <QString>
#include <optional>

/// A document that is a zipped folder of parts, as spreadsheet programs write them.
class Package
{
public:
    /// DamagedFile when the content is no such archive.
    explicit Package(const QByteArray &content);

    /// A part's content by its path in the archive ("xl/workbook.xml"); nothing when it is missing. DamagedFile when it
    /// is damaged, or when all parts read so far have become far more than an archive of this size can hold.
    std::optional<QByteArray> part(const QString &name);

private:
    QByteArray m_content;
    GsfInfilePtr m_archive;
    qint64 m_bytesLeft;
};
