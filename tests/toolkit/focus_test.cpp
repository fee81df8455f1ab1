#include "tests/toolkit/controlform.h"
#include "toolkit/controls/msgbox.h"

#include <QApplication>
#include <QMenuBar>

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
        page->addWidget(btnGo = addButton("btnGo", "&Go"));
        new QVBoxLayout(frame);
        watch(frame, txtA = addText("txtA"));
        watch(frame, txtB = addText("txtB"));
        watch(frame, cmbC = addList("cmbC"));
        watch(frame, dtD = addDate("dtD"));
        cmbC->addItems({"one", "two"});
        setTabOrder({txtA, txtB, cmbC, dtD, btnGo});
        connect(btnGo, &QPushButton::clicked, this, [this] { log("Go"); });
    }

    template <class Control> void watch(QGroupBox *frame, Control *control)
    {
        frame->layout()->addWidget(control);
        const QString letter = control->objectName().right(1);
        connect(control, &Control::gotFocus, this, [this, letter] { log("+" + letter); });
        connect(control, &Control::lostFocus, this, [this, letter] { log("-" + letter); });
    }
    void log(const QString &event) { events += (objectName() == "two" ? "two." : "") + event; }
    using Form::setFocusTo;

    TextBox *txtA, *txtB;
    ComboBox *cmbC;
    DTPicker *dtD;
    QPushButton *btnGo;
    static inline QStringList events; ///< "+A", "-A": txtA got and lost the focus
};

class FocusTest : public CompanyTest
{
protected:
    FocusTest()
    {
        for (const char *name : {"one", "two"})
            Forms::add(name, [name] { return new FocusForm(name); });
        FocusForm::events.clear();
    }
    static FocusForm *form(const FormDriver &driver) { return static_cast<FocusForm *>(driver.form()); }
    static QString events() { return std::exchange(FocusForm::events, {}).join(' '); }
    /// What a form's own routines and its surroundings do.
    FormDriver::OwnSteps surroundings(FormDriver &driver)
    {
        const auto box = [this](const QString &) {
            boxes.expect("Title", "Prompt");
            MsgBox("Prompt", "Title");
        };
        return {{"box", box},
                {"open", [](const QString &name) { FormDriver opened(name); }},
                {"menu",
                 [this](const QString &) {
                     QTest::keyClick(mdi.get(), Qt::Key_F, Qt::AltModifier);
                     QTest::keyClick(mdi->findChild<QMenuBar *>(), Qt::Key_Escape);
                 }},
                {"program", // another one
                 [this](const QString &) {
                     QWidget other;
                     other.show();
                     QApplication::setActiveWindow(&other);
                     QApplication::setActiveWindow(mdi.get());
                 }},
                {"disable", [&](const QString &name) { driver.control<QWidget>(name)->setEnabled(false); }},
                {"refuse", // LostFocus of txtA puts up a box, or sends the focus back
                 [&driver, box](const QString &how) {
                     TextBox *txtA = form(driver)->txtA;
                     QObject::connect(txtA, &TextBox::lostFocus, txtA, [=] {
                         if (how.contains("box"))
                             box({});
                         if (how.contains("back"))
                             FocusForm::setFocusTo(txtA);
                     });
                 }}};
    }
};

TEST_F(FocusTest, IsToldToTheFieldLeftAndThenToTheFieldEntered)
{
    const struct
    {
        const char *title, *script, *events, *focus;
    } cases[] = {
        {"the first control gets it once", "", "+A", "txtA"},
        {"Tab goes round in the declared order", "<Tab> <Tab> <Tab> <Tab> <Tab>", "+A -A +B -B +C -C +D -D +A", "txtA"},
        {"and backwards", "<Shift+Backtab> <Shift+Backtab>", "+A -A +D", "dtD"},
        {"a press comes after the LostFocus of the field left", "btnGo", "+A -A Go", "btnGo"},
        {"an access key moves the focus first", "<Alt+G>", "+A -A Go", "btnGo"},
        {"Enter presses the button that has the focus", "btnGo; <Return> <Space>", "+A -A Go Go Go", "btnGo"},
        {"and no other", "<Return>", "+A", "txtA"},
        {"a box and the focus back: no click", "refuse: box,back; btnGo", "+A -A +A", "txtA"},
        {"nor by the access key", "refuse: box,back; <Alt+G>", "+A -A +A", "txtA"},
        {"a box alone: no click", "refuse: box; btnGo", "+A -A", "btnGo"},
        {"nor by the access key", "refuse: box; <Alt+G>", "+A -A", "btnGo"},
        {"the focus back without a box: no click", "refuse: back; btnGo", "+A -A +A", "txtA"},
        {"nor by the access key", "refuse: back; <Alt+G>", "+A -A +A", "txtA"},
        {"a field that it only passed through hears nothing", "refuse: back; <Tab>", "+A -A +A", "txtA"},
        {"one entered while a box was up hears it once", "refuse: box; <Tab>", "+A -A +B", "txtB"},
        {"boxes, lists, menus and other programs take none away", "cmbC; <Esc>; box; <F4> <Esc>; menu; program",
         "+A -A +C", "cmbC"},
        {"another form takes it", "open: two", "+A -A two.+A", "txtA"},
        {"and gives it back", "open: two; txtB", "+A -A two.+A two.-A +B", "txtB"},
        {"a disabled control passes it on in silence", "disable: txtA", "+A +B", "txtB"},
        {"a disabled frame is passed over", "btnGo; disable: Frame1; <Tab>", "+A -A Go", "btnGo"},
        {"also by the mouse", "btnGo; disable: Frame1; txtA", "+A -A Go", "btnGo"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.title);
        FormDriver one("one");
        one.act(c.script, surroundings(one));
        EXPECT_EQ(events(), c.events);
        EXPECT_EQ(one.focus(), c.focus);
        boxes.verify();
        Forms::unloadAll();
        settle();
        EXPECT_FALSE(events().contains('-')) << "forms that unload raise no LostFocus";
    }
}

TEST_F(FocusTest, AFieldThatDoesNotLetTheFocusGoIsAskedOnceWhenAFormOpens)
{
    FormDriver one("one");
    one.act("txtA: kept; refuse: box,back", surroundings(one));
    for (const char *other : {"two", "frmAbout"}) {
        events();
        FormDriver opened(other);
        settle();
        EXPECT_EQ(events(), "-A +A") << other;
        EXPECT_EQ(one.focus(), "txtA") << other;
        EXPECT_EQ(form(one)->txtA->selectedText(), "kept") << other;
        EXPECT_TRUE(opened.form()->isVisible());
    }
}

TEST_F(FocusTest, SetFocusToAControlThatCannotTakeItIsError5)
{
    auto unshown = std::make_unique<FocusForm>("unshown");
    EXPECT_EQ(errorNumberOf([&] { FocusForm::setFocusTo(unshown->txtA); }), 5);

    FormDriver one("one");
    FocusForm *f = form(one);
    f->txtB->setEnabled(false);
    f->cmbC->hide();
    for (QWidget *control : std::initializer_list<QWidget *>{f->txtB, f->cmbC})
        EXPECT_EQ(errorNumberOf([&] { FocusForm::setFocusTo(control); }), 5);
    one.control<QGroupBox>("Frame1")->setEnabled(false);
    EXPECT_EQ(errorNumberOf([&] { FocusForm::setFocusTo(f->txtA); }), 5);
}

TEST_F(FocusTest, TheFieldsOfADisabledFrameAreNotGreyed)
{
    FormDriver one("one");
    FocusForm *f = form(one);
    f->txtB->setEnabled(false);
    auto *frame = one.control<QGroupBox>("Frame1");
    const QColor ink = f->txtA->palette().color(QPalette::Text);
    frame->setEnabled(false);
    EXPECT_EQ(f->txtA->palette().color(QPalette::Text), ink);
    EXPECT_NE(f->txtB->palette().color(QPalette::Text), ink) << "disabled by itself, it stays grey";
    EXPECT_TRUE(f->txtA->isEnabledTo(frame));
    frame->setEnabled(true);
    EXPECT_EQ(f->txtA->palette().color(QPalette::Text), ink);
    EXPECT_FALSE(f->txtB->isEnabled());
    one.act("btnGo; <Tab>");
    EXPECT_EQ(one.focus(), "txtA");
}
} // namespace
