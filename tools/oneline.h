#pragma once

#include <QString>

/// A text out of a file, or a file's name, to be shown within a line: line ends and the like become blanks, and all
/// but the beginning of a very long one is left out.
inline QString oneLine(QString text, qsizetype longest = 60)
{
    if (text.size() > longest)
        text = text.left(longest) + "...";
    for (QChar &c : text) {
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator || c == QChar::ParagraphSeparator)
            c = u' ';
    }
    return text;
}
