#include "app/application.h"
#include "data/values/runtimeerror.h"
#include "tests/support/company.h"
#include "toolkit/forms/mainmod.h"

#include <QFile>
#include <QSettings>
#include <QVBoxLayout>
#include <new>
#include <sqlite3.h>

namespace {
/// Raises errors from its event routines, directly and through an assignment.
class FailingForm : public Form
{
public:
    FailingForm() : Form("frmFailing", "Failing")
    {
        auto *page = new QVBoxLayout(this);
        page->addWidget(cmbKind = addList("cmbKind"));
        page->addWidget(txtField = addText("txtField"));
        page->addWidget(btnFail = addButton("btnFail", "Fail"));
        page->addWidget(btnAssign = addButton("btnAssign", "Assign"));
        page->addWidget(btnFill = addButton("btnFill", "Fill the memory"));
        page->addWidget(btnAsk = addButton("btnAsk", "Ask for more than there is"));
        cmbKind->addItem("only");
        setTabOrder({cmbKind, txtField, btnFail, btnAssign, btnFill, btnAsk});
        connect(btnFail, &QPushButton::clicked, this, [] { throw runtimeError(13); });
        connect(btnAssign, &QPushButton::clicked, this, [this] {
            cmbKind->setListIndex(0);
            reachedEnd = true;
        });
        connect(btnFill, &QPushButton::clicked, this, [] { throw std::bad_alloc(); });
        connect(btnAsk, &QPushButton::clicked, this, [] {
            sqlite3_hard_heap_limit64(sqlite3_memory_used() + 1000); // where the engine is this process
            gDatabase->Execute("UPDATE Customer SET City = City & Customer & Status & City");
        });
        connect(cmbKind, &ComboBox::click, this, [] { throw runtimeError(94); });
        connect(txtField, &TextBox::lostFocus, this, [] { throw runtimeError(6); });
    }
    ComboBox *cmbKind;
    TextBox *txtField;
    QPushButton *btnFail, *btnAssign, *btnFill, *btnAsk;
    bool reachedEnd = false;
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
    FormDriver form("frmFailing");
    const struct
    {
        const char *control, *description;
    } cases[] = {
        {"btnFail", "Run-time error '13':\n\nType mismatch"},
        {"btnAssign", "Run-time error '94':\n\nInvalid use of Null"},
        {"btnFill", "Run-time error '7':\n\nOut of memory"},
        {"btnAsk", "Run-time error '7':\n\nOut of memory"},
    };
    for (const auto &failure : cases) {
        if (database.isOnServer() && failure.control == QString("btnAsk"))
            continue;
        boxes.expect("Tamrick Inventory Management", failure.description);
        EXPECT_EQ(statusOf([&] { form.click(failure.control); }), 1) << failure.control;
        sqlite3_hard_heap_limit64(0);
        boxes.verify();
    }
    EXPECT_FALSE(FailingForm::unloaded);
    EXPECT_FALSE(static_cast<FailingForm *>(form.form())->reachedEnd);
}

TEST_F(ApplicationTest, AnErrorInALostFocusEndsTheProgramToo)
{
    FormDriver form("frmFailing");
    form.key(Qt::Key_Tab);
    boxes.expect("Tamrick Inventory Management", "Run-time error '6':\n\nOverflow");
    EXPECT_EQ(statusOf([&] { form.key(Qt::Key_Tab); }), 1);
}

TEST_F(ApplicationTest, TestsMeetTheErrorItself)
{
    FormDriver form("frmFailing");
    expectRuntimeError(13, [&] { form.click("btnFail"); });
    expectRuntimeError(94, [&] { form.choose("cmbKind", "only"); });
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
