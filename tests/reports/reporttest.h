#pragma once

#include "reportengine/report.h"
#include "reportengine/viewer/crviewer.h"
#include "reportengine/viewer/viewer.h"
#include "tests/support/company.h"
#include <QLockFile>

/// The program's folder, held for one test at a time though tests run side by side.
class ProgramFolder
{
public:
    ProgramFolder();
    QString filePath(const QString &file) const;

private:
    QLockFile m_lock;
};

/// Report routines and their dialogs over the small company. Acme Rail sells in the North, Birch Mill in the East.
class ReportTest : public CompanyTest
{
protected:
    ReportTest();

    /// Each adds rows, dates being as they are written, and returns their ID; an invoice's number is its ID.
    QString addInvoice(const char *customer, const char *date, const QString &shipments, double total);
    static QString addPayment(const QString &invoice, const char *date, double amount, double adjustment = 0);
    static QString addAdjustment(const char *warehouse, const char *date, const char *part, double qty);
    static QString addTransfer(const char *from, const char *to, const char *date, const char *part, double qty);

    /// The window that was shown last, and the report in it.
    Viewer *window() const { return mdi->findChildren<Viewer *>().last(); }
    const Report &report() const { return *window()->viewer()->reportSource(); }
    /// The rows that it was given, in their order: some of their values with "|" between them, numbers to six decimals.
    QStringList rows(int from = 0, int to = -1) const { return rowsOf(report(), from, to); }
    static QStringList rowsOf(const Report &report, int from = 0, int to = -1);
    /// What its texts say, "hidden" if they are so, and whether its sections are "shown", by names with blanks between
    /// them.
    QString shown(const QString &names) const;
};
