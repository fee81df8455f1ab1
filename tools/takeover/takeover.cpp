#include "tools/takeover/takeover.h"

#include "data/dao/bulkload.h"
#include "data/engines/engines.h"
#include "data/schema/schema.h"
#include "data/values/runtimeerror.h"
#include "tools/check.h"
#include "tools/copy.h"
#include "tools/newdatabase.h"
#include "tools/oneline.h"
#include "tools/takeover/comparison.h"
#include "tools/takeover/jetprocess.h"
#include "tools/toolerror.h"
#include <QDir>
#include <QTemporaryDir>

namespace {

bool isWanted(const QString &name)
{
    return Schema::permanentTable(name) != nullptr;
}

/// Puts the rows into the new database and reports what it meets.
class Taker : public JetSink
{
public:
    Taker(BulkLoad &load, QTextStream &report) : m_load(load), m_report(report) {}

    void begin(const JetTable &table) override
    {
        m_old = table;
        m_match.reset();
        const TableDef *ours = Schema::permanentTable(table.name);
        if (!ours) {
            reportStranger();
            return;
        }
        m_found += ours->Name;
        if (table.linked) {
            say("its rows lie in another file; take that one over");
            ++m_lost;
            return;
        }
        m_match.emplace(*ours, table);
        if (!m_match->isUsable()) {
            say(QString("without the column of its numbers the table is not taken, %1 rows").arg(table.rows));
            m_match.reset();
            ++m_lost;
            return;
        }
        m_row = m_taken = 0;
        m_holding.assign(m_match->further().size(), 0);
        for (const QString &column : m_match->missing())
            say(QString("column %1 is missing and takes its default").arg(column));
        m_rows.emplace(m_load.into(ours->Name, m_match->names()));
    }

    void row(const std::vector<JetCell> &cells) override
    {
        if (!m_match)
            return;
        const qint64 number = m_row++;
        for (size_t i = 0; i < m_holding.size(); ++i)
            m_holding[i] += holdsSomething(cells[size_t(m_match->further()[i])]);
        try {
            insert(m_match->converted(cells));
            ++m_taken;
        } catch (const ToolError &error) {
            // By its place in the old file, for the comparison to pass it over: it has no counterpart.
            m_refused[m_match->table().Name].insert(number);
            ++m_lost;
            say(QString("%1, %2: the row is refused").arg(m_match->key(cells), error.message));
        }
    }

    void end(qint64 damaged) override
    {
        if (m_old.name == JetCatalogue && damaged > 0) {
            say("the list of the tables is damaged: some may be missing below");
            ++m_lost;
        }
        if (!m_match)
            return;
        for (size_t i = 0; i < m_holding.size(); ++i)
            say(QString("column %1 is not taken; rows that hold something in it: %2")
                    .arg(m_old.columns[m_match->further()[i]])
                    .arg(m_holding[i]));
        say(QString("%1 rows taken").arg(m_taken));
        // A file that was not closed properly tells too few or none; one that tells more than there are lost them.
        if (damaged > 0 || m_row < m_old.rows) {
            say(QString("the file tells of %1 rows and has %2 that can be read: it is damaged")
                    .arg(m_old.rows)
                    .arg(m_row));
            ++m_lost;
        }
    }

    void reportMissing()
    {
        if (m_found.isEmpty())
            throw ToolError{"it has no table of a company"};
        for (const TableDef &table : Schema::permanentTables()) {
            if (!m_found.contains(table.Name))
                m_report << table.Name << ": the table is missing and stays empty\n";
        }
    }

    bool lostNothing() const { return m_lost == 0; }
    const RefusedRows &refused() const { return m_refused; }

private:
    void insert(const std::vector<Value> &row)
    {
        try {
            m_rows->add(row);
        } catch (const RuntimeError &error) {
            if (error.number() != 3022) // the only key that the file itself guards is an AutoNumber
                throw;
            throw ToolError{"another row has that number"};
        }
    }

    /// Whether leaving it out loses anything.
    static bool holdsSomething(const JetCell &cell)
    {
        return !cell || !(cell->isNull() || *cell == Value(false) || *cell == Value(QString()));
    }

    void reportStranger()
    {
        // Scratch tables hold what some report left; nobody misses them.
        if (m_old.name != JetCatalogue && !m_old.name.startsWith(QLatin1String("tmp"), Qt::CaseInsensitive))
            say(m_old.linked ? "a table of another file, not taken" : QString("not taken, %1 rows").arg(m_old.rows));
    }

    void say(const QString &finding) { m_report << oneLine(m_old.name) << ": " << oneLine(finding, 300) << '\n'; }

    BulkLoad &m_load;
    QTextStream &m_report;
    JetTable m_old; ///< the table that is being read
    std::optional<TableMatch> m_match;
    std::optional<BulkLoad::Inserter> m_rows;
    std::vector<qint64> m_holding; ///< for each further column the rows with something in it
    qint64 m_row = 0, m_taken = 0;
    QStringList m_found;
    RefusedRows m_refused;
    qint64 m_lost = 0; ///< rows and tables that have not gone over
};

/// Another program that has the file open keeps a small file beside it.
void reportUsers(const QString &old, QTextStream &report)
{
    const QFileInfo info(old);
    for (const char *suffix : {".ldb", ".laccdb"}) {
        if (QFileInfo::exists(info.dir().filePath(info.completeBaseName() + QLatin1String(suffix))))
            report << "File: somebody seems to have it open (" << info.completeBaseName() << suffix
                   << "); take it over when all have left\n";
    }
}

/// Fills a new file. True when every row has gone over and both sides agree.
bool takeInto(const QString &file, const QString &old, QTextStream &report)
{
    bool whole = false;
    try {
        reportUsers(old, report);
        // In one transaction: a file that breaks off in the middle leaves nothing behind.
        BulkLoad load(file, Schema::Password, BulkLoad::File::New);
        Taker taker(load, report);
        readJetSafely(old, isWanted, taker);
        taker.reportMissing();
        load.commit();
        const bool same = compareWithOld(old, file, taker.refused(), report);
        whole = taker.lostNothing() && same;
    } catch (const ToolError &error) {
        throw ToolError{QString("'%1': %2").arg(old, error.message)};
    }
    // What the old program let in is told, and no reason to refuse the company.
    for (const QString &finding : checkDatabase(file))
        report << "check: " << finding << '\n';
    return whole;
}

} // namespace

bool takeOver(const QString &old, const QString &to, bool keep, QTextStream &report)
{
    if (!QFileInfo(old).isFile() || !QFileInfo(old).isReadable())
        throw ToolError{QString("cannot read '%1'").arg(old)};
    // Before the old file is read, which may take long: a name that is taken is told at once.
    NewDatabase database(to);
    bool whole;
    if (engines::isFile(to)) {
        whole = takeInto(database.name(), old, report);
    } else {
        // A row that a server refuses takes all others along, so a file comes before.
        const QTemporaryDir folder;
        const NewDatabase file(folder.filePath("company.db"));
        whole = takeInto(file.name(), old, report);
        if (whole || keep)
            fillCompany(file.name(), database.name());
    }
    if (whole || keep)
        database.publish();
    else
        report << "Not everything has gone over, so nothing is kept (--keep keeps it)\n";
    return whole;
}
