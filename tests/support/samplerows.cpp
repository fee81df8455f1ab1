#include "tests/support/samplerows.h"

#include "reports/layouts/catalogue.h"

MadeRows::MadeRows(QStringList fields, std::vector<std::vector<Value>> rows)
    : m_fields(std::move(fields)), m_rows(std::move(rows))
{
}

int MadeRows::column(const QString &field)
{
    for (int i = 0; i < m_fields.size(); ++i) {
        if (m_fields[i].compare(field, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

bool MadeRows::next()
{
    return ++m_at <= count();
}

namespace {

QString picked(const QStringList &from, int i)
{
    return from[i % from.size()];
}

const QStringList Customers{"Acme Building Supply",
                            "Bäcker & Söhne Großhandel GmbH",
                            "Consolidated Plumbing, Heating and Air Conditioning",
                            "Delta Hardware",
                            "Wholesale Industrial Fasteners of Northern Minn.",
                            "Zenith Tool & Die"};
const QStringList Categories{"Brackets", "Fasteners", "Hinges and Closers", "Locks"};
const QStringList Parts{"BR-1040", "FX-2200-SS", "HG-310/BRASS-POLISHED-EXTRA-LONG-VARIANT-000123", "LK-77", "MX-9"};
const QStringList Warehouses{"Chicago", "Dallas Distribution Center", "DG699"};

/// The text of a field. `document` counts orders or customers, `line` the rows.
Value sampleText(const QString &field, int line, int document)
{
    const QString name = field.section('.', -1);
    if (name.startsWith("Customer") && name != "CustomerNumber")
        return picked(Customers, document);
    if (name == "CustomerNumber")
        return line % 4 == 3 ? Value() : Value("YOUR-" + QString::number(70000 + line * 13));
    if (name == "ShipTo")
        return picked(Customers, document) + " Dock";
    if (name.endsWith("Address1"))
        return QString::number(100 + document * 17) + " Industrial Parkway North";
    if (name.endsWith("Address2"))
        return document % 2 ? Value("Suite " + QString::number(document)) : Value();
    if (name.endsWith("City"))
        return picked({"Springfield", "St. Paul", "Fort Worth"}, document);
    if (name.endsWith("State"))
        return picked({"IL", "MN", "TX"}, document);
    if (name.endsWith("Zip"))
        return QString::number(60601 + document * 7);
    if (name.endsWith("Phone") || name.endsWith("Fax"))
        return "(312) 555-01" + QString::number(10 + document % 90);
    if (name == "Warehouse" || name == "WareHouse")
        return picked(Warehouses, document);
    if (name == "Category")
        return picked(Categories, line / 7);
    if (name == "PartNo" || name == "Part" || name == "Superceded")
        return picked(Parts, line) + "-" + QString::number(line / 5);
    if (name == "BinLocation")
        return QString(QChar('A' + line % 6)) + "-" + QString::number(line % 40) + "-3";
    if (name == "Memo")
        return line % 5 == 0 ? Value("*Beginning Balance") : Value("Shipment ID - " + QString::number(4000 + line));
    if (name == "TranType")
        return picked({"Invoice", "Payment", "Adjustment"}, line);
    if (name == "Shipment")
        return "4711, 4712, 4720, " + QString::number(line);
    if (name == "Terms")
        return picked({"Net 30", "2% 10 Net 30"}, document);
    if (name == "Status")
        return picked({"Active", "InActive"}, line / 20);
    if (name == "Territory")
        return document % 4 == 3 ? Value() : Value(picked({"East", "Midwest", "West"}, document));
    if (name == "Via")
        return "UPS Ground";
    if (name.startsWith("Invoice") || name == "OrderNumber" || name == "ID")
        return QString::number(10000 + document);
    return field + " " + QString::number(line);
}

Value sampleNumber(const QString &field, int line, int document, bool isDocument)
{
    const QString name = field.section('.', -1);
    if (field == "Orders.ID" || (name == "ID" && isDocument && field == "ID"))
        return 1200 + document;
    if (field == "SHIPMENT.ID")
        return 4700 + line / 3;
    if (name == "ID" || name == "FromID")
        return 4700 + line;
    if (name == "ItemNumber")
        return line + 1;
    if (name == "Months")
        return 3;
    if (name == "Req")
        return 2;
    if (name == "Freight")
        return 12.5 * (line / 3 % 3);
    if (name == "Adjustment")
        return line / 3 % 4 == 1 ? -4.25 : 0.0;
    if (line % 11 == 7)
        return {};
    if (name.contains("Qty") || name == "Avail" || name == "Shipped")
        return (line * 7 % 60 + 1) * (name == "Qty" && !isDocument && line % 6 == 5 ? -1 : 1);
    return double((line * 7919 + 13) % 250000) / 100 - (line % 9 == 4 ? 1500 : 0);
}

} // namespace

MadeRows sampleRows(const QString &designer, int count)
{
    static const QStringList documents{"crptInvoice", "crptPackingSlip", "crptPickTicket",
                                       "crptInventoryAdjustControlReport", "crptInventoryTransferControlReport"};
    const bool isDocument = documents.contains(designer);
    const Dataset &dataset = reportDesign(designer).dataset;
    QStringList fields;
    for (const DatasetField &field : dataset)
        fields.append(field.name);
    MadeRows rows(fields);
    for (int line = 0; line < count; ++line) {
        const int document = isDocument ? 0 : line / 7;
        std::vector<Value> row;
        for (const DatasetField &field : dataset) {
            if (isText(field.type))
                row.push_back(sampleText(field.name, line, document));
            else if (isDate(field.type))
                row.push_back(Date(2011, 3, 1).addDays(isDocument ? 0 : line % 60));
            else
                row.push_back(sampleNumber(field.name, line, document, isDocument));
        }
        rows.add(std::move(row));
    }
    return rows;
}
