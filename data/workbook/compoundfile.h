#pragma once

#include "data/workbook/gsf.h"
#include <QString>
#include <optional>

/// A file of the office programs up to 2003: a folder of streams, each a chain of sectors.
class CompoundFile
{
public:
    /// DamagedFile when the content is none.
    explicit CompoundFile(const QByteArray &content);

    /// Nothing when there is no stream of that name in the file's root; DamagedFile when it is broken.
    std::optional<QByteArray> stream(const QString &name) const;

private:
    QByteArray m_content;
    GsfInfilePtr m_folder;
};
