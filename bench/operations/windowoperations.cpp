#include "bench/operations/bareoperations.h"
#include "bench/operations/operation.h"

#include "app/mdi.h"
#include "reports/operational.h"
#include "toolkit/forms/form.h"
#include "toolkit/forms/mainmod.h"
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>

namespace {

/// The main window, shown and painted.
struct Desk : MDI
{
    Desk()
    {
        resize(1180, 760);
        MDI::show();
        QApplication::processEvents();
    }
};

/// Opens a form in the main window until it is painted, then closes it.
double open(const QString &name)
{
    const Desk desk;
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

/// The list of a dialog's combo box, from the click to its entries on the screen.
double dropDown(const QString &name, const QString &combo)
{
    const Desk desk;
    auto *list = Load(name)->findChild<QComboBox *>(combo);
    QApplication::processEvents();
    QElapsedTimer timer;
    timer.start();
    list->showPopup();
    QApplication::processEvents();
    const double seconds = double(timer.nsecsElapsed()) / 1e9;
    list->hidePopup();
    return seconds;
}

/// A document from the call to its page on the screen.
double show(const std::function<void()> &document)
{
    const Desk desk;
    QElapsedTimer timer;
    timer.start();
    document();
    QApplication::processEvents();
    return double(timer.nsecsElapsed()) / 1e9;
}

} // namespace

std::vector<Operation> windowOperations()
{
    const QString shipment =
        gDatabase->OpenRecordset("SELECT TOP 1 ID FROM Shipment ORDER BY ID DESC").Fields("ID").text();
    return {{"Order Entry opens", [] { return open("frmOrderEntry"); }},
            {"Shipment Entry opens", [] { return open("frmShipmentEntry"); }},
            {"Order Navigator, all orders", [] { return open("frmOrderNavigator"); }, Bare::orderNavigator},
            {"Shipment Navigator, all shipments", [] { return open("frmShipmentNavigator"); }, Bare::shipmentNavigator},
            {"Packing slip dialog, all shipments", [] { return open("frmPackingSlip"); }},
            {"Packing slip dialog, its list drops down", [] { return dropDown("frmPackingSlip", "cmbReport"); }},
            {"Part Entry opens", [] { return open("frmPartEntry"); }},
            {"Customer Entry opens", [] { return open("frmCustomerEntry"); }},
            {"Packing slip, on the screen", [=] { return show([=] { Reports::PrintPackingSlip(shipment, true); }); }},
            {"Invoice of one shipment, on the screen", [=] {
                 return show([=] { Reports::PrintInvoice(shipment, "1", "1/1/2026", "1/31/2026", "Net 30", true); });
             }}};
}
