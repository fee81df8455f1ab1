#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

/// The bytes of a file; nothing where it is missing, no regular file (a folder, a pipe and a device would keep the
/// program waiting or never end), larger than `most`, or not to be read.
std::optional<QByteArray> plainFileContents(const QString &path, qint64 most);
