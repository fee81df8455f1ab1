#pragma once

#include <QAbstractTableModel>
#include <QByteArray>
#include <QHash>
#include <QStringList>
#include <vector>

/// The cells of a FlexGrid, a compact text a row. Row 0 is the header: it is the model's horizontal header, and row
/// n of the grid is row n - 1 of the model. Rows appended are announced to the views together, by `publish`.
class FlexGridModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Stands between the cells of a row's bytes: a tab may be part of a cell's text once it is in the grid.
    static constexpr char Separator = '\x1F';

    int gridRows() const { return int(m_rows.size()); }
    void setGridRows(int rows);
    void setCols(int cols);
    void append(const QString &cellsJoinedByTabs);
    void removeGridRow(int row);
    /// Tells the views of the rows appended since the last time.
    void publish();

    /// By the grid's own numbering; error 381 outside it.
    QString cell(int row, int col) const;
    void setCell(int row, int col, const QString &text);
    /// A cell as it is painted.
    QString painted(int row, int col) const;
    /// The bytes of one row, UTF-8, its cells parted by Separator.
    const QByteArray &rowBytes(int row) const { return m_rows[row]; }

    void setCentered() { m_alignment = Qt::AlignCenter; }
    void setFormat(int col, const QString &picture);
    QString format(int col) const { return m_formats.value(col); }
    void setEditableColumn(int col) { m_editableColumn = col; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

private:
    bool holds(int row, int col) const { return row >= 0 && row < gridRows() && col >= 0 && col < m_cols; }
    QVariant cellData(int row, int col, int role) const;

    std::vector<QByteArray> m_rows;
    int m_cols = 0;
    int m_published = 0; ///< data rows the views know of
    QHash<int, QString> m_formats;
    Qt::Alignment m_alignment = Qt::AlignLeft | Qt::AlignVCenter;
    int m_editableColumn = -1;
};
