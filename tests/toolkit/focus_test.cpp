#include "tests/support/desk.h"
#include "toolkit/controls/msgbox.h"
#include "toolkit/forms/formlayout.h"

#include <QApplication>
#include <QMenuBar>
#include <QVBoxLayout>

namespace {
/// Two fields, a list, a date and a button, and a log of the events they raise.
class FocusForm : public Form
{
public:
    explicit FocusForm(const QString &name) : Form(name, "Focus")
    {
        auto *page = new QVBoxLayout(this);
        auto *frame = addFrame("Frame1", "Fields");
        page->addWidget(frame);
        auto *fields = new FieldLayout(frame);
        watch(txtA = addText("txtA"));
        watch(txtB = addText("txtB"));
        watch(cmbC = addList("cmbC"));
        watch(dtD = addDate("dtD"));
        cmbC->addItems({"one", "two"});
        btnGo = addButton("btnGo", "&Go");
        fields->add("A", txtA);
        fields->add("B", txtB);
        fields->add("C", cmbC);
        fields->add("D", dtD);
        page->addLayout(buttonRow({btnGo}));
        setTabOrder({txtA, txtB, cmbC, dtD, btnGo});
        connect(btnGo, &QPushButton::clicked, this, [this] { log("btnGo Click"); });
    }

    template <class Control> void watch(Control *control)
    {
        connect(control, &Control::gotFocus, this, [this, control] { log(control->objectName() + " GotFocus"); });
        connect(control, &Control::lostFocus, this, [this, control] { log(control->objectName() + " LostFocus"); });
    }
    void log(const QString &event) { events += objectName() + '.' + event; }
    using Form::setFocusTo;

    TextBox *txtA, *txtB;
    ComboBox *cmbC;
    DTPicker *dtD;
    QPushButton *btnGo;
    static inline QStringList events;
};

class FocusTest : public DeskTest
{
protected:
    FocusTest()
    {
        for (const char *name : {"one", "two"})
            Forms::add(name, [name] { return new FocusForm(name); });
        FocusForm::events.clear();
    }
    static FocusForm *form(const FormDriver &driver) { return static_cast<FocusForm *>(driver.form()); }
    static QStringList events() { return std::exchange(FocusForm::events, {}); }
};

using Events = QStringList;

TEST_F(FocusTest, ALoadedFormGivesTheFocusToItsFirstControlOnce)
{
    FormDriver one("one");
    EXPECT_EQ(events(), Events{"one.txtA GotFocus"});
    EXPECT_EQ(one.focus(), "txtA");
}

TEST_F(FocusTest, TabGoesRoundInTheDeclaredOrderAndBackwards)
{
    FormDriver one("one");
    QStringList order{one.focus()};
    for (int i = 0; i < 5; ++i) {
        one.key(Qt::Key_Tab);
        order += one.focus();
    }
    EXPECT_EQ(order, (QStringList{"txtA", "txtB", "cmbC", "dtD", "btnGo", "txtA"}));
    one.key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(one.focus(), "btnGo");
    EXPECT_EQ(events(), (Events{"one.txtA GotFocus", "one.txtA LostFocus", "one.txtB GotFocus", "one.txtB LostFocus",
                                "one.cmbC GotFocus", "one.cmbC LostFocus", "one.dtD GotFocus", "one.dtD LostFocus",
                                "one.txtA GotFocus", "one.txtA LostFocus"}));
}

TEST_F(FocusTest, AMouseClickOnAButtonComesAfterTheLostFocusOfTheFieldLeft)
{
    FormDriver one("one");
    one.click("btnGo");
    EXPECT_EQ(events(), (Events{"one.txtA GotFocus", "one.txtA LostFocus", "one.btnGo Click"}));
}

TEST_F(FocusTest, AnAccessKeyMovesTheFocusBeforeItClicks)
{
    FormDriver one("one");
    one.key(Qt::Key_G, Qt::AltModifier);
    EXPECT_EQ(events(), (Events{"one.txtA GotFocus", "one.txtA LostFocus", "one.btnGo Click"}));
    EXPECT_EQ(one.focus(), "btnGo");
}

TEST_F(FocusTest, EnterPressesTheButtonThatHasTheFocusAndNoOther)
{
    FormDriver one("one");
    one.key(Qt::Key_Return);
    EXPECT_EQ(events(), Events{"one.txtA GotFocus"});
    one.click("btnGo");
    events();
    one.key(Qt::Key_Return);
    one.key(Qt::Key_Space);
    EXPECT_EQ(events(), (Events{"one.btnGo Click", "one.btnGo Click"}));
}

/// A LostFocus that shows a box and then, or not, sends the focus back.
struct Refusal
{
    const char *title;
    bool box, back;
    Events expected;
};

TEST_F(FocusTest, APressWhoseLostFocusShowedABoxOrSentTheFocusBackIsNoClick)
{
    const Refusal cases[] = {
        {"a box and the focus back", true, true, {"one.txtA LostFocus", "one.txtA GotFocus"}},
        {"a box alone", true, false, {"one.txtA LostFocus"}},
        {"the focus back without a box", false, true, {"one.txtA LostFocus", "one.txtA GotFocus"}},
    };
    for (const Refusal &refusal : cases) {
        for (const bool byMouse : {true, false}) {
            SCOPED_TRACE(std::string(refusal.title) + (byMouse ? " by mouse" : " by access key"));
            FormDriver one("one");
            FocusForm *f = form(one);
            QObject::connect(f->txtA, &TextBox::lostFocus, f, [&, f] {
                if (refusal.box)
                    MsgBox("Not that.", "Invalid");
                if (refusal.back)
                    FocusForm::setFocusTo(f->txtA);
            });
            events();
            if (refusal.box)
                boxes.expect("Invalid", "Not that.");
            if (byMouse)
                one.click("btnGo");
            else
                one.key(Qt::Key_G, Qt::AltModifier);
            EXPECT_EQ(events(), refusal.expected);
            EXPECT_EQ(one.focus(), refusal.back ? "txtA" : "btnGo");
            boxes.verify();
            f->unload();
            settle();
        }
    }
}

TEST_F(FocusTest, AFieldThatTheFocusOnlyPassedThroughGetsNoEvent)
{
    FormDriver one("one");
    FocusForm *f = form(one);
    QObject::connect(f->txtA, &TextBox::lostFocus, f, [f] { FocusForm::setFocusTo(f->txtA); });
    events();
    one.key(Qt::Key_Tab);
    EXPECT_EQ(events(), (Events{"one.txtA LostFocus", "one.txtA GotFocus"}));
    EXPECT_EQ(one.focus(), "txtA");
}

TEST_F(FocusTest, AFieldEnteredWhileABoxWasUpInLostFocusGetsItsGotFocusOnce)
{
    FormDriver one("one");
    FocusForm *f = form(one);
    QObject::connect(f->txtA, &TextBox::lostFocus, f, [] { MsgBox("Note.", "Note"); });
    events();
    boxes.expect("Note", "Note.");
    one.key(Qt::Key_Tab);
    EXPECT_EQ(events(), (Events{"one.txtA LostFocus", "one.txtB GotFocus"}));
}

TEST_F(FocusTest, BoxesDroppedListsMenusAndOtherProgramsTakeNoFocusAway)
{
    FormDriver one("one");
    one.click("cmbC");
    one.key(Qt::Key_Escape);
    events();
    boxes.expect("Title", "Prompt");
    MsgBox("Prompt", "Title");
    one.key(Qt::Key_F4);
    one.control<ComboBox>("cmbC")->hidePopup();
    QTest::keyClick(mdi.get(), Qt::Key_F, Qt::AltModifier);
    QTest::keyClick(mdi->findChild<QMenuBar *>(), Qt::Key_Escape);
    QWidget other;
    other.show();
    QApplication::setActiveWindow(&other);
    QApplication::setActiveWindow(mdi.get());
    EXPECT_EQ(events(), Events());
    EXPECT_EQ(one.focus(), "cmbC");
}

TEST_F(FocusTest, AnotherFormThatBecomesActiveTakesTheFocus)
{
    FormDriver one("one");
    FormDriver two("two");
    one.click("txtB");
    EXPECT_EQ(events(), (Events{"one.txtA GotFocus", "one.txtA LostFocus", "two.txtA GotFocus", "two.txtA LostFocus",
                                "one.txtB GotFocus"}));
}

TEST_F(FocusTest, AFieldThatDoesNotLetTheFocusGoIsAskedOnceWhenAFormOpens)
{
    FormDriver one("one");
    FocusForm *f = form(one);
    one.type("txtB", "kept");
    QObject::connect(f->txtB, &TextBox::lostFocus, f, [f] {
        MsgBox("Stay.", "Note");
        FocusForm::setFocusTo(f->txtB);
    });
    for (const char *other : {"two", "frmAbout"}) {
        events();
        boxes.expect("Note", "Stay.");
        FormDriver opened(other);
        settle();
        EXPECT_EQ(events(), (Events{"one.txtB LostFocus", "one.txtB GotFocus"})) << other;
        EXPECT_EQ(one.focus(), "txtB") << other;
        EXPECT_EQ(f->txtB->selectedText(), "kept") << other;
        EXPECT_TRUE(opened.form()->isVisible());
    }
}

TEST_F(FocusTest, AFormThatUnloadsRaisesNoLostFocus)
{
    FormDriver one("one");
    events();
    one.form()->unload();
    settle();
    EXPECT_EQ(events(), Events());
    EXPECT_FALSE(one.isLoaded());
}

TEST_F(FocusTest, AControlThatIsDisabledPassesTheFocusOnWithoutALostFocus)
{
    FormDriver one("one");
    events();
    form(one)->txtA->setEnabled(false);
    EXPECT_EQ(events(), Events{"one.txtB GotFocus"});
}

TEST_F(FocusTest, SetFocusToAControlThatCannotTakeItIsError5)
{
    auto unshown = std::make_unique<FocusForm>("unshown");
    EXPECT_EQ(errorNumberOf([&] { FocusForm::setFocusTo(unshown->txtA); }), 5);

    FormDriver one("one");
    FocusForm *f = form(one);
    f->txtB->setEnabled(false);
    EXPECT_EQ(errorNumberOf([&] { FocusForm::setFocusTo(f->txtB); }), 5);
    f->cmbC->hide();
    EXPECT_EQ(errorNumberOf([&] { FocusForm::setFocusTo(f->cmbC); }), 5);
    one.control<QGroupBox>("Frame1")->setEnabled(false);
    EXPECT_EQ(errorNumberOf([&] { FocusForm::setFocusTo(f->txtA); }), 5);
}

TEST_F(FocusTest, ADisabledFrameIsPassedOverButItsFieldsAreNotGreyed)
{
    FormDriver one("one");
    FocusForm *f = form(one);
    f->txtB->setEnabled(false);
    auto *frame = one.control<QGroupBox>("Frame1");
    one.click("btnGo");
    const QColor ink = f->txtA->palette().color(QPalette::Text);
    frame->setEnabled(false);
    EXPECT_EQ(f->txtA->palette().color(QPalette::Text), ink);
    EXPECT_NE(f->txtB->palette().color(QPalette::Text), ink) << "disabled by itself, it stays grey";
    one.key(Qt::Key_Tab);
    EXPECT_EQ(one.focus(), "btnGo");
    QTest::mouseClick(f->txtA, Qt::LeftButton);
    EXPECT_EQ(one.focus(), "btnGo");
    EXPECT_TRUE(f->txtA->isEnabledTo(frame));

    frame->setEnabled(true);
    EXPECT_EQ(f->txtA->palette().color(QPalette::Text), ink);
    EXPECT_FALSE(f->txtB->isEnabled());
    one.key(Qt::Key_Tab);
    EXPECT_EQ(one.focus(), "txtA");
}
} // namespace
