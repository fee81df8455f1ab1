#include "tests/toolkit/controlform.h"
#include "toolkit/controls/combotypeahead.h"
#include "toolkit/forms/mainmod.h"

#include <QAbstractItemView>

namespace {
/// Lists with type-ahead, so that keys can change from one to the other.
class TwoLists : public Form
{
public:
    TwoLists() : Form("lists", "Lists")
    {
        auto *page = new QVBoxLayout(this);
        boxes = {addList("first"), addList("second"), addEditable("edit")};
        for (ComboBox *box : boxes) {
            page->addWidget(box);
            box->addItems({"AA", "Abacus", "Abc", "Bolt", "A B"});
            setTypeAhead(box);
            connect(box, &ComboBox::click, this, [this] { ++clicks; });
        }
        setTabOrder({boxes[0], boxes[1], boxes[2]});
    }
    std::vector<ComboBox *> boxes;
    int clicks = 0;
};

class TypeAheadTest : public CompanyTest
{
};

TEST_F(TypeAheadTest, CollectsTheKeysThatComeInTimeIntoOneBox)
{
    Forms::add("lists", [] { return new TwoLists; });
    const struct
    {
        const char *title, *script, *texts; ///< of the first list, the second and the editable one
        int clicks;
        double seconds = 1;
    } cases[] = {
        {"a click for each match", "keys: a", "AA||", 1},
        {"also when the entry stays", "keys: a; wait: 0.9; keys: B; wait: 0.9; keys: a", "Abacus||", 3},
        {"a pause as long as the limit starts anew", "keys: a; wait: 1; keys: b", "Bolt||", 2},
        {"so does another box", "keys: a <Tab> b", "AA|Bolt|", 2},
        {"and the way back", "keys: a <Tab> b <Shift+Backtab> b", "Bolt|Bolt|", 3},
        {"a key that finds nothing blocks the search", "keys: a <Backspace> b", "AA||", 1},
        {"until the pause", "keys: a <Backspace> b; wait: 1; keys: b", "Bolt||", 2},
        {"so does Esc", "keys: a <Esc> b", "AA||", 1},
        {"so does Enter", "keys: a <Return> b", "AA||", 1},
        {"a blank is part of the search", "keys: a <Space>", "A B||", 2},
        {"a negative idle time has not expired", "wait: 53999.8; keys: a; wait: 7200; keys: b", "Abacus||", 2},
        {"a limit of 0 makes each key a new search", "keys: a b", "Bolt||", 2, 0},
        {"nothing can be typed into an editable box", "edit; <Esc> x", "||", 0},
        {"but what is in its list", "edit; <Esc>; wait: 2; keys: a b", "||Abacus", 2},
        {"the open list follows", "<F4> b", "Bolt||", 1},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.title);
        TestClock clock("2011-03-30 09:00:00");
        gTypeAheadSeconds = c.seconds;
        FormDriver driver("lists");
        auto *form = static_cast<TwoLists *>(driver.form());
        driver.act(c.script, {{"wait", [&](const QString &seconds) { clock.advance(seconds.toDouble()); }}});
        QStringList texts;
        for (ComboBox *box : form->boxes) {
            texts += box->text();
            EXPECT_TRUE(!box->view()->isVisible() || box->view()->currentIndex().row() == box->listIndex());
        }
        EXPECT_EQ(texts.join('|'), c.texts);
        EXPECT_EQ(form->clicks, c.clicks);
        form->unload();
        settle();
    }
}

TEST_F(TypeAheadTest, AnEmptyListSwallowsTheKey)
{
    ComboBox empty(ComboBox::Style::DropDownList);
    int key = 'a';
    ComboTypeAhead(empty, key, 1);
    EXPECT_EQ(key, 0);
    EXPECT_EQ(empty.listIndex(), -1);
}
} // namespace
