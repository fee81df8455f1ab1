#include <QByteArray>
#include <QDir>
#include <cstdio>
#include <cstring>
#include <random>
#include <vector>

// Stands in for libFuzzer where the tests run: so many changed inputs with a fixed seed, and no eye for what they
// reach.
//
// usage: fuzz_KIND FOLDER COUNT     the folder holds what is changed

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);
extern "C" size_t LLVMFuzzerCustomMutator(uint8_t *data, size_t size, size_t maxSize, unsigned seed);

namespace {

constexpr size_t LargestInput = 16000;
std::mt19937 dice(20110330);

std::vector<QByteArray> contentsOf(const QDir &folder)
{
    std::vector<QByteArray> contents;
    for (const QString &name : folder.entryList(QDir::Files, QDir::Name)) {
        QFile file(folder.filePath(name));
        if (file.open(QIODevice::ReadOnly))
            contents.push_back(file.readAll());
    }
    return contents;
}

} // namespace

/// One byte taken away, put in or changed.
extern "C" size_t LLVMFuzzerMutate(uint8_t *data, size_t size, size_t maxSize)
{
    const size_t at = size == 0 ? 0 : dice() % size, behind = size - at;
    const unsigned way = dice() % 3;
    if (way == 0 && size > 0) {
        std::memmove(data + at, data + at + 1, behind - 1);
        return size - 1;
    }
    if (way == 1 && size < maxSize) {
        std::memmove(data + at + 1, data + at, behind);
        ++size;
    }
    if (size > 0)
        data[at] = uint8_t(dice());
    return size;
}

int main(int argc, char **argv)
{
    const std::vector<QByteArray> seeds = contentsOf(QDir(argc > 1 ? argv[1] : ""));
    const int count = argc > 2 ? std::atoi(argv[2]) : 0;
    if (seeds.empty() || count <= 0) {
        std::fprintf(stderr, "usage: %s FOLDER COUNT\n", argv[0]);
        return 2;
    }
    for (int i = 0; i < count; ++i) {
        QByteArray input = seeds[dice() % seeds.size()];
        size_t size = size_t(input.size());
        input.resize(qsizetype(std::max(size, LargestInput)));
        auto *data = reinterpret_cast<uint8_t *>(input.data());
        for (unsigned changes = 1 + dice() % 3; changes > 0; --changes)
            size = LLVMFuzzerCustomMutator(data, size, size_t(input.size()), dice());
        LLVMFuzzerTestOneInput(data, size);
    }
    std::printf("%d changed inputs\n", count);
    return 0;
}
