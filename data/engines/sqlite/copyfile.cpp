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
    // A copy is one file, without a log beside it.
    options.journal = Journal::Rollback;
    return options;
}

/// Raises the first thing that the engine finds wrong; of a copy, in words about the database it was made from.
void quickCheck(Connection &file, const QString &name)
{
    const ErrorContext checking{ErrorContext::Reading, {}, "quick check"};
    PreparedStatement check = file.prepare("PRAGMA quick_check(1)", checking);
    QString found = "it cannot be read to its end";
    try {
        if (check.next())
            found = check.text(0);
    } catch (const RuntimeError &error) {
        if (error.number() != 3049) // damage that the check itself stumbles over
            throw;
    }
    if (found == u"ok")
        return;
    throw RuntimeError(3049, QString("'%1' is damaged: %2").arg(name, found));
}

} // namespace

void copyFile(const QString &from, const QString &to, const QString &password)
{
    Connection original(source(from));
    PasswordGate::check(original, password, from);
    Connection copy(target(to));
    original.copyInto(copy);
    // The copy is asked as if it were opened to work with: a backup that nobody can open is none.
    PasswordGate::check(copy, password, from);
    quickCheck(copy, from);
}

void requireSoundFile(const QString &file, const QString &password)
{
    Connection connection(source(file));
    PasswordGate::check(connection, password, file);
    quickCheck(connection, file);
}
