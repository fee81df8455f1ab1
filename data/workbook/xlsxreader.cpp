#include "data/workbook/damagedfile.h"
#include "data/workbook/limits.h"
#include "data/workbook/numberformat.h"
#include "data/workbook/package.h"
#include "data/workbook/readers.h"
#include "data/workbook/xmlpart.h"
#include <QDir>
#include <QRegularExpression>
#include <QSet>

namespace {

QByteArray partOf(Package &package, const QString &name)
{
    auto content = package.part(name);
    if (!content)
        throw DamagedFile();
    return std::move(*content);
}

/// A part that another one refers to.
struct Relation
{
    QString type; ///< the last word of it: "worksheet"
    QString target;
};

using Relations = QHash<QString, Relation>;

/// By their IDs. A part's relations stand beside it, those of the package for the empty name.
Relations relationsOf(Package &package, const QString &part)
{
    const QString folder = part.left(part.lastIndexOf('/') + 1);
    Relations relations;
    const auto content = package.part(folder + "_rels/" + part.mid(folder.size()) + ".rels");
    if (!content)
        return relations;
    XmlPart xml(*content);
    while (xml.nextElement()) {
        if (xml.localName() != QLatin1String("Relationship"))
            continue;
        // A target is meant from the part's own folder, unless it begins at the package.
        const QString target = xml.attributeText("Target");
        relations[xml.attributeText("Id")] = {xml.attributeText("Type").section('/', -1),
                                              target.startsWith('/') ? target.mid(1)
                                                                     : QDir::cleanPath(folder + target)};
    }
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
QString unescaped(const QString &text)
{
    static const QRegularExpression escape("_x([0-9A-Fa-f]{4})_");
    QString result;
    qsizetype at = 0;
    for (auto matches = escape.globalMatch(text); matches.hasNext();) {
        const auto match = matches.next();
        result += QStringView(text).sliced(at, match.capturedStart() - at);
        result += QChar(match.captured(1).toUShort(nullptr, 16));
        at = match.capturedEnd();
    }
    result += QStringView(text).sliced(at);
    return result;
}

/// The text of the element that the reader stands at, its runs joined, without the pronunciation that some carry.
QString textOf(XmlPart &xml)
{
    QString text;
    while (xml.nextChild()) {
        if (xml.localName() == QLatin1String("t"))
            text += unescaped(xml.text());
        else if (xml.localName() == QLatin1String("r"))
            text += textOf(xml);
        else
            xml.skip();
    }
    return text;
}

class XlsxReader
{
public:
    explicit XlsxReader(const QByteArray &content) : m_package(content) {}

    std::vector<Sheet> read()
    {
        // The parts may have any name; only the relations tell which is which.
        const QString workbook = targetOf(relationsOf(m_package, {}), "officeDocument");
        const Relations relations = relationsOf(m_package, workbook);
        const QStringList sheetParts = readWorkbook(workbook, relations);
        readStrings(targetOf(relations, "sharedStrings"));
        readStyles(targetOf(relations, "styles"));
        std::vector<Sheet> sheets;
        QSet<QString> known;
        for (const QString &part : sheetParts) {
            if (!part.isEmpty()) {
                if (known.contains(part))
                    throw DamagedFile(); // or each of a thousand sheets would be read anew
                known.insert(part);
                readSheet(part);
            }
            sheets.push_back(std::exchange(m_sheet, {}));
        }
        return sheets;
    }

private:
    /// The sheets' parts; empty for a sheet without cells, such as a chart.
    QStringList readWorkbook(const QString &part, const Relations &relations)
    {
        QStringList sheetParts;
        XmlPart xml(partOf(m_package, part));
        while (xml.nextElement()) {
            if (xml.localName() == QLatin1String("workbookPr")) {
                const QString from1904 = xml.attributeText("date1904");
                m_firstDay = from1904 == "1" || from1904 == "true" ? FirstDayOf1904 : 0;
            } else if (xml.localName() == QLatin1String("sheet")) {
                const Relation relation = relations.value(xml.prefixedAttribute("id"));
                // Sheets are counted in the order of their tabs, hidden ones and charts too.
                sheetParts += relation.type == "worksheet" ? relation.target : QString();
            }
        }
        return sheetParts;
    }

    void readStrings(const QString &part)
    {
        if (part.isEmpty())
            return;
        XmlPart xml(partOf(m_package, part));
        while (xml.nextElement()) {
            if (xml.localName() == QLatin1String("si"))
                m_strings.push_back(textOf(xml));
        }
    }

    void readStyles(const QString &part)
    {
        if (part.isEmpty())
            return;
        QHash<int, NumberKind> kinds; // of the formats that the file defines itself, by their numbers
        XmlPart xml(partOf(m_package, part));
        while (xml.nextElement()) {
            if (xml.localName() == QLatin1String("numFmts")) {
                for (; xml.nextChild(); xml.skip()) {
                    const int number = xml.number("numFmtId", 0, WorkbookLimits::XlsxFormats, 0);
                    kinds[number] = kindOfNumberFormat(number, xml.attributeText("formatCode"));
                }
            } else if (xml.localName() == QLatin1String("cellXfs")) {
                for (; xml.nextChild(); xml.skip()) {
                    const int number = xml.number("numFmtId", 0, WorkbookLimits::XlsxFormats, 0);
                    m_kinds.push_back(kinds.value(number, kindOfNumberFormat(number, {})));
                }
            }
        }
    }

    /// Rows and cells may leave out their place when they follow one another.
    void readSheet(const QString &part)
    {
        XmlPart xml(partOf(m_package, part));
        int row = 0, column = 0;
        while (xml.nextElement()) {
            if (xml.localName() == QLatin1String("row")) {
                row = xml.number("r", 1, WorkbookLimits::XlsxRows, row + 1);
                column = 0;
            } else if (xml.localName() == QLatin1String("c")) {
                const auto place = xml.attribute("r");
                column = place ? columnOf(*place) : column + 1;
                if (row < 1 || row > WorkbookLimits::XlsxRows || column > WorkbookLimits::XlsxColumns)
                    throw DamagedFile();
                readCell(xml, row, column);
            }
        }
    }

    /// "AB12" is 28.
    static int columnOf(const QString &reference)
    {
        int column = 0;
        for (const QChar c : reference) {
            if (c < 'A' || c > 'Z')
                break;
            column = column * 26 + (c.unicode() - 'A' + 1);
            if (column > WorkbookLimits::XlsxColumns)
                break;
        }
        if (column < 1 || column > WorkbookLimits::XlsxColumns)
            throw DamagedFile();
        return column;
    }

    void readCell(XmlPart &xml, int row, int column)
    {
        const QString type = xml.attributeText("t");
        const int style = xml.number("s", 0, WorkbookLimits::XlsxStyles, 0);
        QString content;
        while (xml.nextChild()) {
            if (xml.localName() == QLatin1String("v"))
                content = xml.text();
            else if (xml.localName() == QLatin1String("is"))
                content = textOf(xml);
            else
                xml.skip(); // a formula: its result stands beside it
        }
        // A format alone makes no cell.
        if (content.isEmpty())
            return;
        if (type == "e")
            m_sheet.set(row, column, {{}, true});
        else
            m_sheet.set(row, column, {valueOf(type, content, style)});
    }

    Value valueOf(const QString &type, const QString &content, int style) const
    {
        if (type == "s")
            return sharedString(content);
        // What a formula gave; texts typed in are shared, or stand inside of the cell.
        if (type == "str")
            return unescaped(content);
        if (type == "inlineStr")
            return content;
        if (type == "b")
            return content == "1" || content == "true";
        if (type == "d")
            return isoDate(content);
        // Some programs leave out the table of styles.
        return numberValue(finiteNumber(content), style < m_kinds.size() ? m_kinds[style] : NumberKind::Plain,
                           m_firstDay);
    }

    QString sharedString(const QString &position) const
    {
        bool isNumber = false;
        const int index = position.toInt(&isNumber);
        if (!isNumber || index < 0 || index >= m_strings.size())
            throw DamagedFile();
        return m_strings[index];
    }

    Package m_package;
    double m_firstDay = 0;
    QStringList m_strings;
    QList<NumberKind> m_kinds; ///< by cell format
    Sheet m_sheet;             ///< the one being read
};

} // namespace

std::vector<Sheet> readXlsx(const QByteArray &content)
{
    return XlsxReader(content).read();
}
