// The topics of the packet table, in the order of the documents.
#include "table.h"

namespace visca
{
std::span<const Topic> topics()
{
    static const Topic s_astTopic[] = {
        {"Zoom and focus", g_lensRows},
        {"White balance", g_whiteBalanceRows},
        {"Exposure", g_exposureRows},
        {"Picture", g_pictureRows},
        {"Pan and tilt", g_motionRows},
        {"Presets", g_presetRows},
        {"System, network, lamps, sound, menu", g_systemRows},
        {"People tracking", g_trackingRows},
        {"Extension and status", g_extensionRows},
    };
    return s_astTopic;
}
} // namespace visca
