#include "tools/csv.h"

#include "data/values/csvfield.h"
#include "tools/toolerror.h"
#include <QLocale>
#include <QStringDecoder>

namespace Csv {

Reader::Reader(QByteArray content) : m_content(std::move(content))
{
    // Spreadsheet programs put a byte order mark before UTF-8.
    if (m_content.startsWith("\xEF\xBB\xBF"))
        m_content.remove(0, 3);
}

bool Reader::next()
{
    skipBlankLines();
    if (atEnd())
        return false;
    m_line = m_nextLine;
    m_fields.clear();
    do
        readField();
    while (!endsRecord());
    return true;
}

void Reader::skipBlankLines()
{
    while (!atEnd() && (m_content[m_position] == '\n' || m_content[m_position] == '\r')) {
        m_nextLine += m_content[m_position] == '\n';
        ++m_position;
    }
}

void Reader::readField()
{
    const bool quoted = !atEnd() && m_content[m_position] == '"';
    QByteArray bytes;
    if (quoted) {
        bytes = quotedText();
    } else {
        while (!atEnd() && m_content[m_position] != ',' && m_content[m_position] != '\n' &&
               m_content[m_position] != '\r')
            bytes += m_content[m_position++];
    }
    // Refused and not guessed at: in the wrong encoding every name beyond ASCII would go in spoilt, and nobody would
    // see it.
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = utf8(bytes);
    if (utf8.hasError())
        refuse("the text is not UTF-8");
    if (text.contains(QChar(0)))
        refuse("a zero byte in the text");
    // A bare empty field is Null, "" is the empty text. So a table comes back as it was written.
    m_fields.push_back(bytes.isEmpty() && !quoted ? Value() : Value(text));
}

/// The inside of a quoted field, doubled quotes made single. Line ends in it are text, but count as lines.
QByteArray Reader::quotedText()
{
    QByteArray bytes;
    for (++m_position;; ++m_position) {
        if (atEnd())
            refuse("a quotation mark is never closed");
        const char c = m_content[m_position];
        m_nextLine += c == '\n';
        if (c != '"') {
            bytes += c;
        } else if (m_position + 1 < m_content.size() && m_content[m_position + 1] == '"') {
            bytes += '"';
            ++m_position;
        } else {
            break;
        }
    }
    ++m_position;
    if (!atEnd() && m_content[m_position] != ',' && m_content[m_position] != '\n' && m_content[m_position] != '\r')
        refuse("text behind a closing quotation mark");
    return bytes;
}

/// Passes the comma behind a field, or the line end behind the last one.
bool Reader::endsRecord()
{
    if (atEnd())
        return true;
    const char c = m_content[m_position++];
    if (c == ',')
        return false;
    if (c == '\r' && !atEnd() && m_content[m_position] == '\n')
        ++m_position;
    ++m_nextLine;
    return true;
}

void Reader::refuse(const QString &reason) const
{
    throw ToolError{QString("line %1, field %2: %3").arg(m_line).arg(m_fields.size() + 1).arg(reason)};
}

QString textField(const QString &text)
{
    // A bare empty field would be Null, and other programs drop blanks at the edges of a bare one.
    return csvField(text, text.isEmpty() || text.startsWith(u' ') || text.endsWith(u' '));
}

QString field(const Value &value)
{
    switch (value.type()) {
    case Value::Type::Null:
        return {};
    case Value::Type::Text:
        return textField(value.toText());
    case Value::Type::Double:
        // The fewest digits that read back as the same number; the program's own text stops at 15.
        return QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    case Value::Type::Date: {
        const QString iso = value.toDate().toIso();
        return iso.endsWith(QLatin1String(" 00:00:00")) ? iso.left(10) : iso;
    }
    default:
        return value.toText();
    }
}

} // namespace Csv
