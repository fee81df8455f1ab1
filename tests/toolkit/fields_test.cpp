#include "tests/toolkit/controlform.h"

#include "data/values/format.h"
#include <QApplication>
#include <QCalendarWidget>
#include <QClipboard>
#include <QImage>
#include <QMimeData>

namespace {
class FieldsTest : public CompanyTest
{
protected:
    /// All the ways in which the focus comes to the control of a form, whose text stands in that line.
    static std::vector<std::function<void()>> waysIn(FormDriver &driver, QLineEdit *line)
    {
        return {[line] {
                    QTest::mouseClick(line, Qt::LeftButton, {}, {line->width() - 4, 5});
                },
                [&driver] { driver.act("<Tab>"); }, [&driver] { driver.act("<Shift+Backtab>"); },
                [&driver] {
                    driver.control<QWidget>("it")->setFocus();
                    settle();
                }};
    }
};

TEST_F(FieldsTest, ATextBoxChangesOnRealChangesOnlyByKeyAndByAssignment)
{
    auto *form = ControlForm<TextBox>::load();
    form->watch(&TextBox::change, "Change");
    FormDriver driver("test");
    for (const char *text : {"abc", "abc", "", ""})
        form->it->setText(text);
    EXPECT_EQ(form->takeEvents().size(), 2);
    driver.act("it; keys: xy");
    EXPECT_EQ(form->takeEvents().size(), 2);
    driver.click("away");
    form->it->setText("a text that is far wider than its box " + QString("x").repeated(300));
    EXPECT_EQ(form->it->cursorPosition(), 0) << "shows from its beginning";
}

TEST_F(FieldsTest, SelectAllOnFocusLetsTypingReplaceTheTextHoweverTheFocusCame)
{
    auto *form = ControlForm<TextBox>::load();
    FormDriver driver("test");
    for (const bool selectAll : {false, true}) {
        form->it->setSelectAllOnFocus(selectAll);
        for (const auto &enter : waysIn(driver, form->it)) {
            form->it->setText("old");
            driver.click("away");
            enter();
            driver.keys("n");
            EXPECT_EQ(form->it->text() == "n", selectAll) << form->it->text().toStdString();
        }
    }
    driver.act("away; it; it");
    EXPECT_FALSE(form->it->hasSelectedText()) << "a second press sets the caret";
}

TEST_F(FieldsTest, AMoneyBoxHoldsTheRawTextAndPaintsTheFormattedOneWithoutTheFocus)
{
    QApplication::setCursorFlashTime(0);
    auto *form = ControlForm<MaskEdBox>::load();
    FormDriver driver("test");
    driver.type("it", "(1234.5)");
    driver.click("away");
    EXPECT_EQ(driver.text("it"), "(1234.5)");
    for (const auto &[raw, formatted] : {std::pair("(1234.5)", "($1,234.50)"), {"n/a", "n/a"}, {"", ""}}) {
        form->it->setText(raw);
        EXPECT_EQ(form->it->formattedText(), formatted);
    }
    const auto painted = [&](const QString &text, const QString &format) {
        form->it->setText(text);
        form->it->setFormat(format);
        return form->it->grab().toImage();
    };
    const QString money = MoneyBoxFormat.toString();
    EXPECT_NE(painted("1234.5", money), painted("1234.5", ""));
    EXPECT_EQ(painted("1234.5", money), painted("$1,234.50", "")) << "the same as the formatted text typed out";
    driver.click("it");
    EXPECT_EQ(painted("1234.5", money), painted("1234.5", "")) << "raw while it is typed into";
}

TEST_F(FieldsTest, ADatePickerStartsTodayAndTakesDatesWithTheirTimeAlone)
{
    const TestClock clock("2011-03-30 16:45:00");
    auto *form = ControlForm<DTPicker>::load();
    FormDriver driver("test");
    EXPECT_EQ(form->it->value(), Date(2011, 3, 30));
    EXPECT_EQ(errorNumberOf([&] { form->it->setValue(Value()); }), 35787);
    EXPECT_EQ(errorNumberOf([&] { form->it->setValue("soon"); }), 13);
    EXPECT_EQ(errorNumberOf([&] { form->it->setValue(Date(1492, 10, 12)); }), 380);
    EXPECT_EQ(form->it->value(), Date(2011, 3, 30));
    const Date noon(Date(2011, 3, 9).serial() + 0.5);
    form->it->setValue(noon);
    EXPECT_EQ(driver.text("it"), "3/9/2011");
    driver.act("it; keys: 2/30/2012");
    EXPECT_EQ(form->it->value(), noon) << "what is refused leaves the time, at once when the year is complete";
    driver.act("it: 12/31/2012");
    EXPECT_EQ(form->it->value().toText(), "12/31/2012");
    form->it->setValue(QStringLiteral("4/1/2011"));
    EXPECT_EQ(form->it->value(), Date(2011, 4, 1));
}

TEST_F(FieldsTest, ADateIsTypedOnAroundKeysPastesAndTheCalendarAndReadAsWrittenOrRefused)
{
    const struct
    {
        const char *script, *expected; ///< into 3/15/2012
    } cases[] = {{"4/9/2025", "4/9/2025"},
                 {"4/9/25", "4/9/2025"},
                 {"3-30-2011", "3/30/2011"},
                 {"3/30/11", "3/30/2011"},
                 {"3.30.2011", "3/30/2011"},
                 {"12312010", "12/31/2010"},
                 {"492025", "4/9/2025"},
                 {"4/9/30", "4/9/1930"},
                 {"4", "4/15/2012"},
                 {"/20", "3/20/2012"},
                 {"2/29/2012", "2/29/2012"},
                 {"2/30/2012", "3/15/2012"},
                 {"2/30/12", "3/15/2012"},
                 {"13/4/2011", "3/15/2012"},
                 {"1/1/1500", "3/15/2012"},
                 {"12/31/9999", "12/31/9999"},
                 {"4/9/254/10/25", "4/10/2025"},
                 {"4/9/2512/10/25", "12/10/2025"},
                 {"4/9/20255/10/2026", "5/10/2026"},
                 {"4/9/253-30-2011", "3/30/2011"},
                 {"4/9/2504/10/26", "4/10/2026"},
                 {"3/30/111/2/26", "1/2/2026"},
                 {"4/9/254/10/2512/11/26", "12/11/2026"},
                 {"4/9/20254/10/265/11/27", "5/11/2027"},
                 {"123120104/9/25", "4/9/2025"},
                 {"4/9/252/30/26", "3/15/2012"},
                 {"4/9/53/1/6", "3/15/2012"},
                 {"4/9/", "4/9/2012"},
                 {"4-9/25", "4/9/2025"},
                 {"4//9", "4/15/2009"},
                 {"<End> 25", "3/15/2025"},
                 {"<Right> 9", "3/9/2012"},
                 {"<Up>", "4/15/2012"},
                 {"4/9/25 <Left> 7", "4/7/2025"},
                 {"4/9/2025 <Home> 5", "5/9/2025"},
                 {"4/9/25 <Backspace> 6", "4/9/2026"},
                 {"4/9; copy: 1/2/26; <Ctrl+V>", "1/2/2026"},
                 {"; copy: 1/2/26; <Ctrl+V> 4/9/25", "4/9/2025"},
                 {"4/9/25; copy: 1/2/26; <Ctrl+V>", "1/2/2026"},
                 {"; copy: 2/29/01; <Ctrl+V>", "3/15/2012"},
                 {"; copy: soon; <Ctrl+V>", "3/15/2012"},
                 {"4/9/25; calendar: <F4>; <Home> 4/10/26", "4/10/2026"},
                 {"4/9/25; calendar: <Alt+Down>; <Home> 4/10/26", "4/10/2026"},
                 {"4/9/25 <Up>", "4/9/2026"},
                 {"4/9/25 <Return> <Home> 5/10/26", "5/10/2026"}};
    auto *form = ControlForm<DTPicker>::load();
    FormDriver driver("test");
    for (const auto &date : cases) {
        SCOPED_TRACE(date.script);
        form->it->setValue(Date(2012, 3, 15));
        driver.act("away; <Tab>; keys: " + QString(date.script),
                   {{"copy", [](const QString &text) { QApplication::clipboard()->setText(text + "\n"); }},
                    {"calendar", [&](const QString &key) {
                         driver.act(key);
                         ASSERT_TRUE(form->it->calendarWidget()->isVisible());
                         QTest::keyClick(form->it->calendarWidget(), Qt::Key_Escape);
                         form->it->calendarWidget()->window()->close();
                         form->it->setFocus();
                     }}});
        driver.key(Qt::Key_Tab);
        EXPECT_EQ(driver.focus(), "away") << "Tab leaves the picker, whatever part the caret is in";
        EXPECT_EQ(form->it->value().toText(), date.expected);
        EXPECT_EQ(driver.text("it"), date.expected);
    }
}

TEST_F(FieldsTest, TypingADateBeginsAtTheMonthHoweverTheFocusCame)
{
    auto *form = ControlForm<DTPicker>::load();
    FormDriver driver("test");
    auto *line = form->it->findChild<QLineEdit *>();
    for (const auto &enter : waysIn(driver, line)) {
        form->it->setValue(Date(2011, 3, 30));
        driver.click("away");
        enter();
        EXPECT_EQ(line->selectedText(), "3");
        driver.keys("5");
        EXPECT_EQ(form->it->value().toText(), "5/30/2011");
    }
    QTest::mouseClick(line, Qt::LeftButton, {}, {24, 8});
    driver.keys("7");
    EXPECT_EQ(form->it->value().toText(), "5/7/2011") << "a second click selects the part under the mouse";
}

TEST_F(FieldsTest, OneLineBoxesTakePastedAndDroppedTextUpToItsFirstLineEnd)
{
    TextBox text;
    ComboBox combo(ComboBox::Style::Editable);
    QApplication::clipboard()->setText("one\r\ntwo\n");
    QMimeData dragged;
    dragged.setText("three\nfour");
    for (QLineEdit *box : std::initializer_list<QLineEdit *>{&text, combo.lineEdit()}) {
        box->setText("[]");
        box->setCursorPosition(1);
        QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(box->text(), "[one]");

        QDragEnterEvent enter({0, 5}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(box, &enter);
        QDropEvent drop({0, 5}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(box, &drop);
        EXPECT_EQ(box->text(), "three[one]");

        QContextMenuEvent rightClick(QContextMenuEvent::Mouse, {2, 2}, {2, 2});
        QCoreApplication::sendEvent(box, &rightClick);
        box->clear();
        QWidget *menu = QApplication::activePopupWidget();
        ASSERT_TRUE(menu);
        for (QAction *entry : menu->actions())
            if (entry->text().startsWith("&Paste"))
                entry->trigger();
        menu->close();
        EXPECT_EQ(box->text(), "one");
    }
}
} // namespace
