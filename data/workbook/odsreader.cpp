#include "data/workbook/damagedfile.h"
#include "data/workbook/limits.h"
#include "data/workbook/numberformat.h"
#include "data/workbook/package.h"
#include "data/workbook/readers.h"
#include "data/workbook/xmlpart.h"
#include <QRegularExpression>

// Open document spreadsheets: one document of all sheets, in which each cell tells the type of its value.

namespace {

/// "PT12H30M00S" as a part of a day.
Value timeValue(const QString &duration)
{
    static const QRegularExpression form("^PT(\\d{1,6})H(\\d{1,6})M(\\d{1,6}(?:\\.\\d*)?)S$");
    const auto match = form.match(duration);
    if (!match.hasMatch())
        return duration;
    return Date((match.captured(1).toInt() * 60.0 + match.captured(2).toInt()) / 1440.0 +
                match.captured(3).toDouble() / 86400.0);
}

class OdsReader
{
public:
    explicit OdsReader(const QByteArray &content) : m_xml(content) {}

    std::vector<Sheet> read()
    {
        readContent();
        return std::move(m_sheets);
    }

private:
    bool isElement(const char *name) const { return m_xml.name() == QLatin1String(name); }

    void readContent()
    {
        while (m_xml.nextChild()) {
            if (isElement("office:document-content") || isElement("office:body") || isElement("office:spreadsheet")) {
                readContent();
            } else if (isElement("table:table")) {
                m_row = 1;
                m_sheets.emplace_back();
                readRows();
            } else {
                m_xml.skip();
            }
        }
    }

    void readRows()
    {
        while (m_xml.nextChild()) {
            if (isElement("table:table-row"))
                readRow();
            else if (isElement("table:table-rows") || isElement("table:table-row-group") ||
                     isElement("table:table-header-rows"))
                readRows();
            else
                m_xml.skip();
        }
    }

    /// `count` places from `first` on, none of them beyond the last one.
    static Sheet::Range rangeOf(int first, int count, int last)
    {
        if (first > last || count > last - first + 1)
            throw DamagedFile();
        return {first, first + count - 1};
    }

    void readRow()
    {
        const auto rows = rangeOf(m_row, m_xml.number("table:number-rows-repeated", 1, WorkbookLimits::OdsRows, 1),
                                  WorkbookLimits::OdsRows);
        int column = 1;
        while (m_xml.nextChild()) {
            const int count = m_xml.number("table:number-columns-repeated", 1, WorkbookLimits::OdsColumns, 1);
            const auto columns = rangeOf(column, count, WorkbookLimits::OdsColumns);
            readCell(rows, columns);
            column = columns.last + 1;
        }
        m_row = rows.last + 1;
    }

    void readCell(Sheet::Range rows, Sheet::Range columns)
    {
        const QString type = m_xml.attributeText("office:value-type");
        // To the format itself an error is a text like any other; this extension alone tells.
        const bool isError = m_xml.attributeText("calcext:value-type") == "error";
        // The value, not the text shown: that has the cell's format.
        const auto written = m_xml.attribute(attributeOf(type));
        QStringList paragraphs;
        while (m_xml.nextChild()) {
            if (isElement("text:p"))
                paragraphs += paragraph();
            else
                m_xml.skip(); // such as a comment
        }
        // Without a type a cell is blank, whatever format it has. Rows of such may stand there by the million.
        if (!type.isEmpty())
            m_sheets.back().fill(rows, columns, {valueOf(type, written, paragraphs.join('\n')), isError});
    }

    /// The text of a paragraph; blanks that must not be lost are elements of their own.
    QString paragraph()
    {
        QString text;
        for (int depth = 1; depth > 0;) {
            switch (m_xml.next()) {
            case QXmlStreamReader::Characters:
                text += m_xml.characters();
                break;
            case QXmlStreamReader::StartElement:
                ++depth;
                text += blank();
                break;
            case QXmlStreamReader::EndElement:
                --depth;
                break;
            default:
                break;
            }
            if (text.size() > WorkbookLimits::OdsText)
                throw DamagedFile();
        }
        return text;
    }

    /// What the element at hand stands for in a paragraph, besides what is in it.
    QString blank()
    {
        if (isElement("text:tab"))
            return "\t";
        if (isElement("text:line-break"))
            return "\n";
        if (!isElement("text:s"))
            return {};
        const int count = m_xml.number("text:c", 0, WorkbookLimits::OdsText, 1);
        m_blanks += count;
        if (m_blanks > WorkbookLimits::OdsBlanks)
            throw DamagedFile();
        return QString(count, u' ');
    }

    /// Where a value of the type stands.
    static const char *attributeOf(const QString &type)
    {
        return type == "date"      ? "office:date-value"
               : type == "time"    ? "office:time-value"
               : type == "boolean" ? "office:boolean-value"
               : type == "string"  ? "office:string-value"
                                   : "office:value";
    }

    static Value valueOf(const QString &type, const std::optional<QString> &written, const QString &shown)
    {
        const QString value = written.value_or(QString());
        if (type == "float" || type == "percentage")
            return finiteNumber(value);
        if (type == "currency")
            return numberValue(finiteNumber(value), NumberKind::Money);
        if (type == "date")
            return isoDate(value);
        if (type == "time")
            return timeValue(value);
        if (type == "boolean")
            return value == "true";
        return written ? value : shown;
    }

    XmlPart m_xml;
    std::vector<Sheet> m_sheets;
    int m_row = 1;
    int m_blanks = 0;
};

} // namespace

std::vector<Sheet> readOds(const QByteArray &content)
{
    Package package(content);
    const auto document = package.part("content.xml");
    if (!document)
        throw DamagedFile();
    return OdsReader(*document).read();
}
