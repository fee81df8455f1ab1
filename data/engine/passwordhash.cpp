#include "data/engine/passwordhash.h"

#include <QCryptographicHash>
#include <QMessageAuthenticationCode>
#include <QRandomGenerator>

namespace {
constexpr int SaltWords = 4;
} // namespace

QByteArray randomSalt()
{
    quint32 words[SaltWords];
    QRandomGenerator::system()->fillRange(words);
    return QByteArray(reinterpret_cast<const char *>(words), sizeof(words));
}

/// By hand over Qt's HMAC, since Qt derives keys in its network module alone, and this layer stands on its core.
QByteArray passwordHash(const QString &password, const QByteArray &salt, int rounds)
{
    QMessageAuthenticationCode mac(QCryptographicHash::Sha256, password.toUtf8());
    // PBKDF2 with one block, which is as long as the hash.
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
