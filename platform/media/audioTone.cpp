/// How the virtual room sounds.
#include "audioTone.h"

#include "internal.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{
constexpr BU_S64 SECOND_US = 1'000'000;
constexpr float BEEP_S = 0.08F, EDGE_S = 0.005F, BEEP_HZ = 1000, BEEP_LEVEL = 0.25F, AIR_LEVEL = 0.004F;

/// White noise by the number of a sample, -1 to 1.
float noise(BU_S64 s64Sample)
{
    BU_U64 u64 = static_cast<BU_U64>(s64Sample) * 0x9E3779B97F4A7C15U;
    u64 = (u64 ^ (u64 >> 32)) * 0xD6E8FEB86659FD93U;
    return static_cast<float>(u64 >> 40) / 8388608.0F - 1;
}

float beep(float fSeconds)
{
    if (fSeconds >= BEEP_S) return 0;
    const float fEdge = std::clamp(std::min(fSeconds, BEEP_S - fSeconds) / EDGE_S, 0.0F, 1.0F);
    return BEEP_LEVEL * fEdge * std::sin(2 * std::numbers::pi_v<float> * BEEP_HZ * fSeconds);
}
} // namespace

void media::renderTone(BU_S64 s64First, std::span<float> out)
{
    const BU_S64 s64FirstUs = s64First / AUDIO_RATE * SECOND_US + s64First % AUDIO_RATE * SECOND_US / AUDIO_RATE;
    const float fFirst = static_cast<float>(sceneTimeUs(s64FirstUs) % SECOND_US) / SECOND_US;
    for (std::size_t i = 0; i < out.size(); ++i) {
        const float fSeconds = fFirst + static_cast<float>(i) / AUDIO_RATE;
        const auto s64 = s64First + static_cast<BU_S64>(i);
        const float fAir = (noise(s64) + noise(s64 - 1) + noise(s64 - 2) + noise(s64 - 3)) / 4; // without the hiss
        out[i] = AIR_LEVEL * fAir + beep(fSeconds - std::floor(fSeconds));
    }
}
