#pragma once

#include <QStringList>

/// The house, as the file `letterhead.txt` beside the program has it: the name in the first line, address lines below.
/// Without the file the house name alone; error 75 for one that cannot be read.
struct Letterhead
{
    QString name;
    QStringList lines;
};
Letterhead letterhead();
