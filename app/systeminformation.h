#pragma once

#include <QString>

/// The system information tool that the registry names, or nothing when it names none that exists. Only Windows has
/// such a registry.
QString systemInformationTool();
