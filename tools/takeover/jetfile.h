#pragma once

#include "data/values/value.h"
#include <QStringList>
#include <functional>
#include <optional>
#include <vector>

/// A table of an old database as its definition tells it.
struct JetTable
{
    QString name;
    QStringList columns;
    qint64 rows = 0;     ///< as the file tells it; 0 also where the file was not closed properly
    bool linked = false; ///< the rows lie in another file
};

/// The name of the list of all tables. It comes as a table without rows, so that damage to it is told.
inline constexpr QLatin1String JetCatalogue("MSysObjects");

/// What a column of a row holds, as a value of the type that it had there. Nothing for what is there and cannot be
/// read: a picture, an attachment, a date beyond the calendar, a damaged memo.
using JetCell = std::optional<Value>;

/// Takes what is read, table by table: begin, its rows in the order in which they lie in the file, end.
class JetSink
{
public:
    virtual ~JetSink() = default;
    virtual void begin(const JetTable &table) = 0;
    virtual void row(const std::vector<JetCell> &cells) = 0;
    /// `damaged` counts the rows and pages that the file points to and that could not be read.
    virtual void end(qint64 damaged) = 0;
};

/// Reads a Jet 3 or Jet 4 file, or a later one that is not encrypted, through libmdb: all tables of users, with the
/// rows of those that are wanted. The file is opened for reading, without a lock. Throws ToolError. The library may
/// crash, hang or write to standard error on a damaged file: see readJetSafely.
void readJet(const QString &path, const std::function<bool(const QString &table)> &wanted, JetSink &sink);
