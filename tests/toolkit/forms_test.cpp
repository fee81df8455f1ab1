#include "tests/support/company.h"
#include "toolkit/forms/formlayout.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QVBoxLayout>

namespace {
QStringList events;

class EventForm : public Form
{
public:
    EventForm() : Form("frmEvents", "Events")
    {
        auto *page = new QVBoxLayout(this);
        page->addWidget(btnExit = addButton("btnExit", "Exit"));
        setTabOrder({btnExit});
        connect(btnExit, &QPushButton::clicked, this, [this] {
            unload();
            events += "after unload " + btnExit->text();
        });
    }
    ~EventForm() override { events += "gone"; }
    QPushButton *btnExit;

protected:
    void formLoad() override { events += isVisible() ? "load visible" : "load"; }
    void formUnload() override { events += "unload"; }
    void formResize() override { ++resizes; }

public:
    int resizes = 0;
};

class FormsTest : public CompanyTest
{
protected:
    FormsTest()
    {
        Forms::add("frmEvents", [] { return new EventForm; });
        events.clear();
    }
};

TEST_F(FormsTest, LoadRunsTheLoadRoutineThenShowsTheFormInTheMainWindowAndALoadedOneNotAgain)
{
    auto *form = static_cast<EventForm *>(Load("frmEvents"));
    EXPECT_EQ(events, QStringList{"load"});
    EXPECT_TRUE(form->isVisible());
    EXPECT_GE(form->resizes, 1);
    EXPECT_EQ(form->window(), mdi.get());
    const auto *area = mdi->findChild<QMdiArea *>();
    EXPECT_EQ(area->activeSubWindow()->widget(), form);
    EXPECT_EQ(form->parentWidget()->windowTitle(), "Events");
    Form *about = Load("frmAbout");
    EXPECT_EQ(Load("frmEvents"), form);
    EXPECT_EQ(events, QStringList{"load"});
    EXPECT_EQ(area->activeSubWindow()->widget(), about) << "nor is it brought to the front";
}

TEST_F(FormsTest, ARoutineGoesOnAfterItUnloadedItsForm)
{
    FormDriver driver("frmEvents");
    driver.click("btnExit");
    EXPECT_EQ(events, (QStringList{"load", "unload", "after unload Exit"}));
    EXPECT_FALSE(Forms::loaded("frmEvents"));
    Form *next = Load("frmEvents");
    settle();
    EXPECT_EQ(events.last(), "gone");
    EXPECT_EQ(Forms::loaded("frmEvents"), next) << "loaded again in the same routine it is a new one";
}

TEST_F(FormsTest, TheCloseBoxAndTheMainWindowUnloadOnce)
{
    Load("frmEvents")->parentWidget()->close();
    settle();
    EXPECT_EQ(events, (QStringList{"load", "unload", "gone"}));
    Load("frmEvents");
    mdi->close();
    settle();
    EXPECT_EQ(events.mid(3), (QStringList{"load", "unload", "gone"}));
}

TEST_F(FormsTest, InstancesStandSideBySide)
{
    auto *one = new EventForm;
    auto *two = new EventForm;
    Forms::loadInstance(one);
    Forms::loadInstance(two);
    EXPECT_TRUE(one->isVisible() && two->isVisible());
    EXPECT_FALSE(Forms::loaded("frmEvents"));
    Forms::unloadAll();
    EXPECT_EQ(events.count("unload"), 2);
}

TEST_F(FormsTest, AFieldLayoutAlignsFieldsAndNamesTheirLabels)
{
    QWidget page;
    auto *fields = new FieldLayout(&page);
    TextBox name, city, state;
    fields->add("Name", &name);
    fields->add("City/St", {&city, &state});
    page.resize(400, 100);
    page.show();
    EXPECT_EQ(name.x(), city.x());
    EXPECT_EQ(name.geometry().right(), state.geometry().right());
    const auto *label = page.findChild<QLabel *>("Label2");
    ASSERT_TRUE(label);
    EXPECT_EQ(label->buddy(), &city);
    EXPECT_EQ(name.accessibleName(), "Name");
    for (TextBox *field : {&name, &city, &state})
        field->setParent(nullptr);
}
} // namespace
