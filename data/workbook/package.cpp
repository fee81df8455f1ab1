#include "data/workbook/package.h"
#include <QFile>
#include <orcus/zip_archive.hpp>
#include <orcus/zip_archive_stream.hpp>

Package::Package(QByteArray content) : m_content(std::move(content))
{
    m_stream = std::make_unique<orcus::zip_archive_stream_blob>(
        reinterpret_cast<const uint8_t *>(m_content.constData()), size_t(m_content.size()));
    m_archive = std::make_unique<orcus::zip_archive>(m_stream.get());
    m_archive->load();
}

Package::Package(Package &&) noexcept = default;
Package::~Package() = default;

std::optional<Package> Package::open(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    try {
        return Package(file.readAll());
    } catch (const std::exception &) {
        return {};
    }
}

std::optional<QByteArray> Package::part(const QString &name) const
{
    std::vector<unsigned char> content;
    try {
        if (!m_archive->read_file_entry(name.toStdString(), content))
            return {};
    } catch (const std::exception &) {
        return {};
    }
    // The library ends the buffer with zeros of its own.
    while (!content.empty() && content.back() == 0)
        content.pop_back();
    return QByteArray(reinterpret_cast<const char *>(content.data()), qsizetype(content.size()));
}
