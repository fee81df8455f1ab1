#pragma once

#include <functional>

/// Two moments of every checkpoint between which otherwise some nanoseconds pass, where other processes may do things:
/// before it takes its lock, and when it has read the log's header, found it changed, and not begun its work yet.
enum class CheckpointMoment { BeforeLock, HeaderRead };

/// Calls that function at those moments, for database files opened from now on.
void atCheckpoints(std::function<void(CheckpointMoment)> action);
