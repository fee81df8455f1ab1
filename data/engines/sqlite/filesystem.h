#pragma once

#include <QString>

/// True when the file lies on a file system that other machines share, where memory cannot be shared between
/// the processes that use the file, as a write-ahead log needs it. False where the system does not tell.
bool liesOnNetwork(const QString &file);

/// Makes the names of the files in that file's folder outlast a power failure, as far as the system knows how to.
void syncFolderOf(const QString &file);

/// In a folder that hands its group on to what is made in it, people work on one file together: gives the group the
/// right to write to the file there. Elsewhere, and where the system knows no such folders, does nothing.
void shareWithGroup(const QString &file);
