#pragma once

#include "data/dao/database.h"
#include "tests/support/printers.h"
#include "tools/commandline.h"
#include <QTemporaryDir>

/// Runs tamrick-db in this process, on files of a folder that goes away with the test.
class ToolsTest : public testing::Test
{
protected:
    struct Outcome
    {
        int status;
        QString out, err;
    };

    Outcome run(const QStringList &arguments) const
    {
        Outcome outcome;
        QTextStream out(&outcome.out), err(&outcome.err);
        outcome.status = runCommand(arguments, out, err);
        return outcome;
    }

    QString path(const QString &name) const { return m_folder.filePath(name); }

    /// A file with that content.
    QString fileWith(const QString &name, const QByteArray &content) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return file.fileName();
    }

    static std::unique_ptr<Database> open(const QString &path, const QString &password = QStringLiteral("QZV"))
    {
        return DBEngine::OpenDatabase(path, false, false, ";pwd=" + password);
    }

    QTemporaryDir m_folder;
};
