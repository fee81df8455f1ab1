#pragma once

namespace engine {

/// What was made for a new database, and goes away again with it: all of it, or the tables in one that stood there
/// without any.
enum class Made { Database, Tables };

} // namespace engine
