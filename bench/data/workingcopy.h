#pragma once

#include <QTemporaryDir>

/// A copy of the database that the command line names, for one benchmark to write to.
class WorkingCopy
{
public:
    static void setOriginal(const QString &path);
    static const QString &original();

    WorkingCopy();
    QString path() const { return m_folder.filePath("company.db"); }

private:
    QTemporaryDir m_folder;
};
