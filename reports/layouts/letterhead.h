#pragma once

#include <QStringList>

/// The house, as the file `letterhead.txt` beside the program has it: the name in the first line, address lines below.
/// Without the file the house name alone.
struct Letterhead
{
    QString name;
    QStringList lines;
};
Letterhead letterhead();
