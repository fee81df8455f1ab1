#include "app/windowstrip.h"
#include "tests/support/company.h"
#include "tests/support/hand.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QMdiArea>
#include <QSignalSpy>
#include <QWindow>
#include <optional>

// Fields whose LostFocus sends the focus somewhere, and all that a user may do to the windows while such a field has
// it.

namespace {
/// A form brought to where its field, the last one filled, would act when it is left.
struct Field
{
    const char *title, *form;
    std::vector<std::pair<const char *, const char *>> fill;
    const char *goesTo = nullptr;                       ///< where its LostFocus puts the focus; null: nowhere
    const char *boxTitle = nullptr, *boxText = nullptr; ///< what it says; null: nothing
    const char *keeps = nullptr;                        ///< its text when it was left; null: the one typed
};

void PrintTo(const Field &field, std::ostream *out)
{
    *out << field.title;
}

const Field fields[] = {
    {"adjustment_with_a_warehouse", "frmInventoryAdjust", {{"cmbWarehouse", "North"}}, "cmbPart"},
    {"transfer_whose_target_came_last", "frmTransfer", {{"cmbFrom", "Main"}, {"cmbTo", "North"}}, "cmbPart"},
    {"transfer_whose_source_came_last", "frmTransfer", {{"cmbTo", "North"}, {"cmbFrom", "Main"}}, "cmbPart"},
    {"order_for_a_customer", "frmOrderEntry", {{"cmbCustomer", "Acme Rail"}}},
    {"order_line_for_a_part", "frmOrderEntry", {{"cmbPart", "AX-100"}}},
    {"order_line_for_a_quantity", "frmOrderEntry", {{"txtQty", "5"}}},
    {"order_line_at_a_price", "frmOrderEntry", {{"txtPriceEach", "2.5"}}},
    {"adjustment_of_an_unknown_number",
     "frmInventoryAdjust",
     {{"txtID", "77"}},
     "txtID",
     "Invalid Adjustment ID",
     "Invalid Adjustment ID. Please Re-enter.",
     ""},
    {"transfer_of_an_unknown_number",
     "frmTransfer",
     {{"txtID", "77"}},
     "txtID",
     "Invalid Transfer ID",
     "Invalid Transfer ID. Please Re-enter.",
     ""},
    {"customer_without_days",
     "frmCustomerEntry",
     {{"txtDays", ""}},
     "txtDays",
     "Invalid Terms",
     "You must enter a number in days for this field. Please re-enter."},
    {"payment_on_an_unknown_invoice",
     "frmReceivePayment",
     {{"txtInvoice", "77"}},
     "txtInvoice",
     "Invalid Invoice",
     "Invalid Invoice Number. Please Re-enter."},
    {"payment_above_the_balance",
     "frmReceivePayment",
     {{"txtPayment", "5"}},
     "txtPayment",
     "Invalid Payment Amount",
     "You may not receive payment greater than the remaining balance on an invoice."},
};

/// One thing that a user does.
struct Act
{
    const char *title;
    std::function<void()> perform;
};

class LeavingFields : public CompanyTest, public testing::WithParamInterface<Field>
{
protected:
    LeavingFields()
    {
        mdi->resize(1280, 860);
        settle();
    }

    static const char *name() { return GetParam().fill.back().first; }
    static FormDriver driver() { return FormDriver(GetParam().form); }
    static QMdiSubWindow *window(const char *form = GetParam().form)
    {
        return qobject_cast<QMdiSubWindow *>(Forms::loaded(form)->parentWidget());
    }

    /// Opens another form in the background, then the field's own, and counts from then on how often the field is left.
    void open(bool maximised)
    {
        Load("frmPartEntry");
        settle();
        const FormDriver form(GetParam().form);
        if (maximised)
            hand.mark(window(), QStyle::SC_TitleBarMaxButton);
        for (const auto &[control, text] : GetParam().fill)
            fill(form.control<QWidget>(control), text);
        typed = form.text(name());
        ASSERT_EQ(typed, GetParam().fill.back().second);
        ASSERT_EQ(form.focus(), name());
        left.emplace(form.control<QWidget>(name()), SIGNAL(lostFocus()));
    }
    void fill(QWidget *control, const char *text)
    {
        hand.click(control);
        hand.keys(text);
        if (qobject_cast<ComboBox *>(control))
            hand.key(Qt::Key_Return); // the press lowered the list
        settle();
    }
    void close()
    {
        Forms::unloadAll();
        settle();
        if (QMdiSubWindow *leftBehind = mdi->findChild<QMdiSubWindow *>())
            delete leftBehind;
    }

    void anotherProgram()
    {
        QWindow other;
        other.show();
        other.requestActivate();
        settle();
        EXPECT_FALSE(QApplication::activeWindow());
        mdi->windowHandle()->requestActivate();
    }

    void expectStay(const char *what)
    {
        SCOPED_TRACE(what);
        settle();
        ASSERT_TRUE(Forms::loaded(GetParam().form));
        EXPECT_EQ(left->count(), 0) << "nobody left the field";
        EXPECT_EQ(driver().text(name()), typed);
        EXPECT_EQ(ProgramFocus::holder(), driver().control<QWidget>(name()));
        if (window()->isMinimized())
            return;
        EXPECT_EQ(QApplication::focusWidget(), driver().control<QWidget>(name()));
        EXPECT_TRUE(QApplication::focusWidget()->isVisible());
    }

    /// One LostFocus, one box over the form if the field has one to show, and the focus where the field sends it; else
    /// on the way it was going.
    void expectOneLeaving(const char *what, const std::function<void()> &leave)
    {
        SCOPED_TRACE(what);
        if (GetParam().boxTitle)
            boxes.expect(GetParam().boxTitle, GetParam().boxText);
        leave();
        settle();
        boxes.verify();
        EXPECT_EQ(left->count(), 1);
        EXPECT_EQ(driver().text(name()), GetParam().keeps ? GetParam().keeps : typed);
        if (!GetParam().goesTo) {
            EXPECT_FALSE(Forms::loaded(GetParam().form)->isAncestorOf(QApplication::focusWidget()));
            return;
        }
        EXPECT_EQ(driver().focus(), GetParam().goesTo);
        EXPECT_FALSE(window()->isMinimized()) << "a field to be typed into must be seen";
        EXPECT_TRUE(driver().control<QWidget>(GetParam().goesTo)->isVisible());
    }

    QList<QAbstractButton *> footButtons() const
    {
        return mdi->findChild<WindowStrip *>()->findChildren<QAbstractButton *>();
    }
    QLabel *label() const { return Forms::loaded(GetParam().form)->findChild<QLabel *>("Label1"); }

    Hand hand{mdi.get()};
    QString typed;                  ///< into the field
    std::optional<QSignalSpy> left; ///< how often it raised LostFocus
};

TEST_P(LeavingFields, WindowStatesTitlesLabelsAndOtherProgramsLeaveNoField)
{
    const Act steps[] = {
        {"restore a maximised window", [&] { hand.mark(window(), QStyle::SC_TitleBarNormalButton); }},
        {"click on the title", [&] { hand.click(window(), Hand::titleOf(window())); }},
        {"drag the title",
         [&] {
             const QPoint title = Hand::titleOf(window());
             hand.drag(window(), title, title + QPoint(40, 60));
         }},
        {"click on a label", [&] { hand.click(label()); }},
        {"click on blank area",
         [&] {
             const Form *form = Forms::loaded(GetParam().form);
             hand.click(form, form->rect().bottomLeft() + QPoint(2, -2));
         }},
        {"click beside all windows",
         [&] {
             QWidget *area = mdi->findChild<QMdiArea *>()->viewport();
             hand.click(area, area->rect().bottomRight() - QPoint(4, 4));
         }},
        {"click into a disabled frame",
         [&] {
             for (const QGroupBox *frame : Forms::loaded(GetParam().form)->findChildren<QGroupBox *>())
                 if (!frame->isEnabled())
                     for (const QWidget *control : frame->findChildren<QWidget *>())
                         if (control->isVisible())
                             hand.click(control);
         }},
        {"minimise", [&] { hand.mark(window(), QStyle::SC_TitleBarMinButton); }},
        {"another program while minimised", [&] { anotherProgram(); }},
        {"restore a minimised window", [&] { hand.mark(window(), QStyle::SC_TitleBarNormalButton); }},
        {"maximise by a double-click on the title", [&] { hand.doubleClick(window(), Hand::titleOf(window())); }},
        {"another program", [&] { anotherProgram(); }},
        {"a menu opened and closed",
         [&] {
             hand.menu({"Orders"});
             QTest::keyClick(QApplication::activePopupWidget()->windowHandle(), Qt::Key_Escape);
             QTest::keyClick(mdi->windowHandle(), Qt::Key_Escape);
         }},
        {"minimise a maximised window", [&] { hand.mark(window(), QStyle::SC_TitleBarMinButton); }},
        {"restore it by its button at the foot", [&] { hand.click(footButtons().constLast()); }},
    };
    open(true);
    for (const auto &step : steps) {
        step.perform();
        expectStay(step.title);
    }
    EXPECT_FALSE(window()->isMinimized());
    const QPointer<Form> form = Forms::loaded(GetParam().form);
    hand.mark(window(), QStyle::SC_TitleBarCloseButton);
    settle();
    EXPECT_FALSE(form) << "the close mark closes the form without asking the field";
}

TEST_P(LeavingFields, AnotherWindowTakesTheFocusWithOneLostFocus)
{
    const Act ways[] = {
        {"a form from the menu",
         [&] {
             hand.menu({"Administrative", "LocationEntry"});
         }},
        {"a report from the menu",
         [&] {
             hand.menu({"Reports", "OrderReports", "OpenOrders"});
         }},
        {"the next window by key", [&] { hand.key(Qt::Key_Tab, Qt::ControlModifier); }},
        {"the other form by its button at the foot", [&] { hand.click(footButtons().constFirst()); }},
        {"a form from the menu while minimised",
         [&] {
             hand.mark(window(), QStyle::SC_TitleBarMinButton);
             hand.menu({"Administrative", "LocationEntry"});
         }},
    };
    for (const bool maximised : {true, false}) {
        for (const auto &way : ways) {
            SCOPED_TRACE(maximised ? "maximised" : "normal");
            open(maximised);
            expectOneLeaving(way.title, way.perform);
            close();
        }
    }
}

TEST_P(LeavingFields, AClickOnAnotherWindowTakesTheFocusWithOneLostFocus)
{
    const Act ways[] = {
        {"its field", [&] { hand.click(Forms::loaded("frmPartEntry")->findChild<QWidget *>("txtBinLocation")); }},
        {"its label", [&] { hand.click(Forms::loaded("frmPartEntry")->findChild<QWidget *>("Label1")); }},
        {"its title", [&] { hand.click(window("frmPartEntry"), Hand::titleOf(window("frmPartEntry"))); }},
        {"its mark", [&] { hand.mark(window("frmPartEntry"), QStyle::SC_TitleBarMaxButton); }},
    };
    for (const auto &way : ways) {
        open(false);
        window("frmPartEntry")->move(0, 0);
        window()->move(window("frmPartEntry")->width() + 4, 0);
        settle();
        expectOneLeaving(way.title, way.perform);
        EXPECT_EQ(window("frmPartEntry")->isMaximized(), way.title == QString("its mark") && !GetParam().goesTo)
            << "a press that the field took the focus back from goes no further";
        const QRect form(window()->mapToGlobal(QPoint()), window()->size());
        EXPECT_TRUE(!GetParam().boxTitle || form.contains(boxes.lastPlace().center()))
            << "a box stands over the form that asks, though another is the active one";
        close();
    }
}

TEST_F(CompanyTest, CtrlWClosesNoFormAndIsACharacterLikeAnyOtherInATypeAheadBox)
{
    FormDriver form("frmInventoryAdjust");
    form.control<ComboBox>("cmbWarehouse")->setFocus();
    Hand hand(mdi.get());
    hand.key(Qt::Key_W, Qt::ControlModifier);
    settle();
    ASSERT_TRUE(form.isLoaded());
    hand.keys("N");
    EXPECT_EQ(form.text("cmbWarehouse"), "") << "searched with what was typed before it";
}

TEST_F(CompanyTest, TheAboutWindowKeepsItsSize)
{
    FormDriver about("frmAbout");
    auto *window = qobject_cast<QMdiSubWindow *>(about.form()->parentWidget());
    const QRect before = window->geometry();
    Hand hand(mdi.get());
    hand.doubleClick(window, Hand::titleOf(window));
    hand.drag(window, window->rect().bottomRight() - QPoint(1, 1), window->rect().bottomRight() + QPoint(80, 60));
    EXPECT_EQ(window->geometry(), before);
    EXPECT_FALSE(window->isMaximized());
}

INSTANTIATE_TEST_SUITE_P(Program, LeavingFields, testing::ValuesIn(fields),
                         [](const auto &field) { return std::string(field.param.title); });
} // namespace
