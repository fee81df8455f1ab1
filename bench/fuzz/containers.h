#pragma once

#include <QByteArray>
#include <QMap>

/// What containers hold, by their paths in them.
using Parts = QMap<QByteArray, QByteArray>;

// Containers of workbooks, taken apart and put together many thousand times a second; what the container library does
// with objects, checks and compression would cost more than reading the workbook does.

/// The parts of an archive whose parts are stored as they are; none of any other.
Parts archiveParts(const QByteArray &content);
QByteArray archive(const Parts &parts);
/// A compound file with one or two streams.
QByteArray compoundFile(const Parts &streams);
