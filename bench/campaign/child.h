#pragma once

#include <QProcess>
#include <memory>

// The processes that a campaign lets work: this program itself, started anew with other arguments.

/// Starts one, and waits until it has said that it is ready.
std::unique_ptr<QProcess> startChild(const QStringList &arguments);
/// Gives it the word to go.
void go(QProcess &child);
/// Listens until it has said that many lines, or nothing for long; what it said. Counted in lines and not in time, so
/// that a busy machine kills as deep into the work.
QByteArray heardFrom(QProcess &child, int lines);
/// Kills a server of scripts/testserver and lets it start again: all of its processes, or one, whereupon it ends the
/// sessions of the others by itself. Whether it stands again.
bool crashServer(const QString &server, bool all);
