/// Which of the output's frames a slower consumer takes.
#include "frameRate.h"

#include <gtest/gtest.h>

#include <vector>

using media::FrameRate;

namespace
{
TEST(FrameRates, ConsumersTakeAnEvenShare)
{
    const std::tuple<BU_S64, BU_S64, BU_S64, std::vector<BU_S64>> cases[] = {
        // output, wanted, got, first frames
        {60, 30, 30, {0, 2, 4, 6, 8}},      {60, 60, 60, {0, 1, 2, 3}},       {30, 60, 30, {0, 1, 2, 3}},
        {60, 25, 25, {0, 3, 5, 8, 10, 12}}, {30, 15, 15, {0, 2, 4}},          {60, 1, 1, {0, 60, 120}},
        {59940, 30, 29970, {0, 2, 4, 6}},   {59940, 60, 59940, {0, 1, 2, 3}}, {50, 29970, 29970, {0, 2, 4, 6, 7}},
        {23980, 24, 23980, {0, 1, 2, 3}},   {24, 23980, 23980, {0, 2, 3, 4}}};
    for (const auto &[s64Output, s64Wanted, s64Gets, expected] : cases) {
        const FrameRate stOutput = *FrameRate::ofCode(s64Output), stGets = FrameRate::ofCode(s64Wanted)->from(stOutput);
        EXPECT_EQ(stGets.code(), s64Gets) << s64Wanted << " from " << s64Output;
        std::vector<BU_S64> frames;
        while (frames.size() < expected.size())
            frames.push_back(stGets.nextOf(stOutput, frames.empty() ? 0 : frames.back() + 1));
        EXPECT_EQ(frames, expected) << s64Wanted << " from " << s64Output;
    }
    for (const BU_S64 s64Code : {0, -1, 61, 30000, 59941}) EXPECT_FALSE(FrameRate::ofCode(s64Code)) << s64Code;
}

TEST(FrameRates, NothingDriftsOverAHundredDays)
{
    constexpr BU_S64 DAYS_US = 100 * 86'400'000'000;
    for (const BU_S64 s64Code : {60, 59940, 50, 30, 29970, 25, 24, 23980, 1}) {
        const FrameRate st = *FrameRate::ofCode(s64Code);
        for (const BU_S64 s64Us : {BU_S64{0}, BU_S64{1'001'000}, DAYS_US, DAYS_US + 123'457}) {
            const BU_S64 s64Frame = st.frameAt(s64Us);
            EXPECT_LE(st.dueUs(s64Frame), s64Us) << s64Code;
            EXPECT_GT(st.dueUs(s64Frame + 1), s64Us) << s64Code;
        }
    }
    const FrameRate stSlow{30, 1}, stFast{60, 1};
    EXPECT_EQ(stSlow.nextOf(stFast, stFast.frameAt(DAYS_US)), 2 * stSlow.frameAt(DAYS_US));
}
} // namespace
