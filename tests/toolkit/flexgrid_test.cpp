#include "tests/toolkit/controlform.h"
#include "toolkit/controls/formatgrid.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>

namespace {
class FlexGridTest : public CompanyTest
{
protected:
    FlexGridTest() { load(); }
    void load()
    {
        form = ControlForm<FlexGrid>::load();
        form->resize(500, 300);
        grid = form->it;
        QObject::connect(grid, &FlexGrid::afterRowColChange, form, [this](int oldRow, int oldCol, int row, int col) {
            log(QStringLiteral("%1,%2>%3,%4").arg(oldRow).arg(oldCol).arg(row).arg(col));
        });
        QObject::connect(grid, &FlexGrid::dblClick, form,
                         [this](int row) { log(QStringLiteral("double %1").arg(row)); });
        QObject::connect(grid, &FlexGrid::afterEdit, form, [this](int row, int col) {
            log(QStringLiteral("edited %1,%2=%3").arg(row).arg(col).arg(grid->textMatrix(row, col)));
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
    QString events() { return form->takeEvents().join(' '); }
    QVariant shown(int row, int col, int role = Qt::DisplayRole) const
    {
        return grid->model()->index(row - 1, col).data(role);
    }
    QVariant head(int col, int role = Qt::DisplayRole) const
    {
        return grid->model()->headerData(col, Qt::Horizontal, role);
    }
    void act(const QString &script)
    {
        const QWidget *area = grid->viewport();
        const QPoint empty(area->width() - 3, area->height() - 3); // below the rows
        ASSERT_FALSE(grid->indexAt(empty).isValid());
        const auto place = [this](const QString &row) {
            return grid->visualRect(grid->model()->index(row.toInt() - 1, 0)).center();
        };
        driver->act(script,
                    {{"double", [&](const QString &row) { driver->doubleClickCell("it", row.toInt(), 1); }},
                     {"empty", [&](auto) { QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, empty); }},
                     {"double empty", [&](auto) { QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, empty); }},
                     {"select", // with Ctrl held
                      [&](const QString &row) {
                          QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::ControlModifier, place(row));
                      }},
                     {"remove", [&](const QString &row) { grid->removeItem(row.toInt()); }},
                     {"rows", [&](const QString &rows) { grid->setRows(rows.toInt()); }},
                     {"fill", [&](auto) { fill(); }}});
    }

    ControlForm<FlexGrid> *form;
    FlexGrid *grid;
    std::unique_ptr<FormDriver> driver;
};

TEST_F(FlexGridTest, TellsTheUsersMovesDoubleClicksAndEditsAlone)
{
    const struct
    {
        const char *title;
        int editable;                        ///< the column, or -1
        const char *script, *events, *state; ///< afterwards: current row and column, the second column, the focus
    } cases[] = {
        {"entering makes no cell current", -1, "<Tab>", "", "-1,-1 10/20/ it"},
        {"and Tab leaves", -1, "<Tab> <Down> <Tab>", "-1,-1>1,0", "1,0 10/20/ away"},
        {"a click on the current cell is no move", -1, "it[2,1]; it[2,1]", "-1,-1>2,1", "2,1 10/20/ it"},
        {"keys move", -1, "it[2,1]; <Down> <Left>", "-1,-1>2,1 2,1>3,1 3,1>3,0", "3,0 10/20/ it"},
        {"the program moves in silence", -1, "it[3,0]; remove: 1; rows: 2", "-1,-1>3,0", "1,0 20 it"},
        {"a refilled grid has no current cell", -1, "it[3,0]; fill", "-1,-1>3,0", "-1,-1 10/20/ it"},
        {"a double-click tells its row", -1, "double: 2", "-1,-1>2,1 double 2", "2,1 10/20/ it"},
        {"and 0 on the header or below the rows", -1, "double: 0; double empty", "double 0 double 0",
         "-1,-1 10/20/ it"},
        {"Enter on a row is a double-click", -1, "it[2,0]; <Return> <Enter>", "-1,-1>2,0 double 2 double 2",
         "2,0 10/20/ it"},
        {"nothing else selects, nor does a letter", -1, "it[2,0]; empty; <Ctrl+Space> 3; select: 2", "-1,-1>2,0",
         "2,0 10/20/ it"},
        {"typing replaces", 1, "it[1,1]; keys: 77 <Return>", "-1,-1>1,1 edited 1,1=77", "1,1 77/20/ it"},
        {"F2 types on, and Down commits", 1, "it[1,1]; <F2> <End> 8 <Down>", "-1,-1>1,1 edited 1,1=108 1,1>2,1",
         "2,1 108/20/ it"},
        {"committed unchanged", 1, "it[2,1]; <Return> <Return>", "-1,-1>2,1 edited 2,1=20", "2,1 10/20/ it"},
        {"by Space", 1, "it[2,1]; <Space> <Return>", "-1,-1>2,1 edited 2,1=20", "2,1 10/20/ it"},
        {"by F2", 1, "it[2,1]; <F2> <Return>", "-1,-1>2,1 edited 2,1=20", "2,1 10/20/ it"},
        {"Esc commits nothing", 1, "it[2,1]; keys: 9 <Esc>", "-1,-1>2,1", "2,1 10/20/ it"},
        {"a paste gives its first line", 1, "it[2,1]; <F2> <Ctrl+V> <Return>", "-1,-1>2,1 edited 2,1=5",
         "2,1 10/5/ it"},
        {"Tab commits and leaves", 1, "it[1,1]; keys: 5 <Tab>", "-1,-1>1,1 edited 1,1=5", "1,1 5/20/ away"},
        {"so does a press elsewhere", 1, "it[2,1]; keys: 6; away", "-1,-1>2,1 edited 2,1=6", "2,1 10/6/ away"},
        {"or on another cell", 1, "it[2,1]; keys: 6; it[3,0]", "-1,-1>2,1 edited 2,1=6 2,1>3,0", "3,0 10/6/ it"},
        {"Right commits and moves", 1, "it[1,1]; keys: 7 <Right>", "-1,-1>1,1 edited 1,1=7 1,1>1,2", "1,2 7/20/ it"},
        {"and Left", 1, "it[1,1]; keys: 8 <Left>", "-1,-1>1,1 edited 1,1=8 1,1>1,0", "1,0 8/20/ it"},
        {"another column takes no typing", 1, "it[1,0]; keys: x <Return>", "-1,-1>1,0", "1,0 10/20/ it"},
        {"a grid to type in is entered in its column", 1, "<Tab> <Down> 7 <Return>", "-1,-1>1,1 edited 1,1=7",
         "1,1 7/20/ it"},
    };
    QApplication::clipboard()->setText("5\n6");
    for (const auto &c : cases) {
        SCOPED_TRACE(c.title);
        load();
        if (c.editable >= 0)
            grid->setEditableColumn(c.editable);
        act(c.script);
        settle(); // the view takes a text over when the key is done with
        EXPECT_EQ(events(), c.events);
        QStringList column;
        for (int row = 1; row < grid->rows(); ++row)
            column += grid->textMatrix(row, 1);
        EXPECT_EQ(QString("%1,%2 %3 %4").arg(grid->row()).arg(grid->col()).arg(column.join('/'), driver->focus()),
                  c.state);
        const QModelIndexList selected = grid->selectionModel()->selectedRows();
        EXPECT_EQ(selected.size() == 1 ? selected.first().row() + 1 : -1, grid->row()) << "what looks current is it";
    }
}

TEST_F(FlexGridTest, RowZeroIsTheHeaderAndAFormatChangesWhatIsPaintedAlone)
{
    EXPECT_EQ(grid->rows(), 4);
    EXPECT_EQ(grid->model()->rowCount(), 3);
    EXPECT_EQ(driver->grid("it"), (QStringList{"Item|Qty|Price", "1|10|1234.5", "2|20|0", "3||none"}));
    EXPECT_EQ(head(1, Qt::EditRole).toString(), "Qty");
    const char *const painted[] = {"1|10|$1,234.5", "2|20|$.", "3||none"};
    for (int row = 1; row <= 3; ++row)
        EXPECT_EQ(driver->shownRow("it", row), painted[row - 1]);
    EXPECT_EQ(shown(1, 2, Qt::EditRole), "1234.5");
    EXPECT_EQ(shown(1, 2, Qt::TextAlignmentRole).toInt(), int(Qt::AlignCenter));
    EXPECT_EQ(head(0, Qt::TextAlignmentRole).toInt(), int(Qt::AlignCenter));
    grid->setTextMatrix(0, 2, "2010");
    EXPECT_EQ(head(2).toString(), "2010") << "a header is no amount";
}

TEST_F(FlexGridTest, TakesAnyTextAndAnyNumberOfCellsAndOutsideIsError381)
{
    grid->addItem("4");
    grid->addItem(QStringList{"5", "50", "5", "surplus"});
    grid->setTextMatrix(3, 1, "a\tb");
    grid->setTextMatrix(3, 2, "Zürich");
    EXPECT_EQ(driver->grid("it").mid(3), (QStringList{"3|a\tb|Zürich", "4||", "5|50|5"}));
    EXPECT_EQ(grid->model()->rowCount(), 3) << "added without sizing they are seen once the routine has ended";
    settle();
    EXPECT_EQ(grid->model()->rowCount(), 5);
    EXPECT_EQ(errorTextOf([&] { grid->textMatrix(6, 0); }), "Subscript out of range");
    for (const auto &[row, col] : {std::pair{6, 0}, {-1, 0}, {1, 3}, {1, -1}}) {
        EXPECT_EQ(errorNumberOf([&] { grid->textMatrix(row, col); }), 381) << row << ',' << col;
        EXPECT_EQ(errorNumberOf([&] { grid->setTextMatrix(row, col, "x"); }), 381) << row << ',' << col;
    }
    grid->setRows(7);
    EXPECT_EQ(driver->row("it", 6), "||");
    grid->setRows(1);
    EXPECT_EQ(driver->grid("it"), QStringList{"Item|Qty|Price"});
}

TEST_F(FlexGridTest, ControlKeysCopyWhatIsShownForASpreadsheet)
{
    grid->setColHidden(0);
    act("it[2,1]; <Ctrl+C>");
    EXPECT_EQ(QApplication::clipboard()->text(), "20\t0\n");
    act("<Ctrl+A>");
    EXPECT_EQ(QApplication::clipboard()->text(), "Qty\tPrice\n10\t1234.5\n20\t0\n\tnone\n");
    EXPECT_EQ(grid->row(), 2);
}

TEST_F(FlexGridTest, AGridToTypeInFramesItsCellAndTintsItsColumn)
{
    grid->setEditableColumn(1);
    act("<Tab> <Down>");
    const auto colorAt = [&](int row, int col, QPoint offset) {
        const QRect cell = grid->visualRect(grid->model()->index(row - 1, col));
        return grid->viewport()->grab().toImage().pixelColor(cell.topLeft() + offset);
    };
    EXPECT_EQ(colorAt(1, 1, {1, 8}), grid->palette().color(QPalette::Text)) << "the frame";
    EXPECT_NE(colorAt(1, 2, {1, 8}), grid->palette().color(QPalette::Text));
    EXPECT_NE(colorAt(3, 1, {2, 2}), colorAt(3, 0, {2, 2})) << "the tint";
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

TEST_F(FlexGridTest, BeforeEditIsAskedOnEnteringAndMayForbidAndAfterEditMayWriteTheCell)
{
    grid->setEditableColumn(1);
    bool forbid = false;
    QStringList asked;
    QObject::connect(grid, &FlexGrid::beforeEdit, form, [&](int row, int col, bool &cancel) {
        asked += QStringLiteral("%1,%2").arg(row).arg(col);
        cancel = forbid;
    });
    QObject::connect(grid, &FlexGrid::afterEdit, form,
                     [this](int row, int col) { grid->setTextMatrix(row, col, "0"); });
    act("it[1,0]; keys: x <Return>");
    EXPECT_EQ(asked.join(' '), "1,0");
    driver->typeCell("it", 2, 1, "abc");
    EXPECT_EQ(shown(2, 1).toString(), "0");
    forbid = true;
    act("it[1,1]");
    asked.clear();
    act("keys: 5");
    EXPECT_EQ(asked.join(' '), "1,1");
    act("<Return>");
    EXPECT_EQ(grid->textMatrix(1, 1), "10");
}
} // namespace
