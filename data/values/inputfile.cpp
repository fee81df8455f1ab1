#include "data/values/inputfile.h"

#include "data/values/plainfile.h"
#include "data/values/runtimeerror.h"
#include <QDir>
#include <QFileInfo>
#include <QStringDecoder>

namespace {

bool isBlank(QChar c)
{
    return c == u' ' || c == u'\t';
}

bool isLineEnd(QChar c)
{
    return c == u'\r' || c == u'\n';
}

/// UTF-8 where the bytes are that, otherwise the single-byte text of an older editor.
QString decoded(const QByteArray &bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(bytes);
    return utf8.hasError() ? QString::fromLatin1(bytes) : text;
}

} // namespace

QString settingsText(const QString &path)
{
    constexpr qint64 most = 1 << 20;
    const QFileInfo info(path);
    // A file that is missing in a folder that is there, and a folder that is not, are two errors to users.
    if (!info.exists())
        throw runtimeError(info.dir().exists() ? 53 : 76, {}, path);
    const std::optional<QByteArray> content = plainFileContents(path, most);
    if (!content)
        throw runtimeError(75, {}, path);
    return decoded(*content);
}

InputFile::InputFile(const QString &path) : m_text(settingsText(path))
{
    // Ctrl+Z has always ended a text file.
    const qsizetype end = m_text.indexOf(QChar(26));
    if (end >= 0)
        m_text.truncate(end);
}

QString InputFile::readField()
{
    skipBlanks();
    if (atEnd())
        throw runtimeError(62);
    return m_text[m_position] == u'"' ? quotedField() : plainField();
}

QString InputFile::quotedField()
{
    // There is no way to write a quotation mark inside: "1,2""X" is two fields, and what follows a closing mark
    // without a comma begins the next one. A mark that is never closed takes the rest of the file.
    const qsizetype start = ++m_position;
    const qsizetype close = m_text.indexOf(u'"', start);
    const qsizetype end = close < 0 ? m_text.size() : close;
    m_position = close < 0 ? end : end + 1;
    skipBlanks();
    skipDelimiter();
    return m_text.mid(start, end - start);
}

QString InputFile::plainField()
{
    // A quotation mark further in is a character like any other.
    const qsizetype start = m_position;
    while (!atEnd() && m_text[m_position] != u',' && !isLineEnd(m_text[m_position]))
        ++m_position;
    qsizetype end = m_position;
    while (end > start && isBlank(m_text[end - 1]))
        --end;
    skipDelimiter();
    return m_text.mid(start, end - start);
}

void InputFile::skipBlanks()
{
    while (!atEnd() && isBlank(m_text[m_position]))
        ++m_position;
}

/// One comma or one line end, if that is what comes next.
void InputFile::skipDelimiter()
{
    if (atEnd())
        return;
    const QChar c = m_text[m_position];
    if (c != u',' && !isLineEnd(c))
        return;
    ++m_position;
    if (c == u'\r' && !atEnd() && m_text[m_position] == u'\n')
        ++m_position;
}
