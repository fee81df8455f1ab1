#include "data/schema/schema.h"
#include "tests/support/printers.h"

namespace {

Catalog wholeCatalog()
{
    Catalog catalog;
    for (const auto *tables : {&Schema::permanentTables(), &Schema::keptScratchTables()}) {
        for (const TableDef &table : *tables)
            catalog.add(table);
    }
    return catalog;
}

TEST(Schema, HoldsEachTableOnceUnderItsNameAndNumbersItsDocuments)
{
    const Catalog catalog = wholeCatalog();
    QStringList names, numbered;
    for (const TableDef &table : catalog.tables()) {
        names += table.Name;
        if (table.columns[0].autoNumber)
            numbered += table.Name;
        for (const ColumnDef &column : table.columns) {
            const bool number =
                column.type != ColumnType::Text && column.type != ColumnType::Memo && column.type != ColumnType::Date;
            const bool scratch = table.Name.startsWith("tmp");
            EXPECT_EQ(column.defaultZero, number && !scratch && !column.autoNumber) << column.name.toStdString();
            EXPECT_EQ(column.size, column.type != ColumnType::Text ? 0 : column.name == "CustomerNumber" ? 100 : 50);
        }
    }
    EXPECT_EQ(names.join(' '),
              "Customer Part Warehouse PriceSheet Orders OrderItem Shipment ShipmentItems Invoice Payments "
              "AdjustmentHeader AdjustmentDetail TransferHeader AvailInv Inventory Invoice_Old Customer_Old "
              "FebInventory tmpInventoryRegister tmpInventoryRegister2 tmpTransferHeaderIDs tmpProductionSummary "
              "tmpProductionInventoryRegister tmpSalesByCustomer tmpARTran");
    EXPECT_EQ(size_t(names.size()), Schema::permanentTables().size() + Schema::keptScratchTables().size());
    EXPECT_EQ(numbered.join(' '), "Orders Shipment Invoice Payments AdjustmentHeader TransferHeader");
}

TEST(Schema, EveryIndexStandsOnColumnsThatExistAndNoneOnALineNumberAlone)
{
    const Catalog catalog = wholeCatalog();
    for (const Schema::Index &index : Schema::indexes()) {
        const TableDef *table = catalog.find(index.table);
        if (!table) { // one that a report makes
            EXPECT_TRUE(index.table.startsWith("tmp")) << index.name.toStdString();
            continue;
        }
        for (const QString &column : index.columns)
            EXPECT_GE(table->indexOf(column), 0) << index.name.toStdString();
        EXPECT_FALSE(QStringList({"ItemNumber", "OrderLineItem", "Whse"}).contains(index.columns.first()));
    }
}

TEST(Catalog, FindsTablesAndColumnsByTheirNamesInAnyCase)
{
    const Catalog catalog = wholeCatalog();
    ASSERT_NE(catalog.find(u"SHIPMENT"), nullptr);
    EXPECT_EQ(catalog.find(u"SHIPMENT")->Name, "Shipment");
    EXPECT_EQ(catalog.find(u"shipment")->indexOf(u"ORDERID"), 1);
    EXPECT_EQ(catalog.find(u"Shipment")->indexOf(u"Nosuch"), -1);
    EXPECT_EQ(catalog.find(u"Ship"), nullptr);
}

} // namespace
