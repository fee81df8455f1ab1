#include "tests/support/company.h"
#include "tests/support/hand.h"

#include <QApplication>
#include <QGroupBox>
#include <QMdiArea>

// Fields whose LostFocus sends the focus somewhere, and all that a user may do to the windows while such a field has
// it.

namespace {
/// A form brought to where its field would act when it is left.
struct Field
{
    const char *title, *form, *control;
    std::function<void(FormDriver &)> fill;
    const char *boxTitle, *boxText; ///< what it says; null when it says nothing
    const char *goesTo;             ///< where its LostFocus puts the focus; null: nowhere
    const char *keeps;              ///< its text in the end
};

void PrintTo(const Field &field, std::ostream *out)
{
    *out << field.title;
}

const std::vector<Field> &fields()
{
    static const std::vector<Field> all{
        {"adjustment with a warehouse", "frmInventoryAdjust", "cmbWarehouse",
         [](FormDriver &form) { form.choose("cmbWarehouse", "North"); }, nullptr, nullptr, "cmbPart", "North"},
        {"adjustment of an unknown number", "frmInventoryAdjust", "txtID",
         [](FormDriver &form) { form.type("txtID", "77"); }, "Invalid Adjustment ID",
         "Invalid Adjustment ID. Please Re-enter.", "txtID", ""},
        {"transfer with both warehouses", "frmTransfer", "cmbTo",
         [](FormDriver &form) {
             form.choose("cmbFrom", "Main");
             form.choose("cmbTo", "North");
         },
         nullptr, nullptr, "cmbPart", "North"},
        {"transfer of an unknown number", "frmTransfer", "txtID", [](FormDriver &form) { form.type("txtID", "77"); },
         "Invalid Transfer ID", "Invalid Transfer ID. Please Re-enter.", "txtID", ""},
        {"customer without days", "frmCustomerEntry", "txtDays", [](FormDriver &form) { form.type("txtDays", "x"); },
         "Invalid Terms", "You must enter a number in days for this field. Please re-enter.", "txtDays", "x"},
        {"payment on an unknown invoice", "frmReceivePayment", "txtInvoice",
         [](FormDriver &form) { form.type("txtInvoice", "77"); }, "Invalid Invoice",
         "Invalid Invoice Number. Please Re-enter.", "txtInvoice", "77"},
        {"payment above the balance", "frmReceivePayment", "txtPayment",
         [](FormDriver &form) { form.type("txtPayment", "5"); }, "Invalid Payment Amount",
         "You may not receive payment greater than the remaining balance on an invoice.", "txtPayment", "5"},
        {"order line for a part", "frmOrderEntry", "cmbPart",
         [](FormDriver &form) { form.choose("cmbPart", "AX-100"); }, nullptr, nullptr, nullptr, "AX-100"},
    };
    return all;
}

class LeavingFields : public CompanyTest, public testing::WithParamInterface<Field>
{
protected:
    LeavingFields()
    {
        mdi->resize(1280, 860);
        settle();
    }

    /// Opens another form in the background, then the field's own.
    void open(bool maximised)
    {
        Load("frmPartEntry");
        settle();
        FormDriver form(GetParam().form);
        if (maximised)
            window()->showMaximized();
        settle();
        GetParam().fill(form);
        ASSERT_EQ(form.focus(), GetParam().control);
    }
    void close()
    {
        Forms::unloadAll();
        settle();
        if (QMdiSubWindow *left = mdi->findChild<QMdiSubWindow *>())
            delete left;
    }

    static QMdiSubWindow *window(const char *form = GetParam().form)
    {
        return qobject_cast<QMdiSubWindow *>(Forms::loaded(form)->parentWidget());
    }
    static FormDriver driver() { return FormDriver(GetParam().form); }

    void expectStay(const char *what)
    {
        settle();
        boxes.verify();
        ASSERT_TRUE(Forms::loaded(GetParam().form)) << what;
        if (!window()->isMinimized()) {
            EXPECT_EQ(driver().focus(), GetParam().control) << what;
            EXPECT_EQ(mdi->focusWidget(), QApplication::focusWidget());
        }
        EXPECT_NE(driver().text(GetParam().control), GetParam().control == std::string("txtID") ? "" : "?") << what;
    }

    /// One box, if the field has one to show, and the focus where the field sends it; else on the way it was going.
    void expectOneLeaving(const char *what, const std::function<void()> &leave)
    {
        if (GetParam().boxTitle)
            boxes.expect(GetParam().boxTitle, GetParam().boxText);
        leave();
        settle();
        boxes.verify();
        EXPECT_EQ(driver().text(GetParam().control).toStdString(), GetParam().keeps) << what;
        if (!GetParam().goesTo) {
            EXPECT_FALSE(Forms::loaded(GetParam().form)->isAncestorOf(QApplication::focusWidget())) << what;
            return;
        }
        EXPECT_EQ(driver().focus(), GetParam().goesTo) << what;
        EXPECT_FALSE(window()->isMinimized()) << what << ": a field to be typed into must be seen";
        EXPECT_TRUE(driver().control<QWidget>(GetParam().goesTo)->isVisible()) << what;
    }

    QLabel *label() const { return Forms::loaded(GetParam().form)->findChild<QLabel *>("Label1"); }

    Hand hand{mdi.get()};
};

TEST_P(LeavingFields, WindowStatesTitlesLabelsAndOtherProgramsLeaveNoField)
{
    const struct
    {
        const char *title;
        std::function<void()> act;
    } steps[] = {
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
        {"another program while minimised",
         [&] {
             QApplication::setActiveWindow(nullptr);
             QApplication::setActiveWindow(mdi.get());
         }},
        {"restore a minimised window", [&] { window()->showNormal(); }},
        {"maximise by a double-click on the title", [&] { hand.doubleClick(window(), Hand::titleOf(window())); }},
        {"another program",
         [&] {
             QApplication::setActiveWindow(nullptr);
             QApplication::setActiveWindow(mdi.get());
         }},
        {"a menu opened and closed",
         [&] {
             hand.menu({"Orders"});
             QTest::keyClick(QApplication::activePopupWidget()->windowHandle(), Qt::Key_Escape);
             QTest::keyClick(mdi->windowHandle(), Qt::Key_Escape);
         }},
        {"minimise a maximised window", [&] { hand.mark(window(), QStyle::SC_TitleBarMinButton); }},
        {"restore it", [&] { window()->showNormal(); }},
    };
    open(true);
    for (const auto &step : steps) {
        step.act();
        expectStay(step.title);
    }
    EXPECT_FALSE(window()->isMaximized());
    const QPointer<Form> form = Forms::loaded(GetParam().form);
    hand.mark(window(), QStyle::SC_TitleBarCloseButton);
    settle();
    EXPECT_FALSE(form) << "the close mark closes the form without asking the field";
}

TEST_P(LeavingFields, AnotherWindowTakesTheFocusWithOneLostFocus)
{
    const struct
    {
        const char *title;
        std::function<void()> leave;
    } ways[] = {
        {"a form from the menu",
         [&] {
             hand.menu({"Administrative", "LocationEntry"});
         }},
        {"a report from the menu",
         [&] {
             hand.menu({"Reports", "OrderReports", "OpenOrders"});
         }},
        {"the next window by key", [&] { hand.key(Qt::Key_Tab, Qt::ControlModifier); }},
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
            expectOneLeaving(way.title, way.leave);
            close();
        }
    }
}

TEST_P(LeavingFields, AClickOnAnotherWindowTakesTheFocusWithOneLostFocus)
{
    const struct
    {
        const char *title;
        std::function<void()> leave;
    } ways[] = {
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
        expectOneLeaving(way.title, way.leave);
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

INSTANTIATE_TEST_SUITE_P(Program, LeavingFields, testing::ValuesIn(fields()),
                         [](const auto &field) { return QString(field.param.title).replace(' ', '_').toStdString(); });
} // namespace
