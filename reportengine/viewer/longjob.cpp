#include "reportengine/viewer/longjob.h"

#include "toolkit/controls/mousepointer.h"
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProgressDialog>

namespace {
constexpr int Unnoticed = 500; ///< milliseconds a job may take before it shows how far it has come
constexpr int Beat = 50;       ///< milliseconds from one look at the Cancel button to the next
} // namespace

Outcome runLongJob(QWidget *parent, const QString &caption, const std::function<Outcome(const Progress &)> &job)
{
    const Hourglass hourglass;
    QProgressDialog window(caption, "Cancel", 0, 0, parent);
    window.setObjectName("progress");
    window.setWindowTitle("Report");
    window.setWindowModality(Qt::ApplicationModal);
    window.setAutoClose(false);
    window.setAutoReset(false);
    // Shown by us and not by a guess of its own at how long it will take.
    window.setMinimumDuration(std::numeric_limits<int>::max());
    QElapsedTimer sinceStart, sinceBeat;
    sinceStart.start();
    sinceBeat.start();
    return job([&](int done, int total) {
        if (sinceStart.elapsed() < Unnoticed || sinceBeat.elapsed() < Beat)
            return true;
        if (!window.isVisible()) {
            // Nobody takes a button under an hourglass for one that can be pressed.
            setDefaultPointer();
            window.show();
        }
        window.setMaximum(total);
        window.setValue(done);
        // The window is modal: nothing but its Cancel button can be reached meanwhile.
        QCoreApplication::processEvents();
        sinceBeat.start();
        return !window.wasCanceled();
    });
}
