#pragma once

#include "app/handbook.h"
#include "toolkit/controls/pressguard.h"
#include <QApplication>
#include <functional>

class RuntimeError;

/// The application object. Every event passes through `notify`, where the program's one handler of run-time errors
/// stands: it shows the box and ends the process, whatever routine was running and however deep.
class Application : public QApplication
{
    Q_OBJECT
public:
    Application(int &argc, char **argv);

    bool notify(QObject *receiver, QEvent *event) override;

    /// Ends the process at once: no form is unloaded and nothing is asked.
    static void end(int status);

    /// What is done with a run-time error and how the process ends, for tests to replace; an empty function restores
    /// the program's own way.
    static void setErrorHandler(std::function<void(const RuntimeError &)> handler);
    static void setEndHandler(std::function<void(int status)> handler);

private:
    void handle(const RuntimeError &latest);

    PressGuard m_pressGuard;
    HandbookKey m_handbookKey;
    int m_depth = 0; ///< events being delivered, one inside the other
};
