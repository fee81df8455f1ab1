#pragma once

#include <QString>
#include <vector>

class QIODevice;

/// A line of the outline a reader shows beside the pages.
struct PdfOutlineEntry
{
    QString title;
    int page;  ///< index from 0
    int level; ///< 0 outermost; each at most one deeper than the one before
};

/// Adds an outline to a finished PDF file with a plain cross-reference table, as a further revision behind its end.
/// False, and nothing written, when the file is not of that kind.
bool addPdfOutline(QIODevice &file, const std::vector<PdfOutlineEntry> &entries);
