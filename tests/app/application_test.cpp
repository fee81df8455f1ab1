#include "app/application.h"
#include "data/values/runtimeerror.h"
#include "tests/support/company.h"

#include <QFile>
#include <QSettings>
#include <QVBoxLayout>
#include <new>
#include <sqlite3.h>

namespace {
/// Raises errors from its event routines.
class FailingForm : public Form
{
public:
    FailingForm() : Form("frmFailing", "Failing")
    {
        auto *page = new QVBoxLayout(this);
        page->addWidget(cmbKind = addList("cmbKind"));
        page->addWidget(txtField = addText("txtField"));
        page->addWidget(btnFail = addButton("btnFail", "Fail"));
        cmbKind->addItem("only");
        setTabOrder({cmbKind, txtField, btnFail});
        connect(btnFail, &QPushButton::clicked, this, [this] { fail(); });
        connect(cmbKind, &ComboBox::click, this, [] { throw runtimeError(94); });
        connect(txtField, &TextBox::lostFocus, this, [] { throw runtimeError(6); });
    }
    ComboBox *cmbKind;
    TextBox *txtField;
    QPushButton *btnFail;
    std::function<void()> fail;
    static inline bool unloaded = false;

protected:
    void formUnload() override { unloaded = true; }
};

struct Ended
{
    int status;
};

class ApplicationTest : public CompanyTest
{
protected:
    ApplicationTest()
    {
        Forms::add("frmFailing", [] { return new FailingForm; });
        FailingForm::unloaded = false;
    }
    /// Runs `action` in the program's own way of failing, but for the end of the process.
    int statusOf(const std::function<void()> &action)
    {
        noteUnwindingThroughQt();
        Application::setErrorHandler({});
        Application::setEndHandler([](int status) { throw Ended{status}; });
        int status = -1;
        try {
            action();
        } catch (const Ended &end) {
            status = end.status;
        }
        Application::setErrorHandler([](const RuntimeError &) { throw; });
        Application::setEndHandler({});
        return status;
    }
};

TEST_F(ApplicationTest, ARunTimeErrorShowsItsBoxAndEndsTheProgramWithoutUnloading)
{
    FormDriver driver("frmFailing");
    auto *form = static_cast<FailingForm *>(driver.form());
    bool reachedEnd = false;
    const struct
    {
        const char *steps, *description;
        std::function<void()> fail = {};
    } cases[] = {
        {"btnFail", "Run-time error '13':\n\nType mismatch", [] { throw runtimeError(13); }},
        {"btnFail", "Run-time error '94':\n\nInvalid use of Null",
         [&] {
             form->cmbKind->setListIndex(0);
             reachedEnd = true;
         }},
        {"btnFail", "Run-time error '7':\n\nOut of memory", [] { throw std::bad_alloc(); }},
        {"btnFail", "Run-time error '7':\n\nOut of memory",
         [this] {
             if (database.isOnServer()) // the engine is another process
                 throw std::bad_alloc();
             sqlite3_hard_heap_limit64(sqlite3_memory_used() + 1000);
             database.execute("UPDATE Customer SET City = City & Customer & Status & City");
         }},
        {"txtField; <Tab>", "Run-time error '6':\n\nOverflow"},
    };
    for (const auto &failure : cases) {
        form->fail = failure.fail;
        boxes.expect("Tamrick Inventory Management", failure.description);
        EXPECT_EQ(statusOf([&] { driver.act(failure.steps); }), 1) << failure.description;
        sqlite3_hard_heap_limit64(0);
        boxes.verify();
    }
    EXPECT_FALSE(FailingForm::unloaded);
    EXPECT_FALSE(reachedEnd);
}

TEST_F(ApplicationTest, WhatTheBaseLibraryWouldRememberIsWrittenNowhere)
{
    QSettings settings(QSettings::UserScope, "QtProject");
    settings.setValue("FileDialog/lastVisited", "somewhere");
    settings.sync();
    EXPECT_FALSE(QFile::exists(settings.fileName()));
    EXPECT_TRUE(settings.fileName().startsWith("/dev/null/"));
}

TEST_F(ApplicationTest, ExitEndsAtOnceWithStatusZeroAndUnloadsNothing)
{
    Load("frmFailing");
    EXPECT_EQ(statusOf([&] { menu("Exit"); }), 0);
    EXPECT_FALSE(FailingForm::unloaded);
}
} // namespace
