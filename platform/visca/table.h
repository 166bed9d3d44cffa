/// The packet table: every command and inquiry of the camera, by topic.
#pragma once

#include "row.h"

#include <span>

namespace visca
{
struct Topic {
    const char *pcTitle;
    std::span<const Row> rows;
};

extern const std::span<const Row> g_lensRows, g_whiteBalanceRows, g_exposureRows, g_pictureRows, g_motionRows,
    g_presetRows, g_systemRows, g_trackingRows, g_extensionRows;

/// In the order of the documentation; the first row that fits a record is the one that encodes it.
std::span<const Topic> topics();
} // namespace visca
