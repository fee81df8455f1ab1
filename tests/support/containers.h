#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

/// What containers hold, by their paths in them.
using Parts = QMap<QString, QByteArray>;

// Containers of workbooks, put together of their parts.
QByteArray zipped(const Parts &parts);
QByteArray compound(const Parts &streams);

// The smallest workbooks with one sheet.
Parts xlsxParts(const QByteArray &sheetData, const QByteArray &styles = {}, const QByteArray &strings = {});
Parts odsParts(const QByteArray &rows);
