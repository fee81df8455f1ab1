#pragma once

#include <QStringList>
#include <QTableView>

class FlexGridModel;

/// A grid of text cells filled by hand. Its own numbering counts the fixed header row as row 0; the Qt model
/// underneath has the data rows only. Cells keep the text put in; a column format changes only what is painted.
/// Ctrl+C copies the current row, Ctrl+A the whole list with its heads, for a spreadsheet to take.
class FlexGrid : public QTableView
{
    Q_OBJECT
public:
    explicit FlexGrid(QWidget *parent = nullptr);
    ~FlexGrid() override;

    int rows() const;
    /// 0 empties everything and drops the current cell; a smaller number cuts rows off the end.
    void setRows(int rows);
    int cols() const;
    void setCols(int cols);

    /// Appends one row, its cells split at tabs. The first row added to an empty grid is the header.
    void addItem(const QString &cellsJoinedByTabs);
    void addItem(const QStringList &cells);
    void removeItem(int row);

    /// Qt goes to the row that begins with letters typed; here nothing goes there.
    void keyboardSearch(const QString &) override {}

    /// A cell's text; outside the grid error 381.
    QString textMatrix(int row, int col) const;
    void setTextMatrix(int row, int col, const QString &text);

    /// The current cell; -1 when there is none (always after a refill).
    int row() const;
    int col() const;

    void setColAlignmentCentered(); ///< every column and its header
    void setColFormat(int col, const QString &picture);
    void setColHidden(int col, bool hidden = true);
    /// Sizes the columns to their widest content, header included.
    void autoSize();

    /// Lets the user edit the cells of one column.
    void setEditableColumn(int col);

signals:
    /// The user moved to another cell; rows count the header as 0, -1 stands for no cell.
    void afterRowColChange(int oldRow, int oldCol, int newRow, int newCol);
    /// A double-click anywhere on the grid; `row` is the clicked row, 0 for the header or empty area. Enter on a row of
    /// a grid that can't be edited counts as one.
    void dblClick(int row);
    /// A cell is entered or edited; a slot that sets `cancel` forbids it.
    void beforeEdit(int row, int col, bool &cancel);
    /// A cell's edit was committed, changed or not; its new text is in place.
    void afterEdit(int row, int col);

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    /// What looks selected is the current row, always; where there is no row, a press changes nothing.
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index, const QEvent *event) const override;
    void mousePressEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    void scheduleUpdate();
    void showHeaderRow();
    bool isEditable(const QModelIndex &index) const;
    void copyRows(int first, int last) const;

    FlexGridModel *m_model;
    int m_editableColumn = -1;
    bool m_byProgram = false;       ///< the current cell changes without the user having moved
    bool m_updateScheduled = false; ///< rows were appended that the view doesn't know yet
};
