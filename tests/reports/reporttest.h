#pragma once

#include "data/values/numbers.h"
#include "reportengine/report.h"
#include "tests/support/printers.h"
#include "tests/support/rows.h"
#include "tests/support/testdatabase.h"
#include "toolkit/forms/form.h"
#include "toolkit/forms/forms.h"
#include <QLockFile>
#include <gtest/gtest.h>

/// Adds a row; returns its ID, or 0 in a table without one.
int insert(const char *table, const Cells &cells);
int addOrder(const QString &customer, const QString &warehouse, const QString &status = "Open");
void addLine(int order, int line, const QString &part, double qty, double price);
int addShipment(int order, const QString &date, bool invoiced, double freight = 0, double adjustment = 0);
void ship(int shipment, int order, int line, int qty);
int addInvoice(const QString &customer, const QString &date, const QString &shipments, double total);
int addPayment(int invoice, const QString &date, double amount, double adjustment = 0);
int addAdjustment(const QString &warehouse, const QString &date, const QString &part, double qty);

/// The program's folder, held for one test at a time though tests run side by side.
class ProgramFolder
{
public:
    ProgramFolder();
    QString filePath(const QString &file) const;

private:
    QLockFile m_lock;
};

/// Report routines run on a small database, with what they show caught before it comes up on the screen.
class ReportTest : public testing::Test
{
protected:
    ReportTest();
    ~ReportTest() override;

    /// The report in the window that was shown last.
    const Report &report() const;
    /// The rows that it was given, in their order: values with "|" between them, numbers to six decimals.
    QStringList rows() const;
    /// The text of one of its text objects, and whether an object or section is hidden.
    QString textOf(const QString &object) const;
    bool isSuppressed(const QString &object) const;

    TestDatabase database;
    QList<Form *> shown;
};
