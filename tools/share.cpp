#include "tools/share.h"

#include "data/engines/sqlite/connection.h"
#include "data/engines/sqlite/passwordgate.h"
#include "data/schema/schema.h"
#include "tools/toolerror.h"

void shareDatabase(const QString &path)
{
    ConnectionOptions options;
    options.file = path;
    options.journal = Journal::Rollback;
    Connection connection(options);
    PasswordGate::check(connection, Schema::Password, path);
    // Asking for the rollback journal is in vain while anybody else has the file open with its log.
    if (connection.usesWriteAheadLog())
        throw ToolError{QString("'%1' is in use; close every program that has it open").arg(path)};
    connection.markShared();
}
