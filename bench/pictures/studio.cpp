#include "bench/pictures/studio.h"

#include "app/formlist.h"
#include "data/schema/schema.h"
#include "reportengine/viewer/viewer.h"
#include "toolkit/forms/forms.h"
#include "toolkit/forms/mainmod.h"
#include "tools/demo.h"
#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>
#include <stdexcept>

namespace {
const QDate Day(2026, 11, 20);
}

Studio::Studio(const QDir &target, int scale) : m_target(target), m_clock("2026-11-20 10:30:00")
{
    gDatabasePath = m_folder.filePath("company.db");
    createDemo(gDatabasePath, {.scale = scale, .seed = 1, .until = Day});
    gDatabase = DBEngine::OpenDatabase(gDatabasePath, false, false, DatabaseConnect);
    gAutoPriceFlag = "YES";
    gTypeAheadSeconds = 1.5;
    Recordset warehouse = gDatabase->OpenRecordset("SELECT Warehouse FROM Warehouse WHERE Status = 'Active'");
    gDefaultWarehouse = warehouse.Fields("Warehouse").text();
    warehouse.Close();
    registerForms();
    m_mdi = std::make_unique<MDI>();
    m_mdi->show();
    settle();
}

Studio::~Studio()
{
    clear();
    m_mdi.reset();
    gDatabase.reset();
}

void Studio::menu(const QString &name)
{
    auto *action = m_mdi->findChild<QAction *>(name);
    if (!action || !action->isEnabled())
        throw std::runtime_error("no such menu entry: " + name.toStdString());
    action->trigger();
    settle();
}

void Studio::takeWindow(const QString &picture, QSize size)
{
    m_mdi->resize(size);
    settle();
    if (!m_mdi->grab().save(m_target.filePath(picture + ".png")))
        throw std::runtime_error("can't write " + picture.toStdString());
}

void Studio::takeReport(const QString &picture)
{
    const auto viewers = m_mdi->findChildren<Viewer *>();
    if (viewers.isEmpty())
        throw std::runtime_error("no report stands open for " + picture.toStdString());
    QWidget *control = viewers.last()->findChild<QWidget *>("CRViewer");
    bool written = false;
    QMetaObject::invokeMethod(control, "exportTo", Q_RETURN_ARG(bool, written),
                              Q_ARG(QString, m_target.filePath(picture + ".pdf")));
    if (!written)
        throw std::runtime_error("can't export " + picture.toStdString());
    clear();
}

void Studio::clear()
{
    Forms::unloadAll();
    if (auto *area = m_mdi->findChild<QMdiArea *>())
        area->closeAllSubWindows();
    settle();
}

void Studio::settle()
{
    QTest::qWait(20);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents(); // the strip closes the gap of a window that is gone
}
