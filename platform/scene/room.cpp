// What a ray from the camera meets in the hall.
#include "room.h"

#include <algorithm>
#include <cmath>

namespace scene
{
namespace
{
constexpr Rgb WALL{0.70F, 0.65F, 0.58F}, PANEL{0.60F, 0.50F, 0.40F}, SLAT{0.47F, 0.32F, 0.20F};
constexpr Rgb CURTAIN{0.50F, 0.09F, 0.11F}, BOARDS{0.52F, 0.36F, 0.23F}, CARPET{0.20F, 0.23F, 0.31F};
constexpr Rgb CHAIR{0.42F, 0.13F, 0.15F}, CEILING{0.66F, 0.65F, 0.62F}, LAMP{1.0F, 0.96F, 0.86F},
    STEEL{0.25F, 0.26F, 0.28F};
constexpr Rgb SKY{0.80F, 0.89F, 0.98F}, FRAME{0.86F, 0.84F, 0.80F}, DOOR{0.36F, 0.26F, 0.19F};

/// 1 inside, 0 outside, smooth over the width w of a picture point.
float inside(float fDepth, float w) { return std::clamp(fDepth / w + 0.5F, 0.0F, 1.0F); }
float inRange(float f, float fLow, float fHigh, float w) { return inside(f - fLow, w) * inside(fHigh - f, w); }
float inBox(float x, float y, float fX, float fY, float fHalfX, float fHalfY, float w)
{
    return inside(fHalfX - std::abs(x - fX), w) * inside(fHalfY - std::abs(y - fY), w);
}
float inDisc(float x, float y, float fRadius, float w) { return inside(fRadius - std::sqrt(x * x + y * y), w); }

/// Distance from the middle of the nearest cell of a pattern that repeats.
float cell(float f, float fPeriod) { return f - fPeriod * std::round(f / fPeriod); }
/// Thin lines at every period; they fade where they get finer than the picture.
float grooves(float f, float fPeriod, float fWidth, float w)
{
    const float fSoft = std::max(w, fWidth * 0.2F);
    return inside(fWidth / 2 - std::abs(cell(f, fPeriod)), fSoft) * std::min(1.0F, fWidth / w);
}
/// A wave that fades where it gets finer than the picture.
float wave(float f, float fPeriod, float w)
{
    const float fFine = std::clamp(1.5F - 3 * w / fPeriod, 0.0F, 1.0F);
    return fFine > 0 ? fFine * std::sin(2 * std::numbers::pi_v<float> * f / fPeriod) : 0;
}
float glow(float x, float y, float fX, float fY, float fSize)
{
    const float dx = (x - fX) / fSize, dy = (y - fY) / fSize, d = dx * dx + dy * dy;
    return 1 / (1 + d * d + d);
}
/// Puts a colour in front of what is still to come. @return true: nothing behind it shows
bool cover(Rgb stColour, float fCover, Rgb &stSum, float &fRest)
{
    stSum = stSum + stColour * (fCover * fRest);
    fRest *= 1 - fCover;
    return fRest < 0.004F;
}
} // namespace

RoomColumn::RoomColumn(float fPan, float fFootprint)
    : m_fSin(std::sin(fPan * DEGREE)), m_fCos(std::cos(fPan * DEGREE)), m_fFootprint(fFootprint)
{
    const float fSide = SIDE_X / std::max(std::abs(m_fSin), 1e-6F);
    const float fEnd = (m_fCos > 0 ? FRONT_Y : -BACK_Y) / std::max(std::abs(m_fCos), 1e-6F);
    m_fWallWay = std::min(fSide, fEnd);
    m_enWall = fSide < fEnd ? (m_fSin > 0 ? Wall::RIGHT : Wall::LEFT) : (m_fCos > 0 ? Wall::FRONT : Wall::BACK);
    m_fWallAt = m_fWallWay * (fSide < fEnd ? m_fCos : m_fSin);
    for (std::size_t i = 0; i < std::size(CHAIR_ROWS_Y); ++i) m_astRows[i] = cross(CHAIR_ROWS_Y[i]);
    m_stStage = cross(STAGE_Y);
    m_stCurtain = cross(11);
    m_stTruss = cross(7.2F);
}

RoomColumn::Crossing RoomColumn::cross(float y) const
{
    const float fWay = m_fCos > 0.01F ? y / m_fCos : 0;
    const float x = fWay * m_fSin;
    return std::abs(x) < SIDE_X ? Crossing{fWay, x} : Crossing{};
}

bool RoomColumn::chairs(float fSlope, Rgb &stSum, float &fRest) const
{
    for (const Crossing &st : m_astRows) {
        if (st.fWay == 0) continue;
        const float z = st.fWay * fSlope - FLOOR_Z, w = m_fFootprint * st.fWay, x = std::abs(st.x);
        if (z < -w || z > 1 || x < CHAIR_AISLE_X - w || x > CHAIR_END_X + w) continue;
        const float fPlace = std::fmod(x - CHAIR_AISLE_X, CHAIR_PITCH) - CHAIR_PITCH / 2;
        const float fCorner = std::max(0.0F, std::abs(fPlace) - 0.19F), fTop = std::max(0.0F, z - 0.86F);
        const float fBack = inside(0.09F - std::sqrt(fCorner * fCorner + fTop * fTop), w) * inside(z - 0.48F, w);
        const float fSeat = inBox(fPlace, z, 0, 0.42F, 0.27F, 0.05F, w);
        const float fLegs = inBox(std::abs(fPlace), z, 0.22F, 0.18F, 0.02F, 0.2F, w);
        const float fCushion = inBox(fPlace, z, 0, 0.72F, 0.2F, 0.15F, w);
        const float fLight = 0.75F + 0.5F * (z - 0.5F) - 0.35F * fPlace;
        if (cover(mix(CHAIR, CHAIR * 1.35F, fCushion) * fLight, fBack, stSum, fRest)) return true;
        if (cover(CHAIR * 0.55F, fSeat, stSum, fRest)) return true;
        if (cover(STEEL, fLegs, stSum, fRest)) return true;
    }
    return false;
}

bool RoomColumn::truss(float fSlope, Rgb &stSum, float &fRest) const
{
    if (m_stTruss.fWay == 0) return false;
    const float x = m_stTruss.x, z = m_stTruss.fWay * fSlope, w = m_fFootprint * m_stTruss.fWay;
    if (z < 3.3F || z > 4.4F || std::abs(x) > 8) return false;
    const float fTubes = std::max(inRange(z, 4.22F, 4.28F, w), inRange(z, 3.92F, 3.98F, w));
    const float fZigzag =
        inside(0.02F - std::abs(std::abs(cell(x, 0.6F)) - (z - 3.95F)), w) * inRange(z, 3.95F, 4.25F, w);
    if (cover(STEEL * 1.5F, std::max(fTubes, fZigzag), stSum, fRest)) return true;
    const float fCan = cell(x - 0.8F, 1.6F);
    const float fBody = inBox(fCan, z, 0, 3.74F, 0.13F + 0.12F * (3.85F - z), 0.16F, w);
    const float fLens = inDisc(fCan, (z - 3.6F) * 1.6F, 0.12F, w);
    if (cover(LAMP, fLens, stSum, fRest)) return true;
    return cover(STEEL * (0.7F + fCan), fBody, stSum, fRest);
}

bool RoomColumn::stage(float fSlope, Rgb &stSum, float &fRest) const
{
    if (m_stStage.fWay > 0 && std::abs(m_stStage.x) < STAGE_X) {
        const float z = m_stStage.fWay * fSlope, w = m_fFootprint * m_stStage.fWay;
        const float fLine = 0.5F * grooves(m_stStage.x, 1.2F, 0.03F, w);
        const Rgb stFront = mix(SLAT * (0.75F - 0.2F * (STAGE_Z - z)), SLAT * 0.3F, fLine);
        const float fEdge = inRange(z, STAGE_Z - 0.08F, STAGE_Z, w);
        if (cover(mix(stFront, Rgb{0.75F, 0.58F, 0.36F}, fEdge), inRange(z, FLOOR_Z, STAGE_Z, w), stSum, fRest))
            return true;
    }
    if (fSlope < 0 && m_stStage.fWay > 0) {
        const float fWay = STAGE_Z / fSlope, x = fWay * m_fSin, y = fWay * m_fCos, w = m_fFootprint * fWay;
        if (y > STAGE_Y && y < FRONT_Y && std::abs(x) < STAGE_X) {
            const float fPools =
                glow(x, y, -3.6F, 9.6F, 1.6F) + glow(x, y, 0, 9.4F, 1.8F) + glow(x, y, 3.6F, 9.6F, 1.6F);
            const float fGaps = 0.25F * grooves(x, 0.18F, 0.012F, w) + 0.06F * wave(x + 0.3F * std::floor(y), 0.54F, w);
            return cover(BOARDS * ((0.62F + 0.6F * fPools) * (1 - fGaps)), 1, stSum, fRest);
        }
    }
    if (m_stCurtain.fWay == 0) return false;
    const float x = std::abs(m_stCurtain.x), z = m_stCurtain.fWay * fSlope, w = m_fFootprint * m_stCurtain.fWay;
    const float fFold = 0.62F + 0.26F * wave(x + 0.05F * std::sin(3 * z), 0.42F, w) + 0.10F * wave(x, 0.17F, w);
    const float fLight = fFold * (0.7F + 0.75F * glow(x, z, 5.9F, 0.6F, 2.2F));
    const float fHem = 3.75F + 0.12F * std::abs(std::sin(x * 2.6F));
    const float fValance = inside(z - fHem, w) * inside(4.7F - z, w);
    const float fFringe = inRange(z, fHem, fHem + 0.07F, w);
    if (cover(mix(CURTAIN * fFold * 0.95F, Rgb{0.72F, 0.55F, 0.25F}, fFringe), fValance, stSum, fRest)) return true;
    const float fSide = inRange(x, 4.9F + 0.08F * std::sin(z * 1.4F), STAGE_X + 0.8F, w) * inRange(z, STAGE_Z, 4.7F, w);
    return cover(CURTAIN * (1.35F * fLight), fSide, stSum, fRest);
}

Rgb RoomColumn::frontWall(float x, float z, float w) const
{
    const float fPools = glow(x, z, -4, 1, 2.4F) + glow(x, z, 4, 1, 2.4F) + 0.7F * glow(x, z, 0, -0.6F, 2);
    const float fSlats = 0.45F * grooves(x, 0.24F, 0.05F, w);
    Rgb st = SLAT * ((0.62F + 0.55F * fPools) * (1 - fSlats));
    const float fMiddle = (SCREEN_LOW_Z + SCREEN_HIGH_Z) / 2, fHalf = (SCREEN_HIGH_Z - SCREEN_LOW_Z) / 2;
    st = mix(st, STEEL * 0.5F, inBox(x, z, 0, fMiddle, SCREEN_X + 0.09F, fHalf + 0.09F, w));
    const float fFall = (z - SCREEN_LOW_Z) / (SCREEN_HIGH_Z - SCREEN_LOW_Z);
    const Rgb stSlide = mix(Rgb{0.16F, 0.27F, 0.46F}, Rgb{0.30F, 0.46F, 0.70F}, fFall) * (1.05F - 0.02F * x * x);
    st = mix(st, stSlide, inBox(x, z, 0, fMiddle, SCREEN_X, fHalf, w));
    return st * (0.75F + 0.25F * std::min(1.0F, (CEILING_Z - z) * 0.7F));
}

Rgb RoomColumn::sideWall(float y, float z, float w) const
{
    const float fLamp = cell(y - 0.9F, 3.6F);
    const float fWash = glow(fLamp, z, 0, 1.35F, 0.75F) + 0.5F * glow(fLamp, z, 0, 2.6F, 1.2F);
    Rgb st = WALL * (0.72F + 0.05F * z + 0.45F * fWash);
    // Wainscot, then cloth panels with a bevel.
    const float fPanelY = cell(y + 0.9F, 3.6F);
    const float fPanel = inBox(fPanelY, z, 0, 1.4F, 1.25F, 1.75F, w),
                fBevel = inBox(fPanelY, z, 0, 1.4F, 1.19F, 1.69F, w);
    const float fCloth = 1 + 0.05F * wave(y, 0.07F, w) * wave(z, 0.07F, w);
    const float fSlope = fPanelY > 1.19F || z > 3.09F ? 0.72F : 1.25F;
    st = mix(st, mix(PANEL * fSlope, PANEL * (fCloth * (0.95F + 0.45F * fWash)), fBevel), fPanel);
    if (m_enWall == Wall::LEFT && std::abs(y - fPanelY + 0.9F) < 6) { // windows in the panels' places
        const float fOpen = inBox(fPanelY, z, 0, 1.5F, 1.05F, 1.5F, w),
                    fWindow = inBox(fPanelY, z, 0, 1.5F, 1.17F, 1.62F, w);
        const float fBars = std::max(inside(0.03F - std::abs(fPanelY), w), inside(0.03F - std::abs(z - 1.9F), w));
        const float fHills = 0.55F + 0.16F * std::sin(y * 0.9F) + 0.07F * std::sin(y * 2.3F);
        const Rgb stOut = mix(mix(SKY, Rgb{0.62F, 0.78F, 0.96F}, (z - 0.4F) * 0.4F), Rgb{0.38F, 0.50F, 0.34F},
                              inside(fHills - z, w * 3));
        st = mix(st, mix(FRAME, mix(stOut, FRAME * 0.9F, fBars), fOpen), fWindow);
    }
    st = mix(st, SLAT * (0.72F + 0.1F * fWash), inside(-1.05F - z, w));
    st = mix(st, SLAT * 1.25F, inRange(z, -1.12F, -1.05F, w));
    const float fWall = inBox(fLamp, z, 0, 1.3F, 0.07F, 0.2F, w);
    st = mix(st, LAMP, fWall);
    if (m_enWall == Wall::RIGHT) {
        const float fFrame = inBox(y, z, -2.6F, -1.25F, 0.72F, 1.2F, w),
                    fLeaf = inBox(y, z, -2.6F, -1.3F, 0.62F, 1.1F, w);
        st = mix(st, mix(FRAME * 0.8F, DOOR * (0.9F + 0.2F * grooves(y + 2.6F, 1.3F, 0.02F, w)), fLeaf), fFrame);
        st = mix(st, Rgb{0.85F, 0.75F, 0.5F}, inDisc(y + 2.15F, z + 1.35F, 0.05F, w));
        st = mix(st, Rgb{0.05F, 0.45F, 0.22F}, inBox(y, z, -2.6F, 0.25F, 0.42F, 0.15F, w));
    }
    return st * (0.6F + 0.4F * std::min(1.0F, (z - FLOOR_Z) * 1.2F + 0.3F));
}

Rgb RoomColumn::backWall(float x, float z, float w) const
{
    const float fWash = glow(x, z, -5.5F, 3, 1.8F) + glow(x, z, 0, 3.6F, 2) + glow(x, z, 5.5F, 3, 1.8F);
    Rgb st = WALL * (0.62F + 0.04F * z + 0.38F * fWash);
    // Control booth with its window, two doors, shelves.
    const float fBooth = inBox(x, z, 0, 1.9F, 2.6F, 0.95F, w), fGlass = inBox(x, z, 0, 1.9F, 2.48F, 0.83F, w);
    const Rgb stInside = mix(Rgb{0.16F, 0.19F, 0.22F}, Rgb{0.45F, 0.55F, 0.62F}, 0.6F * glow(x, z, 0.9F, 1.4F, 0.6F));
    st = mix(st, mix(SLAT * 0.8F, stInside, fGlass), fBooth);
    for (const float fDoor : {-5.4F, 5.4F}) {
        const float fFrame = inBox(x, z, fDoor, -1.25F, 1.1F, 1.2F, w),
                    fLeaf = inBox(std::abs(x - fDoor), z, 0.49F, -1.3F, 0.47F, 1.1F, w);
        st = mix(st, mix(SLAT * 0.5F, DOOR * (1.1F + 0.2F * wave(z, 0.3F, w)), fLeaf), fFrame);
    }
    const float fShelf = inBox(x, z, 0, -1.1F, 2.6F, 1.3F, w);
    if (fShelf > 0) {
        const float fShade = 0.5F + 0.5F * std::sin(41 * std::floor(x / 0.11F) + 7 * std::floor(z / 0.42F));
        const Rgb stBook = mix(Rgb{0.30F, 0.20F, 0.16F}, Rgb{0.55F, 0.52F, 0.40F}, fShade);
        const float fFine = std::clamp(1.4F - 8 * w, 0.0F, 1.0F);
        const float fGap = grooves(z, 0.42F, 0.07F, w);
        st = mix(st, mix(mix(Rgb{0.40F, 0.33F, 0.26F}, stBook, fFine), SLAT, fGap), fShelf);
    }
    return st * (0.6F + 0.4F * std::min(1.0F, (z - FLOOR_Z) * 1.2F + 0.3F));
}

Rgb RoomColumn::floorAt(float x, float y, float w) const
{
    const float fAisle = inside(CHAIR_AISLE_X - 0.1F - std::abs(x), w);
    const float fTufts = 0.10F * wave(x + 0.5F * y, 0.5F, w) * wave(x - 0.5F * y, 0.5F, w) + 0.05F * wave(x, 0.06F, w);
    Rgb st = mix(CARPET, Rgb{0.36F, 0.14F, 0.16F}, fAisle) * (1 + fTufts);
    st = mix(st, Rgb{0.62F, 0.50F, 0.30F}, 0.8F * inside(0.03F - std::abs(std::abs(x) - CHAIR_AISLE_X + 0.1F), w));
    const float fDay = 0.55F * glow(x, cell(y + 0.9F, 3.6F), -6.6F, 0, 1.1F) * (y < 5.4F && y > -7 ? 1.0F : 0.0F);
    st = st * 1.05F + Rgb{0.30F, 0.30F, 0.28F} * fDay;
    const float fEdge = std::min(std::min(SIDE_X - std::abs(x), y - BACK_Y), FRONT_Y - y);
    return st * (0.65F + 0.35F * std::min(1.0F, fEdge));
}

Rgb RoomColumn::ceilingAt(float x, float y, float w) const
{
    const float fX = cell(x, 3), fY = cell(y - 0.5F, 3);
    const float fBeam = inside(std::max(std::abs(fX), std::abs(fY)) - 1.32F, w);
    const float fLamp = inDisc(fX, fY, 0.34F, w), fRing = inDisc(fX, fY, 0.42F, w);
    Rgb st = CEILING * (0.66F + 0.40F * glow(fX, fY, 0, 0, 0.6F));
    st = mix(st, CEILING * 0.62F, fBeam);
    st = mix(st, STEEL * 2, fRing);
    return mix(st, LAMP, fLamp);
}

Rgb RoomColumn::colourAt(float fSlope) const
{
    Rgb stSum{};
    float fRest = 1;
    if (fSlope < 0 && chairs(fSlope, stSum, fRest)) return stSum;
    if (fSlope > 0.2F && truss(fSlope, stSum, fRest)) return stSum;
    if (stage(fSlope, stSum, fRest)) return stSum;

    // A wall, the floor or the ceiling; where two of them meet the picture point holds a part of both.
    const float z = m_fWallWay * fSlope, w = m_fFootprint * m_fWallWay;
    const float fWall = inRange(z, FLOOR_Z, CEILING_Z, w);
    Rgb st{};
    if (fWall > 0) {
        const Rgb stWall = m_enWall == Wall::FRONT  ? frontWall(m_fWallAt, z, w)
                           : m_enWall == Wall::BACK ? backWall(m_fWallAt, z, w)
                                                    : sideWall(m_fWallAt, z, w);
        st = stWall * fWall;
    }
    if (fWall < 1) {
        const float fWay = (fSlope < 0 ? FLOOR_Z : CEILING_Z) / fSlope, x = fWay * m_fSin, y = fWay * m_fCos;
        const float fSpread = m_fFootprint * fWay * (1 + 0.5F / std::max(std::abs(fSlope), 0.1F));
        st = st + (fSlope < 0 ? floorAt(x, y, fSpread) : ceilingAt(x, y, fSpread)) * (1 - fWall);
    }
    return stSum + st * fRest;
}
} // namespace scene
