#include "data/dao/fieldname.h"

#include "data/values/textorder.h"

namespace {

/// Compares without case. Written out for names in ASCII, since programs look fields up for every row.
bool same(QAnyStringView name, QStringView other)
{
    if (name.size() != other.size())
        return QAnyStringView::compare(name, other, Qt::CaseInsensitive) == 0;
    return name.visit([&](auto text) {
        for (qsizetype i = 0; i < other.size(); ++i) {
            const char16_t a = QChar(text[i]).unicode(), b = other[i].unicode();
            if (asciiLower(a) == asciiLower(b))
                continue;
            return (a >= 0x80 || b >= 0x80) && QAnyStringView::compare(name, other, Qt::CaseInsensitive) == 0;
        }
        return true;
    });
}

QStringView bareName(QStringView name)
{
    return name.sliced(name.lastIndexOf(u'.') + 1);
}

/// The one column for which the test holds, or -1.
template <typename Test> int theOnly(const std::vector<jetsql::ResultColumn> &columns, Test test)
{
    int found = -1;
    for (int i = 0; i < int(columns.size()); ++i) {
        if (!test(columns[size_t(i)]))
            continue;
        if (found >= 0)
            return -1;
        found = i;
    }
    return found;
}

} // namespace

int FieldName::find(const std::vector<jetsql::ResultColumn> &columns, QAnyStringView name)
{
    for (int i = 0; i < int(columns.size()); ++i) {
        if (same(name, columns[size_t(i)].name))
            return i;
    }
    // A bare name finds the one column of that name though the result names it with its table; a qualified one finds
    // its column though the result names it bare. Two candidates are none.
    const QString text = name.toString();
    const qsizetype dot = text.indexOf(u'.');
    if (dot < 0) {
        return theOnly(columns, [&](const jetsql::ResultColumn &column) {
            return !column.sourceColumn.isEmpty() && same(name, bareName(column.name));
        });
    }
    const QStringView table = QStringView(text).first(dot), column = QStringView(text).sliced(dot + 1);
    return theOnly(columns, [&](const jetsql::ResultColumn &candidate) {
        return same(table, candidate.sourceTable) && same(column, candidate.sourceColumn);
    });
}
