#include "data/dao/recordset.h"

#include "data/dao/recordsetdata.h"

QString Field::Name() const
{
    return m_data->walk.column(m_column).name;
}

ColumnType Field::Type() const
{
    return m_data->walk.column(m_column).type;
}

int Field::Size() const
{
    return m_data->walk.column(m_column).size;
}

Value Field::value() const
{
    // Between AddNew or Edit and Update a field shows what was assigned to it already.
    if (const auto pending = m_data->change.value(m_column))
        return *pending;
    return m_data->walk.value(m_column);
}

const Field &Field::operator=(const Value &value) const
{
    m_data->change.assign(m_column, value);
    return *this;
}

Recordset::Recordset(std::unique_ptr<RecordsetData> data) : m_data(std::move(data)) {}
Recordset::Recordset(Recordset &&) noexcept = default;
Recordset &Recordset::operator=(Recordset &&) noexcept = default;
Recordset::~Recordset() = default;

RecordsetData &Recordset::data() const
{
    // Closed, or moved elsewhere.
    if (!m_data)
        throw runtimeError(3420);
    return *m_data;
}

bool Recordset::Bof() const
{
    // Nothing moves backwards, so there is a place before the first row only where there is no row.
    return data().walk.isEmpty();
}
bool Recordset::Eof() const
{
    return data().walk.atEnd();
}

Field Recordset::Fields(QAnyStringView name) const
{
    return {&data(), data().walk.columnNamed(name)};
}

Field Recordset::Fields(int position) const
{
    if (position < 0 || position >= data().walk.columnCount())
        throw runtimeError(3265);
    return {m_data.get(), position};
}

int Recordset::fieldCount() const
{
    return data().walk.columnCount();
}

void Recordset::AddNew()
{
    data().change.addNew();
}
void Recordset::Edit()
{
    data().change.edit();
}
void Recordset::Update()
{
    data().change.update();
}
void Recordset::MoveNext()
{
    RecordsetData &rows = data();
    // A change that was not stored is dropped without a word, but not by a step that fails.
    if (!rows.walk.atEnd())
        rows.change.drop();
    rows.walk.moveNext();
}

void Recordset::Close()
{
    data();
    // Whatever is asked of a closed one fails, closing it once more included.
    m_data.reset();
}
