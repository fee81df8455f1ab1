#include "bench/statements/campaigns.h"
#include "bench/statements/randomstatements.h"
#include "data/values/runtimeerror.h"
#include "data/values/textorder.h"
#include "tests/dao/databasefile.h"
#include "tests/jetsql/corpus.h"

namespace {

using Row = std::vector<Value>;

struct Outcome
{
    int error = 0;
    QString detail; ///< of the error
    std::vector<Row> rows;
};

Outcome outcomeOf(Database &database, const RandomStatements::Statement &statement)
{
    Outcome outcome;
    try {
        QString read = statement.sql;
        if (!statement.table.isEmpty()) {
            runNow(database, statement.sql);
            read = "SELECT * FROM " + statement.table;
        }
        for (Recordset rows = database.OpenRecordset(read); !rows.Eof(); rows.MoveNext()) {
            Row row;
            for (int i = 0; i < rows.fieldCount(); ++i)
                row.push_back(rows.Fields(i).value());
            outcome.rows.push_back(std::move(row));
        }
    } catch (const RuntimeError &error) {
        outcome.error = error.number();
        outcome.detail = error.detail();
    }
    return outcome;
}

/// Equal but for the 15th digit of a number; with `spelling` set, but for which of two equal texts stands there.
bool same(const Value &a, const Value &b, bool spelling)
{
    if (a.type() != b.type())
        return false;
    switch (a.type()) {
    case Value::Type::Double:
    case Value::Type::Currency:
        return std::abs(a.toDouble() - b.toDouble()) <= 1e-13 * std::abs(a.toDouble() + b.toDouble());
    case Value::Type::Null:
        return true;
    case Value::Type::Text:
        return a.toText() == b.toText() ||
               (spelling && compareTexts(a.toText().toStdString(), b.toText().toStdString()) == 0);
    default:
        return a.toText() == b.toText();
    }
}

bool same(const Outcome &a, const Outcome &b, bool spelling)
{
    if (a.error != 0 || b.error != 0) // what came before it depends on how far the engine had read ahead
        return a.error == b.error;
    const auto equal = [spelling](const Row &one, const Row &other) {
        return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                          [spelling](const Value &x, const Value &y) { return same(x, y, spelling); });
    };
    return std::equal(a.rows.begin(), a.rows.end(), b.rows.begin(), b.rows.end(), equal);
}

QString shown(const Outcome &outcome)
{
    QString text = outcome.error ? "error " + QString::number(outcome.error) + ": " + outcome.detail + '\n' : QString();
    for (const Row &row : outcome.rows) {
        for (const Value &value : row)
            text += (value.isNull() ? "Null" : corpus::shownText(value.toText())) + " | ";
        text += '\n';
    }
    return text;
}

} // namespace

QStringList differences(Extent extent)
{
    constexpr int PerCompany = 40;
    RandomStatements random{extent.seed};
    const DatabaseFile files[] = {DatabaseFile(EngineKind::Sqlite), DatabaseFile(EngineKind::Postgres)};
    const std::unique_ptr<Database> databases[] = {files[0].open(), files[1].open()};
    QStringList faults;
    int errors = 0, rows = 0;
    for (int done = 0; done < extent.count && faults.size() < 10; ++done) {
        if (done % PerCompany == 0) {
            for (const QString &statement : random.rows()) {
                for (const auto &database : databases)
                    database->Execute(statement);
            }
        }
        const RandomStatements::Statement statement = random.next();
        const Outcome onFile = outcomeOf(*databases[0], statement), onServer = outcomeOf(*databases[1], statement);
        errors += onFile.error != 0;
        rows += int(onFile.rows.size());
        if (same(onFile, onServer, statement.grouped))
            continue;
        faults += QString("statement %1: %2\non the file:\n%3on the server:\n%4")
                      .arg(done)
                      .arg(statement.sql, shown(onFile), shown(onServer));
        if (!statement.table.isEmpty())
            done += PerCompany - 1 - done % PerCompany; // on with equal tables
    }
    if (errors > extent.count / 3 || rows < extent.count)
        faults += "too many errors or too few rows to tell";
    std::printf("differences: %d statements, %d of them errors, %d rows\n", extent.count, errors, rows);
    return faults;
}
