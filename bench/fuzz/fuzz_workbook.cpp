#include "bench/fuzz/containers.h"
#include "bench/fuzz/patience.h"
#include "data/values/runtimeerror.h"
#include "data/workbook/compoundfile.h"
#include "data/workbook/damagedfile.h"
#include "data/workbook/readers.h"

#include <cstdint>
#include <cstring>
#include <random>

// Any bytes at all, taken for a workbook of the kind that READER reads. Most changes are made inside the container, to
// one of its parts, so that they reach the reader behind it.

extern "C" size_t LLVMFuzzerMutate(uint8_t *data, size_t size, size_t maxSize);

namespace {

/// The parts of a container; none of one that is damaged.
Parts partsOf(const QByteArray &content)
{
#ifdef COMPOUND
    Parts streams;
    try {
        const CompoundFile file(content);
        for (const char *name : {"Workbook", "Book"}) {
            const auto stream = file.stream(name);
            if (!stream)
                continue;
            // What stands behind the end only fills the stream up.
            qsizetype end = stream->size();
            while (end > 0 && stream->at(end - 1) == 0)
                --end;
            streams[name] = stream->left(end);
        }
    } catch (const DamagedFile &) {
        return {};
    }
    return streams;
#else
    return archiveParts(content);
#endif
}

QByteArray containerOf(const Parts &parts)
{
#ifdef COMPOUND
    return compoundFile(parts);
#else
    return archive(parts);
#endif
}

/// One of the numbers that readers stumble over, in place of a run of digits.
void changeNumber(QByteArray &part, std::minstd_rand &random)
{
    static const char *const numbers[] = {"-1",         "0",          "1",          "255",         "16384",
                                          "16385",      "65536",      "1048576",    "1048577",     "16777216",
                                          "2147483647", "2147483648", "4294967295", "99999999999", "1e308",
                                          "1e999",      "nan",        "-0.5",       "2958466"};
    if (part.isEmpty())
        return;
    qsizetype begin = qsizetype(random() % size_t(part.size()));
    while (begin < part.size() && !(part[begin] >= '0' && part[begin] <= '9'))
        ++begin;
    qsizetype end = begin;
    while (end < part.size() && part[end] >= '0' && part[end] <= '9')
        ++end;
    part.replace(begin, end - begin, numbers[random() % std::size(numbers)]);
}

/// Some bytes of the part, once more at another place.
void repeatPiece(QByteArray &part, std::minstd_rand &random)
{
    if (part.isEmpty())
        return;
    const QByteArray piece = part.mid(qsizetype(random() % size_t(part.size())), qsizetype(random() % 200));
    part.insert(qsizetype(random() % size_t(part.size())), piece);
}

void mutate(QByteArray &part, std::minstd_rand &random, size_t maxSize)
{
    switch (random() % 4) {
    case 0:
        return changeNumber(part, random);
    case 1:
        return repeatPiece(part, random);
    default: {
        QByteArray buffer = part;
        buffer.resize(qsizetype(std::max(maxSize, size_t(part.size()))));
        auto *bytes = reinterpret_cast<uint8_t *>(buffer.data());
        part = buffer.left(qsizetype(LLVMFuzzerMutate(bytes, size_t(part.size()), size_t(buffer.size()))));
    }
    }
}

} // namespace

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t *data, size_t size, size_t maxSize, unsigned seed)
{
    std::minstd_rand random(seed);
    Parts parts;
    if (random() % 16 != 0)
        parts = partsOf(QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size)));
    if (parts.isEmpty())
        return LLVMFuzzerMutate(data, size, maxSize);
    mutate(std::next(parts.begin(), qsizetype(random() % size_t(parts.size()))).value(), random, maxSize);
    const QByteArray changed = containerOf(parts);
    if (size_t(changed.size()) > maxSize)
        return LLVMFuzzerMutate(data, size, maxSize);
    std::memcpy(data, changed.constData(), size_t(changed.size()));
    return size_t(changed.size());
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const Patience patience;
    try {
        const auto sheets = READER(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)));
        for (const Sheet &sheet : sheets) {
            for (int row = 1; row < 20; ++row) {
                try {
                    sheet.at(row, row % 7).joined();
                } catch (const RuntimeError &) {
                }
            }
        }
    } catch (const DamagedFile &) {
    }
    return 0;
}
