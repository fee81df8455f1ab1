#include "bench/oldfiles/jetwriter.h"
#include "tools/commandline.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <cstdio>

namespace {

constexpr int Rows = 60;

QByteArray oldFile(JetWriter &writer)
{
    std::vector<JetWriter::Row> rows;
    for (int i = 0; i < Rows; ++i)
        rows.push_back({i, QString("order %1").arg(i), QString(i * 50, 'm')});
    writer.add("Invoice", {{"ID", JetWriter::Long}, {"Customer", JetWriter::Text}, {"Shipment", JetWriter::Memo}},
               rows);
    return writer.file(writer.pageSize() == 4096 ? 0x1badcafe : 0);
}

/// Cut off behind one of its first pages or anywhere, or with bytes overwritten, mostly where the file tells how it is
/// made.
QByteArray damaged(QByteArray file, int pageSize, int cuts, int variant, QRandomGenerator &random)
{
    const int pages = int(file.size() / pageSize);
    if (variant < cuts) {
        file.truncate(variant * pageSize);
    } else if (variant % 4 == 0) {
        file.truncate(random.bounded(int(file.size())));
    } else {
        for (int bytes = 1 << random.bounded(10); bytes > 0; --bytes) {
            const int page = random.bounded(random.bounded(3) ? std::min(6, pages) : pages);
            file[page * pageSize + random.bounded(random.bounded(2) ? 128 : pageSize)] = char(random.bounded(256));
        }
    }
    return file;
}

/// What is wrong with how a damaged file was taken over: it must end in one line or in a report, leave nothing half,
/// and not pass for whole.
QString faultOf(const QString &folder, const QByteArray &content, bool isCut)
{
    const QString from = folder + "/old.mdb", to = folder + "/new.db";
    QFile file(from);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush())
        return "cannot write " + from;
    QString out, err;
    QTextStream outStream(&out), errStream(&err);
    const int status = runCommand({"takeover", from, to}, outStream, errStream);
    const bool made = QFile::remove(to);
    if (made != (status == 0))
        return made ? "a file in spite of the failure" : "no file";
    if (QFile::exists(to + ".part"))
        return "half a file stays";
    if (status == 0 && (isCut || !out.contains(QString("Invoice: %1 rows taken\n").arg(Rows))))
        return "half a file that passes for whole";
    const bool told =
        out.contains("nothing is kept") || (err.startsWith("tamrick-db: '" + from + "': ") && err.count('\n') == 1);
    return status == 0 || told ? QString() : "not one clear line: " + err;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addOptions(
        {{"count", "how many damages of each generation of files", "n", "100"}, {"seed", "of the damages", "n", "7"}});
    parser.addHelpOption();
    parser.process(application);
    const int count = parser.value("count").toInt();
    QRandomGenerator random(parser.value("seed").toUInt());
    const QTemporaryDir folder;
    int faults = 0;
    for (const JetWriter::Version version : {JetWriter::Jet3, JetWriter::Jet4, JetWriter::Accdb}) {
        JetWriter writer(version);
        const QByteArray whole = oldFile(writer);
        const int cuts = std::min(int(whole.size() / writer.pageSize()), 12);
        for (int variant = 0; variant < count; ++variant) {
            const QByteArray content = damaged(whole, writer.pageSize(), cuts, variant, random);
            if (const QString fault = faultOf(folder.path(), content, variant < cuts); !fault.isEmpty()) {
                ++faults;
                std::printf("version %d, variant %d: %s\n", version, variant, qPrintable(fault));
            }
        }
        if (!faultOf(folder.path(), whole, false).isEmpty()) {
            ++faults;
            std::printf("version %d: the whole file is not taken over\n", version);
        }
    }
    std::printf("damages: 3 files, %d times each, %d faults\n", count, faults);
    return faults == 0 ? 0 : 1;
}
