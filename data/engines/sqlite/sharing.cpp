#include "data/engines/sqlite/sharing.h"

#include <array>
#include <sqlite3.h>

Sharing Sharing::of(sqlite3 *connection)
{
    sqlite3_file *file = nullptr;
    std::array<unsigned char, 100> header{};
    sqlite3_file_control(connection, "main", SQLITE_FCNTL_FILE_POINTER, &file);
    // A new file reads as zeros.
    if (file && file->pMethods)
        file->pMethods->xRead(file, header.data(), int(header.size()), 0);
    Sharing sharing;
    sharing.usesWriteAheadLog = header[19] == 2; // the version that reading takes
    sharing.isShared = header[63] == Mark;       // the last byte of the user version
    return sharing;
}
