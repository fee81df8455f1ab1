#include "data/workbook/numberformat.h"
#include "data/workbook/package.h"
#include "data/workbook/readers.h"
#include <QRegularExpression>
#include <QXmlStreamReader>

// Open document spreadsheets: one document of all sheets, in which each cell tells the type of its value.

namespace {

QString attribute(const QXmlStreamReader &xml, const char *qualifiedName)
{
    return xml.attributes().value(QLatin1String(qualifiedName)).toString();
}

int countOf(const QXmlStreamReader &xml, const char *qualifiedName)
{
    return std::max(1, attribute(xml, qualifiedName).toInt());
}

/// "PT12H30M00S" as a part of a day.
Value timeValue(const QString &duration)
{
    static const QRegularExpression form("^PT(\\d+)H(\\d+)M([\\d.]+)S$");
    const auto match = form.match(duration);
    if (!match.hasMatch())
        return duration;
    return Date((match.captured(1).toInt() * 60 + match.captured(2).toInt()) / 1440.0 +
                match.captured(3).toDouble() / 86400.0);
}

/// The text of a paragraph; blanks that must not be lost are elements of their own.
QString paragraph(QXmlStreamReader &xml)
{
    QString text;
    while (!xml.atEnd()) {
        switch (xml.readNext()) {
        case QXmlStreamReader::Characters:
            text += xml.text();
            break;
        case QXmlStreamReader::StartElement:
            if (xml.qualifiedName() == QLatin1String("text:s"))
                text += QString(countOf(xml, "text:c"), ' ');
            else if (xml.qualifiedName() == QLatin1String("text:tab"))
                text += '\t';
            else if (xml.qualifiedName() == QLatin1String("text:line-break"))
                text += '\n';
            text += paragraph(xml);
            break;
        case QXmlStreamReader::EndElement:
            return text;
        default:
            break;
        }
    }
    return text;
}

class OdsReader
{
public:
    explicit OdsReader(const QByteArray &content) : m_xml(content) {}

    std::optional<std::vector<Workbook::Sheet>> read()
    {
        std::vector<Workbook::Sheet> sheets;
        while (m_xml.readNextStartElement()) {
            if (isElement("office:document-content") || isElement("office:body") || isElement("office:spreadsheet"))
                continue; // on to its children
            if (isElement("table:table")) {
                m_row = 1;
                readRows();
                sheets.push_back(std::exchange(m_sheet, {}));
            } else {
                m_xml.skipCurrentElement();
            }
        }
        // Behind the last sheet the reader stands at the ends of the elements that were entered.
        return m_xml.hasError() ? std::nullopt : std::optional(std::move(sheets));
    }

private:
    bool isElement(const char *qualifiedName) const { return m_xml.qualifiedName() == QLatin1String(qualifiedName); }

    void readRows()
    {
        while (m_xml.readNextStartElement()) {
            if (isElement("table:table-row"))
                readRow();
            else if (isElement("table:table-rows") || isElement("table:table-row-group") ||
                     isElement("table:table-header-rows"))
                readRows();
            else
                m_xml.skipCurrentElement();
        }
    }

    void readRow()
    {
        const int rows = countOf(m_xml, "table:number-rows-repeated");
        int column = 1;
        while (m_xml.readNextStartElement()) {
            const int columns = countOf(m_xml, "table:number-columns-repeated");
            readCell(rows, column, columns);
            column += columns;
        }
        m_row += rows;
    }

    void readCell(int rows, int column, int columns)
    {
        const QString type = attribute(m_xml, "office:value-type");
        const bool isError = attribute(m_xml, "calcext:value-type") == "error";
        const QXmlStreamAttributes attributes = m_xml.attributes();
        QStringList paragraphs;
        while (m_xml.readNextStartElement()) {
            if (isElement("text:p"))
                paragraphs += paragraph(m_xml);
            else
                m_xml.skipCurrentElement(); // such as a comment
        }
        if (type.isEmpty())
            return;
        const Value value = valueOf(type, attributes, paragraphs.join('\n'));
        for (int row = m_row; row < m_row + rows; ++row) {
            for (int cell = column; cell < column + columns; ++cell) {
                if (isError)
                    m_sheet.setError(row, cell);
                else
                    m_sheet.set(row, cell, value);
            }
        }
    }

    static Value valueOf(const QString &type, const QXmlStreamAttributes &attributes, const QString &shown)
    {
        const auto attribute = [&](const char *name) { return attributes.value(QLatin1String(name)).toString(); };
        if (type == "float" || type == "percentage")
            return attribute("office:value").toDouble();
        if (type == "currency")
            return numberValue(attribute("office:value").toDouble(), NumberKind::Money);
        if (type == "date")
            return isoDate(attribute("office:date-value"));
        if (type == "time")
            return timeValue(attribute("office:time-value"));
        if (type == "boolean")
            return attribute("office:boolean-value") == "true";
        return attributes.hasAttribute(QLatin1String("office:string-value")) ? attribute("office:string-value") : shown;
    }

    QXmlStreamReader m_xml;
    Workbook::Sheet m_sheet; ///< the one being read
    int m_row = 1;
};

} // namespace

std::optional<std::vector<Workbook::Sheet>> readOds(const QString &path)
{
    const auto package = Package::open(path);
    const auto content = package ? package->part("content.xml") : std::nullopt;
    if (!content)
        return {};
    return OdsReader(*content).read();
}
