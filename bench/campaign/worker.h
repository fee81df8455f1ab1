#pragma once

#include <QString>

/// The child's side of a campaign: saves documents of several statements each, and writes a line to the standard
/// output for every statement that has returned; on a server, where statements are sent and not waited for, once a
/// document is synced. A line that the parent reads is a promise that the database holds it.
namespace Worker {

constexpr int LinesPerOrder = 4;
constexpr int Statements = LinesPerOrder + 4; ///< of a document, promised one by one
constexpr int Posting = 3;                    ///< what each document adds to the one row of AvailInv
constexpr int PartCount = 50;                 ///< rows that one statement changes together

/// Makes the tables' starting contents.
void prepare(const QString &file, const QString &connect);

/// Saves `count` documents, or goes on until killed when `count` is negative. Returns the exit status.
int run(const QString &file, const QString &connect, const QString &name, int count);

} // namespace Worker
