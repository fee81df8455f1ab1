#include "bench/operations/bareoperations.h"
#include "bench/operations/operation.h"

#include "app/shell/mdi.h"
#include "app/toolkit/form.h"
#include <QApplication>
#include <QElapsedTimer>

namespace {

/// Opens a form in the main window until it is painted, then closes it.
double open(const QString &name)
{
    MDI window;
    window.resize(1180, 760);
    window.show();
    QApplication::processEvents();
    QElapsedTimer timer;
    timer.start();
    Form *form = Load(name);
    QApplication::processEvents();
    const double seconds = double(timer.nsecsElapsed()) / 1e9;
    form->unload();
    QApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return seconds;
}

} // namespace

std::vector<Operation> windowOperations()
{
    return {{"Order Entry opens", [] { return open("frmOrderEntry"); }},
            {"Shipment Entry opens", [] { return open("frmShipmentEntry"); }},
            {"Order Navigator, all orders", [] { return open("frmOrderNavigator"); }, Bare::orderNavigator},
            {"Shipment Navigator, all shipments", [] { return open("frmShipmentNavigator"); }, Bare::shipmentNavigator},
            {"Packing slip dialog, all shipments", [] { return open("frmPackingSlip"); }},
            {"Part Entry opens", [] { return open("frmPartEntry"); }},
            {"Customer Entry opens", [] { return open("frmCustomerEntry"); }}};
}
