#pragma once

#include <QByteArray>
#include <memory>

typedef struct _GsfInfile GsfInfile;
typedef struct _GsfInput GsfInput;

/// What the container library hands out, given back at the end.
struct GsfRelease
{
    void operator()(void *object) const;
};
using GsfInfilePtr = std::unique_ptr<GsfInfile, GsfRelease>;
using GsfInputPtr = std::unique_ptr<GsfInput, GsfRelease>;

/// A stream over bytes that outlive it.
GsfInputPtr gsfInput(const QByteArray &content);
/// A stream's bytes from its beginning. DamagedFile when they are more than `most`, or cannot be had.
QByteArray gsfContents(GsfInput *input, qint64 most);
