#include "app/appearance.h"
#include "app/windowstrip.h"
#include "reports/listings.h"
#include "tests/support/company.h"
#include "toolkit/controls/statusline.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTimer>
#include <QWindow>

// How the windows stand in the main window, and its foot.

namespace {
class WindowsTest : public CompanyTest
{
protected:
    WindowsTest() { mdi->resize(1280, 860); }

    QMdiSubWindow *open(const char *form)
    {
        Form *loaded = Load(form);
        settle();
        return static_cast<QMdiSubWindow *>(loaded->parentWidget());
    }
    QMdiArea *area() const { return mdi->findChild<QMdiArea *>(); }
    QList<QAbstractButton *> strip() const
    {
        return mdi->findChild<WindowStrip *>()->findChildren<QAbstractButton *>();
    }
    QStringList titles() const
    {
        QStringList all;
        for (const QAbstractButton *button : strip())
            all += button->text();
        return all;
    }
    /// Chooses an entry of the strip's context menu.
    void chooseOnStrip(const QString &caption)
    {
        auto *foot = mdi->findChild<WindowStrip *>();
        QTimer::singleShot(0, foot, [caption] {
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            ASSERT_TRUE(menu);
            for (QAction *action : menu->actions())
                if (action->text() == caption)
                    menu->setActiveAction(action);
            QTest::keyClick(menu, Qt::Key_Return);
        });
        QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, foot->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(foot, &event);
        settle();
    }
};

TEST_F(WindowsTest, OverAMaximisedFormADialogKeepsItsSizeAndAFormIsMaximisedToo)
{
    QMdiSubWindow *order = open("frmOrderEntry");
    order->showMaximized();
    settle();
    for (const char *name : {"frmSalesByPart", "frmPickTicket", "frmOpenInvoicesReport", "frmAbout"}) {
        SCOPED_TRACE(name);
        const QMdiSubWindow *dialog = open(name);
        EXPECT_FALSE(dialog->isMaximized());
        EXPECT_FALSE(dialog->windowFlags() & Qt::WindowMaximizeButtonHint);
        EXPECT_EQ(area()->activeSubWindow(), dialog);
        EXPECT_TRUE(order->isMaximized());
    }
    EXPECT_TRUE(open("frmReceivePayment")->isMaximized());
    EXPECT_TRUE(order->windowFlags() & Qt::WindowMaximizeButtonHint);
}

TEST_F(WindowsTest, NewWindowsHideNoTitleBarAndStandInSight)
{
    QList<const char *> names{"frmCustomerEntry",    "frmOrderEntry", "frmSalesByPart",       "frmReceivePayment",
                              "frmCreateInvoices",   "frmTransfer",   "frmWarehouseEntry",    "frmPickTicket",
                              "frmCustomerRegister", "frmAbout",      "frmOpenInvoicesReport"};
    for (const QSize screen : {QSize(1280, 860), QSize(1024, 768)}) {
        mdi->resize(screen);
        open("frmPartEntry");
        open(names[0]);
        Forms::loaded("frmPartEntry")->unload(); // its place is free again, and that of the customer is not
        settle();
        for (const char *name : names) {
            const QMdiSubWindow *window = open(name);
            EXPECT_TRUE(area()->viewport()->rect().contains(window->geometry())) << name;
            for (const QMdiSubWindow *other : area()->subWindowList()) {
                const QRect title(other->pos(), QSize(other->width(), 20));
                EXPECT_TRUE(other == window || !window->geometry().intersects(title))
                    << name << " on " << qPrintable(other->windowTitle()) << " at " << screen.width();
            }
        }
        Forms::unloadAll();
        settle();
        names.removeAt(1); // the order form fills the smaller screen
    }
}

TEST_F(WindowsTest, TheStripHasAButtonForEachWindowAndBringsItBack)
{
    EXPECT_EQ(titles(), QStringList());
    QMdiSubWindow *order = open("frmOrderEntry");
    Reports::ReportPartListing();
    open("frmPartEntry");
    settle();
    ASSERT_EQ(titles(), (QStringList{"Order Entry", "Part Listing", "Part Entry/Edit"}));
    EXPECT_TRUE(strip()[2]->isChecked() && !strip()[0]->isChecked());

    order->showMinimized();
    settle();
    hand.click(strip()[0]);
    hand.click(strip()[0]); // the active window stays so, and its button pressed
    settle();
    EXPECT_FALSE(order->isMinimized());
    EXPECT_EQ(area()->activeSubWindow(), order);
    EXPECT_TRUE(strip()[0]->isChecked() && !strip()[2]->isChecked());

    order->close();
    settle();
    EXPECT_EQ(titles(), (QStringList{"Part Listing", "Part Entry/Edit"}));
}

TEST_F(WindowsTest, ManyButtonsShareTheStripAndWidenNothing)
{
    open("frmPartEntry");
    const int width = mdi->width();
    for (int i = 0; i < 20; ++i)
        Reports::ReportCustomerListing();
    settle();
    EXPECT_EQ(mdi->width(), width);
    const QList<QAbstractButton *> buttons = strip();
    ASSERT_EQ(buttons.size(), 21);
    for (const QAbstractButton *button : buttons) {
        EXPECT_TRUE(button->parentWidget()->rect().contains(button->geometry()));
        EXPECT_GE(button->width(), 40);
    }
    buttons[0]->setFixedWidth(60);
    const auto painted = [&](const char *title) {
        buttons[0]->setText(title);
        return buttons[0]->grab().toImage();
    };
    EXPECT_NE(painted("&"), painted(" ")) << "an ampersand is seen";
}

TEST_F(WindowsTest, TheStripsMenuPutsWindowsInOrderAndClosesReportsOnly)
{
    QMdiSubWindow *order = open("frmOrderEntry"), *part = open("frmPartEntry");
    chooseOnStrip("Tile");
    EXPECT_FALSE(order->geometry().intersects(part->geometry()));
    chooseOnStrip("Cascade");
    EXPECT_TRUE(order->geometry().intersects(part->geometry()));
    Reports::ReportPartListing();
    Reports::ReportWarehouseListing();
    settle();
    EXPECT_EQ(titles().size(), 4);
    chooseOnStrip("Close All Reports");
    EXPECT_EQ(titles(), (QStringList{"Order Entry", "Part Entry/Edit"}));
}

TEST_F(WindowsTest, ClosingTheMainWindowUnloadsTheFormsAndEndsTheProgram)
{
    open("frmOrderEntry");
    QWidget another; // the program does not go on for it
    another.show();
    QTimer::singleShot(0, mdi.get(), &QWidget::close);
    QTimer limit;
    limit.callOnTimeout([] { QCoreApplication::exit(1); });
    limit.start(20000);
    EXPECT_EQ(QCoreApplication::exec(), 0);
    EXPECT_FALSE(Forms::loaded("frmOrderEntry"));
    QCoreApplication::removePostedEvents(qApp, QEvent::Quit); // a second one would end the next test's boxes
}

TEST_F(WindowsTest, TheStatusLineKeepsItsTextUntilTheNext)
{
    showStatus("Exported to /tmp/a.pdf");
    QStatusTipEvent overAMenuEntry{QString()};
    QApplication::sendEvent(mdi.get(), &overAMenuEntry);
    EXPECT_EQ(mdi->statusBar()->currentMessage(), "Exported to /tmp/a.pdf");
    EXPECT_TRUE(mdi->statusBar()->isVisible());
    showStatus("Printed");
    EXPECT_EQ(mdi->statusBar()->currentMessage(), "Printed");
}

TEST_F(WindowsTest, TheAboutWindowTellsTheVersionKeepsItsSizeAndMissesASystemInformationTool)
{
    const QMdiSubWindow *window = open("frmAbout");
    FormDriver about("frmAbout");
    EXPECT_EQ(about.shows("lblTitle lblVersion cmdSysInfo"),
              "Inventory Management Software|Version 1.7 3/30/2011|&System Info...");
    const QRect before = window->geometry();
    hand.click(window, Hand::titleOf(window), true);
    hand.drag(window, window->rect().bottomRight() - QPoint(1, 1), window->rect().bottomRight() + QPoint(80, 60));
    EXPECT_EQ(window->geometry(), before);
    EXPECT_FALSE(window->isMaximized());
    expectBox(about, "<Alt+S>", "Tamrick Inventory Management", "System Information Is Unavailable At This Time");
    const QPoint off = boxes.lastPlace().center() - window->mapToGlobal(window->rect().center());
    EXPECT_LE(off.manhattanLength(), 100) << "over the form that asks";
    about.act("cmdOK");
    EXPECT_FALSE(about.isLoaded());
}

TEST_F(WindowsTest, CtrlWClosesNoFormAndIsACharacterLikeAnyOtherInATypeAheadBox)
{
    FormDriver form("frmInventoryAdjust");
    form.control<ComboBox>("cmbWarehouse")->setFocus();
    hand.key(Qt::Key_W, Qt::ControlModifier);
    settle();
    ASSERT_TRUE(form.isLoaded());
    hand.key(Qt::Key_N);
    EXPECT_EQ(form.text("cmbWarehouse"), "") << "searched with what was typed before it";
}

double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor &one, const QColor &other)
{
    const double lighter = std::max(luminance(one), luminance(other)),
                 darker = std::min(luminance(one), luminance(other));
    return (lighter + 0.05) / (darker + 0.05);
}

TEST(PaletteTest, TextsCanBeReadAlsoInLockedFieldsAndDarkAndHighContrastDesktopsKeepTheirs)
{
    const QPalette white(Qt::white, Qt::white);
    const QPalette dark(QColor(0x3b, 0x40, 0x45), QColor(0x2a, 0x2e, 0x32));
    const QPalette grey(QColor(0xef, 0xef, 0xef));
    EXPECT_EQ(programPalette(dark).color(QPalette::Window), dark.color(QPalette::Window));
    EXPECT_EQ(programPalette(white).color(QPalette::Window), QColor(Qt::white));
    EXPECT_NE(programPalette(grey).color(QPalette::Window), grey.color(QPalette::Window));
    for (const QPalette &desktop : {white, dark, grey}) {
        const QPalette palette = programPalette(desktop);
        for (const auto group : {QPalette::Active, QPalette::Disabled}) {
            EXPECT_GE(contrast(palette.color(group, QPalette::Text), palette.color(group, QPalette::Base)), 4.5);
            EXPECT_GE(contrast(palette.color(group, QPalette::WindowText), palette.color(group, QPalette::Window)),
                      4.5);
        }
    }
}

TEST(PaletteTest, OnADarkDesktopTheEdgesOfFieldsAndCheckBoxesAreSeen)
{
    setAppearance(*qApp);
    QWidget window;
    window.setPalette(programPalette({QColor(0x31, 0x36, 0x3b), QColor(0x23, 0x26, 0x29)}));
    window.resize(200, 200);
    auto *check = new QCheckBox(&window);
    auto *text = new QLineEdit(&window);
    auto *date = new QDateEdit(&window);
    int top = 0;
    for (QWidget *control : std::initializer_list<QWidget *>{check, text, date})
        control->move(0, std::exchange(top, top + 50));
    const QImage picture = window.grab().toImage();
    for (const QWidget *control : std::initializer_list<QWidget *>{check, text, date}) {
        const QPoint left(0, control->height() / 2);
        double best = 0;
        for (int x = 0; x < 4; ++x)
            best = std::max(best, contrast(picture.pixelColor(control->pos() + left + QPoint(x, 0)),
                                           window.palette().color(QPalette::Window)));
        EXPECT_GE(best, 2) << control->metaObject()->className();
    }
}
} // namespace
