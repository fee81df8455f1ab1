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
    /// What a call says that does its work.
    QString done(const QStringList &arguments) const
    {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.out.toStdString();
        EXPECT_EQ(outcome.err, "");
        return outcome.out;
    }
    /// The one line that a call says which does nothing, without the program's name before it.
    QString refusal(const QStringList &arguments) const
    {
        const QString name = "tamrick-db: ";
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.out, "");
        EXPECT_TRUE(outcome.err.startsWith(name) && outcome.err.indexOf('\n') == outcome.err.size() - 1)
            << outcome.err.toStdString();
        return outcome.err.mid(name.size()).trimmed();
    }
    void makeDemo(const QString &file) const { done({"demo", file, "--until=2011-03-30"}); }
    /// What an export writes below the columns' names.
    QString rowsOf(const QString &file, const QString &table) const
    {
        const QString all = done({"export", file, table});
        return all.mid(all.indexOf('\n') + 1);
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
    QByteArray contentOf(const QString &name) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        return file.readAll();
    }

    static std::unique_ptr<Database> open(const QString &path, const QString &password = QStringLiteral("QZV"))
    {
        return DBEngine::OpenDatabase(path, false, false, ";pwd=" + password);
    }

    QTemporaryDir m_folder;
};
