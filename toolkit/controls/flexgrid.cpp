#include "toolkit/controls/flexgrid.h"

#include "toolkit/controls/columnwidths.h"
#include "toolkit/controls/flexgridmodel.h"
#include "toolkit/controls/griddelegate.h"
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QTimer>

FlexGrid::FlexGrid(QWidget *parent) : QTableView(parent), m_model(new FlexGridModel(this))
{
    setModel(m_model);
    auto *delegate = new GridDelegate(this);
    setItemDelegate(delegate);
    connect(delegate, &GridDelegate::committed, this, &FlexGrid::afterEdit);

    setSelectionMode(SingleSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    // Tab leaves the grid; the arrows go from cell to cell.
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollMode(ScrollPerPixel);

    // One height for all rows: nothing is measured or kept per row.
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    verticalHeader()->hide();
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(true);
    connect(horizontalHeader(), &QHeaderView::sectionDoubleClicked, this, [this] { emit dblClick(0); });
    showHeaderRow();
}

FlexGrid::~FlexGrid() = default;

int FlexGrid::rows() const
{
    return m_model->gridRows();
}

/// Cutting the rows off takes the current one away, which is the program's doing and no move of the user.
void FlexGrid::setRows(int rows)
{
    const QScopedValueRollback byProgram(m_byProgram, true);
    m_model->setGridRows(rows);
    showHeaderRow();
}

int FlexGrid::cols() const
{
    return m_model->columnCount();
}

void FlexGrid::setCols(int cols)
{
    const QScopedValueRollback byProgram(m_byProgram, true);
    m_model->setCols(cols);
}

void FlexGrid::addItem(const QString &cellsJoinedByTabs)
{
    m_model->append(cellsJoinedByTabs);
    if (rows() == 1)
        showHeaderRow();
    scheduleUpdate();
}

void FlexGrid::addItem(const QStringList &cells)
{
    addItem(cells.join(u'\t'));
}

/// The header is a row like the others: a grid emptied of all rows is a blank area, though it keeps its columns.
void FlexGrid::showHeaderRow()
{
    const bool any = rows() > 0;
    horizontalHeader()->setVisible(any);
    setHorizontalScrollBarPolicy(any ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
}

/// The view learns of appended rows at once, not one by one: at the next column sizing, or else when
/// the running routine has ended.
void FlexGrid::scheduleUpdate()
{
    if (std::exchange(m_updateScheduled, true))
        return;
    QTimer::singleShot(0, this, [this] {
        m_updateScheduled = false;
        m_model->publish();
    });
}

void FlexGrid::removeItem(int row)
{
    const QScopedValueRollback byProgram(m_byProgram, true);
    m_model->removeGridRow(row);
    showHeaderRow();
}

QString FlexGrid::textMatrix(int row, int col) const
{
    return m_model->cell(row, col);
}

void FlexGrid::setTextMatrix(int row, int col, const QString &text)
{
    m_model->setCell(row, col, text);
}

/// The header row is 0 and never current, so a grid without a current row says -1.
int FlexGrid::row() const
{
    return currentIndex().isValid() ? currentIndex().row() + 1 : -1;
}

int FlexGrid::col() const
{
    return currentIndex().column();
}

void FlexGrid::setColAlignmentCentered()
{
    m_model->setCentered();
    horizontalHeader()->setDefaultAlignment(Qt::AlignCenter);
    viewport()->update();
}

void FlexGrid::setColFormat(int col, const QString &picture)
{
    m_model->setFormat(col, picture);
}

void FlexGrid::setColHidden(int col, bool hidden)
{
    setColumnHidden(col, hidden);
}

/// The widths need all rows, so the view hears of those appended by now.
void FlexGrid::autoSize()
{
    m_model->publish();
    const std::vector<int> widths = columnWidths(*m_model, font(), horizontalHeader()->font());
    for (int col = 0; col < cols(); ++col)
        if (!isColumnHidden(col))
            setColumnWidth(col, widths[col]);
}

/// A key typed replaces the cell, F2 and a double click begin with what stands there.
void FlexGrid::setEditableColumn(int col)
{
    m_editableColumn = col;
    m_model->setEditableColumn(col);
    setEditTriggers(AnyKeyPressed | EditKeyPressed | DoubleClicked);
}

bool FlexGrid::isEditable(const QModelIndex &index) const
{
    return m_model->flags(index) & Qt::ItemIsEditable;
}

void FlexGrid::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTableView::currentChanged(current, previous);
    if (m_byProgram || !current.isValid())
        return;
    if (editTriggers() != NoEditTriggers) {
        bool cancel = false; // entering a cell only asks
        emit beforeEdit(current.row() + 1, current.column(), cancel);
    }
    const int oldRow = previous.isValid() ? previous.row() + 1 : -1;
    emit afterRowColChange(oldRow, previous.column(), current.row() + 1, current.column());
}

void FlexGrid::focusInEvent(QFocusEvent *event)
{
    // Qt makes the first cell current when the grid gets the focus; here only the user's own moves do.
    const bool hadCurrent = currentIndex().isValid();
    const QScopedValueRollback byProgram(m_byProgram, true);
    QTableView::focusInEvent(event);
    if (!hadCurrent && currentIndex().isValid())
        selectionModel()->clear();
}

void FlexGrid::keyPressEvent(QKeyEvent *event)
{
    // In a list Enter does what a double click does; in a grid to type in it begins the typing.
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->matches(QKeySequence::Copy)) {
        copyRows(row(), row());
    } else if (event->matches(QKeySequence::SelectAll)) {
        copyRows(0, rows() - 1);
    } else if (enter && m_editableColumn < 0) {
        if (row() > 0)
            emit dblClick(row());
    } else if ((enter || event->key() == Qt::Key_Space) && state() != EditingState && isEditable(currentIndex())) {
        edit(currentIndex(), EditKeyPressed, event);
    } else {
        QTableView::keyPressEvent(event);
    }
}

/// The cells that show, as they were put in, with tabs between them.
void FlexGrid::copyRows(int first, int last) const
{
    QString text;
    for (int row = std::max(first, 0); row <= last; ++row) {
        QStringList cells;
        for (int col = 0; col < cols(); ++col)
            if (!isColumnHidden(col))
                cells += textMatrix(row, col);
        text += cells.join(u'\t') + u'\n';
    }
    if (!text.isEmpty())
        QApplication::clipboard()->setText(text);
}

QModelIndex FlexGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    // The first move into a grid to type in goes to where one can type.
    if (m_editableColumn >= 0 && !currentIndex().isValid())
        return m_model->index(0, m_editableColumn);
    return QTableView::moveCursor(action, modifiers);
}

/// One row, whatever modifiers are held; the blank area below the rows picks nothing.
QItemSelectionModel::SelectionFlags FlexGrid::selectionCommand(const QModelIndex &index, const QEvent *) const
{
    return index.isValid() ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                           : QItemSelectionModel::NoUpdate;
}

/// A press below the rows leaves the current row as it is.
void FlexGrid::mousePressEvent(QMouseEvent *event)
{
    if (indexAt(event->position().toPoint()).isValid())
        QTableView::mousePressEvent(event);
}

void FlexGrid::mouseDoubleClickEvent(QMouseEvent *event)
{
    // 0 in the blank area, where no row is: forms take it for the header.
    const int clicked = indexAt(event->position().toPoint()).row() + 1;
    QTableView::mouseDoubleClickEvent(event);
    emit dblClick(clicked);
}

bool FlexGrid::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event)
{
    if ((trigger & editTriggers()) && isEditable(index) && state() != EditingState) {
        bool cancel = false;
        emit beforeEdit(index.row() + 1, index.column(), cancel);
        if (cancel)
            return false;
    }
    return QTableView::edit(index, trigger, event);
}

void FlexGrid::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    // Tab out of an editor goes on to the next control, as Tab does elsewhere in the grid.
    const bool byTab = hint == QAbstractItemDelegate::EditNextItem || hint == QAbstractItemDelegate::EditPreviousItem;
    QTableView::closeEditor(editor, byTab ? QAbstractItemDelegate::NoHint : hint);
    if (byTab)
        focusNextPrevChild(hint == QAbstractItemDelegate::EditNextItem);
}
