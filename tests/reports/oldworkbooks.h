#pragma once

#include "tests/reports/reporttest.h"
#include "tests/support/xlsxfile.h"
#include <QTemporaryDir>

/// The workbooks of the old reports, and `workbooks.txt`, which names them.
class OldWorkbooks : public ReportTest
{
protected:
    ~OldWorkbooks() override { QFile::remove(program.filePath("workbooks.txt")); }

    QString path(const QString &file) const { return folder.filePath(file); }
    void write(const char *file, const std::vector<QStringList> &sheets) const { writeXlsx(path(file), sheets); }
    /// Writes `workbooks.txt` with these paths.
    void name(const QStringList &paths) const
    {
        QFile file(program.filePath("workbooks.txt"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        for (const QString &path : paths)
            file.write(("Workbook, " + path + "\n").toUtf8());
    }

    ProgramFolder program;
    QTemporaryDir folder;
};
