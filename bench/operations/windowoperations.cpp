#include "bench/bare/operations.h"
#include "bench/operations/meter.h"
#include "bench/operations/operation.h"

#include "app/mdi.h"
#include "reports/operational.h"
#include "toolkit/forms/form.h"
#include "toolkit/forms/forms.h"
#include "toolkit/forms/mainmod.h"
#include <QApplication>
#include <QComboBox>

namespace {

struct Column
{
    const char *grid = "";
    int index = 0;
};

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

/// The texts of one column of a form's grid, as rows.
std::vector<QStringList> columnOf(const Form *form, const Column &column)
{
    std::vector<QStringList> rows;
    const auto *grid = form->findChild<FlexGrid *>(column.grid);
    for (int row = 1; grid && row < grid->rows(); ++row)
        rows.push_back({grid->textMatrix(row, column.index)});
    return rows;
}

/// Opens a form in the main window until it is painted, then closes it. What is noted is a column of its grid.
void open(Meter &meter, const QString &name, const Column &shown = {})
{
    const Desk desk;
    meter.start();
    Form *form = Load(name);
    QApplication::processEvents();
    meter.stop();
    if (meter.keepsRows())
        meter.note(columnOf(form, shown));
    form->unload();
    QApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// The list of a dialog's combo box, from the click to its entries on the screen.
void dropDown(Meter &meter, const QString &name, const QString &combo)
{
    const Desk desk;
    auto *list = Load(name)->findChild<QComboBox *>(combo);
    QApplication::processEvents();
    meter.start();
    list->showPopup();
    QApplication::processEvents();
    meter.stop();
    list->hidePopup();
}

/// A document from the call to its page on the screen.
void show(Meter &meter, const std::function<void()> &document)
{
    const Desk desk;
    meter.start();
    document();
    QApplication::processEvents();
    meter.stop();
}

} // namespace

std::vector<Operation> windowOperations()
{
    const QString shipment =
        gDatabase->OpenRecordset("SELECT TOP 1 ID FROM Shipment ORDER BY ID DESC").Fields("ID").text();
    const auto opens = [](const QString &form, const Column &shown = {}) {
        return [=](Meter &meter) { open(meter, form, shown); };
    };
    return {{"Order Entry opens", opens("frmOrderEntry")},
            {"Shipment Entry opens", opens("frmShipmentEntry")},
            {"Order Navigator, all orders", opens("frmOrderNavigator", {"vsfgOrders", 11}), Bare::orderNavigator},
            {"Shipment Navigator, all shipments", opens("frmShipmentNavigator", {"vsfgShipments", 2}),
             Bare::shipmentNavigator},
            {"Packing slip dialog, all shipments", opens("frmPackingSlip")},
            {"Packing slip dialog, its list drops down",
             [](Meter &meter) { dropDown(meter, "frmPackingSlip", "cmbReport"); }},
            {"Part Entry opens", opens("frmPartEntry")},
            {"Customer Entry opens", opens("frmCustomerEntry")},
            {"Packing slip, on the screen",
             [=](Meter &meter) { show(meter, [=] { Reports::PrintPackingSlip(shipment, true); }); }},
            {"Invoice of one shipment, on the screen", [=](Meter &meter) {
                 show(meter, [=] { Reports::PrintInvoice(shipment, "1", "1/1/2026", "1/31/2026", "Net 30", true); });
             }}};
}
