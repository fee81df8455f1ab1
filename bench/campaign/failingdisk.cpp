#include "bench/campaign/failingdisk.h"

#include "bench/campaign/faultydisk.h"
#include "bench/campaign/faultymemory.h"
#include "data/dao/copydatabase.h"
#include "data/dao/createdatabase.h"
#include "data/dao/database.h"
#include "data/values/runtimeerror.h"
#include <QFile>
#include <QSet>
#include <cstdio>
#include <functional>
#include <limits>

namespace {

constexpr auto Password = "secret";
constexpr int Parts = 40;

/// What fails, and the error that the user sees.
struct Failure
{
    int code, error;
    bool lasting = true; ///< of memory: not for one allocation alone
};
const Failure NoMemory[] = {{SQLITE_NOMEM, 7, true}, {SQLITE_NOMEM, 7, false}};

int errorOf(const std::function<void()> &action)
{
    try {
        action();
        return 0;
    } catch (const RuntimeError &error) {
        return error.number();
    }
}

/// The first value that a statement gives to a tool that knows nothing of this program.
QString plain(const QString &file, const char *sql)
{
    sqlite3 *connection = nullptr;
    sqlite3_open(file.toUtf8().constData(), &connection);
    sqlite3_stmt *statement = nullptr;
    sqlite3_prepare_v2(connection, sql, -1, &statement, nullptr);
    const bool row = sqlite3_step(statement) == SQLITE_ROW;
    const QString text = row ? QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(statement, 0)))
                             : QString::fromUtf8(sqlite3_errmsg(connection));
    sqlite3_finalize(statement);
    sqlite3_close(connection);
    return text;
}

/// Actions on a database while disk or memory fail them.
class FailingPlace
{
public:
    /// Of the allocations of an action that many are tried, spread over all of them.
    FailingPlace(const QString &file, const QString &connect, int allocations)
        : m_file(file), m_connect(connect), m_allocations(allocations)
    {
        createDatabase(file, Password);
        const auto database = open();
        for (int part = 0; part < Parts; ++part)
            database->Execute(
                QString("INSERT INTO Part (PartNo, LeadTime) VALUES ('%1', '%2')").arg(part).arg(QString(50, 'x')));
    }

    void statement(Failure failure)
    {
        failEverywhere(
            "a statement", failure,
            [&](Database &database) { database.Execute(QString("UPDATE Part SET Cost = %1").arg(++m_cost)); },
            [&](bool returned) {
                expect(read("SELECT count(DISTINCT Cost) FROM Part") == u"1", "half a statement");
                expect(!returned || read("SELECT CAST(Cost AS INTEGER) FROM Part") == QString::number(m_cost),
                       "a statement that returned is lost");
            });
    }

    void row(Failure failure)
    {
        int last = 0;
        failEverywhere(
            "a row", failure,
            [&](Database &database) {
                Recordset orders = database.OpenRecordset("SELECT * FROM Orders");
                orders.AddNew();
                last = orders.Fields("ID").value().toLong();
                expect(!m_numbers.contains(last), "a number is given twice");
                m_numbers += last;
                orders.Fields("OrderNumber") = QString::number(last);
                orders.Fields("ShipTo") = QString(50, 'x');
                orders.Update();
            },
            [&](bool returned) {
                expect(read("SELECT count(*) FROM Orders WHERE OrderNumber <> ID OR length(ShipTo) <> 50") == u"0",
                       "half a row");
                expect(!returned || read("SELECT max(ID) FROM Orders") == QString::number(last),
                       "a row that was written is lost");
            });
    }

    void table(Failure failure)
    {
        failEverywhere(
            "a table", failure, [](Database &database) { database.Execute("SELECT * INTO tmpCopy FROM Part"); },
            [&](bool returned) {
                const bool made = read("SELECT count(*) FROM sqlite_schema WHERE name = 'tmpCopy'") == u"1";
                expect(made || !returned, "a table that was made is lost");
                expect(!made || read("SELECT count(*) FROM tmpCopy") == QString::number(Parts), "half a table");
                if (made)
                    open()->Execute("DROP TABLE tmpCopy");
            });
    }

    void reading(Failure failure)
    {
        QStringList found;
        failEverywhere(
            "a reading", failure,
            [&](Database &database) {
                found.clear();
                for (Recordset rs =
                         database.OpenRecordset("SELECT PartNo & '/' & LeadTime, Cost FROM Part WHERE PartNo "
                                                "LIKE '3*' ORDER BY LeadTime, PartNo");
                     !rs.Eof(); rs.MoveNext())
                    found += rs.Fields(0).text();
            },
            [&](bool returned) {
                expect(!returned || (found.size() == 11 && found[1] == "30/" + QString(50, 'x')),
                       "rows that are not there: " + found.join(' '));
            });
    }

    void copy(Failure failure)
    {
        const QString copy = m_file + ".copy";
        bool failed = true;
        for (int passing = 0; failed && passing < 1000; passing += 1 + passing / 3) {
            m_trying = QString("a copy, failing after %1").arg(passing);
            m_disk.failAfter(passing, failure.code);
            const int error = errorOf([&] { copyDatabase(m_file, copy, Password); });
            failed = m_disk.heal();
            ++m_failures;
            expect(error == (failed ? failure.error : 0), "error " + QString::number(error));
            expect(read("SELECT count(*) FROM Part") == QString::number(Parts), "the original is not as it was");
            expect(failed || plain(copy, "SELECT count(*) FROM Part") == QString::number(Parts), "half a copy");
            QFile::remove(copy);
            QFile::remove(copy + "-journal");
        }
        expect(!failed, "no copy ever came to its end");
    }

    const QStringList &faults() const { return m_faults; }
    int failures() const { return m_failures; }

private:
    std::unique_ptr<Database> open() const
    {
        return DBEngine::OpenDatabase(m_file, false, false, m_connect + ";pwd=" + Password);
    }
    QString read(const char *sql) const { return plain(m_file, sql); }
    void expect(bool good, const QString &fault)
    {
        if (!good)
            m_faults += m_trying + ": " + fault;
    }

    void failAfter(int passing, Failure failure)
    {
        if (failure.code == SQLITE_NOMEM)
            FaultyMemory::failAfter(passing, failure.lasting);
        else
            m_disk.failAfter(passing, failure.code);
    }
    bool heal()
    {
        const bool memoryFailed = FaultyMemory::heal();
        return m_disk.heal() || memoryFailed;
    }

    /// How many allocations an action makes and no two tries have between them.
    int strideOver(const std::function<void(Database &)> &action)
    {
        const auto database = open();
        FaultyMemory::failAfter(std::numeric_limits<int>::max(), false);
        action(*database);
        return std::max(1, FaultyMemory::passed() / m_allocations);
    }

    /// Runs the action with the disk failing at its first writing, its second and so on, until it meets no failure
    /// any more; or with the memory failing. `check` looks at the file after each, and is told whether the action
    /// returned.
    void failEverywhere(const char *what, Failure failure, const std::function<void(Database &)> &action,
                        const std::function<void(bool)> &check)
    {
        const bool isMemory = failure.code == SQLITE_NOMEM;
        const int stride = isMemory ? strideOver(action) : 1, most = isMemory ? 2 * m_allocations + 50 : 200;
        check(false); // what the stride's run left
        int failures = 0;
        for (bool failed = true; failed && failures < most; ++failures) {
            m_trying = QString("%1, failing after %2 with %3").arg(what).arg(failures * stride).arg(failure.code);
            auto database = open();
            failAfter(failures * stride, failure);
            const int error = errorOf([&] { action(*database); });
            failed = heal();
            expect(error == 0 || (failed && error == failure.error), "error " + QString::number(error));
            check(error == 0);
            const int later = errorOf([&] { database->Execute("UPDATE Warehouse SET City = 'x'"); });
            expect(later == 0, QString("does not go on: error %1").arg(later));
            database.reset();
            expect(read("PRAGMA integrity_check") == u"ok", "the file is damaged");
        }
        expect(failures > 2 && failures < most, "hardly anything failed, or never stopped failing");
        m_failures += failures;
    }

    FaultyDisk m_disk;
    QString m_file, m_connect, m_trying;
    QStringList m_faults;
    QSet<int> m_numbers;
    int m_allocations, m_cost = 0, m_failures = 0;
};

} // namespace

QStringList failingDisk(const QString &file, const QString &connect)
{
    FailingPlace disk(file, connect, 0);
    for (const Failure failure : {Failure{SQLITE_FULL, 3026}, Failure{SQLITE_IOERR_WRITE, 3043}}) {
        disk.statement(failure);
        disk.row(failure);
        disk.table(failure);
    }
    disk.copy({SQLITE_FULL, 3026});
    std::printf("disk: %d failures\n", disk.failures());
    return disk.faults();
}

QStringList failingMemory(const QString &file, const QString &connect, int count)
{
    if (!FaultyMemory::install())
        return {"SQLite keeps to its own memory"};
    FailingPlace memory(file, connect, count);
    for (const Failure &failure : NoMemory) {
        memory.statement(failure);
        memory.row(failure);
        memory.table(failure);
        memory.reading(failure);
    }
    std::printf("memory: %d failures\n", memory.failures());
    return memory.faults();
}
