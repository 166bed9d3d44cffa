// The picture follows a VISCA controller.
#include "mediaCamera.h"
#include "viscaClient.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{
/// Mean difference of two profiles when the second one is taken at another place and scale around the middle.
double difference(const std::vector<double> &one, const std::vector<double> &other, double dShift, double dScale = 1)
{
    double dSum = 0;
    int s32Count = 0;
    const double dMiddle = static_cast<double>(one.size()) / 2;
    for (std::size_t i = 0; i < one.size(); ++i) {
        const double d = dMiddle + (static_cast<double>(i) - dMiddle) * dScale + dShift;
        if (d < 0 || d >= static_cast<double>(other.size()) - 1) continue;
        const auto at = static_cast<std::size_t>(d);
        const double dPart = d - std::floor(d);
        dSum += std::abs(one[i] - (other[at] * (1 - dPart) + other[at + 1] * dPart));
        ++s32Count;
    }
    return s32Count > 40 ? dSum / s32Count : 1e9;
}

/// How far the content of one picture stands to the left of where it stood in the other [points].
int movedLeft(const std::vector<double> &now, const std::vector<double> &before)
{
    int s32Best = 0;
    for (int i = -60; i <= 60; ++i)
        if (difference(now, before, i) < difference(now, before, s32Best)) s32Best = i;
    return s32Best;
}

/// How much larger the middle has become: 1.0, 1.1, ...
double magnified(const std::vector<double> &now, const std::vector<double> &before)
{
    double dBest = 1;
    for (int i = 10; i <= 40; ++i)
        if (difference(now, before, 0, 10.0 / i) < difference(now, before, 0, 1 / dBest)) dBest = i / 10.0;
    return dBest;
}

class MediaPicture : public testing::Test
{
protected:
    void tell(const std::string &strCommand) { EXPECT_TRUE(m_controller.isDone(strCommand, 5000)) << strCommand; }
    MediaCamera m_camera;
    ViscaClient m_controller{m_camera};
    GrayPlayer m_player{m_camera.url("closeup_sub")};
    tagGRAY_S m_stStart = m_player.next();
};

TEST_F(MediaPicture, FollowsTheHeadAndTheLens)
{
    constexpr double POINTS_PER_DEGREE = tagGRAY_S::WIDTH / 60.0;
    const auto isNear = [](double d, double dWanted) { return std::abs(d - dWanted) < 1.6; };
    // 15 degrees are 0x00D8 steps of pan, 5 degrees 0x0048 of tilt.
    const struct {
        const char *pcTo;
        double dPan, dTilt; // [degrees] to the right, up
    } ROWS[] = {
        {"00 00 0D 08 00 00 00 00", 15, 0}, {"0F 0F 02 08 00 00 00 00", -15, 0}, {"00 00 00 00 00 00 04 08", 0, 5}};
    for (const auto &row : ROWS) {
        tell(std::string("81 01 06 02 18 14 ") + row.pcTo + " FF");
        EXPECT_TRUE(m_player.sees([&](const tagGRAY_S &st) {
            return isNear(movedLeft(st.columns(), m_stStart.columns()), row.dPan * POINTS_PER_DEGREE) &&
                   (row.dPan != 0 || isNear(movedLeft(st.rows(), m_stStart.rows()), -row.dTilt * POINTS_PER_DEGREE));
        })) << row.pcTo;
        EXPECT_EQ(m_controller.ask(POSITION_INQ), std::string("90 50 ") + row.pcTo + " FF");
    }
    tell("81 01 06 02 18 14 00 00 00 00 00 00 00 00 FF");
    tell("81 01 04 47 01 00 00 00 FF"); // twice as large, and a bit
    EXPECT_TRUE(m_player.sees([&](const tagGRAY_S &st) {
        return std::abs(magnified(st.columns(), m_stStart.columns()) - 2.1) < 0.15;
    })) << "zoom";
}

TEST_F(MediaPicture, FollowsTheImageSettings)
{
    const double dStart = m_stStart.mean();
    const auto isMean = [&](auto condition) {
        return m_player.sees([&](const tagGRAY_S &st) { return condition(st.mean()); });
    };
    tell("81 01 04 A1 00 00 00 0E FF");
    EXPECT_TRUE(isMean([&](double d) { return d > dStart + 20; })) << "brightness";
    tell("81 01 04 A1 00 00 00 07 FF");
    EXPECT_TRUE(isMean([&](double d) { return std::abs(d - dStart) < 5; })) << "brightness back";
    tell("81 01 04 39 03 FF");          // exposure by hand
    tell("81 01 04 4B 00 00 00 00 FF"); // iris closed
    EXPECT_TRUE(isMean([&](double d) { return d < 20; })) << "iris";
    tell("81 01 04 39 00 FF");
    EXPECT_TRUE(isMean([&](double d) { return d > dStart - 20; })) << "automatic exposure";
    tell("81 01 04 62 02 FF");
    tell("81 01 06 02 18 14 00 00 0D 08 00 00 00 00 FF");
    const auto hasMoved = [&](const tagGRAY_S &st) { return movedLeft(st.columns(), m_stStart.columns()) > 20; };
    EXPECT_FALSE(m_player.sees(hasMoved, 25)) << "a frozen picture stands still";
    tell("81 01 04 62 03 FF");
    EXPECT_TRUE(m_player.sees(hasMoved)) << "freeze off";
}
} // namespace
