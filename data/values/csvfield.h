#pragma once

#include <QString>

/// A text as a field of comma-separated text: between quotation marks, its own doubled, where a comma, a mark or a line
/// end in it asks for them, or the caller does.
QString csvField(const QString &text, bool quoted = false);
