#include "tools/demo/places.h"

namespace demo {

namespace {

struct Terms
{
    const char *text;
    int days;
};

constexpr Terms AllTerms[] = {{"Net 30", 30}, {"Net 30", 30}, {"Net 30", 30}, {"2% 10 Net 30", 30},
                              {"Net 45", 45}, {"Net 15", 15}, {"Net 60", 60}, {"Due on Receipt", 0}};

/// The plant first.
constexpr Town WarehouseTowns[] = {
    {"Dayton", "OH", "454", "937", ""},    {"Charlotte", "NC", "282", "704", ""},  {"Dallas", "TX", "752", "214", ""},
    {"Reno", "NV", "895", "775", ""},      {"Harrisburg", "PA", "171", "717", ""}, {"Memphis", "TN", "381", "901", ""},
    {"Omaha", "NE", "681", "402", ""},     {"Portland", "OR", "972", "503", ""},   {"Phoenix", "AZ", "850", "602", ""},
    {"Milwaukee", "WI", "532", "414", ""}, {"Tampa", "FL", "336", "813", ""},      {"Boston", "MA", "021", "617", ""}};

void makeWarehouses(Company &company, Random &random)
{
    const int count = std::min<int>(int(std::size(WarehouseTowns)), 4 + company.options.scale / 12);
    for (int i = 0; i < count; ++i) {
        Warehouse warehouse;
        warehouse.address = makeAddress(WarehouseTowns[i], random);
        warehouse.name = warehouse.address.city;
        if (i == 0)
            warehouse.name += " Plant";
        warehouse.contact = makePerson(random);
        company.warehouses.push_back(warehouse);
    }
}

/// Most take the goods where they pay for them, some elsewhere, and one or two in a hundred never said where.
void giveShipTo(Customer &customer, Random &random)
{
    const int kind = random.below(100);
    if (kind < 2)
        return;
    customer.shipTo = customer.name;
    customer.shipping = customer.billing;
    if (kind >= 70) {
        customer.shipTo += kind < 85 ? " Receiving" : " Yard 2";
        customer.shipping = makeAddress(random);
    }
    // The column takes 50 characters.
    customer.shipTo = customer.shipTo.left(50);
}

Customer makeCustomer(const QString &name, const Company &company, Random &random)
{
    Customer customer;
    customer.name = name;
    customer.billing = makeAddress(random);
    giveShipTo(customer, random);
    const Terms &terms = random.pick(AllTerms);
    customer.terms = QString::fromLatin1(terms.text);
    customer.days = terms.days;
    if (random.perMille(750))
        customer.sheet = random.pick(company.sheets);
    customer.warehouse = random.below(int(company.warehouses.size()));
    // A few order all the time and most now and then, as the turnover of a company is spread.
    customer.weight = 100000 / random.between(25, 1150);
    customer.active = !random.perMille(40);
    customer.statements = random.perMille(650);
    customer.slowPayer = random.perMille(120);
    customer.hasTerritory = !random.perMille(40);
    customer.usesOwnNumbers = random.perMille(250);
    return customer;
}

} // namespace

void makeMasters(Company &company, Random &random)
{
    company.sheets = {"Distributor", "OEM", "Contractor", "Government"};
    makeWarehouses(company, random);
    for (const QString &name : makeFirmNames(50 * company.options.scale, random))
        company.customers.push_back(makeCustomer(name, company, random));
}

} // namespace demo
