#include "data/workbook/numberformat.h"
#include "data/workbook/package.h"
#include "data/workbook/readers.h"
#include <QDir>
#include <QRegularExpression>
#include <QXmlStreamReader>

namespace {

/// Calls `take` at the start of each element of a part. False when there is no such part or it is no whole document.
bool forEachElement(const Package &package, const QString &part, const std::function<void(QXmlStreamReader &)> &take)
{
    const auto content = package.part(part);
    if (!content)
        return false;
    QXmlStreamReader xml(*content);
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement)
            take(xml);
    }
    return !xml.hasError();
}

QString attribute(const QXmlStreamReader &xml, const char *name)
{
    return xml.attributes().value(QLatin1String(name)).toString();
}

/// A part that another one refers to.
struct Relation
{
    QString type; ///< the last word of it: "worksheet"
    QString target;
};

using Relations = QHash<QString, Relation>;

/// By their IDs. A part's relations stand beside it, those of the package for the empty name.
Relations relationsOf(const Package &package, const QString &part)
{
    const QString folder = part.left(part.lastIndexOf('/') + 1);
    Relations relations;
    forEachElement(package, folder + "_rels/" + part.mid(folder.size()) + ".rels", [&](QXmlStreamReader &xml) {
        if (xml.name() != QLatin1String("Relationship"))
            return;
        const QString target = attribute(xml, "Target");
        relations[attribute(xml, "Id")] = {attribute(xml, "Type").section('/', -1),
                                           target.startsWith('/') ? target.mid(1) : QDir::cleanPath(folder + target)};
    });
    return relations;
}

QString targetOf(const Relations &relations, const char *type)
{
    for (const Relation &relation : relations) {
        if (relation.type == QLatin1String(type))
            return relation.target;
    }
    return {};
}

/// Control characters come as "_x000D_".
QString unescaped(QString text)
{
    static const QRegularExpression escape("_x([0-9A-Fa-f]{4})_");
    for (auto match = escape.match(text); match.hasMatch(); match = escape.match(text, match.capturedStart() + 1))
        text.replace(match.capturedStart(), match.capturedLength(), QChar(match.captured(1).toUShort(nullptr, 16)));
    return text;
}

/// The text of the element that the reader stands at, its runs joined, without the pronunciation that some carry.
QString textOf(QXmlStreamReader &xml)
{
    QString text;
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1String("t"))
            text += unescaped(xml.readElementText());
        else if (xml.name() == QLatin1String("r"))
            text += textOf(xml);
        else
            xml.skipCurrentElement();
    }
    return text;
}

class XlsxReader
{
public:
    explicit XlsxReader(const Package &package) : m_package(package) {}

    std::optional<std::vector<Workbook::Sheet>> read()
    {
        const QString workbook = targetOf(relationsOf(m_package, {}), "officeDocument");
        const Relations relations = relationsOf(m_package, workbook);
        QStringList sheetParts; // empty for a sheet without cells, such as a chart
        const bool isRead = forEachElement(m_package, workbook, [&](QXmlStreamReader &xml) {
            if (xml.name() == QLatin1String("workbookPr")) {
                const QString from1904 = attribute(xml, "date1904");
                m_firstDay = from1904 == "1" || from1904 == "true" ? FirstDayOf1904 : 0;
            } else if (xml.name() == QLatin1String("sheet")) {
                const Relation relation = relations.value(sheetId(xml));
                sheetParts += relation.type == "worksheet" ? relation.target : QString();
            }
        });
        if (!isRead)
            return {};
        readStrings(targetOf(relations, "sharedStrings"));
        readStyles(targetOf(relations, "styles"));
        std::vector<Workbook::Sheet> sheets;
        for (const QString &part : sheetParts) {
            if (!part.isEmpty() && !readSheet(part))
                return {};
            sheets.push_back(std::exchange(m_sheet, {}));
        }
        return sheets;
    }

private:
    static QString sheetId(const QXmlStreamReader &xml)
    {
        for (const QXmlStreamAttribute &attribute : xml.attributes()) {
            if (attribute.name() == QLatin1String("id") && !attribute.namespaceUri().isEmpty())
                return attribute.value().toString();
        }
        return {};
    }

    void readStrings(const QString &part)
    {
        forEachElement(m_package, part, [this](QXmlStreamReader &xml) {
            if (xml.name() == QLatin1String("si"))
                m_strings.push_back(textOf(xml));
        });
    }

    void readStyles(const QString &part)
    {
        QHash<int, QString> pictures; // of the formats that the file defines itself, by their numbers
        forEachElement(m_package, part, [&](QXmlStreamReader &xml) {
            if (xml.name() == QLatin1String("numFmts")) {
                for (; xml.readNextStartElement(); xml.skipCurrentElement())
                    pictures[attribute(xml, "numFmtId").toInt()] = attribute(xml, "formatCode");
            } else if (xml.name() == QLatin1String("cellXfs")) {
                for (; xml.readNextStartElement(); xml.skipCurrentElement()) {
                    const int number = attribute(xml, "numFmtId").toInt();
                    m_kinds.push_back(kindOfNumberFormat(number, pictures.value(number)));
                }
            }
        });
    }

    /// Rows and cells may leave out their place when they follow one another.
    bool readSheet(const QString &part)
    {
        int row = 0, column = 0;
        return forEachElement(m_package, part, [&](QXmlStreamReader &xml) {
            if (xml.name() == QLatin1String("row")) {
                const int number = attribute(xml, "r").toInt();
                row = number > 0 ? number : row + 1;
                column = 0;
            } else if (xml.name() == QLatin1String("c")) {
                const int number = columnOf(attribute(xml, "r"));
                column = number > 0 ? number : column + 1;
                readCell(xml, row, column);
            }
        });
    }

    /// "AB12" is 28.
    static int columnOf(const QString &reference)
    {
        int column = 0;
        for (const QChar c : reference) {
            if (c < 'A' || c > 'Z')
                break;
            column = column * 26 + (c.unicode() - 'A' + 1);
        }
        return column;
    }

    void readCell(QXmlStreamReader &xml, int row, int column)
    {
        const QString type = attribute(xml, "t");
        const int style = attribute(xml, "s").toInt();
        QString content;
        while (xml.readNextStartElement()) {
            if (xml.name() == QLatin1String("v"))
                content = xml.readElementText();
            else if (xml.name() == QLatin1String("is"))
                content = textOf(xml);
            else
                xml.skipCurrentElement(); // a formula: its result stands beside it
        }
        if (content.isEmpty())
            return;
        if (type == "e")
            m_sheet.setError(row, column);
        else
            m_sheet.set(row, column, valueOf(type, content, style));
    }

    Value valueOf(const QString &type, const QString &content, int style) const
    {
        if (type == "s")
            return m_strings.value(content.toInt());
        if (type == "str")
            return unescaped(content);
        if (type == "inlineStr")
            return content;
        if (type == "b")
            return content == "1" || content == "true";
        if (type == "d")
            return isoDate(content);
        return numberValue(content.toDouble(), style < m_kinds.size() ? m_kinds[style] : NumberKind::Plain, m_firstDay);
    }

    const Package &m_package;
    double m_firstDay = 0;
    QStringList m_strings;
    QList<NumberKind> m_kinds; ///< by cell format
    Workbook::Sheet m_sheet;   ///< the one being read
};

} // namespace

std::optional<std::vector<Workbook::Sheet>> readXlsx(const QString &path)
{
    const auto package = Package::open(path);
    if (!package)
        return {};
    return XlsxReader(*package).read();
}
