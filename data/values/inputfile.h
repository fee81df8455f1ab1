#pragma once

#include <QString>

/// A settings file's text, UTF-8 where it is that and else of a single-byte editor. Errors 53 for a missing file, 76
/// for a missing folder, 75 for one that cannot be read, is no file, or is longer than a megabyte.
QString settingsText(const QString &path);

/// A text file read field by field, as the program's settings are: fields stand between commas or line ends and
/// may be quoted; blanks around them do not count. The whole file is read when it is opened.
class InputFile
{
public:
    /// The errors of settingsText.
    explicit InputFile(const QString &path);

    /// The next field, without quotation marks and surrounding blanks; error 62 behind the last one.
    /// A blank line is one empty field. Within quotes commas and line ends are text, and a quote cannot be had.
    QString readField();

private:
    QString quotedField();
    QString plainField();
    void skipBlanks();
    void skipDelimiter();
    bool atEnd() const { return m_position >= m_text.size(); }

    QString m_text;
    qsizetype m_position = 0;
};
