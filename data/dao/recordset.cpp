#include "data/dao/recordset.h"

#include "data/dao/recordsetdata.h"

QString Field::Name() const
{
    return m_data->column(m_column).name;
}

ColumnType Field::Type() const
{
    return m_data->column(m_column).type;
}

int Field::Size() const
{
    return m_data->column(m_column).size;
}

Value Field::value() const
{
    return m_data->value(m_column);
}

const Field &Field::operator=(const Value &value) const
{
    m_data->assign(m_column, value);
    return *this;
}

Recordset::Recordset(std::unique_ptr<RecordsetData> data) : m_data(std::move(data)) {}
Recordset::Recordset(Recordset &&) noexcept = default;
Recordset &Recordset::operator=(Recordset &&) noexcept = default;
Recordset::~Recordset() = default;

RecordsetData &Recordset::data() const
{
    if (!m_data)
        throw runtimeError(3420);
    return *m_data;
}

bool Recordset::Bof() const
{
    return data().isEmpty();
}
bool Recordset::Eof() const
{
    return data().atEnd();
}

Field Recordset::Fields(QAnyStringView name) const
{
    return {&data(), data().columnNamed(name)};
}

Field Recordset::Fields(int position) const
{
    if (position < 0 || position >= data().columnCount())
        throw runtimeError(3265);
    return {m_data.get(), position};
}

int Recordset::fieldCount() const
{
    return data().columnCount();
}

void Recordset::AddNew()
{
    data().addNew();
}
void Recordset::Edit()
{
    data().edit();
}
void Recordset::Update()
{
    data().update();
}
void Recordset::MoveNext()
{
    data().moveNext();
}

void Recordset::Close()
{
    data();
    m_data.reset();
}
