#include "tests/toolkit/controlform.h"

#include "data/values/conversions.h"
#include <QImage>

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
