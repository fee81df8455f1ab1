#include "tools/check.h"

#include "data/engines/engines.h"
#include "data/engines/sqlite/connection.h"
#include "data/engines/sqlite/passwordgate.h"
#include "data/schema/schema.h"
#include "tools/check/findings.h"
#include "tools/copy.h"
#include "tools/newdatabase.h"
#include <QTemporaryDir>

namespace {

QStringList checkFile(const QString &path, const QString &config)
{
    ConnectionOptions options;
    options.file = path;
    options.readOnly = true;
    Connection connection(options);
    PasswordGate::check(connection, Schema::Password, path);
    check::Findings findings;
    // The queries behind it speak of tables and columns that must be there.
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

QStringList checkOnServer(const QString &uri, const QString &config)
{
    engine::Options options;
    options.name = uri;
    options.password = Schema::Password;
    options.readOnly = true;
    check::Findings findings;
    const auto connection = engines::open(options);
    check::checkServer(*connection, findings);
    if (!check::checkTables(connection->readCatalog(), findings))
        return findings.lines();
    // The server itself holds the columns to their types. What the rows say about each other is asked of a copy, as
    // they stand at one moment: the rules are written once, in the file's own SQL.
    const QTemporaryDir folder;
    const NewDatabase copy(folder.filePath("company.db"));
    fillCompany(uri, copy.name());
    return findings.lines() + checkFile(copy.name(), config);
}

} // namespace

QStringList checkDatabase(const QString &name, const QString &config)
{
    return engines::isFile(name) ? checkFile(name, config) : checkOnServer(name, config);
}
