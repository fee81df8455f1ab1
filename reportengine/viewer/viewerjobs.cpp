#include "reportengine/viewer/viewerjobs.h"

#include "reportengine/output/exports.h"
#include "reportengine/output/paperplace.h"
#include "reportengine/output/printing.h"
#include "reportengine/pages/reportpages.h"
#include "reportengine/report.h"
#include "reportengine/viewer/longjob.h"
#include "toolkit/controls/mousepointer.h"
#include "toolkit/controls/msgbox.h"
#include "toolkit/controls/statusline.h"
#include <QDir>
#include <QFileDialog>
#include <QPageRanges>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QStandardPaths>

namespace {

void tell(const Outcome &outcome, const QString &done, const QString &failed, const QString &title)
{
    switch (outcome.state) {
    case Outcome::State::Done:
        if (!done.isEmpty())
            showStatus(done);
        break;
    case Outcome::State::Cancelled:
        showStatus(title + " stopped");
        break;
    case Outcome::State::Failed:
        MsgBox(failed + "\n\n" + outcome.reason, title);
        break;
    }
}

/// A name that every file system takes.
QString fileName(QString name)
{
    for (QChar &c : name) {
        if (c < ' ' || QStringView(u"\\/:*?\"<>|").contains(c))
            c = '-';
    }
    return name;
}

/// ".pdf" of "PDF document (*.pdf)".
QString suffixOf(const QString &kind)
{
    return kind.mid(kind.indexOf("*.") + 1).chopped(1);
}

/// The file asked for, with a suffix that tells its kind; nothing when the user thought better of it.
QString askForFile(QWidget *parent, const QString &name)
{
    QFileDialog dialog(parent, "Export");
    dialog.setObjectName("exportDialog");
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    // The question is ours to ask: only with its suffix has the name become the one that may stand there already.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setNameFilters({"PDF document (*.pdf)", "Spreadsheet (*.xlsx)", "Comma-separated data (*.csv)"});
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    dialog.setDirectory(QDir(documents).exists() ? documents : QDir::homePath());
    dialog.selectFile(fileName(name) + ".pdf");
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString &kind) {
        // A name that tells another kind than the one just picked would win over it.
        const QFileInfo chosen(dialog.selectedFiles().value(0));
        if (isExportName(chosen.fileName()))
            dialog.selectFile(chosen.completeBaseName() + suffixOf(kind));
    });
    // Who does not want the file replaced comes back to the dialog.
    while (dialog.exec() == QDialog::Accepted) {
        QString path = dialog.selectedFiles().value(0);
        if (!isExportName(path))
            path += suffixOf(dialog.selectedNameFilter());
        if (!QFileInfo::exists(path) ||
            MsgBoxYesNo(QFileInfo(path).fileName() + " is there already. Replace it?", "Export"))
            return path;
    }
    return {};
}

/// The print dialog offers pages up to the last, so that they must be counted before it opens.
int countedPages(Report &report)
{
    const Hourglass hourglass;
    return report.pages().pageCount();
}

/// The pages the dialog was told, by index; a range may be one of several ("2-3,5") and leave the report.
std::vector<int> wantedPages(const QPrintDialog &dialog, int pages, int currentPage)
{
    if (dialog.printRange() == QAbstractPrintDialog::CurrentPage)
        return {currentPage};
    QPageRanges ranges = dialog.printer()->pageRanges();
    // Some systems' dialogs tell the one range they know by its two ends.
    if (dialog.printRange() == QAbstractPrintDialog::PageRange && ranges.isEmpty())
        ranges.addRange(std::min(dialog.fromPage(), dialog.toPage()), std::max(dialog.fromPage(), dialog.toPage()));
    std::vector<int> wanted;
    for (int page = 0; page < pages; ++page) {
        if (ranges.isEmpty() || ranges.contains(page + 1))
            wanted.push_back(page);
    }
    if (dialog.printer()->pageOrder() == QPrinter::LastPageFirst)
        std::ranges::reverse(wanted);
    return wanted;
}

/// Reports bring their margins with them: no others are added unless the user wants some.
void setPaper(QPrinter &printer, const Report &report, const QPageLayout &paper)
{
    printer.setFullPage(true);
    printer.setPageLayout(paper.isValid() ? paper : ownPaper(report.layout()));
}

} // namespace

void exportByDialog(QWidget *parent, Report &report, const QString &name)
{
    const QString path = askForFile(parent, name);
    if (path.isEmpty())
        return;
    const Outcome outcome = runLongJob(parent, "Writing " + QFileInfo(path).fileName(),
                                       [&](const Progress &progress) { return exportReport(report, path, progress); });
    tell(outcome, "Exported to " + path, "The report could not be written to " + path + ".", "Export");
}

void printByDialog(QWidget *parent, Report &report, int currentPage, const QPageLayout &paper)
{
    const int pages = countedPages(report);
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(report.layout().title);
    setPaper(printer, report, paper);
    QPrintDialog dialog(&printer, parent);
    dialog.setObjectName("printDialog");
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange |
                      QAbstractPrintDialog::PrintCurrentPage | QAbstractPrintDialog::PrintCollateCopies);
    dialog.setMinMax(1, pages);
    dialog.setFromTo(1, pages);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const std::vector<int> wanted = wantedPages(dialog, pages, currentPage);
    const Outcome outcome = runLongJob(parent, "Printing " + report.layout().title, [&](const Progress &progress) {
        return printPages(report, printer, wanted, progress);
    });
    tell(outcome, {}, "The report could not be printed.", "Print");
}

QPageLayout paperByDialog(QWidget *parent, const Report &report, const QPageLayout &paper)
{
    QPrinter printer(QPrinter::HighResolution);
    setPaper(printer, report, paper);
    QPageSetupDialog dialog(&printer, parent);
    dialog.setObjectName("pageSetupDialog");
    return dialog.exec() == QDialog::Accepted ? printer.pageLayout() : paper;
}
