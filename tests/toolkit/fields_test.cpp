#include "tests/toolkit/controlform.h"

#include "data/values/format.h"
#include <QApplication>
#include <QCalendarWidget>
#include <QClipboard>
#include <QImage>
#include <QMimeData>

namespace {
class FieldsTest : public DeskTest
{
};

TEST_F(FieldsTest, ATextBoxChangesOnRealChangesOnlyByKeyAndByAssignment)
{
    auto *form = ControlForm<TextBox>::load();
    form->watch(&TextBox::change, "Change");
    FormDriver driver("test");
    form->it->setText("abc");
    form->it->setText("abc");
    form->it->clear();
    form->it->clear();
    EXPECT_EQ(form->takeEvents().size(), 2);
    driver.click("it");
    driver.keys("xy");
    EXPECT_EQ(form->takeEvents().size(), 2);
}

TEST_F(FieldsTest, SelectAllOnFocusLetsTypingReplaceTheTextHoweverTheFocusCame)
{
    auto *form = ControlForm<TextBox>::load();
    FormDriver driver("test");
    const auto typeAfter = [&](bool selectAll, const std::function<void()> &enter) {
        form->it->setSelectAllOnFocus(selectAll);
        form->it->setText("old");
        driver.click("away");
        enter();
        driver.keys("n");
        return form->it->text();
    };
    const auto byMouse = [&] { QTest::mouseClick(form->it, Qt::LeftButton, {}, {form->it->width() - 4, 5}); };
    const auto byTab = [&] { driver.key(Qt::Key_Tab); };
    const auto byProgram = [&] { form->it->setFocus(); };
    EXPECT_EQ(typeAfter(true, byMouse), "n");
    EXPECT_EQ(typeAfter(true, byTab), "n");
    EXPECT_EQ(typeAfter(true, byProgram), "n");
    EXPECT_EQ(typeAfter(false, byMouse), "oldn");
    EXPECT_EQ(typeAfter(false, byTab), "oldn");

    form->it->setSelectAllOnFocus(true);
    byMouse();
    byMouse();
    EXPECT_FALSE(form->it->hasSelectedText()) << "a second press sets the caret";
}

TEST_F(FieldsTest, AMoneyBoxHoldsTheRawTextAndShowsTheFormattedOneWithoutTheFocus)
{
    auto *form = ControlForm<MaskEdBox>::load();
    form->resize(300, 100);
    FormDriver driver("test");
    driver.type("it", "(1234.5)");
    driver.click("away");
    EXPECT_EQ(driver.text("it"), "(1234.5)");
    EXPECT_EQ(form->it->formattedText(), "($1,234.50)");
    form->it->setText("n/a");
    EXPECT_EQ(form->it->formattedText(), "n/a");
    form->it->clear();
    EXPECT_EQ(form->it->formattedText(), "");
}

TEST_F(FieldsTest, WhatAMoneyBoxPaintsIsTheFormattedTextUntilItGetsTheFocus)
{
    auto *form = ControlForm<MaskEdBox>::load();
    FormDriver driver("test");
    driver.click("away");
    const auto picture = [&] { return form->it->grab().toImage(); };
    form->it->setText("1234.5");
    const QImage formatted = picture();
    form->it->setFormat("");
    const QImage raw = picture();
    EXPECT_NE(formatted, raw);
    form->it->setText("$1,234.50");
    EXPECT_EQ(picture(), formatted) << "the same as the formatted text typed out";
    form->it->setText("1234.5");
    driver.click("it");
    driver.key(Qt::Key_End);
    form->it->setFormat(MoneyBoxFormat.toString());
    EXPECT_EQ(form->it->displayText(), "1234.5");
}

TEST_F(FieldsTest, ADatePickerShowsTheShortDateAndKeepsATimePartUntilAPick)
{
    auto *form = ControlForm<DTPicker>::load();
    FormDriver driver("test");
    const Date noon(Date(2011, 3, 9).serial() + 0.5);
    form->it->setValue(noon);
    EXPECT_EQ(driver.text("it"), "3/9/2011");
    EXPECT_EQ(form->it->value(), noon);
    driver.setDate("it", "12/31/2012");
    EXPECT_EQ(form->it->value().toText(), "12/31/2012");
    for (const char *typed : {"3/1/2011", "11/30/2010", "2/28/2009", "1/2/2012"})
        driver.setDate("it", typed);
    form->it->setValue(QStringLiteral("4/1/2011"));
    EXPECT_EQ(form->it->value(), Date(2011, 4, 1));
}

TEST_F(FieldsTest, ADatePickerStartsTodayAndRefusesWhatIsNoDate)
{
    const TestClock clock("2011-03-30 16:45:00");
    DTPicker picker;
    EXPECT_EQ(picker.value(), Date(2011, 3, 30));
    EXPECT_EQ(errorNumberOf([&] { picker.setValue(Value()); }), 35787);
    EXPECT_EQ(errorNumberOf([&] { picker.setValue("soon"); }), 13);
    EXPECT_EQ(errorNumberOf([&] { picker.setValue(Date(1492, 10, 12)); }), 380);
    EXPECT_EQ(picker.value(), Date(2011, 3, 30));
}

TEST_F(FieldsTest, ADateTypedIsReadAsWrittenOrRefused)
{
    const struct
    {
        const char *typed, *expected;
    } cases[] = {
        {"4/9/2025", "4/9/2025"},
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
    };
    auto *form = ControlForm<DTPicker>::load();
    FormDriver driver("test");
    for (const auto &date : cases) {
        form->it->setValue(Date(2012, 3, 15));
        driver.click("away");
        driver.key(Qt::Key_Tab);
        driver.keys(date.typed);
        driver.key(Qt::Key_Tab);
        EXPECT_EQ(form->it->value().toText(), date.expected) << date.typed;
        EXPECT_EQ(driver.text("it"), date.expected) << date.typed;
    }
}

TEST_F(FieldsTest, ARefusedDateLeavesTheFormerOneWithItsTime)
{
    auto *form = ControlForm<DTPicker>::load();
    FormDriver driver("test");
    const Date noon(Date(2011, 3, 9).serial() + 0.5);
    form->it->setValue(noon);
    driver.click("it");
    driver.keys("2/30/2012");
    EXPECT_EQ(form->it->value(), noon) << "at once, when the year is complete";
    EXPECT_EQ(driver.text("it"), "3/9/2011");
}

TEST_F(FieldsTest, TypingBeginsAtTheMonthHoweverTheFocusCame)
{
    auto *form = ControlForm<DTPicker>::load();
    FormDriver driver("test");
    auto *line = form->it->findChild<QLineEdit *>();
    const std::function<void()> ways[] = {
        [&] { driver.key(Qt::Key_Tab); },
        [&] { driver.key(Qt::Key_Backtab, Qt::ShiftModifier); },
        [&] {
            QTest::mouseClick(line, Qt::LeftButton, {}, {line->width() - 4, 8});
        },
        [&] {
            form->it->setFocus();
            settle();
        },
    };
    for (const auto &enter : ways) {
        form->it->setValue(Date(2011, 3, 30));
        driver.click("away");
        enter();
        EXPECT_EQ(line->selectedText(), "3");
        driver.keys("5");
        EXPECT_EQ(form->it->value().toText(), "5/30/2011");
        driver.key(Qt::Key_Tab);
        EXPECT_NE(driver.focus(), "it") << "Tab leaves the picker, whatever part the caret is in";
    }
}

TEST_F(FieldsTest, F4AndAltDownOpenTheCalendar)
{
    auto *form = ControlForm<DTPicker>::load();
    FormDriver driver("test");
    driver.click("it");
    for (const auto &[key, modifiers] :
         {std::pair(Qt::Key_F4, Qt::NoModifier), std::pair(Qt::Key_Down, Qt::AltModifier)}) {
        driver.key(key, modifiers);
        ASSERT_TRUE(form->it->calendarWidget()->isVisible());
        QTest::keyClick(form->it->calendarWidget(), Qt::Key_Escape);
        form->it->calendarWidget()->window()->close();
        QApplication::setActiveWindow(mdi.get());
    }
}

TEST_F(FieldsTest, ADateIsTypedOnAroundKeysPastesAndTheCalendar)
{
    auto *form = ControlForm<DTPicker>::load();
    FormDriver driver("test");
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        return [&driver, key, modifiers] { driver.key(key, modifiers); };
    };
    const auto type = [&](const char *text) { return [&driver, text] { driver.keys(text); }; };
    const auto calendar = [&] {
        driver.key(Qt::Key_F4);
        QTest::keyClick(form->it->calendarWidget(), Qt::Key_Escape);
        form->it->calendarWidget()->window()->close();
        QApplication::setActiveWindow(mdi.get());
        form->it->setFocus();
    };
    const auto paste = press(Qt::Key_V, Qt::ControlModifier);
    const struct
    {
        const char *title, *expected;
        std::vector<std::function<void()>> acts;
    } cases[] = {
        {"the year alone", "3/15/2025", {press(Qt::Key_End), type("25")}},
        {"the day alone", "3/9/2012", {press(Qt::Key_Right), type("9")}},
        {"the day again behind a short year", "4/7/2025", {type("4/9/25"), press(Qt::Key_Left), type("7")}},
        {"the month again behind a whole date", "5/9/2025", {type("4/9/2025"), press(Qt::Key_Home), type("5")}},
        {"a digit taken back", "4/9/2026", {type("4/9/25"), press(Qt::Key_Backspace), type("6")}},
        {"a paste over a half date", "1/2/2026", {type("4/9"), paste}},
        {"a date behind a paste", "4/9/2025", {paste, type("4/9/25")}},
        {"a paste behind a date", "1/2/2026", {type("4/9/25"), paste}},
        {"the calendar behind a short year",
         "4/10/2026",
         {type("4/9/25"), calendar, press(Qt::Key_Home), type("4/10/26")}},
        {"an arrow behind a short year", "4/9/2026", {type("4/9/25"), press(Qt::Key_Up)}},
        {"Enter behind a short year",
         "5/10/2026",
         {type("4/9/25"), press(Qt::Key_Return), press(Qt::Key_Home), type("5/10/26")}},
    };
    QApplication::clipboard()->setText("1/2/26\n");
    for (const auto &date : cases) {
        form->it->setValue(Date(2012, 3, 15));
        driver.click("away");
        driver.key(Qt::Key_Tab);
        for (const auto &act : date.acts)
            act();
        driver.click("away");
        EXPECT_EQ(form->it->value().toText(), date.expected) << date.title;
        EXPECT_EQ(driver.text("it"), date.expected) << date.title;
    }
}

TEST_F(FieldsTest, ACopiedDateIsTakenOverOnlyIfItIsOne)
{
    auto *form = ControlForm<DTPicker>::load();
    FormDriver driver("test");
    form->it->setValue(Date(2011, 3, 30));
    driver.click("it");
    for (const auto &[copied, expected] : {std::pair("4/9/25\n", "4/9/2025"), std::pair("March 30, 2011", "3/30/2011"),
                                           std::pair("2/29/01", "3/30/2011"), std::pair("soon", "3/30/2011")}) {
        QApplication::clipboard()->setText(copied);
        driver.key(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(form->it->value().toText(), expected) << copied;
    }
}

TEST_F(FieldsTest, OneLineBoxesTakePastedAndDroppedTextUpToItsFirstLineEnd)
{
    TextBox text;
    ComboBox combo(ComboBox::Style::Editable);
    for (QLineEdit *box : std::initializer_list<QLineEdit *>{&text, combo.lineEdit()}) {
        QApplication::clipboard()->setText("one\r\ntwo\n");
        box->setText("[]");
        box->setCursorPosition(1);
        QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(box->text(), "[one]");

        box->setText("[]");
        QMimeData dragged;
        dragged.setText("three\nfour");
        QDragEnterEvent enter({0, 5}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(box, &enter);
        QDropEvent drop({0, 5}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(box, &drop);
        EXPECT_EQ(box->text(), "three[]");

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

TEST_F(FieldsTest, ArrowKeysStepThePartOfTheDateUnderTheCaret)
{
    auto *form = ControlForm<DTPicker>::load();
    FormDriver driver("test");
    form->it->setValue(Date(2011, 3, 30));
    driver.key(Qt::Key_Tab);
    driver.key(Qt::Key_Tab);
    driver.key(Qt::Key_Up);
    EXPECT_EQ(form->it->value().toText(), "4/30/2011");
    QTest::mouseClick(form->it->findChild<QLineEdit *>(), Qt::LeftButton, {}, {24, 8});
    driver.keys("7");
    EXPECT_EQ(form->it->value().toText(), "4/7/2011") << "a click selects the part under the mouse";
}
} // namespace
