#pragma once

#include "data/values/value.h"
#include <QByteArray>
#include <vector>

/// Comma-separated text in UTF-8, fields quoted where they need it. A field that stands empty is Null; one that
/// stands empty between quotes is the empty text.
namespace Csv {

class Reader
{
public:
    explicit Reader(QByteArray content);

    /// Goes to the next record, past blank lines; false behind the last one. A ToolError names the line of what
    /// is malformed.
    bool next();
    const std::vector<Value> &fields() const { return m_fields; } ///< Null or Text
    int line() const { return m_line; }                           ///< on which the record begins, from 1

private:
    bool atEnd() const { return m_position >= m_content.size(); }
    void skipBlankLines();
    void readField();
    QByteArray quotedText();
    bool endsRecord();
    [[noreturn]] void refuse(const QString &reason) const;

    QByteArray m_content;
    qsizetype m_position = 0;
    std::vector<Value> m_fields;
    int m_line = 0, m_nextLine = 1;
};

/// A value as a field: numbers to the last digit, dates as 2011-03-30 with the time only when there is one.
QString field(const Value &value);
/// A text as a field, quoted where it needs it.
QString textField(const QString &text);

} // namespace Csv
