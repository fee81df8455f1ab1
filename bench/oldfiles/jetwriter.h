#pragma once

#include "data/values/value.h"
#include <QByteArray>
#include <QStringList>
#include <vector>

class Database;

/// Writes old databases: tables, columns and rows as they lie in Jet 3 and Jet 4 files, and in the later ones
/// called .accdb, as far as a reader needs them. Each table has a deleted row in it, and every fifth row was moved away
/// from its place. A definition goes on over several pages where one does not hold it, and the map of a large table's
/// pages lies on pages of its own.
class JetWriter
{
public:
    enum Version { Jet3, Jet4, Accdb };
    enum Type {
        YesNo = 1,
        Byte,
        Integer,
        Long,
        Money,
        Single,
        Double,
        DateTime,
        Binary,
        Text,
        Picture,
        Memo,
    };
    struct Column
    {
        QString name;
        Type type;
    };
    using Row = std::vector<Value>;

    /// `codePage` is that of a Jet 3 file's texts: 1252 or 1251.
    explicit JetWriter(Version version, int codePage = 1252);

    /// `told` is the count of rows that the definition tells; the true one if left out.
    void add(const QString &name, const std::vector<Column> &columns, const std::vector<Row> &rows, int told = -1);
    /// A table whose rows lie in another file.
    void addLink(const QString &name) { m_objects.push_back({Value(0), Value(name), Value(6), Value(0), {}}); }
    /// The whole file; with a key every page is encoded by it, as where a password was set on an encoded database.
    QByteArray file(quint32 key = 0);
    int pageSize() const { return m_version == Jet3 ? 2048 : 4096; }

private:
    int newPage(char kind);
    void writeTable(int definition, const std::vector<Column> &columns, const std::vector<Row> &rows, int told);
    void writeDefinition(int definition, const QByteArray &bytes);
    void writeMap(const std::vector<int> &pages, int map);
    void writeRows(int definition, const std::vector<Column> &columns, const std::vector<Row> &rows, int map);
    QByteArray rowOf(const std::vector<Column> &columns, const Row &row);
    QByteArray fixedBytes(Type type, const Value &value) const;
    QByteArray textBytes(const QString &text) const;
    QByteArray memoBytes(const QString &text);
    void place(int page, const QByteArray &row, int flags = 0);
    bool fits(int page, qsizetype bytes) const;

    Version m_version;
    int m_codePage;
    std::vector<QByteArray> m_pages;
    std::vector<Row> m_objects; ///< the rows of the catalogue
    int m_maps = 0;             ///< of the pages of tables, a row each on the page of maps
};

/// A whole company as an old file, with the types that its columns had there and their names in another case.
QByteArray jetFileOf(Database &company, JetWriter::Version version, quint32 key = 0);
