#pragma once

/// Thrown inside the readers of workbooks when a file breaks off, contradicts itself or leaves the limits of its
/// format.
struct DamagedFile
{
};
