#include "reportengine/output/exports.h"
#include "reportengine/output/printing.h"
#include "tests/reportengine/reportfixture.h"
#include "toolkit/controls/statusline.h"
#include <QDir>
#include <QPrinter>

namespace {

QDir printedFolder()
{
    return QDir(QCoreApplication::applicationDirPath() + "/printed");
}

class Printing : public testing::Test
{
protected:
    Printing()
    {
        printedFolder().removeRecursively();
        setStatusPlace([this](const QString &text) { status = text; });
    }
    ~Printing() override { setStatusPlace({}); }

    QString status;
};

struct Machine
{
    const char *is;
    QString queues;
    int error;
    QStringList jobs;
    const char *status;
    int kept; ///< documents in printed/
};

TEST_F(Printing, CountsAsDoneOnlyWithAJobOnTheServerOrWithoutAnyPrinter)
{
    const Machine machines[] = {
        {"accepting",
         PrivatePrintServer::queue("Office", true, true, true),
         0,
         {"1 Office: Packing Slip"},
         "Packing Slip sent to Office (job 1)",
         0},
        {"stopped, which keeps the job",
         PrivatePrintServer::queue("Office", true, false, true),
         0,
         {"1 Office: Packing Slip"},
         "Office is stopped: job 1 (Packing Slip) waits there",
         0},
        {"rejecting",
         PrivatePrintServer::queue("Office", false, true, true) + PrivatePrintServer::queue("Other"),
         482,
         {},
         "",
         0},
        {"without a default", PrivatePrintServer::queue("Office") + PrivatePrintServer::queue("Other"), 482, {}, "", 0},
        {"without any printer", "", 0, {}, "No printer: the packing slip was kept in printed/PackingSlip-", 1},
    };
    for (const Machine &machine : machines) {
        SCOPED_TRACE(machine.is);
        status.clear();
        const PrivatePrintServer server(machine.queues);
        EXPECT_EQ(errorNumberOf([] { PrintOut(*sampleReport("crptPackingSlip", 3)); }), machine.error);
        EXPECT_EQ(server.jobs(), machine.jobs);
        EXPECT_EQ(*machine.status ? status.left(qstrlen(machine.status)) : status, machine.status);
        EXPECT_EQ(printedFolder().entryList(QDir::Files).size(), machine.kept);
        const bool isTaken = !machine.jobs.isEmpty();
        EXPECT_TRUE(!isTaken || told("pdftotext", {server.jobFile(1), "-"}).contains("Packing Slip"));
    }
}

TEST_F(Printing, FailsOnAServerThatCannotBeReached)
{
    PrivatePrintServer server(PrivatePrintServer::queue("Office", true, true, true));
    server.stop();
    EXPECT_EQ(errorNumberOf([] { PrintOut(*sampleReport("crptPackingSlip", 3)); }), 482);
    EXPECT_FALSE(printedFolder().exists());
}

TEST_F(Printing, HoldsWhatWasSetInTheDialog)
{
    PrivatePrintServer server(PrivatePrintServer::queue("Office") + PrivatePrintServer::queue("Full", false));
    const auto report = sampleReport("crptPackingSlip", 90);
    ASSERT_GT(report->pages().pageCount(), 3);
    QPrinter printer;
    printer.setPrinterName("Office");
    printer.setPageLayout({QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF()});
    printer.setCopyCount(3);
    EXPECT_TRUE(printPages(*report, printer, {1, 2}));
    EXPECT_EQ(server.jobs(), QStringList{"1 Office: Packing Slip"});
    const QString info = told("pdfinfo", {server.jobFile(1)});
    EXPECT_TRUE(info.contains(QRegularExpression("Pages:\\s+2\\n"))) << info.toStdString();
    EXPECT_TRUE(info.contains("pts (A4)")) << info.toStdString();
    EXPECT_TRUE(told("pdftotext", {server.jobFile(1), "-"}).contains("Page 2 of "));
    // Turned and smaller, the page stands in the middle between what margins the user has set.
    const auto leftOf = [&](int job) {
        const QString words = told("pdftotext", {"-bbox", "-l", "1", server.jobFile(job), "-"});
        return QRegularExpression("xMin=\"([\\d.]+)\"[^>]*>Packing<").match(words).captured(1).toDouble();
    };
    printer.setPageLayout({QPageSize(QPageSize::Letter), QPageLayout::Portrait, QMarginsF()});
    EXPECT_TRUE(printPages(*report, printer, {0}));
    printer.setPageLayout({QPageSize(QPageSize::Letter), QPageLayout::Portrait, QMarginsF(61.2, 0, 0, 0)});
    EXPECT_TRUE(printPages(*report, printer, {0}));
    EXPECT_NEAR(leftOf(3), 61.2 + 0.9 * leftOf(2), 1);

    printer.setPrinterName("Full");
    const Outcome refused = printPages(*report, printer, {0});
    EXPECT_EQ(refused.state, Outcome::State::Failed);
    EXPECT_FALSE(refused.reason.isEmpty());

    int told = 0;
    const Progress stop = [&](int, int) { return ++told < 2; };
    EXPECT_EQ(printPages(*report, printer, {}, stop).state, Outcome::State::Cancelled);
    EXPECT_EQ(server.jobs().size(), 3);
    EXPECT_TRUE(attributesOf(server, 1).contains(QByteArray("copies\0\4\0\0\0\3", 12)));
}

TEST_F(Printing, WithoutAPrinterWritesEveryCopyIntoOneFile)
{
    QTemporaryDir folder;
    const auto report = sampleReport("crptPackingSlip", 60);
    const int pages = report->pages().pageCount();
    ASSERT_GT(pages, 1);
    const QString first = printToFolder(*report, 2, folder.filePath("printed"));
    const QString second = printToFolder(*report, 2, folder.filePath("printed"));
    EXPECT_NE(first, second);
    EXPECT_TRUE(QRegularExpression("/printed/PackingSlip-\\d{8}-\\d{6}-\\d+\\.pdf$").match(first).hasMatch());
    const QString info = told("pdfinfo", {first});
    EXPECT_TRUE(info.contains(QRegularExpression(QString("Pages:\\s+%1\\n").arg(pages * 2)))) << info.toStdString();
    const QString text = told("pdftotext", {first, "-"});
    EXPECT_EQ(text.count(QString("Page %1 of %1").arg(pages)), 2) << "each copy whole";
    EXPECT_TRUE(QDir(folder.filePath("printed")).entryList({"*.part"}).isEmpty());
}

} // namespace
