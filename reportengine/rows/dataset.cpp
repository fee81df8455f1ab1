#include "reportengine/rows/dataset.h"

#include <QMap>
#include <QStringList>

Dataset datasetOf(const QString &fields)
{
    static const QMap<QString, FieldType> types{{"T", FieldType::Text},      {"T100", FieldType::Text100},
                                                {"N", FieldType::Number},    {"I", FieldType::Integer},
                                                {"C", FieldType::Currency},  {"D", FieldType::Date},
                                                {"DT", FieldType::DateTime}, {"M", FieldType::Memo}};
    Dataset dataset;
    for (const QString &field : fields.split(',')) {
        const QStringList parts = field.trimmed().split(' ');
        Q_ASSERT(parts.size() == 2 && types.contains(parts[1]));
        dataset.push_back({parts[0], types[parts[1]]});
    }
    return dataset;
}
