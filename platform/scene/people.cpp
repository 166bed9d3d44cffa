// Who is in the hall, and where at a time.
#include "parts.h"
#include "scene/scene.h"

#include "figure.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace scene
{
namespace
{
constexpr float PI = std::numbers::pi_v<float>;

/// Somebody's path: back and forth between two places at a walking speed, with a pause at each end.
struct Role {
    Look stLook;
    Act enAct;
    float fFromX, fFromY, fToX, fToY, fFloorZ;
    float fSpeed, fPauseS, fStartS;
};
// clang-format off
constexpr Role g_astRoles[] = { // skin, hair, top, trousers, height, long hair, tie; the first stands behind the lectern
    {{{0.62F, 0.43F, 0.31F}, {0.09F, 0.07F, 0.07F}, {0.78F, 0.76F, 0.72F}, {0.30F, 0.24F, 0.22F}, 1.72F, true, false},
     Act::SPEAK, -4.4F, 10.1F, -4.4F, 10.1F, STAGE_Z, 0, 0, 3},
    {{{0.86F, 0.66F, 0.54F}, {0.22F, 0.15F, 0.10F}, {0.16F, 0.20F, 0.33F}, {0.13F, 0.14F, 0.19F}, 1.80F, false, true},
     Act::SPEAK, -2.6F, 9.3F, 2.8F, 9.0F, STAGE_Z, 0.75F, 4, 0},
    {{{0.90F, 0.72F, 0.60F}, {0.62F, 0.45F, 0.22F}, {0.62F, 0.16F, 0.22F}, {0.16F, 0.18F, 0.26F}, 1.68F, true, false},
     Act::WAVE, 4.3F, 9.4F, 4.9F, 9.6F, STAGE_Z, 0.4F, 6, 8},
    {{{0.52F, 0.35F, 0.25F}, {0.08F, 0.07F, 0.07F}, {0.20F, 0.40F, 0.34F}, {0.22F, 0.23F, 0.27F}, 1.83F, false, false},
     Act::STROLL, 8.0F, 7.2F, 8.0F, 0.4F, FLOOR_Z, 1.1F, 3, 5},
    {{{0.84F, 0.63F, 0.50F}, {0.45F, 0.42F, 0.40F}, {0.50F, 0.47F, 0.40F}, {0.20F, 0.20F, 0.22F}, 1.76F, false, false},
     Act::STROLL, -6.5F, -4.2F, 6.5F, -5.0F, FLOOR_Z, 0.9F, 5, 0},
};
// clang-format on
constexpr float LECTERN_X = -4.4F, LECTERN_Y = 9.7F;

Standing standingAt(const Role &st, double dSeconds)
{
    const float dx = st.fToX - st.fFromX, dy = st.fToY - st.fFromY, fWay = std::hypot(dx, dy);
    if (st.fSpeed <= 0 || fWay <= 0) return {st.fFromX, st.fFromY, 0, 0};
    const float fWalkS = fWay / st.fSpeed, fTurnS = fWalkS + st.fPauseS;
    const float fTime = static_cast<float>(std::fmod(dSeconds + st.fStartS, 2.0 * fTurnS));
    const bool bBack = fTime >= fTurnS;
    const float fPart = std::min((bBack ? fTime - fTurnS : fTime) / fWalkS, 1.0F);
    // Speeds up and slows down within the first and last tenth.
    const float fSmooth = fPart < 0.1F   ? 5 * fPart * fPart / 0.9F
                          : fPart > 0.9F ? 1 - 5 * (1 - fPart) * (1 - fPart) / 0.9F
                                         : (fPart - 0.05F) / 0.9F;
    const float f = bBack ? 1 - fSmooth : fSmooth;
    Standing stAt{st.fFromX + f * dx, st.fFromY + f * dy, 0, 0};
    if (fPart >= 1) return stAt;
    const float fAside = (dx * stAt.y - dy * stAt.x) / std::max(std::hypot(stAt.x, stAt.y) * fWay, 0.1F);
    stAt.fFacing = (bBack ? -1.0F : 1.0F) * fAside;
    stAt.fStride = fSmooth * fWay * 2 * PI / 1.35F; // a pair of steps is 1.35 m
    return stAt;
}

void drawLectern(Canvas &stCanvas, const Projection &stView)
{
    const Sheet stSheet(stView, LECTERN_X, LECTERN_Y, STAGE_Z);
    const Brush stBrush{stCanvas, stSheet};
    const Rgb stWood{0.44F, 0.27F, 0.15F};
    stBrush.shape({{-0.26F, 0}, {0.26F, 0}, {0.30F, 1.02F}, {-0.30F, 1.02F}}, {stWood, 1.15F, 0.7F});
    stBrush.shape({{-0.19F, 0.15F}, {0.19F, 0.15F}, {0.22F, 0.88F}, {-0.22F, 0.88F}}, {stWood, 0.95F, 0.6F});
    stBrush.shape({{-0.36F, 1.0F}, {0.36F, 1.0F}, {0.34F, 1.09F}, {-0.34F, 1.09F}}, {stWood, 1.5F, 0.95F});
    stBrush.limb({0.12F, 1.08F}, 0.008F, {0.05F, 1.24F}, 0.008F, {{0.1F, 0.1F, 0.1F}});
    stBrush.limb({0.05F, 1.24F}, 0.018F, {0.03F, 1.27F}, 0.022F, {{0.07F, 0.07F, 0.07F}});
}

/// Those who sit in the rows, seen from behind: row, place from the aisle (left places negative), looks.
struct Seat {
    BU_U8 u8Row;
    BU_S8 s8Place;
    Rgb stHair, stTop;
};
constexpr Seat g_astSeats[] = {
    {4, -2, {0.12F, 0.09F, 0.07F}, {0.26F, 0.33F, 0.45F}}, {4, -3, {0.40F, 0.27F, 0.14F}, {0.52F, 0.42F, 0.40F}},
    {4, 1, {0.08F, 0.07F, 0.07F}, {0.55F, 0.50F, 0.42F}},  {4, 4, {0.55F, 0.50F, 0.46F}, {0.22F, 0.24F, 0.27F}},
    {4, 7, {0.25F, 0.15F, 0.09F}, {0.30F, 0.42F, 0.36F}},  {3, -5, {0.14F, 0.10F, 0.08F}, {0.62F, 0.58F, 0.56F}},
    {3, 2, {0.58F, 0.40F, 0.20F}, {0.24F, 0.22F, 0.36F}},  {3, 3, {0.10F, 0.08F, 0.08F}, {0.50F, 0.20F, 0.20F}},
    {2, -1, {0.30F, 0.19F, 0.11F}, {0.20F, 0.30F, 0.33F}}, {2, 5, {0.62F, 0.60F, 0.58F}, {0.33F, 0.30F, 0.28F}},
    {1, -4, {0.09F, 0.08F, 0.08F}, {0.44F, 0.46F, 0.52F}}, {1, 1, {0.34F, 0.20F, 0.10F}, {0.26F, 0.38F, 0.30F}},
};

void drawSeat(Canvas &stCanvas, const Projection &stView, const Seat &st, float fTime)
{
    const float fPlace = CHAIR_AISLE_X + CHAIR_PITCH * (static_cast<float>(std::abs(st.s8Place)) - 0.5F);
    const Sheet stSheet(stView, st.s8Place < 0 ? -fPlace : fPlace, CHAIR_ROWS_Y[st.u8Row] + 0.1F, CHAIR_TOP_Z);
    if (!stView.isAhead(stSheet.fPan)) return;
    const Brush stBrush{stCanvas, stSheet};
    const float fSeed = st.s8Place * 1.7F + st.u8Row, fTurn = 0.012F * std::sin(fTime * 0.5F + fSeed);
    stBrush.shape({{-0.23F, 0},
                   {-0.215F, 0.07F},
                   {-0.15F, 0.13F},
                   {-0.06F, 0.16F},
                   {0.06F, 0.16F},
                   {0.15F, 0.13F},
                   {0.215F, 0.07F},
                   {0.23F, 0}},
                  {st.stTop, 0.9F, 0.62F});
    stBrush.limb({0, 0.12F}, 0.055F, {fTurn, 0.2F}, 0.052F, {{0.66F, 0.48F, 0.38F}, 0.9F, 0.6F});
    stBrush.disc({fTurn - 0.078F, 0.265F}, 0.016F, 0.026F, {{0.70F, 0.50F, 0.40F}});
    stBrush.disc({fTurn + 0.078F, 0.265F}, 0.016F, 0.026F, {{0.60F, 0.42F, 0.33F}});
    stBrush.disc({fTurn, 0.285F}, 0.082F, 0.108F, {st.stHair, 1.35F, 0.8F});
    stBrush.disc({fTurn - 0.02F, 0.33F}, 0.045F, 0.045F, {st.stHair, 1.4F, 1.1F, 0.3F});
}
} // namespace

void drawPeople(Canvas &stCanvas, const Projection &stView, double dSeconds)
{
    const float fTime = static_cast<float>(std::fmod(dSeconds, 3600.0));
    for (std::size_t i = 0; i < std::size(g_astRoles); ++i) {
        const Role &st = g_astRoles[i];
        const Standing stAt = standingAt(st, dSeconds);
        const Sheet stSheet(stView, stAt.x, stAt.y, st.fFloorZ);
        const Point stFeet = stSheet.at(0, 0);
        const float fReach = stSheet.pixels(1.2F);
        if (stView.isAhead(stSheet.fPan) && stFeet.x > -fReach && stFeet.x < stCanvas.width() + fReach)
            drawFigure({stCanvas, stSheet}, st.stLook, st.enAct, stAt, fTime + st.fStartS);
        if (i == 0 && stView.isAhead(stSheet.fPan)) drawLectern(stCanvas, stView);
    }
    for (const Seat &st : g_astSeats) drawSeat(stCanvas, stView, st, fTime);
}
} // namespace scene

std::vector<SCENE_PERSON_S> SCENE_ListPeople(BU_S64 s64TimeUs)
{
    using namespace scene;
    std::vector<SCENE_PERSON_S> vecPeople;
    for (const Role &st : g_astRoles) {
        const Standing stAt = standingAt(st, static_cast<double>(s64TimeUs) / 1e6);
        const float fDistance = std::hypot(stAt.x, stAt.y), h = st.stLook.fHeight;
        const auto tilt = [&](float fUp) { return std::atan2(st.fFloorZ + fUp, fDistance) / DEGREE; };
        const float fPan = std::atan2(stAt.x, stAt.y) / DEGREE, fPerMetre = 1 / fDistance / DEGREE;
        vecPeople.push_back({fPan, (tilt(0) + tilt(h)) / 2, 0.36F * h * fPerMetre, tilt(h) - tilt(0), fDistance, fPan,
                             tilt(0.925F * h), 0.14F * h * fPerMetre});
    }
    std::ranges::sort(vecPeople, std::ranges::greater{}, &SCENE_PERSON_S::fDistanceM);
    return vecPeople;
}
