#include "bench/campaign/child.h"
#include "bench/campaign/forms/books.h"
#include "bench/campaign/forms/clerk.h"
#include "bench/campaign/forms/failures.h"
#include "bench/campaign/forms/power.h"
#include "bench/campaign/place.h"
#include "bench/oldfiles/jetwriter.h"
#include "toolkit/forms/mainmod.h"
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QThread>
#include <cstdio>

namespace {

struct Campaign
{
    QString file, connect, journal, server;
    QStringList roles; ///< of those who work at once
    int count = 0;
    uint seed = 0;
    Books books;
    QStringList faults;
};

QStringList workOf(const Campaign &campaign, const QString &role, int count)
{
    return {"work",   "--file", campaign.file, "--connect",           campaign.connect,
            "--role", role,     "--count",     QString::number(count)};
}

/// What stopped a clerk, without what the platform has to say on the same channel.
QStringList faultsOf(QProcess &clerk)
{
    return QString::fromUtf8(clerk.readAllStandardError()).split('\n').filter("fault: ");
}

/// All of them, started together.
std::vector<std::unique_ptr<QProcess>> startClerks(const Campaign &campaign, int count)
{
    std::vector<std::unique_ptr<QProcess>> clerks;
    for (const QString &role : campaign.roles)
        clerks.push_back(startChild(workOf(campaign, role, count)));
    for (const auto &clerk : clerks)
        go(*clerk);
    return clerks;
}

void compare(Campaign &campaign, const QByteArray &said, int openOrders, int cut)
{
    Place(campaign.file).waitUntilLeft();
    campaign.books.add(QString::fromUtf8(said).split('\n'));
    campaign.books.compare(campaign.file, campaign.connect, openOrders, cut);
    campaign.faults += campaign.books.faults();
}

/// What the administrator's tool finds wrong with the file.
void checkFile(Campaign &campaign, bool killed)
{
    QProcess check;
    check.setProcessChannelMode(QProcess::MergedChannels);
    check.start(QCoreApplication::applicationDirPath() + "/../../tools/tamrick-db", {"check", campaign.file});
    if (!check.waitForFinished(-1) || check.exitStatus() != QProcess::NormalExit)
        campaign.faults += "tamrick-db check did not run";
    const QStringList findings = QString::fromUtf8(check.readAll()).split('\n', Qt::SkipEmptyParts);
    for (const QString &finding : findings) {
        if (check.exitCode() != 0 && !(killed && Books::isHalfDone(finding)))
            campaign.faults += "tamrick-db check: " + finding;
    }
}

/// Kills a clerk who does everything at random moments, again and again on one file.
void kills(Campaign &campaign, int openOrders)
{
    QRandomGenerator random(campaign.seed);
    for (int kill = 1; kill <= campaign.count && campaign.faults.isEmpty(); ++kill) {
        const auto clerk = startChild(workOf(campaign, "everything", -1));
        go(*clerk);
        QByteArray said = heardFrom(*clerk, random.bounded(8) + 1);
        QThread::usleep(random.bounded(60000));
        clerk->kill();
        clerk->waitForFinished();
        said += clerk->readAllStandardOutput();
        campaign.faults += faultsOf(*clerk);
        compare(campaign, said, openOrders, kill);
    }
}

/// One clerk takes orders while another ships and bills; on a server a third moves stock and books payments, and a
/// fourth runs reports.
void together(Campaign &campaign, int openOrders)
{
    QByteArray said;
    for (const auto &clerk : startClerks(campaign, campaign.count)) {
        if (!clerk->waitForFinished(-1) || clerk->exitCode() != 0)
            campaign.faults += "a clerk was stopped";
        campaign.faults += faultsOf(*clerk);
        said += clerk->readAllStandardOutput();
    }
    compare(campaign, said, openOrders, 0);
}

/// Kills the server under all clerks again and again. Each clerk meets the error of a lost session.
void crashes(Campaign &campaign, int openOrders)
{
    QRandomGenerator random(campaign.seed);
    for (int crash = 1; crash <= campaign.count && campaign.faults.isEmpty(); ++crash) {
        const auto clerks = startClerks(campaign, -1);
        QByteArray said = heardFrom(*clerks[0], random.bounded(4) + 1);
        QThread::usleep(random.bounded(60000));
        if (!crashServer(campaign.server, crash % 2 == 1))
            campaign.faults += "the server did not start again";
        for (const auto &clerk : clerks) {
            clerk->waitForFinished();
            if (const QStringList faults = faultsOf(*clerk); !faults.value(0).startsWith(u"fault: 3043 "))
                campaign.faults += "a clerk ended otherwise: " + faults.join(' ');
            said += clerk->readAllStandardOutput();
        }
        compare(campaign, said, openOrders, crash * int(clerks.size()));
    }
}

/// A clerk who is recorded. The program stands in a folder of its own on a machine without printers, where it keeps
/// what it prints beside itself.
std::unique_ptr<QProcess> startRecordedClerk(const Campaign &campaign, const QString &trace, const QString &folder)
{
    QDir().mkpath(folder);
    const QString program = folder + "/clerk";
    QFile::copy(QCoreApplication::applicationFilePath(), program);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LD_PRELOAD", QCoreApplication::applicationDirPath() + "/librecorder.so");
    environment.insert("ASAN_OPTIONS", "verify_asan_link_order=0"); // a sanitized clerk lets the recorder come first
    environment.insert("RECORD_FOLDER", QFileInfo(campaign.file).path());
    environment.insert("RECORD_PRINTED", folder + "/printed");
    environment.insert("RECORD_TRACE", trace);
    environment.insert("CUPS_SERVER", "localhost:9");
    environment.insert("CUPS_SERVERROOT", "/nowhere");
    auto clerk = std::make_unique<QProcess>();
    clerk->setProcessEnvironment(environment);
    clerk->start(program, workOf(campaign, "everything", campaign.count) + QStringList("--prints"));
    clerk->waitForReadyRead(60000);
    return clerk;
}

/// Records what a clerk who saves some documents does to the disk, and then lets the power fail again and again.
void power(Campaign &campaign, int openOrders, int images)
{
    const QString folder = QFileInfo(campaign.file).path(), trace = folder + ".trace";
    PowerFailures failures(folder, campaign.connect, openOrders, campaign.seed);
    const QString program = QFileInfo(folder).path() + "/program";
    const auto clerk = startRecordedClerk(campaign, trace, program);
    go(*clerk);
    if (!clerk->waitForFinished(-1) || clerk->exitCode() != 0)
        campaign.faults += "the clerk was stopped";
    campaign.faults += faultsOf(*clerk);
    failures.tryAll(trace, program + "/printed", images);
    campaign.faults += failures.faults();
    if (failures.promises() < campaign.count)
        campaign.faults += "the trace tells of too few saves";
    if (failures.papers() < campaign.count)
        campaign.faults += "the trace tells of too few printed documents";
    std::printf("%d disks left by a power failure, %s journal, count %d, seed %u: %d saves reported, %d documents "
                "printed, %d faults\n",
                images, qPrintable(campaign.journal), campaign.count, campaign.seed, failures.promises(),
                failures.papers(), int(campaign.faults.size()));
}

/// On a company with shipments that wait for their invoices.
void failures(Campaign &campaign)
{
    const auto work = [&campaign](const QString &database, const QString &role, int count) {
        campaign.file = database;
        const auto process = startChild(workOf(campaign, role, count) + QStringList("--endures"));
        go(*process);
        process->waitForFinished(-1);
        return QString::fromUtf8(process->readAllStandardOutput()).simplified() + " exit " +
               QString::number(process->exitCode());
    };
    const QString company = campaign.file;
    work(company, "stock", 2);
    work(company, "shipments", 4);
    Place(company).waitUntilLeft();
    StatementFailures failures(company, std::bind(work, std::placeholders::_1, std::placeholders::_2, 1));
    failures.tryAll(campaign.count);
    campaign.faults += failures.faults();
    std::printf("statements that fail, %d runs, %d faults\n", failures.runs(), int(campaign.faults.size()));
}

void finish(Campaign &campaign, const QString &what)
{
    checkFile(campaign, what != u"together");
    std::printf("%s through the forms, %s, count %d, seed %u: %d saves reported, %d faults\n", qPrintable(what),
                qPrintable(campaign.server.isEmpty() ? campaign.journal + " journal" : QString("server")),
                campaign.count, campaign.seed, campaign.books.documents(), int(campaign.faults.size()));
}

/// Writes what the clerks need to work on, as an old database.
int writeOld(const QString &path, const QString &connect, int openOrders)
{
    const QTemporaryDir folder;
    const QString made = folder.filePath("company.db");
    Clerk::prepare(made, connect, openOrders);
    QFile old(path);
    const QByteArray content = jetFileOf(*DBEngine::OpenDatabase(made, false, true, connect), JetWriter::Jet4);
    return old.open(QIODevice::WriteOnly) && old.write(content) == content.size() ? 0 : 1;
}

} // namespace

int main(int argc, char **argv)
{
    QCommandLineParser parser;
    parser.addPositionalArgument("campaign", "kills, together, power, crashes or failures of a server, work or old");
    parser.addOptions({{"count", "how many kills, or documents of each clerk", "n", "10"},
                       {"images", "how many disks a power failure leaves", "n", "100"},
                       {"journal", "log or rollback", "mode", "log"},
                       {"server", "the link of scripts/testserver, for a database there", "path"},
                       {"seed", "of the moments of the kills", "n", "1"},
                       {"folder", "where the file is made", "path", QDir::tempPath()},
                       {"file", "for a clerk, or to write an old one to", "path"},
                       {"connect", "for a clerk", "text"},
                       {"role", "for a clerk", "text"},
                       {"prints", "for a clerk"},
                       {"endures", "for a clerk"}});
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments += QString::fromLocal8Bit(argv[i]);
    parser.parse(arguments);
    const QString what = parser.positionalArguments().value(0);
    const int count = parser.value("count").toInt();
    if (what == u"work") {
        const QString connect = parser.isSet("connect") ? parser.value("connect") : DatabaseConnect;
        return Clerk::run(argc, argv, parser.value("file"), connect, parser.value("role"), count,
                          parser.isSet("prints"), parser.isSet("endures"));
    }

    QCoreApplication application(argc, argv);
    if (what == u"old")
        return writeOld(parser.value("file"), DatabaseConnect, count);
    if (what != u"kills" && what != u"together" && what != u"power" && what != u"crashes" && what != u"failures")
        parser.showHelp(2);
    const QTemporaryDir folder(parser.value("folder") + "/campaign-XXXXXX");
    Campaign campaign;
    QDir(folder.path()).mkdir("company");
    campaign.file = folder.filePath("company/company.db");
    campaign.journal = parser.value("journal");
    campaign.connect = DatabaseConnect + ";busy=20000;journal=" + campaign.journal;
    campaign.count = count;
    campaign.seed = parser.value("seed").toUInt();
    campaign.roles = QStringList{"orders", "shipments"};
    if (campaign.server = parser.value("server"); !campaign.server.isEmpty()) {
        campaign.file = Place::onServer(campaign.server).name();
        campaign.connect = DatabaseConnect;
        campaign.roles += {"stock", "reports"};
    }
    const int openOrders = what == u"kills" || what == u"crashes" || what == u"failures" ? count * 10 + Clerk::Customers
                                                                                         : count + Clerk::Customers;
    Clerk::prepare(campaign.file, campaign.connect, openOrders);
    if (what == u"kills")
        kills(campaign, openOrders);
    else if (what == u"together")
        together(campaign, openOrders);
    else if (what == u"crashes")
        crashes(campaign, openOrders);
    else if (what == u"failures")
        failures(campaign);
    else
        power(campaign, openOrders, parser.value("images").toInt());
    if (what != u"power" && what != u"failures")
        finish(campaign, what);
    for (const QString &fault : std::as_const(campaign.faults))
        std::printf("  %s\n", qPrintable(fault));
    return campaign.faults.isEmpty() ? 0 : 1;
}
