#include "data/engines/sqlite/copyfile.h"

#include "data/engines/sqlite/connection.h"
#include "data/engines/sqlite/passwordgate.h"

namespace {

/// For reading alone: the log of a database in use is brought over by those who write it, never from here.
ConnectionOptions source(const QString &path)
{
    ConnectionOptions options;
    options.file = path;
    options.readOnly = true;
    return options;
}

ConnectionOptions target(const QString &path)
{
    ConnectionOptions options;
    options.file = path;
    options.create = true;
    options.journal = Journal::Rollback;
    return options;
}

/// Raises the first thing that the engine finds wrong; of a copy, in words about the database it was made from.
void quickCheck(Connection &file, const QString &name)
{
    const Doing checking{Doing::Reading, {}, QStringLiteral("quick check")};
    Statement check = file.prepare("PRAGMA quick_check(1)", checking);
    const int code = check.step();
    if (code == SQLITE_ROW && check.text(0) == u"ok")
        return;
    if (code != SQLITE_ROW && (code & 0xff) != SQLITE_CORRUPT)
        file.raise(code, checking);
    const QString found = code == SQLITE_ROW ? check.text(0) : QStringLiteral("it cannot be read to its end");
    throw RuntimeError(3049, QStringLiteral("'%1' is damaged: %2").arg(name, found));
}

} // namespace

void copyFile(const QString &from, const QString &to, const QString &password)
{
    Connection original(source(from));
    PasswordGate::check(original, password, from);
    Connection copy(target(to));
    original.copyInto(copy);
    PasswordGate::check(copy, password, from);
    quickCheck(copy, from);
}

void requireSoundFile(const QString &file, const QString &password)
{
    Connection connection(source(file));
    PasswordGate::check(connection, password, file);
    quickCheck(connection, file);
}
