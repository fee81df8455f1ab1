#pragma once

#include <cstdint>

/// What the recorder writes for each system call that changes a file of the folder it watches, in their order: this
/// head, the path, and for Write and Said the bytes. Printed is a document that is whole now, by its path in the folder
/// of printed ones.
struct TraceHead
{
    enum Kind : int32_t { Create, Write, Truncate, Sync, SyncFolder, Unlink, Rename, Said, Printed };
    Kind kind;
    int32_t pathSize; ///< Rename: of the former path; the new one stands as the bytes
    int64_t offset;   ///< Truncate: the new size
    int64_t dataSize;
};
