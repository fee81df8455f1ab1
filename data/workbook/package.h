#pragma once

#include <QByteArray>
#include <QString>
#include <memory>
#include <optional>

namespace orcus {
class zip_archive;
class zip_archive_stream_blob;
} // namespace orcus

/// A document that is a zipped folder of parts, as spreadsheet programs write them.
class Package
{
public:
    /// Nothing when the file can't be read or is no such archive.
    static std::optional<Package> open(const QString &path);
    Package(Package &&) noexcept;
    ~Package();

    /// A part's content by its path in the archive ("xl/workbook.xml"); nothing when it is missing or damaged.
    std::optional<QByteArray> part(const QString &name) const;

private:
    explicit Package(QByteArray content);

    QByteArray m_content;
    std::unique_ptr<orcus::zip_archive_stream_blob> m_stream;
    std::unique_ptr<orcus::zip_archive> m_archive;
};
