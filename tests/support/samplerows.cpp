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

/// The texts of fields whose names fit, taken in turn; an empty one is Null.
using Texts = std::vector<std::pair<const char *, const char *>>;

const Texts ByLine{{"^CustomerNumber", "YOUR-70000|YOUR-70013|YOUR-70026|"},
                   {"^BinLocation", "A-0-3|B-11-3|C-2-30"},
                   {"^Memo", "*Beginning Balance|Shipment ID - 4001|Shipment ID - 4002"},
                   {"^TranType", "Invoice|Payment|Adjustment"},
                   {"^Shipment", "4711, 4712, 4720, 19|4711"}};
const Texts ByDocument{{"^(Customer|ShipTo$)", "Acme Building Supply|Bäcker & Söhne Großhandel GmbH|"
                                               "Consolidated Plumbing, Heating and Air Conditioning|Delta Hardware|"
                                               "Wholesale Industrial Fasteners of Northern Minn.|Zenith Tool & Die"},
                       {"Address1$", "100 Industrial Parkway North|9 Dock Rd"},
                       {"Address2$", "|Suite 1"},
                       {"City$", "Springfield|St. Paul|Fort Worth"},
                       {"State$", "IL|MN|TX"},
                       {"Zip$", "60601|55102|76102"},
                       {"(Phone|Fax)$", "(312) 555-0110|(651) 555-0199"},
                       {"^Ware[hH]ouse", "Chicago|Dallas Distribution Center|DG699"},
                       {"^Category", "Brackets|Fasteners|Hinges and Closers|Locks"},
                       {"^Terms", "Net 30|2% 10 Net 30"},
                       {"^Status", "Active|Active|InActive"},
                       {"^Territory", "East|Midwest|West|"},
                       {"^Via", "UPS Ground"}};

/// Gives the values of a column.
using Column = std::function<Value(int line, int document)>;

/// Parts and the numbers of documents differ in each line or document.
Column sampleTexts(const QString &field)
{
    const QString name = field.section('.', -1);
    for (const Texts *table : {&ByLine, &ByDocument})
        for (const auto &[names, texts] : *table)
            if (name.contains(QRegularExpression(names)))
                return [all = QString(texts).split('|'), table](int line, int document) {
                    const QString text = all[(table == &ByLine ? line : document) % all.size()];
                    return text.isEmpty() ? Value() : Value(text);
                };
    if (name.startsWith("Part") || name == "Superceded")
        return [](int line, int) {
            const QStringList parts{"BR-1040", "FX-2200-SS", "HG-310/BRASS-POLISHED-EXTRA-LONG-VARIANT-000123", "LK-7"};
            return parts[line % 4] + '-' + QString::number(line / 4);
        };
    return [](int, int document) { return QString::number(10000 + document); };
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
    std::vector<Column> columns;
    for (const DatasetField &field : dataset) {
        fields.append(field.name);
        if (isText(field.type))
            columns.push_back(sampleTexts(field.name));
        else if (isDate(field.type))
            columns.push_back([=](int line, int) { return Date(2011, 3, 1).addDays(isDocument ? 0 : line % 60); });
        else
            columns.push_back([=, name = field.name](int line, int document) {
                return sampleNumber(name, line, document, isDocument);
            });
    }
    MadeRows rows(fields);
    for (int line = 0; line < count; ++line) {
        std::vector<Value> row;
        for (const auto &column : columns)
            row.push_back(column(line, isDocument ? 0 : line / 7));
        rows.add(std::move(row));
    }
    return rows;
}
