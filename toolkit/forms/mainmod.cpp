#include "toolkit/forms/mainmod.h"

#include "data/values/inputfile.h"
#include "data/values/numbers.h"
#include "data/values/runtimeerror.h"

std::unique_ptr<Database> gDatabase;
QString gDatabasePath;
QString gDefaultWarehouse;
QString gConfigReserved;
QString gAutoPriceFlag;
double gTypeAheadSeconds = 0;
bool gOrderNavigatorOpen = false;
bool gShipmentNavigatorOpen = false;

void ReadConfig(const QString &path)
{
    InputFile file(path);
    file.readField(); // a heading
    // Then pairs of a label, never looked at, and a value: position alone counts.
    const auto readValue = [&file] {
        file.readField();
        return file.readField();
    };
    gDatabasePath = readValue();
    gDefaultWarehouse = readValue();
    gConfigReserved = readValue();
    gAutoPriceFlag = readValue();
    // A text that is no number is 0: every key then begins a search of its own.
    gTypeAheadSeconds = Val(readValue());
}

void syncDatabase()
{
    if (gDatabase)
        gDatabase->syncAll();
}

void DropTableIfExists(const QString &TableName)
{
    gDatabase->flush(); // the failure of a statement before this one is nothing to ignore
    try {
        gDatabase->Execute("DROP TABLE " + TableName);
    } catch (const RuntimeError &) {
        // Meant: the caller only wants the name free, and makes the table anew or fails on it by itself.
    }
}
