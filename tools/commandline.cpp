#include "tools/commandline.h"

#include "data/dao/createdatabase.h"
#include "data/schema/schema.h"
#include "data/values/clock.h"
#include "data/values/runtimeerror.h"
#include "tools/check.h"
#include "tools/demo.h"
#include "tools/export.h"
#include "tools/load.h"
#include "tools/oneline.h"
#include "tools/toolerror.h"
#include <QFileInfo>

namespace {

constexpr const char *Help = "usage: tamrick-db create FILE              an empty database\n"
                             "       tamrick-db demo FILE [options]      a database with a made-up company in it\n"
                             "           --scale N           1 to 100; 1 is 50 customers and 2,000 orders\n"
                             "           --seed N            another company of the same size\n"
                             "           --until YYYY-MM-DD  the last day of its three years; today if left out\n"
                             "       tamrick-db load FILE TABLE CSV      adds rows; the first line names the columns\n"
                             "       tamrick-db check FILE               says what is wrong in it, table by table\n"
                             "       tamrick-db export FILE TABLE        writes a table as CSV\n";

/// Whatever lies there, database or not, is somebody's.
void refuseExisting(const QString &path)
{
    if (QFileInfo::exists(path))
        throw ToolError{QStringLiteral("'%1' is there already and stays as it is").arg(path)};
}

/// A number of an option within its range.
qulonglong numberOf(const QString &option, const QString &text, qulonglong least, qulonglong most)
{
    bool ok = false;
    const qulonglong number = text.toULongLong(&ok);
    if (!ok || number < least || number > most)
        throw ToolError{QStringLiteral("%1 takes a whole number from %2 to %3, not '%4'")
                            .arg(option)
                            .arg(least)
                            .arg(most)
                            .arg(text)};
    return number;
}

QDate dateOf(const QString &option, const QString &text)
{
    const QDate date = QDate::fromString(text, Qt::ISODate);
    if (!date.isValid() || date.year() < 1904 || date.year() > 9990)
        throw ToolError{QStringLiteral("%1 takes a date such as 2011-03-30, not '%2'").arg(option, text)};
    return date;
}

/// The options of `demo`, written "--scale 10" or "--scale=10".
DemoOptions demoOptions(const QStringList &arguments)
{
    DemoOptions options;
    options.until = Clock::now().date();
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        QString option = arguments[i].section(u'=', 0, 0);
        if (option != u"--scale" && option != u"--seed" && option != u"--until")
            throw ToolError{QStringLiteral("demo has no option '%1'").arg(arguments[i])};
        QString text = arguments[i].section(u'=', 1);
        if (!arguments[i].contains(u'='))
            text = arguments.value(++i);
        if (option == u"--scale")
            options.scale = int(numberOf(option, text, 1, MaximumDemoScale));
        else if (option == u"--seed")
            options.seed = numberOf(option, text, 0, std::numeric_limits<qulonglong>::max());
        else
            options.until = dateOf(option, text);
    }
    return options;
}

void demo(const QStringList &arguments)
{
    if (arguments.isEmpty() || arguments[0].startsWith(u'-'))
        throw ToolError{QStringLiteral("demo takes a FILE and options behind it")};
    const DemoOptions options = demoOptions(arguments.mid(1));
    refuseExisting(arguments[0]);
    createDemo(arguments[0], options);
}

int check(const QString &file, QTextStream &out)
{
    const QStringList findings = checkDatabase(file);
    out << (findings.isEmpty() ? QStringLiteral("ok") : findings.join(u'\n')) << '\n';
    return findings.isEmpty() ? 0 : 1;
}

/// One line, whatever names and texts of a file the message repeats.
void tell(QTextStream &err, const QString &message)
{
    constexpr int Longest = 1000;
    err << "tamrick-db: " << oneLine(message, Longest) << '\n';
}

/// Does what the first argument says; what goes wrong is thrown.
int run(const QString &command, const QStringList &arguments, QTextStream &out)
{
    const auto takes = [&](qsizetype count, const char *what) {
        for (const QString &argument : arguments) {
            if (argument.startsWith(u'-')) // a file of that name can still be given as ./-name
                throw ToolError{QStringLiteral("%1 has no option '%2'").arg(command, argument)};
        }
        if (arguments.size() != count)
            throw ToolError{QStringLiteral("%1 takes %2").arg(command, QLatin1String(what))};
    };
    if (command == u"help" || command == u"--help" || arguments.contains(QStringLiteral("--help"))) {
        out << Help;
    } else if (command == u"create") {
        takes(1, "one FILE");
        refuseExisting(arguments[0]);
        createDatabase(arguments[0], Schema::Password.toString());
    } else if (command == u"demo") {
        demo(arguments);
    } else if (command == u"load") {
        takes(3, "FILE, TABLE and CSV");
        const int count = loadTable(arguments[0], arguments[1], arguments[2]);
        out << count << (count == 1 ? " row" : " rows") << " loaded into " << arguments[1] << '\n';
    } else if (command == u"check") {
        takes(1, "one FILE");
        return check(arguments[0], out);
    } else if (command == u"export") {
        takes(2, "FILE and TABLE");
        exportTable(arguments[0], arguments[1], out);
    } else {
        throw ToolError{QStringLiteral("say create, demo, load, check or export (--help tells more)")};
    }
    return 0;
}

} // namespace

int runCommand(const QStringList &arguments, QTextStream &out, QTextStream &err)
{
    try {
        const int status = run(arguments.value(0), arguments.mid(1), out);
        out.flush();
        if (out.status() != QTextStream::Ok)
            throw ToolError{QStringLiteral("cannot write the output")};
        return status;
    } catch (const ToolError &error) {
        tell(err, error.message);
    } catch (const RuntimeError &error) {
        tell(err, error.description());
    }
    return 1;
}
