/// The image settings and the view as the camera services have them at this moment.
#include "scene/scene.h"

#include "board/profile.h"
#include "camera/focus.h"
#include "camera/motion.h"
#include "camera/picture.h"
#include "camera/zoom.h"
#include "config/config.h"
#include "motion/lensCurve.h"
#include "picture/exposure.h"
#include "vocabulary/tables.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace
{
typedef BU_S32 (*FN_GET)(BU_S32, BU_S32 *, BU_BOOL);
constexpr BU_S32 CLOSE_UP = 0, PANORAMA = 1;

BU_S32 valueOf(FN_GET fnGet, BU_S32 s32Pipe)
{
    BU_S32 s32Value = 0;
    fnGet(s32Pipe, &s32Value, BU_FALSE);
    return s32Value;
}
BU_S32 valueOf(BU_S32 (*fnGet)(BU_S32 *, BU_BOOL))
{
    BU_S32 s32Value = 0;
    fnGet(&s32Value, BU_FALSE);
    return s32Value;
}

/// A value as its way from the default to the end of its range, -1 to 1.
class Scale
{
public:
    explicit Scale(const BU_CHAR *pcKey) { CFG_COM_GetIntParams(pcKey, &m_stRange); }
    BU_FLOAT operator()(BU_S32 s32Value) const
    {
        const BU_S32 s32Way = s32Value - m_stRange.s32Def;
        const BU_S32 s32End = s32Way < 0 ? m_stRange.s32Def - m_stRange.s32Min : m_stRange.s32Max - m_stRange.s32Def;
        return s32End > 0 ? static_cast<BU_FLOAT>(s32Way) / static_cast<BU_FLOAT>(s32End) : 0;
    }
    /// As its way from the lower to the upper end, 0 to 1.
    BU_FLOAT share(BU_S32 s32Value) const
    {
        const BU_S32 s32Span = m_stRange.s32Max - m_stRange.s32Min;
        return s32Span > 0 ? static_cast<BU_FLOAT>(s32Value - m_stRange.s32Min) / static_cast<BU_FLOAT>(s32Span) : 0;
    }

private:
    CFG_VALUE_INT_S m_stRange{};
};

void readTone(BU_S32 s32Pipe, PICTURE_SETTINGS_S &st)
{
    static const struct {
        FN_GET fnGet;
        Scale scale;
        BU_FLOAT PICTURE_SETTINGS_S::*pfField;
    } s_astLevels[] = {
        // ranges do not change while the camera runs
        {ISP_API_GetBrightness, Scale("Brightness"), &PICTURE_SETTINGS_S::fBrightness},
        {ISP_API_GetContrast, Scale("Contrast"), &PICTURE_SETTINGS_S::fContrast},
        {ISP_API_GetSaturation, Scale("Saturation"), &PICTURE_SETTINGS_S::fSaturation},
        {ISP_API_GetHue, Scale("Hue"), &PICTURE_SETTINGS_S::fHue},
        {ISP_API_GetSharpness, Scale("Sharpness"), &PICTURE_SETTINGS_S::fSharpness},
        {ISP_API_GetGamma, Scale("Gamma"), &PICTURE_SETTINGS_S::fGamma},
    };
    static const Scale s_noise2d("Nr2d"), s_noise3d("Nr3d");
    for (const auto &stLevel : s_astLevels) st.*stLevel.pfField = stLevel.scale(valueOf(stLevel.fnGet, s32Pipe));
    st.fNr2d = s_noise2d.share(valueOf(ISP_API_Get2DNR, s32Pipe));
    st.fNr3d = s_noise3d.share(valueOf(ISP_API_Get3DNR, s32Pipe));
    st.s32Wdr = valueOf(ISP_API_GetDrcSwi, s32Pipe) ? 1 + valueOf(ISP_API_GetDrcMode, s32Pipe) : 0;
    st.enStyle = static_cast<tagImageStyle>(valueOf(ISP_API_GetIspBinUsage, s32Pipe));
    st.bMonochrome = valueOf(ISP_API_GetMonoChromeSwi, s32Pipe);
    st.bHdr = valueOf(SYS_API_GetHdrSwi);
}

void readColours(BU_S32 s32Pipe, PICTURE_SETTINGS_S &st)
{
    static const Scale s_hue(MAP_MATARIX_HUE[0].text),
        s_saturation(MAP_MATARIX_SATURATION[0].text); // alike for all six
    for (BU_S32 i = 0; i < 6; ++i) {
        BU_S32 s32Hue = 0, s32Saturation = 0;
        if (ISP_API_GetColorHue(s32Pipe, i + 1, &s32Hue, BU_FALSE) == 0) st.afColourHue[i] = s_hue(s32Hue);
        if (ISP_API_GetColorSat(s32Pipe, i + 1, &s32Saturation, BU_FALSE) == 0)
            st.afColourSat[i] = s_saturation(s32Saturation);
    }
}

constexpr BU_FLOAT COMPENSATION_STOPS = 0.4F, BRIGHTNESS_STOPS = 0.2F; // a step
constexpr BU_S32 BRIGHTNESS_MIDDLE = 15;
constexpr BU_FLOAT GAIN_LIMIT_DB = 1.8F; // a step; a step of the gain is 1 dB
/// f-numbers in the order of the iris levels; 0: closed.
constexpr BU_FLOAT IRIS_F[] = {0, 14, 11, 9.6F, 8, 6.8F, 5.6F, 4.8F, 4, 3.4F, 2.8F, 2.4F, 2, 1.6F};
static_assert(std::size(IRIS_F) == std::size(MAP_IRIS_LEVEL));
/// Denominators in the order of the shutter speeds.
constexpr BU_S32 SHUTTER_PARTS[] = {24,   25,   30,   48,   50,   60,   75,   90,   96,   100,  120,
                                    125,  150,  180,  215,  250,  300,  350,  425,  500,  600,  725,
                                    1000, 1250, 1500, 1750, 2000, 2500, 3000, 3500, 4000, 6000, 10000};
static_assert(std::size(SHUTTER_PARTS) == SHUTTER_TIME_BUTT);

template <class T, std::size_t N> T pick(const T (&aRow)[N], BU_S32 s32Index)
{
    return aRow[std::clamp<BU_S32>(s32Index, 0, static_cast<BU_S32>(N) - 1)];
}

void readExposure(BU_S32 s32Pipe, PICTURE_SETTINGS_S &st)
{
    st.enAeMode = static_cast<AE_MODE_E>(valueOf(ISP_API_GetAeMode, s32Pipe));
    st.enMeter = static_cast<tagAE_METER_MODE_E>(valueOf(ISP_API_GetAeMeterMode, s32Pipe));
    st.enAntiFlicker = static_cast<tagFREQ_MODE_E>(valueOf(ISP_API_GetAntiFlicker, s32Pipe));
    st.bBackLight = valueOf(ISP_API_GetBackLight, s32Pipe);
    st.bAutoIris = valueOf(ISP_API_GetAutoIrisSwi, s32Pipe);
    if (valueOf(ISP_API_GetExpCompSwi, s32Pipe))
        st.fExpCompStops = COMPENSATION_STOPS * static_cast<BU_FLOAT>(valueOf(ISP_API_GetExpCompLevel, s32Pipe));
    st.fBrightStops =
        BRIGHTNESS_STOPS * static_cast<BU_FLOAT>(valueOf(ISP_API_GetExpBrightness, s32Pipe) - BRIGHTNESS_MIDDLE);
    const BU_S32 s32Parts = valueOf(ISP_API_GetShutterMode, s32Pipe)
                                ? pick(SHUTTER_PARTS, valueOf(ISP_API_GetShutter, s32Pipe))
                                : valueOf(ISP_API_GetShutterValue, s32Pipe);
    st.fShutterS = 1 / static_cast<BU_FLOAT>(std::max(s32Parts, 1));
    st.fIrisF = pick(IRIS_F, valueOf(ISP_API_GetIrisLevel, s32Pipe));
    st.fGainDb = static_cast<BU_FLOAT>(valueOf(ISP_API_GetGain, s32Pipe));
    st.fGainLimitDb = GAIN_LIMIT_DB * static_cast<BU_FLOAT>(valueOf(ISP_API_GetGainLimit, s32Pipe));
    st.fNdStops = 2 * static_cast<BU_FLOAT>(valueOf(ISP_API_GetNDFilter, s32Pipe));
}

void readWhiteBalance(BU_S32 s32Pipe, PICTURE_SETTINGS_S &st)
{
    constexpr FN_GET GAINS[] = {ISP_API_GetRGain, ISP_API_GetGGain, ISP_API_GetBGain};
    constexpr FN_GET STRENGTHS[] = {ISP_API_GetRStrength, ISP_API_GetGStrength, ISP_API_GetBStrength};
    constexpr BU_FLOAT ONE = 128;
    st.enWbMode = static_cast<tagWB_MODE_E>(valueOf(ISP_API_GetWbMode, s32Pipe));
    st.enAwbSensitivity = static_cast<tagAWB_SENSITIVITY_E>(valueOf(ISP_API_GetAwbSensitivity, s32Pipe));
    const auto fOwn = static_cast<BU_FLOAT>(std::max(valueOf(ISP_API_GetStWbMode, s32Pipe), 1000));
    st.fColourTemp =
        pick({fOwn, picture::INDOOR_KELVIN, picture::OUTDOOR_KELVIN}, valueOf(ISP_API_GetStaticMode, s32Pipe));
    for (int i = 0; i < 3; ++i) {
        st.afGain[i] = static_cast<BU_FLOAT>(valueOf(GAINS[i], s32Pipe)) / ONE;
        st.afStrength[i] = static_cast<BU_FLOAT>(valueOf(STRENGTHS[i], s32Pipe)) / ONE;
    }
}
} // namespace

BU_S32 PICTURE_ReadSettings(BU_S32 s32Pipe, PICTURE_SETTINGS_S *pstSettings)
{
    if ((s32Pipe != CLOSE_UP && s32Pipe != PANORAMA) || !pstSettings) return -1;
    PICTURE_SETTINGS_S st;
    const auto followed = [&](FN_GET fnFollow) { return valueOf(fnFollow, CLOSE_UP) ? CLOSE_UP : s32Pipe; };
    readTone(s32Pipe, st);
    readColours(s32Pipe, st);
    readExposure(followed(ISP_API_GetExposureFullViewFollow), st);
    readWhiteBalance(followed(ISP_API_GetWhiteBalanceFullViewFollow), st);
    if (s32Pipe == CLOSE_UP) {
        const BU_BOOL bHangs = valueOf(SYS_API_GetMountMode) == 0;
        st.bMirror = (valueOf(SYS_API_GetMirror) != 0) != bHangs;
        st.bFlip = (valueOf(SYS_API_GetFlip) != 0) != bHangs;
        st.bFreeze = valueOf(SYS_API_GetImageFreeze);
    }
    *pstSettings = st;
    return 0;
}

static BU_FLOAT degreesOf(BU_U32 u32Motor)
{
    return (static_cast<BU_FLOAT>(u32Motor) - PT_MOTOR_CENTRE) / PT_MOTOR_PER_DEGREE;
}

BU_S32 PICTURE_ReadView(SCENE_VIEW_S *pstView)
{
    if (!pstView) return -1;
    static const BU_FLOAT s_fFov = static_cast<BU_FLOAT>(BSP_PROFILE_GetInt("lens/fovDegrees", 60));
    static const BU_FLOAT s_fSceneM =
        static_cast<BU_FLOAT>(std::max(BSP_PROFILE_GetInt("lens/sceneDistanceCm", 500), 1)) / 100;
    SCENE_VIEW_S st{.fFov = s_fFov};
    BU_FLOAT fSeen = s_fFov;
    BU_S32 s32Ret = 0, s32Focus = 0, s32Zoom = 0, s32FaceFirst = 0;
    PT_POS_S stPos{};
    if (BSP_PTGetCurPos(0, &stPos, PT_DEV_TYPE_PAN_TILE_E) == 0) {
        st.fPan = degreesOf(stPos.u32PanPos);
        st.fTilt = degreesOf(stPos.u32TiltPos);
    } else
        s32Ret = -1;
    if (PTZ_API_GetFieldOfView(0, &fSeen) != 0) s32Ret = -1;
    st.fMagnification = s_fFov / fSeen;
    AF_API_GetFaceAF(0, &s32FaceFirst); // then the lens focuses on faces at any distance: taken as sharp
    if (AF_API_GetFocusPos(0, &s32Focus) != 0 || PTZ_API_GetZoomPos(0, &s32Zoom) != 0)
        s32Ret = -1;
    else if (!s32FaceFirst)
        st.fDefocus = static_cast<BU_FLOAT>(lens_curve::dioptres(s32Zoom, s32Focus)) - 1 / s_fSceneM;
    if (std::abs(st.fDefocus) < 0.01F) st.fDefocus = 0; // what rounding of the positions leaves
    *pstView = st;
    return s32Ret;
}
