#pragma once

#include "data/workbook/workbook.h"

// One reader per kind of file. Each returns the sheets in the order of their tabs; DamagedFile for what it can't read.

std::vector<Workbook::Sheet> readXls(const QByteArray &content);
std::vector<Workbook::Sheet> readXlsx(const QByteArray &content);
std::vector<Workbook::Sheet> readOds(const QByteArray &content);
