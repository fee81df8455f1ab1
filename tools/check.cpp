#include "tools/check.h"

#include "data/engines/sqlite/connection.h"
#include "data/engines/sqlite/passwordgate.h"
#include "data/schema/schema.h"
#include "tools/check/findings.h"

QStringList checkDatabase(const QString &path, const QString &config)
{
    ConnectionOptions options;
    options.file = path;
    options.readOnly = true;
    Connection connection(options);
    PasswordGate::check(connection, Schema::Password.toString(), path);
    check::Findings findings;
    if (check::checkStructure(connection, findings)) {
        check::checkColumns(connection, findings);
        check::checkRelations(connection, findings);
        check::checkInvoices(connection, findings);
        check::checkLedger(connection, findings);
        check::checkEndings(connection, findings);
        if (!config.isEmpty())
            check::checkConfig(config, connection, findings);
    }
    return findings.lines();
}
