#include "tools/commandline.h"

#include "data/engines/engines.h"
#include "data/values/clock.h"
#include "data/values/runtimeerror.h"
#include "tools/arguments.h"
#include "tools/backup.h"
#include "tools/check.h"
#include "tools/copy.h"
#include "tools/demo.h"
#include "tools/export.h"
#include "tools/load.h"
#include "tools/newdatabase.h"
#include "tools/oneline.h"
#include "tools/share.h"
#include "tools/takeover/takeover.h"
#include "tools/toolerror.h"
#include <limits>

namespace {

constexpr const char *Help =
    "usage: tamrick-db create FILE              an empty database\n"
    "       tamrick-db demo FILE [options]      a database with a made-up company in it\n"
    "           --scale N           1 to 100; 1 is 50 customers and 2,000 orders\n"
    "           --seed N            another company of the same size\n"
    "           --until YYYY-MM-DD  the last day of its three years; today if left out\n"
    "       tamrick-db load FILE TABLE CSV      adds rows; the first line names the columns\n"
    "       tamrick-db check FILE               says what is wrong in it, table by table\n"
    "           --config CONFIG     and in the settings file that goes with it\n"
    "       tamrick-db share FILE               for a FILE that several machines will use\n"
    "       tamrick-db export FILE TABLE        writes a table as CSV\n"
    "       tamrick-db copy FROM TO             copies the company between files and servers, and compares\n"
    "       tamrick-db backup FROM FOLDER       copies a database, also while it is in use\n"
    "           --keep N            removes older copies of it there, down to N with the new\n"
    "       tamrick-db restore BACKUP TO        puts a copy back where no database is\n"
    "       tamrick-db takeover OLD.mdb NEW     takes an old company over into a new database\n"
    "           --keep              keeps it also when rows were refused\n"
    "       tamrick-db --version                tells its version\n"
    "FILE, FROM, TO and NEW may be the URI of a database on a server as well (not for share):\n"
    "       postgresql://user@host/company\n";

void create(const Arguments &arguments, QTextStream &)
{
    NewDatabase(arguments.plain()[0]).publish();
}

QDate dateOf(const QString &option, const QString &text)
{
    const QDate date = QDate::fromString(text, Qt::ISODate);
    if (!date.isValid() || date.year() < 1904 || date.year() > 9990)
        throw ToolError{QString("%1 takes a date such as 2011-03-30, not '%2'").arg(option, text)};
    return date;
}

void demo(const Arguments &arguments, QTextStream &)
{
    DemoOptions options;
    options.scale = int(arguments.number("--scale", 1, MaximumDemoScale).value_or(qulonglong(options.scale)));
    options.seed = arguments.number("--seed", 0, std::numeric_limits<qulonglong>::max()).value_or(options.seed);
    const std::optional<QString> until = arguments.value("--until");
    options.until = until ? dateOf("--until", *until) : Clock::now().date();
    createDemo(arguments.plain()[0], options);
}

void load(const Arguments &arguments, QTextStream &out)
{
    const QString table = arguments.plain()[1];
    const int count = loadTable(arguments.plain()[0], table, arguments.plain()[2]);
    out << count << (count == 1 ? " row" : " rows") << " loaded into " << table << '\n';
}

int check(const Arguments &arguments, QTextStream &out)
{
    const std::optional<QString> config = arguments.value("--config");
    if (config && config->isEmpty())
        throw ToolError{"--config takes a file"};
    const QStringList findings = checkDatabase(arguments.plain()[0], config.value_or(QString()));
    out << (findings.isEmpty() ? "ok" : findings.join(u'\n')) << '\n';
    // Findings are a status of their own, for scripts that run the check at night.
    return findings.isEmpty() ? 0 : 1;
}

void share(const Arguments &arguments, QTextStream &)
{
    shareDatabase(arguments.plain()[0]);
}

void exportRows(const Arguments &arguments, QTextStream &out)
{
    exportTable(arguments.plain()[0], arguments.plain()[1], out);
}

void copy(const Arguments &arguments, QTextStream &out)
{
    const int count = copyCompany(arguments.plain()[0], arguments.plain()[1]);
    out << count << " rows copied and compared\n";
}

void backup(const Arguments &arguments, QTextStream &out)
{
    std::optional<int> keep;
    if (const auto number = arguments.number("--keep", 1, 100'000))
        keep = int(*number);
    out << backupDatabase(arguments.plain()[0], arguments.plain()[1], keep) << '\n';
}

void restore(const Arguments &arguments, QTextStream &)
{
    restoreDatabase(arguments.plain()[0], arguments.plain()[1]);
}

int takeover([[maybe_unused]] const Arguments &arguments, [[maybe_unused]] QTextStream &out)
{
#ifdef TAMRICK_TAKEOVER
    return takeOver(arguments.plain()[0], arguments.plain()[1], arguments.has("--keep"), out) ? 0 : 1;
#else
    throw ToolError{"this tamrick-db was built without the reader of old databases"};
#endif
}

struct Command
{
    const char *name;
    qsizetype count;   ///< of plain arguments
    const char *takes; ///< the same in words
    QStringList options;
    std::function<int(const Arguments &, QTextStream &)> run;
    std::vector<qsizetype> uris = {}; ///< which of them may be a database on a server
};

/// For a command that has done what it was told if it did not throw.
std::function<int(const Arguments &, QTextStream &)> done(void (*run)(const Arguments &, QTextStream &))
{
    return [run](const Arguments &arguments, QTextStream &out) {
        run(arguments, out);
        return 0;
    };
}

const std::vector<Command> &commands()
{
    static const std::vector<Command> all = {
        {"create", 1, "one FILE", {}, done(create), {0}},
        {"demo", 1, "a FILE and options behind it", {"--scale=", "--seed=", "--until="}, done(demo), {0}},
        {"load", 3, "FILE, TABLE and CSV", {}, done(load), {0}},
        {"check", 1, "one FILE", {"--config="}, check, {0}},
        {"share", 1, "one FILE", {}, done(share)},
        {"export", 2, "FILE and TABLE", {}, done(exportRows), {0}},
        {"copy", 2, "FROM and TO", {}, done(copy), {0, 1}},
        {"backup", 2, "FROM and FOLDER", {"--keep="}, done(backup), {0}},
        {"restore", 2, "BACKUP and TO", {}, done(restore), {1}},
        {"takeover", 2, "OLD.mdb and NEW", {"--keep"}, takeover, {1}},
    };
    return all;
}

/// Does what the first argument says; what goes wrong is thrown.
int run(const QString &name, const QStringList &rest, QTextStream &out)
{
    if (name == u"help" || name == u"--help" || rest.contains("--help")) {
        out << Help;
        return 0;
    }
    if (name == u"--version") {
        out << "tamrick-db " TAMRICK_VERSION "\n";
        return 0;
    }
    QStringList names;
    for (const Command &command : commands()) {
        if (name != QLatin1String(command.name)) {
            names += QLatin1String(command.name);
            continue;
        }
        // Options first: an option that is wrong tells more than the number of what is left.
        const Arguments arguments(name, rest, command.options);
        if (arguments.plain().size() != command.count)
            throw ToolError{QString("%1 takes %2").arg(name, QLatin1String(command.takes))};
        for (qsizetype place = 0; place < command.count; ++place) {
            // A database's URI in a place that takes a file would be made a file of that name.
            if (!engines::isFile(arguments.plain()[place]) &&
                std::find(command.uris.begin(), command.uris.end(), place) == command.uris.end())
                throw ToolError{QString("%1 takes a file there, not a server's database: %2")
                                    .arg(name, QLatin1String(command.takes))};
        }
        return command.run(arguments, out);
    }
    const QString last = names.takeLast();
    throw ToolError{QString("say %1 or %2 (--help tells more)").arg(names.join(", "), last)};
}

/// What an error's box would say. Who works on a server is told the server's own words besides.
QString wordsOf(const RuntimeError &error, const QStringList &arguments)
{
    const QString own = error.detail().section("PostgreSQL: ", -1).trimmed();
    const bool onServer = !std::all_of(arguments.begin(), arguments.end(), engines::isFile);
    return onServer && !own.isEmpty() ? error.description() + QString(" (%1)").arg(own) : error.description();
}

/// One line, whatever names and texts of a file the message repeats.
void tell(QTextStream &err, const QString &message)
{
    constexpr int Longest = 1000;
    err << "tamrick-db: " << oneLine(message, Longest) << '\n';
}

} // namespace

int runCommand(const QStringList &arguments, QTextStream &out, QTextStream &err)
{
    try {
        const int status = run(arguments.value(0), arguments.mid(1), out);
        out.flush();
        // A full disk behind a ">" is found out here and not by whoever needs the file.
        if (out.status() != QTextStream::Ok)
            throw ToolError{"cannot write the output"};
        return status;
    } catch (const ToolError &error) {
        tell(err, error.message);
    } catch (const RuntimeError &error) {
        tell(err, wordsOf(error, arguments));
    } catch (const std::bad_alloc &) {
        tell(err, "out of memory");
    }
    return 1;
}
