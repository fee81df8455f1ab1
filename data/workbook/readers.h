#pragma once

#include "data/workbook/sheet.h"
#include <QByteArray>
#include <vector>

// One reader per kind of file. Each returns the sheets in the order of their tabs; DamagedFile for what it can't read.

std::vector<Sheet> readXls(const QByteArray &content);
std::vector<Sheet> readXlsx(const QByteArray &content);
std::vector<Sheet> readOds(const QByteArray &content);
