#pragma once

#include "data/workbook/workbook.h"

// One reader per kind of file. Each returns the sheets in the order of their tabs, or nothing for a file that it can't
// read.

std::optional<std::vector<Workbook::Sheet>> readXls(const QString &path);
std::optional<std::vector<Workbook::Sheet>> readXlsx(const QString &path);
std::optional<std::vector<Workbook::Sheet>> readOds(const QString &path);
