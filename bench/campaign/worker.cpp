#include "bench/campaign/worker.h"

#include "bench/campaign/place.h"
#include "data/dao/createdatabase.h"
#include "data/dao/database.h"
#include "data/values/runtimeerror.h"
#include <cstdio>
#include <iostream>

namespace {

constexpr auto Password = "campaign";

std::unique_ptr<Database> open(const QString &file, const QString &connect)
{
    return DBEngine::OpenDatabase(file, false, false, connect + ";pwd=" + Password);
}

/// What has been done, as far as it may be told.
class Promises
{
public:
    explicit Promises(bool onServer) : m_wait(onServer) {}

    void add(const QString &line)
    {
        m_lines += line + '\n';
        if (!m_wait)
            tell();
    }
    /// Written unbuffered and in one piece, so that a killed process leaves whole lines.
    void tell() { std::cout << std::exchange(m_lines, {}).toStdString() << std::flush; }

private:
    bool m_wait; ///< until the document is synced
    QString m_lines;
};

int saveOrder(Database &database, Promises &promises, const QString &number)
{
    Recordset orders = database.OpenRecordset("SELECT * FROM Orders");
    orders.AddNew();
    const int id = orders.Fields("ID").value().toLong();
    promises.add(QString("number %1").arg(id));
    orders.Fields("OrderNumber") = number;
    orders.Fields("Status") = "Open";
    orders.Update();
    promises.add(QString("order %1").arg(id));
    return id;
}

void saveLines(Database &database, Promises &promises, int id)
{
    database.Execute(QString("DELETE FROM OrderItem WHERE OrderID = %1").arg(id));
    Recordset lines = database.OpenRecordset(QString("SELECT * FROM OrderItem WHERE OrderID = %1").arg(id));
    for (int line = 1; line <= Worker::LinesPerOrder; ++line) {
        lines.AddNew();
        lines.Fields("OrderID") = id;
        lines.Fields("ItemNumber") = line;
        lines.Fields("PartNo") = QString("Part %1").arg(line);
        lines.Fields("Qty") = "2.5";
        lines.Update();
        promises.add(QString("line %1 %2").arg(id).arg(line));
    }
}

void post(Database &database, Promises &promises)
{
    Recordset row = database.OpenRecordset("SELECT * FROM AvailInv WHERE Part = 'Part 1' AND Whse = 'Main'");
    row.Edit();
    row.Fields("Avail") = row.Fields("Avail").value().toDouble() + Worker::Posting;
    row.Update();
    promises.add("posting");
}

void saveDocument(Database &database, Promises &promises, const QString &name, int number)
{
    const int id = saveOrder(database, promises, QString("%1-%2").arg(name).arg(number));
    saveLines(database, promises, id);
    post(database, promises);
    database.Execute("UPDATE Part SET MinOnHand = MinOnHand + 1");
    promises.add("parts");
    database.Execute(QString("UPDATE Orders SET Status = 'Closed', Total = %1 WHERE ID = %1").arg(id));
    promises.add(QString("closed %1").arg(id));
    database.Execute(QString("SELECT * INTO tmp%1 FROM Part").arg(name));
    database.Execute(QString("DROP TABLE tmp%1").arg(name));
    database.sync();
    promises.tell();
}

} // namespace

void Worker::prepare(const QString &file, const QString &connect)
{
    createDatabase(file, Password);
    const auto database = open(file, connect);
    for (int part = 1; part <= PartCount; ++part)
        database->Execute(QString("INSERT INTO Part (PartNo) VALUES ('Part %1')").arg(part));
    database->Execute("INSERT INTO AvailInv (Whse, Part, Avail) VALUES ('Main', 'Part 1', 0)");
}

int Worker::run(const QString &file, const QString &connect, const QString &name, int count)
{
    try {
        const auto database = open(file, connect);
        Promises promises(Place(file).isOnServer());
        promises.add("ready");
        promises.tell();
        std::cin.get(); // all workers start together
        // A worker killed between the two statements left its table.
        for (const TableDef &table : database->TableDefs()) {
            if (table.Name == "tmp" + name) {
                database->Execute("DROP TABLE tmp" + name);
                break;
            }
        }
        for (int number = 1; count < 0 || number <= count; ++number)
            saveDocument(*database, promises, name, number);
    } catch (const RuntimeError &error) {
        std::cerr << error.number() << ' ' << error.description().toStdString() << "\n"
                  << error.detail().toStdString() << std::endl;
        return 1;
    }
    return 0;
}
