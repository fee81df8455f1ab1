#include "data/workbook/gsf.h"

#include "data/workbook/damagedfile.h"
#include <gsf/gsf-input-memory.h>

void GsfRelease::operator()(void *object) const
{
    g_object_unref(object);
}

GsfInputPtr gsfInput(const QByteArray &content)
{
    return GsfInputPtr(
        gsf_input_memory_new(reinterpret_cast<const guint8 *>(content.constData()), content.size(), FALSE));
}

QByteArray gsfContents(GsfInput *input, qint64 most)
{
    // By pieces, into memory of ours: the library would end the program over a size that only the file believes in.
    constexpr qint64 piece = 1 << 20;
    const qint64 size = gsf_input_size(input);
    if (size < 0 || size > most)
        throw DamagedFile();
    QByteArray content;
    while (content.size() < size) {
        const qsizetype begin = content.size();
        const qint64 length = std::min(piece, size - begin);
        content.resize(begin + length, '\0');
        if (!gsf_input_read(input, size_t(length), reinterpret_cast<guint8 *>(content.data()) + begin))
            throw DamagedFile();
    }
    return content;
}
