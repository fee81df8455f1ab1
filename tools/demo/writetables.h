#pragma once

class BulkLoad;

namespace demo {

struct Company;
class Random;

// One for each group of tables; the random numbers fill in what does not bear on anything else.
void writeWarehouses(const Company &company, BulkLoad &file, Random &random);
void writeCustomers(const Company &company, BulkLoad &file, Random &random);
void writeParts(const Company &company, BulkLoad &file, Random &random);
void writeOldTables(const Company &company, BulkLoad &file, Random &random);
void writeOrders(const Company &company, BulkLoad &file, Random &random);
void writeShipments(const Company &company, BulkLoad &file);
void writeBilling(const Company &company, BulkLoad &file);
void writeStock(const Company &company, BulkLoad &file);

} // namespace demo
