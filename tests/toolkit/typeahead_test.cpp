#include "tests/toolkit/controlform.h"
#include "toolkit/controls/combotypeahead.h"
#include "toolkit/forms/mainmod.h"

#include <QAbstractItemView>

namespace {
/// Two lists with type-ahead, so that keys can change from one to the other.
class TwoLists : public Form
{
public:
    TwoLists() : Form("lists", "Lists")
    {
        auto *page = new QVBoxLayout(this);
        for (ComboBox *box : {first = addList("first"), second = addList("second"), edit = addEditable("edit")}) {
            page->addWidget(box);
            box->addItems({"AA", "Abacus", "Abc", "Bolt", "A B"});
            setTypeAhead(box);
            connect(box, &ComboBox::click, this, [this] { ++clicks; });
        }
        setTabOrder({first, second, edit});
    }
    ComboBox *first, *second, *edit;
    int clicks = 0;
};

class TypeAheadTest : public DeskTest
{
protected:
    TypeAheadTest()
    {
        Forms::add("lists", [] { return new TwoLists; });
        driver = std::make_unique<FormDriver>("lists");
        form = static_cast<TwoLists *>(driver->form());
    }
    /// Types one character into the box that has the focus.
    void press(const QString &character) { driver->keys(character); }

    TestClock clock{"2011-03-30 09:00:00"};
    std::unique_ptr<FormDriver> driver;
    TwoLists *form;
};

TEST_F(TypeAheadTest, FastKeysAreCollectedAndClickOnEveryMatch)
{
    press("a");
    EXPECT_EQ(form->first->text(), "AA");
    clock.advance(0.9);
    press("B");
    EXPECT_EQ(form->first->text(), "Abacus");
    clock.advance(0.9);
    press("a");
    EXPECT_EQ(form->first->text(), "Abacus");
    EXPECT_EQ(form->clicks, 3) << "one for each matching key, also when the entry stays";
}

TEST_F(TypeAheadTest, APauseOfTheTimeOutStartsANewSearch)
{
    press("a");
    clock.advance(1);
    press("b");
    EXPECT_EQ(form->first->text(), "Bolt");
}

TEST_F(TypeAheadTest, AnotherBoxStartsANewSearchWithinTheTimeOut)
{
    press("a");
    driver->key(Qt::Key_Tab);
    press("b");
    EXPECT_EQ(form->second->text(), "Bolt");
    driver->key(Qt::Key_Backtab, Qt::ShiftModifier);
    press("b");
    EXPECT_EQ(form->first->text(), "Bolt");
}

TEST_F(TypeAheadTest, AKeyThatFindsNothingBlocksTheSearchUntilThePause)
{
    for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Escape, Qt::Key_Return}) {
        press("a");
        driver->key(key);
        press("b");
        EXPECT_EQ(form->first->text(), "AA");
        clock.advance(1);
    }
    press("b");
    EXPECT_EQ(form->first->text(), "Bolt");
}

TEST_F(TypeAheadTest, ABlankIsPartOfTheSearch)
{
    press("a");
    press(" ");
    EXPECT_EQ(form->first->text(), "A B");
    EXPECT_FALSE(form->first->view()->isVisible());
}

TEST_F(TypeAheadTest, AKeyJustAfterMidnightGoesOnWithTheSearch)
{
    clock.advance(15 * 3600 - 0.2); // 23:59:59.8
    press("a");
    clock.advance(7200);
    press("b");
    EXPECT_EQ(form->first->text(), "Abacus") << "a negative idle time has not expired, however long";
}

TEST_F(TypeAheadTest, ATimeOutOfZeroMakesEveryKeyANewSearch)
{
    gTypeAheadSeconds = 0;
    press("a");
    press("b");
    EXPECT_EQ(form->first->text(), "Bolt");
}

TEST_F(TypeAheadTest, NothingCanBeTypedIntoAnEditableBox)
{
    driver->click("edit");
    form->edit->hidePopup();
    press("x");
    EXPECT_EQ(form->edit->text(), "");
    clock.advance(2);
    press("a");
    press("b");
    EXPECT_EQ(form->edit->text(), "Abacus");
}

TEST_F(TypeAheadTest, AnEmptyListSwallowsTheKey)
{
    ComboBox empty(ComboBox::Style::DropDownList);
    int key = 'a';
    ComboTypeAhead(empty, key, 1);
    EXPECT_EQ(key, 0);
    EXPECT_EQ(empty.listIndex(), -1);
}

TEST_F(TypeAheadTest, TheOpenListFollowsTheSearch)
{
    driver->key(Qt::Key_F4);
    ASSERT_TRUE(form->first->view()->isVisible());
    QTest::keyClick(form->first->view(), 'b');
    EXPECT_EQ(form->first->text(), "Bolt");
    EXPECT_EQ(form->first->view()->currentIndex().row(), 3);
    QTest::keyClick(form->first->view(), Qt::Key_Escape);
}
} // namespace
