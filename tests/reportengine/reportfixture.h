#pragma once

#include "reportengine/pages/reportpages.h"
#include "reportengine/report.h"
#include "reports/layouts/catalogue.h"
#include "reports/layouts/layoutbuilder.h"
#include "tests/support/printers.h"
#include "tests/support/printserver.h"
#include "tests/support/samplerows.h"
#include <QProcess>
#include <QTemporaryDir>

/// Sales of a small house: what most tests lay out.
inline Dataset salesDataset()
{
    return datasetOf("Region T, Customer T, Qty N, Price N, Sold D, Note M");
}

inline MadeRows salesRows()
{
    return MadeRows({"region", "CUSTOMER", "Qty", "Price", "Sold", "Note", "Surplus"},
                    {{"West", "Beta", 2.0, 1.5, Date(2011, 3, 30), "n1", 1},
                     {"east", "alpha", 4.0, 10.0, Date(2011, 4, 1), Value(), 1},
                     {"WEST", "Acme", 1.0, 3.0, Value(), "", 1},
                     {"East", "Alpha", 5.0, Value(), Date(2012, 2, 29), "n4", 1},
                     {"West", "beta", 3.0, 2.0, Date(2011, 12, 31), "n5", 1}});
}

/// A section with its objects; for layouts made up in a test.
inline Section section(Section::Kind kind, std::vector<LayoutObject> objects, int group = 0, double height = 20)
{
    return {.kind = kind, .group = group, .height = height, .objects = std::move(objects)};
}

/// A report over made-up rows, read and ready.
inline std::unique_ptr<Report> reportOver(Layout layout, MadeRows rows, Dataset dataset = salesDataset())
{
    auto report = std::make_unique<Report>(std::move(layout), "Sales_ttx", std::move(dataset));
    report->SetDataSource(rows);
    report->DiscardSavedData();
    report->ReadRecords();
    return report;
}

/// A designer of the catalogue over such rows, with formulas replaced before they are read.
inline std::unique_ptr<Report> reportOver(const QString &designer, MadeRows rows,
                                          const std::map<int, QString> &formulas = {})
{
    auto report = std::unique_ptr<Report>(new Report(newReport(designer)));
    for (const auto &[index, text] : formulas)
        report->setFormulaText(index, text);
    report->SetDataSource(rows);
    report->ReadRecords();
    return report;
}

inline std::unique_ptr<Report> sampleReport(const QString &designer, int rows)
{
    return reportOver(designer, sampleRows(designer, rows));
}

inline QStringList fieldsOf(const QString &designer)
{
    QStringList names;
    for (const DatasetField &field : reportDesign(designer).dataset)
        names.append(field.name);
    return names;
}

/// A row by its fields; those that are not named are Null.
using Row = std::map<QString, Value>;

/// The same over hand-made rows, with texts set afterwards.
inline std::unique_ptr<Report> reportOf(const QString &designer, const std::vector<Row> &rows,
                                        const std::map<QString, QString> &texts = {},
                                        const std::map<int, QString> &formulas = {})
{
    const QStringList fields = fieldsOf(designer);
    MadeRows made(fields);
    for (const Row &row : rows) {
        std::vector<Value> values(fields.size());
        for (const auto &[field, value] : row)
            values.at(fields.indexOf(field)) = value;
        made.add(values);
    }
    auto report = reportOver(designer, made, formulas);
    for (const auto &[name, text] : texts)
        report->object(name).SetText(text);
    return report;
}

/// What a program of the PDF tools says about a file.
inline QString told(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished();
    EXPECT_EQ(process.exitCode(), 0) << program.toStdString();
    EXPECT_EQ(process.readAllStandardError(), "");
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// What a print server wrote down of a job when it was stopped, as printers are told it.
inline QByteArray attributesOf(PrivatePrintServer &server, int job)
{
    server.stop();
    QFile file(server.jobFile(job).replace("/d", "/c").chopped(4));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// All texts of all pages, a line per page joined by "|".
inline QStringList pageTexts(Report &report)
{
    QStringList result;
    for (int page = 0; page < report.pages().pageCount(); ++page)
        result.append(report.pages().page(page)->texts().join('|'));
    return result;
}
