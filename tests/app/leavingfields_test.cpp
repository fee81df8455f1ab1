#include "app/windowstrip.h"
#include "tests/support/company.h"

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
    const char *form, *fill;
    const char *goesTo = nullptr; ///< where its LostFocus puts the focus; null: nowhere
    const char *box = nullptr;    ///< title and text of what it says; null: nothing
    const char *keeps = nullptr;  ///< its text when it was left; null: the one typed

    QString name() const { return QString(fill).section("; ", -1).section(':', 0, 0); }
};

void PrintTo(const Field &field, std::ostream *out)
{
    *out << field.fill;
}

const Field fields[] = {
    {"frmInventoryAdjust", "cmbWarehouse: North", "cmbPart"},
    {"frmTransfer", "cmbFrom: Main; cmbTo: North", "cmbPart"},
    {"frmTransfer", "cmbTo: North; cmbFrom: Main", "cmbPart"},
    {"frmOrderEntry", "cmbCustomer: Acme Rail"},
    {"frmOrderEntry", "cmbPart: AX-100"},
    {"frmOrderEntry", "txtQty: 5"},
    {"frmOrderEntry", "txtPriceEach: 2.5"},
    {"frmInventoryAdjust", "txtID: 77", "txtID", "Invalid Adjustment ID|Invalid Adjustment ID. Please Re-enter.", ""},
    {"frmTransfer", "txtID: 77", "txtID", "Invalid Transfer ID|Invalid Transfer ID. Please Re-enter.", ""},
    {"frmCustomerEntry", "txtDays:", "txtDays",
     "Invalid Terms|You must enter a number in days for this field. Please re-enter."},
    {"frmReceivePayment", "txtInvoice: 77", "txtInvoice", "Invalid Invoice|Invalid Invoice Number. Please Re-enter."},
    {"frmReceivePayment", "txtPayment: 5", "txtPayment",
     "Invalid Payment Amount|You may not receive payment greater than the remaining balance on an invoice."},
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

    static Form *form(const char *name = GetParam().form) { return Forms::loaded(name); }
    static QMdiSubWindow *window(const char *name = GetParam().form)
    {
        return qobject_cast<QMdiSubWindow *>(form(name)->parentWidget());
    }
    static FormDriver driver() { return FormDriver(GetParam().form); }
    static QWidget *field() { return driver().control<QWidget>(GetParam().name()); }

    /// Opens another form in the background, then the field's own, and counts from then on how often the field is left.
    void open(bool maximised)
    {
        Load("frmPartEntry");
        settle();
        FormDriver form(GetParam().form);
        if (maximised)
            hand.mark(window(), QStyle::SC_TitleBarMaxButton);
        form.act(GetParam().fill);
        typed = form.text(GetParam().name());
        ASSERT_TRUE(QString(GetParam().fill).endsWith(": " + typed) || typed.isEmpty());
        ASSERT_EQ(form.focus(), GetParam().name());
        left.emplace(field(), SIGNAL(lostFocus()));
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
        ASSERT_TRUE(form());
        EXPECT_EQ(left->count(), 0) << "nobody left the field";
        EXPECT_EQ(driver().text(GetParam().name()), typed);
        EXPECT_EQ(ProgramFocus::holder(), field());
        if (window()->isMinimized())
            return;
        EXPECT_EQ(QApplication::focusWidget(), field());
        EXPECT_TRUE(QApplication::focusWidget()->isVisible());
    }

    /// One LostFocus, one box over the form if the field has one to show, and the focus where the field sends it; else
    /// on the way it was going.
    void expectOneLeaving(const Act &leave)
    {
        SCOPED_TRACE(leave.title);
        if (GetParam().box)
            boxes.expect(QString(GetParam().box).section('|', 0, 0), QString(GetParam().box).section('|', 1));
        leave.perform();
        settle();
        boxes.verify();
        EXPECT_EQ(left->count(), 1);
        EXPECT_EQ(driver().text(GetParam().name()), GetParam().keeps ? GetParam().keeps : typed);
        if (!GetParam().goesTo) {
            EXPECT_FALSE(form()->isAncestorOf(QApplication::focusWidget()));
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
        {"click on a label", [&] { hand.click(form()->findChild<QLabel *>("Label1")); }},
        {"click on blank area", [&] { hand.click(form(), form()->rect().bottomLeft() + QPoint(2, -2)); }},
        {"click beside all windows",
         [&] {
             const QWidget *area = mdi->findChild<QMdiArea *>()->viewport();
             hand.click(area, area->rect().bottomRight() - QPoint(4, 4));
         }},
        {"click into a disabled frame",
         [&] {
             for (const QGroupBox *frame : form()->findChildren<QGroupBox *>())
                 for (const QWidget *control : frame->findChildren<QWidget *>())
                     if (!frame->isEnabled() && control->isVisible())
                         hand.click(control);
         }},
        {"minimise", [&] { hand.mark(window(), QStyle::SC_TitleBarMinButton); }},
        {"another program while minimised", [&] { anotherProgram(); }},
        {"restore a minimised window", [&] { hand.mark(window(), QStyle::SC_TitleBarNormalButton); }},
        {"maximise by a double-click on the title", [&] { hand.click(window(), Hand::titleOf(window()), true); }},
        {"another program", [&] { anotherProgram(); }},
        {"a menu opened and closed",
         [&] {
             hand.menu({"Orders"});
             QTest::keyClick(QApplication::activePopupWidget()->windowHandle(), Qt::Key_Escape);
             hand.key(Qt::Key_Escape);
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
    const QPointer<Form> closed = form();
    hand.mark(window(), QStyle::SC_TitleBarCloseButton);
    settle();
    EXPECT_FALSE(closed) << "the close mark closes the form without asking the field";
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
        SCOPED_TRACE(maximised ? "maximised" : "normal");
        for (const auto &way : ways) {
            open(maximised);
            expectOneLeaving(way);
            close();
        }
    }
}

TEST_P(LeavingFields, AClickOnAnotherWindowTakesTheFocusWithOneLostFocus)
{
    const auto other = [] { return window("frmPartEntry"); };
    const Act ways[] = {
        {"its field", [&] { hand.click(other()->findChild<QWidget *>("txtBinLocation")); }},
        {"its label", [&] { hand.click(other()->findChild<QWidget *>("Label1")); }},
        {"its title", [&] { hand.click(other(), Hand::titleOf(other())); }},
        {"its mark", [&] { hand.mark(other(), QStyle::SC_TitleBarMaxButton); }},
    };
    for (const auto &way : ways) {
        open(false);
        other()->move(0, 0);
        window()->move(other()->width() + 4, 0);
        settle();
        expectOneLeaving(way);
        EXPECT_EQ(other()->isMaximized(), way.title == QString("its mark") && !GetParam().goesTo)
            << "a press that the field took the focus back from goes no further";
        const QRect asking(window()->mapToGlobal(QPoint()), window()->size());
        EXPECT_TRUE(!GetParam().box || asking.contains(boxes.lastPlace().center()))
            << "a box stands over the form that asks, though another is the active one";
        close();
    }
}

INSTANTIATE_TEST_SUITE_P(Program, LeavingFields, testing::ValuesIn(fields),
                         [](const auto &field) { return field.param.form + ('_' + field.param.name().toStdString()); });
} // namespace
