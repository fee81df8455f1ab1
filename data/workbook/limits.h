#pragma once

#include <QtGlobal>

/// What a workbook may hold: what its format allows or, where that sets no end, more than any workbook of use has. A
/// file that leaves these limits is broken; without them a few bytes could ask for hours and for all memory there is.
namespace WorkbookLimits {

inline constexpr qint64 FileBytes = 256 << 20;

// By format. A row or cell of an .ods may stand for many, but not for more than these.
inline constexpr int XlsColumns = 256;
inline constexpr int XlsxRows = 1'048'576, XlsxColumns = 16'384, XlsxStyles = 65'536, XlsxFormats = 100'000;
inline constexpr int OdsRows = 16'777'216, OdsColumns = 16'384;

/// Characters of a cell of an .ods, and in the whole document the blanks that are written as counts.
inline constexpr qsizetype OdsText = 65'535;
inline constexpr int OdsBlanks = 10'000'000;
/// Blocks of equal cells in a sheet.
inline constexpr int Runs = 5'000'000;

// The zipped folder. The archive's library compares each entry's name with all before it, and takes a step down for
// each folder in it.
inline constexpr int Parts = 4096, PartName = 512;
/// Sheets shrink to a tenth or a twentieth; so much they may grow by, and as much at most in all.
inline constexpr qint64 PartGrowth = 100, SmallParts = 4 << 20, PartBytes = 256 << 20;
/// Elements in one another, and attributes of one. A cell has 32,767 characters, each of which may be written in
/// several, so that a token has no more bytes than this.
inline constexpr int XmlDepth = 100;
inline constexpr qsizetype XmlAttributes = 256, XmlToken = 512 * 1024;

/// Of an .xls: it has a stream or two, and some for each macro and picture.
inline constexpr qsizetype Streams = 4096;

} // namespace WorkbookLimits
