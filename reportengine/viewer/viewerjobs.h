#pragma once

#include <QPageLayout>
#include <QString>

class QWidget;
class Report;

// What the viewer's user asks for with a dialog of the system: an export, a print, the paper. Long ones show how far
// they have come and can be stopped.

/// Asks for a file and writes it. `name` is the one offered, without suffix, which may hold any character.
void exportByDialog(QWidget *parent, Report &report, const QString &name);

/// Asks for printer, pages and copies, and prints. `paper` is what the dialog begins with; not valid: the report's own.
void printByDialog(QWidget *parent, Report &report, int currentPage, const QPageLayout &paper);

/// Asks for the paper to print on, beginning with `paper`.
QPageLayout paperByDialog(QWidget *parent, const Report &report, const QPageLayout &paper);
