#pragma once

#include "data/dao/database.h"
#include "data/schema/schema.h"
#include <QString>
#include <memory>

// The process-wide settings, written once at start-up, and the one database connection.

extern std::unique_ptr<Database> gDatabase;
extern QString gDatabasePath;
extern QString gDefaultWarehouse;
extern QString gConfigReserved;  ///< read and never used
extern QString gAutoPriceFlag;   ///< "YES" switches automatic prices on; any other text is off
extern double gTypeAheadSeconds; ///< idle seconds after which type-ahead starts a new search
extern bool gOrderNavigatorOpen; ///< True while frmOrderNavigator is loaded
extern bool gShipmentNavigatorOpen;

/// The connect string of every connection the program opens, password included.
inline constexpr QLatin1String DatabaseConnect = Schema::Connect;

/// Reads the settings file into the settings, which lies in the program's folder as `config.txt`. Errors 53, 62,
/// 75, 76.
void ReadConfig(const QString &path);

/// From here on all that the file holds outlasts a power failure. To be called before anything goes out of the program
/// that people act on: a message box, a printed document, an exported file. Does nothing without a database.
void syncDatabase();

/// Drops a table; a table that is missing or in use, or any other failure, is ignored without a word.
void DropTableIfExists(const QString &TableName);
