#include "tests/toolkit/controlform.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QScrollBar>
#include <QWheelEvent>

namespace {
using Events = QStringList;

class ComboBoxTest : public DeskTest
{
protected:
    ComboBox *load(ComboBox::Style style, const QStringList &entries = {"Anvil", "Bolt", "Brace", "Clamp", "bolt"})
    {
        form = ControlForm<ComboBox>::load(style);
        form->watch(&ComboBox::click, "Click");
        form->watch(&ComboBox::change, "Change");
        QObject::connect(form->it, &ComboBox::click, form, [this] { textAtClick = form->it->text(); });
        form->it->addItems(entries);
        driver = std::make_unique<FormDriver>("test");
        return form->it;
    }
    ComboBox *list() { return load(ComboBox::Style::DropDownList); }
    ComboBox *editable() { return load(ComboBox::Style::Editable); }
    Events events() { return form->takeEvents(); }

    ControlForm<ComboBox> *form = nullptr;
    std::unique_ptr<FormDriver> driver;
    QString textAtClick;
};

TEST_F(ComboBoxTest, FillingSelectsNothingAndRaisesNothing)
{
    for (const auto style : {ComboBox::Style::DropDownList, ComboBox::Style::Editable}) {
        ComboBox *box = load(style);
        EXPECT_EQ(box->listIndex(), -1);
        EXPECT_EQ(box->text(), "");
        box->addItem(2.5);
        box->addItem(Date(2011, 3, 30));
        EXPECT_EQ(box->list(5), "2.5");
        EXPECT_EQ(box->list(6), "3/30/2011");
        EXPECT_EQ(errorNumberOf([&] { box->addItem(Value()); }), 94);
        EXPECT_EQ(events(), Events());
        form->unload();
        settle();
    }
}

TEST_F(ComboBoxTest, FillingKeepsWhatAnEditableBoxShows)
{
    ComboBox *box = load(ComboBox::Style::Editable, {});
    box->setText("typed");
    events();
    box->addItem("first");
    EXPECT_EQ(box->text(), "typed");
    EXPECT_EQ(box->listIndex(), -1);
    EXPECT_EQ(events(), Events());
}

TEST_F(ComboBoxTest, ADropDownListTakesItsEntriesOnlyAndClicksOnEachAssignment)
{
    ComboBox *box = list();
    box->setText("BRACE");
    EXPECT_EQ(box->text(), "Brace");
    EXPECT_EQ(box->listIndex(), 2);
    EXPECT_EQ(textAtClick, "Brace") << "the text is new already when Click runs";
    box->setText("Brace");
    box->setListIndex(2);
    EXPECT_EQ(events(), (Events{"Click", "Click", "Click"}));

    EXPECT_EQ(errorTextOf([&] { box->setText("Brac"); }), "'Text' property is read-only");
    EXPECT_EQ(box->text(), "Brace");
    box->setText("bolt");
    EXPECT_EQ(box->listIndex(), 1) << "the first of equal entries";
    events();
    box->setText("");
    EXPECT_EQ(box->listIndex(), -1);
    EXPECT_EQ(box->text(), "");
    EXPECT_EQ(events(), Events());
}

TEST_F(ComboBoxTest, AnIndexBeyondTheListIsError380ButReadsAsNoText)
{
    for (const auto style : {ComboBox::Style::DropDownList, ComboBox::Style::Editable}) {
        ComboBox *box = load(style);
        EXPECT_EQ(errorNumberOf([&] { box->setListIndex(5); }), 380);
        EXPECT_EQ(errorNumberOf([&] { box->setListIndex(-2); }), 380);
        EXPECT_EQ(box->list(5), "");
        EXPECT_EQ(box->list(-1), "");
        form->unload();
        settle();
    }
}

TEST_F(ComboBoxTest, AnEditableBoxHoldsAnyTextAndChangesWithoutClicking)
{
    ComboBox *box = editable();
    box->setText("Gasket");
    EXPECT_EQ(box->listIndex(), -1);
    box->setText("Gasket");
    EXPECT_EQ(events(), Events{"Change"}) << "no change, no event";
    box->setText("CLAMP");
    EXPECT_EQ(box->text(), "CLAMP");
    EXPECT_EQ(box->listIndex(), 3);
    EXPECT_EQ(events(), Events{"Change"});
    box->setListIndex(0);
    EXPECT_EQ(box->text(), "Anvil");
    EXPECT_EQ(events(), Events{"Click"});
    box->setListIndex(-1);
    EXPECT_EQ(box->text(), "");
    EXPECT_EQ(events(), Events());
}

TEST_F(ComboBoxTest, TypingIntoAnEditableBoxChangesPerKeyAndNeverSelects)
{
    ComboBox *box = editable();
    driver->keys("Bolt");
    EXPECT_EQ(box->text(), "Bolt");
    EXPECT_EQ(events(), (Events{"Change", "Change", "Change", "Change"}));
    driver->key(Qt::Key_Return);
    driver->click("away");
    EXPECT_EQ(events(), Events());
    EXPECT_EQ(box->text(), "Bolt");
    QTest::keyClick(box->findChild<QLineEdit *>(), Qt::Key_Backspace);
    EXPECT_EQ(box->text(), "Bol");
    EXPECT_EQ(box->listIndex(), -1);
    box->setText(box->list(1));
    EXPECT_EQ(box->listIndex(), 1);
    QTest::keyClick(box->findChild<QLineEdit *>(), Qt::Key_Backspace);
    EXPECT_EQ(box->listIndex(), -1) << "the entry was typed over";
}

TEST_F(ComboBoxTest, PickingFromTheListClicksAlsoOnTheEntryAlreadySelected)
{
    for (const auto style : {ComboBox::Style::DropDownList, ComboBox::Style::Editable}) {
        SCOPED_TRACE(int(style));
        ComboBox *box = load(style);
        driver->choose("it", "Clamp");
        EXPECT_EQ(box->text(), "Clamp");
        EXPECT_EQ(textAtClick, "Clamp");
        EXPECT_EQ(events(), Events{"Click"});
        driver->choose("it", "Clamp");
        EXPECT_EQ(events(), Events{"Click"});
        EXPECT_TRUE(box->hasFocus());
        driver->key(Qt::Key_Up);
        EXPECT_EQ(box->text(), "Brace");
        EXPECT_EQ(events(), Events{"Click"});
        form->unload();
        settle();
    }
}

TEST_F(ComboBoxTest, AToolThatSetsTheIndexFromOutsideClicksOnce)
{
    ComboBox *box = list();
    box->setCurrentIndex(3);
    EXPECT_EQ(events(), Events{"Click"});
    emit box->activated(3);
    EXPECT_EQ(events(), Events());
}

TEST_F(ComboBoxTest, ALetterSelectsTheNextEntryThatStartsWithItRoundTheEnd)
{
    ComboBox *box = list();
    QStringList selected;
    for (const char key : {'b', 'b', 'b', 'b', 'x', 'a'}) {
        driver->keys(QChar(key));
        selected += box->text();
    }
    EXPECT_EQ(selected, (QStringList{"Bolt", "Brace", "bolt", "Bolt", "Bolt", "Anvil"}));
    EXPECT_EQ(events().count("Click"), 5);
}

TEST_F(ComboBoxTest, TheWheelMovesOnlyTheBoxThatHasTheFocus)
{
    ComboBox *box = list();
    box->setListIndex(1);
    const auto turn = [&] {
        QWheelEvent wheel({5, 5}, box->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(box, &wheel);
        return box->text();
    };
    driver->click("away");
    EXPECT_EQ(turn(), "Bolt");
    driver->click("it");
    box->hidePopup();
    events();
    EXPECT_EQ(turn(), "Brace");
    EXPECT_EQ(events(), Events{"Click"});
}

TEST_F(ComboBoxTest, KeyPressTellsCharactersAndNotMovingKeysAndMaySwallowThem)
{
    ComboBox *box = editable();
    QList<int> codes;
    QObject::connect(box, &ComboBox::keyPress, form, [&](int &keyAscii) {
        codes += keyAscii;
        if (keyAscii == 'x')
            keyAscii = 0;
    });
    driver->keys("axb");
    for (const Qt::Key key :
         {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Backspace, Qt::Key_F2, Qt::Key_Delete, Qt::Key_Left})
        driver->key(key);
    EXPECT_EQ(codes, (QList<int>{'a', 'x', 'b', 13, 27, 8}));
    EXPECT_EQ(box->text(), "a");
}

TEST_F(ComboBoxTest, ALongListIsSearchedFromTheTopInAnyCase)
{
    QStringList entries;
    for (int i = 0; i < 200000; ++i)
        entries += QStringLiteral("Part %1").arg(i, 6, 10, QChar('0'));
    ComboBox *box = load(ComboBox::Style::DropDownList, entries);
    EXPECT_EQ(box->findString("pART 1999"), 199900);
    EXPECT_EQ(box->findString("Q"), -1);
    driver->choose("it", "Part 150000");
    EXPECT_EQ(box->listIndex(), 150000);
}

TEST_F(ComboBoxTest, ALongListDropsDownBelowItsBoxWithAllEntriesInReachOfItsScrollBar)
{
    const QString wide = "Northern Valley Railway Equipment and Boiler Works";
    QStringList entries{wide};
    for (int i = 1; i < 20000; ++i)
        entries += QStringLiteral("Part %1").arg(i);
    ComboBox *box = load(ComboBox::Style::DropDownList, entries);
    driver->click("it");
    const QAbstractItemView *list = box->view();
    EXPECT_GE(list->mapToGlobal(QPoint()).y(), box->mapToGlobal(QPoint(0, box->height())).y() - 1);
    const int shown = list->viewport()->height() / list->visualRect(list->indexAt({1, 1})).height();
    EXPECT_EQ(shown, 16);
    EXPECT_EQ(list->verticalScrollBar()->maximum(), int(entries.size()) - shown);
    const int text = list->fontMetrics().horizontalAdvance(wide);
    ASSERT_GT(text, box->width());
    EXPECT_GE(list->width(), std::min(text, 2 * box->width())) << "the list may be wider than its box";
    driver->key(Qt::Key_End);
    driver->key(Qt::Key_Return);
    EXPECT_EQ(box->text(), "Part 19999");

    box->setListIndex(10000);
    box->showPopup();
    const QRect chosen = list->visualRect(list->currentIndex());
    EXPECT_EQ(list->currentIndex().row(), 10000);
    EXPECT_LE(std::abs(chosen.center().y() - list->viewport()->rect().center().y()), chosen.height());
}

TEST_F(ComboBoxTest, InTheLoweredListArrowsSelectAndTabKeepsAndGoesOn)
{
    for (const auto style : {ComboBox::Style::DropDownList, ComboBox::Style::Editable}) {
        ComboBox *box = style == ComboBox::Style::Editable ? editable() : list();
        QApplication::setActiveWindow(mdi.get()); // as a desktop does when a list goes
        box->setListIndex(0);
        events();
        driver->key(Qt::Key_Down, Qt::AltModifier);
        ASSERT_TRUE(box->view()->isVisible());
        events();
        driver->key(Qt::Key_Down);
        EXPECT_EQ(box->listIndex(), 1);
        driver->key(Qt::Key_End);
        EXPECT_EQ(box->listIndex(), box->listCount() - 1);
        driver->key(Qt::Key_Up);
        EXPECT_EQ(events(), (Events{"Click", "Click", "Click"}));
        driver->key(Qt::Key_Tab);
        EXPECT_FALSE(box->view()->isVisible());
        EXPECT_EQ(box->listIndex(), box->listCount() - 2);
        EXPECT_EQ(driver->focus(), "away");
        events();
        form->unload();
        settle();
    }
}
} // namespace
