#include "app/application.h"

#include "app/appearance.h"
#include "data/values/runtimeerror.h"
#include "toolkit/controls/msgbox.h"
#include "toolkit/controls/programfocus.h"
#include "toolkit/forms/mainmod.h"
#include <QScopedValueRollback>
#include <QSettings>
#include <QThread>
#include <clocale>
#include <cstdlib>

namespace {
std::function<void(const RuntimeError &)> errorHandler;
std::function<void(int)> endHandler;
} // namespace

Application::Application(int &argc, char **argv) : QApplication(argc, argv)
{
    // The base class takes over the user's locale, under which libraries that print numbers into files would write 1,5.
    std::setlocale(LC_NUMERIC, "C");
    setApplicationName("tamrick");
    setAppearance(*this);
    setBeforeBoxes(syncDatabase);
    installEventFilter(&m_pressGuard);
    installEventFilter(&m_handbookKey);
#ifndef Q_OS_WIN
    // The base library's file dialog keeps folders and sizes in a settings file; this program's settings are in
    // config.txt alone, and nobody writes to it.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
#endif
}

bool Application::notify(QObject *receiver, QEvent *event)
{
    // Threads of libraries have no routine of ours to fail in.
    if (QThread::currentThread() != thread())
        return QApplication::notify(receiver, event);
    const QScopedValueRollback depth(m_depth, m_depth + 1);
    try {
        const bool result = QApplication::notify(receiver, event);
        // Not inside a nested loop, such as a message box's: there the routine is still running.
        if (m_depth == 1) {
            ProgramFocus::raiseEvents();
            if (gDatabase)
                gDatabase->sync(); // the event routine that wrote has ended
        }
        return result;
    } catch (const RuntimeError &error) {
        handle(error);
    } catch (const std::bad_alloc &) {
        // The one exception of the library's that users have always known by a number.
        handle(runtimeError(7));
    }
    return true;
}

/// The error that ends the program: a statement that was sent and not waited for may have failed before the one at
/// hand.
static RuntimeError firstError(const RuntimeError &error)
{
    try {
        if (gDatabase)
            gDatabase->flush();
    } catch (const RuntimeError &earlier) {
        return earlier;
    } catch (const std::bad_alloc &) {
    }
    return error;
}

void Application::handle(const RuntimeError &latest)
{
    const RuntimeError error = firstError(latest);
    if (errorHandler) {
        errorHandler(error);
        return;
    }
    // With the statement, for whoever looks into the log; the box shows the user the words alone.
    qWarning("run-time error %d: %s %s", error.number(), qUtf8Printable(error.description()),
             qUtf8Printable(error.detail()));
    showRuntimeError(error);
    end(EXIT_FAILURE);
}

void Application::end(int status)
{
    if (endHandler) {
        endHandler(status);
        return;
    }
    try {
        if (gDatabase)
            gDatabase->sync();
    } catch (const RuntimeError &) {
        // Everything is committed already; syncing it is all that failed, and there is nobody left to tell.
    }
    // At once: no form unloads, nothing is asked, nothing more is written.
    std::_Exit(status);
}

void Application::setErrorHandler(std::function<void(const RuntimeError &)> handler)
{
    errorHandler = std::move(handler);
}

void Application::setEndHandler(std::function<void(int)> handler)
{
    endHandler = std::move(handler);
}
