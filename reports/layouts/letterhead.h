#pragma once

#include <QStringList>

/// The house: its name, and address lines below.
struct Letterhead
{
    QString name;
    QStringList lines;
};
/// As the file has it, the name in its first line. Without the file the house name alone; error 75 for one that
/// cannot be read.
Letterhead letterheadIn(const QString &file);
/// As `letterhead.txt` beside the program has it, which is read once, when the first page needs it.
Letterhead letterhead();
