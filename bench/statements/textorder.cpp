#include "data/values/textorder.h"
#include "bench/statements/campaigns.h"

#include <cstdio>
#include <random>
#include <sqlite3.h>

namespace {

int sign(int order)
{
    return order < 0 ? -1 : order > 0;
}

int compared(const QByteArray &a, const QByteArray &b)
{
    return sign(compareTexts({a.constData(), size_t(a.size())}, {b.constData(), size_t(b.size())}));
}

/// Some of these parts, joined.
QByteArray textOf(const QByteArrayList &parts, std::mt19937_64 &random)
{
    QByteArray text;
    for (unsigned length = random() % 4; length > 0; --length)
        text += parts.at(qsizetype(random() % size_t(parts.size())));
    return text;
}

} // namespace

QStringList textOrder(Extent extent)
{
    std::mt19937_64 random(extent.seed);
    const QByteArrayList parts{"a", "A", "á", "e", "é", "ß", "ss", "æ", " ", "-", "1", "\u0301", "Ω", "z"};
    QByteArrayList ascii;
    for (char c = '!'; c <= '~'; ++c)
        ascii += QByteArray(1, c);
    QStringList faults;
    for (int i = 0; i < extent.count; ++i) {
        const QByteArray a = textOf(parts, random), b = textOf(parts, random), c = textOf(parts, random);
        if (compared(a, b) != -compared(b, a))
            faults += "no order: " + a + " / " + b;
        if (compared(a, b) <= 0 && compared(b, c) <= 0 && compared(a, c) > 0)
            faults += "no order: " + a + " / " + b + " / " + c;
        const QByteArray d = textOf(ascii, random), e = textOf(ascii, random);
        const int own = sqlite3_strnicmp(d.constData(), e.constData(), int(std::min(d.size(), e.size())));
        if (compared(d, e) != sign(own ? own : int(d.size() - e.size())))
            faults += "another order than the engine's own: " + d + " / " + e;
    }
    std::printf("text order: %d triples\n", extent.count);
    return faults;
}
