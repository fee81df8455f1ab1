#include "bench/campaign/worker.h"

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

/// Written unbuffered and in one piece, so that a killed process leaves whole lines.
void promise(const QString &line)
{
    std::cout << (line + '\n').toStdString() << std::flush;
}

int saveOrder(Database &database, const QString &number)
{
    Recordset orders = database.OpenRecordset("SELECT * FROM Orders");
    orders.AddNew();
    const int id = orders.Fields("ID").value().toLong();
    promise(QString("number %1").arg(id));
    orders.Fields("OrderNumber") = number;
    orders.Fields("Status") = "Open";
    orders.Update();
    promise(QString("order %1").arg(id));
    return id;
}

void saveLines(Database &database, int id)
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
        promise(QString("line %1 %2").arg(id).arg(line));
    }
}

void post(Database &database)
{
    Recordset row = database.OpenRecordset("SELECT * FROM AvailInv WHERE Part = 'Part 1' AND Whse = 'Main'");
    row.Edit();
    row.Fields("Avail") = row.Fields("Avail").value().toDouble() + Worker::Posting;
    row.Update();
    promise("posting");
}

void saveDocument(Database &database, const QString &name, int number)
{
    const int id = saveOrder(database, QString("%1-%2").arg(name).arg(number));
    saveLines(database, id);
    post(database);
    database.Execute("UPDATE Part SET MinOnHand = MinOnHand + 1");
    promise("parts");
    database.Execute(QString("UPDATE Orders SET Status = 'Closed', Total = %1 WHERE ID = %1").arg(id));
    promise(QString("closed %1").arg(id));
    database.Execute(QString("SELECT * INTO tmp%1 FROM Part").arg(name));
    database.Execute(QString("DROP TABLE tmp%1").arg(name));
    database.sync();
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
        promise("ready");
        std::cin.get(); // all workers start together
        // A worker killed between the two statements left its table.
        for (const TableDef &table : database->TableDefs()) {
            if (table.Name == "tmp" + name) {
                database->Execute("DROP TABLE tmp" + name);
                break;
            }
        }
        for (int number = 1; count < 0 || number <= count; ++number)
            saveDocument(*database, name, number);
    } catch (const RuntimeError &error) {
        std::cerr << error.number() << ' ' << error.description().toStdString() << "\n"
                  << error.detail().toStdString() << std::endl;
        return 1;
    }
    return 0;
}
