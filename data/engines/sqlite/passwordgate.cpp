#include "data/engines/sqlite/passwordgate.h"

#include "data/engines/sqlite/connection.h"
#include <QCryptographicHash>
#include <QMessageAuthenticationCode>
#include <QRandomGenerator>

namespace {

constexpr int SaltWords = 4;
constexpr int Rounds = 4000; ///< some milliseconds at each opening
/// A file that wants more of any is not one of ours, or nobody would see the end of its opening.
constexpr qint64 MostRounds = 100'000;
constexpr qsizetype MostBytes = 1024;

QByteArray randomSalt()
{
    quint32 words[SaltWords];
    QRandomGenerator::system()->fillRange(words);
    return QByteArray(reinterpret_cast<const char *>(words), sizeof(words));
}

/// One block of PBKDF2 over HMAC-SHA-256.
QByteArray hashOf(const QString &password, const QByteArray &salt, int rounds)
{
    QMessageAuthenticationCode mac(QCryptographicHash::Sha256, password.toUtf8());
    mac.addData(salt + QByteArray("\0\0\0\1", 4));
    QByteArray round = mac.result();
    QByteArray sum = round;
    for (int i = 1; i < rounds; ++i) {
        mac.reset();
        mac.addData(round);
        round = mac.result();
        for (qsizetype byte = 0; byte < sum.size(); ++byte)
            sum[byte] = char(sum[byte] ^ round[byte]);
    }
    return sum;
}

} // namespace

void PasswordGate::create(Connection &connection, const QString &password, const QByteArray &given)
{
    const Doing defining{Doing::Defining, QStringLiteral("MSysPassword"), {}};
    connection.run("CREATE TABLE MSysPassword (Salt BLOB, Rounds INTEGER, Hash BLOB)", defining);
    const QByteArray salt = given.isEmpty() ? randomSalt() : given;
    connection.run("INSERT INTO MSysPassword VALUES (x'" + salt.toHex() + "', " + QByteArray::number(Rounds) + ", x'" +
                       hashOf(password, salt, Rounds).toHex() + "')",
                   defining);
}

void PasswordGate::check(Connection &connection, const QString &password, const QString &file)
{
    const Doing opening{Doing::Opening, {}, {}};
    Statement tables = connection.prepare("SELECT 1 FROM sqlite_schema WHERE name = 'MSysPassword'", opening);
    const int found = tables.step();
    if (found == SQLITE_DONE)
        throw runtimeError(3343, {file});
    if (found != SQLITE_ROW)
        connection.raise(found, opening);
    tables.reset();

    Statement gate = connection.prepare("SELECT Salt, Rounds, Hash FROM MSysPassword", opening);
    const int code = gate.step();
    if (code == SQLITE_DONE)
        throw runtimeError(3343, {file});
    if (code != SQLITE_ROW)
        connection.raise(code, opening);
    const qint64 rounds = gate.integer(1);
    if (rounds < 1 || rounds > MostRounds || gate.bytes(0).size() > MostBytes)
        throw runtimeError(3343, {file});
    if (hashOf(password, gate.bytes(0), int(rounds)) != gate.bytes(2))
        throw runtimeError(3031);
}
