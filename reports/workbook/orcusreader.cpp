#include "reports/workbook/orcussheets.h"
#include "reports/workbook/readers.h"
#include <QFile>
#include <orcus/orcus_ods.hpp>
#include <orcus/orcus_xlsx.hpp>

namespace {

template <class Filter>
std::optional<std::vector<Workbook::Sheet>> read(const QString &path, OrcusSheets::Formats formats)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray content = file.readAll();
    OrcusSheets sheets(formats);
    try {
        Filter filter(&sheets);
        filter.read_stream({content.constData(), size_t(content.size())});
    } catch (const std::exception &) {
        return {};
    }
    return sheets.take();
}

} // namespace

std::optional<std::vector<Workbook::Sheet>> readXlsx(const QString &path)
{
    return read<orcus::orcus_xlsx>(path, OrcusSheets::Formats::Matter);
}

std::optional<std::vector<Workbook::Sheet>> readOds(const QString &path)
{
    return read<orcus::orcus_ods>(path, OrcusSheets::Formats::DontMatter);
}
