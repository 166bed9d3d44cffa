// How a person looks, stands, walks and waves.
#include "figure.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace scene
{
namespace
{
constexpr float PI = std::numbers::pi_v<float>;

Paint lit(Rgb st) { return {st, 1.14F, 0.74F}; }

/// A joint between two ends: bends to the side by fBend.
Point joint(Point a, Point b, float fBend) { return {(a.x + b.x) / 2 + fBend, (a.y + b.y) / 2}; }

struct Pose {
    Point stHandLeft, stHandRight; // relative to the shoulders' middle, in body heights
    float fLean;
};
Pose poseOf(Act enAct, const Standing &stAt, float fTime)
{
    const float fSwing = std::sin(stAt.fStride) * 0.14F;
    const bool bWalks = stAt.fStride != 0;
    if (enAct == Act::WAVE && !bWalks) {
        const float f = std::sin(fTime * 4.2F);
        return {{-0.19F - 0.05F * f, 0.20F}, {0.13F, -0.28F + 0.02F * std::sin(fTime)}, 0.01F * f};
    }
    if (enAct == Act::SPEAK) {
        const float f = std::sin(fTime * 1.7F) * 0.5F + std::sin(fTime * 2.9F) * 0.3F, g = std::sin(fTime * 1.3F + 1);
        return {{-0.20F - 0.05F * f + 0.4F * fSwing, -0.15F + 0.11F * f},
                {0.17F + 0.05F * g - 0.4F * fSwing, -0.14F + 0.09F * g},
                0.012F * g};
    }
    const float fHang = bWalks ? 0.0F : 0.10F;
    return {{-fHang - 0.02F + fSwing, -0.31F}, {fHang + 0.02F - fSwing, -0.31F}, 0};
}

/// A head looks to the side by fTurn, -1 to 1; its parts shift and the far ones vanish.
struct Head {
    Point stMiddle;
    float h, fTurn, fTime;

    Point at(float fAside, float fUp) const { return {stMiddle.x + fAside * h, stMiddle.y + fUp * h}; }
};

void drawEye(const Brush &stBrush, const Head &stHead, float fSide, const Look &stLook)
{
    const float h = stHead.h, fNarrow = 1 - 0.35F * std::max(fSide * stHead.fTurn, 0.0F); // the far eye is narrower
    const float fAside = 0.0185F * fSide * fNarrow + 0.021F * stHead.fTurn, fWide = 0.0088F * fNarrow;
    const float fDart = 0.0016F * std::sin(stHead.fTime * 0.9F) + 0.0022F * stHead.fTurn;
    stBrush.disc(stHead.at(fAside, 0.002F), 0.0125F * h * fNarrow, 0.0085F * h, {stLook.stSkin * 0.88F});
    if (std::fmod(stHead.fTime, 3.7F) < 0.13F) { // blinks
        stBrush.limb(stHead.at(fAside - fWide, 0.001F), 0.0012F * h, stHead.at(fAside + fWide, 0.001F), 0.0012F * h,
                     {stLook.stSkin * 0.55F});
        return;
    }
    stBrush.disc(stHead.at(fAside, 0.002F), fWide * h, 0.0046F * h, {{0.92F, 0.90F, 0.88F}, 1, 0.9F});
    stBrush.disc(stHead.at(fAside + fDart, 0.002F), 0.0040F * h, 0.0044F * h,
                 {mix({0.30F, 0.20F, 0.13F}, stLook.stHair, 0.4F)});
    stBrush.disc(stHead.at(fAside + fDart, 0.002F), 0.0019F * h, 0.0021F * h, {{0.03F, 0.03F, 0.03F}});
    stBrush.disc(stHead.at(fAside + fDart - 0.0012F, 0.0034F), 0.0008F * h, 0.0008F * h, {{0.95F, 0.95F, 0.95F}});
    stBrush.limb(stHead.at(fAside - fWide, 0.0056F), 0.0013F * h, stHead.at(fAside + fWide, 0.0060F), 0.0013F * h,
                 {stLook.stSkin * 0.5F});
    stBrush.limb(stHead.at(fAside - 0.0105F * fNarrow, 0.0145F), 0.0019F * h,
                 stHead.at(fAside + 0.0105F * fNarrow, 0.0150F), 0.0017F * h, {stLook.stHair * 1.1F});
}

void drawFace(const Brush &stBrush, const Head &stHead, const Look &stLook)
{
    const float h = stHead.h, t = stHead.fTurn;
    if (stBrush.stSheet.pixels(h) < 60) return; // too small to see
    const Rgb stShade = stLook.stSkin * 0.84F, stLips = mix(stLook.stSkin * 0.8F, {0.62F, 0.22F, 0.22F}, 0.45F);
    for (const float fSide : {-1.0F, 1.0F})
        if (fSide * t < 0.55F) drawEye(stBrush, stHead, fSide, stLook);
    // The nose: a ridge in the shade, its tip, beyond the cheek in profile.
    stBrush.limb(stHead.at(0.024F * t, 0.004F), 0.0032F * h, stHead.at(0.031F * t + 0.001F, -0.015F), 0.0058F * h,
                 {stShade, 1.12F, 0.95F});
    stBrush.disc(stHead.at(0.033F * t, -0.0155F), 0.0056F * h, 0.0044F * h, lit(stLook.stSkin));
    const float fTalk = std::abs(std::sin(stHead.fTime * 7.3F) * std::sin(stHead.fTime * 1.9F));
    const float fMouth = 0.0135F * (1 - 0.3F * std::abs(t));
    stBrush.disc(stHead.at(0.025F * t, -0.0345F), fMouth * h, (0.0036F + 0.0034F * fTalk) * h, {stLips});
    if (fTalk > 0.25F)
        stBrush.disc(stHead.at(0.025F * t, -0.0345F), fMouth * 0.72F * h, 0.0036F * fTalk * h, {{0.24F, 0.07F, 0.08F}});
    stBrush.disc(stHead.at(0.025F * t, -0.0445F), 0.008F * h, 0.0022F * h, {stShade, 1, 1, 0.5F});
}

void drawHead(const Brush &stBrush, const Head &stHead, const Look &stLook)
{
    const float h = stHead.h, t = stHead.fTurn;
    const Paint stHair = lit(stLook.stHair), stSkin = lit(stLook.stSkin);
    if (stLook.bLongHair) {
        stBrush.disc(stHead.at(-0.006F * t, 0.008F), 0.054F * h, 0.063F * h, stHair);
        for (const float fSide : {-1.0F, 1.0F})
            stBrush.limb(stHead.at(0.038F * fSide - 0.014F * t, 0), 0.018F * h,
                         stHead.at(0.044F * fSide - 0.022F * t, -0.085F), 0.013F * h, stHair);
    } else
        stBrush.disc(stHead.at(-0.010F * t, 0.014F), 0.049F * h, 0.056F * h, stHair);
    // Skull, then jaw and chin below it.
    stBrush.disc(stHead.at(0.006F * t, 0.002F), 0.0445F * h, 0.050F * h, stSkin);
    stBrush.limb(stHead.at(0.008F * t, -0.012F), 0.0415F * h, stHead.at(0.016F * t, -0.043F), 0.021F * h, stSkin);
    for (const float fSide : {-1.0F, 1.0F}) // the ear on the far side is hidden; in profile the near one moves inwards
        if (fSide * t < 0.3F && !stLook.bLongHair) {
            const Point stEar = stHead.at(fSide * 0.045F + t * 0.016F * std::abs(t), -0.002F);
            stBrush.disc(stEar, 0.0085F * h, 0.0135F * h, lit(stLook.stSkin * 0.96F));
            stBrush.disc({stEar.x, stEar.y - 0.001F * h}, 0.004F * h, 0.008F * h, {stLook.stSkin * 0.75F});
        }
    drawFace(stBrush, stHead, stLook);
    // Hair over the forehead.
    const float a = stHead.stMiddle.x - 0.004F * t * h, c = stHead.stMiddle.y;
    stBrush.shape({{a - 0.048F * h, c + 0.018F * h},
                   {a - 0.045F * h, c + 0.038F * h},
                   {a - 0.036F * h, c + 0.054F * h},
                   {a - 0.020F * h, c + 0.065F * h},
                   {a, c + 0.069F * h},
                   {a + 0.020F * h, c + 0.065F * h},
                   {a + 0.036F * h, c + 0.054F * h},
                   {a + 0.045F * h, c + 0.038F * h},
                   {a + 0.048F * h, c + 0.018F * h},
                   {a + 0.030F * h, c + 0.026F * h},
                   {a, c + 0.029F * h},
                   {a - 0.030F * h, c + 0.026F * h}},
                  stHair);
}

void drawLegs(const Brush &stBrush, const Standing &stAt, float h, const Look &stLook)
{
    const bool bWalks = stAt.fStride != 0;
    const float fSide = std::abs(stAt.fFacing), fToward = stAt.fFacing < 0 ? -1.0F : 1.0F;
    for (const float fLeg : {-1.0F, 1.0F}) {
        const float fPhase = stAt.fStride + (fLeg > 0 ? PI : 0.0F);
        const float fSwing = bWalks ? std::sin(fPhase) : 0, fLift = bWalks ? std::max(0.0F, std::cos(fPhase)) : 0;
        const Point stHip{fLeg * 0.045F * h * (1 - 0.6F * fSide), 0.50F * h};
        const Point stFoot{stHip.x + fSwing * 0.17F * h * fSide * fToward + fLeg * 0.012F * h,
                           (0.035F + 0.05F * fLift) * h};
        Point stKnee = joint(stHip, stFoot, fToward * fSide * 0.045F * h * (0.4F + fLift));
        stKnee.y += 0.01F * h;
        const Paint stCloth{stLook.stTrousers, fLeg < 0 ? 1.25F : 1.05F, fLeg < 0 ? 0.85F : 0.7F};
        const float fToe = bWalks ? fToward * 0.06F * h * std::max(fSide, 0.3F) : fLeg * 0.018F * h;
        stBrush.limb({stFoot.x, stFoot.y - 0.012F * h}, 0.022F * h, {stFoot.x + fToe, stFoot.y - 0.018F * h},
                     0.016F * h, {{0.08F, 0.07F, 0.07F}, 1.6F, 0.8F});
        stBrush.limb(stKnee, 0.038F * h, stFoot, 0.026F * h, stCloth);
        stBrush.limb(stHip, 0.058F * h, stKnee, 0.040F * h, stCloth);
    }
}

void drawArm(const Brush &stBrush, Point stShoulder, Point stHand, float fElbow, float h, const Look &stLook)
{
    const Point stJoint = joint(stShoulder, stHand, fElbow);
    const Paint stSleeve =
        stShoulder.x < 0 ? Paint{stLook.stTop, 1.16F, 0.96F} : Paint{stLook.stTop, 0.92F, 0.70F}; // light from the left
    const float fDx = stHand.x - stJoint.x, fDy = stHand.y - stJoint.y, fLength = std::max(std::hypot(fDx, fDy), 0.01F);
    const Point stFingers{stHand.x + fDx / fLength * 0.028F * h, stHand.y + fDy / fLength * 0.028F * h};
    stBrush.limb(stHand, 0.019F * h, stFingers, 0.015F * h, lit(stLook.stSkin));
    stBrush.limb(stJoint, 0.027F * h, stHand, 0.020F * h, stSleeve);
    stBrush.limb(stShoulder, 0.033F * h, stJoint, 0.028F * h, stSleeve);
}

void drawTorso(const Brush &stBrush, Point stNeck, float w, float h, const Look &stLook)
{
    // One side from the neck down: aside from the middle, height.
    static constexpr Point SIDE[] = {{0.036F, 0.832F}, {0.072F, 0.822F}, {0.104F, 0.808F}, {0.126F, 0.788F},
                                     {0.132F, 0.762F}, {0.118F, 0.710F}, {0.104F, 0.650F}, {0.097F, 0.590F},
                                     {0.094F, 0.530F}, {0.093F, 0.470F}, {0.080F, 0.455F}};
    constexpr std::size_t N = std::size(SIDE);
    std::array<Point, 2 * N> ast;
    for (std::size_t i = 0; i < N; ++i) {
        const float fShift = stNeck.x * std::max(0.0F, (SIDE[i].y - 0.5F) / 0.33F),
                    y = SIDE[i].y * h + (stNeck.y - 0.82F * h) * (SIDE[i].y > 0.6F ? 1.0F : 0.0F);
        ast[i] = stBrush.stSheet.at(fShift - SIDE[i].x * w * h, y);
        ast[2 * N - 1 - i] = stBrush.stSheet.at(fShift + SIDE[i].x * w * h, y);
    }
    stBrush.stCanvas.polygon(ast, lit(stLook.stTop));
}

} // namespace

void drawFigure(const Brush &stBrush, const Look &stLook, Act enAct, const Standing &stAt, float fTime)
{
    const float h = stLook.fHeight, fSide = std::abs(stAt.fFacing), fBob = 0.008F * h * std::cos(2 * stAt.fStride);
    const Pose stPose = poseOf(enAct, stAt, fTime);
    const float fLean = stPose.fLean * h + stAt.fFacing * 0.012F * h, w = 1 - 0.32F * fSide;
    const Point stNeck{fLean, 0.82F * h + fBob}, stHead{fLean * 1.3F + stAt.fFacing * 0.012F * h, 0.925F * h + fBob};
    const auto hand = [&](Point st) { return Point{stNeck.x + st.x * h, stNeck.y + st.y * h}; };
    const Point stLeft{stNeck.x - 0.108F * h * w, stNeck.y - 0.03F * h},
        stRight{stNeck.x + 0.108F * h * w, stNeck.y - 0.03F * h};

    stBrush.disc({0, 0.01F * h}, 0.22F * h, 0.022F * h, {{0.03F, 0.03F, 0.04F}, 1, 1, 0.35F}); // shadow on the ground
    drawLegs(stBrush, stAt, h, stLook);
    const bool bFarArm = fSide > 0.4F; // the far arm swings behind the body
    if (bFarArm) drawArm(stBrush, stRight, hand(stPose.stHandRight), -stAt.fFacing * 0.03F * h, h, stLook);
    stBrush.limb({stNeck.x, stNeck.y - 0.02F * h}, 0.030F * h, {stHead.x, stHead.y - 0.03F * h}, 0.028F * h,
                 {stLook.stSkin, 0.95F, 0.62F});
    drawTorso(stBrush, stNeck, w, h, stLook);
    if (stLook.bTie && fSide < 0.5F) {
        stBrush.shape({{stNeck.x - 0.032F * h, stNeck.y + 0.012F * h},
                       {stNeck.x + 0.032F * h, stNeck.y + 0.012F * h},
                       {stNeck.x * 0.6F, 0.62F * h}},
                      {{0.92F, 0.92F, 0.94F}, 1, 0.85F});
        stBrush.shape({{stNeck.x - 0.011F * h, stNeck.y},
                       {stNeck.x + 0.011F * h, stNeck.y},
                       {stNeck.x * 0.7F + 0.014F * h, 0.655F * h},
                       {stNeck.x * 0.6F, 0.625F * h},
                       {stNeck.x * 0.7F - 0.014F * h, 0.655F * h}},
                      {{0.55F, 0.12F, 0.14F}, 1.1F, 0.8F});
    } else if (fSide < 0.5F)
        stBrush.disc({stNeck.x, stNeck.y + 0.008F * h}, 0.034F * h, 0.020F * h, {stLook.stSkin, 0.95F, 0.7F});
    drawHead(stBrush, {stHead, h, stAt.fFacing, fTime}, stLook);
    drawArm(stBrush, stLeft, hand(stPose.stHandLeft), (bFarArm ? -stAt.fFacing * 0.03F : -0.05F) * h, h, stLook);
    if (!bFarArm) drawArm(stBrush, stRight, hand(stPose.stHandRight), 0.05F * h, h, stLook);
}
} // namespace scene
