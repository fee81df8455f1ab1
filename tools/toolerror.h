#pragma once

#include <QString>

/// What the administrator did wrong, in one line that can be acted on.
struct ToolError
{
    QString message;
};
