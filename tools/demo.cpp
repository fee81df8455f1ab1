#include "tools/demo.h"

#include "data/dao/bulkload.h"
#include "data/schema/schema.h"
#include "tools/demo/company.h"
#include "tools/demo/writetables.h"
#include "tools/newdatabase.h"

namespace {

/// Each step builds on those before it and draws from the same numbers, so their order is part of the result.
demo::Company makeCompany(const DemoOptions &options, demo::Random &random)
{
    demo::Company company;
    company.options = options;
    demo::makeCalendar(company);
    demo::makeMasters(company, random);
    demo::makeParts(company, random);
    demo::makeOrders(company, random);
    demo::makeShipments(company, random);
    demo::makeInvoices(company);
    demo::makePayments(company, random);
    demo::makeStock(company, random);
    return company;
}

void fill(const QString &name, const DemoOptions &options)
{
    demo::Random random(options.seed);
    const demo::Company company = makeCompany(options, random);
    BulkLoad file(name, Schema::Password, BulkLoad::File::New);
    demo::writeWarehouses(company, file, random);
    demo::writeCustomers(company, file, random);
    demo::writeParts(company, file, random);
    demo::writeOrders(company, file, random);
    demo::writeShipments(company, file);
    demo::writeBilling(company, file);
    demo::writeStock(company, file);
    demo::writeOldTables(company, file, random);
    file.commit();
}

} // namespace

void createDemo(const QString &path, const DemoOptions &options)
{
    // A random salt would be the one thing in the file that differs from run to run.
    const QByteArray salt = "demo" + QByteArray::number(options.seed);
    NewDatabase database(path, salt);
    fill(database.name(), options);
    database.publish();
}
