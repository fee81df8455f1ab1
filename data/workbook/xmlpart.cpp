#include "data/workbook/xmlpart.h"

#include "data/workbook/damagedfile.h"
#include "data/workbook/limits.h"
#include <cmath>
#include <cstring>

namespace {

QStringView withoutPrefix(QStringView name)
{
    return name.sliced(name.indexOf(u':') + 1);
}

} // namespace

void XmlPart::Source::grantToken()
{
    // The reader gets no more bytes than one token may have: a text without end would be collected whole before anybody
    // could refuse it.
    m_granted = std::min(m_content.size(), m_at + WorkbookLimits::XmlToken);
}

qint64 XmlPart::Source::readData(char *data, qint64 most)
{
    const qsizetype length = std::min<qsizetype>(most, m_granted - m_at);
    std::memcpy(data, m_content.constData() + m_at, size_t(length));
    m_at += length;
    return length > 0 ? length : -1;
}

XmlPart::XmlPart(const QByteArray &content) : m_source(content), m_xml(&m_source)
{
    // Names are told by their prefixes, which all programs write alike.
    m_xml.setNamespaceProcessing(false);
}

QXmlStreamReader::TokenType XmlPart::next()
{
    m_source.grantToken();
    const QXmlStreamReader::TokenType token = m_xml.readNext();
    switch (token) {
    case QXmlStreamReader::StartElement:
        if (++m_depth > WorkbookLimits::XmlDepth || m_xml.attributes().size() > WorkbookLimits::XmlAttributes)
            throw DamagedFile();
        break;
    case QXmlStreamReader::EndElement:
        --m_depth;
        break;
    case QXmlStreamReader::DTD: // could define texts that stand for longer ones
    case QXmlStreamReader::Invalid:
        throw DamagedFile();
    default:
        break;
    }
    return token;
}

bool XmlPart::nextElement()
{
    for (;;) {
        switch (next()) {
        case QXmlStreamReader::StartElement:
            return true;
        case QXmlStreamReader::EndDocument:
            return false;
        default:
            break;
        }
    }
}

bool XmlPart::nextChild()
{
    for (;;) {
        switch (next()) {
        case QXmlStreamReader::StartElement:
            return true;
        case QXmlStreamReader::EndElement:
        case QXmlStreamReader::EndDocument:
            return false;
        default:
            break;
        }
    }
}

void XmlPart::skip()
{
    for (const int depth = m_depth; m_depth >= depth;)
        next();
}

QString XmlPart::text()
{
    QString text;
    for (const int depth = m_depth; m_depth >= depth;) {
        if (next() == QXmlStreamReader::Characters && m_depth == depth)
            text += m_xml.text();
    }
    return text;
}

QStringView XmlPart::localName() const
{
    return withoutPrefix(name());
}

std::optional<QString> XmlPart::attribute(const char *name) const
{
    for (const QXmlStreamAttribute &attribute : m_xml.attributes()) {
        if (attribute.qualifiedName() == QLatin1String(name))
            return attribute.value().toString();
    }
    return {};
}

QString XmlPart::prefixedAttribute(const char *localName) const
{
    for (const QXmlStreamAttribute &attribute : m_xml.attributes()) {
        const QStringView name = attribute.qualifiedName();
        if (name.contains(u':') && withoutPrefix(name) == QLatin1String(localName))
            return attribute.value().toString();
    }
    return {};
}

int XmlPart::number(const char *name, int least, int most, int absent) const
{
    const std::optional<QString> written = attribute(name);
    if (!written)
        return absent;
    bool isNumber = false;
    const int number = written->toInt(&isNumber);
    if (!isNumber || number < least || number > most)
        throw DamagedFile();
    return number;
}

double finiteNumber(const QString &text)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number))
        throw DamagedFile();
    return number;
}
