#include "tests/support/printserver.h"

#include <QElapsedTimer>
#include <QTest>
#include <cups/cups.h>
#include <gtest/gtest.h>

namespace {

void write(const QString &path, const QString &text)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(text.toUtf8());
}

} // namespace

PrivatePrintServer::PrivatePrintServer(const QString &queues)
    : m_folder(QCoreApplication::applicationDirPath() + "/print-XXXXXX")
{
    const QString at = m_folder.path();
    for (const char *name : {"root", "cache", "state", "spool", "tmp"})
        QDir(at).mkdir(name);
    // As root the server works for an account of its own, which must get through to its folders.
    QFile::setPermissions(at, QFile::permissions(at) | QFile::ReadOther | QFile::ExeOther);
    write(at + "/cupsd.conf", "Listen " + at +
                                  "/socket\nDefaultAuthType None\nWebInterface No\nBrowsing No\nPreserveJobFiles Yes\n"
                                  "<Location />\nAllow all\n</Location>\n"
                                  "<Policy default>\n<Limit All>\nAllow all\n</Limit>\n</Policy>\n");
    write(at + "/files.conf", QString("ServerRoot %1/root\nCacheDir %1/cache\nStateDir %1/state\nRequestRoot %1/spool\n"
                                      "TempDir %1/tmp\nAccessLog %1/access\nErrorLog %1/error\nPageLog %1/page\n"
                                      "FileDevice Yes\n")
                                  .arg(at));
    write(at + "/root/printers.conf", queues);
    m_server.start("/usr/sbin/cupsd", {"-f", "-c", at + "/cupsd.conf", "-s", at + "/files.conf"});
    EXPECT_TRUE(m_server.waitForStarted()) << "cupsd is missing: see scripts/packages.sh";
    const QByteArray socket = QFile::encodeName(at + "/socket");
    EXPECT_LT(socket.size(), 108) << "the system takes no longer name: " << socket.constData();
    cupsSetServer(socket.constData());
    EXPECT_TRUE(QTest::qWaitFor(
        [] {
            http_t *connection =
                httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1, 1000, nullptr);
            httpClose(connection);
            return connection != nullptr;
        },
        20000))
        << m_server.readAllStandardError().toStdString();
}

PrivatePrintServer::~PrivatePrintServer()
{
    stop();
    cupsSetServer(nullptr);
}

QString PrivatePrintServer::queue(const QString &name, bool accepts, bool works, bool isDefault)
{
    const QString kind = isDefault ? "DefaultPrinter" : "Printer";
    return QString("<%1 %2>\nDeviceURI file:/dev/null\nState %3\nAccepting %4\n</%1>\n")
        .arg(kind, name, works ? "Idle" : "Stopped", accepts ? "Yes" : "No");
}

void PrivatePrintServer::stop()
{
    m_server.terminate();
    m_server.waitForFinished();
}

QString PrivatePrintServer::jobFile(int id) const
{
    return m_folder.filePath(QString("spool/d%1-001").arg(id, 5, 10, QChar('0')));
}

QStringList PrivatePrintServer::jobs() const
{
    QStringList result;
    cups_job_t *jobs = nullptr;
    const int count = cupsGetJobs2(CUPS_HTTP_DEFAULT, &jobs, nullptr, 0, CUPS_WHICHJOBS_ALL);
    for (int i = 0; i < count; ++i)
        result.append(QString("%1 %2: %3").arg(jobs[i].id).arg(jobs[i].dest, jobs[i].title));
    cupsFreeJobs(count, jobs);
    result.sort();
    return result;
}
