#include "tests/toolkit/controlform.h"
#include "toolkit/controls/formatgrid.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>

namespace {
using Events = QStringList;

class FlexGridTest : public DeskTest
{
protected:
    FlexGridTest()
    {
        form = ControlForm<FlexGrid>::load();
        form->resize(500, 300);
        grid = form->it;
        QObject::connect(grid, &FlexGrid::afterRowColChange, form, [this](int oldRow, int oldCol, int row, int col) {
            log(QStringLiteral("move %1,%2 > %3,%4").arg(oldRow).arg(oldCol).arg(row).arg(col));
        });
        QObject::connect(grid, &FlexGrid::dblClick, form,
                         [this](int row) { log(QStringLiteral("dblClick %1").arg(row)); });
        QObject::connect(grid, &FlexGrid::afterEdit, form, [this](int row, int col) {
            log(QStringLiteral("afterEdit %1,%2 %3").arg(row).arg(col).arg(grid->textMatrix(row, col)));
        });
        fill();
        driver = std::make_unique<FormDriver>("test");
        driver->click("away");
        events();
    }
    void fill()
    {
        grid->setRows(0);
        grid->setCols(3);
        grid->addItem("Item\tQty\tPrice");
        grid->addItem("1\t10\t1234.5");
        grid->addItem("2\t20\t0");
        grid->addItem("3\t\tnone");
        formatGrid(grid, {2});
    }
    void log(const QString &event) { form->events += event; }
    Events events() { return form->takeEvents(); }
    QVariant shown(int row, int col, int role = Qt::DisplayRole) const
    {
        return grid->model()->index(row - 1, col).data(role);
    }

    ControlForm<FlexGrid> *form;
    FlexGrid *grid;
    std::unique_ptr<FormDriver> driver;
};

TEST_F(FlexGridTest, RowZeroIsTheHeaderAndTheModelHasTheDataRows)
{
    EXPECT_EQ(grid->rows(), 4);
    EXPECT_EQ(grid->model()->rowCount(), 3);
    EXPECT_EQ(grid->textMatrix(0, 1), "Qty");
    EXPECT_EQ(grid->model()->headerData(1, Qt::Horizontal).toString(), "Qty");
    EXPECT_EQ(grid->model()->headerData(1, Qt::Horizontal, Qt::EditRole).toString(), "Qty");
    EXPECT_EQ(grid->textMatrix(2, 0), "2");
}

TEST_F(FlexGridTest, EnterOnARowIsADoubleClickAndControlKeysCopyForASpreadsheet)
{
    driver->clickCell("it", 2);
    events();
    driver->key(Qt::Key_Return);
    driver->key(Qt::Key_Enter);
    EXPECT_EQ(events(), (Events{"dblClick 2", "dblClick 2"}));
    grid->setColHidden(0);
    driver->key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "20\t0\n");
    driver->key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "Qty\tPrice\n10\t1234.5\n20\t0\n\tnone\n");
    EXPECT_EQ(grid->row(), 2);
    EXPECT_EQ(events(), Events());
}

TEST_F(FlexGridTest, AGridToTypeInFramesItsCellTintsItsColumnAndIsEnteredThere)
{
    grid->setEditableColumn(1);
    grid->setFocus();
    driver->key(Qt::Key_Down);
    EXPECT_EQ(grid->row(), 1);
    EXPECT_EQ(grid->col(), 1);
    const auto colorAt = [&](int row, int col, QPoint offset) {
        const QRect cell = grid->visualRect(grid->model()->index(row - 1, col));
        return grid->viewport()->grab().toImage().pixelColor(cell.topLeft() + offset);
    };
    EXPECT_EQ(colorAt(1, 1, {1, 8}), grid->palette().color(QPalette::Text)) << "the frame";
    EXPECT_NE(colorAt(1, 2, {1, 8}), grid->palette().color(QPalette::Text));
    EXPECT_NE(colorAt(3, 1, {2, 2}), colorAt(3, 0, {2, 2})) << "the tint";
    driver->keys("7");
    driver->key(Qt::Key_Return);
    EXPECT_EQ(grid->textMatrix(1, 1), "7");
}

TEST_F(FlexGridTest, EmptiedOfAllRowsItIsABlankArea)
{
    form->resize(120, 300);
    const auto blank = [&] {
        settle();
        return grid->horizontalHeader()->isHidden() && !grid->horizontalScrollBar()->isVisible();
    };
    EXPECT_FALSE(blank());
    grid->setRows(0);
    EXPECT_TRUE(blank());
    EXPECT_EQ(grid->cols(), 3);
    fill();
    EXPECT_FALSE(blank());
    EXPECT_FALSE(grid->horizontalHeader()->isHidden());
}

TEST_F(FlexGridTest, AFormatChangesWhatIsPaintedAndNotTheText)
{
    EXPECT_EQ(shown(1, 2).toString(), "$1,234.5");
    EXPECT_EQ(shown(2, 2).toString(), "$.");
    EXPECT_EQ(shown(3, 2).toString(), "none");
    EXPECT_EQ(shown(3, 1).toString(), "");
    EXPECT_EQ(shown(1, 2, Qt::EditRole), "1234.5");
    EXPECT_EQ(grid->textMatrix(1, 2), "1234.5");
    grid->setTextMatrix(0, 2, "2010");
    EXPECT_EQ(grid->model()->headerData(2, Qt::Horizontal).toString(), "2010");
    EXPECT_EQ(shown(1, 2, Qt::TextAlignmentRole).toInt(), int(Qt::AlignCenter));
    EXPECT_EQ(grid->model()->headerData(0, Qt::Horizontal, Qt::TextAlignmentRole).toInt(), int(Qt::AlignCenter));
}

TEST_F(FlexGridTest, MissingCellsAreEmptySurplusOnesAreDroppedAndOutsideIsError381)
{
    grid->addItem("4");
    grid->addItem(QStringList{"5", "50", "5", "surplus"});
    EXPECT_EQ(driver->row("it", 4), "4||");
    EXPECT_EQ(driver->row("it", 5), "5|50|5");
    EXPECT_EQ(errorTextOf([&] { grid->textMatrix(6, 0); }), "Subscript out of range");
    for (const auto &[row, col] : {std::pair{6, 0}, {-1, 0}, {1, 3}, {1, -1}}) {
        EXPECT_EQ(errorNumberOf([&] { grid->textMatrix(row, col); }), 381) << row << ',' << col;
        EXPECT_EQ(errorNumberOf([&] { grid->setTextMatrix(row, col, "x"); }), 381) << row << ',' << col;
    }
}

TEST_F(FlexGridTest, ACellTakesAnyTextTabsIncluded)
{
    grid->setTextMatrix(1, 1, "a\tb");
    EXPECT_EQ(grid->textMatrix(1, 1), "a\tb");
    EXPECT_EQ(grid->textMatrix(1, 2), "1234.5");
    grid->setTextMatrix(3, 2, QString::fromUtf8("Z\xc3\xbcrich"));
    EXPECT_EQ(grid->textMatrix(3, 2), QString::fromUtf8("Z\xc3\xbcrich"));
    grid->setTextMatrix(0, 0, "No.");
    EXPECT_EQ(grid->model()->headerData(0, Qt::Horizontal).toString(), "No.");
}

TEST_F(FlexGridTest, OnlyTheUsersMovesRaiseAfterRowColChange)
{
    EXPECT_EQ(grid->row(), -1);
    driver->clickCell("it", 2, 1);
    EXPECT_EQ(events(), Events{"move -1,-1 > 2,1"});
    driver->clickCell("it", 2, 1);
    EXPECT_EQ(events(), Events()) << "the cell was current already";
    driver->key(Qt::Key_Down);
    driver->key(Qt::Key_Left);
    EXPECT_EQ(events(), (Events{"move 2,1 > 3,1", "move 3,1 > 3,0"}));
    grid->removeItem(1);
    grid->setRows(grid->rows() - 1);
    EXPECT_EQ(grid->row(), 1) << "the last row left is current when the current one goes";
    fill();
    EXPECT_EQ(grid->row(), -1);
    EXPECT_EQ(grid->col(), -1);
    EXPECT_EQ(events(), Events());
}

TEST_F(FlexGridTest, EnteringTheGridMakesNoCellCurrentAndTabLeavesIt)
{
    driver->key(Qt::Key_Tab);
    EXPECT_EQ(driver->focus(), "it");
    EXPECT_EQ(grid->row(), -1);
    EXPECT_EQ(events(), Events());
    driver->key(Qt::Key_Down);
    EXPECT_EQ(grid->row(), 1);
    driver->key(Qt::Key_Tab);
    EXPECT_EQ(driver->focus(), "away");
}

TEST_F(FlexGridTest, ADoubleClickTellsTheRowAndZeroForHeaderAndEmptyArea)
{
    driver->doubleClickCell("it", 2, 1);
    EXPECT_EQ(events(), (Events{"move -1,-1 > 2,1", "dblClick 2"}));
    driver->doubleClickCell("it", 0, 1);
    const QPoint empty(grid->viewport()->width() - 3, grid->viewport()->height() - 3);
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, empty);
    EXPECT_EQ(events(), (Events{"dblClick 0", "dblClick 0"}));
}

TEST_F(FlexGridTest, AutoSizeMakesEveryTextFitAndHiddenColumnsKeepTheirData)
{
    grid->setTextMatrix(2, 0, "a rather long text in a narrow column");
    grid->setTextMatrix(2, 2, "123456789");
    grid->autoSize();
    const QFontMetrics metrics(grid->font());
    EXPECT_GE(grid->columnWidth(0), metrics.horizontalAdvance(grid->textMatrix(2, 0)));
    EXPECT_LE(grid->columnWidth(0), metrics.horizontalAdvance(grid->textMatrix(2, 0)) + 24);
    EXPECT_GE(grid->columnWidth(2), metrics.horizontalAdvance("$123,456,789."));
    EXPECT_GE(grid->columnWidth(1), grid->horizontalHeader()->fontMetrics().horizontalAdvance("Qty"));
    grid->setColHidden(1);
    fill();
    EXPECT_TRUE(grid->isColumnHidden(1));
    EXPECT_EQ(grid->textMatrix(1, 1), "10");
}

TEST_F(FlexGridTest, TypingReplacesTheCellAndEachCommitRaisesAfterEdit)
{
    grid->setEditableColumn(1);
    driver->typeCell("it", 1, 1, "77");
    EXPECT_EQ(grid->textMatrix(1, 1), "77");
    EXPECT_EQ(events(), (Events{"move -1,-1 > 1,1", "afterEdit 1,1 77"}));

    driver->key(Qt::Key_F2);
    driver->key(Qt::Key_End);
    driver->keys("8");
    driver->key(Qt::Key_Down);
    EXPECT_EQ(events(), (Events{"afterEdit 1,1 778", "move 1,1 > 2,1"}));

    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_F2}) {
        driver->key(key);
        driver->key(Qt::Key_Return);
        EXPECT_EQ(events(), Events{"afterEdit 2,1 20"}) << "committed unchanged, key " << key;
    }
    driver->keys("9");
    driver->key(Qt::Key_Escape);
    EXPECT_EQ(grid->textMatrix(2, 1), "20");
    EXPECT_EQ(events(), Events());

    QApplication::clipboard()->setText("5\n6");
    driver->key(Qt::Key_F2);
    driver->key(Qt::Key_V, Qt::ControlModifier);
    driver->key(Qt::Key_Return);
    EXPECT_EQ(events(), Events{"afterEdit 2,1 5"}) << "of what is pasted the first line";
}

TEST_F(FlexGridTest, LeavingTheCellByTabOrMouseCommits)
{
    grid->setEditableColumn(1);
    driver->clickCell("it", 1, 1);
    driver->keys("5");
    driver->key(Qt::Key_Tab);
    EXPECT_EQ(driver->focus(), "away");
    driver->clickCell("it", 2, 1);
    driver->keys("6");
    driver->clickCell("it", 3, 0);
    driver->doubleClickCell("it", 3, 1);
    driver->keys("7");
    driver->click("away");
    EXPECT_EQ(driver->grid("it"), (QStringList{"Item|Qty|Price", "1|5|1234.5", "2|6|0", "3|7|none"}));
    EXPECT_EQ(events().filter("afterEdit"), (Events{"afterEdit 1,1 5", "afterEdit 2,1 6", "afterEdit 3,1 7"}));
}

TEST_F(FlexGridTest, WhatLooksSelectedIsTheCurrentRowWhateverIsPressed)
{
    const auto selected = [this] {
        const QModelIndexList rows = grid->selectionModel()->selectedRows();
        return rows.size() == 1 ? rows.first().row() + 1 : -1;
    };
    driver->clickCell("it", 2, 0);
    events();
    const QPoint empty(grid->viewport()->width() - 3, grid->viewport()->height() - 3);
    ASSERT_FALSE(grid->indexAt(empty).isValid());
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, empty);
    driver->key(Qt::Key_Space, Qt::ControlModifier);
    driver->keys("3");
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::ControlModifier,
                      grid->visualRect(grid->model()->index(1, 0)).center());
    EXPECT_EQ(grid->row(), 2);
    EXPECT_EQ(selected(), 2);
    EXPECT_EQ(events(), Events()) << "no letter typed goes to another row either";
    grid->removeItem(2);
    EXPECT_EQ(selected(), grid->row());
}

TEST_F(FlexGridTest, LeftAndRightCommitAnEditAndMoveOn)
{
    grid->setEditableColumn(1);
    driver->clickCell("it", 1, 1);
    driver->keys("7");
    driver->key(Qt::Key_Right);
    EXPECT_EQ(grid->textMatrix(1, 1), "7");
    EXPECT_EQ(grid->col(), 2);
    driver->key(Qt::Key_Left);
    driver->keys("8");
    driver->key(Qt::Key_Left);
    EXPECT_EQ(grid->textMatrix(1, 1), "8");
    EXPECT_EQ(grid->col(), 0);
}

TEST_F(FlexGridTest, OtherColumnsCannotBeEditedAndBeforeEditMayForbid)
{
    grid->setEditableColumn(1);
    bool forbid = false;
    QStringList asked;
    QObject::connect(grid, &FlexGrid::beforeEdit, form, [&](int row, int col, bool &cancel) {
        asked += QStringLiteral("%1,%2").arg(row).arg(col);
        cancel = forbid;
    });
    driver->typeCell("it", 1, 0, "x");
    EXPECT_EQ(grid->textMatrix(1, 0), "1");
    EXPECT_EQ(asked, QStringList{"1,0"}) << "asked on entering";
    forbid = true;
    driver->clickCell("it", 1, 1);
    asked.clear();
    driver->keys("5");
    EXPECT_EQ(asked, QStringList{"1,1"});
    EXPECT_EQ(grid->textMatrix(1, 1), "10");
    EXPECT_EQ(events().filter("afterEdit"), Events());
}

TEST_F(FlexGridTest, AfterEditMayWriteTheCell)
{
    grid->setEditableColumn(1);
    QObject::connect(grid, &FlexGrid::afterEdit, form,
                     [this](int row, int col) { grid->setTextMatrix(row, col, "0"); });
    driver->typeCell("it", 1, 1, "abc");
    EXPECT_EQ(shown(1, 1).toString(), "0");
}

TEST_F(FlexGridTest, RowsAddedWithoutSizingAreSeenOnceTheRoutineHasEnded)
{
    grid->addItem("4\t40\t4");
    EXPECT_EQ(grid->textMatrix(4, 0), "4");
    settle();
    EXPECT_EQ(grid->model()->rowCount(), 4);
    grid->setRows(6);
    EXPECT_EQ(driver->row("it", 5), "||");
    grid->setRows(1);
    EXPECT_EQ(driver->grid("it"), QStringList{"Item|Qty|Price"});
    EXPECT_EQ(grid->model()->rowCount(), 0);
}
} // namespace
