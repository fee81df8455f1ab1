#include "toolkit/controls/flexgridmodel.h"

#include "data/values/format.h"
#include "data/values/runtimeerror.h"

namespace {
/// The bytes of one cell of a row; none for a cell that the row doesn't reach to.
QByteArrayView cellBytes(const QByteArray &row, int col)
{
    qsizetype start = 0;
    for (; col > 0; --col) {
        start = row.indexOf(FlexGridModel::Separator, start) + 1;
        if (start == 0)
            return {};
    }
    const qsizetype end = row.indexOf(FlexGridModel::Separator, start);
    return QByteArrayView(row).sliced(start, (end < 0 ? row.size() : end) - start);
}

} // namespace

void FlexGridModel::setGridRows(int rows)
{
    if (rows >= gridRows()) {
        m_rows.resize(rows);
        publish();
    } else if (rows <= 1) {
        beginResetModel();
        m_rows.resize(std::max(rows, 0));
        // A list of all orders of all years may have been in it.
        m_rows.shrink_to_fit();
        m_published = 0;
        endResetModel();
    } else {
        // Rows that are removed must have been told of before.
        publish();
        beginRemoveRows({}, rows - 1, m_published - 1);
        m_rows.resize(rows);
        m_published = rows - 1;
        endRemoveRows();
    }
}

void FlexGridModel::setCols(int cols)
{
    beginResetModel();
    m_cols = cols;
    m_published = std::max(gridRows() - 1, 0);
    endResetModel();
}

void FlexGridModel::append(const QString &cellsJoinedByTabs)
{
    // Rows are kept as the bytes they came in: a list of all orders of all years has millions of cells.
    const QByteArray bytes = cellsJoinedByTabs.toUtf8().replace('\t', Separator);
    m_rows.emplace_back(bytes.constData(), bytes.size()); // a converted text holds room for three times its length
    // The first row is the header; those behind it are told of together.
    if (gridRows() == 1 && m_cols > 0)
        emit headerDataChanged(Qt::Horizontal, 0, m_cols - 1);
}

void FlexGridModel::removeGridRow(int row)
{
    if (!holds(row, 0))
        throw runtimeError(381);
    publish();
    if (row == 0) {
        beginResetModel();
        m_rows.erase(m_rows.begin());
        m_published = std::max(gridRows() - 1, 0);
        endResetModel();
        return;
    }
    beginRemoveRows({}, row - 1, row - 1);
    m_rows.erase(m_rows.begin() + row);
    --m_published;
    endRemoveRows();
}

void FlexGridModel::publish()
{
    const int dataRows = std::max(gridRows() - 1, 0);
    if (dataRows == m_published)
        return;
    beginInsertRows({}, m_published, dataRows - 1);
    m_published = dataRows;
    endInsertRows();
}

QString FlexGridModel::cell(int row, int col) const
{
    if (!holds(row, col))
        throw runtimeError(381);
    return QString::fromUtf8(cellBytes(m_rows[row], col));
}

void FlexGridModel::setCell(int row, int col, const QString &text)
{
    if (!holds(row, col))
        throw runtimeError(381);
    QStringList cells = QString::fromUtf8(m_rows[row]).split(QChar(Separator));
    // A row may have come with fewer cells than there are columns.
    while (cells.size() <= col)
        cells.append(QString());
    cells[col] = text;
    m_rows[row] = cells.join(QChar(Separator)).toUtf8();
    if (row == 0)
        emit headerDataChanged(Qt::Horizontal, col, col);
    else if (row <= m_published)
        emit dataChanged(index(row - 1, col), index(row - 1, col));
}

QString FlexGridModel::painted(int row, int col) const
{
    // The header is a row without formats.
    const QString raw = cell(row, col);
    const auto format = m_formats.constFind(col);
    return row == 0 || format == m_formats.cend() ? raw : Format(raw, *format);
}

void FlexGridModel::setFormat(int col, const QString &picture)
{
    m_formats.insert(col, picture);
    if (m_published > 0 && col < m_cols)
        emit dataChanged(index(0, col), index(m_published - 1, col), {Qt::DisplayRole});
}

int FlexGridModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_published;
}

int FlexGridModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_cols;
}

QVariant FlexGridModel::cellData(int row, int col, int role) const
{
    switch (role) {
    case Qt::EditRole:
        return cell(row, col);
    case Qt::DisplayRole:
        return painted(row, col);
    case Qt::TextAlignmentRole:
        return int(m_alignment);
    default:
        return {};
    }
}

QVariant FlexGridModel::data(const QModelIndex &index, int role) const
{
    return index.isValid() && holds(index.row() + 1, index.column()) ? cellData(index.row() + 1, index.column(), role)
                                                                     : QVariant();
}

QVariant FlexGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return orientation == Qt::Horizontal && holds(0, section) ? cellData(0, section, role) : QVariant();
}

Qt::ItemFlags FlexGridModel::flags(const QModelIndex &index) const
{
    // Every cell can be current and selected; only one column can be typed into.
    const Qt::ItemFlags plain = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return index.isValid() && index.column() == m_editableColumn ? plain | Qt::ItemIsEditable : plain;
}

bool FlexGridModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || !index.isValid() || !holds(index.row() + 1, index.column()))
        return false;
    setCell(index.row() + 1, index.column(), value.toString());
    return true;
}
