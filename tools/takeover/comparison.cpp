#include "tools/takeover/comparison.h"

#include "data/dao/database.h"
#include "data/schema/schema.h"
#include "tools/csv.h"
#include "tools/takeover/jetprocess.h"
#include <QCryptographicHash>
#include <QLocale>

namespace {

constexpr int Shown = 3; ///< differences of a table

/// What stands for a row: equal rows have equal ones.
using RowHash = QByteArray;

RowHash hashOf(const std::vector<Value> &row)
{
    QCryptographicHash hash(QCryptographicHash::Md5); // against chance, not against anybody
    for (const Value &value : row) {
        // With the type, so that Null, False, 0 and the empty text differ. Dates to the second, as they are stored,
        // and no zero below zero.
        const bool zero = value.type() == Value::Type::Double && value.toDouble() == 0;
        const QByteArray text = (zero ? "0" : Csv::field(value)).toUtf8();
        hash.addData(QByteArray::number(int(value.type())) + ':' + QByteArray::number(text.size()) + ':' + text);
    }
    return hash.result();
}

/// Count, sums of the number columns and a hash of one side of a table, in any order of its rows.
struct Totals
{
    qint64 rows = 0;
    std::vector<double> sums;
    quint64 hash = 0;

    void add(const std::vector<Value> &row, const RowHash &rowHash)
    {
        ++rows;
        sums.resize(row.size());
        for (size_t i = 0; i < row.size(); ++i) {
            if (row[i].type() == Value::Type::Double || row[i].type() == Value::Type::Long)
                sums[i] += row[i].toDouble();
        }
        quint64 part = 0;
        memcpy(&part, rowHash.constData(), sizeof(part));
        // Added up, so that the order of the rows counts for nothing.
        hash += part;
    }

    QString text(const TableDef &table) const
    {
        QString text = QString("%1 rows").arg(rows);
        for (size_t i = 0; i < table.columns.size() && i < sums.size(); ++i) {
            const ColumnType type = table.columns[i].type;
            if (type == ColumnType::Double || type == ColumnType::Long)
                text += QString(", %1 %2").arg(table.columns[i].name, QString::number(sums[i], 'g', 12));
        }
        return text + QString(", hash %1").arg(hash, 16, 16, QLatin1Char('0'));
    }
};

/// Goes through the rows of a table of the new database, all columns in their order.
void forEachRow(Database &database, const TableDef &table, const std::function<void(const std::vector<Value> &)> &use)
{
    std::vector<Value> row(table.columns.size());
    Recordset rows = database.OpenRecordset(QString("SELECT * FROM [%1]").arg(table.Name));
    for (; !rows.Eof(); rows.MoveNext()) {
        for (size_t i = 0; i < row.size(); ++i)
            row[i] = rows.Fields(int(i)).value();
        use(row);
    }
}

/// Compares what comes out of the old file with the new one.
class Comparer : public JetSink
{
public:
    Comparer(Database &database, const RefusedRows &refused, QTextStream &report)
        : m_database(database), m_refused(refused), m_report(report)
    {
    }

    void begin(const JetTable &table) override
    {
        m_match.reset();
        const TableDef *ours = Schema::permanentTable(table.name);
        // What was not taken over is told by the takeover and not compared.
        if (!ours || table.linked || !TableMatch(*ours, table).isUsable())
            return;
        m_match.emplace(*ours, table);
        m_skipped = m_refused.value(ours->Name);
        m_places.clear();
        for (const QString &name : m_match->names())
            m_places.push_back(m_match->table().indexOf(name));
        m_defaults = defaults();
        m_number = m_differences = 0;
        m_old = m_new = {};
        m_unmatched.clear();
        forEachRow(m_database, m_match->table(), [&](const std::vector<Value> &row) {
            const RowHash hash = hashOf(row);
            m_new.add(row, hash);
            // Counted, since rows may be alike in all columns: lines have no number of their own.
            ++m_unmatched[hash];
        });
    }

    void row(const std::vector<JetCell> &cells) override
    {
        if (!m_match || m_skipped.contains(m_number++))
            return;
        const std::vector<Value> taken = m_match->converted(cells);
        std::vector<Value> row = m_defaults;
        for (size_t i = 0; i < taken.size(); ++i)
            row[size_t(m_places[i])] = taken[i];
        const RowHash hash = hashOf(row);
        m_old.add(row, hash);
        if (!match(hash))
            differs(keyText(m_match->table(), row), "is not in the new database as it is in the old one");
    }

    void end(qint64) override
    {
        if (!m_match)
            return;
        // Walked once more only for the words: which rows they are, the hashes cannot tell.
        if (m_new.rows > 0 && !m_unmatched.isEmpty()) {
            forEachRow(m_database, m_match->table(), [&](const std::vector<Value> &row) {
                if (match(hashOf(row)))
                    differs(keyText(m_match->table(), row), "is not in the old database as it is in the new one");
            });
        }
        const TableDef &table = m_match->table();
        const QString old = m_old.text(table), made = m_new.text(table);
        m_report << table.Name << ": " << (m_differences == 0 ? "both sides agree: " : "the old side: ") << old << '\n';
        if (m_differences > 0)
            m_report << table.Name << ": the new side: " << made << "; differences: " << m_differences << '\n';
        m_allAgree = m_allAgree && m_differences == 0;
    }

    bool allAgree() const { return m_allAgree; }

private:
    /// What the columns hold that the old table has not.
    std::vector<Value> defaults() const
    {
        std::vector<Value> row;
        for (const ColumnDef &column : m_match->table().columns) {
            if (!column.defaultZero)
                row.emplace_back();
            else if (column.type == ColumnType::YesNo)
                row.emplace_back(false);
            else if (column.type == ColumnType::Long)
                row.emplace_back(0);
            else
                row.emplace_back(0.0);
        }
        return row;
    }

    /// Takes one row of the new side that is like this out of those that are left.
    bool match(const RowHash &hash)
    {
        const auto found = m_unmatched.find(hash);
        if (found == m_unmatched.end())
            return false;
        if (--*found == 0)
            m_unmatched.erase(found);
        return true;
    }

    void differs(const QString &key, const char *how)
    {
        if (++m_differences <= Shown)
            m_report << m_match->table().Name << ": " << key << ' ' << how << '\n';
    }

    Database &m_database;
    const RefusedRows &m_refused;
    QTextStream &m_report;
    std::optional<TableMatch> m_match;
    QSet<qint64> m_skipped;    ///< the rows that were refused
    std::vector<int> m_places; ///< of the columns that were taken, among ours
    std::vector<Value> m_defaults;
    qint64 m_number = 0, m_differences = 0;
    Totals m_old, m_new;
    QHash<RowHash, int> m_unmatched; ///< rows of the new side that no row of the old one has met yet
    bool m_allAgree = true;
};

} // namespace

bool compareWithOld(const QString &old, const QString &path, const RefusedRows &refused, QTextStream &report)
{
    const std::unique_ptr<Database> database = DBEngine::OpenDatabase(path, false, true, Schema::Connect);
    Comparer comparer(*database, refused, report);
    readJetSafely(
        old, [](const QString &name) { return Schema::permanentTable(name) != nullptr; }, comparer);
    return comparer.allAgree();
}
