#include "tests/toolkit/controlform.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QScrollBar>
#include <QWheelEvent>

namespace {
class ComboBoxTest : public CompanyTest
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
    /// What a script, with steps of the program in it, raises.
    QString raised(const QString &script)
    {
        ComboBox *box = form->it;
        const auto errorOf = [this](const std::function<void()> &step) {
            if (const int error = errorNumberOf(step))
                form->events += QString::number(error);
        };
        form->takeEvents();
        driver->act(script,
                    {{"text", [&](const QString &text) { errorOf([&] { box->setText(text); }); }},
                     {"index", [&](const QString &index) { errorOf([&] { box->setListIndex(index.toInt()); }); }},
                     {"add", [&](const QString &entry) { box->addItem(entry); }},
                     {"pick",
                      [&](const QString &entry) {
                          driver->choose("it", entry);
                          EXPECT_EQ(textAtClick, box->text()) << "the text is new already when Click runs";
                      }},
                     {"tool", // what works the box from outside sets the index first and tells it then
                      [&](const QString &index) {
                          box->setCurrentIndex(index.toInt());
                          emit box->activated(index.toInt());
                      }}});
        return form->takeEvents().join(' ');
    }

    ControlForm<ComboBox> *form = nullptr;
    std::unique_ptr<FormDriver> driver;
    QString textAtClick;
};

const auto List = ComboBox::Style::DropDownList, Editable = ComboBox::Style::Editable;

TEST_F(ComboBoxTest, RaisesClickForEachSelectionAndChangeForEachNewText)
{
    const struct
    {
        ComboBox::Style style;
        const char *script, *events, *state; ///< afterwards: index, text and who has the focus
    } cases[] = {
        {List, "", "", "-1||it"},
        {List, "text: BRACE", "Click", "2|Brace|it"},
        {List, "text: Brace; text: Brace; index: 2", "Click Click Click", "2|Brace|it"},
        {List, "text: bolt", "Click", "1|Bolt|it"}, // the first of equal entries
        {List, "text: Brace; text: Brac", "Click 383", "2|Brace|it"},
        {List, "text: Brace; text:", "Click", "-1||it"},
        {List, "index: 5; index: -2", "380 380", "-1||it"},
        {List, "pick: Clamp; pick: Clamp; <Up>", "Click Click Click", "2|Brace|it"},
        {List, "tool: 3", "Click", "3|Clamp|it"},
        {List, "keys: bb", "Click Click", "2|Brace|it"},
        {List, "keys: bbb", "Click Click Click", "4|bolt|it"},
        {List, "keys: bbbbx", "Click Click Click Click", "1|Bolt|it"}, // round by the end
        {List, "index: 0; <Alt+Down> <Down> <End> <Up> <Tab>", "Click Click Click Click", "3|Clamp|away"},
        {Editable, "", "", "-1||it"},
        {Editable, "text: typed; add: first", "Change", "-1|typed|it"},
        {Editable, "text: Gasket; text: Gasket", "Change", "-1|Gasket|it"},
        {Editable, "text: Gasket; text: CLAMP", "Change Change", "3|CLAMP|it"},
        {Editable, "index: 0; index: 0", "Click Click", "0|Anvil|it"},
        {Editable, "index: 0; index: -1", "Click", "-1||it"},
        {Editable, "index: 5; index: -2", "380 380", "-1||it"},
        {Editable, "keys: Bol <Return>; away", "Change Change Change", "-1|Bol|away"},
        {Editable, "text: Bolt; <End> <Backspace>", "Change Change", "-1|Bol|it"},
        {Editable, "index: 1; <End> <Backspace>", "Click Change", "-1|Bol|it"}, // the entry was typed over
        {Editable, "pick: Clamp; pick: Clamp; <Up>", "Click Click Click", "2|Brace|it"},
        {Editable, "index: 0; <Alt+Down> <Down> <End> <Up> <Tab>", "Click Click Click Click", "3|Clamp|away"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.script);
        ComboBox *box = load(c.style);
        EXPECT_EQ(raised(c.script), c.events);
        EXPECT_EQ(QString("%1|%2|%3").arg(box->listIndex()).arg(box->text(), driver->focus()), c.state);
        EXPECT_FALSE(box->view()->isVisible());
    }
}

TEST_F(ComboBoxTest, HoldsNumbersAndDatesAsTextAndNoNull)
{
    ComboBox *box = load(List, {});
    box->addItem(2.5);
    box->addItem(Date(2011, 3, 30));
    EXPECT_EQ(box->list(0) + " " + box->list(1), "2.5 3/30/2011");
    EXPECT_EQ(box->list(2) + box->list(-1), "");
    EXPECT_EQ(errorNumberOf([&] { box->addItem(Value()); }), 94);
    EXPECT_EQ(errorTextOf([&] { box->setText("x"); }), "'Text' property is read-only");
}

TEST_F(ComboBoxTest, TheWheelMovesOnlyTheBoxThatHasTheFocus)
{
    ComboBox *box = load(List);
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
    EXPECT_EQ(turn(), "Brace");
}

TEST_F(ComboBoxTest, KeyPressTellsCharactersAndNotMovingKeysAndMaySwallowThem)
{
    ComboBox *box = load(Editable);
    QList<int> codes;
    QObject::connect(box, &ComboBox::keyPress, form, [&](int &keyAscii) {
        codes += keyAscii;
        if (keyAscii == 'x')
            keyAscii = 0;
    });
    driver->act("keys: axb <Return> <Esc> <Backspace> <F2> <Del> <Left>");
    EXPECT_EQ(codes, (QList<int>{'a', 'x', 'b', 13, 27, 8}));
    EXPECT_EQ(box->text(), "a");
}

TEST_F(ComboBoxTest, ALongListIsSearchedFromTheTopAndDropsDownWithAllEntriesInReachOfItsScrollBar)
{
    const QString wide = "Northern Valley Railway Equipment and Boiler Works";
    QStringList entries{wide};
    for (int i = 1; i < 200000; ++i)
        entries += QStringLiteral("Part %1").arg(i, 6, 10, QChar('0'));
    ComboBox *box = load(List, entries);
    EXPECT_EQ(box->findString("pART 1999"), 199900);
    EXPECT_EQ(box->findString("Q"), -1);
    driver->click("it");
    const QAbstractItemView *list = box->view();
    EXPECT_GE(list->mapToGlobal(QPoint()).y(), box->mapToGlobal(QPoint(0, box->height())).y() - 1);
    const int shown = list->viewport()->height() / list->visualRect(list->indexAt({1, 1})).height();
    EXPECT_EQ(shown, 16);
    EXPECT_EQ(list->verticalScrollBar()->maximum(), int(entries.size()) - shown);
    const int text = list->fontMetrics().horizontalAdvance(wide);
    ASSERT_GT(text, box->width());
    EXPECT_GE(list->width(), std::min(text, 2 * box->width())) << "the list may be wider than its box";
    driver->act("<End> <Return>");
    EXPECT_EQ(box->text(), "Part 199999");

    box->setListIndex(100000);
    box->showPopup();
    const QRect chosen = list->visualRect(list->currentIndex());
    EXPECT_EQ(list->currentIndex().row(), 100000);
    EXPECT_LE(std::abs(chosen.center().y() - list->viewport()->rect().center().y()), chosen.height());
}
} // namespace
