#pragma once

#include "data/schema/tabledef.h"
#include "data/values/value.h"
#include <QString>
#include <memory>

class RecordsetData;

/// One column of a recordset's current row or pending buffer. A light handle: valid while its recordset is.
class Field
{
public:
    QString Name() const;
    ColumnType Type() const;
    /// Characters of a Text column, else 0.
    int Size() const;
    /// The value in the current row, or in the buffer after AddNew or Edit. Error 3021 without a current row.
    Value value() const;
    bool isNull() const { return value().isNull(); }
    /// The value as text; error 94 when it is Null.
    QString text() const { return value().toText(); }
    /// The value as `&` joins it: Null gives the empty text.
    QString joined() const { return value().joined(); }

    /// Puts a value into the buffer, converted to the column's type at once (3421, 3163). Error 3020 without
    /// AddNew or Edit.
    const Field &operator=(const Value &value) const;

    Field(RecordsetData *data, int column) : m_data(data), m_column(column) {}
    Field(const Field &) = default;

private:
    RecordsetData *m_data;
    int m_column;
};

/// The rows of one statement, walked forward; changed one at a time through AddNew or Edit and Update.
/// Opening one reads nothing ahead: rows stream from the engine until a write on the connection makes the
/// remaining ones be read first.
class Recordset
{
public:
    explicit Recordset(std::unique_ptr<RecordsetData> data);
    Recordset(Recordset &&) noexcept;
    Recordset &operator=(Recordset &&) noexcept;
    ~Recordset();

    /// The platform's BOF and EOF (EOF itself is a macro of the C library). Both true: the result is empty.
    bool Bof() const;
    bool Eof() const;

    /// A column by name in any case: a result name, a name unique in the result, or "Table.Column". Error 3265.
    Field Fields(QAnyStringView name) const;
    /// A column by position from 0. Error 3265.
    Field Fields(int position) const;
    int fieldCount() const;

    /// Starts a new row holding the columns' defaults; an AutoNumber is taken at once and never given back.
    void AddNew();
    /// Starts a change of the current row, read anew and locked against other processes until Update, until the
    /// change is dropped, or until anything else is written. 3021 without a row, 3027 on a read-only result, 3218
    /// when another process does not let go.
    void Edit();
    /// Writes the pending row and commits it. After AddNew the current row is the one before it.
    void Update();
    /// The next row; drops a pending one. At the end already: 3021.
    void MoveNext();
    void Close();

private:
    RecordsetData &data() const;

    std::unique_ptr<RecordsetData> m_data;
};
