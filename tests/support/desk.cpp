#include "tests/support/desk.h"

#include "app/formlist.h"
#include "data/values/runtimeerror.h"
#include "toolkit/controls/mousepointer.h"
#include "toolkit/forms/forms.h"
#include "toolkit/forms/mainmod.h"
#include <QApplication>

void settle()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

void expectRuntimeError(int number, const std::function<void()> &action, const QString &description)
{
    try {
        action();
        ADD_FAILURE() << "no run-time error was raised, expected " << number;
    } catch (const RuntimeError &error) {
        EXPECT_EQ(error.number(), number) << error.what();
        EXPECT_TRUE(description.isEmpty() || error.description() == description) << error.what();
    }
    setDefaultPointer(); // the ended program would leave the hourglass to nobody
}

DeskTest::DeskTest()
{
    gDefaultWarehouse = QStringLiteral("Main");
    gAutoPriceFlag = QStringLiteral("YES");
    gTypeAheadSeconds = 1;
    gOrderNavigatorOpen = gShipmentNavigatorOpen = false;
    registerForms();
    mdi = std::make_unique<MDI>();
    mdi->show();
    QApplication::setActiveWindow(mdi.get());
    settle();
}

DeskTest::~DeskTest() = default;

void DeskTest::TearDown()
{
    boxes.verify();
    Forms::unloadAll();
    settle();
}

void DeskTest::menu(const QString &name)
{
    auto *action = mdi->findChild<QAction *>(name);
    ASSERT_TRUE(action) << "no menu entry " << qPrintable(name);
    ASSERT_TRUE(action->isEnabled()) << "menu entry greyed: " << qPrintable(name);
    action->trigger();
}
